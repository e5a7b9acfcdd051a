// The demonstration: a run on file, chosen and played on the main screen without a box.
#include "screens/frm_demo.h"
#include "screens/truck.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QProgressBar>
#include <QRadioButton>
#include <QTableWidget>

#include <fstream>

namespace tarvik::test {

namespace {

/// A truck that has logged a run of its own and closed the port again.
struct Cinema : Truck {
    Cinema() : Truck({.openScreens = false}) {
        acquire();
        log([this] {
            if (kept() >= 60) desktop->acquisition().stop();
        });
        p().modes.Utilities_setprogrammode("REVIEW");
        truth.clear();
        before = filesOfProject();
    }
    /// Everything in the project's folder, with its size.
    [[nodiscard]] std::string filesOfProject() const {
        std::string all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(runFile("")))
            all += entry.path().filename().string() + " " +
                   std::to_string(entry.is_regular_file() ? entry.file_size() : 0) + "\n";
        return all;
    }
    void enter() {
        p().commands.toolClick("Help-demo");
        desktop->demonstration().choose({runFile("DH-1_K215_01.kvx"), PlaybackPace::original});
    }
    /// Plays it; `act` is called at every wait.
    void play(std::function<void()> act) {
        atWait = [this, act = std::move(act)] {
            if (desktop->demonstration().running()) act();
        };
        click(screen(), "comstartdemo");
        atWait = {};
    }
    [[nodiscard]] std::size_t played() { return desktop->demonstration().run()->ring.kept(); }

    std::string before;
};

} // namespace

TEST(DemonstrationTest, ItIsEnteredByItsStagedSearchAndPlaysARunThroughTheMainScreen) {
    Cinema cinema;
    const std::int64_t start = cinema.clock.tickMs();
    cinema.screensOpened.clear();
    cinema.enter();
    EXPECT_EQ(cinema.screensOpened, std::vector<std::string>{"frmDemo"});
    EXPECT_EQ(cinema.clock.tickMs() - start, 1600);
    EXPECT_EQ(cinema.p().state.mode, "DEMO");
    EXPECT_FALSE(cinema.screen().side().run().isVisibleTo(&cinema.screen()));

    std::string state, lamp, file;
    bool menusLocked = false;
    cinema.play([&] {
        state = cinema.label("lbrecordingstate");
        lamp = cinema.label("lblcuok");
        menusLocked = !control<QAction>(cinema.screen(), "MB-Acquire").isEnabled();
    });
    EXPECT_EQ(state, "\xE2\x96\xA0  NOT RECORDING");
    EXPECT_EQ(lamp, "\xE2\x97\x8B Demonstration");
    EXPECT_TRUE(menusLocked);
    EXPECT_TRUE(control<QAction>(cinema.screen(), "MB-Acquire").isEnabled());
    EXPECT_GE(cinema.played(), 60U);
    EXPECT_EQ(control<QProgressBar>(cinema.screen(), "pgplayback").value(),
              static_cast<int>(cinema.played()));
    EXPECT_TRUE(cinema.truth.commandTexts().empty()) << "nothing is sent";
    EXPECT_EQ(cinema.filesOfProject(), cinema.before) << "nothing is written";
}

TEST(DemonstrationTest, PausePaceAndStopAreHeardAndNoOtherCommandIs) {
    Cinema cinema;
    cinema.enter();
    std::size_t whenPaused = 0, waits = 0;
    cinema.play([&] {
        if (cinema.played() < 10) return;
        QPushButton& pause = control<QPushButton>(cinema.screen(), "compausedemo");
        if (whenPaused == 0) {
            whenPaused = cinema.played();
            pause.click();
            EXPECT_EQ(pause.text(), "&Go on");
            control<QAction>(cinema.screen(), "MB-Review").trigger();
        } else if (++waits < 20) {
            EXPECT_EQ(cinema.played(), whenPaused);
        } else if (waits == 20) {
            pause.click();
            cinema.desktop->demonstration().setPace(PlaybackPace::tenfold);
        } else if (cinema.played() >= 40) {
            click(cinema.screen(), "comstopdemo");
        }
    });
    EXPECT_GE(waits, 20U);
    EXPECT_GE(cinema.played(), 40U);
    EXPECT_LT(cinema.played(), 60U);
    EXPECT_EQ(cinema.p().state.mode, "DEMO");
    EXPECT_TRUE(control<QPushButton>(cinema.screen(), "comstartdemo").isEnabled());
}

TEST(DemonstrationTest, ClosingTheWindowEndsItAndTheProgramWithoutAQuestion) {
    Cinema cinema;
    cinema.enter();
    cinema.play([&] {
        if (cinema.played() >= 5) cinema.screen().close();
    });
    QCoreApplication::processEvents();
    EXPECT_TRUE(cinema.desktop->ended());
    EXPECT_LT(cinema.played(), 60U);
}

TEST(DemonstrationTest, TheWindowLivesAlthoughNoPortIsOpen) {
    Cinema cinema;
    cinema.enter();
    cinema.serial.whileWaiting({}); // as a real port that is closed
    int served = 0;
    QTimer events;
    QObject::connect(&events, &QTimer::timeout, [&] { ++served; });
    events.start(0);
    cinema.desktop->demonstration().start();
    EXPECT_GE(cinema.played(), 60U);
    EXPECT_GT(served, 60);
}

TEST(DemonstrationTest, AfterItTheOperatorLogsAsEver) {
    Cinema cinema;
    cinema.enter();
    cinema.desktop->demonstration().setPace(PlaybackPace::fastest);
    cinema.play([] {});
    cinema.p().modes.Utilities_setprogrammode("ACQUIRE");
    EXPECT_TRUE(cinema.p().link.open());
    EXPECT_TRUE(control<QPushButton>(cinema.screen(), "comstartlogging").isEnabled());
    EXPECT_FALSE(cinema.screen().side().demo().isVisibleTo(&cinema.screen()));
}

TEST(InstrumentPanelTest, DigitsFollowTheirUnit) {
    InstrumentPanel panel;
    panel.showDepth(30.48);
    panel.showSpeed(3.048);
    panel.setUnits(DepthUnits::feet); // as the settings say it now
    EXPECT_EQ(control<QLabel>(panel, "lbdepth").text(), "100.00");
    EXPECT_EQ(control<QLabel>(panel, "lbspeed").text(), "10.0");
}

TEST(FrmDemoTest, OneChoosesARunAndAPace) {
    Cinema cinema;
    std::ofstream(cinema.runFile("other.las")) << "~V";
    DesktopMemory memory(cinema.p().store);
    frmDemo screen(
        cinema.p().files, cinema.runFile(""), [](QWidget*) { return std::nullopt; }, {}, memory);
    auto& start = control<QPushButton>(screen, "comstart");
    EXPECT_FALSE(start.isEnabled());
    while (control<QTableWidget>(screen, "lbruns").currentRow() < 0) QCoreApplication::processEvents();
    EXPECT_EQ(control<QTableWidget>(screen, "lbruns").rowCount(), 1) << "a LAS file has no times to play by";
    EXPECT_TRUE(start.isEnabled());
    control<QLineEdit>(screen, "txtfilter").setText("nothing like it");
    EXPECT_FALSE(start.isEnabled());
    control<QLineEdit>(screen, "txtfilter").clear();
    control<QTableWidget>(screen, "lbruns").selectRow(0);
    control<QRadioButton>(screen, "opttenfold").setChecked(true);
    start.click();
    EXPECT_EQ(screen.choice().file.filename(), "DH-1_K215_01.kvx");
    EXPECT_EQ(screen.choice().pace, PlaybackPace::tenfold);
}

} // namespace tarvik::test
