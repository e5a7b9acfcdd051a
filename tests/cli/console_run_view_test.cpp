#include "cli/console_run_view.h"
#include "platform/virtual_clock.h"

#include <gtest/gtest.h>
#include <sstream>

namespace tarvik {
namespace {

KeptScanView scan(long number, double depth) {
    KeptScanView kept;
    kept.number = number;
    kept.depth = depth;
    return kept;
}

class RunAtTheConsole : public testing::Test {
  protected:
    ConsoleRunView view(const RunEnds& ends, bool recording = true) {
        return {clock, signals, ends, RunChoice::newRun, recording, lines};
    }
    void start(ConsoleRunView& view, Direction direction = Direction::down) {
        RunHeader header;
        header.tool.name = "Gamma";
        header.setup.direction = direction;
        header.setup.sampling = Sampling::depth;
        view.runStarted(header, "/p/H_K201_01.kvx");
    }
    std::string shown() {
        std::string text = out.str();
        out.str("");
        return text;
    }

    VirtualClock clock;
    StopSignals signals;
    std::ostringstream out;
    ConsoleLines lines{out, 0};
};

TEST_F(RunAtTheConsole, ProgressTellsOnlyWhatIsKnown) {
    ConsoleRunView run = view({});
    run.LCU_ShowLoggingProgress({});
    EXPECT_EQ(shown(), "");
    start(run);
    EXPECT_EQ(shown(), "Logging with Gamma to H_K201_01.kvx\n");
    run.LCU_ShowLoggingProgress({.elapsedMinutes = 59.9 / 60});
    EXPECT_EQ(shown(), " Elapsed logging time 0 mins (59 s), 0 scans kept Time to completion unknown\n");

    run.LCU_ShowLCUCurrent(120.6F, 0);
    run.scanKept(scan(1, 12.345));
    run.LCU_ShowLoggingProgress({.elapsedMinutes = 1, .ended = true, .endTime = clock.now()});
    EXPECT_EQ(shown(), " Elapsed logging time 1 mins, 1 scan kept, depth 12.35 Metres, 121 mA"
                       " Completed 1 mins at 09:00\n");
}

TEST_F(RunAtTheConsole, EndsAtTheNamedScanDepthOrSecondAndNotBefore) {
    struct Case {
        RunEnds ends;
        Direction direction;
        KeptScanView before, at;
    };
    for (const Case& each : {Case{{3, {}, {}}, Direction::down, scan(2, 1), scan(3, 1)},
                             Case{{{}, {}, 10}, Direction::down, scan(1, 9.99), scan(2, 10)},
                             Case{{{}, {}, 10}, Direction::up, scan(1, 10.01), scan(2, 10)}}) {
        ConsoleRunView run = view(each.ends);
        start(run, each.direction);
        run.scanKept(each.before);
        EXPECT_FALSE(run.stopRequested());
        run.scanKept(each.at);
        EXPECT_TRUE(run.stopRequested());
    }
    ConsoleRunView timed = view({{}, 1.5, {}});
    clock.advanceMs(5000); // the preparation does not count
    EXPECT_FALSE(timed.stopRequested());
    start(timed);
    clock.advanceMs(1499);
    EXPECT_FALSE(timed.stopRequested());
    clock.advanceMs(1);
    EXPECT_TRUE(timed.stopRequested());
}

TEST_F(RunAtTheConsole, WithoutRecordingNoFileIsPromised) {
    ConsoleRunView run = view({}, false);
    start(run);
    EXPECT_EQ(shown(), "Logging with Gamma, nothing is written\n");
}

} // namespace
} // namespace tarvik
