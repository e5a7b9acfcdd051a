#include "equipment/calibration_history.h"

#include "base/number_picture.h"
#include "equipment/equipment_bench.h"
#include "equipment/tool_calibrations.h"

#include <algorithm>
#include <limits>

#include <gmock/gmock.h>

namespace tarvik {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const CalibrationFilter gamma{"K201", "G-1", "Gamma"};

class CalibrationHistoryTest : public EquipmentBench {
  protected:
    /// Whole records of one sensor, told apart by their constant term.
    static Bytes bytesOf(std::size_t records) {
        CalibrationFile content{.header = newCalibrationHeader(), .records = {}};
        for (std::size_t i = 0; i < records; ++i) content.records.push_back(record("Field", i));
        return calibrationBytes(content);
    }
    static CalibrationRecord record(const std::string& kind, std::size_t constant) {
        Calibration one;
        one.sensorName = "Gamma";
        one.kind = kind;
        one.coefficients[0] = static_cast<double>(constant);
        return calibrationRecord(makeTool("K201", "Natural gamma", "G-1"), one);
    }
    void putBytes(const Bytes& bytes) { files.put(file, asText(bytes)); }
    void add(const CalibrationRecord& one) { files.append(file, one.bytes()); }

    std::optional<Calibration> save(const std::string& kind = "Field", double constant = 0) {
        Calibration made;
        made.sensorName = "Gamma";
        made.state = "Calibrated";
        made.calibratedBy = "Me";
        made.kind = kind;
        made.fitName = "Linear fit";
        made.coefficients[0] = constant;
        return shelf.PolyCalibration_savecalibrationhistorydata(makeTool("K201", "Natural gamma", " G-1 "),
                                                                made);
    }
    std::string summary() { return shelf.PolyCalibration_loadcalibrationhistorydata(gamma).summary; }
    std::vector<double> constants(const CalibrationFilter& filter = gamma) {
        std::vector<double> found;
        for (const CalibrationRow& row : shelf.PolyCalibration_loadcalibrationhistorydata(filter).rows) {
            found.push_back(
                shelf.PolyCalibration_getselectedpreviouscalibdata(row.record).value().coefficients[0]);
        }
        return found;
    }

    const Path file = folder / "Brenna-Calibrations.dat";
    CalibrationHistory shelf{trap, files, log, box, clock, folder};
};

TEST_F(CalibrationHistoryTest, AMissingFileIsMadeWithItsHeader) {
    EXPECT_THAT(shelf.calibrationsOf("K201", "G-1"), IsEmpty());
    EXPECT_FALSE(files.exists(file)) << "loading a tool makes no file";
    EXPECT_EQ(summary(), "File Version : 201  date 31-Aug-2002  (no records)");
    EXPECT_EQ(files.text(file), "201       31-Aug-2002         " + std::string(98, ' '));
    files.remove(file);
    shelf.open();
    EXPECT_EQ(files.size(file), 128U);
    EXPECT_THAT(lines.lines, IsEmpty());
}

TEST_F(CalibrationHistoryTest, ASaveIsARecordUnderTodaysDate) {
    clock.advanceMs(754'000);
    EXPECT_EQ(save("Field", 0.25).value().identifier, "130306-00001");
    EXPECT_THAT(told, IsEmpty()) << "a field calibration needs no confirmation";
    EXPECT_EQ(files.size(file), 728U);
    EXPECT_EQ(summary(), "File Version : 201  date 31-Aug-2002  (1 record)");
    const std::string text = files.text(file).substr(128);
    const std::pair<std::size_t, std::string> fields[] = {
        {0, "K201    Natural gamma "},
        {48, "G-1                 Gamma               Calibrated"},
        {98, "Linear fit          "},
        {118, "130306-00001        13-Mar-2006 09:12:34  "},
        {338, "Me                  Field "}};
    for (const auto& [at, wanted] : fields) EXPECT_EQ(text.substr(at, wanted.size()), wanted) << at;

    ASSERT_TRUE(save());
    EXPECT_EQ(summary(), "File Version : 201  date 31-Aug-2002  (2 records)");
    const auto rows = shelf.PolyCalibration_loadcalibrationhistorydata(gamma).rows;
    EXPECT_EQ(rows.at(1).record, 1U);
    EXPECT_EQ(rows.at(1).text, "Calibrated\t13-Mar-2006, Me, Field");
    EXPECT_THAT(
        shelf.ToolWinchData_showhistsensorcalibrations(gamma),
        ElementsAre(testing::_, "Calibrated, Linear fit, 130306-00002, 13-Mar-2006, 09:12:34, Me, Field"));
    EXPECT_TRUE(errors.errors.empty());
}

TEST_F(CalibrationHistoryTest, AFactoryCalibrationHasToBeConfirmed) {
    EXPECT_EQ(save("Factory")->kind, "Field");
    EXPECT_THAT(told, ElementsAre("ask Calibration query|Please confirm that this calibration is a FACTORY "
                                  "calibration"));
    box.answer = Answer::yes;
    EXPECT_EQ(save("Factory")->kind, "Factory");
    EXPECT_EQ(save("factory?")->kind, "Field") << "there are two kinds";
    EXPECT_EQ(told.size(), 2U);
    const auto rows = shelf.PolyCalibration_loadcalibrationhistorydata(gamma).rows;
    EXPECT_FALSE(rows.at(0).bold);
    EXPECT_TRUE(rows.at(1).bold);
}

TEST_F(CalibrationHistoryTest, OnlyTheSensorIsFoundInWhateverCase) {
    putBytes(bytesOf(1));
    add(blankCalibrationRecord()); // of no sensor
    const std::pair<CalibrationFilter, std::size_t> cases[] = {{{" K201 ", "G-1 ", " gAMMA "}, 1},
                                                               {{"k201", "G-1", "Gamma"}, 0},
                                                               {{"K201", "g-1", "Gamma"}, 0},
                                                               {{"K201", "G-1", "Gam"}, 0},
                                                               {{"K201", "G-", "Gamma"}, 0},
                                                               {{"", "", ""}, 0},
                                                               {{}, 1}};
    for (const auto& [filter, count] : cases) {
        EXPECT_EQ(shelf.PolyCalibration_loadcalibrationhistorydata(filter).rows.size(), count);
    }
}

TEST_F(CalibrationHistoryTest, TheLatestFactoryCalibrationIsTheLastOne) {
    EXPECT_EQ(shelf.PolyCalibration_getlatestfactorycalibdata(gamma), std::nullopt);
    EXPECT_FALSE(files.exists(file));
    putBytes(bytesOf(1));
    EXPECT_EQ(shelf.PolyCalibration_getlatestfactorycalibdata(gamma), std::nullopt) << "of the field";
    for (const std::size_t constant : {7, 8}) add(record("Factory", constant));
    add(record("Field", 9));
    EXPECT_EQ(shelf.PolyCalibration_getlatestfactorycalibdata(gamma)->coefficients[0], 8);
    EXPECT_EQ(shelf.PolyCalibration_getlatestfactorycalibdata({"K201", "G-2", "Gamma"}), std::nullopt);

    EXPECT_EQ(shelf.PolyCalibration_getselectedpreviouscalibdata(4), std::nullopt);
    ASSERT_EQ(errors.errors.size(), 1U);
    EXPECT_EQ(errors.errors[0].routine, "PolyCalibration_getselectedpreviouscalibdata");
    EXPECT_THAT(errors.errors[0].description, HasSubstr(file.string()));
}

/// A kill in the middle of a save can leave any length behind two whole records.
TEST_F(CalibrationHistoryTest, ATornRecordIsPassedOverAndLeavesNothingAskew) {
    const Bytes whole = bytesOf(3);
    for (std::size_t length = 728 + 600; length <= whole.size(); ++length) {
        const std::size_t torn = (length - 128) % 600;
        // Rounded, halves to even: two records and a half are two.
        const std::size_t counted = torn > 300 || length == whole.size() ? 3 : 2;
        putBytes({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)});
        const std::size_t complete = (length - 128) / 600;

        ASSERT_THAT(summary(), HasSubstr("(" + std::to_string(counted) + " records)")) << length;
        ASSERT_EQ(constants().size(), complete) << length;
        ASSERT_EQ(shelf.calibrationsOf("K201", "G-1").size(), complete) << length;
        ASSERT_EQ(save("Field", 42)->identifier, "130306-0000" + std::to_string(counted + 1)) << length;
        ASSERT_EQ(files.size(file), 128 + 600 * (counted + 1)) << length;
        std::vector<double> wanted{0, 1, 42};
        if (complete == 3) wanted = {0, 1, 2, 42};
        ASSERT_EQ(constants(), wanted) << length;
        if (counted == 3 && complete == 2) {
            ASSERT_EQ(CalibrationRecord(files.readPart(file, 1328, 600)), blankCalibrationRecord()) << length;
        }
    }
    EXPECT_TRUE(errors.errors.empty());
    EXPECT_EQ(std::ranges::count_if(lines.lines,
                                    [](const auto& l) { return l.find("is torn") != std::string::npos; }),
              599);
}

TEST_F(CalibrationHistoryTest, WhatASaveCannotDoLosesNothing) {
    Bytes torn = bytesOf(2);
    torn.resize(128 + 600 + 450);
    putBytes(torn);
    for (const std::uint64_t allowed : {0, 1, 2, 3, 4}) {
        files.failWritesAfter = files.writes() + allowed;
        const bool saved = save("Field", 42).has_value();
        EXPECT_EQ(saved, allowed == 4) << "aside, cut, blank, record";
        files.failWritesAfter = std::numeric_limits<std::uint64_t>::max();
        EXPECT_EQ(constants(), (saved ? std::vector<double>{0, 42} : std::vector<double>{0})) << allowed;
        if (allowed > 0) {
            EXPECT_EQ(files.read(file.string() + ".damaged"), torn);
        }
        if (!saved) putBytes(torn);
    }
    EXPECT_EQ(errors.errors.size(), 4U);

    errors.errors.clear();
    files.readOnly = {file};
    EXPECT_FALSE(save());
    ASSERT_EQ(errors.errors.size(), 1U);
    EXPECT_EQ(errors.errors[0].routine, "PolyCalibration_savecalibrationhistorydata");
    EXPECT_THAT(errors.errors[0].description, HasSubstr(file.string()));
    EXPECT_EQ(constants(), (std::vector<double>{0, 42})) << "it can still be read";
}

TEST_F(CalibrationHistoryTest, AFileShorterThanItsHeaderBeginsAnew) {
    for (const std::size_t length : {0, 127}) {
        putBytes(Bytes(length, 'x'));
        EXPECT_THAT(summary(), HasSubstr("(no records)"));
        EXPECT_EQ(files.size(file), length) << "looking at it changes nothing";
        ASSERT_TRUE(save("Field", 5));
        EXPECT_EQ(files.size(file.string() + ".damaged"), length);
        EXPECT_EQ(constants(), std::vector<double>{5});
    }
}

TEST_F(CalibrationHistoryTest, ARecordWithoutAPolynomialIsNotUsedInARun) {
    putBytes(bytesOf(1));
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::pair<std::int16_t, double> records[] = {
        {20, 1}, {-1, 1}, {1, nan}, {19, 1}, {0, nan}}; // terms above the order do not count
    for (const auto& [order, second] : records) {
        CalibrationRecord one = record("Field", 1);
        one.set(calibration::order, order);
        one.set(calibration::coefficient(1), second);
        add(one);
    }
    EXPECT_EQ(shelf.calibrationsOf("K201", "G-1").size(), 3U);
    EXPECT_THAT(lines.lines,
                ElementsAre(HasSubstr("record 2 "), HasSubstr("record 3 "), HasSubstr("record 4 ")));
}

TEST_F(CalibrationHistoryTest, TheToolOfARunTakesTheLastRecordsOfItsSensorsInBothModes) {
    putUser();
    CalibrationRecord other = record("Field", 50);
    other.set(calibration::sensorName, "GAMMA");
    putBytes(bytesOf(2));
    add(other);
    ToolWinchData equipment{trap, files, log, box, shelf, folder};
    equipment.ToolWinchData_loadcurrentttoolwinch({"K201", "G-1"}, {}, 1);
    const CurrentTool& tool = equipment.currentTool();
    for (const auto& mode : tool.calibrations) EXPECT_EQ(mode[1].coefficients[0], 50);
    const Calibration& caliper = tool.calibrations[0][2];
    EXPECT_EQ(caliper.sensorName + caliper.serialNumber, "CaliperG-1");
    EXPECT_EQ(caliper.coefficients[1], 1);
    EXPECT_EQ(caliper.state + "|" + caliper.fitName + "|" + caliper.identifier + "|" + caliper.date + "|" +
                  caliper.time + "|" + caliper.calibratedBy + "|" + caliper.kind,
              "None|Linear|001-001|01-Jan-2001|09:00:00|Manufacturer|Factory");
    equipment.ToolWinchData_loadcurrentttoolwinch({"K201", "G-2"}, {}, 1);
    EXPECT_EQ(tool.calibrations[0][1].state, "None");
}

TEST_F(CalibrationHistoryTest, AHistoryThatCannotBeReadLeavesTheToolItsCounts) {
    putUser();
    files.createFolder(file); // there, but no file
    ToolWinchData equipment{trap, files, log, box, shelf, folder};
    EXPECT_EQ(equipment.ToolWinchData_loadcurrentttoolwinch({"K201", "G-1"}, {"W240", ""}, 1),
              "Current winch : Truck winch");
    EXPECT_EQ(equipment.currentTool().calibration(1).sensorName, "Gamma");
    EXPECT_EQ(equipment.currentTool().calibration(1).state, "None");
    ASSERT_EQ(errors.errors.size(), 1U);
    EXPECT_EQ(errors.errors[0].routine, "ToolWinchData_loadcurrentttoolwinch");
    EXPECT_EQ(summary(), "");
    EXPECT_FALSE(save());
    EXPECT_FALSE(shelf.PolyCalibration_exportcalibrationhistorydata({}, "/c/x.txt"));
    EXPECT_EQ(errors.errors.size(), 4U);
}

TEST_F(CalibrationHistoryTest, TheExportHasAColumnForEverything) {
    Calibration one;
    one.sensorName = "Gam\tma";
    one.state = "Calibrated";
    one.calibratedBy = "Zoë";
    one.order = 2;
    one.coefficients = {0.1, -2, 3e-7, 4};
    one.pointCount = 1;
    one.points[0] = {1.5F, 0.1F};
    one.points[1] = {9, 9};
    putBytes(bytesOf(1));
    add(calibrationRecord(makeTool("K230", "Density", "D-1"), one));
    ASSERT_TRUE(shelf.PolyCalibration_exportcalibrationhistorydata({}, "/c/kvxcalib.txt"));
    std::string wanted = "Tool code\tTool name\tSerial number\tSensor\tState\tFit\tIdentifier\tDate\tTime\t"
                         "Calibrated by\tKind\tOrder";
    for (int term = 1; term <= 20; ++term) wanted += "\tC" + std::to_string(term);
    wanted += "\tPoints";
    for (int point = 1; point <= 20; ++point)
        wanted += "\tX" + std::to_string(point) + "\tY" + std::to_string(point);
    const std::string made = "\t001-001\t01-Jan-2001\t09:00:00\t";
    wanted += "\r\nK201\tNatural gamma\tG-1\tGamma\tNone\tLinear" + made + "Manufacturer\tField\t1\t0\t1" +
              std::string(18, '\t') + "\t0" + std::string(40, '\t');
    wanted += "\r\nK230\tDensity\tD-1\tGam ma\tCalibrated\tLinear" + made + "Zo\xEB\tFactory\t2\t0.1\t-2\t" +
              shortestNumber(3e-7) + std::string(17, '\t') + "\t1\t1.5\t0.1" + std::string(38, '\t') + "\r\n";
    EXPECT_EQ(files.text("/c/kvxcalib.txt"), wanted);
    ASSERT_TRUE(shelf.PolyCalibration_exportcalibrationhistorydata(gamma, "/c/kvxcalib.txt"));
    EXPECT_THAT(files.text("/c/kvxcalib.txt"), testing::Not(HasSubstr("K230")));
}

} // namespace
} // namespace tarvik
