// The status bar: what the program does, which LCU is on which port, the search and how to end it, the times
// of the run.
#pragma once

#include "app/frame_view.h"

#include <functional>
#include <string_view>

class QLabel;
class QProgressBar;
class QPushButton;
class QStatusBar;

namespace tarvik {

class StatusPanels {
  public:
    /// The bar owns the panels.
    StatusPanels(QStatusBar& bar, std::function<void()> cancelSearch);

    void showText(std::string_view text);
    void showLink(std::string_view text);
    void showTimes(std::string_view elapsed, std::string_view completion);
    void showInterface(const InterfaceDisplay& display);
    void showVersion(std::string_view label);
    /// Percent, 100 hides it; a search that is not staged does not know how far it is.
    void showProgress(int percent);
    void showSearch(bool searching);
    /// In a narrow window the version, then the interface, give way to the words of the run: the link and
    /// Help, About say both.
    void fit();

  private:
    QStatusBar& bar_;
    QLabel* text_;
    QLabel* link_;
    QProgressBar* progress_;
    QPushButton* cancel_;
    QLabel* times_;
    QLabel* interface_;
    QLabel* version_;
};

} // namespace tarvik
