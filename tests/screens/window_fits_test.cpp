// The main screen never asks for more room than the smallest display that the program starts on.
#include "screens/truck.h"

#include <QMainWindow>

namespace tarvik::test {

namespace {

/// 1280 x 800 at 100 % without the window's frame; the rest is room for a panel of the window manager.
constexpr QSize smallest{1270, 740};

void expectFits(IntroScreen& screen, const char* when) {
    QCoreApplication::processEvents();
    EXPECT_LE(screen.width(), smallest.width()) << when;
    EXPECT_LE(screen.height(), smallest.height()) << when;
}

} // namespace

TEST(WindowFits, WithNoticesNotesAndTheLogsOfARun) {
    Truck truck({.tool = "K240"});
    IntroScreen& screen = truck.screen();
    screen.resize(smallest);
    screen.show();
    truck.acquire();
    bool seen = false;
    truck.log([&] {
        if (truck.kept() < 5) return;
        if (!std::exchange(seen, true)) {
            const std::string words = "The port has gone. Check the cable; logging goes on when it is back.";
            for (const char* title : {"First", "Second", "Third", "Fourth"})
                screen.notices().show(title, words, Icon::critical, "06:29");
            expectFits(screen, "in a run");
        }
        truck.desktop->acquisition().stop();
    });
    EXPECT_TRUE(seen);
    truck.p().commands.toolClick("MB-Notes");
    expectFits(screen, "after a run, with the notes");
    truck.p().modes.Utilities_setprogrammode("REVIEW");
    ASSERT_TRUE(truck.desktop->review().open(truck.runFile("DH-1_K240_01.kvx")));
    expectFits(screen, "in review, with the notes");
    if (::testing::Test::HasFailure()) {
        for (QWidget* w : screen.findChildren<QWidget*>())
            if (w->isVisible() && (w->minimumSizeHint().height() > 250 || w->minimumSizeHint().width() > 400 || w->minimumHeight() > 250 || w->minimumWidth()>400))
                std::cout << w->metaObject()->className() << " " << w->objectName().toStdString() << " " << w->minimumSizeHint().width() << "x" << w->minimumSizeHint().height() << " min " << w->minimumWidth() << "x" << w->minimumHeight() << "\n";
    }
}

} // namespace tarvik::test
