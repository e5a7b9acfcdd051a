#include "screens/desktop.h"

#include "display/tool_scales.h"
#include "screens/qt_text.h"
#include "screens/screen_display.h"

#include <QApplication>
#include <QScreen>

#include <utility>

namespace tarvik {

namespace {

constexpr int mainTimerMs = 1000;

bool isDisplayToggle(std::string_view key) {
    return key == "MB-Bullseye" || key == "MB-Fluid" || key == "MB-Sonic";
}

bool isExit(std::string_view key) {
    return key == "MB-Exit" || key == "File-exit";
}

} // namespace

Desktop::Desktop(const ProgramOptions& options, const StandIns& standIns)
    : window_(windowParts()),
      display_(std::make_unique<ScreenDisplay>()),
      program_(options, shell(), standIns),
      memory_(program_.store),
      helpKey_(memory_),
      gate_(program_.link, program_.state) {
    applyTheme(*qApp, memory_.theme());
    program_.log.addViewer(events_);
    connectHooks();
    mainTimer_.setInterval(mainTimerMs);
    QObject::connect(&mainTimer_, &QTimer::timeout, [this] {
        acquisition_->watchDepth();
        program_.developerBackup.reportEnded();
        leaving_->lookAgain();
        if (endIsAsked_()) leaving_->stepByStep();
    });
}

Desktop::~Desktop() {
    leaveScreen();
}

/// What is said from here on has no screen any more.
void Desktop::leaveScreen() {
    program_.lcu.setWatcher(nullptr);
    program_.log.removeViewers();
    operator_.goUnseen();
}

bool Desktop::startUp() {
    program_.startUp.Main();
    if (!program_.startUp.formActivate()) return false;
    window_.setChecked("MB-Review", true);
    review_->show();
    operator_.statusText("Data review mode");
    mainTimer_.start();
    screens_->showUnreadErrors();
    warnOfScaling();
    screen().handFocusOn();
    return true;
}

/// The check of the start counts the display's own pixels; what the toolkit scales up may not have room on
/// them.
void Desktop::warnOfScaling() {
    const QSize room = screen().screen()->availableSize();
    const QSize least = screen().minimumSizeHint();
    if (least.width() <= room.width() && least.height() <= room.height()) return;
    operator_.message(
        "Tarvik Display",
        plain(QString("At this scaling the display has room for %1 x %2 points, and the window needs "
                      "%3 x %4: part of it lies off the screen.\nLower the scaling of the display.")
                  .arg(room.width())
                  .arg(room.height())
                  .arg(least.width())
                  .arg(least.height())),
        Icon::exclamation);
}

Shell Desktop::shell() {
    return {.operatorSide = operator_,
            .view = window_,
            .window = window_,
            .display = *display_,
            .yield =
                [this] {
                    if (!displayGone_) QCoreApplication::processEvents();
                },
            .searchCancelled = [this] { return searchCancelled_; }};
}

IntroWindowParts Desktop::windowParts() {
    return {.make = [this] { return makeScreen(); },
            .mode = [this] { return program_.state.mode; },
            .modeShown = [this] { modeShown(); },
            .stopMainTimer = [this] { mainTimer_.stop(); },
            .openHelp =
                [this] {
                    screens_->open({"help"});
                    review_->keepExitQuestion();
                },
            .closeRun = [this] { review_->close(); },
            .redrawReview = [this] { review_->show(); },
            .redrawEquallySpaced =
                [this] {
                    if (program_.state.mode == programMode::acquire)
                        return screen().live().setEquallySpaced(true);
                    review_->showEquallySpaced();
                },
            .loadNotes = [this] { loadNotes(); }};
}

/// What only changes the picture of a run is no exchange: it may come at any time.
void Desktop::toolClick(std::string_view key) {
    if (isDisplayToggle(key)) {
        program_.commands.toolClick(key);
        return;
    }
    if (isExit(key) && program_.state.searching) return leaving_->requested();
    gate_.pass([this, key] { program_.commands.toolClick(key); });
}

void Desktop::openScreen(std::string_view name) {
    gate_.pass([this, name] { program_.hooks.openScreen({name}); });
}

std::unique_ptr<IntroScreen> Desktop::makeScreen() {
    auto screen = std::make_unique<IntroScreen>(
        IntroScreenActions{.toolClick = [this](std::string_view key) { toolClick(key); },
                           .closeRequested = [this] { leaving_->requested(); },
                           .cancelSearch = [this] { searchCancelled_ = true; },
                           .run = {.start = [this] { acquisition_->start(); },
                                   .stop = [this] { acquisition_->stop(); },
                                   .setDepth = [this](double metres) { acquisition_->setDepth(metres); },
                                   .chooseEquipment = [this] { openScreen("frmEquipment"); }},
                           .demo = {.start = [this] { demonstration_->start(); },
                                    .pauseOrGoOn = [this] { demonstration_->pauseOrGoOn(); },
                                    .stop = [this] { demonstration_->stop(); },
                                    .chooseRun = [this] { openScreen("frmDemo"); },
                                    .setPace = [this](PlaybackPace pace) { demonstration_->setPace(pace); }},
                           .review = {.open = [this] { toolClick("MB-Open"); },
                                      .details = [this] { openScreen("frmDetails"); },
                                      .exportLas = [this] { openScreen("frmLASexport"); },
                                      .calibrations = [this] { openScreen("frmCalibrations"); }}},
        program_.files);
    connectScales(*screen);
    acquisition_ = std::make_unique<Acquisition>(program_, *screen, gate_, runViewParts());
    demonstration_ = std::make_unique<Demonstration>(program_, *screen, gate_, runViewParts());
    review_ = std::make_unique<ReviewSession>(program_, *screen, gate_);
    reviewActions_ = std::make_unique<ReviewActions>(*review_, program_, *screen, memory_);
    screens_ = std::make_unique<ScreenOpener>(program_, *screen, memory_, *review_, *demonstration_, events_,
                                              [this] { searchCancelled_ = true; });
    leaving_ = std::make_unique<Leaving>(program_, *screen, gate_, *acquisition_, *demonstration_,
                                         LeavingActions{.cancelSearch = [this] { searchCancelled_ = true; },
                                                        .exit = [this] { toolClick("MB-Exit"); }});
    operator_.setReports(
        {.error = [this](const ErrorReport& error, std::string_view dateTime,
                         const ErrorFiling& filed) { showError(error, dateTime, filed); },
         .overflow = [this](std::span<const std::string> lines,
                            const ErrorFiling& filed) { screens_->showOverflow(lines, filed); }});
    operator_.attach(screen.get(), &program_.clock);
    program_.lcu.setWatcher(&screen->side());
    return screen;
}

RunViewParts Desktop::runViewParts() {
    return {
        .chooseRun =
            [this](const LoggingRuns& runs, const std::optional<DepthRange>& onFile) {
                return screens_->chooseRun(runs, onFile);
            },
        .setEnabled = [this](bool on) { setControls(on); },
        .currentLimit = [this] { return program_.equipment.currentTool().record.get(tool::maximumCurrent); },
        .started =
            [this](const RunHeader& header) {
                screens_->closeOverflow();
                screen().live().begin(header);
                screen().logs().showPage(&screen().live());
                screen().handFocusOn();
                screen().side().showLink(program_.link);
            },
        .shown = [this] { screen().live().follow(runShown()->ring); },
        .stopping = [this] { screen().live().showDisplay({}); },
        .ended = [this] { runEnded(); },
        .linkChanged = [this] { showAcquire(); }};
}

/// While a run goes on nothing may lie over its plot: a notice says it, and the form opens when the run is
/// over. While the program starts there is no window yet to place it on.
void Desktop::showError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed) {
    screens_->keepError(error, dateTime, filed);
    if (!mainTimer_.isActive()) return;
    if (!acquisition_->running()) return screens_->showUnreadErrors();
    operator_.notice("Error in " + error.routine, error.description + "\n" + errorFileAdvice(filed),
                     Icon::critical);
}

/// The plot of the whole run stays; what the operator has set in it belongs to the tool. A run that was only
/// played may be of another tool.
void Desktop::runEnded() {
    screen().live().follow(runShown()->ring);
    screen().live().showDisplay({});
    screens_->showUnreadErrors();
    if (program_.state.mode == programMode::demo) return;
    for (const LogCurve& curve : screen().live().rescaled()) keepToolScale(program_.equipment, curve);
    loadNotes();
}

/// The table of controls does not name the buttons of a run in review; while another run goes on they would
/// do nothing.
void Desktop::setControls(bool on) {
    program_.commands.setControls(on ? "ENABLE" : "DISABLE");
    for (const char* key : {"MB-Close", "MB-Print"}) {
        if (!on) screen().bars().setEnabled(key, false);
    }
}

/// One scale for all logs, wherever it is chosen.
void Desktop::connectScales(IntroScreen& screen) {
    const auto apply = [&screen](double scale) {
        screen.picture().setScale(scale);
        screen.live().setScale(scale);
    };
    screen.bars().whenScaleChosen(apply);
    screen.live().whenScaleChosen([&screen, apply](double scale) {
        screen.bars().showScale(scale);
        apply(scale);
    });
}

// ---- What the frame calls.

void Desktop::connectHooks() {
    FrameHooks& hooks = program_.hooks;
    hooks.openScreen = [this](const ScreenRequest& request) {
        if (leaving_->pending() || endIsAsked_()) return; // what a search leads to is no longer wanted
        if (request.screen == "frmNoLCUFound") searchCancelled_ = false; // the offer of another search
        if (request.screen == "frmCalibTest" && searchCancelled_) return;
        screens_->open(request);
        if (window_.screen() == nullptr) return;
        acquisition_->show();
        demonstration_->show();
        const bool plotShown = screen().logs().shows(&screen().live());
        if (program_.state.mode == programMode::acquire && !plotShown) showAcquire();
        if (request.screen == "frmSetup") allowAcquire();
        if (request.screen != "frmExit") review_->keepExitQuestion();
        screen().handFocusOn();
    };
    hooks.searchForLcu = [this, search = hooks.searchForLcu] { return searchForLcu(search); };
    hooks.endProcess = [this] { endProcess(); };
    hooks.printLog = [this](const Path&) { reviewActions_->print(); };
    hooks.loadHoleNotes = [this] { loadNotes(); };
}

bool Desktop::searchForLcu(const std::function<bool()>& search) {
    searchCancelled_ = false;
    screen().status().showSearch(true);
    screen().status().showTimes({}, {}); // of a run before
    screen().side().showLink(program_.link);
    const bool found = search();
    screen().status().showSearch(false);
    if (!found) {
        operator_.linkPanel("");
        screen().status().showInterface({});
    }
    const bool acquire = program_.state.mode == programMode::acquire;
    operator_.statusText(acquire ? "Acquire" : "Calibrate / test mode");
    if (acquire) showAcquire();
    acquisition_->show();
    return found;
}

/// Whether logging is allowed may have been changed in the set-up.
void Desktop::allowAcquire() {
    screen().bars().setEnabled("MB-Acquire", program_.settings.allowLogging != 0);
    if (program_.state.mode == programMode::review) review_->show();
}

void Desktop::loadNotes() {
    screen().notes().load(projectFolder(program_.frame), qt(program_.settings.hole.holeId));
}

void Desktop::modeShown() {
    const std::string& mode = program_.state.mode;
    screen().status().showTimes({}, {});
    screen().bars().showScale(mode == programMode::review ? screen().picture().scale()
                                                          : screen().live().scale());
    if (mode != programMode::review) {
        for (const char* key : {"MB-Close", "MB-Details", "MB-Print", "MB-Paint"})
            screen().bars().setEnabled(key, false);
    }
    if (mode == programMode::acquire) showAcquire();
    if (mode == programMode::calibTest) showCalibTest();
    if (mode == programMode::demo) showDemo();
    if (mode == programMode::review) { // the port is closed from here on
        operator_.linkPanel("");
        screen().status().showInterface({});
    }
    if (mode == programMode::review && review_) review_->show();
    if (acquisition_) acquisition_->show();
    if (demonstration_) demonstration_->show();
    screen().handFocusOn();
}

const RunState* Desktop::runShown() const {
    return program_.state.mode == programMode::demo ? demonstration_->run() : acquisition_->run();
}

void Desktop::showAcquire() {
    operator_.statusText("Acquire");
    if (!acquisition_ || !acquisition_->boxIsThere()) {
        screen().logs().showEmpty("No LCU is connected",
                                  "Switch the LCU on and look at its cable, then search again. Under Setup, "
                                  "System test, each port is "
                                  "named to the program.",
                                  {{"Search for the LCU", [this] { toolClick("MB-Acquire"); }},
                                   {"Ports and folders\u2026", [this] { toolClick("Setup-systemtest"); }},
                                   {"Diagnostics console\u2026", [this] { toolClick("Help-diagnostics"); }}});
        return;
    }
    const std::string missing = acquisition_->stillToChoose();
    const bool project = !trimmed(program_.settings.currentProject).empty();
    const bool hole = !trimmed(program_.settings.hole.holeId).empty();
    std::vector<NextStep> steps{
        {"Equipment\u2026", [this] { openScreen("frmEquipment"); }},
        {"Project and hole\u2026", [this, project] { toolClick(project ? "Setup-hole" : "Setup-project"); }}};
    if (!project || !hole) std::swap(steps[0], steps[1]); // first things first
    screen().logs().showEmpty(
        missing.empty() ? "Ready for a run" : "Before a run",
        missing.empty() ? "Set the winch depth, then press Start. The logs appear here with the first scans."
                        : qt(missing),
        std::move(steps));
}

void Desktop::showCalibTest() {
    screen().logs().showEmpty(
        "Calibrate and test",
        "The calibrations in use can be looked at here. The LCU is tested by hand in the "
        "diagnostics console.",
        {{"Calibrations\u2026", [this] { openScreen("frmCalibrations"); }},
         {"Diagnostics console\u2026", [this] { toolClick("Help-diagnostics"); }}});
}

void Desktop::showDemo() {
    screen().logs().showEmpty("Demonstration", "Choose a run file to play it as if it were being logged.",
                              {{"Choose a run to play\u2026", [this] { openScreen("frmDemo"); }}});
}

// ---- The way out (leaving.h does the rest).

void Desktop::endWithoutDisplay() {
    if (std::exchange(displayGone_, true) || ended_) return;
    leaveScreen();
    leaving_ ? leaving_->unseen() : program_.shutDown.leaveUnseen();
}

void Desktop::endProcess() {
    ended_ = true;
    if (!displayGone_) QCoreApplication::quit(); // its loop is not reached any more
}

} // namespace tarvik
