// What is known about the link to the LCU: one value, owned by the program, written by the search and the
// commands, read by everything that shows or uses the link.
#pragma once

#include "lcu/lcu_models.h"

#include <cstdint>
#include <string>

namespace tarvik {

/// How an exchange with the LCU ended. Anything but `good` has been explained in the status log.
enum class LinkResult : std::int32_t {
    busy = -1, ///< refused: another exchange is under way
    failed = 0,
    good = 1,
};

struct LinkState {
    std::int32_t port = 0; ///< 1 to 4 for COM1 to COM4; 0 or less: closed
    std::int32_t baud = 0; ///< at which the LCU answered
    const LcuModel* model = nullptr;
    std::string firmware;     ///< of the LCU
    std::int32_t status = -1; ///< last status byte; -1 until a status request is answered
    std::string statusText;   ///< empty when good
    bool toolPower = false;   ///< set by whoever powers the tool up, cleared by the power-down

    bool busy = false;            ///< an exchange is under way; see LinkClaim
    bool acquiring = false;       ///< scans are wanted or coming: no box may wait for the operator
    bool diagnosticsOpen = false; ///< the diagnostics console is open: good commands are not logged

    [[nodiscard]] bool isOpen() const { return port > 0; }
    [[nodiscard]] std::string_view modelName() const { return model ? model->name : std::string_view{}; }
    [[nodiscard]] double modelFactor() const { return model ? model->modelFactor : 1.0; }
};

/// Whoever shows the link: the indicators of the main screen and of the calibration screen.
class LinkWatcher {
  public:
    virtual ~LinkWatcher() = default;
    virtual void linkChanged(const LinkState& link) = 0;
};

/// Holds the link for one exchange. Waiting lets the window system run, so a click or a timer can arrive in
/// the middle of an exchange; its claim is then refused.
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
