#include "screens/desktop.h"

#include "screens/qt_text.h"
#include "screens/screen_display.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace tarvik {

namespace {

constexpr int mainTimerMs = 1000;

} // namespace

Desktop::Desktop(const ProgramOptions& options, const StandIns& standIns)
    : window_(windowParts()),
      display_(std::make_unique<ScreenDisplay>()),
      program_(options, shell(), standIns),
      memory_(program_.store),
      gate_(program_.link, program_.state) {
    applyTheme(*qApp, memory_.theme());
    program_.log.addViewer(events_);
    connectHooks();
    mainTimer_.setInterval(mainTimerMs);
    QObject::connect(&mainTimer_, &QTimer::timeout, [this] { acquisition_->watchDepth(); });
}

/// Notices that come from here on have no screen any more.
Desktop::~Desktop() {
    program_.lcu.setWatcher(nullptr);
    program_.log.removeViewer(events_);
    operator_.setReports({});
    operator_.attach(nullptr, nullptr);
}

bool Desktop::startUp() {
    program_.startUp.Main();
    if (!program_.startUp.formActivate()) return false;
    window_.setChecked("MB-Review", true);
    review_->show();
    operator_.statusText("Data review mode");
    mainTimer_.start();
    return true;
}

Shell Desktop::shell() {
    return {.operatorSide = operator_,
            .view = window_,
            .window = window_,
            .display = *display_,
            .yield = [] { QCoreApplication::processEvents(); },
            .searchCancelled = [this] { return searchCancelled_; }};
}

IntroWindowParts Desktop::windowParts() {
    return {.make = [this] { return makeScreen(); },
            .mode = [this] { return program_.state.mode; },
            .modeShown = [this] { modeShown(); },
            .stopMainTimer = [this] { mainTimer_.stop(); },
            .openHelp = [this] { screens_->open({"help"}); },
            .closeRun = [this] { review_->close(); },
            .redrawReview = [this] { review_->show(); },
            .redrawEquallySpaced = [this] { review_->showEquallySpaced(); },
            .loadNotes = [this] { loadNotes(); }};
}

void Desktop::toolClick(std::string_view key) {
    gate_.pass([this, key] { program_.commands.toolClick(key); });
}

void Desktop::openScreen(std::string_view name) {
    gate_.pass([this, name] { program_.hooks.openScreen({name}); });
}

std::unique_ptr<IntroScreen> Desktop::makeScreen() {
    auto screen = std::make_unique<IntroScreen>(
        IntroScreenActions{.toolClick = [this](std::string_view key) { toolClick(key); },
                           .closeRequested = [this] { closeRequested(); },
                           .cancelSearch = [this] { searchCancelled_ = true; },
                           .run = {.start = [this] { acquisition_->start(); },
                                   .stop = [this] { acquisition_->stop(); },
                                   .setDepth = [this](double metres) { acquisition_->setDepth(metres); },
                                   .chooseEquipment = [this] { openScreen("frmEquipment"); }},
                           .review = {.open = [this] { toolClick("MB-Open"); },
                                      .details = [this] { openScreen("frmDetails"); },
                                      .exportLas = [this] { openScreen("frmLASexport"); },
                                      .calibrations = [this] { openScreen("frmCalibrations"); }}},
        program_.files);
    screen->bars().whenScaleChosen([&picture = screen->picture()](double scale) { picture.setScale(scale); });
    acquisition_ = std::make_unique<Acquisition>(program_, *screen, gate_, runViewParts());
    review_ = std::make_unique<ReviewSession>(program_, *screen, gate_, memory_);
    screens_ = std::make_unique<ScreenOpener>(program_, *screen, memory_, *review_, events_);
    operator_.setReports(
        {.error = [this](const ErrorReport& error, std::string_view dateTime,
                         std::string_view file) { screens_->showError(error, dateTime, file); },
         .overflow = [this](std::span<const std::string> lines) { screens_->showOverflow(lines); }});
    operator_.attach(screen.get(), &program_.clock);
    program_.lcu.setWatcher(&screen->side());
    return screen;
}

RunViewParts Desktop::runViewParts() {
    return {
        .chooseRun = [this](const LoggingRuns& runs,
                            std::string_view range) { return screens_->chooseRun(runs, range); },
        .setEnabled = [this](bool on) { program_.commands.setControls(on ? "ENABLE" : "DISABLE"); },
        .currentLimit = [this] { return program_.equipment.currentTool().record.get(tool::maximumCurrent); },
        .started =
            [this](const RunHeader& header) {
                screen().live().setRun(header);
                screen().logs().showPage(&screen().live());
                screen().side().showLink(program_.link);
            },
        .shown = [this](const CurrentScan& scan) { screen().live().showScan(scan); },
        .ended = [this] { loadNotes(); }};
}

// ---- What the frame calls.

void Desktop::connectHooks() {
    FrameHooks& hooks = program_.hooks;
    hooks.openScreen = [this](const ScreenRequest& request) {
        screens_->open(request);
        if (window_.screen() != nullptr) acquisition_->show();
    };
    hooks.searchForLcu = [this, search = hooks.searchForLcu] { return searchForLcu(search); };
    hooks.endProcess = [this] { endProcess(); };
    hooks.printLog = [this](const Path&) { review_->print(); };
    hooks.loadHoleNotes = [this] { loadNotes(); };
}

bool Desktop::searchForLcu(const std::function<bool()>& search) {
    searchCancelled_ = false;
    screen().status().showSearch(true);
    const bool found = search();
    screen().status().showSearch(false);
    operator_.statusText(program_.state.mode == programMode::acquire ? "Acquire" : "Calibrate / test mode");
    acquisition_->show();
    return found;
}

void Desktop::loadNotes() {
    screen().notes().load(projectFolder(program_.frame), qt(program_.settings.hole.holeId));
}

void Desktop::modeShown() {
    const std::string& mode = program_.state.mode;
    if (mode == programMode::acquire) showAcquire();
    if (mode == programMode::demo) showDemo();
    if (mode == programMode::review) operator_.linkPanel(""); // the port is closed from here on
    if (mode == programMode::review && review_) review_->show();
    if (acquisition_) acquisition_->show();
}

void Desktop::showAcquire() {
    operator_.statusText("Acquire");
    screen().logs().showEmpty(
        "Ready for a run",
        "Choose tool and winch under Equipment, set the winch depth, then press Start. The logs appear here "
        "with the first scans.",
        {{"Equipment\u2026", [this] { openScreen("frmEquipment"); }},
         {"Project and hole\u2026", [this] { toolClick("Setup-hole"); }}});
}

void Desktop::showDemo() {
    screen().logs().showEmpty("Demonstration", "Choose a run file to play it as if it were being logged.",
                              {{"Choose a run to play\u2026", [this] { openScreen("frmDemo"); }}});
}

// ---- The way out.

void Desktop::closeRequested() {
    if (acquisition_->running()) return offerToStop();
    toolClick("MB-Exit");
}

/// Without waiting for the answer: the run goes on behind the box.
void Desktop::offerToStop() {
    if (screen().findChild<QMessageBox*>("boxstopandclose") != nullptr) return;
    auto* const box = new QMessageBox(QMessageBox::Warning, "Tarvik",
                                      "A logging run is under way.\nStop it, power the tool down and close?",
                                      QMessageBox::NoButton, &screen());
    box->setObjectName("boxstopandclose");
    box->setAttribute(Qt::WA_DeleteOnClose);
    auto* const stop = box->addButton("Stop and close", QMessageBox::AcceptRole);
    stop->setObjectName("comstopandclose");
    box->setDefaultButton(box->addButton("Go on logging", QMessageBox::RejectRole));
    QObject::connect(stop, &QPushButton::clicked, [this] {
        if (!acquisition_->running()) return closeRequested();
        acquisition_->whenEnded([this] { QTimer::singleShot(0, [this] { closeRequested(); }); });
        acquisition_->stop();
    });
    box->open();
}

void Desktop::endProcess() {
    ended_ = true;
    QCoreApplication::quit();
}

} // namespace tarvik
