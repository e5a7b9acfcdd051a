// Setup, page 5: the link to the LCU and the ports that its search tries (sub-page 0), this machine's ports
// and drives (sub-page 1).
#pragma once

#include "screens/setup_machine.h"
#include "screens/setup_modules.h"
#include "screens/setup_page.h"

#include <array>

class QButtonGroup;
class QPushButton;

namespace tarvik {

class SetupSystemPage final : public SetupPage {
  public:
    explicit SetupSystemPage(const SetupModules& modules);

    void load() override;
    bool store() override;
    void selectSubPage(int subPage) override;
    void cancel() override;

  private:
    [[nodiscard]] QWidget* buildLink();
    [[nodiscard]] QWidget* buildSearch();
    void showLink();
    void askForStatus();

    SetupModules modules_;
    QTabWidget* tabs_;
    SetupMachine* machine_;
    std::array<QLabel*, 5> values_{}; ///< port, model, speed, firmware, status
    QPushButton* ask_;
    QLabel* result_;
    QButtonGroup* ports_ = nullptr;
};

} // namespace tarvik
