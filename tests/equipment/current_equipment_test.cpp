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
    ToolRecord wanted = makeTool("K201", "Natural gamma", "G-2");
    wanted.set(tool::uncalibratedLeft(2, 20), -1.5F);
    wanted.set(tool::uncalibratedRight(2, 20), 7);
    wanted.set(tool::calibratedLeft(2, 1), 100);
    EXPECT_EQ(data.currentTool().record, wanted);
    EXPECT_EQ(stored(user).tools[1], wanted);
    EXPECT_EQ(stored(user).tools[0], makeTool("K201", "Natural gamma", "G-1"));
    for (const int channel : {0, 21}) data.ToolWinchData_updatecurrenttoolscales("UNCAL", channel, 1, 2);
    ASSERT_EQ(errors.errors.size(), 2U);
    EXPECT_EQ(errors.errors[1].number, 9);
}

TEST_F(CurrentEquipmentTest, ScalesFollowTheToolWhenOthersGo) {
    data.ToolWinchData_loadcurrentttoolwinch({"K201", "G-2"}, {}, 1);
    ASSERT_TRUE(data.ToolWinchData_removeusertool(1));
    data.ToolWinchData_updatecurrenttoolscales("UNCAL", 1, 3, 4);
    EXPECT_EQ(stored(user).tools.at(0).get(tool::uncalibratedLeft(1, 1)), 3);

    ASSERT_TRUE(data.ToolWinchData_removeusertool(1));
    const Bytes before = files.read(user);
    data.ToolWinchData_updatecurrenttoolscales("UNCAL", 1, 5, 6);
    EXPECT_EQ(files.read(user), before) << "no slot of its own any more";
    EXPECT_EQ(data.currentTool().record.get(tool::uncalibratedLeft(1, 1)), 5);
    EXPECT_NE(lines.lines.at(0).find("does not hold tool K201 SN-G-2"), std::string::npos);
    files.remove(user);
    data.ToolWinchData_updatecurrenttoolscales("UNCAL", 1, 7, 8);
    EXPECT_TRUE(errors.errors.empty());
}

TEST(DefaultCalibration, DerivedChannelsAreSynthetic) {
    ToolRecord record = blankTool();
    record.set(tool::channelCount(1), 8);
    for (int channel = 1; channel <= 12; ++channel) record.set(tool::channelName(1, channel), "A channel");
    const struct {
        const char* tool;
        int channel;
        const char* state;
        double slope;
    } cases[] = {{"K417", 6, "None", 1},           {"K417", 7, "Synthetic", 0.0001}, // sent, but written over
                 {"K417", 9, "Synthetic", 0.0001}, {"K417", 10, "Synthetic", 1},
                 {"K417", 12, "Synthetic", 1},     {"K417", 13, "None", 1}, // no channel at all
                 {"K522", 8, "None", 1},           {"K522", 9, "Synthetic", 1}};
    for (const auto& c : cases) {
        record.set(tool::code, c.tool);
        const Calibration calibration = defaultCalibration(record, 1, c.channel);
        EXPECT_EQ(calibration.state, c.state) << c.tool << c.channel;
        EXPECT_EQ(calibration.coefficients[1], c.slope) << c.tool << c.channel;
    }
}

} // namespace
} // namespace tarvik
