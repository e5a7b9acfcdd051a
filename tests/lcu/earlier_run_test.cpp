#include "lcu/earlier_run.h"

#include <gtest/gtest.h>

namespace tarvik {
namespace {

Calibration polynomial(std::initializer_list<double> coefficients) {
    Calibration made;
    made.order = static_cast<int>(coefficients.size()) - 1;
    made.coefficients = {};
    std::ranges::copy(coefficients, made.coefficients.begin());
    return made;
}

struct EarlierRun : testing::Test {
    EarlierRun() {
        run.depth = {10, 20, 30};
        run.time = {0, 1, 3};
        run.header.setup.units = DepthUnits::feet;
        add("Speed", {6, 6, 6});
        add("East", {1, 2, 0});
        add("North", {3, 4, 0});
        add("Total field", {5, 5, 0});
    }
    void add(const std::string& name, std::vector<float> values) {
        run.channels.push_back({name, "", true, std::move(values)});
        run.header.channels.push_back({name, "", {}, {}, {}});
    }
    ReviewLog run;
};

TEST_F(EarlierRun, TheWayAtItsEndIsThatOfTheLastMeasuredScan) {
    EXPECT_EQ(wayAtEnd(run, run.header)->east, 2);
    EXPECT_EQ(wayAtEnd(run, run.header)->north, 4);
    run.reversed = true;
    run.channels[3].values = {0, 5, 5};
    EXPECT_EQ(wayAtEnd(run, run.header)->east, 2);
    run.channels[3].values = {0, 0, 0};
    EXPECT_EQ(wayAtEnd(run, run.header)->east, 0);
    EXPECT_EQ(wayAtEnd({}, run.header)->north, 0);
}

TEST_F(EarlierRun, ACalibrationOfTheWayIsUndone) {
    Calibration& east = run.header.channels[1].calibration;
    east = polynomial({1, 0.5}); // 2 was calibrated from 2
    EXPECT_EQ(wayAtEnd(run, run.header)->east, 2);
    east = polynomial({0, -0.5, 0});
    EXPECT_EQ(wayAtEnd(run, run.header)->east, -4);
    for (const auto& lost : {polynomial({7}), polynomial({1, 0}), polynomial({0, 1, 0.1})}) {
        east = lost;
        EXPECT_FALSE(wayAtEnd(run, run.header)) << lost.order;
    }
    RunHeader current = run.header;
    current.channels[1].calibration = east = polynomial({1, 0.5});
    current.channels[2].calibration = polynomial({0, 2});
    EXPECT_FALSE(wayAtEnd(run, current)) << "the rest of North would be in another unit";
}

TEST_F(EarlierRun, ItsScansAreShownUnderTheCalibrationsInUse) {
    run.header.channels[1].calibration = polynomial({1, 0.5});
    RunHeader current = run.header;
    EXPECT_TRUE(recalibratedChannels(current, run.header).empty());
    current.channels[1].calibration = polynomial({0, 0, 10});
    current.channels[2].calibration = polynomial({0, 1}); // as it was
    EXPECT_EQ(recalibratedChannels(current, run.header), std::vector<std::string>{"East"});

    AcquisitionRing ring;
    showEarlierScans(run, current, ring);
    ASSERT_EQ(ring.size(), 3U);
    EXPECT_NEAR(ring.fromOldest(1).depth, 6.096, 1e-5) << "20 feet";
    EXPECT_EQ(ring.fromOldest(0).seconds, -3);
    EXPECT_EQ(ring.fromOldest(2).seconds, 0);
    EXPECT_EQ(ring.fromOldest(1).values[1], 40) << "2, from 2, ten times its square";
    EXPECT_EQ(ring.fromOldest(1).values[2], 4);

    run.reversed = true;
    run.time = {3, 1, 0};
    run.header.channels[1].calibration = polynomial({7}); // cannot be undone
    AcquisitionRing up;
    showEarlierScans(run, current, up);
    EXPECT_NEAR(up.fromOldest(0).depth, 9.144, 1e-5);
    EXPECT_EQ(up.fromOldest(0).seconds, -3);
    EXPECT_EQ(up.fromOldest(2).values[1], 1) << "as stored";

    AcquisitionRing none;
    showEarlierScans({}, current, none);
    EXPECT_EQ(none.size(), 0U);
}

TEST_F(EarlierRun, TheLatestScansAreShownWhereAllHaveNoRoom) {
    const std::size_t steps = AcquisitionRing::capacity + 5;
    run.depth.assign(steps, 1);
    run.time.resize(steps);
    for (std::size_t i = 0; i < steps; ++i) run.time[i] = static_cast<double>(i);
    for (ReviewChannel& channel : run.channels) channel.values.assign(steps, 1);
    AcquisitionRing ring;
    showEarlierScans(run, run.header, ring);
    EXPECT_EQ(ring.size(), AcquisitionRing::capacity);
    EXPECT_EQ(ring.fromOldest(0).seconds, 5 - static_cast<double>(steps - 1));
}

} // namespace
} // namespace tarvik
