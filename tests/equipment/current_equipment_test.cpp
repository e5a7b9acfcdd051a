#include "equipment/equipment_bench.h"
#include "equipment/tool_calibrations.h"

namespace tarvik {
namespace {

class CurrentEquipmentTest : public EquipmentBench {
  protected:
    CurrentEquipmentTest() { putUser(); }
};

TEST_F(CurrentEquipmentTest, FoundByCodeAndWhereGivenBySerialNumber) {
    EXPECT_EQ(data.ToolWinchData_loadcurrentttoolwinch({"K201", ""}, {"W240", "W-1"}, 1),
              "Current winch : Truck winch");
    EXPECT_EQ(data.currentTool().record.get(tool::serialNumber), "G-1");
    EXPECT_EQ(data.currentWinch().record.get(winch::code), "W240");

    EXPECT_EQ(data.ToolWinchData_loadcurrentttoolwinch({"K201", "G-2"}, {"W240", "W-2"}, 2),
              "Current winch : -- none selected --");
    EXPECT_EQ(data.currentTool().record.get(tool::serialNumber), "G-2");
    EXPECT_EQ(data.currentTool().mode, 2);
    EXPECT_EQ(data.currentWinch().record, blankWinch());

    EXPECT_EQ(data.ToolWinchData_loadcurrentttoolwinch({"K230", ""}, {"", ""}, 3),
              "Current winch : -- none selected --");
    EXPECT_EQ(data.currentTool().record, blankTool()) << "the maker's tools are not the user's";
    EXPECT_EQ(data.currentTool().mode, 1);
}

TEST_F(CurrentEquipmentTest, SensorFactorsAreThoseOfTheMode) {
    data.ToolWinchData_loadcurrentttoolwinch({"K201", ""}, {}, 1);
    EXPECT_EQ(data.currentTool().factors[1], (SensorFactor{1, 1}));
    EXPECT_EQ(data.currentTool().factors[2], (SensorFactor{2, 21}));
    EXPECT_EQ(data.currentTool().factors[3].kind, 0);
    data.currentTool().mode = 2;
    EXPECT_EQ(data.ToolWinchData_getcurrentsensorfactors()[1], (SensorFactor{3, 1}));
    EXPECT_EQ(data.currentTool().factors[2].kind, 0) << "the second mode has one channel";
    // A run may change the text of the record in memory.
    data.currentTool().record.set(tool::sensorFactors(2), "R11,S0");
    data.currentTool().record.set(tool::channelCount(2), 3);
    EXPECT_EQ(data.ToolWinchData_getcurrentsensorfactors()[2], (SensorFactor{3, 1}));
    EXPECT_EQ(data.currentTool().factors[3].kind, 4);
}

TEST_F(CurrentEquipmentTest, ScalesGoIntoTheRecordAndItsSlot) {
    data.ToolWinchData_loadcurrentttoolwinch({"K201", "G-2"}, {}, 2);
    data.ToolWinchData_updatecurrenttoolscales(" UNCAL ", 20, -1.5F, 7);
    data.ToolWinchData_updatecurrenttoolscales("CALIB", 1, 100, 0);
    data.ToolWinchData_updatecurrenttoolscales("calib", 1, 5, 6);
    const ToolRecord& record = data.currentTool().record;
    EXPECT_EQ(record.get(tool::uncalibratedLeft(2, 20)), -1.5F);
    EXPECT_EQ(record.get(tool::uncalibratedRight(2, 20)), 7);
    EXPECT_EQ(record.get(tool::calibratedLeft(2, 1)), 100);
    EXPECT_EQ(record.get(tool::calibratedLeft(1, 1)), 0) << "the other mode has its own";
    EXPECT_EQ(stored(user).tools[1], record);
    EXPECT_EQ(stored(user).tools[0], makeTool("K201", "Natural gamma", "G-1"));

    for (const int channel : {0, 21}) {
        errors.kept.clear();
        data.ToolWinchData_updatecurrenttoolscales("UNCAL", channel, 1, 2);
        ASSERT_EQ(errors.kept.size(), 1U) << channel;
        EXPECT_EQ(errors.kept[0].number, 9);
    }
}

TEST_F(CurrentEquipmentTest, ScalesFollowTheToolWhenOthersGo) {
    data.ToolWinchData_loadcurrentttoolwinch({"K201", "G-2"}, {}, 1);
    ASSERT_TRUE(data.ToolWinchData_removeusertool(1));
    data.ToolWinchData_updatecurrenttoolscales("UNCAL", 1, 3, 4);
    EXPECT_EQ(stored(user).tools.at(0).get(tool::uncalibratedLeft(1, 1)), 3);
    EXPECT_EQ(stored(user).winches.at(0), makeWinch("W240", "Truck winch", "W-1"));

    ASSERT_TRUE(data.ToolWinchData_removeusertool(1));
    const Bytes before = files.read(user);
    data.ToolWinchData_updatecurrenttoolscales("UNCAL", 1, 5, 6);
    EXPECT_EQ(files.read(user), before) << "no slot of its own any more";
    EXPECT_EQ(data.currentTool().record.get(tool::uncalibratedLeft(1, 1)), 5);
    ASSERT_EQ(lines.lines.size(), 1U);
    EXPECT_NE(lines.lines[0].find("does not hold tool K201 SN-G-2"), std::string::npos);
    files.remove(user);
    data.ToolWinchData_updatecurrenttoolscales("UNCAL", 1, 7, 8);
    EXPECT_TRUE(errors.kept.empty());
}

TEST_F(CurrentEquipmentTest, TheLastCalibrationOfASensorServes) {
    Calibration first;
    first.sensorName = "GAMMA ";
    first.state = "Cal";
    first.coefficients = {1, 2};
    Calibration last = first;
    last.coefficients = {3, 4};
    Calibration other = first;
    other.sensorName = "Gam";
    calibrations.shelf["K201:G-2"] = {first, last, other};

    data.ToolWinchData_loadcurrentttoolwinch({"K201", "G-2"}, {}, 1);
    const CurrentTool& current = data.currentTool();
    EXPECT_EQ(current.calibration(1).coefficients[0], 3);
    EXPECT_EQ(current.calibrations[1][1].coefficients[0], 3) << "both modes";
    EXPECT_EQ(current.calibration(2).state, "None");
    EXPECT_EQ(current.calibration(2).sensorName, "Caliper");
    EXPECT_EQ(current.calibration(2).serialNumber, "G-2");
    EXPECT_EQ(current.calibration(2).order, 1);

    data.ToolWinchData_loadcurrentttoolwinch({"K201", "G-1"}, {}, 1);
    EXPECT_EQ(current.calibration(1).state, "None") << "another serial number";
}

TEST(DefaultCalibration, DerivedChannelsAreSynthetic) {
    ToolRecord record = blankTool();
    record.set(tool::code, "K417");
    record.set(tool::channelCount(1), 8);
    for (int channel = 1; channel <= 12; ++channel) {
        record.set(tool::channelName(1, channel), "Channel " + std::to_string(channel));
    }
    const auto slope = [&](int channel) { return defaultCalibration(record, 1, channel).coefficients[1]; };
    const auto state = [&](int channel) { return defaultCalibration(record, 1, channel).state; };
    EXPECT_EQ(state(6), "None");
    EXPECT_EQ(state(7), "Synthetic") << "sent, but written over";
    EXPECT_EQ(state(12), "Synthetic");
    EXPECT_EQ(state(13), "None") << "no channel at all";
    EXPECT_EQ(slope(6), 1);
    EXPECT_EQ(slope(7), 0.0001);
    EXPECT_EQ(slope(9), 0.0001);
    EXPECT_EQ(slope(10), 1);
    record.set(tool::code, "K522");
    EXPECT_EQ(state(8), "None");
    EXPECT_EQ(state(9), "Synthetic");
    EXPECT_EQ(slope(9), 1);
}

} // namespace
} // namespace tarvik
