// Setup, page 2: tool, winch and sampling of the next run (sub-page 0), the user's tools (1) and winches (2).
#pragma once

#include "screens/setup_equipment_list.h"
#include "screens/setup_page.h"
#include "screens/setup_sampling.h"

namespace tarvik {

class SetupEquipmentPage final : public SetupPage {
  public:
    explicit SetupEquipmentPage(const SetupModules& modules);

    void load() override;
    bool store() override;
    void selectSubPage(int subPage) override;
    void cancel() override { sampling_->cancel(); }

  private:
    QTabWidget* tabs_;
    SetupSampling* sampling_;
    SetupEquipmentList* tools_;
    SetupEquipmentList* winches_;
};

} // namespace tarvik
