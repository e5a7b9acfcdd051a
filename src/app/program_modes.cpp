#include "app/program_modes.h"

#include "base/number_picture.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace tarvik {

namespace {

constexpr std::string_view demoModel = "LCU4"; // when no box was found before

constexpr int projectPage = 0;
constexpr int holePage = 1;
constexpr int equipmentPage = 2;

/// Set for as long as a search lasts.
class Searching {
  public:
    explicit Searching(bool& flag) : flag_(flag) { flag_ = true; }
    ~Searching() { flag_ = false; }
    Searching(const Searching&) = delete;
    Searching& operator=(const Searching&) = delete;

  private:
    bool& flag_;
};

} // namespace

struct ProgramModes::Mode {
    std::string_view requested;
    const char* stored;
    void (ProgramModes::*enter)();
};

const ProgramModes::Mode* ProgramModes::named(std::string_view requested) {
    static constexpr std::array modes{
        Mode{"REVIEW", programMode::review, &ProgramModes::review},
        Mode{"ACQUIRE", programMode::acquire, &ProgramModes::acquire},
        Mode{"CALIB-TEST", programMode::calibTest, &ProgramModes::calibTest},
        Mode{"DEMO", programMode::demo, &ProgramModes::demo},
    };
    const auto* const found = std::ranges::find(modes, requested, &Mode::requested);
    return found == modes.end() ? nullptr : found;
}

void ProgramModes::Utilities_setprogrammode(std::string_view requested) {
    frame_.errors.run("Utilities_setprogrammode", [&](Level& level) {
        const Mode* const mode = named(requested);
        if (mode == nullptr || frame_.state.searching) return;

        frame_.operatorSide.statusText("");
        frame_.view.uncheckToolBar();
        frame_.state.mode = mode->stored;
        level = 1; // entering it
        (this->*mode->enter)();
    });
}

void ProgramModes::review() {
    checkOnly("MB-Review");
    frame_.view.Utilities_setupsideframe();
    frame_.view.redrawLogsEquallySpaced();
    frame_.view.hideAcquisitionPanel();
    if (frame_.link.open()) frame_.hooks.stopDataStream();
    closeOpenPort(frame_);
    frame_.operatorSide.statusText("Data review mode");
}

void ProgramModes::acquire() {
    checkOnly("MB-Acquire");
    frame_.view.Utilities_setupsideframe();
    resetPrintButton(frame_);
    bool found = lcuAnswers();
    if (!found && frame_.settings.searchAutomatically) found = offerSearch();
    if (found) chooseRun();
}

void ProgramModes::calibTest() {
    checkOnly("MB-CalibTest");
    frame_.operatorSide.statusText("Calibrate / test mode");
    frame_.view.Utilities_setupsideframe();
    if (!lcuAnswers()) {
        closeOpenPort(frame_);
        frame_.view.prepareCalibrationWithoutLcu();
    }
    frame_.hooks.fillCalibrationTools();
    frame_.hooks.openScreen({"frmCalibTest"});
}

/// A staged search: what a real one looks like, without opening a port.
void ProgramModes::demo() {
    closeOpenPort(frame_); // a port that is really open would be lost behind the show's
    frame_.view.hideRunPanels();
    frame_.view.Utilities_setupsideframe();
    frame_.operatorSide.statusText("Searching for LCU");
    frame_.operatorSide.linkPanel(" Checking port COM1");
    {
        const Searching searching(frame_.state.searching);
        for (const int percent : {22, 44, 66, 88}) {
            frame_.view.showProgress(percent);
            frame_.hooks.sleep(400);
        }
    }
    frame_.view.showProgress(100); // done: it goes
    LinkState& link = frame_.link;
    link.port = 1;
    link.demo = true;
    if (link.model.empty()) link.model = demoModel;

    const std::string port = formatPicture(link.port, "0");
    frame_.log.black(link.model + " activated on COM" + port);
    frame_.operatorSide.linkPanel(" " + link.model + " on COM" + port + "   (Version " + link.firmware + ")");
    showModel();
}

/// The search that entering a mode makes; where the settings do not want it, the operator is asked.
bool ProgramModes::lcuAnswers() {
    return frame_.settings.searchAutomatically ? searchForLcu() : offerSearch();
}

bool ProgramModes::searchForLcu() {
    if (frame_.state.searching) return false;
    const Searching searching(frame_.state.searching);
    forgetShow();
    if (!frame_.hooks.searchForLcu()) return false;
    showModel();
    return true;
}

/// A box that answered before and whose port is still open needs no search.
bool ProgramModes::offerSearch() {
    forgetShow();
    if (!connected()) {
        frame_.operatorSide.beep();
        frame_.hooks.openScreen({"frmNoLCUFound"}); // its button may find one
    }
    if (connected()) showModel();
    return connected();
}

bool ProgramModes::connected() const {
    return frame_.link.open() && !frame_.link.model.empty();
}

/// Leaves "DEMO": its port number means nothing to a real search.
void ProgramModes::forgetShow() {
    if (frame_.link.demo) closeOpenPort(frame_);
}

/// An LCU is there: on to tool and winch, or first to what is missing.
void ProgramModes::chooseRun() {
    const Settings& settings = frame_.settings;
    if (trimmed(settings.currentProject).empty()) {
        frame_.operatorSide.message("Tarvik", "You must select a project", Icon::exclamation);
        frame_.hooks.openScreen({"frmSetup", projectPage});
    } else if (trimmed(settings.hole.holeId).empty()) {
        frame_.operatorSide.message("Tarvik", "You must select a hole", Icon::exclamation);
        frame_.hooks.openScreen({"frmSetup", holePage});
    } else if (trimmed(settings.currentTool).empty() || trimmed(settings.currentWinch).empty()) {
        frame_.hooks.openScreen({"frmSetup", equipmentPage});
    } else {
        frame_.hooks.openScreen({"frmEquipment"});
    }
}

void ProgramModes::checkOnly(std::string_view key) {
    for (const std::string_view button : {"MB-Review", "MB-Acquire", "MB-CalibTest"}) {
        frame_.view.setChecked(button, button == key);
    }
}

void ProgramModes::showModel() {
    if (const auto display = interfaceDisplay(frame_.link.model)) {
        frame_.view.showInterface(*display);
    }
}

} // namespace tarvik
