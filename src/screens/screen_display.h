// The display that the desktop runs on. There is no task bar of the program's to hide on this system.
#pragma once

#include "platform/display_queries.h"

namespace tarvik {

class ScreenDisplay final : public Display {
  public:
    [[nodiscard]] DisplayFacts facts() const override;
    void hideTaskBar() override {}
    void showTaskBar() override {}
};

} // namespace tarvik
