#include "cli/console_run_view.h"

#include "base/number_picture.h"

namespace tarvik {

RunChoice ConsoleRunView::chooseRun(const LoggingRuns& runs, const std::optional<DepthRange>& onFile) {
    lines_.line(loggingRunsText(runs));
    if (onFile) lines_.line(depthRangeText(onFile));
    return choice_;
}

bool ConsoleRunView::stopRequested() {
    if (signals_.arrived() || endReached_) return true;
    return ends_.seconds && startTick_ &&
           static_cast<double>(clock_.tickMs() - *startTick_) >= *ends_.seconds * 1000;
}

void ConsoleRunView::winchPrompt(std::string_view firstLine, std::string_view secondLine) {
    if (!firstLine.empty()) lines_.line(std::string(firstLine) + " " + std::string(secondLine));
}

void ConsoleRunView::runStarted(const RunHeader& header, const Path& file) {
    setup_ = header.setup;
    file_ = file;
    startTick_ = clock_.tickMs();
    lines_.line("Logging with " + header.tool.name +
                (recording_ ? " to " + file.filename().string() : std::string(", nothing is written")));
}

void ConsoleRunView::LCU_ShowLCUCurrent(float milliamps, std::optional<float>) {
    milliamps_ = milliamps;
}

std::string ConsoleRunView::progressText(const RunProgress& progress) const {
    std::string text = elapsedText(progress.elapsedMinutes);
    if (progress.elapsedMinutes < 1)
        text += " (" + std::to_string(static_cast<int>(progress.elapsedMinutes * 60)) + " s)";
    text += ", " + std::to_string(kept_) + (kept_ == 1 ? " scan kept" : " scans kept");
    if (depth_) {
        text += ", depth " + formatPicture(fromMetres(*depth_, setup_.units), "###0.00") + " ";
        text += depthUnitsText(setup_.units);
    }
    if (milliamps_) text += ", " + formatPicture(*milliamps_, "##0") + " mA";
    return text + completionText(progress, setup_.sampling, clock_.now());
}

void ConsoleRunView::LCU_ShowLoggingProgress(const RunProgress& progress) {
    if (!startTick_) return;
    if (progress.ended)
        lines_.line(progressText(progress));
    else
        lines_.progress(progressText(progress), clock_.tickMs());
}

void ConsoleRunView::scanKept(const KeptScanView& scan) {
    kept_ = scan.number;
    depth_ = scan.depth;
    if (ends_.keptScans && kept_ >= *ends_.keptScans) endReached_ = true;
    if (!ends_.depth) return;
    const bool up = setup_.direction == Direction::up;
    if (up ? scan.depth <= *ends_.depth : scan.depth >= *ends_.depth) endReached_ = true;
}

void ConsoleRunView::keepingState(KeepingState state, std::string_view words) {
    if (state == KeepingState::kept)
        lines_.line("Scans are being kept again");
    else
        lines_.line((state == KeepingState::tooDeep ? "TOO DEEP FOR FILE " : "NO SCAN WRITTEN ") +
                    std::string(words));
}

void ConsoleRunView::runEnded(const Path& file, long scansWritten) {
    file_ = file;
    scansWritten_ = scansWritten;
}

} // namespace tarvik
