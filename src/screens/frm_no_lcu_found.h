// No LCU answered, or none was searched for: what was met on each port, what to do, and another search.
#pragma once

#include "lcu/search_report.h"
#include "screens/screen_dialog.h"

#include <functional>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace tarvik {

struct NoLcuActions {
    std::function<bool()> search; ///< true when an LCU answered
    std::function<void()> setUpPorts;
    std::function<std::vector<PortReport>()> report; ///< of the last search
    std::function<bool()> cancelled;                 ///< the last search
};

class frmNoLCUFound final : public ScreenDialog {
  public:
    /// `lcuComms` as the setting; `searched`: false when the automatic search is off and none was made.
    frmNoLCUFound(int lcuComms, bool searched, NoLcuActions actions, DesktopMemory& memory,
                  QWidget* parent = nullptr);

  private:
    void searchAgain();
    void showOutcome(bool searched);
    void addRow(const PortReport& port);

    int lcuComms_;
    NoLcuActions actions_;
    QLabel* headline_;
    QVBoxLayout* rows_;
    QPushButton* search_;
};

} // namespace tarvik
