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
    std::function<int()> ports;                      ///< those of the next search, as the setting
    std::function<void()> cancel;                    ///< the search that goes on
};

class frmNoLCUFound final : public ScreenDialog {
  public:
    /// `searched`: false when the automatic search is off and none was made.
    frmNoLCUFound(bool searched, NoLcuActions actions, DesktopMemory& memory, QWidget* parent = nullptr);

    /// While a search goes on it is what is given up.
    void reject() override;

  private:
    void searchAgain();
    void showOutcome(bool searched);
    void addRow(const PortReport& port);

    NoLcuActions actions_;
    int searchedPorts_; ///< those of the last search, as the setting
    QLabel* headline_;
    QVBoxLayout* rows_;
    QPushButton* close_;
    QPushButton* search_;
    bool searching_ = false;
};

} // namespace tarvik
