// Keeps exchanges with the LCU apart. Waiting lets the window system run, so a click or a timer can arrive in
// the middle of an exchange; its claim is then refused.
#pragma once

#include "app/link_state.h"

namespace tarvik {

/// Holds the link while it lives, if it was free.
class LinkClaim {
  public:
    explicit LinkClaim(LinkState& link) : link_(link), held_(!link.busy) { link_.busy = true; }
    ~LinkClaim() {
        if (held_) link_.busy = false;
    }
    LinkClaim(const LinkClaim&) = delete;
    LinkClaim& operator=(const LinkClaim&) = delete;

    [[nodiscard]] explicit operator bool() const { return held_; }

  private:
    LinkState& link_;
    bool held_;
};

} // namespace tarvik
