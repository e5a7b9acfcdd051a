// The main screen never asks for more room than the smallest display that the program starts on.
#include "screens/truck.h"

#include <QLayout>

namespace tarvik::test {

namespace {

/// 1280 x 800 at 100 % without the window's frame; the rest is room for a panel of the window manager.
constexpr QSize smallest{1270, 740};
/// 1920 x 1080 at 200 %, in the same way.
constexpr QSize magnified{958, 514};

void expectFits(IntroScreen& screen, QSize room, const char* when) {
    QCoreApplication::processEvents();
    screen.resize(room);
    QCoreApplication::processEvents();
    const QSize least = screen.layout()->totalMinimumSize();
    EXPECT_LE(least.width(), room.width()) << when;
    EXPECT_LE(least.height(), room.height()) << when;
}

} // namespace

TEST(WindowFits, WithNoticesNotesAndTheLogsOfARun) {
    Truck truck({.tool = "K240"});
    IntroScreen& screen = truck.screen();
    screen.show();
    truck.acquire();
    bool seen = false;
    truck.log([&] {
        if (truck.kept() < 5) return;
        if (!std::exchange(seen, true)) {
            expectFits(screen, magnified, "in a run");
            const std::string words = "The port has gone. Check the cable; logging goes on when it is back.";
            for (const char* title : {"First", "Second", "Third", "Fourth"})
                screen.notices().show(title, words, Icon::critical, "06:29");
            expectFits(screen, smallest, "in a run, with notices");
        }
        truck.desktop->acquisition().stop();
    });
    EXPECT_TRUE(seen);
    truck.p().commands.toolClick("MB-Notes");
    expectFits(screen, smallest, "after a run, with the notes");
    truck.p().modes.Utilities_setprogrammode("REVIEW");
    ASSERT_TRUE(truck.desktop->review().open(truck.runFile("DH-1_K240_01.kvx")));
    expectFits(screen, smallest, "in review, with the notes");
    truck.p().commands.toolClick("MB-Notes");
    screen.notices().clear();
    expectFits(screen, magnified, "in review");
}

} // namespace tarvik::test
