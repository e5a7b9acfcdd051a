#include "screens/review_session.h"

#include "display/annotations.h"
#include "files/run_catalogue.h"
#include "files/run_details.h"
#include "lcu/run_keeping.h"
#include "screens/qt_text.h"

#include <QApplication>

namespace tarvik {

bool ReviewSession::open(const Path& file) {
    auto log = read(file);
    showReading(100, "Data review mode");
    if (!log) return false;
    screen_.notices().clear(); // of the run that was logged before
    hand(nullptr);
    second_.reset();
    log_ = std::move(log);
    file_ = file;
    hand(&*log_);
    program_.state.runFileName = file.filename().string();
    program_.log.black("Opened for review : " + file.string());
    if (const std::string remark = readingRemark(*log_); !remark.empty())
        program_.frame.operatorSide.notice("Not the whole file", remark, Icon::exclamation);
    show();
    screen_.reviewPages().currentWidget()->setFocus(); // the keys move the paper
    return true;
}

bool ReviewSession::openSecond(const Path& file) {
    auto log = read(file);
    showReading(100, "Data review mode");
    if (!log) return false;
    screen_.picture().compareWith(nullptr, Comparison::over);
    second_ = std::move(log);
    return true;
}

/// A LAS file that is refused, or shows no row, can be read tolerantly: every repair is then in the event
/// log.
std::optional<ReviewLog> ReviewSession::read(const Path& file) {
    if (!isLasFile(program_.files, file)) return readRun(file);
    LasOpening opening = program_.lasReader.LASfileopen(file, progress());
    if (opening.complaint.empty()) return std::move(opening.log);
    const std::string question =
        opening.complaint + ".\n\nRead the file tolerantly? Each repair is listed, no value is invented.";
    if (program_.frame.operatorSide.ask("LAS file", question, Icon::question) == Answer::no)
        return std::move(opening.log);
    return program_.lasReader.openTolerantly(file, progress());
}

/// A file that was chosen by mistake or came to harm is no error of the program: its fault is said, not
/// reported, and where the copy of each run lies.
std::optional<ReviewLog> ReviewSession::readRun(const Path& file) {
    std::string problem = describeRun(program_.files, file).problem;
    if (problem.empty()) return program_.runReader.Tarvikfileopen(file, progress());
    const Path copy = backupOf(file);
    if (program_.files.exists(copy)) problem += "\n\nThe copy that was made after the run: " + copy.string();
    program_.log.red(problem);
    program_.frame.operatorSide.message("Open a run", problem, Icon::exclamation);
    return std::nullopt;
}

void ReviewSession::showReading(int percent, std::string_view words) {
    screen_.status().showText(words);
    screen_.status().showProgress(percent);
}

Progress ReviewSession::progress() {
    return [this](int percent, std::string_view words) {
        showReading(percent, words);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    };
}

void ReviewSession::close() {
    hand(nullptr);
    second_.reset();
    log_.reset();
    file_.clear();
    program_.state.runFileName.clear();
    program_.state.exitConfirmation = false;
    show();
}

void ReviewSession::keepExitQuestion() {
    if (log_ && program_.state.mode == programMode::review) program_.state.exitConfirmation = true;
}

void ReviewSession::show() {
    screen_.side().review().showRun(log(), qt(file_.filename().string()));
    screen_.bars().setEnabled("MB-Details", log_.has_value());
    screen_.bars().setEnabled("MB-Paint", log_.has_value());
    screen_.bars().setEnabled("MB-Close", log_.has_value());
    screen_.bars().setEnabled("MB-Print", log_.has_value());
    if (!log_) return showEmpty();
    program_.state.exitConfirmation = true;
    screen_.logs().showPage(&screen_.reviewPages());
    screen_.handFocusOn();
}

void ReviewSession::showEquallySpaced() {
    show();
    if (log_) screen_.picture().showEquallySpaced();
}

void ReviewSession::hand(const ReviewLog* log) {
    screen_.picture().setLog(log, log == nullptr ? std::vector<DepthMark>() : notes());
    screen_.values().setLog(log);
}

/// A run is shown without the notes of its hole when they cannot be read.
std::vector<DepthMark> ReviewSession::notes() const {
    return program_.errors.run("Review notes", std::vector<DepthMark>(),
                               [&](Level&) { return holeAnnotations(program_.files, file_, *log_); });
}

void ReviewSession::showEmpty() {
    const auto command = [this](const char* key) {
        return [this, key] { gate_.pass([this, key] { program_.commands.toolClick(key); }); };
    };
    std::vector<NextStep> steps{{"Open a run or LAS file\u2026", command("MB-Open")},
                                {"Acquire: search for the LCU", command("MB-Acquire")},
                                {"Play a run as a demonstration", command("Help-demo")}};
    const bool mayLog = program_.settings.allowLogging != 0;
    if (!mayLog) steps.erase(steps.begin() + 1);
    screen_.logs().showEmpty(
        "No run is open",
        mayLog ? "Open a finished run or a LAS file to see its logs, or go to Acquire to "
                 "log a hole."
               : "Open a finished run or a LAS file to see its logs. Logging is not allowed "
                 "in the set-up.",
        std::move(steps));
}

} // namespace tarvik
