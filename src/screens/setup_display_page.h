// Setup, page 4: how the screen looks, and the unit of the log scales.
#pragma once

#include "screens/setup_modules.h"
#include "screens/setup_page.h"

class QButtonGroup;
class QCheckBox;

namespace tarvik {

class SetupDisplayPage final : public SetupPage {
  public:
    /// `themeChanged` is called after another theme was applied: icons are drawn in its colours.
    SetupDisplayPage(const SetupModules& modules, std::function<void()> themeChanged);

    void load() override;
    bool store() override;
    void cancel() override;

  private:
    void applyTheme(Theme theme);

    SetupModules modules_;
    std::function<void()> themeChanged_;
    Theme before_;
    QButtonGroup* theme_;
    QCheckBox* inches_;
    QLabel* depthTrack_;
};

} // namespace tarvik
