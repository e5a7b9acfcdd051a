#include "screens/screen_opener.h"

#include "equipment/channel_states.h"
#include "lcu/run_header_builder.h"
#include "lcu/run_order.h"
#include "processing/las_again.h"
#include "program/diagnostics_modules.h"
#include "screens/equipment_choice_list.h"
#include "screens/frm_about.h"
#include "screens/frm_calibrations.h"
#include "screens/frm_data_file_exists.h"
#include "screens/frm_demo.h"
#include "screens/frm_details.h"
#include "screens/frm_deviation.h"
#include "screens/frm_diagnostics.h"
#include "screens/frm_equipment.h"
#include "screens/frm_exit.h"
#include "screens/frm_file.h"
#include "screens/frm_las_export.h"
#include "screens/frm_no_lcu_found.h"
#include "screens/frm_readme.h"
#include "screens/frm_setup.h"
#include "screens/not_built.h"
#include "screens/qt_text.h"

#include <QTimer>

#include <algorithm>
#include <array>

namespace tarvik {

struct ScreenOpener::Screen {
    std::string_view name;
    void (ScreenOpener::*open)(const ScreenRequest&);
};

std::span<const ScreenOpener::Screen> ScreenOpener::screens() {
    using Opener = ScreenOpener;
    static constexpr std::array table{
        Screen{"frmSetup", &Opener::openSetup},
        Screen{"frmFile", &Opener::openFile},
        Screen{"frmEventLog", &Opener::openEventLog},
        Screen{"frmNoLCUFound", &Opener::openNoLcuFound},
        Screen{"frmExit", &Opener::openExit},
        Screen{"frmAbout", &Opener::openAbout},
        Screen{"frmReadme", &Opener::openReadme},
        Screen{"help", &Opener::openHelp},
        Screen{"frmDiagnostics", &Opener::openDiagnostics},
        Screen{"frmDemo", &Opener::openDemo},
        Screen{"frmEquipment", &Opener::openEquipment},
        Screen{"frmDeviation", &Opener::openDeviation},
        Screen{"frmCalibrations", &Opener::openCalibrations},
        Screen{"frmDetails", &Opener::openDetails},
        Screen{"frmLASexport", &Opener::openLasExport},
    };
    return table;
}

void ScreenOpener::open(const ScreenRequest& request) {
    const auto table = screens();
    const auto found = std::ranges::find(table, request.screen, &Screen::name);
    if (found == table.end()) return openNotBuilt(request);
    (this->*found->open)(request);
}

void ScreenOpener::openSetup(const ScreenRequest& request) {
    Program& p = program_;
    frmSetup screen({.errors = p.errors,
                     .settings = p.settings,
                     .storedSettings = p.storedSettings,
                     .store = p.store,
                     .places = p.places,
                     .files = p.files,
                     .equipment = p.equipment,
                     .lcu = p.lcu,
                     .link = p.link,
                     .log = p.log,
                     .operatorSide = p.frame.operatorSide,
                     .memory = memory_,
                     .pageChanged = [&p](int page) { p.state.setupPage = page; },
                     .portsChanged = [&p] { p.takePorts(); },
                     .portsOfThisStart = p.options.ports},
                    &parent_);
    screen.selectPage(request.page, request.subPage);
    screen.exec();
}

void ScreenOpener::openFile(const ScreenRequest&) {
    const Path folder = projectFolder(program_.frame);
    frmFile screen(program_.files, folder, anyRunOrLasFile(folder), memory_, &parent_);
    if (screen.exec() == QDialog::Accepted) review_.open(screen.chosen());
}

void ScreenOpener::openEventLog(const ScreenRequest&) {
    frmEventLog(events_, program_.log, memory_, &parent_).exec();
}

void ScreenOpener::openNoLcuFound(const ScreenRequest&) {
    const NoLcuActions actions{
        .search = [this] { return program_.modes.searchForLcu(); },
        .setUpPorts =
            [this] {
                openSetup({"frmSetup", 5});
            },
        .report = [this] { return program_.search.report(); },
        .cancelled = [this] { return program_.search.cancelled(); },
        .ports = [this] { return program_.options.searchedPorts.value_or(program_.settings.lcuComms); },
        .cancel = cancelSearch_};
    frmNoLCUFound(program_.settings.searchAutomatically, actions, memory_, &parent_).exec();
}

void ScreenOpener::openExit(const ScreenRequest&) {
    frmExit(ExitPrompt(program_.state, program_.frame.operatorSide), memory_, &parent_).exec();
}

void ScreenOpener::openAbout(const ScreenRequest&) {
    frmAbout(programVersion(), program_.system, qt(program_.places.programFolder.string()), memory_, &parent_)
        .exec();
}

void ScreenOpener::openReadme(const ScreenRequest&) {
    frmReadme(memory_, &parent_).exec();
}

void ScreenOpener::openHelp(const ScreenRequest&) {
    if (!help_) help_ = std::make_unique<HelpWindow>(memory_, &parent_);
    const bool nothingOpen = program_.state.mode == programMode::review && review_.log() == nullptr;
    if (!help_->isVisible() && !nothingOpen) help_->showPage(helpPageOf(qt(program_.state.mode)));
    help_->show();
    help_->raise();
    help_->activateWindow();
}

void ScreenOpener::openNotBuilt(const ScreenRequest& request) {
    NotBuiltScreen(request.screen, memory_, &parent_).exec();
}

/// What was used last is in use until something else is chosen, also by who leaves the form with Escape.
void ScreenOpener::recallEquipment() {
    ToolWinchData& equipment = program_.equipment;
    if (!trimmed(equipment.currentTool().record.get(tool::code)).empty()) return;
    const Settings& settings = program_.settings;
    const EquipmentChoice tool{settings.currentTool, settings.currentToolSerial};
    equipment.ToolWinchData_loadcurrentttoolwinch(tool, {settings.currentWinch, settings.currentWinchSerial},
                                                  modeOf(memory_, tool));
}

void ScreenOpener::openEquipment(const ScreenRequest&) {
    Program& p = program_;
    recallEquipment();
    frmEquipment({.settings = p.settings,
                  .store = p.storedSettings,
                  .equipment = p.equipment,
                  .files = p.files,
                  .reader = p.runReader,
                  .places = p.places,
                  .memory = memory_,
                  .addTool =
                      [this] {
                          openSetup({"frmSetup", 2, 1}); // "Your tools"
                      },
                  .setDeviation = [this] { openDeviation({"frmDeviation"}); }},
                 &parent_)
        .exec();
}

void ScreenOpener::openDeviation(const ScreenRequest&) {
    frmDeviation(program_.settings, program_.storedSettings, memory_, &parent_).exec();
}

void ScreenOpener::openCalibrations(const ScreenRequest&) {
    frmCalibrations({.history = program_.calibrations,
                     .operatorSide = program_.frame.operatorSide,
                     .memory = memory_,
                     .exportFile = program_.places.homeDrive / "kvxcalib.txt",
                     .unitOf =
                         [this](const CalibrationRow& row) {
                             const EquipmentChoice tool{row.toolCode, row.serialNumber};
                             return sensorUnit(program_.equipment.userTool(tool, 1).record, row.sensorName);
                         }},
                    &parent_)
        .exec();
}

void ScreenOpener::openDetails(const ScreenRequest&) {
    if (review_.log() != nullptr) frmDetails(*review_.log(), review_.file(), memory_, &parent_).exec();
}

void ScreenOpener::openLasExport(const ScreenRequest&) {
    if (review_.log() == nullptr) return;
    frmLASexport(*review_.log(), review_.file(), lasOptionsFor(*review_.log()),
                 {.lasExport = program_.lasExport,
                  .files = program_.files,
                  .operatorSide = program_.frame.operatorSide,
                  .log = program_.log,
                  .memory = memory_,
                  .chooseFile = askForLasFile},
                 &parent_)
        .exec();
}

void ScreenOpener::openDiagnostics(const ScreenRequest&) {
    frmDiagnostics(diagnosticsModules(program_), program_.tap, program_.files, memory_, &parent_).exec();
}

/// The playback outlasts whatever opened the screen.
void ScreenOpener::openDemo(const ScreenRequest&) {
    demonstration_.show(); // the staged search is over
    const Path folder = projectFolder(program_.frame);
    frmDemo screen(program_.files, folder, anyRunFile(folder), demonstration_.choice(), memory_, &parent_);
    if (screen.exec() != QDialog::Accepted) return;
    demonstration_.choose(screen.choice());
    QTimer::singleShot(0, [this] { demonstration_.start(); });
}

RunChoice ScreenOpener::chooseRun(const LoggingRuns& runs, const std::optional<DepthRange>& onFile) {
    const Settings& settings = program_.settings;
    LatestRun latest{.runs = runs, .depthRange = depthRangeText(onFile), .comparison = comparison(runs)};
    if (const auto metres = parent_.side().instrument().depth(); onFile && metres)
        latest.overlap = overlapWarning(*onFile, fromMetres(*metres, settings.units()), settings.direction());
    frmDataFileExists screen(latest, memory_, &parent_);
    screen.exec();
    return screen.choice();
}

/// Of the latest run with the run that is about to start; empty when the latest one cannot be read.
std::vector<AppendRow> ScreenOpener::comparison(const LoggingRuns& runs) const {
    const Program& p = program_;
    return program_.errors.run("Append comparison", std::vector<AppendRow>{}, [&](Level&) {
        const RunOrder order = runOrderFrom(p.settings, p.places, {});
        const RunHeader next =
            buildRunHeader(order, p.equipment.currentTool(), p.equipment.currentWinch(), p.clock.now());
        return appendComparison(next, p.files, runs.latestFile);
    });
}

void ScreenOpener::showOverflow(std::span<const std::string> lines, const ErrorFiling& filed) {
    if (!overflow_) overflow_ = std::make_unique<frmBufferOverflow>(memory_, &parent_);
    overflow_->showOverflow(lines, filed, program_.clock.now());
}

void ScreenOpener::closeOverflow() {
    if (overflow_) overflow_->close();
}

void ScreenOpener::keepError(const ErrorReport& error, std::string_view dateTime, const ErrorFiling& filed) {
    if (!error_) error_ = std::make_unique<frmERROR>(memory_, &parent_);
    error_->keepError(error, dateTime, filed);
}

void ScreenOpener::showUnreadErrors() {
    if (error_) error_->showUnread();
}

} // namespace tarvik
