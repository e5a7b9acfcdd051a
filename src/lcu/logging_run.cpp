#include "lcu/logging_run.h"

#include "base/number_picture.h"
#include "lcu/append_check.h"
#include "lcu/earlier_run.h"
#include "lcu/run_header_builder.h"
#include "lcu/run_keeping.h"
#include "lcu/run_ownership.h"
#include "lcu/run_preparation.h"
#include "lcu/run_rescue.h"
#include "lcu/scan_loop.h"
#include "lcu/start_checks.h"
#include "lcu/tool_buttons.h"
#include "lcu/tool_rules.h"

namespace tarvik {

namespace {

constexpr std::string_view notSavedNote = "NOTE : Data NOT saved to file";
constexpr std::string_view routine = "LCUFunctions-LCU_AcquireData_Pulse";

} // namespace

RunResult LoggingRun::comstartlogging(const RunOrder& order) {
    return modules_.errors.run("comstartlogging click", RunResult::failed, [&](Level&) {
        RunView& view = modules_.view;
        if (!mayStartLogging(modules_.operatorSide, modules_.equipment.currentTool().record,
                             modules_.equipment.currentWinch().record, modules_.link, order.hole,
                             view.recording())) {
            return RunResult::notStarted;
        }
        view.winchPrompt("START WINCH WHEN THIS", "MESSAGE DISAPPEARS");
        view.setEnabled(false);
        const RunResult result = LCU_AcquireData_Pulse(order);
        view.winchPrompt({}, {});
        view.setEnabled(true);
        return result;
    });
}

RunResult LoggingRun::LCU_AcquireData_Pulse(const RunOrder& order) {
    return modules_.errors.run(routine, RunResult::failed, [&](Level& level) {
        run_ = RunState{};
        run_.header = buildRunHeader(order, modules_.equipment.currentTool(),
                                     modules_.equipment.currentWinch(), modules_.clock.now());
        run_.header.setup.winchDepthFactor *= modules_.link.modelFactor;
        showToolButtons(modules_.view, modules_.state, run_.header.tool.code);
        level = 1; // choosing the file
        if (!chooseFile(order)) return RunResult::notStarted;
        logHead(order);
        level = 2; // the box is ours from here on
        const RunOwnership owning(modules_.link, modules_.state);
        const bool streamed = modules_.errors.run(routine, false, [&](Level&) { return prepareAndStream(); });
        level = 3; // closing, whatever happened
        const bool allWritten = close(order);
        return streamed && allWritten ? RunResult::finished : RunResult::failed;
    });
}

/// The latest run continued or the next one: false when the operator cancels or appending is refused.
bool LoggingRun::chooseFile(const RunOrder& order) {
    const std::string code = run_.header.tool.code;
    const LoggingRuns runs = CheckLoggingRuns(modules_.files, order.projectFolder, order.hole, code);
    appending_ = false;
    if (runs.count > 0) {
        const auto range = modules_.reader.Utilities_checkfiledepthrange(runs.latestFile);
        const RunChoice choice = modules_.view.chooseRun(runs, range);
        if (choice == RunChoice::cancel) return false;
        appending_ = choice == RunChoice::append;
    }
    if (appending_ && !(mayAppend(runs.latestFile) && readBack(runs.latestFile))) return false;
    run_.file =
        appending_ ? runs.latestFile : order.projectFolder / runFileName(order.hole, code, runs.next());
    modules_.state.runFileName = run_.file.filename().string();
    return true;
}

bool LoggingRun::mayAppend(const Path& latest) {
    std::string refusal;
    try {
        const RunFileInfo info = readRunHeader(modules_.files, latest);
        refusal = CheckLatestRunSpecs(run_.header, info).value_or("");
        if (refusal.empty()) sayRecalibrated(info.header);
    } catch (const Failure& failure) {
        refusal = failure.what();
    }
    if (refusal.empty()) return true;
    modules_.operatorSide.message("Check previous run", refusal, Icon::critical);
    return false;
}

/// The header on file stays as it is and goes on naming the earlier calibrations.
void LoggingRun::sayRecalibrated(const RunHeader& onFile) {
    std::string names;
    for (const std::string& name : recalibratedChannels(run_.header, onFile)) {
        names += (names.empty() ? "" : ", ") + name;
    }
    if (names.empty()) return;
    const std::string said = "Calibration of " + names +
                             " NOT the same as latest run file, which names the earlier one only. "
                             "Start a new run if the values have to agree.";
    modules_.log.red(said);
    modules_.operatorSide.notice("Check previous run", said, Icon::exclamation);
}

/// The deviation tool shows the hole from the start of the file, and its way goes on where the latest run
/// left it; without that the rest of the plan would be displaced.
bool LoggingRun::readBack(const Path& latest) {
    if (!toolRule(run_.header.tool.code).deviation) return true;
    const auto earlier = modules_.reader.Tarvikfileopen(latest);
    if (!earlier) return false; // reported
    showEarlierScans(*earlier, run_.header, run_.ring);
    if (run_.header.setup.sampling != Sampling::depth) return true; // no way by time
    const bool whole = !earlier->truncated && earlier->skippedScans + earlier->damagedScans == 0;
    const auto way = whole ? wayAtEnd(*earlier, run_.header) : std::nullopt;
    if (!way) {
        modules_.operatorSide.message("Check previous run",
                                      "The latest run has values that cannot be read back, so the way of the "
                                      "hole cannot be continued.\r\nStart a new run.",
                                      Icon::critical);
        return false;
    }
    run_.way = *way;
    return true;
}

void LoggingRun::logHead(const RunOrder& order) {
    StatusLog& log = modules_.log;
    const bool recording = modules_.view.recording();
    log.blue("============ NEW logging run ============");
    log.blue("Project : " + order.project);
    if (!recording) log.red(notSavedNote);
    log.blue("File : " + run_.file.filename().string());
    log.blue("Start run with tool " + run_.header.tool.name);
    log.blue("Tool identifier " + run_.header.tool.code + "  Serial number " + run_.header.tool.serialNumber);
    log.blue("Winch used " + run_.header.winch.name);
    if (!order.screenScale.empty()) log.blue("Screen scale being used " + order.screenScale);
    if (!recording) log.red(notSavedNote);
}

bool LoggingRun::prepareAndStream() {
    RunPreparation preparation(modules_, run_.header.setup);
    if (!preparation.prepare()) {
        if (preparation.stopped()) modules_.log.black("Stopped before the first scan, nothing was written");
        return false;
    }
    run_.scanSetup =
        prepareScans(modules_.equipment.currentTool(), modelNamed(modules_.link.model), run_.header.setup);
    modules_.view.runStarted(run_.header, run_.file);
    if (modules_.view.recording() && !openFile()) return false;

    LinkWatch watch(modules_.log, modules_.operatorSide, modules_.clock, modules_.port, modules_.lcu,
                    preparation.sampling());
    run_.startTick = modules_.clock.tickMs();
    if (modules_.lcu.sendPlain("V") != LinkResult::good) return false;
    modules_.view.winchPrompt({}, {});
    ScanLoop(modules_, run_, watch).run();
    return true;
}

/// Scans go only behind a header that is on disk, and behind a whole record.
bool LoggingRun::openFile() {
    run_.fileReady = modules_.errors.run(routine, false, [&](Level&) {
        if (appending_) return continueLatest();
        modules_.files.createFolder(run_.file.parent_path());
        return modules_.writer.LCU_SetupFileHeader(run_.file, run_.header);
    });
    if (!run_.fileReady) {
        const std::string name = run_.file.string();
        modules_.log.red("Run file " + name + " cannot be written, the run is not started");
        modules_.operatorSide.notice("Run file",
                                     "The run file " + name +
                                         " cannot be written, so the run is not started. See the error log.",
                                     Icon::critical);
    }
    return run_.fileReady;
}

bool LoggingRun::continueLatest() {
    if (const std::size_t cut = cutTornTail(modules_.files, run_.file); cut > 0)
        modules_.log.black("Torn last record of " + std::to_string(cut) + " bytes cut off before appending");
    modules_.files.append(run_.file, {}); // a file that may not be written says so before the winch turns
    modules_.writer.continueFile(run_.file, run_.header);
    return true;
}

/// Before the box was the run's there is nothing to close.
void LoggingRun::closeInsteadOf(LoggingRun& stuck, const RunOrder& order) {
    if (!modules_.link.acquiring) return;
    modules_.link.busy = false; // whose exchange it was, it does not go on either
    run_ = std::move(stuck.run_);
    modules_.errors.run(routine, [&](Level&) { static_cast<void>(close(order)); });
    modules_.link.acquiring = modules_.state.logging = false;
}

/// False when scans that were kept are not on file.
bool LoggingRun::close(const RunOrder& order) {
    const std::int64_t now = modules_.clock.tickMs();
    const double minutes = static_cast<double>(now - run_.startTick.value_or(now)) / 60000.0;
    if (modules_.lcu.LCU_PowerOFF_Reset() != LinkResult::good)
        modules_.operatorSide.notice("Tool power", toolPowerUnknown, Icon::critical);
    const bool heldWritten = writeHeld(order);
    const bool gone = sayIfGone(); // not before: what was unplugged may be back by now
    logRunSummary(modules_.log, run_.tally, written(), minutes, run_.header.setup.units);
    modules_.view.toolButton(bullseyeButton.key, bullseyeButton.caption, false);
    if (run_.startTick)
        modules_.view.LCU_ShowLoggingProgress(
            {.elapsedMinutes = minutes, .ended = true, .endTime = modules_.clock.now()});
    if (run_.fileReady) keepRun(order);
    modules_.writer.close();
    modules_.view.setRecording(false);
    modules_.view.runEnded(run_.file, static_cast<long>(written().count));
    return heldWritten && !gone;
}

/// Of this run: the writer still has those of the last one until a file is opened.
WrittenScans LoggingRun::written() const {
    return run_.fileReady ? modules_.writer.written() : WrittenScans{};
}

bool LoggingRun::writeHeld(const RunOrder& order) {
    RunFileWriter& writer = modules_.writer;
    const std::string name = run_.file.filename().string();
    const std::string held = std::to_string(writer.held()) + " scans";
    if (const std::int64_t lost = writer.lost(); lost > 0)
        modules_.log.red(std::to_string(lost) + " scans were lost: " + name +
                         " could not be written, and no more of them could be held");
    if (writer.held() == 0) return writer.lost() == 0;
    const std::string unwritten = held + " could not be written to " + run_.file.string();
    do {
        if (writer.writeHeld()) {
            modules_.log.black(name + ": " + held + " that were held are written");
            return writer.lost() == 0;
        }
        if (const auto file = saveHeldElsewhere(writer, modules_.files, order.rescueFolders)) {
            backUp(*file);
            sayRescue(unwritten + "; they are in " + file->string() + ", as a run of their own");
            return false;
        }
    } while (mayTryAgain(unwritten));
    sayRescue(unwritten);
    return false;
}

/// From here on there is no file of this run that anything could be said of.
bool LoggingRun::sayIfGone() {
    const std::int64_t scans = written().count;
    if (scans == 0 || modules_.files.exists(run_.file)) return false;
    sayRescue(run_.file.string() + " has gone, with the " + std::to_string(scans) +
              " scans that were written to it");
    run_.fileReady = false;
    return true;
}

/// The tool is off and nothing turns: the operator has the time to make room.
bool LoggingRun::mayTryAgain(const std::string& unwritten) {
    return modules_.operatorSide.ask("Run file",
                                     unwritten +
                                         ", nor anywhere else. They are lost when this is answered with "
                                         "No.\n\nMake room on the disk, or plug it in again. Try again?",
                                     Icon::critical) == Answer::yes;
}

void LoggingRun::sayRescue(const std::string& words) {
    modules_.log.red(words);
    modules_.operatorSide.notice("Run file", words + ". See the error log.", Icon::critical);
}

/// Neither a missing note nor a missing backup may harm the run itself.
void LoggingRun::keepRun(const RunOrder& order) {
    modules_.errors.run("Utilities_updatefilenotestext", [&](Level&) {
        Utilities_updatefilenotestext(modules_.files, order.projectFolder, order.hole,
                                      run_.header.runDate + " " + run_.header.startTime + "  " +
                                          run_.file.filename().string() + "  " + run_.header.tool.name +
                                          "  " + std::to_string(written().count) + " scans written");
    });
    backUp(run_.file);
}

void LoggingRun::backUp(const Path& runFile) {
    modules_.errors.run("Utilities_backuploggingrun",
                        [&](Level&) { Utilities_backuploggingrun(modules_.files, runFile); });
}

} // namespace tarvik
