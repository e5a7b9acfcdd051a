// Setup, page 6: the firmware versions of the LCU and of the tool below it.
#pragma once

#include "screens/setup_modules.h"
#include "screens/setup_page.h"

class QLayout;
class QPushButton;

namespace tarvik {

class SetupFirmwarePage final : public SetupPage {
  public:
    explicit SetupFirmwarePage(const SetupModules& modules);

    void load() override;

  private:
    [[nodiscard]] QLayout* buildVersions();
    void read();

    SetupModules modules_;
    QLabel* lcu_;
    QLabel* tool_;
    QLabel* result_;
    QPushButton* read_;
};

} // namespace tarvik
