#include "lcu/run_playback.h"

#include "base/number_picture.h"
#include "files/las_reader.h"
#include "files/run_catalogue.h"
#include "lcu/run_ownership.h"
#include "lcu/tool_buttons.h"
#include "lcu/tool_rules.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarvik {

namespace {

constexpr double countsPerSecond = 1e4;
constexpr std::int64_t progressEveryMs = 500;

std::int32_t counts(double seconds) {
    return static_cast<std::int32_t>(std::lround(seconds * countsPerSecond));
}

float valueAt(const ReviewChannel& channel, std::size_t step) {
    return step < channel.values.size() ? channel.values[step] : 0;
}

} // namespace

CurrentScan scanAsLogged(const ReviewLog& log, std::size_t i) {
    const std::size_t step = log.asLogged(i);
    const double before = i == 0 ? 0 : log.time[log.asLogged(i - 1)];
    CurrentScan scan;
    scan.depth = static_cast<float>(toMetres(log.depth[step], log.header.setup.units));
    scan.scanTime = counts(log.time[step] - before);
    scan.elapsedTime = counts(log.time[step]);
    scan.toolCurrent = valueAt(log.current, step);
    scan.toolVoltage = valueAt(log.voltage, step);
    const std::size_t channels = std::min<std::size_t>(log.channels.size(), maxChannels + 1);
    for (std::size_t channel = 1; channel < channels; ++channel)
        scan.calibrated[channel] = valueAt(log.channels[channel], step);
    scan.channelCount = static_cast<std::int16_t>(channels == 0 ? 0 : channels - 1);
    return scan;
}

RunPlayback::RunPlayback(PlaybackModules modules)
    : modules_(std::move(modules)), time_(modules_.clock, modules_.sleep) {}

RunResult RunPlayback::comstartlogging(const Path& file) {
    return modules_.errors.run("comstartlogging click", RunResult::failed, [&](Level& level) {
        RunView& view = modules_.view;
        run_ = RunState{};
        if (!load(file)) return RunResult::notStarted;
        level = 1; // playing: the frame is as locked as in a run
        const RunOwnership owning(modules_.link, modules_.state);
        view.winchPrompt("START WINCH WHEN THIS", "MESSAGE DISAPPEARS");
        view.setEnabled(false);
        const bool played = modules_.errors.run("Demonstration run", false, [&](Level&) {
            play();
            return true;
        });
        level = 2; // closing, whatever happened
        view.winchPrompt({}, {});
        close(elapsedMinutes());
        view.setEnabled(true);
        return played ? RunResult::finished : RunResult::failed;
    });
}

bool RunPlayback::load(const Path& file) {
    log_ = {};
    if (isLasFile(modules_.files, file))
        return refuse(file.filename().string() + " is a LAS file: it does not tell the time of its values. " +
                      "Choose a run file (.kvx).");
    // A file that was chosen by mistake is no error of the program: its fault is said, not reported.
    if (const RunRow row = describeRun(modules_.files, file); !row.problem.empty())
        return refuse(row.problem);
    auto log = modules_.reader.Tarvikfileopen(file);
    if (!log) return false; // reported
    if (log->steps() == 0) return refuse(file.filename().string() + " holds no scans. Choose another run.");
    log_ = std::move(*log);
    run_.header = log_.header;
    run_.file = file;
    return true;
}

bool RunPlayback::refuse(std::string_view why) {
    modules_.operatorSide.message("Demonstration", why, Icon::exclamation);
    return false;
}

void RunPlayback::logHead() const {
    StatusLog& log = modules_.log;
    log.blue("============ DEMO logging run ============");
    log.blue("Project : " + run_.header.project);
    log.red("NOTE : Data NOT saved to file");
    log.blue("File : " + run_.file.filename().string());
    log.blue("Start run with tool " + run_.header.tool.name);
    log.blue("Tool identifier " + run_.header.tool.code + "  Serial number " + run_.header.tool.serialNumber);
    log.blue("Winch used " + run_.header.winch.name);
}

void RunPlayback::play() {
    RunView& view = modules_.view;
    logHead();
    showToolButtons(view, modules_.state, run_.header.tool.code);
    seconds_ = metresPerMinute_ = 0;
    view.runStarted(run_.header, {}); // no file is being written
    view.winchPrompt({}, {});
    view.keepingState(KeepingState::notRecording, playbackNote);
    time_.start();
    run_.startTick = modules_.clock.tickMs();
    const auto stopped = [&] { return !modules_.state.logging || view.stopRequested(); };
    for (std::size_t i = 0; i < log_.steps(); ++i) {
        const double due = log_.time[log_.asLogged(i)];
        if (!time_.pass(due - seconds_, stopped)) return;
        seconds_ = due;
        show(i);
        showProgress();
    }
}

void RunPlayback::show(std::size_t step) {
    const std::size_t at = log_.asLogged(step);
    run_.scan.current = scanAsLogged(log_, step);
    const CurrentScan& scan = run_.scan.current;
    metresPerMinute_ =
        log_.channels.empty() ? 0 : toMetres(valueAt(log_.channels[0], at), run_.header.setup.units);
    run_.tally.saw(scan.depth);
    const bool measured = scan.toolVoltage != 0; // a box that does not measure it writes 0
    modules_.view.LCU_ShowLCUCurrent(scan.toolCurrent,
                                     measured ? std::optional(scan.toolVoltage) : std::nullopt);
    modules_.view.LCU_ShowDepthSpeed(scan.depth, metresPerMinute_);
    run_.ring.add({scan.depth, seconds_, scan.calibrated});
    modules_.view.scanKept({.number = ++run_.tally.kept,
                            .depth = scan.depth,
                            .speed = metresPerMinute_,
                            .seconds = seconds_,
                            .scan = &scan,
                            .savedDepth = {}});
}

/// What remains is the rest of the file at the pace of now.
void RunPlayback::showProgress() {
    const std::int64_t now = modules_.clock.tickMs();
    if (now - shownProgressTick_ < progressEveryMs) return;
    shownProgressTick_ = now;
    const int factor = paceFactor(time_.pace());
    const double rest = log_.time[log_.asLogged(log_.steps() - 1)] - seconds_;
    RunProgress progress{.elapsedMinutes = elapsedMinutes()};
    if (factor > 0) progress.remainingMinutes = rest / factor / 60;
    modules_.view.LCU_ShowLoggingProgress(progress);
}

void RunPlayback::close(double minutes) {
    modules_.log.blue("Demonstration finished - time elapsed " + formatPicture(minutes, "##0.0") + " mins, " +
                      std::to_string(run_.tally.kept) + " scans shown");
    modules_.view.toolButton(bullseyeButton.key, bullseyeButton.caption, false);
    modules_.view.LCU_ShowLoggingProgress(
        {.elapsedMinutes = minutes, .ended = true, .endTime = modules_.clock.now()});
    modules_.view.runEnded({}, 0);
}

double RunPlayback::elapsedMinutes() const {
    const std::int64_t now = modules_.clock.tickMs();
    return static_cast<double>(now - run_.startTick.value_or(now)) / 60000.0;
}

} // namespace tarvik
