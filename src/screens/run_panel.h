// Below the instrument: what is being logged, its limits, the depth to set, the record switch, start and
// stop.
#pragma once

#include "lcu/run_order.h"
#include "screens/field.h"

#include <QFrame>
#include <QStringList>

#include <functional>
#include <optional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;

namespace tarvik {

struct RunPanelActions {
    std::function<void()> start;
    std::function<void()> stop;
    std::function<void(double metres)> setDepth;
    std::function<void()> chooseEquipment;
};

class RunPanel final : public QFrame {
  public:
    explicit RunPanel(RunPanelActions actions);

    void setUnits(DepthUnits units);
    /// Lines such as "Hole DH-1"; a tool that is not chosen yet says so.
    void showOrder(const QString& hole, const QString& tool, const QString& winch, const QString& sampling);
    /// With little height the tool stands for the order; the rest of it is its tool tip.
    void setLow(bool low);
    void showFile(const QString& file);
    void clearDepthToSet();
    /// A run that was started without a file gets none: its recording cannot be switched on.
    void lockRecording();

    enum class State { noLcu, ready, running, stopping };
    void setState(State state);

    /// Metres; nothing when a field is wrong, and the field says why.
    [[nodiscard]] std::optional<RunLimits> limits();
    [[nodiscard]] bool recording() const;
    void setRecording(bool on);

  private:
    [[nodiscard]] QWidget* makeLimits();
    [[nodiscard]] QWidget* makeDepthSetting();
    void writeOrder();
    [[nodiscard]] std::optional<double> metresIn(const QLineEdit& edit) const;

    RunPanelActions actions_;
    QString holeText_;
    QStringList orderTexts_; ///< tool, winch, sampling
    bool low_ = false;
    bool idle_ = true;
    DepthUnits units_ = DepthUnits::metres;
    QLabel* hole_;
    QLabel* order_;
    QLabel* file_;
    QLineEdit* top_;
    QLineEdit* bottom_;
    QLineEdit* endDistance_;
    QLineEdit* depthToSet_;
    std::vector<Field*> limitFields_;
    Field* depthField_ = nullptr;
    QPushButton* setDepth_;
    QPushButton* equipment_;
    QCheckBox* record_;
    QPushButton* start_;
    QPushButton* stop_;
    QScrollArea* scrolled_ = nullptr; ///< the order and its fields, on a small screen
};

} // namespace tarvik
