// The logging run: from the start button to the closing lines.
//
// Start checks, choice of the run file, preparation of the box, the scan loop, closing steps that always
// power the tool down. Everything it shows goes through RunView; nothing blocks while the winch turns.
#pragma once

#include "lcu/run_context.h"

namespace tarvik {

enum class RunResult {
    finished,   ///< a stream ran and was closed in order
    notStarted, ///< refused or cancelled; nothing was sent that keeps the tool powered
    failed,     ///< the box or the file was not made ready, or kept scans are not on file; closed in order
};

class LoggingRun {
  public:
    explicit LoggingRun(RunModules& modules) : modules_(modules) {}

    /// The start button: the checks, then the run.
    RunResult comstartlogging(const RunOrder& order);

    /// The run itself, for the current tool and winch.
    RunResult LCU_AcquireData_Pulse(const RunOrder& order);

    /// Closes a run in its place that never goes on: what it was waiting in does not return.
    void closeInsteadOf(LoggingRun& stuck, const RunOrder& order);

    /// Of the last run: for the tests and for whoever shows the finished run.
    [[nodiscard]] const RunState& state() const { return run_; }

  private:
    [[nodiscard]] bool chooseFile(const RunOrder& order);
    [[nodiscard]] bool mayAppend(const Path& latest);
    void sayRecalibrated(const RunHeader& onFile);
    [[nodiscard]] bool readBack(const Path& latest);
    void logHead(const RunOrder& order);
    [[nodiscard]] bool prepareAndStream();
    [[nodiscard]] bool openFile();
    [[nodiscard]] bool continueLatest();
    [[nodiscard]] bool close(const RunOrder& order);
    [[nodiscard]] bool writeHeld(const RunOrder& order);
    [[nodiscard]] bool mayTryAgain(const std::string& unwritten);
    void sayRescue(const std::string& words);
    [[nodiscard]] WrittenScans written() const;
    void keepRun(const RunOrder& order);
    void backUp(const Path& runFile);
    bool sayIfGone();

    RunModules& modules_;
    RunState run_;
    bool appending_ = false;
};

} // namespace tarvik
