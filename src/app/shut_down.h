// The way out: exit, which asks while a run is on the screen, and program close, which writes the last lines.
#pragma once

#include "app/frame.h"
#include "platform/display_queries.h"

namespace tarvik {

class ShutDown {
  public:
    ShutDown(Frame& frame, MainWindow& window, Display& display)
        : frame_(frame), window_(window), display_(display) {}

    /// "MB-Exit" and "File-exit". While a run is being logged or a search is under way it only says so.
    void exit();

    /// The same when there is no screen to ask on nor a window to close.
    void leaveUnseen();

    /// Closes the port, writes the closing lines, restores the task bar and ends the process.
    void closeProgram();

  private:
    [[nodiscard]] bool leaveUnsaved();

    Frame& frame_;
    MainWindow& window_;
    Display& display_;
};

} // namespace tarvik
