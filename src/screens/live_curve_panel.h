// Scale and filter of a curve of the run that is being logged. A panel on the picture, never a box: the winch
// turns.
#pragma once

#include "display/live_curves.h"

#include <QFrame>

#include <functional>
#include <string>

class QComboBox;
class QLabel;
class QLineEdit;

namespace tarvik {

class LiveCurvePanel final : public QFrame {
  public:
    /// False when the scale cannot be used.
    using Change =
        std::function<bool(const std::string& channel, const ScalePair& scale, const std::string& filter)>;

    LiveCurvePanel(QWidget* parent, Change change);

    /// With the curve of that channel chosen; with the first one when there is none.
    void open(const LiveCurves& curves, const std::string& channel = {});

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void layOut();
    void showCurve();
    void apply();

    Change change_;
    const LiveCurves* curves_ = nullptr;
    QComboBox* curve_;
    QLineEdit* left_;
    QLineEdit* right_;
    QComboBox* filter_;
    QLabel* said_;
};

} // namespace tarvik
