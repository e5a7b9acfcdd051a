// A logging run at a terminal: its progress on standard error, and the ends that the command line names.
// The progress names a depth and a current only once there is one.
#pragma once

#include "cli/console_lines.h"
#include "lcu/run_view.h"
#include "platform/clock.h"
#include "platform/stop_signals.h"

#include <optional>
#include <string>

namespace tarvik {

/// When the run ends by itself; any of them.
struct RunEnds {
    std::optional<long> keptScans;
    std::optional<double> seconds;
    std::optional<double> depth; ///< metres, reached in the direction of logging
};

class ConsoleRunView final : public RunView {
  public:
    ConsoleRunView(const Clock& clock, const StopSignals& signals, const RunEnds& ends, RunChoice choice,
                   bool recording, ConsoleLines& lines)
        : clock_(clock),
          signals_(signals),
          ends_(ends),
          choice_(choice),
          recording_(recording),
          lines_(lines) {}

    RunChoice chooseRun(const LoggingRuns& runs, const std::optional<DepthRange>& onFile) override;
    bool stopRequested() override;
    bool recording() override { return recording_; }
    void setRecording(bool on) override { recording_ = on; }
    void setEnabled(bool) override {}
    void winchPrompt(std::string_view firstLine, std::string_view secondLine) override;
    void runStarted(const RunHeader& header, const Path& file) override;
    void LCU_ShowLCUCurrent(float milliamps, std::optional<float> volts) override;
    void LCU_ShowDepthSpeed(double depthMetres, double) override { depth_ = depthMetres; }
    void LCU_ShowLoggingProgress(const RunProgress& progress) override;
    void scanKept(const KeptScanView& scan) override;
    void keepingState(KeepingState state, std::string_view words) override;
    void runEnded(const Path& file, long scansWritten) override;

    [[nodiscard]] const Path& file() const { return file_; }
    [[nodiscard]] long scansWritten() const { return scansWritten_; }

  private:
    [[nodiscard]] std::string progressText(const RunProgress& progress) const;

    const Clock& clock_;
    const StopSignals& signals_;
    RunEnds ends_;
    RunChoice choice_;
    bool recording_;
    ConsoleLines& lines_;

    RunSetup setup_;
    Path file_;
    long kept_ = 0;
    long scansWritten_ = 0;
    std::optional<double> depth_; ///< metres
    std::optional<float> milliamps_;
    std::optional<std::int64_t> startTick_;
    bool endReached_ = false;
};

} // namespace tarvik
