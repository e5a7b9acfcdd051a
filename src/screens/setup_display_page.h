// Setup, page 4: how the screen looks, and the unit of the log scales.
#pragma once

#include "screens/setup_modules.h"
#include "screens/setup_page.h"

class QButtonGroup;
class QCheckBox;

namespace tarvik {

class SetupDisplayPage final : public SetupPage {
  public:
    explicit SetupDisplayPage(const SetupModules& modules);

    void load() override;
    bool store() override;
    void cancel() override;

  private:
    void applyTheme(Theme theme);

    SetupModules modules_;
    Theme before_;
    QButtonGroup* theme_;
    QCheckBox* inches_;
    QLabel* depthTrack_;
};

} // namespace tarvik
