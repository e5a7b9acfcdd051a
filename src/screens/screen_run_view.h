// A logging run on the main screen. Nothing here blocks while the winch turns.
#pragma once

#include "lcu/run_view.h"
#include "platform/clock.h"
#include "screens/intro_screen.h"

#include <functional>

namespace tarvik {

class InstrumentPanel;

struct RunViewParts {
    std::function<RunChoice(const LoggingRuns&, const std::optional<DepthRange>& onFile)> chooseRun;
    std::function<void(bool)> setEnabled;          ///< the frame's menus and buttons
    std::function<int()> currentLimit;             ///< of the tool, mA; 0 for none
    std::function<void(const RunHeader&)> started; ///< for the log display
    std::function<void()> shown;                   ///< scans have been kept; at most ten times a second
    std::function<void()> stopping;                ///< the stop button: the scan in hand is the last
    std::function<void()> ended;
    std::function<void()> linkChanged; ///< the idle box was lost or is back
};

class ScreenRunView final : public RunView {
  public:
    ScreenRunView(IntroScreen& screen, const Clock& clock, RunViewParts parts)
        : screen_(screen), clock_(clock), parts_(std::move(parts)) {}

    void requestStop();
    [[nodiscard]] bool stopping() const { return stop_; }

    RunChoice chooseRun(const LoggingRuns& runs, const std::optional<DepthRange>& onFile) override;
    bool stopRequested() override { return stop_; }
    bool recording() override;
    void setRecording(bool on) override;
    void setEnabled(bool enabled) override;
    void toolButton(std::string_view key, std::string_view caption, bool enabled) override;
    void winchPrompt(std::string_view firstLine, std::string_view secondLine) override;
    void runStarted(const RunHeader& header, const Path& file) override;
    void LCU_ShowLCUCurrent(float milliamps, std::optional<float> volts) override;
    void LCU_ShowDepthSpeed(double depthMetres, double metresPerMinute) override;
    void LCU_ShowLoggingProgress(const RunProgress& progress) override;
    void scanKept(const KeptScanView& scan) override;
    void keepingState(KeepingState state, std::string_view words) override;
    void runEnded(const Path& file, long scansWritten) override;

  private:
    /// Scans come up to 240 times a second; the eye takes ten.
    static constexpr std::int64_t refreshEveryMs = 100;

    struct Latest {
        std::optional<double> depth; ///< metres
        double speed = 0;            ///< metres a minute
        float milliamps = 0;
        std::optional<float> volts;
        long kept = 0;
    };
    void refreshWhenDue();
    void refresh();
    void showLatest(InstrumentPanel& instrument) const;
    [[nodiscard]] bool silent() const;

    IntroScreen& screen_;
    const Clock& clock_;
    RunViewParts parts_;
    RunSetup setup_;
    Path file_;
    Latest latest_;
    std::int64_t refreshedTick_ = 0;
    std::int64_t scanTick_ = 0; ///< of the latest scan, kept or not
    bool keptSinceRefresh_ = false;
    bool keepingShown_ = false; ///< a run that keeps its scans from the start says nothing of it
    bool saidSilent_ = false;
    bool stop_ = false;
};

} // namespace tarvik
