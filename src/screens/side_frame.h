// The side frame: the instrument with the run below it while acquiring or playing, the facts of the run shown
// while reviewing.
#pragma once

#include "lcu/lcu_commands.h"
#include "screens/demo_panel.h"
#include "screens/instrument_panel.h"
#include "screens/review_panel.h"
#include "screens/run_panel.h"

#include <QFrame>

class QLabel;

namespace tarvik {

class SideFrame final : public QFrame, public LinkWatcher {
  public:
    SideFrame(RunPanelActions runActions, DemoPanelActions demoActions, ReviewPanelActions reviewActions);

    [[nodiscard]] QSize sizeHint() const override;
    /// By the mode of the program.
    void layOut(std::string_view mode);
    /// In a low window the texts of the order give way first, then the instrument, so that the fields of the
    /// run stay in sight.
    void fit(int windowHeight);
    void hideAcquisition();
    void showLogo(const QPixmap& logo);
    /// The lamps: is the box well, has the tool power?
    void showLink(const LinkState& link);
    void linkChanged(const LinkState& link) override { showLink(link); }

    [[nodiscard]] InstrumentPanel& instrument() { return *instrument_; }
    [[nodiscard]] RunPanel& run() { return *run_; }
    [[nodiscard]] DemoPanel& demo() { return *demo_; }
    [[nodiscard]] ReviewPanel& review() { return *review_; }

  private:
    bool low_ = false;
    QLabel* logo_;
    QFrame* lamps_;
    QLabel* boxLamp_;
    QLabel* powerLamp_;
    InstrumentPanel* instrument_;
    RunPanel* run_;
    DemoPanel* demo_;
    ReviewPanel* review_;
};

} // namespace tarvik
