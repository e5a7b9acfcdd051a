// Opens screens by their name. A screen that is not built says so in a dialog of its own.
#pragma once

#include "app/frame.h"
#include "lcu/append_comparison.h"
#include "screens/acquisition.h"
#include "screens/demonstration.h"
#include "screens/desktop_memory.h"
#include "screens/frm_buffer_overflow.h"
#include "screens/frm_error.h"
#include "screens/frm_event_log.h"
#include "screens/help_window.h"
#include "screens/intro_screen.h"
#include "screens/review_session.h"

#include <functional>
#include <memory>
#include <span>
#include <utility>

namespace tarvik {

class ScreenOpener {
  public:
    ScreenOpener(Program& program, IntroScreen& parent, DesktopMemory& memory, ReviewSession& review,
                 Demonstration& demonstration, EventLogModel& events, std::function<void()> cancelSearch)
        : program_(program),
          parent_(parent),
          memory_(memory),
          review_(review),
          demonstration_(demonstration),
          events_(events),
          cancelSearch_(std::move(cancelSearch)) {}

    /// Returns when the screen is closed, if it is modal.
    void open(const ScreenRequest& request);
    /// Asked before the stream starts.
    [[nodiscard]] RunChoice chooseRun(const LoggingRuns& runs, const std::optional<DepthRange>& onFile);
    /// For frmERROR, which is not opened by it.
    void keepError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed);
    /// Without blocking.
    void showUnreadErrors();
    /// The form of the run before: nothing may lie over the plot of the next one.
    void closeOverflow();
    void showOverflow(std::span<const std::string> lines, const ErrorFiling& filed);

  private:
    struct Screen;
    static std::span<const Screen> screens();

    void openSetup(const ScreenRequest& request);
    void openFile(const ScreenRequest&);
    void openEventLog(const ScreenRequest&);
    void openNoLcuFound(const ScreenRequest&);
    void openExit(const ScreenRequest&);
    void openAbout(const ScreenRequest&);
    void openReadme(const ScreenRequest&);
    void openHelp(const ScreenRequest&);
    void recallEquipment();
    void openEquipment(const ScreenRequest&);
    void openDeviation(const ScreenRequest&);
    void openCalibrations(const ScreenRequest&);
    void openDetails(const ScreenRequest&);
    void openLasExport(const ScreenRequest&);
    void openDiagnostics(const ScreenRequest&);
    void openDemo(const ScreenRequest&);
    void openNotBuilt(const ScreenRequest& request);
    [[nodiscard]] std::vector<AppendRow> comparison(const LoggingRuns& runs) const;

    Program& program_;
    IntroScreen& parent_;
    DesktopMemory& memory_;
    ReviewSession& review_;
    Demonstration& demonstration_;
    EventLogModel& events_;
    std::function<void()> cancelSearch_;
    std::unique_ptr<frmERROR> error_;
    std::unique_ptr<frmBufferOverflow> overflow_;
    std::unique_ptr<HelpWindow> help_;
};

} // namespace tarvik
