// Below the instrument in a demonstration: which run is played, how fast, how far, start, pause and stop.
#pragma once

#include "lcu/playback_time.h"

#include <QFrame>

#include <functional>

class QBoxLayout;
class QComboBox;
class QLabel;
class QProgressBar;
class QPushButton;

namespace tarvik {

struct DemoPanelActions {
    std::function<void()> start;
    std::function<void()> pauseOrGoOn;
    std::function<void()> stop;
    std::function<void()> chooseRun;
    std::function<void(PlaybackPace)> setPace;
};

class DemoPanel final : public QFrame {
  public:
    explicit DemoPanel(DemoPanelActions actions);

    /// With little height the buttons stand side by side.
    void setLow(bool low);
    /// An empty name: no run has been chosen yet.
    void showRun(const QString& name, const QString& folder);
    void showPace(PlaybackPace pace);
    void showPosition(std::size_t played, std::size_t scans);

    enum class State { noRun, ready, playing, paused, stopping };
    void setState(State state);

  private:
    [[nodiscard]] QPushButton* button(const char* objectName, const char* text, const char* tip);

    DemoPanelActions actions_;
    QLabel* run_;
    QPushButton* choose_;
    QComboBox* pace_;
    QProgressBar* position_;
    QLabel* positionWords_;
    QBoxLayout* acts_;
    QPushButton* start_;
    QPushButton* pause_;
    QPushButton* stop_;
};

} // namespace tarvik
