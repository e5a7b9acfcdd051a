// The desktop on the simulated box: what the operator does at the main screen, without a display.
#include "screens/desktop.h"

#include "files/run_file_reader.h"
#include "screens/desk.h"
#include "screens/qt_text.h"
#include "simulator/simulated_port.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>

namespace tarvik::test {

namespace {

/// The desktop in a home with a project, a hole, a tool and a winch, and a box on COM1.
struct Truck {
    explicit Truck(std::string toolCode = "K215")
        : tool(std::move(toolCode)),
          engine({.model = lcusim::LcuModel::lcu4, .winch = {.startDepth = 10}}, simulatedTool(tool), truth) {
        serial.connect(1, engine);
        serial.whileWaiting([this] {
            QCoreApplication::processEvents();
            if (atWait) atWait();
        });
        prepareHome();
        desktop = std::make_unique<Desktop>(ProgramOptions{.home = home.path()},
                                            StandIns{.clock = &clock, .serial = &serial});
        started = desktop->startUp();
        p().hooks.openScreen = [this](const ScreenRequest& request) {
            screensOpened.emplace_back(request.screen);
        };
    }

    /// As an earlier start left it.
    void prepareHome() {
        Desk earlier;
        std::filesystem::remove_all(home.path());
        Program& program = earlier.program;
        Settings& settings = program.settings;
        settings.currentProject = "Northern";
        settings.hole.holeId = "DH-1";
        settings.samplingMethod = "DEPTH";
        settings.samplingInterval = 5;
        settings.currentTool = tool;
        settings.currentWinch = "W110";
        const auto tools = program.equipment.ToolWinchData_loadbrennatoollist();
        for (std::size_t i = 0; i < tools.rows.size(); ++i) {
            if (tools.rows[i].code == tool)
                program.equipment.ToolWinchData_addusertool(static_cast<int>(i + 1), "S-1");
        }
        program.equipment.ToolWinchData_adduserwinch(1, "W-1");
        program.storedSettings.Utilities_saveregsettings(settings);
        std::filesystem::copy(earlier.home.path(), home.path(), std::filesystem::copy_options::recursive);
    }

    /// Mode "ACQUIRE" with the tool and winch that `frmEquipment` would have confirmed.
    void acquire() {
        p().modes.Utilities_setprogrammode("ACQUIRE");
        p().equipment.ToolWinchData_loadcurrentttoolwinch({tool, ""}, {"W110", ""}, 1);
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

    std::string tool;
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

} // namespace

TEST(DesktopTest, ARunFromTheMainScreenIsOnFileAndTheToolIsPoweredDown) {
    Truck truck;
    ASSERT_TRUE(truck.started);
    truck.acquire();
    EXPECT_EQ(truck.screensOpened, std::vector<std::string>{"frmEquipment"});
    EXPECT_EQ(truck.label("lbinterface"), "Interface LCU4");

    std::string during;
    truck.log([&] {
        if (truck.kept() < 20) return;
        during = truck.label("lbrecordingstate");
        click(truck.screen(), "comstoplogging");
    });
    EXPECT_EQ(during, "\xE2\x97\x8F  RECORDING");
    EXPECT_EQ(truck.label("lbrecordingstate").substr(0, 9), "Run ended");
    EXPECT_EQ(truck.truth.commandTexts().back(), "Q");
    EXPECT_FALSE(control<QCheckBox>(truck.screen(), "chkrecord").isChecked());

    const auto review = truck.p().runReader.Tarvikfileopen(truck.runFile("DH-1_K215_01.kvx"));
    ASSERT_TRUE(review);
    EXPECT_GE(review->steps(), 20U);
}

TEST(DesktopTest, TheButtonOfTheDeviationToolGoesThroughItsDisplaysDuringTheRun) {
    Truck truck("K417");
    truck.acquire();
    auto& button = control<QAction>(truck.screen(), "MB-Bullseye");
    const LivePlot& plot = truck.screen().live().plot();
    std::vector<std::string> seen;
    QSize least;
    truck.log([&] {
        least = least.expandedTo(truck.screen().minimumSizeHint());
        const auto at = static_cast<std::size_t>(truck.kept());
        if (at < 20 || seen.size() == 4) return;
        const LogDisplay& shown = plot.curves().shown();
        seen.push_back(plain(button.text()) + (plot.page() == LivePage::plan
                                                   ? std::string(": plan")
                                                   : ": " + shown.tracks[0].curves[0].channel));
        button.trigger();
        if (seen.size() == 4) truck.desktop->acquisition().stop();
    });
    EXPECT_EQ(seen, (std::vector<std::string>{"Bullseye: plan", "Magnetics: Mag X", "Deviation: Azimuth",
                                              "Bullseye: plan"}));
    EXPECT_LE(least.width(), 1280);
    EXPECT_LE(least.height(), 740) << "a notice above the logs must not push the window off the screen";
    EXPECT_EQ(plot.page(), LivePage::logs) << "the stop button takes the plan view away";
    EXPECT_FALSE(button.isVisible());
    const Bytes log = truck.p().files.read(truck.p().log.todaysFile());
    EXPECT_NE(std::string(asText(log)).find("Screen scale being used 1:200"), std::string::npos);
}

TEST(DesktopTest, AScaleSetInTheLivePlotIsKeptWithTheToolAfterTheRun) {
    Truck truck;
    truck.acquire();
    const auto rightEnd = [&] {
        return truck.p().equipment.currentTool().record.get(tool::uncalibratedRight(1, 1));
    };
    const float before = rightEnd();
    float during = 0;
    truck.log([&] {
        if (truck.kept() < 20) return;
        click(truck.screen(), "comlivecurves");
        control<QComboBox>(truck.screen(), "cmblivecurve").setCurrentText("Gamma");
        control<QLineEdit>(truck.screen(), "txtliveright").setText("271");
        click(truck.screen(), "comlivecurveapply");
        during = rightEnd();
        truck.desktop->acquisition().stop();
    });
    EXPECT_EQ(during, before) << "nothing is written while the winch turns";
    EXPECT_EQ(rightEnd(), 271);
}

TEST(DesktopTest, ClosingDuringARunAsksWithoutStoppingItAndThenEndsItInOrder) {
    Truck truck;
    truck.acquire();
    long keptWhenAsked = 0;
    truck.log([&] {
        if (keptWhenAsked == 0 && truck.kept() >= 5) {
            truck.screen().close();
            keptWhenAsked = truck.kept();
        }
        if (keptWhenAsked > 0 && truck.kept() >= keptWhenAsked + 10) click(truck.screen(), "comstopandclose");
    });
    QCoreApplication::processEvents();
    EXPECT_TRUE(truck.desktop->ended());
    EXPECT_GE(truck.kept(), keptWhenAsked + 10);
    const Bytes log = truck.p().files.read(truck.p().log.todaysFile());
    EXPECT_NE(std::string(asText(log)).find("Tarvik program closed"), std::string::npos);
}

TEST(DesktopTest, NoClickDuringAWaitStartsASecondExchange) {
    Truck truck;
    std::size_t clicks = 0;
    const auto clickEverything = [&] {
        for (QAbstractButton* const button : truck.screen().findChildren<QAbstractButton*>()) {
            const QString name = button->objectName();
            if (name == "comstoplogging" || name == "comcancelsearch" || name == "chkrecord") continue;
            if (!button->isVisible() || !button->isEnabled()) continue;
            button->click();
            ++clicks;
        }
        if (QWidget* const modal = QApplication::activeModalWidget()) modal->close();
    };
    truck.atWait = clickEverything;
    truck.acquire();
    truck.log([&] {
        clickEverything();
        if (truck.kept() >= 5) truck.desktop->acquisition().stop();
    });
    EXPECT_GT(clicks, 100U);
    EXPECT_GE(truck.kept(), 5);
    EXPECT_FALSE(truck.p().link.busy);
}

} // namespace tarvik::test
