#include "screens/main_bars.h"

#include "screens/command_looks.h"
#include "screens/icons.h"
#include "screens/qt_text.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <array>
#include <utility>

namespace tarvik {

namespace {

constexpr std::string_view scaleKey = "Log-scale";
constexpr std::string_view paintKey = "MB-Paint"; // the scale list stands before it
constexpr std::string_view exitKey = "MB-Exit";   // alone at the right: never pressed for its neighbour
constexpr int iconPixels = 24;

void addSpace(QToolBar& bar) {
    auto* const space = new QWidget;
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar.addWidget(space);
}

QIcon iconOf(const CommandLook& look) {
    return look.place == CommandPlace::toolBar ? icon(qt(look.icon)) : menuIcon(qt(look.icon));
}

QAction* makeAction(const CommandLook& look, QObject* owner) {
    auto* const made = new QAction(iconOf(look), qt(look.caption), owner);
    made->setObjectName(qt(look.key));
    made->setCheckable(look.checkable);
    made->setVisible(look.shownAtFirst);
    QString tip = qt(look.tip);
    if (!look.shortcut.empty()) {
        made->setShortcut(QKeySequence(qt(look.shortcut)));
        tip += " (" + made->shortcut().toString(QKeySequence::NativeText) + ")";
    }
    made->setToolTip(tip);
    return made;
}

} // namespace

MainBars::MainBars(QMainWindow& window, std::function<void(std::string_view key)> toolClick)
    : toolClick_(std::move(toolClick)) {
    makeMenus(window);
    makeToolBar(window);
    for (const CommandLook& look : commandLooks()) {
        QAction* const made = makeAction(look, &window);
        actions_.emplace(look.key, made);
        QObject::connect(made, &QAction::triggered, made, [this, key = look.key, made] {
            if (made->isCheckable())
                made->setChecked(!made->isChecked()); // the program decides what is checked
            toolClick_(key);
        });
        place(look, made);
    }
}

void MainBars::makeMenus(QMainWindow& window) {
    for (const CommandPlace menuPlace :
         {CommandPlace::fileMenu, CommandPlace::setupMenu, CommandPlace::helpMenu}) {
        QMenu* const menu = window.menuBar()->addMenu(qt(menuTitle(menuPlace)));
        menu->setObjectName(menuPlace == CommandPlace::setupMenu ? QString("ch-setup")
                                                                 : qt(menuKey(menuPlace)));
        menu->setToolTipsVisible(true);
        menus_.emplace(menuKey(menuPlace), menu);
    }
}

void MainBars::place(const CommandLook& look, QAction* made) {
    if (look.place != CommandPlace::toolBar) {
        QMenu* const menu = menus_.find(menuKey(look.place))->second;
        if (look.startsGroup) menu->addSeparator();
        menu->addAction(made);
        return;
    }
    if (look.key == exitKey) addSpace(*bar_);
    if (look.startsGroup && look.key != exitKey) bar_->addSeparator();
    if (look.key == paintKey) scalesAction_ = bar_->addWidget(scales_);
    bar_->addAction(made);
}

void MainBars::makeToolBar(QMainWindow& window) {
    bar_ = window.addToolBar("Main tool bar");
    bar_->setObjectName("mainbuttons");
    bar_->setMovable(false);
    bar_->setContextMenuPolicy(Qt::PreventContextMenu);
    bar_->setIconSize({iconPixels, iconPixels});
    bar_->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    scales_ = new QComboBox;
    scales_->setObjectName(qt(scaleKey));
    scales_->setAccessibleName("Log scale");
    scales_->setToolTip("Scale of the logs");
}

void MainBars::fit(int width) {
    const bool words = bar_->toolButtonStyle() == Qt::ToolButtonTextUnderIcon;
    if (!words && width < widthWithWords_) return;
    bar_->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    widthWithWords_ = bar_->sizeHint().width();
    if (width < widthWithWords_) bar_->setToolButtonStyle(Qt::ToolButtonIconOnly);
}

QAction* MainBars::action(std::string_view key) const {
    if (key == scaleKey) return scalesAction_;
    if (const auto menu = menus_.find(key); menu != menus_.end()) return menu->second->menuAction();
    const auto found = actions_.find(key);
    return found == actions_.end() ? nullptr : found->second;
}

void MainBars::setEnabled(std::string_view key, bool enabled) {
    if (QAction* const found = action(key)) found->setEnabled(enabled);
    if (key == scaleKey) scales_->setEnabled(enabled);
}

void MainBars::setShown(std::string_view key, bool shown) {
    if (QAction* const found = action(key)) found->setVisible(shown);
    widthWithWords_ = 0; // to be measured afresh
    fit(bar_->width());
}

void MainBars::setChecked(std::string_view key, bool checked) {
    if (QAction* const found = action(key)) found->setChecked(checked);
}

/// The modes; the notes panel stays as it is.
void MainBars::uncheckAll() {
    for (const char* key : {"MB-Review", "MB-Acquire", "MB-CalibTest"}) setChecked(key, false);
}

void MainBars::setCaption(std::string_view key, std::string_view caption) {
    if (QAction* const found = action(key)) found->setText(qt(caption));
}

void MainBars::setSearchPicture(bool searching) {
    constexpr std::string_view key = "Setup-LCUsearch";
    setChecked(key, searching);
    action(key)->setIcon(menuIcon(qt(searching ? searchOnIcon : searchOffIcon)));
    action(key)->setText(QString("Automatic LCU &search - ") + (searching ? "ON" : "OFF")); // read in the sun
}

void MainBars::whenScaleChosen(std::function<void(double scale)> act) {
    QObject::connect(scales_, &QComboBox::textActivated, scales_,
                     [act = std::move(act)](const QString& text) { act(text.section(':', 1).toDouble()); });
}

void MainBars::showScale(double scale) {
    const QString text = scaleText(scale);
    scales_->setPlaceholderText(text); // of a scale between those of the list
    scales_->setCurrentIndex(scales_->findText(text));
}

void MainBars::fillScales(std::span<const std::string_view> scales) {
    scales_->clear();
    for (const std::string_view scale : scales) scales_->addItem(qt(scale));
    scales_->setCurrentText("1:200");
}

} // namespace tarvik
