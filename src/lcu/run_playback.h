// The demonstration run: a run on file goes through the display as if it were being logged. No port is
// opened, nothing is sent, nothing is written but the lines of the status log.
#pragma once

#include "app/error_trap.h"
#include "app/operator_side.h"
#include "app/status_log.h"
#include "base/review_log.h"
#include "files/run_file_reader.h"
#include "lcu/logging_run.h"
#include "lcu/playback_time.h"
#include "lcu/run_context.h"

#include <functional>
#include <string_view>

namespace tarvik {

/// References to the modules; all outlive the playback.
struct PlaybackModules {
    ErrorTrap& errors;
    StatusLog& log;
    OperatorSide& operatorSide;
    RunView& view;
    ProgramState& state;
    LinkState& link;
    const Clock& clock;
    const Files& files;
    RunFileReader& reader;
    std::function<void(int milliseconds)> sleep; ///< lets the window live meanwhile
};

class RunPlayback {
  public:
    explicit RunPlayback(PlaybackModules modules);

    /// The start button in mode "DEMO". Returns when the run has been played to its end or the view wants it
    /// stopped; `notStarted` when the file is no run with scans, which has been said.
    RunResult comstartlogging(const Path& file);

    /// From 1x to as fast as it goes, at any moment.
    void setPace(PlaybackPace pace) { time_.setPace(pace); }
    [[nodiscard]] PlaybackPace pace() const { return time_.pace(); }
    void setPaused(bool paused) { time_.setPaused(paused); }
    [[nodiscard]] bool paused() const { return time_.paused(); }

    struct Position {
        std::size_t played = 0; ///< scans
        std::size_t scans = 0;  ///< of the whole run
    };
    [[nodiscard]] Position position() const {
        return {static_cast<std::size_t>(run_.tally.kept), log_.steps()};
    }

    /// What a logging run leaves: the header on file, the latest scans in the ring. `file` is the one played.
    [[nodiscard]] const RunState& state() const { return run_; }

  private:
    [[nodiscard]] bool load(const Path& file);
    [[nodiscard]] bool refuse(std::string_view why);
    void logHead() const;
    void play();
    void show(std::size_t step);
    void showProgress();
    void close(double minutes);
    [[nodiscard]] double elapsedMinutes() const;

    PlaybackModules modules_;
    PlaybackTime time_;
    ReviewLog log_;
    RunState run_;
    double seconds_ = 0; ///< of the run, as far as it has been played
    double metresPerMinute_ = 0;
    std::int64_t shownProgressTick_ = 0;
};

/// What is said instead of a recording state.
inline constexpr std::string_view playbackNote = "demonstration: a run on file is played, nothing is written";

/// The i-th scan of a run in the order of logging, in metres. Channel values under their calibrations alone
/// are on file; `channels` and `rawData` stay 0.
[[nodiscard]] CurrentScan scanAsLogged(const ReviewLog& log, std::size_t i);

} // namespace tarvik
