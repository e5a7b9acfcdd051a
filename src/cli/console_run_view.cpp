#include "cli/console_run_view.h"

#include "base/number_picture.h"

#include <iostream>

namespace tarvik {

RunChoice ConsoleRunView::chooseRun(const LoggingRuns& runs, std::string_view depthRangeText) {
    std::cerr << loggingRunsText(runs) << "  " << depthRangeText << "\n";
    return choice_;
}

bool ConsoleRunView::stopRequested() {
    if (signals_.arrived() || endReached_) return true;
    return ends_.seconds && startTick_ &&
           static_cast<double>(clock_.tickMs() - *startTick_) >= *ends_.seconds * 1000;
}

void ConsoleRunView::winchPrompt(std::string_view firstLine, std::string_view secondLine) {
    if (!firstLine.empty()) std::cerr << firstLine << " " << secondLine << "\n";
}

void ConsoleRunView::runStarted(const RunHeader& header, const Path& file) {
    setup_ = header.setup;
    file_ = file;
    startTick_ = clock_.tickMs();
    std::cerr << "Logging with " << header.tool.name << " to " << file.filename().string() << "\n";
}

void ConsoleRunView::LCU_ShowLCUCurrent(float milliamps, float) {
    milliamps_ = milliamps;
}

void ConsoleRunView::LCU_ShowLoggingProgress(const RunProgress& progress) {
    if (!startTick_) return;
    std::cerr << elapsedText(progress.elapsedMinutes) << ", " << kept_ << " scans kept, depth "
              << formatPicture(fromMetres(depth_, setup_.units), "###0.00") << " "
              << depthUnitsText(setup_.units) << ", " << formatPicture(milliamps_, "##0") << " mA"
              << completionText(progress, setup_.sampling, clock_.now()) << "\n";
}

void ConsoleRunView::scanKept(const KeptScanView& scan) {
    kept_ = scan.number;
    depth_ = scan.depth;
    if (ends_.keptScans && kept_ >= *ends_.keptScans) endReached_ = true;
    if (!ends_.depth) return;
    const bool up = setup_.direction == Direction::up;
    if (up ? depth_ <= *ends_.depth : depth_ >= *ends_.depth) endReached_ = true;
}

void ConsoleRunView::keepingState(KeepingState state, std::string_view words) {
    if (state == KeepingState::kept)
        std::cerr << "Scans are being written again\n";
    else
        std::cerr << "NO SCAN WRITTEN " << words << "\n";
}

void ConsoleRunView::runEnded(const Path& file, long scansWritten) {
    file_ = file;
    scansWritten_ = scansWritten;
}

} // namespace tarvik
