// A run on file played as if it were being logged, on a clock that moves only while the playback sleeps.
#include "lcu/run_playback.h"

#include "files/run_files.h"
#include "lcu/lcu_bench.h"

#include <gtest/gtest.h>

namespace tarvik::test {
namespace {

/// What the playback shows, and when.
class Watcher final : public RunView {
  public:
    explicit Watcher(const VirtualClock& clock) : clock_(clock) {}
    RunChoice chooseRun(const LoggingRuns&, const std::optional<DepthRange>&) override {
        return RunChoice::cancel;
    }
    bool stopRequested() override { return stop; }
    bool recording() override { return true; }
    void setRecording(bool) override { recordingTouched = true; }
    void setEnabled(bool on) override { enabled = on; }
    void toolButton(std::string_view key, std::string_view, bool on) override {
        if (on) buttons.emplace_back(key);
    }
    void winchPrompt(std::string_view first, std::string_view) override { prompt = first; }
    void runStarted(const RunHeader& header, const Path& file) override {
        started = header.tool.code + "|" + file.string();
    }
    void LCU_ShowLCUCurrent(float milliamps, std::optional<float>) override { current = milliamps; }
    void LCU_ShowDepthSpeed(double depth, double speed) override { depthSpeed = {depth, speed}; }
    void LCU_ShowLoggingProgress(const RunProgress& now) override { progress = now; }
    void scanKept(const KeptScanView& scan) override {
        at.push_back(clock_.tickMs());
        depths.push_back(scan.depth);
        values.push_back(scan.scan->calibrated[1]);
        if (scanShown) scanShown(scan.number);
    }
    void keepingState(KeepingState state, std::string_view) override { keeping = state; }
    void runEnded(const Path& file, long scans) override { ended = file.string() + std::to_string(scans); }

    bool stop = false, enabled = true, recordingTouched = false;
    std::function<void(long)> scanShown;
    std::string prompt = "none", started, ended;
    std::vector<std::string> buttons;
    float current = 0;
    std::pair<double, double> depthSpeed;
    RunProgress progress;
    KeepingState keeping = KeepingState::kept;
    std::vector<std::int64_t> at;
    std::vector<double> depths;
    std::vector<float> values;

  private:
    const VirtualClock& clock_;
};

/// A run of ten seconds, twenty-one scans half a second apart, 6 a minute.
struct Cinema : tarvik::testing::RunFiles {
    explicit Cinema(RunHeader header = tarvik::testing::runHeader(), double firstDepth = 50,
                    double step = 0.05) {
        writer.LCU_SetupFileHeader(file, header);
        for (int i = 0; i < 21; ++i) {
            const float measured[]{static_cast<float>(i), -2.25F};
            writer.LCU_SaveScan({.depth = firstDepth + i * step,
                                 .scanTime = 5000,
                                 .speed = 6,
                                 .channels = measured,
                                 .toolCurrent = 48,
                                 .toolVoltage = 62,
                                 .magneticMarker = 0});
        }
    }
    RunResult play(PlaybackPace pace = PlaybackPace::original) {
        playback.setPace(pace);
        return playback.comstartlogging(file);
    }

    const Path& file = tarvik::testing::runFile;
    Watcher view{clock};
    Operator operatorSide;
    ProgramState state;
    LinkState link;
    int sleeps = 0;
    std::function<void()> whileAsleep;
    RunPlayback playback{{trap, log, operatorSide, view, state, link, clock, files, reader, [this](int ms) {
                              ++sleeps;
                              clock.advanceMs(ms);
                              if (whileAsleep) whileAsleep();
                          }}};
};

} // namespace

TEST(RunPlaybackTest, EveryScanComesInItsTimeAtEveryPace) {
    const struct {
        PlaybackPace pace;
        std::int64_t lastAtMs;
    } rows[]{{PlaybackPace::original, 10'000},
             {PlaybackPace::twice, 5000},
             {PlaybackPace::tenfold, 1000},
             {PlaybackPace::fastest, 0}};
    for (const auto& row : rows) {
        Cinema cinema;
        EXPECT_EQ(cinema.play(row.pace), RunResult::finished);
        ASSERT_EQ(cinema.view.at.size(), 21U);
        for (int i = 0; i < 21; ++i) {
            const std::int64_t at = cinema.view.at[static_cast<std::size_t>(i)];
            EXPECT_LE(std::abs(at - row.lastAtMs * i / 20), 1) << i;
        }
        EXPECT_EQ(cinema.view.values.back(), 20);
        EXPECT_EQ(cinema.playback.state().ring.kept(), 21U);
        EXPECT_NEAR(cinema.playback.state().ring.fromOldest(20).seconds, 10, 1e-9);
    }
}

TEST(RunPlaybackTest, ItShowsWhatALoggingRunShowsAndWritesNothing) {
    Cinema cinema;
    const Bytes before = cinema.files.read(cinema.file);
    bool lockedMeanwhile = false;
    cinema.view.scanShown = [&](long) {
        lockedMeanwhile = cinema.state.logging && cinema.link.acquiring && !cinema.view.enabled &&
                          cinema.view.prompt.empty();
    };
    cinema.play();
    EXPECT_TRUE(lockedMeanwhile);
    EXPECT_FALSE(cinema.state.logging || cinema.link.acquiring);
    EXPECT_TRUE(cinema.view.enabled);
    EXPECT_EQ(cinema.view.started, "K101|");
    EXPECT_EQ(cinema.view.keeping, KeepingState::notRecording);
    EXPECT_EQ(cinema.view.current, 48);
    EXPECT_NEAR(cinema.view.depthSpeed.first, 51, 1e-6);
    EXPECT_NEAR(cinema.view.depthSpeed.second, 6, 1e-6);
    EXPECT_TRUE(cinema.view.progress.ended);
    EXPECT_EQ(cinema.view.ended, "0");
    EXPECT_FALSE(cinema.view.recordingTouched) << "the switch belongs to the next real run";

    EXPECT_EQ(cinema.files.read(cinema.file), before);
    EXPECT_EQ(cinema.files.list("project").size(), 1U) << "neither notes nor backup";
    ASSERT_GE(cinema.viewer.lines.size(), 8U);
    EXPECT_EQ(cinema.viewer.lines[0].substr(8), "  \\b\\1============ DEMO logging run ============");
    EXPECT_EQ(cinema.viewer.lines[2].substr(8), "  \\b\\2NOTE : Data NOT saved to file");
    EXPECT_EQ(cinema.viewer.lines.back().substr(8),
              "  \\b\\1Demonstration finished - time elapsed 0.2 mins, 21 scans shown");
}

TEST(RunPlaybackTest, AnUpRunInFeetStartsAtTheBottom) {
    RunHeader header = tarvik::testing::runHeader(2, DepthUnits::feet);
    header.setup.direction = Direction::up;
    header.tool.code = "K417";
    Cinema cinema(header, 50, -0.05);
    cinema.play(PlaybackPace::fastest);
    EXPECT_NEAR(cinema.view.depths.front(), 50, 1e-3) << "metres";
    EXPECT_NEAR(cinema.view.depths.back(), 49, 1e-3);
    EXPECT_EQ(cinema.view.values.front(), 0) << "in the order of logging";
    EXPECT_EQ(cinema.view.buttons, std::vector<std::string>{"MB-Bullseye"});
    EXPECT_NEAR(cinema.view.depthSpeed.second, 6 * 0.3048, 1e-3);
}

TEST(RunPlaybackTest, PauseHaltsItPaceChangesCountAtOnceAndStopIsHeardInAPause) {
    Cinema cinema;
    cinema.view.scanShown = [&](long number) {
        if (number == 5) cinema.playback.setPace(PlaybackPace::tenfold); // at 2 s
        if (number == 9) cinema.playback.setPaused(true);                // at 2.2 s
    };
    cinema.whileAsleep = [&] {
        if (cinema.clock.tickMs() >= 60'000) cinema.playback.setPaused(false);
    };
    cinema.play();
    EXPECT_NEAR(static_cast<double>(cinema.view.at[8]), 2200, 2);
    EXPECT_NEAR(static_cast<double>(cinema.view.at[9]), 60'050, 51);
    EXPECT_NEAR(static_cast<double>(cinema.view.at[20] - cinema.view.at[9]), 550, 2) << "no catching up";

    cinema.view.at.clear();
    cinema.view.scanShown = [&](long) { cinema.playback.setPaused(true); };
    cinema.whileAsleep = [&] { cinema.view.stop = true; };
    EXPECT_EQ(cinema.play(), RunResult::finished);
    EXPECT_EQ(cinema.view.at.size(), 1U);
    EXPECT_EQ(cinema.playback.position().scans, 21U);
}

TEST(RunPlaybackTest, AsFastAsPossibleStillLetsTheWindowLive) {
    Cinema cinema;
    cinema.files.remove(cinema.file);
    cinema.writer.LCU_SetupFileHeader(cinema.file, tarvik::testing::runHeader());
    for (int i = 0; i < 1000; ++i) cinema.save(50 + i * 0.01);
    cinema.play(PlaybackPace::fastest);
    EXPECT_EQ(cinema.view.at.size(), 1000U);
    EXPECT_EQ(cinema.sleeps, 10);
}

TEST(RunPlaybackTest, WhatIsNoRunWithScansIsSaid) {
    Cinema cinema;
    cinema.files.remove(cinema.file);
    cinema.writer.LCU_SetupFileHeader(cinema.file, tarvik::testing::runHeader());
    EXPECT_EQ(cinema.play(), RunResult::notStarted);
    cinema.files.put("project/H1.las", "~VERSION INFORMATION\n VERS. 2.0 :\n");
    EXPECT_EQ(cinema.playback.comstartlogging("project/H1.las"), RunResult::notStarted);
    cinema.files.put(cinema.file, "short");
    EXPECT_EQ(cinema.play(), RunResult::notStarted);
    EXPECT_EQ(cinema.operatorSide.shown.size(), 3U);
    EXPECT_TRUE(cinema.errors.reports.empty()) << "a file chosen by mistake is no error of the program";
    EXPECT_TRUE(cinema.view.started.empty());
}

} // namespace tarvik::test
