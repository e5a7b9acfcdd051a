// The database that ships: built from data/, and in keeping with what the program knows of single tools.
#include "equipmentc/equipment_source.h"

#include "equipment/calibration_fit.h"
#include "equipment/sensor_factors.h"
#include "platform/files.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <set>
#include <sstream>

#include <gtest/gtest.h>

namespace tarvik {
namespace {

class MakersData : public testing::Test {
  protected:
    static std::string contentOf(const char* file) {
        std::ifstream in(file, std::ios::binary);
        std::ostringstream bytes;
        bytes << in.rdbuf();
        return bytes.str();
    }
    static EquipmentFile built() {
        return readEquipment(asBytes(contentOf(EQUIPMENT_DATABASE)), EQUIPMENT_DATABASE);
    }
    static ToolRecord toolOf(std::string_view code) {
        for (const ToolRecord& record : built().tools) {
            if (record.get(tool::code) == code) return record;
        }
        ADD_FAILURE() << "no tool " << code;
        return blankTool();
    }
};

TEST_F(MakersData, TheBuiltFileIsItsSource) {
    const EquipmentFile file = built();
    EXPECT_TRUE(file.faults.empty()) << testing::PrintToString(file.faults);
    const auto source = equipmentc::compileDatabase(std::filesystem::path(TARVIK_SOURCE_DIR) / "data");
    EXPECT_TRUE(source.problems.empty()) << testing::PrintToString(source.problems);
    EXPECT_EQ(equipmentBytes(file), equipmentBytes(source.record));
    EXPECT_GE(file.winches.size(), 2U);
    for (const ToolRecord& record : file.tools) {
        for (const TextField field : {tool::name, tool::shortCode, tool::modeName(1)}) {
            EXPECT_NE(record.get(field), "") << record.get(tool::code) << " " << field.offset;
        }
        EXPECT_GT(record.get(tool::maximumCurrent), 0) << record.get(tool::code);
    }
}

/// The readings that a channel can send: its uncalibrated scale has to lie within.
std::pair<float, float> reach(const SensorFactor& factor, bool isSigned) {
    switch (factor.kind) {
    case 1:
        return {0, 1e6F};
    case 2:
        return {factor.factor * 1e6F / 65535, factor.factor * 1e6F};
    case 3:
        return {-2047, 2048};
    default:
        return isSigned ? std::pair{-32768.0F, 32767.0F} : std::pair{0.0F, 65535.0F};
    }
}

TEST_F(MakersData, ScalesLieWithinWhatTheSensorsCanSend) {
    for (const ToolRecord& record : built().tools) {
        const std::string code = record.get(tool::code);
        for (const int mode : {1, 2}) {
            SensorFactors factors{};
            const int channels = tool::channels(record, mode);
            applySensorFactors(code, record.get(tool::sensorFactors(mode)), channels, factors);
            for (int channel = 1; channel <= channels; ++channel) {
                if (code == "K417" && channel > 6) continue; // written over by angles
                const bool isSigned = code == "K417" || (code == "K245" && channel >= 4);
                const auto [low, high] = reach(factors[static_cast<std::size_t>(channel)], isSigned);
                const float left = record.get(tool::uncalibratedLeft(mode, channel));
                const float right = record.get(tool::uncalibratedRight(mode, channel));
                EXPECT_GE(std::min(left, right), low) << code << " mode " << mode << " channel " << channel;
                EXPECT_LE(std::max(left, right), high) << code << " mode " << mode << " channel " << channel;
            }
        }
    }
}

TEST_F(MakersData, ToolsWithDerivedChannelsNameThem) {
    const struct {
        const char* code;
        int words, derived;
    } cases[] = {{"K417", 8, 4}, {"K522", 8, 1}, {"K240", 6, 1}, {"K245", 6, 1},
                 {"K306", 4, 2}, {"K307", 3, 0}, {"K333", 3, 0}};
    for (const auto& c : cases) {
        const ToolRecord record = toolOf(c.code);
        EXPECT_EQ(tool::channels(record, 1), c.words) << c.code;
        EXPECT_NE(record.get(tool::channelName(1, c.words + c.derived)), "") << c.code;
        EXPECT_EQ(record.get(tool::channelName(1, c.words + c.derived + 1)), "") << c.code;
    }
}

/// No conversion is hidden: the second mode shows other units under names, and so calibrations, of their own.
TEST_F(MakersData, TemperatureToolsHaveAModeForEachUnit) {
    for (const char* code : {"K306", "K307", "K333"}) {
        const ToolRecord record = toolOf(code);
        int temperatures = 0;
        for (int channel = 1; channel <= maxChannels; ++channel) {
            const bool inC = record.get(tool::channelUnit(1, channel)) == "Deg C";
            EXPECT_EQ(inC, record.get(tool::channelUnit(2, channel)) == "Deg F") << code << ' ' << channel;
            temperatures += inC;
        }
        EXPECT_GE(temperatures, 1) << code;
    }
}

TEST_F(MakersData, TheInductionToolsReadAsPulsesOrLevels) {
    for (const char* code : {"K551", "K552", "K553", "K554"}) {
        const ToolRecord record = toolOf(code);
        EXPECT_EQ(record.get(tool::sensorFactors(1)), "H21,I21") << code;
        for (const int channel : {1, 2}) EXPECT_LE(record.get(tool::uncalibratedRight(1, channel)), 2048);
    }
}

/// Over the whole of its uncalibrated scale a calibration stays near the tool's calibrated one and does not
/// turn back.
TEST_F(MakersData, FactoryCalibrationsAgreeWithTheScales) {
    const std::string bytes = contentOf(FACTORY_CALIBRATIONS);
    const CalibrationFile history = readCalibrations(asBytes(bytes));
    EXPECT_EQ(history.tornBytes, 0U);
    const auto source =
        equipmentc::compileHistory(std::filesystem::path(TARVIK_SOURCE_DIR) / "data", built().tools);
    EXPECT_TRUE(source.problems.empty()) << testing::PrintToString(source.problems);
    EXPECT_EQ(asText(calibrationBytes(source.record)), bytes);
    std::set<std::string> sensorsOfTheDemo;
    for (const CalibrationRecord& record : history.records) {
        const Calibration one = calibrationOf(record);
        const std::string code = record.get(calibration::toolCode);
        SCOPED_TRACE(code + " " + one.sensorName);
        if (code == "K240" && one.serialNumber == "2041") sensorsOfTheDemo.insert(one.sensorName);
        EXPECT_FALSE(turningPoint(one));
        const ToolRecord tool = toolOf(code);
        int channel = 1;
        while (channel < maxChannels && tool.get(tool::channelName(1, channel)) != one.sensorName) ++channel;
        const float left = tool.get(tool::calibratedLeft(1, channel));
        const float right = tool.get(tool::calibratedRight(1, channel));
        const auto value = [&](float reading) {
            return evaluateCalibration(one.order, one.coefficients, reading);
        };
        const float slack = 0.08F * std::abs(right - left);
        EXPECT_NEAR(value(tool.get(tool::uncalibratedLeft(1, channel))), left, slack);
        EXPECT_NEAR(value(tool.get(tool::uncalibratedRight(1, channel))), right, slack);
    }
    EXPECT_EQ(sensorsOfTheDemo.size(), 6U) << "all that the tool measures";
}

} // namespace
} // namespace tarvik
