#include "lcu/logging_run.h"

#include "base/number_picture.h"
#include "lcu/append_check.h"
#include "lcu/run_header_builder.h"
#include "lcu/run_keeping.h"
#include "lcu/run_preparation.h"
#include "lcu/scan_loop.h"
#include "lcu/start_checks.h"

namespace tarvik {

namespace {

constexpr std::string_view notSavedNote = "NOTE : Data NOT saved to file";

std::string depthRangeText(const std::optional<DepthRange>& range) {
    if (!range) return {};
    return "Depth range on file  " + formatPicture(range->smallest, "###0.00") + "  to  " +
           formatPicture(range->largest, "###0.00");
}

} // namespace

RunResult LoggingRun::comstartlogging(const RunOrder& order) {
    return modules_.errors.run("comstartlogging click", RunResult::failed, [&](Level&) {
        const ToolRecord& tool = modules_.equipment.currentTool().record;
        if (const std::string problem = holeNameProblem(order.hole); !problem.empty()) {
            modules_.operatorSide.message("Hole name", problem, Icon::exclamation);
            return RunResult::notStarted;
        }
        if (!mayStartLogging(modules_.operatorSide, tool, modules_.link.model, modules_.view.recording())) {
            return RunResult::notStarted;
        }
        modules_.view.winchPrompt("START WINCH WHEN THIS", "MESSAGE DISAPPEARS");
        modules_.view.setEnabled(false);
        const RunResult result = LCU_AcquireData_Pulse(order);
        modules_.view.winchPrompt({}, {});
        modules_.view.setEnabled(true);
        return result;
    });
}

RunResult LoggingRun::LCU_AcquireData_Pulse(const RunOrder& order) {
    return modules_.errors.run("LCUFunctions-LCU_AcquireData_Pulse", RunResult::failed, [&](Level& level) {
        run_ = RunState{};
        run_.header = buildRunHeader(order, modules_.equipment.currentTool(),
                                     modules_.equipment.currentWinch(), modules_.clock.now());
        run_.header.setup.winchDepthFactor *= modules_.link.modelFactor;
        level = 1; // choosing the file
        if (!chooseFile(order)) return RunResult::notStarted;
        logHead(order);
        level = 2; // the box is ours from here on
        modules_.link.acquiring = true;
        const bool streamed = modules_.errors.run("LCUFunctions-LCU_AcquireData_Pulse", false,
                                                  [&](Level&) { return prepareAndStream(); });
        level = 3; // closing, whatever happened
        close(order);
        modules_.link.acquiring = false;
        return streamed ? RunResult::finished : RunResult::failed;
    });
}

/// The latest run continued or the next one: false when the operator cancels or appending is refused.
bool LoggingRun::chooseFile(const RunOrder& order) {
    const std::string code = run_.header.tool.code;
    const LoggingRuns runs = CheckLoggingRuns(modules_.files, order.projectFolder, order.hole, code);
    appending_ = false;
    if (runs.count > 0) {
        const auto range = modules_.reader.Utilities_checkfiledepthrange(runs.latestFile);
        const RunChoice choice = modules_.view.chooseRun(runs, depthRangeText(range));
        if (choice == RunChoice::cancel) return false;
        appending_ = choice == RunChoice::append;
    }
    if (appending_ && !mayAppend(runs.latestFile)) return false;
    run_.file =
        appending_ ? runs.latestFile : order.projectFolder / runFileName(order.hole, code, runs.next());
    return true;
}

bool LoggingRun::mayAppend(const Path& latest) {
    const auto refusal = [&]() -> std::optional<std::string> {
        try {
            return CheckLatestRunSpecs(run_.header, readRunHeader(modules_.files, latest).header);
        } catch (const Failure& failure) {
            return std::string(failure.what());
        }
    }();
    if (!refusal) return true;
    modules_.operatorSide.message("Check previous run", *refusal, Icon::critical);
    return false;
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
    if (!preparation.prepare()) return false;
    run_.scanSetup =
        prepareScans(modules_.equipment.currentTool(), modelNamed(modules_.link.model), run_.header.setup);
    if (modules_.view.recording() && !openFile(appending_)) return false;
    modules_.view.runStarted(run_.header, run_.file);

    LinkWatch watch(modules_.log, modules_.operatorSide, modules_.clock, modules_.serial, modules_.lcu,
                    modules_.link, preparation.sampling());
    run_.startTick = modules_.clock.tickMs();
    if (modules_.lcu.sendPlain("V") != LinkResult::good) return false;
    modules_.view.winchPrompt({}, {});
    ScanLoop(modules_, run_, watch).run();
    return true;
}

/// Scans go only behind a header that is on disk, and behind a whole record.
bool LoggingRun::openFile(bool appending) {
    modules_.files.createFolder(run_.file.parent_path());
    if (appending) {
        if (const std::size_t cut = cutTornTail(modules_.files, run_.file); cut > 0) {
            modules_.log.black("Torn last record of " + std::to_string(cut) +
                               " bytes cut off before appending");
        }
        modules_.writer.continueFile(run_.file, run_.header);
        run_.fileReady = true;
    } else {
        run_.fileReady = modules_.writer.LCU_SetupFileHeader(run_.file, run_.header);
    }
    if (!run_.fileReady) {
        modules_.operatorSide.notice("Run file",
                                     "The run file " + run_.file.string() +
                                         " cannot be written, so the run is not started. See the error log.",
                                     Icon::critical);
    }
    return run_.fileReady;
}

void LoggingRun::close(const RunOrder& order) {
    const double minutes = run_.startTick == 0 && run_.scan.scans == 0
                               ? 0
                               : static_cast<double>(modules_.clock.tickMs() - run_.startTick) / 60000.0;
    modules_.lcu.LCU_PowerOFF_Reset();
    logRunSummary(modules_.log, run_.tally, minutes, run_.header.setup.units);
    modules_.view.LCU_ShowLoggingProgress(
        {.elapsedMinutes = minutes, .remainingMinutes = {}, .ended = true, .endTime = modules_.clock.now()});
    if (run_.fileReady) keepRun(order);
    modules_.writer.close();
    modules_.view.setRecording(false);
    modules_.view.runEnded(run_.file, run_.tally.written);
}

/// Neither a missing note nor a missing backup may harm the run itself.
void LoggingRun::keepRun(const RunOrder& order) {
    modules_.errors.run("Utilities_updatefilenotestext", [&](Level&) {
        Utilities_updatefilenotestext(modules_.files, order.projectFolder, order.hole,
                                      run_.header.runDate + " " + run_.header.startTime + "  " +
                                          run_.file.filename().string() + "  " + run_.header.tool.name +
                                          "  " + std::to_string(run_.tally.written) + " scans written");
    });
    modules_.errors.run("Utilities_backuploggingrun",
                        [&](Level&) { Utilities_backuploggingrun(modules_.files, run_.file); });
}

} // namespace tarvik
