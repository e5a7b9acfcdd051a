#include "screens/screen_operator.h"

#include "base/civil_time.h"
#include "screens/intro_screen.h"
#include "screens/message_box.h"
#include "screens/notice_strip.h"
#include "screens/qt_text.h"
#include "screens/status_panels.h"

#include <QApplication>
#include <utility>

namespace tarvik {

void ScreenOperator::attach(IntroScreen* screen, const Clock* clock) {
    screen_ = screen;
    clock_ = clock;
    if (screen_ == nullptr) return;
    for (const Waiting& early : std::exchange(waiting_, {})) notice(early.title, early.text, early.icon);
}

void ScreenOperator::goUnseen() {
    attach(nullptr, nullptr);
    setReports({});
    unseen_ = true;
}

void ScreenOperator::message(std::string_view title, std::string_view text, Icon icon) {
    if (!unseen_) makeMessageBox(icon, qt(title), qt(text), screen_)->exec();
}

Answer ScreenOperator::ask(std::string_view title, std::string_view text, Icon icon) {
    if (unseen_) return Answer::no;
    const auto box = makeMessageBox(icon, qt(title), qt(text), screen_);
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
    return box->exec() == QMessageBox::Yes ? Answer::yes : Answer::no;
}

void ScreenOperator::notice(std::string_view title, std::string_view text, Icon icon) {
    if (screen_ == nullptr) {
        waiting_.push_back({std::string(title), std::string(text), icon});
        return;
    }
    screen_->notices().show(title, text, icon, formatDate(clock_->now(), "hh:mm"));
}

void ScreenOperator::noticeIsOver(std::string_view title) {
    if (screen_ != nullptr) screen_->notices().over(title);
}

void ScreenOperator::showError(const ErrorReport& error, std::string_view dateTime,
                               const ErrorFiling& filed) {
    if (reports_.error) return reports_.error(error, dateTime, filed);
    notice("Error in " + error.routine, error.description + "\n" + errorFileAdvice(filed), Icon::critical);
}

void ScreenOperator::showOverflow(std::span<const std::string> lines, const ErrorFiling& filed) {
    if (reports_.overflow) return reports_.overflow(lines, filed);
    OperatorSide::showOverflow(lines, filed);
}

void ScreenOperator::beep() {
    if (!unseen_) QApplication::beep();
}

void ScreenOperator::statusText(std::string_view text) {
    if (screen_ != nullptr) screen_->status().showText(text);
}

void ScreenOperator::linkPanel(std::string_view text) {
    if (screen_ != nullptr) screen_->status().showLink(text);
}

} // namespace tarvik
