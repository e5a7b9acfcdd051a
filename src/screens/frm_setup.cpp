#include "screens/frm_setup.h"

#include "screens/icons.h"
#include "screens/setup_display_page.h"
#include "screens/setup_equipment_page.h"
#include "screens/setup_firmware_page.h"
#include "screens/setup_hole_page.h"
#include "screens/setup_lithology_page.h"
#include "screens/setup_project_page.h"
#include "screens/setup_system_page.h"
#include "screens/theme.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStackedWidget>

namespace tarvik {

namespace {

struct PageName {
    const char* title;
    const char* icon;
};

constexpr std::array<PageName, frmSetup::pageCount> names{{{"Project", "setup-project"},
                                                           {"Hole", "setup-hole"},
                                                           {"Winch and tool", "setup-winch"},
                                                           {"Lithology", "setup-lithology"},
                                                           {"Log display", "setup-display"},
                                                           {"System test", "setup-system"},
                                                           {"Firmware", "setup-firmware"}}};
constexpr int holePage = 1;
constexpr int listWidth = 184;

} // namespace

frmSetup::frmSetup(const SetupModules& modules, QWidget* parent)
    : ScreenDialog("frmSetup", "Setup", modules.memory, parent),
      modules_(modules),
      before_(modules.settings),
      list_(new QListWidget),
      stack_(new QStackedWidget) {
    buildList();
    buildPages();

    auto* const row = new QHBoxLayout;
    row->setSpacing(measure::margin);
    row->addWidget(list_);
    row->addWidget(stack_, 1);
    body()->addLayout(row, 1);
    QPushButton* const save = addPrimaryButton("comsave", "&Save and close");
    QPushButton* const cancel = addButton("comcancel", "Cancel");
    connect(save, &QPushButton::clicked, this, [this] { accept(); });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });

    const auto turnBy = [this](const char* keys, int pages) {
        connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, [this, pages] {
            selectPage(page_ + pages);
            shown().firstControl()->setFocus();
        });
    };
    turnBy("Ctrl+PgDown", 1);
    turnBy("Ctrl+PgUp", -1);
    list_->setCurrentRow(page_);
    shown().load();
    connect(list_, &QListWidget::currentRowChanged, this, [this](int chosen) { selectPage(chosen); });
    setMinimumSize(800, 520);
    resize(1060, 700);
}

void frmSetup::buildList() {
    list_->setObjectName("lbpages");
    list_->setAccessibleName("Pages of the setup");
    list_->setFixedWidth(listWidth);
    list_->setIconSize({24, 24});
    list_->setSpacing(2);
    list_->setStyleSheet("QListWidget::item { padding: 0 8px; border-radius: 4px; }"
                         "QListWidget::item:selected { background: palette(highlight); "
                         "color: palette(highlighted-text); }");
    for (const PageName& name : names) {
        auto* const item = new QListWidgetItem(name.title, list_);
        item->setSizeHint({0, 40});
        item->setIcon(icon(name.icon));
    }
}

void frmSetup::buildPages() {
    const auto toHole = [this] { selectPage(holePage, 0); };
    pages_ = {new SetupProjectPage(modules_, toHole), new SetupHolePage(modules_),
              new SetupEquipmentPage(modules_),       new SetupLithologyPage(modules_),
              new SetupDisplayPage(modules_),         new SetupSystemPage(modules_),
              new SetupFirmwarePage(modules_)};
    // A small screen scrolls rather than cut.
    for (SetupPage* const page : pages_) {
        auto* const view = new QScrollArea;
        view->setFrameShape(QFrame::NoFrame);
        view->setFocusPolicy(Qt::NoFocus); // it follows the focus within
        view->setWidgetResizable(true);
        view->setWidget(page);
        stack_->addWidget(view);
    }
}

void frmSetup::selectPage(int page, int subPage) {
    if (page < 0 || page >= pageCount) page = 0;
    if (page != page_ && leave()) {
        page_ = page;
        shown().load();
        stack_->setCurrentIndex(page_);
        if (modules_.pageChanged) modules_.pageChanged(page_);
    }
    const QSignalBlocker quiet(list_);
    list_->setCurrentRow(page_);
    if (page == page_) shown().selectSubPage(subPage);
}

void frmSetup::showEvent(QShowEvent* event) {
    ScreenDialog::showEvent(event);
    shown().firstControl()->setFocus();
}

bool frmSetup::leave() {
    return modules_.errors.runIn("frmSetup", "frmSetup-leave", true, [&](Level&) {
        if (!shown().store()) return false;
        save();
        return true;
    });
}

void frmSetup::save() {
    modules_.storedSettings.Utilities_saveregsettings(modules_.settings);
}

void frmSetup::accept() {
    if (leave()) ScreenDialog::accept();
}

void frmSetup::reject() {
    modules_.errors.runIn("frmSetup", "frmSetup-cancel", false, [&](Level&) {
        modules_.settings = before_;
        save();
        for (SetupPage* const page : pages_) page->cancel();
        return true;
    });
    ScreenDialog::reject();
}

} // namespace tarvik
