// The main screen never asks for more room than the smallest display that the program starts on.
#include "screens/readings_strip.h"
#include "screens/truck.h"

#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>

namespace tarvik::test {

namespace {

/// 1280 x 800 at 100 % without the window's frame; the rest is room for a panel of the window manager.
constexpr QSize smallest{1270, 740};
/// 1920 x 1080 at 200 % and 1280 x 800 at 150 %, and the narrowest display that the program starts on,
/// whichever leaves less.
constexpr QSize magnified{800, 514};

/// 1366 x 768 at 150 %, without the window's frame.
constexpr QSize lowLaptop{910, 490};

/// Not behind a scroll bar.
void expectWhole(const QWidget& field) {
    QCoreApplication::processEvents();
    EXPECT_EQ(field.visibleRegion().boundingRect(), field.rect()) << field.objectName().toStdString();
}

void expectFits(IntroScreen& screen, QSize room, const char* when) {
    QCoreApplication::processEvents();
    screen.resize(room);
    QCoreApplication::processEvents();
    const QSize least = screen.layout()->totalMinimumSize();
    EXPECT_LE(least.width(), room.width()) << when;
    EXPECT_LE(least.height(), room.height()) << when;
}

/// The words of the run; the version gives way to them.
void expectTimesWhole(IntroScreen& screen, const char* when) {
    QCoreApplication::processEvents();
    const auto& times = *screen.findChild<QLabel*>("LoggingTime");
    EXPECT_GE(times.width(), times.sizeHint().width()) << when << ": " << times.text().toStdString();
}

} // namespace

TEST(WindowFits, WithNoticesNotesAndTheLogsOfARun) {
    Truck truck({.tool = "K240"});
    IntroScreen& screen = truck.screen();
    screen.show();
    expectFits(screen, magnified, "at the start");
    truck.acquire();
    expectFits(screen, magnified, "ready for a run");
    screen.resize(lowLaptop);
    expectWhole(control<QLineEdit>(screen, "txtsetdepth"));
    expectWhole(control<QPushButton>(screen, "comsetdepth"));
    screen.resize(magnified);
    bool seen = false;
    truck.log([&] {
        if (truck.kept() < 5) return;
        if (!std::exchange(seen, true)) {
            EXPECT_EQ(screen.size(), magnified) << "the prompts of the preparation had room";
            const std::string words = "The port has gone. Check the cable; logging goes on when it is back.";
            for (const char* title : {"First", "Second", "Third", "Fourth"})
                screen.notices().show(title, words, Icon::critical, "06:29");
            expectFits(screen, magnified, "in a run, with notices");
            EXPECT_FALSE(control<ReadingsStrip>(screen, "livestrip").visibleRegion().isEmpty());
        }
        truck.desktop->acquisition().stop();
    });
    EXPECT_TRUE(seen);
    screen.resize(magnified);
    expectTimesWhole(screen, "after a run");
    screen.notices().clear();
    for (const QSize low : {lowLaptop, QSize(1280, 641), QSize(1280, 690)}) {
        screen.resize(low);
        expectWhole(control<QLineEdit>(screen, "txtsetdepth")); // to be set for the next one
    }
    screen.resize(magnified);
    truck.p().commands.toolClick("MB-Notes");
    expectFits(screen, smallest, "after a run, with the notes");
    truck.p().modes.Utilities_setprogrammode("REVIEW");
    ASSERT_TRUE(truck.desktop->review().open(truck.runFile("DH-1_K240_01.kvx")));
    expectFits(screen, smallest, "in review, with the notes");
    EXPECT_TRUE(screen.logs().isVisible());
    expectFits(screen, magnified, "in review, with the notes in the place of the logs");
    EXPECT_FALSE(screen.logs().isVisible());
    truck.p().commands.toolClick("MB-Notes");
    screen.notices().clear();
    expectFits(screen, magnified, "in review");
    truck.p().commands.toolClick("MB-Notes");
    expectFits(screen, magnified, "in review, when the notes come");
    EXPECT_EQ(screen.width(), magnified.width());
    truck.p().commands.toolClick("MB-Notes");
    truck.p().modes.Utilities_setprogrammode("DEMO");
    screen.side().demo().showPosition(17, 34);
    screen.logs().showPage(&screen.live());
    expectFits(screen, lowLaptop, "in a demonstration");
}

} // namespace tarvik::test
