// The status log: every notable event of the day, shown in the event-log viewer and written to the daily
// run-history file. A line that cannot be written is still shown.
#pragma once

#include "app/error_trap.h"
#include "platform/clock.h"
#include "platform/files.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

enum class Bold { no, yes };

/// Shows lines as they are written: "hh:mm:ss  \b\0text", the codes being weight (B, b) and colour (0 black,
/// 1 blue, 2 red).
class StatusViewer {
  public:
    virtual ~StatusViewer() = default;
    virtual void showStatusLine(std::string_view viewerLine) = 0;
};

class StatusLog {
  public:
    /// `folder` is the run-history folder; it is created when missing, before each write.
    StatusLog(ErrorTrap& errors, const Clock& clock, Files& files, Path folder);

    /// Colour is "BLK", "BLU" or "RED"; any other name is shown as black.
    void Utilities_logstatus(std::string_view text, Bold bold, std::string_view colour);

    void black(std::string_view text) { Utilities_logstatus(text, Bold::no, "BLK"); }
    void blue(std::string_view text) { Utilities_logstatus(text, Bold::no, "BLU"); }
    void red(std::string_view text) { Utilities_logstatus(text, Bold::no, "RED"); }

    void addViewer(StatusViewer& viewer) { viewers_.push_back(&viewer); }
    void removeViewers() { viewers_.clear(); }
    void removeViewer(StatusViewer& viewer) { std::erase(viewers_, &viewer); }

    /// Today's file.
    [[nodiscard]] Path todaysFile() const;
    /// Lines that no file holds since the program started.
    [[nodiscard]] int unwritten() const { return unwritten_; }

  private:
    void appendToFile(const CivilTime& now, std::string_view time, std::string_view text);

    ErrorTrap& errors_;
    const Clock& clock_;
    Files& files_;
    Path folder_;
    std::vector<StatusViewer*> viewers_;
    int unwritten_ = 0;
};

} // namespace tarvik
