#include "screens/setup_equipment_page.h"

#include <QTabWidget>
#include <QVBoxLayout>

namespace tarvik {

SetupEquipmentPage::SetupEquipmentPage(const SetupModules& modules)
    : SetupPage("pagewinch", "Winch and tool",
                "What hangs on the cable, what turns it, and how often a scan is kept."),
      tabs_(new QTabWidget),
      sampling_(new SetupSampling(modules)),
      tools_(new SetupEquipmentList(EquipmentSort::tool, modules, [this] { sampling_->reloadEquipment(); })),
      winches_(
          new SetupEquipmentList(EquipmentSort::winch, modules, [this] { sampling_->reloadEquipment(); })) {
    tabs_->setObjectName("lbequipmenttabs");
    addTab(*tabs_, "&Next run")->addWidget(sampling_);
    addTab(*tabs_, "&Your tools")->addWidget(tools_);
    addTab(*tabs_, "Your w&inches")->addWidget(winches_);
    body()->addWidget(tabs_, 1);
}

void SetupEquipmentPage::load() {
    tools_->load();
    winches_->load();
    sampling_->load();
}

bool SetupEquipmentPage::store() {
    for (SetupEquipmentList* const list : {tools_, winches_}) {
        if (!list->isUnfinished()) continue;
        tabs_->setCurrentIndex(list == tools_ ? 1 : 2);
        return false;
    }
    if (sampling_->store()) return true;
    tabs_->setCurrentIndex(0);
    return false;
}

void SetupEquipmentPage::selectSubPage(int subPage) {
    showTab(*tabs_, subPage);
}

} // namespace tarvik
