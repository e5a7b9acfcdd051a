// Winch, rock and hole.
#include "bench.h"
#include "simulator/downhole_tool.h"
#include "simulator/geology.h"
#include "simulator/hole_path.h"
#include "simulator/winch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace lcusim::test {

namespace {

constexpr double degrees = 180 / std::numbers::pi;

} // namespace

TEST(Winch, StartsAfterItsDelayAndStopsAtItsDepth) {
    Winch winch({.startDepth = 10, .speed = 6, .stopDepth = 10.5}, true, 1);
    winch.startAt(2 * second, 1);
    winch.advance(second);
    EXPECT_FALSE(winch.moving());
    EXPECT_EQ(winch.timeToReach(10.1), never);
    winch.advance(3 * second);
    EXPECT_NEAR(winch.depth(), 10.1, 1e-9);
    EXPECT_EQ(winch.timeToReach(10.2), 4 * second);
    EXPECT_EQ(winch.timeToReach(10.0), never) << "behind";
    EXPECT_EQ(winch.timeToReach(10.6), never) << "beyond the stop";
    winch.advance(60 * second);
    EXPECT_EQ(winch.depth(), 10.5);
    EXPECT_FALSE(winch.moving());
}

TEST(Winch, RunsUpAndStalls) {
    Winch winch({.startDepth = 10, .speed = 60}, true, 1);
    winch.startAt(0, -1);
    winch.advance(second);
    EXPECT_NEAR(winch.depth(), 9, 1e-9);
    winch.stallUntil(3 * second);
    EXPECT_EQ(winch.timeToReach(8), never);
    winch.advance(4 * second);
    EXPECT_NEAR(winch.depth(), 8, 1e-9);
}

TEST(Winch, AnUnsteadyDrumWandersWithinATenth) {
    Winch winch({.speed = 60}, false, 5);
    winch.startAt(0, 1);
    bool wandered = false;
    double before = 0;
    for (int i = 1; i <= 600; ++i) {
        winch.advance(i * second / 10);
        const double step = winch.depth() - before;
        before = winch.depth();
        EXPECT_GE(step, 0.09 - 1e-9);
        EXPECT_LE(step, 0.11 + 1e-9);
        wandered = wandered || std::abs(step - 0.1) > 0.005;
    }
    EXPECT_TRUE(wandered);
}

TEST(Geology, IsTheSameForASeedAndWithoutJumps) {
    const Geology rock(3);
    const Geology again(3);
    const Geology other(4);
    const std::size_t gamma = Geology::property("gamma", "");
    double differs = 0;
    double lowest = 1;
    double highest = 0;
    for (double depth = 20; depth < 120; depth += 0.01) {
        const double value = rock.fraction(gamma, depth);
        EXPECT_EQ(value, again.fraction(gamma, depth));
        EXPECT_LT(std::abs(value - rock.fraction(gamma, depth + 0.01)), 0.06) << depth;
        differs = std::max(differs, std::abs(value - other.fraction(gamma, depth)));
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
    }
    EXPECT_GT(differs, 0.1);
    EXPECT_LT(lowest, 0.15);
    EXPECT_GT(highest, 0.5);
}

TEST(Geology, CasingEndsAtItsShoe) {
    const Geology rock(3);
    const std::size_t resistivity = Geology::property("", "Res 8 inch resistivity");
    EXPECT_LT(rock.fraction(resistivity, rock.casingShoe() - 0.1), 0.07);
    EXPECT_GT(rock.fraction(resistivity, rock.casingShoe() + 0.1), 0.07);
}

TEST(Geology, FindsThePropertyByItsNameThenByTheChannels) {
    EXPECT_EQ(Geology::property("", "Natural GAMMA"), Geology::property("gamma", ""));
    EXPECT_EQ(Geology::property("caliper", "Natural gamma"), Geology::property("", "Caliper 1"));
    EXPECT_EQ(Geology::property("", "SP"), Geology::property("sp", "Speed"));
    EXPECT_EQ(Geology::property("no such thing", "Spare"), Geology::property("unknown", ""));
}

// The angles by the textbook: dip of the tool's axis against gravity, heading from the horizontal parts of
// the field.
TEST(HolePath, VectorsGiveBackTheDirectionOfTheHole) {
    for (std::uint64_t seed = 1; seed <= 20; ++seed) {
        const HolePath path(seed);
        for (double depth = 0; depth < 400; depth += 37) {
            const auto [m, g] = path.vectors(depth);
            const HoleDirection way = path.at(depth);
            EXPECT_NEAR(g[0] * g[0] + g[1] * g[1] + g[2] * g[2], 1, 1e-12);
            EXPECT_NEAR(std::hypot(m[0], m[1], m[2]), path.totalField(), 1e-12);
            EXPECT_NEAR(std::atan(std::hypot(g[1], g[2]) / g[0]) * degrees, way.fromVertical, 1e-9);
            const double east = g[1] * m[2] - g[2] * m[1];
            const double north = (g[1] * g[1] + g[2] * g[2]) * m[0] - m[1] * g[0] * g[1] - m[2] * g[0] * g[2];
            const double heading = std::atan2(east, north) * degrees;
            EXPECT_NEAR(heading < 0 ? heading + 360 : heading, way.azimuth, 1e-9);
        }
    }
}

TEST(HolePath, OffsetAddsUpAndReverses) {
    const HolePath path(2);
    const HoleOffset all = path.offset(0, 100);
    const HoleOffset upper = path.offset(0, 40);
    const HoleOffset lower = path.offset(40, 100);
    EXPECT_NEAR(all.east, upper.east + lower.east, 1e-6);
    EXPECT_NEAR(all.north, -path.offset(100, 0).north, 1e-9);
    EXPECT_GT(std::hypot(all.east, all.north), 3);
}

TEST(DownholeTool, DeviationToolSendsEightSignedWordsOfItsVectors) {
    DownholeTool tool(deviationTool(), 1, 9);
    ASSERT_EQ(tool.wordCount(), 8U);
    std::array<std::uint16_t, 40> words{};
    std::array<double, 40> readings{};
    tool.measure(55, 1, words, readings);
    const auto [field, gravity] = tool.holePath().vectors(55);
    for (std::size_t i = 0; i < 6; ++i) {
        const double truth = 10'000 * (i < 3 ? field[i] : gravity[i - 3]);
        EXPECT_EQ(readings[i], truth);
        EXPECT_NEAR(static_cast<std::int16_t>(words[i]), truth, 12) << i;
    }
}

TEST(DownholeTool, CountsByTheKindOfEachSensor) {
    ToolProfile profile = gammaTool();
    for (ChannelProfile& channel : profile.modes[0].channels) {
        channel.uncalibratedLeft = -700;
        channel.uncalibratedRight = -701;
    }
    profile.modes[0].channels[1].uncalibratedLeft = 2'000;
    profile.modes[0].channels[1].uncalibratedRight = 2'001;
    DownholeTool tool(profile, 1, 1);
    std::array<std::uint16_t, 40> words{};
    std::array<double, 40> readings{};
    tool.measure(30, 1, words, readings);
    EXPECT_EQ(words[0], 0) << "no pulses below nothing";
    EXPECT_NEAR(words[1], 21e6 / 2'000.5, 6) << "f21: 21,000,000 / reading";
    EXPECT_NEAR(words[2], 4096 - 700.5, 1) << "p: 12 bits with a sign";
    EXPECT_NEAR(words[3], 65536 - 700.5, 1) << "a plain level in 16 bits";
}

TEST(ToolProfile, KindsFollowTheFactorTextAndTheToolsOwnWays) {
    const auto kinds = [](std::string_view code, std::string_view text, std::size_t channels) {
        std::string letters;
        for (const CountRule& rule : countRules(code, text, channels))
            letters += "CPBL"[static_cast<std::size_t>(rule.kind)];
        return letters;
    };
    EXPECT_EQ(kinds("K100", "a1,E1,f21,J3,p,S1,k1,,pr1", 10), "CCPPBBLLCL");
    EXPECT_EQ(kinds("K100", "pr8", 3), "LLL");
    EXPECT_EQ(kinds("K100", "pr8,pr8", 2), "CC");
    EXPECT_EQ(kinds("K240", "a1", 6), "PPPPCP");
    EXPECT_EQ(kinds("K245", "k1,k1,k1,k1,k1,k1,k1", 7), "LLLLCCL");
    EXPECT_EQ(countRules("K100", "g12.5", 1)[0].factor, 12.5);
}

TEST(DownholeTool, OnlyToolsThatAreToldHowToCountTakeANewFactorText) {
    for (const auto* code : {"K551", "K201"}) {
        ToolProfile profile{.code = code};
        profile.modes[0] = {.sensorFactors = "a1", .channels = {{.name = "Level"}}};
        DownholeTool tool(profile, 1, 1);
        tool.setSensorFactors("R11");
        std::array<std::uint16_t, 40> words{};
        std::array<double, 40> readings{};
        tool.measure(30, 0, words, readings); // no time to count pulses in
        EXPECT_EQ(words[0] > 0, code == std::string_view("K551")) << code;
    }
}

} // namespace lcusim::test
