// The deviation tool down the simulated curved hole, whose true path is known: what the logged path owes to
// the method, to the counts and to the arithmetic. The figures of docs/deviation.md are printed here.
#include "lcu/run_rig.h"
#include "simulator/hole_path.h"

#include <cmath>
#include <cstdio>
#include <numbers>

using namespace tarvik;
using namespace tarvik::test;

namespace {

constexpr double degree = std::numbers::pi / 180;

const std::vector<float>& valuesOf(const ReviewLog& log, std::string_view name) {
    return std::ranges::find(log.channels, name, &ReviewChannel::name)->values;
}

struct Way {
    double east = 0, north = 0;
    void step(double length, const lcusim::HoleDirection& to) {
        const double sideways = length * std::sin(to.fromVertical * degree);
        east += sideways * std::sin(to.azimuth * degree);
        north += sideways * std::cos(to.azimuth * degree);
    }
};
double apart(const Way& a, const Way& b) {
    return std::hypot(a.east - b.east, a.north - b.north);
}

struct Seen {
    lcusim::HoleDirection to;
    double field = 0;
};

/// The hole's direction as the vectors show it (magnetometers, then accelerometers), by the cross products of
/// gravity, field and the tool's axis.
Seen directionOf(const std::array<double, 6>& v) {
    const double g = std::hypot(v[3], v[4], v[5]);
    const double east = (v[4] * v[2] - v[5] * v[1]) / g;                      // axis . (gravity x field)
    const double along = (v[0] * v[3] + v[1] * v[4] + v[2] * v[5]) / (g * g); // of the field, downwards
    double azimuth = std::atan2(east, v[0] - along * v[3]) / degree;
    if (azimuth < 0) azimuth += 360;
    return {{std::atan2(std::hypot(v[4], v[5]), v[3]) / degree, azimuth}, std::hypot(v[0], v[1], v[2]) / 1e4};
}

/// Its six words as the box sent them, and as they would have been without noise.
std::array<double, 6> sentCounts(const lcusim::ScanRecord& scan) {
    std::array<double, 6> counts{};
    for (std::size_t i = 0; i < 6; ++i) {
        const std::size_t at = 6 + 2 * i; // behind length, depth and time
        counts[i] = static_cast<std::int16_t>(scan.bytes[at] << 8 | scan.bytes[at + 1]);
    }
    return counts;
}
std::array<double, 6> roundedCounts(const lcusim::ScanRecord& scan) {
    std::array<double, 6> counts{};
    for (std::size_t i = 0; i < 6; ++i) counts[i] = std::round(scan.readings[i]);
    return counts;
}

struct Largest {
    double inclination = 0, azimuth = 0, field = 0;
    void take(const Seen& seen, const Seen& truth) {
        inclination = std::max(inclination, std::abs(seen.to.fromVertical - truth.to.fromVertical));
        azimuth = std::max(azimuth, std::abs(std::remainder(seen.to.azimuth - truth.to.azimuth, 360)));
        field = std::max(field, std::abs(seen.field - truth.field));
    }
};

struct HoleRun {
    HoleRun(lcusim::LcuModel model, float interval, double depth, DepthUnits units = DepthUnits::metres,
            Sampling sampling = Sampling::depth, bool calibrated = false)
        : rig({.model = model, .tool = "K417", .startDepth = 10}) {
        if (calibrated) rig.calibrate("Mag X", {0, 1});
        rig.order.setup.interval = interval;
        rig.order.setup.units = units;
        rig.order.setup.sampling = sampling;
        rig.view.stopAfterKept = std::lround(depth * 100 / static_cast<double>(interval));
        rig.view.stopAfterMs = 36'000'000;
        EXPECT_EQ(rig.startLogging(), RunResult::finished);
        log = rig.reader.Tarvikfileopen(rig.file()).value();
    }
    float last(std::string_view name) const { return valuesOf(log, name).back(); }

    RunRig rig;
    ReviewLog log;
};

/// The same way of the hole under ever less ideal assumptions.
struct Split {
    Way truth, method, exact, rounded, sent, logged;
    Largest counts, noise, program; // of the angles
};

/// The first two scans of a stream carry no values, the third lengthens the way by its step and is not kept.
Split split(const HoleRun& run, double step) {
    const lcusim::HolePath& hole = run.rig.engine->holePath();
    const auto& scans = run.rig.truth.scans();
    const std::size_t kept = run.log.steps();
    Split s;
    for (std::size_t i = 2; i < kept + 3; ++i) {
        const Seen truth{hole.at(scans[i].depth), hole.totalField()};
        const Seen rounded = directionOf(roundedCounts(scans[i])), sent = directionOf(sentCounts(scans[i]));
        s.exact.step(step, truth.to);
        s.rounded.step(step, rounded.to);
        s.sent.step(step, sent.to);
        s.counts.take(rounded, truth);
        s.noise.take(sent, rounded);
        if (i < 3) continue;
        const auto logged = [&](std::string_view name) {
            return static_cast<double>(valuesOf(run.log, name)[i - 3]);
        };
        s.program.take({{logged("Inclination") + 90, logged("Azimuth")}, logged("Total field")}, sent);
    }
    s.logged = {run.last("East"), run.last("North")};
    const auto offset = hole.offset(scans[2].depth - step, scans[kept + 2].depth);
    s.truth = s.method = {offset.east, offset.north};
    // Each step goes straight on in the direction at its end: half a step of the whole change of direction.
    s.method.step(step / 2, hole.at(scans[kept + 2].depth));
    s.method.step(-step / 2, hole.at(scans[2].depth - step));
    return s;
}

} // namespace

TEST(DeviationPath, TheLoggedPathFollowsTheHole) {
    const std::pair<lcusim::LcuModel, float> cases[] = {
        {lcusim::LcuModel::lcu2Plus, 10}, {lcusim::LcuModel::lcu4, 10}, {lcusim::LcuModel::lcu2Plus, 50}};
    std::puts("step      way      method  rounding  noise   arithmetic (metres)");
    for (const auto& [model, interval] : cases) {
        const HoleRun run(model, interval, 300);
        ASSERT_EQ(run.log.steps(), std::lround(30'000 / interval));
        const Split s = split(run, static_cast<double>(interval) * 0.01);
        std::printf("%5.0f cm %7.2f  %7.4f  %7.4f %7.4f  %7.4f\n", static_cast<double>(interval),
                    apart(s.truth, {}), apart(s.exact, s.truth), apart(s.rounded, s.exact),
                    apart(s.sent, s.rounded), apart(s.logged, s.sent));
        std::printf(
            "  angles and field: rounding %.4f %.4f %.5f, noise %.4f %.4f %.5f, on file %.4f %.4f %.5f\n",
            s.counts.inclination, s.counts.azimuth, s.counts.field, s.noise.inclination, s.noise.azimuth,
            s.noise.field, s.program.inclination, s.program.azimuth, s.program.field);
        EXPECT_GT(apart(s.truth, {}), 90);
        EXPECT_LT(apart(s.exact, s.method), 0.0005) << "what the method says is all there is";
        EXPECT_LT(apart(s.rounded, s.exact), 0.002);
        EXPECT_LT(apart(s.sent, s.rounded), 0.01);
        EXPECT_LT(apart(s.logged, s.sent), 0.02) << "whole centimetres, totals in single precision";
        // Half a count in 10,000 of gravity is 0.003 degrees, the corner of six of them 0.005; on file
        // angles are hundredths of a degree.
        EXPECT_LT(s.counts.inclination, 0.005);
        EXPECT_LT(s.counts.field, 0.0001);
        EXPECT_LT(s.program.inclination, 0.00505);
        EXPECT_LT(s.program.azimuth, 0.00505);
        EXPECT_LT(s.program.field, 0.00501);
    }
}

TEST(DeviationPath, FeetAreForDepthsOnly) {
    const HoleRun metres(lcusim::LcuModel::lcu2Plus, 10, 20);
    const HoleRun feet(lcusim::LcuModel::lcu2Plus, 10, 20, DepthUnits::feet);
    EXPECT_NEAR(feet.log.depth.back() * 0.3048, metres.log.depth.back(), 0.001);
    for (const char* name : {"East", "North", "Distance", "Azimuth"}) {
        EXPECT_EQ(valuesOf(feet.log, name), valuesOf(metres.log, name)) << name;
    }
    EXPECT_GT(metres.last("Distance"), 1);
}

TEST(DeviationPath, ByTimeThereAreAnglesAndNoWay) {
    HoleRun run(lcusim::LcuModel::lcu2Plus, 0.5F, 0.2, DepthUnits::metres, Sampling::time);
    ASSERT_EQ(run.log.steps(), 40U);
    EXPECT_NEAR(run.last("Total field"), run.rig.engine->holePath().totalField(), 0.01);
    for (const char* name : {"East", "North", "Distance"}) {
        EXPECT_EQ(valuesOf(run.log, name), std::vector<float>(40, 0.0F)) << name;
    }
}

TEST(DeviationPath, AnAppendGoesOnWithTheWay) {
    for (const auto model : {lcusim::LcuModel::lcu2Plus, lcusim::LcuModel::lcu4}) {
        HoleRun run(model, 10, 15, DepthUnits::metres, Sampling::depth, true);
        run.rig.view.choice = RunChoice::append;
        const auto append = [&] {
            run.rig.view.record = true;
            run.rig.view.started = false;
            run.rig.view.stopAfterKept = 1;
            const RunResult result = run.rig.startLogging();
            run.log = run.rig.reader.Tarvikfileopen(run.rig.file()).value();
            return result;
        };
        const Way before{run.last("East"), run.last("North")};
        ASSERT_EQ(append(), RunResult::finished);
        EXPECT_EQ(run.log.steps(), 151U);
        // The third scan and the fourth, a step of a tenth of a metre each.
        const double steps = 0.2 * std::cos(static_cast<double>(run.last("Inclination")) * degree);
        EXPECT_NEAR(apart({run.last("East"), run.last("North")}, before), steps, 0.015);

        run.rig.calibrate("Mag X", {0, 2});
        ASSERT_EQ(append(), RunResult::finished);
        EXPECT_NE(
            testing::PrintToString(run.rig.operatorSide.shown).find("Calibration of Mag X NOT the same"),
            std::string::npos);
        EXPECT_NEAR(apart({run.last("East"), run.last("North")}, before), 2 * steps, 0.03);
        run.rig.calibrate("East", {0, 100});
        EXPECT_EQ(append(), RunResult::notStarted) << "counts behind engineering units";
    }
}
