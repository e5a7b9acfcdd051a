// From the entry of the program to the main screen in mode "REVIEW".
#pragma once

#include "app/command_table.h"
#include "app/error_log.h"
#include "app/frame.h"
#include "app/system_information.h"
#include "app/version.h"
#include "platform/display_queries.h"

#include <array>
#include <string_view>

namespace tarvik {

/// The entries of the list "Log-scale".
constexpr std::array<std::string_view, 10> logScales{"1:1",  "1:2",   "1:5",   "1:10",  "1:20",
                                                     "1:50", "1:100", "1:200", "1:500", "1:1000"};

class StartUp {
  public:
    StartUp(Frame& frame, CommandTable& commands, MainWindow& window, Display& display, ErrorLog& errorLog,
            SystemTexts system, Version version = programVersion());

    /// Program entry: the state, the main screen, half a second to look at it.
    void Main();

    /// The main screen's load, before it is shown.
    void formLoad();

    /// The main screen's activation; does its work the first time only. False when the display is too narrow
    /// and the main screen was unloaded: the program is to end.
    bool formActivate();

  private:
    bool displayIsWideEnough(const DisplayFacts& facts);
    void warnOfDisplay(const DisplayFacts& facts);
    void takeScreen(const DisplayFacts& facts);
    void layOut();
    void loadSettings();
    void writeStartLines();

    Frame& frame_;
    CommandTable& commands_;
    MainWindow& window_;
    Display& display_;
    ErrorLog& errorLog_;
    SystemTexts system_;
    Version version_;
};

} // namespace tarvik
