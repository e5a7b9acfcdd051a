// What screens say of a calibration, and of the channels of a tool.
#include "equipment/calibration_words.h"

#include "equipment/calibration_details.h"
#include "equipment/channel_states.h"
#include "equipment/equipment_bench.h"

#include <limits>

#include <gmock/gmock.h>

namespace tarvik {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

Calibration made(int order, std::vector<double> coefficients) {
    Calibration one;
    one.state = "Calibrated";
    one.fitName = "Linear fit";
    one.date = "13-Mar-2006";
    one.calibratedBy = "A. Smith";
    one.kind = "Field";
    one.order = order;
    one.coefficients = {};
    std::ranges::copy(coefficients, one.coefficients.begin());
    return one;
}

/// y = x² - 4x + 1/3 through three points, one of them 0.5 off.
Calibration parabola() {
    Calibration one = made(2, {1.0 / 3, -4, 1});
    one.pointCount = 3;
    one.points[0] = {0, 1.0F / 3};
    one.points[1] = {4, 1.0F / 3 - 0.5F};
    one.points[2] = {6, 12 + 1.0F / 3};
    return one;
}

TEST(CalibrationWords, SayPlainlyWhatThereIs) {
    EXPECT_EQ(calibrationWords(made(1, {0, 2})),
              "Linear fit, order 1, 13-Mar-2006 09:00:00 by A. Smith, Field");
    EXPECT_EQ(calibrationWords({}), "Not calibrated: counts");
    EXPECT_EQ(calibrationWords(made(0, {})), "Not calibrated: order 0, the channel reads 0");
    Calibration derived;
    derived.state = "Synthetic";
    EXPECT_EQ(calibrationWords(derived), "Computed by the program");
}

TEST(CalibrationWords, DatesSortByYear) {
    EXPECT_EQ(sortableDate("03-Dec-1999"), "1999-12-03");
    for (const char* odd : {"", "3-Dec-1999", "03-Dez-1999", "03/Dec/1999", "xx-Dec-1999"})
        EXPECT_EQ(sortableDate(odd), odd);
}

TEST(CalibrationDetails, CoefficientsReadBackAndErrorsAreNamed) {
    const CalibrationDetails details = calibrationDetails(parabola());
    EXPECT_EQ(details.fit, "Linear fit, order 2");
    EXPECT_THAT(details.coefficients, ElementsAre("0.3333333333333333", "-4", "1"));
    ASSERT_EQ(details.points.size(), 3U);
    EXPECT_EQ(details.points[1].difference, "0.5");
    EXPECT_EQ(details.points[1].value, "0.3333333");
    EXPECT_EQ(details.largestError, "Largest error 0.5 at the reading 4.");
    EXPECT_THAT(details.warning, HasSubstr("turns near the reading 1.998"));
    EXPECT_EQ(calibrationDetails(made(1, {0, 2})).warning, "");
    const Calibration broken = made(1, {std::numeric_limits<double>::quiet_NaN(), 1});
    EXPECT_THAT(calibrationDetails(broken).warning, HasSubstr("holds no polynomial"));
    EXPECT_TRUE(calibrationDetails(broken).coefficients.empty());
}

TEST(CalibrationDetails, TheCurveReachesALittleBeyondThePoints) {
    const CalibrationCurve curve = calibrationCurve(parabola(), 12);
    ASSERT_EQ(curve.readings.size(), 12U);
    EXPECT_NEAR(curve.readings.front(), -0.3, 1e-9);
    EXPECT_NEAR(curve.readings.back(), 6.3, 1e-9);
    EXPECT_NEAR(curve.values.back(), 6.3 * 6.3 - 4 * 6.3 + 1.0 / 3, 1e-5);
    Calibration single = parabola();
    single.pointCount = 1;
    EXPECT_TRUE(calibrationCurve(single, 12).readings.empty());
}

class ChannelStatesTest : public EquipmentBench {};

TEST_F(ChannelStatesTest, OneSensorCalibratedAndOneNot) {
    CurrentTool tool;
    tool.record = makeTool("K201", "Natural gamma", "G-1");
    EXPECT_EQ(calibrationVerdict(channelStates(tool)), "Not calibrated: all channels are logged as counts.");
    tool.calibrations[0][1] = made(1, {0, 2});
    auto states = channelStates(tool);
    ASSERT_EQ(states.size(), 2U);
    EXPECT_EQ(states[0].name, "Gamma");
    EXPECT_FALSE(states[0].needsAttention);
    EXPECT_TRUE(states[1].needsAttention);
    EXPECT_FALSE(calibrationIsComplete(states));
    EXPECT_EQ(calibrationVerdict(states), "Not calibrated, logged as counts: 1 of 2 channels.");
    tool.calibrations[0][2].state = "Synthetic";
    EXPECT_TRUE(calibrationIsComplete(channelStates(tool)));
    EXPECT_FALSE(calibrationIsComplete(channelStates(CurrentTool{})));
}

TEST_F(ChannelStatesTest, TheUnitOfASensorStandsInEitherMode) {
    ToolRecord record = makeTool("K201", "Natural gamma");
    record.set(tool::channelName(2, 1), "Only in two");
    record.set(tool::channelUnit(2, 1), "OHM-M");
    record.set(tool::channelCount(2), 1);
    EXPECT_EQ(sensorUnit(record, "gamma"), record.get(tool::channelUnit(1, 1)));
    EXPECT_EQ(sensorUnit(record, "Only in two"), "OHM-M");
    EXPECT_EQ(sensorUnit(record, "Another"), "");
}

TEST_F(ChannelStatesTest, AModeIsNamedWithItsChannels) {
    ToolRecord record = makeTool("K201", "Natural gamma");
    record.set(tool::modeName(1), "Gamma + caliper");
    record.set(tool::channelCount(2), 0);
    EXPECT_EQ(toolModeText(record, 1), "1  Gamma + caliper (2 channels)");
    EXPECT_EQ(toolModeText(record, 2), "2  (none)");
}

TEST_F(ChannelStatesTest, LookingAtAToolLeavesTheCurrentOne) {
    putUser();
    data.ToolWinchData_loadcurrentttoolwinch({"K201", "G-1"}, {"W240", ""}, 1);
    const CurrentTool other = data.userTool({"K201", "G-2"}, 2);
    EXPECT_EQ(other.record.get(tool::serialNumber), "G-2");
    EXPECT_EQ(other.mode, 2);
    EXPECT_EQ(data.currentTool().record.get(tool::serialNumber), "G-1");
    EXPECT_EQ(data.userTool({"K999", ""}, 1).channels(), 0);
}

} // namespace
} // namespace tarvik
