// What a logging run shows and what it asks for: implemented by the main screen, the command line and the
// tests. Nothing here blocks while the winch turns.
#pragma once

#include "base/current_scan.h"
#include "base/run_header.h"
#include "lcu/run_names.h"
#include "lcu/run_progress.h"

#include <string>
#include <string_view>

namespace tarvik {

enum class RunChoice { cancel, append, newRun };

/// Why scans that arrive are not kept, said in words while it lasts.
enum class KeepingState {
    kept,
    tooDeep, ///< written, but at a depth that is none in a run file
    notRecording,
    depthJump,
    outOfRange,
    otherChannels,
    noScans,
    communicationsLost,
    writeFailed
};

struct KeptScanView {
    long number = 0;    ///< scans kept so far
    double depth = 0;   ///< metres
    double speed = 0;   ///< metres a minute
    double seconds = 0; ///< of the stream so far
    const CurrentScan* scan = nullptr;
    std::string_view savedDepth; ///< as stored, "#,##0.00" in the file's unit; empty when nothing was stored
};

class RunView {
  public:
    virtual ~RunView() = default;

    /// Asked when the tool has runs in the hole: append to the latest one, or start another. `onFile` is the
    /// range of the latest one, in the unit of its file.
    virtual RunChoice chooseRun(const LoggingRuns& runs, const std::optional<DepthRange>& onFile) = 0;

    /// Read before each scan: the stop button, an end condition, a closed window.
    virtual bool stopRequested() = 0;
    /// The "Record data" switch, read for each scan.
    virtual bool recording() = 0;
    virtual void setRecording(bool on) = 0;

    /// Buttons and menus while the run owns the LCU.
    virtual void setEnabled(bool enabled) = 0;
    /// A button that only some tools need ("MB-Bullseye", "MB-Fluid"); nothing where there is no tool bar.
    virtual void toolButton(std::string_view /*key*/, std::string_view /*caption*/, bool /*enabled*/) {}
    virtual void winchPrompt(std::string_view firstLine, std::string_view secondLine) = 0;
    virtual void runStarted(const RunHeader& header, const Path& file) = 0;

    /// Not every box measures the voltage.
    virtual void LCU_ShowLCUCurrent(float milliamps, std::optional<float> volts) = 0;
    virtual void LCU_ShowDepthSpeed(double depthMetres, double metresPerMinute) = 0;
    virtual void LCU_ShowLoggingProgress(const RunProgress& progress) = 0;
    virtual void scanKept(const KeptScanView& scan) = 0;
    virtual void keepingState(KeepingState state, std::string_view words) = 0;
    virtual void runEnded(const Path& file, long scansWritten) = 0;
};

} // namespace tarvik
