#include "equipmentc/equipment_source.h"

#include <fstream>

#include <gtest/gtest.h>

namespace equipmentc {
namespace {

using namespace tarvik;

const std::string head = "[tool]\ncode = K1\nname = One\n[mode 1]\n";
const std::string oneChannel = "channel = A | CPS | 0 | 1 | 2 | 3\n";

TEST(EquipmentSource, EveryKeyGoesIntoItsField) {
    const auto [record, problems] = compileTool("# a remark\r\n"
                                                "[tool]\n"
                                                "code = K9\n"
                                                "short_code=TST\n"
                                                "  name = Crème tool \n"
                                                "maximum_current = 32767\n"
                                                "[mode 1]\n"
                                                "name = First\n"
                                                "kind = MUX\n"
                                                "sensor_factors = a1,f21\n"
                                                "words = 2\n"
                                                "parameters = L1 | | PA50||||G\n"
                                                "channel = One | CPS | -1.5 | 2e3 | 3 | 4 | gamma\n"
                                                "channel = Two |  | 5 | 6 | 7 | 8\n"
                                                "channel = Derived | M | 0 | 1 | 0 | 1\n"
                                                "\n"
                                                "[mode 2]\n"
                                                "kind =\n"
                                                "channel = Other | API | 0 | 9 | 0 | 1",
                                                "k9.tool");
    EXPECT_TRUE(problems.empty()) << testing::PrintToString(problems);
    std::string texts;
    for (const TextField field :
         {tool::code, tool::shortCode, tool::name, tool::modeName(1), tool::kind(1), tool::kind(2),
          tool::sensorFactors(1), tool::channelName(1, 3), tool::channelUnit(2, 1), tool::parameter(1, 1),
          tool::parameter(2, 1), tool::parameter(3, 1), tool::parameter(7, 1), tool::serialNumber}) {
        texts += record.get(field) + "|";
    }
    EXPECT_EQ(texts, "K9|TST|Crème tool|First|MUX||a1,f21|Derived|API|L1||PA50|G||");
    EXPECT_EQ(record.get(tool::uncalibratedLeft(1, 1)), -1.5F);
    EXPECT_EQ(record.get(tool::uncalibratedRight(1, 1)), 2000);
    EXPECT_EQ(record.get(tool::calibratedLeft(1, 2)), 7);
    EXPECT_EQ(record.get(tool::calibratedRight(1, 2)), 8);
    EXPECT_EQ(record.get(tool::maximumCurrent), 32767);
    EXPECT_EQ(record.get(tool::channelCount(1)), 2) << "words on the line, not names";
    EXPECT_EQ(record.get(tool::channelCount(2)), 1);
    EXPECT_EQ(record.get(tool::selected), 0);
}

TEST(EquipmentSource, MistakesAreToldWithTheirLine) {
    const std::pair<std::string, const char*> cases[] = {
        {"", "x.tool:1: no code; write"},
        {"code = K1\n" + head + oneChannel, "x.tool:1: a key before the first section"},
        {head + "words\n" + oneChannel, "x.tool:5: neither \"key = value\" nor a section"},
        {head + oneChannel + "[mode 3]\nname = a\n",
         "x.tool:6: no such section; use one of [mode 1], [mode 2], [tool]"},
        {head + oneChannel + "[tool]\n", "x.tool:6: the section [tool] stands here again"},
        {head + "colour = red\n" + oneChannel,
         "x.tool:5: [mode 1] has no key \"colour\"; use one of channel, kind"},
        {head + oneChannel + "name = a\nname = b\n", "x.tool:7: \"name\" stands in [mode 1] already"},
        {head + "kind = PULS\n" + oneChannel, "x.tool:5: no such kind \"PULS\""},
        {head + "words = 21\n" + oneChannel, "x.tool:5: \"21\"; words is a whole number from 1 to 20"},
        {head + "words = 2\n" + oneChannel, "x.tool:5: more words than channels"},
        {head + "sensor_factors = a1,b1\n" + oneChannel, "x.tool:5: more sensor factors than words"},
        {head + "sensor_factors = a1,b1,c1,d1,e1,f21000\n" + oneChannel, "longer than the 20 characters"},
        {head + "parameters = 12345678901\n" + oneChannel, "x.tool:5: \"12345678901\" is longer than the 10"},
        {head + "parameters = 1|2|3|4|5|6|7|8\n" + oneChannel,
         "x.tool:5: there is room for seven parameters"},
        {head + "channel = A | CPS | 0 | 1 | 2\n", "x.tool:5: a channel is name | unit"},
        {head + "channel = A | CPS | 0 | 1 | 2 | x\n", "x.tool:5: \"x\" is no scale end"},
        {head + "channel = A | CPS | 0 | 1 | 2 | 2\n", "x.tool:5: a scale needs two different ends"},
        {head + oneChannel + "channel = a | CPS | 0 | 1 | 2 | 3\n",
         "x.tool:6: each channel of a mode needs a name"},
        {head + "channel = Ω | CPS | 0 | 1 | 2 | 3\n",
         "x.tool:5: \"Ω\" has a character outside code page 1252"},
        {head, "x.tool:1: [mode 1] has no channel"},
        {head + oneChannel + "[mode 2]\nname = b\n", "x.tool:7: [mode 2] has no channel"},
        {head + oneChannel + "[mode 2]\nchannel = a | API | 0 | 1 | 2 | 3\n",
         "x.tool:7: \"a\" has another unit or sensor factor in [mode 1]"},
        {head + "sensor_factors = a1\n" + oneChannel + "[mode 2]\nsensor_factors = p1\n" + oneChannel,
         "x.tool:9: \"A\" has another unit or sensor factor in [mode 1]"},
    };
    for (const auto& [source, problem] : cases) {
        std::string told;
        for (const std::string& one : compileTool(source, "x.tool").problems) told += one + '\n';
        EXPECT_NE(told.find(problem), std::string::npos) << problem << "\nwas told as\n" << told;
    }
    std::string many = head;
    for (int i = 0; i < 21; ++i) many += "channel = C" + std::to_string(i) + " | CPS | 0 | 1 | 0 | 1\n";
    EXPECT_EQ(compileTool(many, "x.tool").problems,
              (std::vector<std::string>{"x.tool:25: there is room for 20 channels; take some away"}));
    EXPECT_EQ(compileWinch("[winch]\ncode = W1\n", "x.winch").problems,
              (std::vector<std::string>{"x.winch:1: no name; write \"name = ...\" under [winch]"}));
}

TEST(EquipmentSource, AnEmptyFolderAndASharedCodeAreProblems) {
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "equipment_source_test";
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder / "tools");
    EXPECT_FALSE(compileDatabase(folder).problems.empty()) << "no database.ini";
    std::ofstream(folder / "database.ini")
        << "[database]\nversion = 1\ndate = 01-Jan-2026\ncritical_version = 1\n";
    EXPECT_TRUE(compileDatabase(folder).problems.empty());
    std::ofstream(folder / "tools" / "a.tool") << head << oneChannel;
    std::ofstream(folder / "tools" / "b.tool") << head << oneChannel;
    const auto database = compileDatabase(folder);
    ASSERT_EQ(database.problems.size(), 1U);
    EXPECT_NE(database.problems[0].find("b.tool:1: the code \"K1\" is that of "), std::string::npos);
    EXPECT_EQ(database.record.header.get(equipment::toolCount), 2);
    std::filesystem::remove_all(folder);
}

const std::string calibrationHead = "[calibration]\ntool = K9\nserial = S-1\ndate = 2026-01-02\n";

Compiled<std::vector<CalibrationRecord>> calibrations(const std::string& text, std::size_t before = 0) {
    const ToolRecord tools[] = {
        compileTool("[tool]\ncode = K8\nname = Eight\n[mode 1]\n" + oneChannel, "k8.tool").record,
        compileTool("[tool]\ncode = K9\nname = Nine\n[mode 1]\n" + oneChannel, "k9.tool").record};
    return compileCalibrations(text, "k9.calibration", tools, before);
}

TEST(CalibrationSourceText, PointsBecomeAFactoryRecord) {
    const auto [records, problems] =
        calibrations(calibrationHead + "by = Shop\ntime = 10:11:12\nsensor = A | 1 | 10 1 | 20 -3\n"
                                       "sensor = A | 2 | 0 0 | 1 1 | 2 4\n",
                     41);
    EXPECT_TRUE(problems.empty()) << testing::PrintToString(problems);
    ASSERT_EQ(records.size(), 2U);
    const Calibration first = calibrationOf(records[0]);
    EXPECT_EQ(records[0].get(calibration::toolCode) + first.serialNumber + first.sensorName, "K9S-1A");
    EXPECT_EQ(first.identifier, "020126-00042");
    EXPECT_EQ(first.date + first.time + first.calibratedBy, "02-Jan-202610:11:12Shop");
    EXPECT_EQ(first.kind + first.state + first.fitName, "FactoryCalibratedLinear fit");
    EXPECT_EQ(first.coefficients[1], -0.4);
    EXPECT_EQ(first.pointCount, 2);
    EXPECT_EQ(calibrationOf(records[1]).identifier, "020126-00043");
    EXPECT_EQ(records[1].get(calibration::marked), -1);
}

TEST(CalibrationSourceText, ProblemsNameTheirLine) {
    const std::pair<std::string, std::string> cases[] = {
        {"[calibration]\nserial = S\ndate = 2026-01-02\n", ":1: no tool"},
        {"[calibration]\ntool = K9\ndate = 2026-01-02\n", ":1: no serial"},
        {"[calibration]\ntool = K9\nserial = S\n", ":1: no date"},
        {"[calibration]\ntool = K7\nserial = S\ndate = 2026-01-02\n", ":2: there is no tool"},
        {"[calibration]\ntool = K9\nserial = S\ndate = 2026-13-02\n", ":4: \"2026-13-02\""},
        {"[calibration]\ntool = K9\nserial = S\ndate = 02-Jan-2026\n", ":4: "},
        {calibrationHead + "sensor = B | 1 | 0 0 | 1 1\n", ":5: the tool has no sensor \"B\""},
        {calibrationHead + "sensor = A\n", ":5: after the sensor's name"},
        {calibrationHead + "sensor = A | 8 | 0 0 | 1 1\n", ":5: after the sensor's name"},
        {calibrationHead + "sensor = A | 1 | 0 0 | 1\n", ":5: \"1\" is no point"},
        {calibrationHead + "sensor = A | 1 | 1 0 | 1 1\n", ":5: no polynomial"},
        {calibrationHead + "by = A name of twenty-one ch\n", ":5: "},
    };
    for (const auto& [text, place] : cases) {
        const auto problems = calibrations(text).problems;
        ASSERT_FALSE(problems.empty()) << text;
        EXPECT_EQ(problems[0].find("k9.calibration" + place), 0U) << problems[0];
    }
}

} // namespace
} // namespace equipmentc
