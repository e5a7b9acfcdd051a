#include "screens/screen_run_view.h"

#include "screens/qt_text.h"

#include <QLocale>

#include <utility>

namespace tarvik {

namespace {

/// Of this run: a file that was appended to holds more.
QString onFileWords(long kept, long written) {
    if (written <= 0) return "Nothing written";
    const QString all = written < kept ? QString(" of %1").arg(kept) : QString();
    return QString("%1%2 scans written").arg(written).arg(all);
}

} // namespace

void ScreenRunView::requestStop() {
    stop_ = true;
    parts_.stopping();
    screen_.side().run().setState(RunPanel::State::stopping);
}

RunChoice ScreenRunView::chooseRun(const LoggingRuns& runs, const std::optional<DepthRange>& onFile) {
    const RunChoice choice = parts_.chooseRun(runs, onFile);
    screen_.side().instrument().clear(); // the depth of the choice is not that of the run
    return choice;
}

bool ScreenRunView::recording() {
    return screen_.side().run().recording();
}

void ScreenRunView::setRecording(bool on) {
    screen_.side().run().setRecording(on);
}

void ScreenRunView::setEnabled(bool enabled) {
    parts_.setEnabled(enabled);
    if (!enabled) screen_.side().run().setState(RunPanel::State::running);
}

void ScreenRunView::toolButton(std::string_view key, std::string_view caption, bool enabled) {
    screen_.bars().setShown(key, enabled);
    screen_.bars().setEnabled(key, enabled);
    if (!caption.empty()) screen_.bars().setCaption(key, caption);
}

void ScreenRunView::winchPrompt(std::string_view firstLine, std::string_view secondLine) {
    screen_.side().instrument().winchPrompt(firstLine, secondLine);
}

void ScreenRunView::runStarted(const RunHeader& header, const Path& file) {
    setup_ = header.setup;
    file_ = file;
    InstrumentPanel& instrument = screen_.side().instrument();
    instrument.clear();
    instrument.setUnits(setup_.units);
    instrument.setDirection(setup_.direction);
    instrument.showIdle("Waiting for the first scan");
    screen_.side().run().showFile(recording() ? qt(file.filename().string()) : "No file: recording is off");
    if (!recording()) screen_.side().run().lockRecording();
    parts_.started(header);
}

void ScreenRunView::LCU_ShowLCUCurrent(float milliamps, std::optional<float> volts) {
    scanTick_ = clock_.tickMs();
    latest_.milliamps = milliamps;
    latest_.volts = volts;
    refreshWhenDue();
}

void ScreenRunView::LCU_ShowDepthSpeed(double depthMetres, double metresPerMinute) {
    latest_.depth = depthMetres;
    latest_.speed = metresPerMinute;
    refreshWhenDue();
}

void ScreenRunView::LCU_ShowLoggingProgress(const RunProgress& progress) {
    screen_.status().showTimes(elapsedText(progress.elapsedMinutes),
                               completionText(progress, setup_.sampling, clock_.now()));
    refreshWhenDue(); // the last scans before a silence
}

/// Not every model is shown its depth scan by scan: kept scans show it, too.
void ScreenRunView::scanKept(const KeptScanView& scan) {
    latest_.kept = scan.number;
    if (!scan.savedDepth.empty() && !keepingShown_) keepingState(KeepingState::kept, {});
    keptSinceRefresh_ = true;
    LCU_ShowDepthSpeed(scan.depth, scan.speed);
}

void ScreenRunView::refreshWhenDue() {
    if (clock_.tickMs() - refreshedTick_ >= refreshEveryMs) refresh();
}

void ScreenRunView::refresh() {
    refreshedTick_ = clock_.tickMs();
    if (std::exchange(keptSinceRefresh_, false)) parts_.shown();
    InstrumentPanel& instrument = screen_.side().instrument();
    silent() ? instrument.showSilence() : showLatest(instrument);
    std::error_code unknown;
    const auto bytes = std::filesystem::file_size(file_, unknown);
    const QString onFile = unknown ? QString("nothing on file")
                                   : QLocale::c().formattedDataSize(static_cast<qint64>(bytes), 1,
                                                                    QLocale::DataSizeTraditionalFormat);
    instrument.showScans(latest_.kept, onFile);
}

void ScreenRunView::showLatest(InstrumentPanel& instrument) const {
    instrument.showCurrent(latest_.milliamps, latest_.volts, parts_.currentLimit());
    if (!latest_.depth) return;
    instrument.showDepth(*latest_.depth);
    instrument.showSpeed(latest_.speed);
}

/// Scans may come again that are not kept.
bool ScreenRunView::silent() const {
    constexpr std::int64_t staleMs = 1000;
    return saidSilent_ && clock_.tickMs() - scanTick_ > staleMs;
}

void ScreenRunView::keepingState(KeepingState state, std::string_view words) {
    keepingShown_ = true;
    saidSilent_ = state == KeepingState::noScans || state == KeepingState::communicationsLost;
    if (saidSilent_) refresh();
    const bool kept = state == KeepingState::kept || state == KeepingState::tooDeep ||
                      state == KeepingState::notRecording || state == KeepingState::writeFailed;
    screen_.live().showReadingsAsLatest(kept);
    screen_.side().instrument().showKeeping(state, words);
}

void ScreenRunView::runEnded(const Path&, long scansWritten) {
    refresh();
    InstrumentPanel& instrument = screen_.side().instrument();
    instrument.setDirection(std::nullopt);
    instrument.showPoweredDown();
    instrument.hideScans();
    instrument.showIdle("Run ended", onFileWords(latest_.kept, scansWritten));
    parts_.ended();
}

} // namespace tarvik
