// The instrument of the side frame: depth in the largest digits of the screen, speed, tool current and
// voltage, and in words, shape and colour whether data are being written.
#pragma once

#include "base/depth_units.h"
#include "base/run_setup.h"
#include "lcu/run_view.h"

#include <QFrame>

class QBoxLayout;
class QLabel;
class QProgressBar;

namespace tarvik {

class InstrumentPanel final : public QFrame {
  public:
    InstrumentPanel();

    /// With little height: smaller digits, and the readings side by side.
    void setLow(bool low);
    /// Everything unknown: no scan, no depth.
    void clear();
    /// The box sends nothing: speed, current and voltage are unknown, the depth is the last one known.
    void showSilence();
    /// The run has ended: speed, current and voltage are of no tool any more, the depth stands.
    void showPoweredDown();
    void setUnits(DepthUnits units);
    /// The arrow beside the depth; nothing while no run goes on.
    void setDirection(std::optional<Direction> direction);
    void showDepth(double metres);
    void showSpeed(double metresPerMinute);
    /// `limit` in mA; 0 when the tool has none.
    void showCurrent(float milliamps, std::optional<float> volts, int limit);
    void showKeeping(KeepingState state, std::string_view words);
    /// Two lines above everything else that the panel says; none with empty texts.
    void winchPrompt(std::string_view firstLine, std::string_view secondLine);
    /// No run: what the panel says instead of a recording state.
    /// The preparation failed: the words that let the winch start must not be the last ones.
    void showNotStarted();
    /// Metres, as shown; nothing when none is.
    [[nodiscard]] std::optional<double> depth() const { return depthMetres_; }
    void showIdle(const QString& words, const QString& remedy = {});
    void showScans(long scans, const QString& fileSize);
    void hideScans();

  private:
    class Reading;

    void showDigits();
    void forgetTool();
    void showState(const char* role, const QString& headline, const QString& why);

    DepthUnits units_ = DepthUnits::metres;
    std::optional<double> depthMetres_;
    std::optional<double> metresPerMinute_;
    QLabel* depthTitle_;
    Reading* depth_;
    QLabel* arrow_;
    QBoxLayout* readings_;
    Reading* speed_;
    Reading* current_;
    QProgressBar* currentBar_;
    Reading* voltage_;
    QLabel* prompt_;
    QLabel* state_;
    QLabel* why_;
    QLabel* scans_;
};

} // namespace tarvik
