// The desktop with a project, a hole, a tool and a winch, and a simulated box on COM1: what a crew sits
// before.
#pragma once

#include "screens/desk.h"
#include "screens/desktop.h"
#include "simulator/simulated_port.h"

#include <QLabel>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarvik::test {

struct TruckOptions {
    lcusim::LcuModel model = lcusim::LcuModel::lcu4;
    std::string tool = "K215";
    std::string sampling = "DEPTH";
    std::vector<std::string> faults = {};
    bool dark = false;
    bool openScreens = false; ///< false: the screens that the frame wants are noted, not opened
};

/// The desktop in a home with a project, a hole, a tool and a winch, and a box on COM1.
struct Truck {
    explicit Truck(TruckOptions with = {})
        : options(std::move(with)),
          engine({.model = options.model, .winch = {.startDepth = 10}, .faults = parsed(options.faults)},
                 simulatedTool(options.tool), truth) {
        serial.connect(1, engine);
        serial.whileWaiting([this] {
            QCoreApplication::processEvents();
            if (atWait) atWait();
        });
        prepareHome();
        desktop = std::make_unique<Desktop>(ProgramOptions{.home = home.path()},
                                            StandIns{.clock = &clock, .serial = &serial});
        started = desktop->startUp();
        if (!options.openScreens)
            p().hooks.openScreen = [this](const ScreenRequest& request) {
                screensOpened.emplace_back(request.screen);
            };
    }

    static std::vector<lcusim::Fault> parsed(const std::vector<std::string>& texts) {
        std::vector<lcusim::Fault> faults;
        for (const std::string& text : texts) faults.push_back(lcusim::parseFault(text).fault.value());
        return faults;
    }

    /// As an earlier start left it.
    void prepareHome() {
        Desk earlier;
        std::filesystem::remove_all(home.path());
        Program& program = earlier.program;
        Settings& settings = program.settings;
        settings.currentProject = "Northern";
        settings.hole.holeId = "DH-1";
        settings.samplingMethod = options.sampling;
        settings.samplingInterval = options.sampling == "DEPTH" ? 5 : 0.5;
        settings.currentTool = options.tool;
        settings.currentWinch = "W110";
        const auto tools = program.equipment.ToolWinchData_loadbrennatoollist();
        for (std::size_t i = 0; i < tools.rows.size(); ++i) {
            if (tools.rows[i].code == options.tool)
                program.equipment.ToolWinchData_addusertool(static_cast<int>(i + 1), "S-1");
        }
        program.equipment.ToolWinchData_adduserwinch(1, "W-1");
        program.storedSettings.Utilities_saveregsettings(settings);
        if (options.dark) earlier.memory.keepTheme(Theme::dark);
        std::filesystem::copy(earlier.home.path(), home.path(), std::filesystem::copy_options::recursive);
    }

    /// Mode "ACQUIRE" with the tool and winch that `frmEquipment` would have confirmed.
    void acquire() {
        p().modes.Utilities_setprogrammode("ACQUIRE");
        p().equipment.ToolWinchData_loadcurrentttoolwinch({options.tool, ""}, {"W110", ""}, 1);
        desktop->acquisition().show();
    }
    /// Starts the run; `act` is called at every wait once scans are being kept.
    void log(std::function<void()> act) {
        atWait = [this, act = std::move(act)] {
            if (p().state.logging) act();
        };
        click(screen(), "comstartlogging");
        atWait = {};
    }
    [[nodiscard]] long kept() {
        const RunState* const run = desktop->acquisition().run();
        return run == nullptr ? 0 : static_cast<long>(run->tally.kept);
    }
    [[nodiscard]] std::string label(const char* name) {
        return control<QLabel>(screen(), name).text().toStdString();
    }
    [[nodiscard]] Path runFile(const std::string& name) const {
        return home / "C" / "Brenna Projects" / "Northern" / name;
    }
    Program& p() { return desktop->program(); }
    IntroScreen& screen() { return desktop->screen(); }

    TruckOptions options;
    TemporaryFolder home;
    VirtualClock clock;
    lcusim::SimulatedPort serial{clock};
    lcusim::MemoryRecord truth;
    lcusim::LcuEngine engine;
    std::function<void()> atWait;
    std::vector<std::string> screensOpened;
    std::unique_ptr<Desktop> desktop;
    bool started = false;
};

} // namespace tarvik::test
