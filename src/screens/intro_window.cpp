#include "screens/intro_window.h"

#include "screens/qt_text.h"

#include <QApplication>
#include <QPixmap>
#include <QScreen>

namespace tarvik {

void IntroWindow::create() {
    screen_ = parts_.make();
}

void IntroWindow::show() {
    // A part that comes later must not make it grow: that would undo the maximising that is under way.
    screen_->resize(screen_->screen()->availableSize());
    screen_->show();
}

void IntroWindow::hide() {
    screen_->hide();
}

void IntroWindow::minimise() {
    screen_->showMinimized();
}

void IntroWindow::fillScreen(std::int32_t, std::int32_t) {
    screen_->showMaximized();
}

/// The screen object lives on until the program ends: a slot of its own may be what closes it.
void IntroWindow::unload() {
    screen_->unload();
}

void IntroWindow::processMessages() {
    QCoreApplication::processEvents();
}

void IntroWindow::setControl(const ControlState& control) {
    screen_->bars().setEnabled(control.key, control.enabled);
    if (control.shown != Shown::asItWas) screen_->bars().setShown(control.key, control.shown == Shown::yes);
}

void IntroWindow::setChecked(std::string_view key, bool checked) {
    screen_->bars().setChecked(key, checked);
}

void IntroWindow::uncheckToolBar() {
    screen_->bars().uncheckAll();
}

void IntroWindow::setCaption(std::string_view key, std::string_view caption) {
    screen_->bars().setCaption(key, caption);
}

void IntroWindow::setSearchPicture(bool checked) {
    screen_->bars().setSearchPicture(checked);
}

void IntroWindow::fillLogScales(std::span<const std::string_view> scales) {
    screen_->bars().fillScales(scales);
}

void IntroWindow::Utilities_setupsideframe() {
    screen_->side().layOut(parts_.mode());
    parts_.modeShown();
}

void IntroWindow::hideAcquisitionPanel() {
    screen_->side().hideAcquisition();
}

void IntroWindow::hideRunPanels() {
    screen_->side().hideAcquisition();
}

void IntroWindow::showNotesPanel(bool shown) {
    if (shown) parts_.loadNotes();
    screen_->showNotes(shown);
}

void IntroWindow::showProgress(int percent) {
    screen_->status().showProgress(percent);
}

void IntroWindow::showInterface(const InterfaceDisplay& display) {
    screen_->status().showInterface(display);
}

void IntroWindow::showLogo(const Path& bitmap) {
    screen_->side().showLogo(QPixmap(qt(bitmap.string())));
}

void IntroWindow::showVersion(std::string_view label) {
    screen_->status().showVersion(label);
}

void IntroWindow::showSonicDisplay(std::string_view) {
    screen_->status().showText("The sonic display is not built yet");
}

void IntroWindow::printOnLogPicture(std::string_view text) {
    screen_->logs().printLine(qt(text));
}

} // namespace tarvik
