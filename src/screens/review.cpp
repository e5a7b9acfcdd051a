#include "screens/review.h"

#include "screens/qt_text.h"

#include <QApplication>

namespace tarvik {

bool Review::open(const Path& file) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    auto log = program_.runReader.Tarvikfileopen(file);
    QApplication::restoreOverrideCursor();
    if (!log) return false;
    log_ = std::move(log);
    file_ = file;
    program_.state.runFileName = file.filename().string();
    show();
    return true;
}

void Review::close() {
    log_.reset();
    file_.clear();
    program_.state.runFileName.clear();
    program_.state.exitConfirmation = false;
    show();
}

void Review::show() {
    screen_.side().review().showRun(log(), qt(file_.filename().string()));
    screen_.bars().setEnabled("MB-Details", log_.has_value());
    screen_.bars().setEnabled("MB-Paint", log_.has_value());
    screen_.bars().setEnabled("MB-Close", log_.has_value());
    screen_.bars().setEnabled("MB-Print", log_.has_value());
    if (!log_) return showEmpty();
    program_.state.exitConfirmation = true;
    screen_.logs().showPicture();
}

void Review::showEmpty() {
    const auto command = [this](const char* key) {
        return [this, key] { program_.commands.toolClick(key); };
    };
    screen_.logs().showEmpty(
        "No run is open",
        "Open a finished run or a LAS file to see its logs, or go to Acquire to log a hole.",
        {{"Open a run or LAS file\u2026", command("MB-Open")},
         {"Acquire: search for the LCU", command("MB-Acquire")},
         {"Play a run as a demonstration", command("Help-demo")}});
}

} // namespace tarvik
