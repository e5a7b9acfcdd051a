// The program with its window: builds the wiring, the main screen and the screens, and connects them.
#pragma once

#include "screens/acquisition.h"
#include "screens/demonstration.h"
#include "screens/desktop_memory.h"
#include "screens/help_key.h"
#include "screens/intro_window.h"
#include "screens/leaving.h"
#include "screens/review_actions.h"
#include "screens/screen_opener.h"
#include "screens/screen_operator.h"

#include <QTimer>

#include <memory>

namespace tarvik {

class Desktop {
  public:
    /// Throws a Failure like Program does.
    explicit Desktop(const ProgramOptions& options, const StandIns& standIns = {});
    ~Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    /// Start-up to the main screen in "REVIEW"; false when the display is too small and the program is to
    /// end.
    bool startUp();
    /// Asked once a second: once it is true the program ends in order, a run with its closing steps, without
    /// a question.
    void endWhen(std::function<bool()> asked) { endIsAsked_ = std::move(asked); }

    /// The toolkit ends the process because the display has gone, from within whatever went on: a run is
    /// closed in its place, settings and log are left in order. Nothing of the screen may be touched any
    /// more.
    void endWithoutDisplay();

    [[nodiscard]] Program& program() { return program_; }
    [[nodiscard]] IntroScreen& screen() { return *window_.screen(); }
    [[nodiscard]] Acquisition& acquisition() { return *acquisition_; }
    [[nodiscard]] Demonstration& demonstration() { return *demonstration_; }
    [[nodiscard]] ReviewSession& review() { return *review_; }
    /// The frame has ended the program: leave the event loop.
    [[nodiscard]] bool ended() const { return ended_; }

  private:
    [[nodiscard]] IntroWindowParts windowParts();
    [[nodiscard]] Shell shell();
    [[nodiscard]] std::unique_ptr<IntroScreen> makeScreen();
    [[nodiscard]] RunViewParts runViewParts();
    static void connectScales(IntroScreen& screen);
    void warnOfScaling();
    void leaveScreen();
    void showError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed);
    void runEnded();
    void setControls(bool on);
    void connectHooks();
    /// What the operator asks for; the keys and names have static storage.
    void toolClick(std::string_view key);
    void openScreen(std::string_view name);
    bool searchForLcu(const std::function<bool()>& search);
    /// Of the run that is logged or played, or was last in this mode; null before the first.
    [[nodiscard]] const RunState* runShown() const;
    void loadNotes();
    void modeShown();
    void showAcquire();
    void showDemo();
    void allowAcquire();
    void showCalibTest();
    void endProcess();

    ScreenOperator operator_;
    IntroWindow window_;
    std::unique_ptr<Display> display_;
    Program program_;
    DesktopMemory memory_;
    HelpKey helpKey_;
    EventLogModel events_;
    LinkGate gate_;
    std::unique_ptr<Acquisition> acquisition_; ///< with the main screen
    std::unique_ptr<Demonstration> demonstration_;
    std::unique_ptr<ReviewSession> review_;
    std::unique_ptr<ReviewActions> reviewActions_;
    std::unique_ptr<ScreenOpener> screens_;
    std::unique_ptr<Leaving> leaving_;
    QTimer mainTimer_;
    std::function<bool()> endIsAsked_ = [] { return false; };
    bool searchCancelled_ = false;
    bool ended_ = false;
    bool displayGone_ = false;
};

} // namespace tarvik
