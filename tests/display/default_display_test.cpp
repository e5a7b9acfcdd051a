#include "display/bullseye.h"
#include "display/default_display.h"
#include "display_logs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarvik {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> names(const Track& track) {
    std::vector<std::string> all;
    for (const LogCurve& curve : track.curves) all.push_back(curve.channel);
    return all;
}

DisplayChannel channel(std::string name, std::string unit, ScalePair scale = {}, bool calibrated = true) {
    return {std::move(name), std::move(unit), calibrated, scale, {}};
}

TEST(DefaultDisplay, SortsChannelsIntoTracksAsLogsAreRead) {
    const std::vector<DisplayChannel> channels{
        channel("Speed", "M/min", {0, 30}),       channel("Res 16 inch", "OHM-M", {0, 1000}),
        channel("Gamma", "API", {0, 300}),        channel("Long density", "G/CC", {1, 3}),
        channel("Short density", "G/CC", {1, 3}), channel("Caliper", "MM", {50, 250})};
    const LogDisplay display = defaultDisplay(channels, DepthUnits::feet, lightScheme());
    ASSERT_EQ(display.tracks.size(), 3U);
    EXPECT_THAT(names(display.tracks[0]), ElementsAre("Gamma", "Caliper"));
    EXPECT_THAT(names(display.tracks[1]), ElementsAre("Res 16 inch"));
    EXPECT_THAT(names(display.tracks[2]), ElementsAre("Long density", "Short density"));
    EXPECT_EQ(display.depthPlace, 1U);
    EXPECT_EQ(display.depthTrack.numbers, DepthNumbers::feet);
    EXPECT_EQ(display.tracks[1].grid, ScaleKind::logarithmic);
    EXPECT_EQ(display.tracks[1].curves[0].scale, (CurveScale{ScaleKind::logarithmic, 1, 1000}));
    EXPECT_EQ(display.tracks[0].curves[0].scale, (CurveScale{ScaleKind::linear, 0, 300}));
}

TEST(DefaultDisplay, TakesCustomaryThenRoundScalesWhereNoneIsRecorded) {
    const std::vector<float> values{12, noValue(), 88};
    const std::vector<DisplayChannel> channels{channel("GR", "GAPI"),
                                               channel("ILD", "OHMM"),
                                               {"Odd", "X", true, {}, values},
                                               {"GR raw", "", false, {}, values}};
    const LogDisplay display = defaultDisplay(channels, DepthUnits::metres, lightScheme());
    EXPECT_EQ(display.tracks[0].curves[0].scale, (CurveScale{ScaleKind::linear, 0, 150}));
    EXPECT_EQ(display.tracks[0].curves[1].scale, (CurveScale{ScaleKind::linear, 0, 100}))
        << "counts have no custom";
    EXPECT_EQ(display.tracks[1].curves[0].scale, (CurveScale{ScaleKind::logarithmic, 0.2, 2000}));
    EXPECT_EQ(display.tracks[2].curves[0].scale, (CurveScale{ScaleKind::linear, 0, 100}));
}

TEST(DefaultDisplay, RoundScalesHoldTheValues) {
    for (const auto& values : std::vector<std::vector<float>>{
             {3.2F, 88}, {-0.004F, 0.013F}, {5, 5}, {0, 0}, {-9000, -8000}, {-7, -7}, {noValue()}, {}}) {
        const ScalePair scale = roundScale(values);
        EXPECT_LT(scale.left, scale.right);
        for (const float value : values) {
            if (isNoValue(value)) continue;
            EXPECT_LE(scale.left, value);
            EXPECT_GE(scale.right, value);
            EXPECT_TRUE(values.front() != values.back() || value == 0 || scale.left < value);
        }
    }
    const ScalePair huge = roundScale(std::vector<float>{3e38F, 3e38F});
    EXPECT_TRUE(isUsable({ScaleKind::linear, huge.left, huge.right}));
}

/// A file in other units than the custom's.
TEST(DefaultDisplay, LeavesACustomThatTheValuesDoNotFit) {
    const std::vector<float> kilograms{1950, 2650, 2710};
    const std::vector<float> percent{0, 21, 45};
    const std::vector<float> milliohms{4000, 250000};
    const LogDisplay display =
        defaultDisplay(std::vector<DisplayChannel>{{"RHOB", "KG/M3", true, {}, kilograms},
                                                   {"NPHI", "%", true, {}, percent},
                                                   {"RT", "MOHM-M", true, {}, milliohms}},
                       DepthUnits::metres, lightScheme());
    EXPECT_EQ(display.tracks[0].curves[0].scale, (CurveScale{ScaleKind::logarithmic, 1000, 1e6}));
    EXPECT_GE(display.tracks[1].curves[0].scale.right, 2710);
    const CurveScale porosity = display.tracks[1].curves[1].scale;
    EXPECT_EQ(porosity.right, 0) << "still from right to left";
    EXPECT_GE(porosity.left, 45);
}

TEST(DefaultDisplay, NoTwoCurvesOfATrackLookAlike) {
    std::vector<DisplayChannel> channels;
    for (int i = 1; i <= 20; ++i)
        channels.push_back(channel("Channel " + std::to_string(i), "CPS", {0, 100}));
    const LogDisplay display = defaultDisplay(channels, DepthUnits::metres, lightScheme());
    EXPECT_EQ(display.tracks.size(), 5U);
    for (const Track& track : display.tracks) {
        ASSERT_EQ(track.curves.size(), 4U);
        for (std::size_t i = 1; i < 4; ++i) {
            EXPECT_NE(track.curves[i].style.ink, track.curves[i - 1].style.ink);
            EXPECT_NE(track.curves[i].style.line, track.curves[i - 1].style.line);
        }
    }
}

/// As the usual open-hole LAS file names and measures them.
TEST(DefaultDisplay, AUsualSuiteNeedsNoHandAtIt) {
    ReviewLog log =
        samples::logOf(100, 0.1, {"GR", "CALI", "BS", "ILD", "SFLU", "RHOB", "PEF", "DRHO", "DT"});
    const auto make = [&](std::size_t channel, const char* unit, float least, float most) {
        log.channels[channel].unit = unit;
        for (std::size_t i = 0; i < 100; ++i)
            log.channels[channel].values[i] = least + (most - least) * static_cast<float>(i) / 99;
    };
    make(0, "CPS", 100, 700); // a few of them lie on 0 to 150
    make(1, "IN", 8, 9.5F);
    make(2, "IN", 8.5F, 8.5F);
    make(3, "OHMM", 2, 200);
    make(4, "OHMM", 1, 100);
    make(5, "G/C3", 2.2F, 2.7F);
    make(6, "B/E", 2, 5);
    make(7, "G/C3", -0.05F, 0.1F);
    make(8, "US/F", 84, 104);
    const LogDisplay display = defaultDisplay(log, paperScheme());
    const auto trackOf = [&](const char* name) {
        const auto has = [&](const Track& track) {
            return std::ranges::find(track.curves, name, &LogCurve::channel) != track.curves.end();
        };
        return std::ranges::find_if(display.tracks, has) - display.tracks.begin();
    };
    const auto scaleOf = [&](const char* name) {
        return std::ranges::find(display.tracks[static_cast<std::size_t>(trackOf(name))].curves, name,
                                 &LogCurve::channel)
            ->scale;
    };
    EXPECT_GE(scaleOf("GR").right, 700);
    EXPECT_EQ(trackOf("CALI"), trackOf("BS"));
    EXPECT_EQ(scaleOf("CALI"), scaleOf("BS")) << "washed out or not is seen at a glance";
    EXPECT_EQ(trackOf("ILD"), trackOf("SFLU"));
    EXPECT_EQ(scaleOf("SFLU").kind, ScaleKind::logarithmic);
    EXPECT_EQ(trackOf("RHOB"), trackOf("PEF"));
    EXPECT_EQ(trackOf("RHOB"), trackOf("DRHO"));
    EXPECT_EQ(scaleOf("DT").left, 140);
}

TEST(DefaultDisplay, CountsGetTheScaleOfCountsAndMarksComeFromTheHole) {
    ReviewLog log = samples::logOf(3, 1, {"Gamma"}, DepthUnits::feet);
    log.channels[0].calibrated = false;
    log.header.channels = {{"Gamma", "API", {0, 5000}, {0, 300}, {}}};
    log.header.hole.casingDepth = "10 ft";
    log.header.hole.fluidLevel = "dry";
    const LogDisplay display = defaultDisplay(log, paperScheme());
    EXPECT_EQ(display.tracks[0].curves[0].scale.right, 5000);
    ASSERT_EQ(display.marks.size(), 1U);
    EXPECT_NEAR(display.marks[0].depth, 3.048, 1e-9);
    // What is written with the number holds, whatever the run is in.
    for (const auto& [text, metres] : {std::pair("12.5 m", 12.5),
                                       {"12,5m", 12.5},
                                       {"10", 3.048},
                                       {"41ft.", 12.4968},
                                       {"20 mm pipe", 6.096}}) {
        log.header.hole.casingDepth = text;
        EXPECT_NEAR(defaultDisplay(log, paperScheme()).marks.at(0).depth, metres, 1e-9) << text;
    }
    log.header.hole.casingDepth = "1,200 ft";
    EXPECT_TRUE(defaultDisplay(log, paperScheme()).marks.empty()) << "1.2 or 1200?";
}

TEST(EquallySpaced, GivesEachShownCurveATrackAndKeepsTheDepthsBetweenThem) {
    LogDisplay display = samples::displayOf(
        {{samples::curveOf("A", 0, 1), samples::curveOf("B", 0, 1)}, {samples::curveOf("C", 0, 1)}});
    display.tracks[0].curves[0].shown = false;
    display.tracks[0].curves.push_back(samples::curveOf("D", 0, 1));
    const LogDisplay spaced = equallySpaced(display);
    ASSERT_EQ(spaced.tracks.size(), 3U);
    EXPECT_EQ(spaced.depthPlace, 2U);
    EXPECT_EQ(spaced.tracks[2].curves[0].channel, "C");
}

TEST(DeviationDisplays, ShareTheChannelsOut) {
    std::vector<DisplayChannel> channels;
    for (const char* name : {"Mag X", "Mag Y", "Mag Z", "Acc X", "Azimuth", "Inclination", "Total field",
                             "East", "North", "Distance"}) {
        channels.push_back(channel(name, "", {0, 1}));
    }
    const LogDisplay all = defaultDisplay(channels, DepthUnits::metres, lightScheme());
    const LogDisplay magnetics = deviationDisplay(all, "Magnetics");
    ASSERT_EQ(magnetics.tracks.size(), 2U);
    EXPECT_THAT(names(magnetics.tracks[0]), ElementsAre("Mag X", "Mag Y", "Mag Z", "Total field"));
    const LogDisplay deviation = deviationDisplay(all, "Deviation");
    ASSERT_EQ(deviation.tracks.size(), 2U);
    EXPECT_THAT(names(deviation.tracks[0]), ElementsAre("Azimuth", "Inclination"));
    EXPECT_EQ(deviation.tracks[0].curves[0].style.line, LineKind::points);
    EXPECT_THAT(names(deviation.tracks[1]), ElementsAre("East", "North", "Distance"));
    EXPECT_EQ(deviationDisplay(all, "Bullseye").tracks.size(), all.tracks.size());
}

} // namespace
} // namespace tarvik
