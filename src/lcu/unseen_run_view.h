// A run that nobody sees any more: its closing steps need no screen.
#pragma once

#include "lcu/run_view.h"

namespace tarvik {

class UnseenRunView final : public RunView {
  public:
    RunChoice chooseRun(const LoggingRuns&, const std::optional<DepthRange>&) override {
        return RunChoice::cancel;
    }
    bool stopRequested() override { return true; }
    bool recording() override { return false; }
    void setRecording(bool) override {}
    void setEnabled(bool) override {}
    void winchPrompt(std::string_view, std::string_view) override {}
    void runStarted(const RunHeader&, const Path&) override {}
    void LCU_ShowLCUCurrent(float, std::optional<float>) override {}
    void LCU_ShowDepthSpeed(double, double) override {}
    void LCU_ShowLoggingProgress(const RunProgress&) override {}
    void scanKept(const KeptScanView&) override {}
    void keepingState(KeepingState, std::string_view) override {}
    void runEnded(const Path&, long) override {}
};

} // namespace tarvik
