#include "base/failure.h"
#include "display/bullseye.h"
#include "display/display_history.h"
#include "display/display_template.h"
#include "display/gauges.h"
#include "display/live_log.h"
#include "display/log_heading.h"
#include "display/page_plan.h"
#include "display/review_tools.h"
#include "display/tool_scales.h"
#include "display_logs.h"
#include "equipment/equipment_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvik {
namespace {

using samples::curveOf;
using samples::displayOf;
using samples::logOf;
using ::testing::HasSubstr;

LogDisplay everyKind() {
    LogDisplay display =
        displayOf({{curveOf("Gamma", 0, 150)}, {curveOf("Res", 0.2, 2000), curveOf("P = Q", 3, 1)}});
    LogCurve& first = display.tracks[0].curves[0];
    first.style = {Ink::black, Colour{1, 171, 255}, LineKind::dashDot, 0.45, FillKind::base};
    first.base = 75.5;
    first.offScale = OffScale::cut;
    first.filter = "15";
    first.shown = false;
    display.tracks[1].grid = ScaleKind::logarithmic;
    display.tracks[1].curves[0].scale.kind = ScaleKind::logarithmic;
    display.tracks[1].curves[1].style.ink = Ink::purple;
    display.tracks[1].width = 42.5;
    display.depthPlace = 2;
    display.depthTrack = {20, DepthNumbers::both, false};
    return display;
}

TEST(Templates, ReadBackAsTheyWereWritten) {
    const LogDisplay display = everyKind();
    const LogDisplay read = displayFromTemplate(templateText(display), darkScheme(), "a.tpr");
    EXPECT_EQ(read.tracks, display.tracks);
    EXPECT_EQ(read.depthTrack, display.depthTrack);
    EXPECT_EQ(read.depthPlace, 2U);
    EXPECT_EQ(read.scheme.name, "dark");
}

TEST(Templates, SayTheLineThatCannotBeRead) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "has no [track]"},
        {"[display]\r\ndepth_numbers = miles\r\n",
         "t, line 2: depth_numbers = miles; expected is one of metres feet both"},
        {"width = 3", "line 1: width = 3; expected is [display] before the first key"},
        {"[curve]", "line 1: [curve]"},
        {"[track]\n# wide\nwidth = 1e9", "line 3: width = 1e9; expected is a number from 5 to 1000"},
        {"[track]\n[curve]\ncolour = #12345g", "line 3: colour = #12345g"},
        {"[track]\n[curve]\ncolour =", "line 3: colour"},
        {"[track]\n[curve]\nleft = nan", "line 3: left = nan"},
        {"[track]\n[curve]\nchannel = Res\nscale = logarithmic\nleft = 0",
         "t, line 2: the scale of \"Res\" has equal ends"},
        {"[track]\n[curve]\nfilter = 0", "line 3: filter = 0; expected is None, or a whole number"},
        {"[track]\ndivisions = 2.7", "line 2: divisions = 2.7; expected is a whole number from 1 to 100"},
        {"[trackx", "line 1: [trackx; expected is [display], [track] or [curve]"},
        {"[track]\nwidth", "line 2: width; expected is key = value"},
        {"[track]\ncolour = red", "line 2: colour = red; expected is another key of a track"},
    };
    for (const auto& [text, said] : cases) {
        try {
            std::ignore = displayFromTemplate(text, lightScheme(), "t");
            ADD_FAILURE() << text;
        } catch (const Failure& failure) {
            EXPECT_THAT(failure.what(), HasSubstr(said));
        }
    }
}

TEST(Pages, CarryTheWholeLogAtItsScaleWithTheOverlapTwice) {
    for (const char* name : {"A4", "A3", "Letter", "Continuous"}) {
        for (const double metres : {0.5, 40.0, 613.7, 3000.0}) {
            for (const double heading : {0.0, 95.0, 200.0}) {
                const PagePlan plan = planPages({*paperNamed(name), heading, 27.5, 100, 100 + metres, 0.2});
                double reached = 100;
                for (const PlannedPage& page : plan.pages) {
                    if (page.bodyHeight == 0) continue;
                    EXPECT_NEAR(page.top + page.repeated * 0.2, reached, 1e-6);
                    reached = page.top + page.bodyHeight * 0.2;
                    EXPECT_LE(page.bodyTop + page.bodyHeight, plan.height - plan.margin + 1e-6);
                }
                EXPECT_NEAR(reached, 100 + metres, 1e-6) << name << ", " << metres << " m";
            }
        }
    }
}

TEST(LiveLogs, KeepTheLatestPointsInOnePieceAndTellWhatIsNew) {
    RunHeader header;
    header.channels = {{"Speed", "M/min", {}, {}, {}}, {"Gamma", "API", {}, {}, {}}};
    LiveLog live;
    live.begin(header);
    AcquisitionRing ring;
    CurrentScan scan;
    const auto add = [&](double seconds) { ring.add({scan.depth, seconds, scan.calibrated}); };
    EXPECT_FALSE(live.changed(Axis::depth));
    for (int i = 0; i < 7000; ++i) {
        scan.depth = static_cast<float>(i) * 0.5F;
        scan.calibrated[1] = static_cast<float>(i);
        add(i);
        if (i % 3 != 0) continue;
        live.follow(ring);
        const LogData data = live.data();
        ASSERT_EQ(data.steps(), std::min<std::size_t>(static_cast<std::size_t>(i) + 1, 2000));
        ASSERT_EQ(data.find("Gamma")->values.back(), static_cast<float>(i));
        ASSERT_EQ(data.find("Gamma")->values.front(), static_cast<float>(data.firstStep));
    }
    const auto changed = live.changed(Axis::time);
    ASSERT_TRUE(changed);
    EXPECT_EQ(changed->top, 6996) << "from the last point that was there before";
    EXPECT_EQ(changed->bottom, 6999);
    EXPECT_EQ(live.data().find("Speed")->values.back(), 30);
    for (int i = 0; i < 5000; ++i) add(i); // more than it holds between two looks
    EXPECT_EQ(live.follow(ring), 2000U);
    ring.clear();
    add(1);
    EXPECT_EQ(live.follow(ring), 1U);
    EXPECT_EQ(live.steps(), 1U);
}

TEST(LiveLogs, ThePictureFollowsTheToolWithRoomAhead) {
    DisplayView view = viewAtScale(200, 254);
    view.top = 100;
    EXPECT_EQ(followShift(view, 1000, view.positionAt(999), false), 0);
    EXPECT_EQ(followShift(view, 1000, view.positionAt(1010), false), 210);
    EXPECT_EQ(followShift(view, 1000, view.positionAt(-10), true), -210);
}

TEST(Review, ZoomsAboutThePointerAndStaysOnTheLog) {
    const ReviewLog log = logOf(101, 1, {"Gamma"}, DepthUnits::feet);
    const LogData data = logDataOf(log);
    DisplayView view = viewAtScale(100, 96);
    view.top = 10;
    const DisplayView near = zoomed(view, 2, 300);
    EXPECT_NEAR(near.positionAt(300), view.positionAt(300), 1e-9);
    EXPECT_NEAR(near.perMillimetre, 0.05, 1e-12);
    EXPECT_NEAR(jumpedTo(view, 20, 600).yOf(20), 200, 1e-9);
    EXPECT_NEAR(heldInside(scrolled(view, -1e6), data, 500).top, -0.2, 1e-9);
    EXPECT_NEAR(heldInside(scrolled(view, 1e6), data, 500).positionAt(500), 30.68, 1e-9);
    EXPECT_NEAR(showingAll(view, data, 500).positionAt(500), 30.48, 1e-9);
    DisplayView closest = view;
    for (int i = 0; i < 300; ++i) closest = heldInside(zoomed(closest, 1.25, 300), data, 500);
    EXPECT_EQ(closest.perMillimetre, 0.001);
    EXPECT_NEAR(closest.positionAt(300), view.positionAt(300), 1e-9) << "the place stays at the limit too";
    DisplayView furthest = view;
    for (int i = 0; i < 300; ++i) furthest = heldInside(zoomed(furthest, 0.8, 300), data, 500);
    EXPECT_EQ(furthest.perMillimetre, 1);
    const Extent seen = visibleInterval(showingAll(view, data, 500), extentOf(data, Axis::depth), 250);
    EXPECT_NEAR(seen.to, 15.24, 1e-9);
}

TEST(Review, ReadsAllCurvesAtTheNearestStepAndSaysGaps) {
    ReviewLog log = logOf(50, 0.1, {"Gamma", "Caliper"});
    log.channels[0].values[20] = 77;
    log.channels[1].values[20] = noValue();
    const LogDisplay display =
        displayOf({{curveOf("Gamma", 0, 150), curveOf("Caliper", 0, 9), curveOf("None", 0, 1)}});
    const auto reading = readingsAt(display, logDataOf(log), Axis::depth, 2.04);
    ASSERT_TRUE(reading);
    EXPECT_NEAR(reading->depth, 2.0, 1e-9);
    EXPECT_EQ(reading->time, 10);
    ASSERT_EQ(reading->curves.size(), 3U);
    EXPECT_EQ(reading->curves[0].value, 77);
    EXPECT_FALSE(reading->curves[1].value);
    EXPECT_FALSE(reading->curves[2].value);
    const auto below = readingsAt(display, logDataOf(log), Axis::depth, 40);
    EXPECT_EQ(below->depth, 40) << "far below the log the depth is that of the pointer";
    EXPECT_FALSE(below->curves[0].value);
    ReviewLog single = logOf(1, 1, {"Gamma"});
    EXPECT_FALSE(readingsAt(display, logDataOf(single), Axis::depth, 5)->curves[0].value);
    EXPECT_TRUE(readingsAt(display, logDataOf(single), Axis::depth, 0.2)->curves[0].value);
    const LogData whole = logDataOf(log);
    const Extent logged = loggedWithin(whole, {0.97, 1.93}); // rows every 0.1 m
    EXPECT_NEAR(logged.from, 1.0, 1e-9);
    EXPECT_NEAR(logged.to, 1.9, 1e-9);
    const Extent timed = depthsBetween(whole, {4.8, 10.1}); // two rows a second
    EXPECT_NEAR(timed.from, 1.0, 1e-9);
    EXPECT_NEAR(timed.to, 2.0, 1e-9);
    EXPECT_TRUE(readingsAt(display, logDataOf(log), Axis::time, 10));
}

TEST(Review, ChangesOfTheDisplayAreUndone) {
    DisplayHistory history(displayOf({{curveOf("A", 0, 1)}}));
    history.undo();
    for (int i = 2; i < 150; ++i) history.change(displayOf({{curveOf("A", 0, i)}}));
    const auto right = [&] { return history.current().tracks[0].curves[0].scale.right; };
    history.undo();
    history.undo();
    EXPECT_EQ(right(), 147);
    history.redo();
    EXPECT_EQ(right(), 148);
    history.change(displayOf({{curveOf("A", 0, 7)}}));
    EXPECT_FALSE(history.canRedo());
    history.undo();
    EXPECT_EQ(right(), 148);
    while (history.canUndo()) history.undo();
    EXPECT_GT(right(), 1) << "the oldest are forgotten";
}

class ToolScales : public EquipmentBench {};

TEST_F(ToolScales, AreKeptWithTheTool) {
    putUser();
    data.ToolWinchData_loadcurrentttoolwinch({"K201", "G-2"}, {"W240", ""}, 1);
    LogCurve curve = curveOf("Caliper", 40, 120);
    EXPECT_TRUE(keepToolScale(data, curve));
    curve.calibrated = false;
    curve.scale.left = -5;
    EXPECT_TRUE(keepToolScale(data, curve));
    EXPECT_FALSE(keepToolScale(data, curveOf("Density", 0, 1)));
    const ToolRecord kept = stored(user).tools[1];
    EXPECT_EQ(kept.get(tool::calibratedLeft(1, 2)), 40);
    EXPECT_EQ(kept.get(tool::calibratedRight(1, 2)), 120);
    EXPECT_EQ(kept.get(tool::uncalibratedLeft(1, 2)), -5);
    EXPECT_EQ(stored(user).tools[0].get(tool::calibratedRight(1, 2)), 0) << "the other tool of that model";
}

TEST(Bullseyes, HoldTheWholeWayWithinRoundRings) {
    struct Case {
        float east, north;
        double step;
        int rings;
    };
    for (const Case& each :
         {Case{0.41F, -6.62F, 2, 4}, Case{0, 0, 0.1, 3}, Case{30, 40, 10, 5}, Case{0.5F, 0, 0.1, 5}}) {
        ReviewLog log = logOf(3, 1, {"East", "North", "Azimuth"});
        log.header.setup.sampling = Sampling::depth;
        log.channels[0].values = {0, noValue(), each.east};
        log.channels[1].values = {0, 1, each.north};
        const Bullseye plan = bullseyeOf(logDataOf(log));
        EXPECT_DOUBLE_EQ(plan.ringStep, each.step) << each.east;
        EXPECT_EQ(plan.rings, each.rings) << each.east;
        ASSERT_TRUE(plan.current);
        EXPECT_EQ(plan.current->north, each.north);
    }
    EXPECT_FALSE(bullseyeOf(logDataOf(logOf(3, 1, {"Gamma"}))).current);
    ReviewLog byTime = logOf(3, 1, {"East", "North"});
    byTime.header.setup.sampling = Sampling::time;
    const Bullseye plan = bullseyeOf(logDataOf(byTime));
    EXPECT_TRUE(!plan.summed && !plan.current) << "its zeros are no way";
}

TEST(Gauges, ShowTheLatestValueAndSayWhenItIsBeyondTheScale) {
    ReviewLog log = logOf(2, 1, {"Chamber", "Piston", "Fluid temp"});
    log.channels[0].values = {1, 25000};
    log.channels[1].values = {1, 40};
    log.channels[2].values = {1, noValue()};
    const LogDisplay display =
        displayOf({{curveOf("Chamber", 0, 20000), curveOf("Piston", 0, 100), curveOf("Fluid temp", 0, 1)}});
    const auto gauges = gaugesOf(display, logDataOf(log));
    ASSERT_EQ(gauges.size(), 3U);
    EXPECT_TRUE(gauges[0].offScale());
    EXPECT_EQ(gauges[0].fraction(), 1);
    EXPECT_EQ(gaugeText(gauges[0]), "25000");
    EXPECT_EQ(gauges[1].kind, GaugeKind::chamber);
    EXPECT_EQ(gaugeText(gauges[1]), "40.0");
    EXPECT_EQ(gaugeText(gauges[2]), "\u2013");
    EXPECT_TRUE(hasGauges("K307"));
    EXPECT_FALSE(hasGauges("K333"));
}

TEST(Headings, SayWhatIsNotCalibratedAndWhatWasLeftOut) {
    ReviewLog log = logOf(3, 1, {"Gamma", "Caliper"});
    log.header.channels = {{"Gamma", "API", {}, {}, {}}, {"Caliper", "MM", {}, {}, {}}};
    log.header.channels[1].calibration.state = "Calibrated";
    log.header.channels[1].calibration.coefficients = {150, 0.0666666666};
    log.skippedScans = 3;
    const LogHeading heading =
        headingOf(log, displayOf({{curveOf("Gamma", 0, 1), curveOf("Caliper", 0, 1)}}));
    ASSERT_EQ(heading.calibrations.size(), 2U);
    EXPECT_EQ(heading.calibrations[0][1], "not calibrated");
    EXPECT_EQ(heading.calibrations[1][5], "150   0.066667");
    EXPECT_THAT(heading.remarks.back(), HasSubstr("3 scans without a valid depth"));
    EXPECT_EQ(heading.title, "Gamma, Caliper");
}

} // namespace
} // namespace tarvik
