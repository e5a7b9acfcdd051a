// No LCU answered, or none was searched for: where, what to check, and another search.
#pragma once

#include "screens/screen_dialog.h"

#include <functional>

namespace tarvik {

struct NoLcuActions {
    std::function<bool()> search; ///< true when an LCU answered
    std::function<void()> setUpPorts;
};

class frmNoLCUFound final : public ScreenDialog {
  public:
    /// `lcuComms` as the setting; `searched`: false when the automatic search is off and none was made.
    frmNoLCUFound(int lcuComms, bool searched, NoLcuActions actions, DesktopMemory& memory,
                  QWidget* parent = nullptr);

  private:
    void searchAgain();

    NoLcuActions actions_;
    QPushButton* search_;
};

} // namespace tarvik
