// LAS files compared to the byte, and every way to be refused.
#include "processing/las_data.h"
#include "processing/las_export.h"

#include "platform/memory_files.h"
#include "processing/las_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tarvik;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

class Errors final : public ErrorReporter {
  public:
    void report(const ErrorReport& error) override { reports.push_back(error); }
    std::vector<ErrorReport> reports;
};

ReviewLog smallLog() {
    ReviewLog log;
    log.header.hole = {};
    log.header.hole.company = "Compañía Minera";
    log.header.hole.holeId = "H1";
    log.header.hole.prospect = "North";
    log.header.hole.coordinates = "12 E 34 N";
    log.header.hole.area = "Lapland";
    log.header.hole.contractor = "Deep Drilling and Sons of Kiruna AB";
    log.header.runDate = "13-Mar-2006";
    log.depth = {1, 1.5, 2, 2.5};
    log.time = {0, 1, 2, 3.5};
    log.channels = {{"Speed", "M/min", true, {6, 6, 6, 6}},
                    {"GAMMA", "CPS", true, {10, 20.125F, noValue(), 40}},
                    {"MAGNETIC FIELD", "", false, {-1234567.5F, 0.004F, -0.004F, 7}}};
    log.current.values = {48, 49, 50, 51};
    return log;
}

struct Export {
    bool run(const LasExportOptions& options) {
        return LasExport(trap, files)
            .Logprintexport_exportLASfile(log, "out.las", options,
                                          [this](std::string_view line) { list.emplace_back(line); });
    }
    /// The data lines, without the header.
    std::string data() {
        const std::string text = files.text("out.las");
        return text.substr(text.find("\r\n", text.find("~A")) + 2);
    }
    std::string header() {
        const std::string text = files.text("out.las");
        return text.substr(0, text.find("\r\n", text.find("~A")) + 2);
    }

    ReviewLog log = smallLog();
    MemoryFiles files;
    Errors errors;
    ErrorTrap trap{errors};
    std::vector<std::string> list;
};

} // namespace

TEST(LasExport, WholeFileToTheByte) {
    Export las;
    ASSERT_TRUE(las.run({.filters = {{"GAMMA", "None"}}, .holeAzimuth = "12.5"}));
    const std::string expected = "~Version Information Section\r\n"
                                 "VERS.           2.0     :   CWLS log ASCII Standard -VERSION 2.0\r\n"
                                 "WRAP.           NO      :   One line per depth step\r\n"
                                 "~Well Information Section\r\n"
                                 "#MNEM.UNIT      VALUE/NAME      DESCRIPTION\r\n"
                                 "#--------     --------------   ---------------------\r\n"
                                 "STRT.M             1.00         :START DEPTH\r\n"
                                 "STOP.M             2.50         :STOP DEPTH\r\n"
                                 "STEP.M             0.50         :STEP\r\n"
                                 "NULL.           -999.25         :NULL\r\n"
                                 "COMP.   Compa\xF1\xED"
                                 "a Minera                 :COMPANY\r\n"
                                 "WELL.   H1                              :WELL\r\n"
                                 "FLD .   North                           :FIELD\r\n"
                                 "LOC .   12 E 34 N                       :LOCATION\r\n"
                                 "PROV.   Lapland                         :PROVINCE\r\n"
                                 "SRVC.   Deep Drilling and Sons of Kiruna AB  :SERVICE COMPANY\r\n"
                                 "DATE.   13-Mar-2006                     :LOG DATE\r\n"
                                 "UWI .   1234567890                      :UNIQUE WELL ID\r\n"
                                 "~CURVE INFORMATION\r\n"
                                 "#MNEM.UNIT                               CURVE DESCRIPTION\r\n"
                                 "#-------------                           -----------------\r\n"
                                 "Depth.M                                :  1   Depth\r\n"
                                 "Speed.M/min                            :  2   Speed\r\n"
                                 "GAMMA.CPS                              :  3   GAMMA\r\n"
                                 "MAGNETIC FIELD.                        :  4   MAGNETIC FIELD\r\n"
                                 "#\r\n"
                                 "# NOTE : No data channels have been filtered.  Data is raw data.\r\n"
                                 "#\r\n"
                                 "~Parameter Information Section\r\n"
                                 "#MNEM.UNIT         VALUE            DESCRIPTION\r\n"
                                 "#-----------     --------------   ---------------------\r\n"
                                 "HOLEAZIM.DEG        12.5               : Hole azimuth\r\n"
                                 "HOLEINCL.DEG                       : Hole inclination\r\n"
                                 "~A     Depth       Speed       GAMMA MAGNETIC FIELD\r\n"
                                 "        1.00        6.00       10.00 -1234567.50\r\n"
                                 "        1.50        6.00       20.13        0.00\r\n"
                                 "        2.00        6.00     -999.25        0.00\r\n"
                                 "        2.50        6.00       40.00        7.00\r\n";
    EXPECT_EQ(las.files.text("out.las"), expected);
    EXPECT_THAT(las.list, ElementsAre("Warning: MAGNETIC FIELD is not calibrated", "Write", "data to file"));
    EXPECT_THAT(las.errors.reports, IsEmpty());
}

TEST(LasExport, RegularStepsInFeetWithFiltersAndOwnNull) {
    Export las;
    las.log.header.setup.units = DepthUnits::feet;
    las.log.channels[2].values = {1, 2, 6, 3};
    ASSERT_TRUE(las.run({.start = 0.75,
                         .stop = 2.6,
                         .step = 0.25,
                         .nullText = "-9999",
                         .decimals = 5,
                         .filters = {{"MAGNETIC FIELD", " 3 "}},
                         .channels = {"MAGNETIC FIELD", "GAMMA", "TIME", "Current"}}));
    const std::string header = las.header();
    EXPECT_THAT(header, HasSubstr("STRT.FT             0.75         :START DEPTH\r\n"
                                  "STOP.FT             2.60         :STOP DEPTH\r\n"
                                  "STEP.FT             0.25         :STEP\r\n"
                                  "NULL.             -9999         :NULL\r\n"));
    EXPECT_THAT(header, HasSubstr("Depth.FT "));
    EXPECT_THAT(header, HasSubstr("TIME.seconds                           :  4   TIME\r\n"));
    EXPECT_THAT(header, HasSubstr("#\r\n# NOTE : Data channels have been filtered as below\r\n"
                                  "#        MAGNETIC FIELD - 3 pt\r\n"
                                  "#        GAMMA - None\r\n"
                                  "#        TIME - None\r\n"
                                  "#        Current - None\r\n#\r\n"));
    EXPECT_EQ(las.data(), "        0.75       -9999       -9999       -9999       -9999\r\n"
                          "        1.00     1.00000    10.00000     0.00000    48.00000\r\n"
                          "        1.25     2.00000    15.06250     0.50000    48.50000\r\n"
                          "        1.50     3.00000    20.12500     1.00000    49.00000\r\n"
                          "        1.75     3.33333       -9999     1.50000    49.50000\r\n"
                          "        2.00     3.66667       -9999     2.00000    50.00000\r\n"
                          "        2.25     3.33333       -9999     2.75000    50.50000\r\n"
                          "        2.50     3.00000    40.00000     3.50000    51.00000\r\n");
    EXPECT_THAT(las.list, ElementsAre("Warning: MAGNETIC FIELD is not calibrated", "Interpolate...", "Write",
                                      "data to file"));
}

TEST(LasExport, NumbersThatFillTheirColumnStayApart) {
    Export las;
    las.log.channels = {{"ABCDEFGHIJKL", "", true, {123456, 12345, 1e9F, 1}}, // 12 characters with 5 decimals
                        {"ABCDEFGHIJK", "", true, {654321, 1, 1, 1}}};
    ASSERT_TRUE(las.run({.decimals = 5}));
    EXPECT_THAT(las.header(), HasSubstr("~A     DepthABCDEFGHIJKL ABCDEFGHIJK\r\n"));
    EXPECT_THAT(las.data(), HasSubstr("        1.00 123456.00000 654321.00000\r\n"
                                      "        1.50 12345.00000     1.00000\r\n"
                                      "        2.00 1000000000.00000     1.00000\r\n"));
}

TEST(LasExport, WithoutARegularStepTheLoadedDepthsInTheIntervalGoOut) {
    Export las;
    ASSERT_TRUE(las.run({.start = 1.5, .stop = 2, .channels = {"Speed"}}));
    EXPECT_EQ(las.data(), "        1.50        6.00\r\n        2.00        6.00\r\n");
    las.log.depth = {1, 1.49, 2, 2.5};
    ASSERT_TRUE(las.run({}));
    EXPECT_THAT(las.header(), HasSubstr("STEP.M             0.00  "));
    las.log.depth = {1, 1.501, 2, 2.5}; // uneven by the rounding of the file only
    ASSERT_TRUE(las.run({}));
    EXPECT_THAT(las.header(), HasSubstr("STEP.M             0.50  "));
    las.list.clear();
    las.log.depth = {1, 2.5, 1.2, 2}; // appended over itself
    ASSERT_TRUE(las.run({}));
    EXPECT_THAT(las.list, ::testing::Contains(HasSubstr("the depths go back, from 2.50 to 1.20")));
}

/// A run in feet steps by centimetres.
TEST(LasExport, AStepThatTwoDecimalsCannotHoldIsNotPromised) {
    Export las;
    las.log.depth = {33.465, 33.629, 33.793, 33.957};
    ASSERT_TRUE(las.run({.channels = {"Speed"}}));
    EXPECT_THAT(las.header(), HasSubstr("STEP.M             0.00  "));
}

TEST(LasExport, TheHeaderPromisesNoDepthWithoutALine) {
    Export las;
    ASSERT_TRUE(las.run({.start = 0, .stop = 100}));
    EXPECT_THAT(las.header(), HasSubstr("STRT.M             1.00  "));
    EXPECT_THAT(las.header(), HasSubstr("STOP.M             2.50  "));
}

TEST(LasExport, NoLineIsDrawnThroughWhatWasNotLogged) {
    Export las;
    las.log.depth = {1, 1.1, 1.2, 3.2};
    las.log.header.setup.sampling = Sampling::depth;
    ASSERT_TRUE(las.run({.start = 1.1, .step = 0.7, .channels = {"Speed"}}));
    EXPECT_EQ(las.data(), "        1.10        6.00\r\n        1.80     -999.25\r\n"
                          "        2.50     -999.25\r\n        3.20        6.00\r\n");
    EXPECT_THAT(las.list,
                ::testing::Contains("Warning: nothing was logged from 1.20 to 3.20, the steps there "
                                    "have no value"));
}

TEST(LasExport, ChannelsOfOneNameKeepTheirOwnValuesAndFilters) {
    Export las;
    las.log.channels[1].name = "Speed ";
    ASSERT_TRUE(las.run({.filters = {{"Speed", "None"}, {"Speed", "1"}}, .channels = {"Speed", "Speed"}}));
    EXPECT_THAT(las.data(), HasSubstr("        1.00        6.00       10.00\r\n"));
    EXPECT_THAT(las.header(), HasSubstr("#        Speed - None\r\n#        Speed - 1 pt\r\n"));
}

TEST(LasExport, StepsFinerThanTheirTwoDecimalsAreWarnedOf) {
    Export las;
    ASSERT_TRUE(las.run({.step = 0.125, .channels = {"Speed"}}));
    EXPECT_THAT(las.header(), HasSubstr("STEP.M             0.13  "));
    EXPECT_THAT(las.list.at(1), HasSubstr("step 0.125 is no multiple of 0.01"));
    las.list.clear();
    ASSERT_TRUE(las.run({.step = 0.29, .channels = {"Speed"}}));
    EXPECT_THAT(las.list, ElementsAre("Interpolate...", "Write", "data to file"));
}

TEST(LasExport, ValuesThatWillReadAsNoValueAreWarnedOf) {
    Export las;
    las.log.channels[0].values = {6, -999.25F, -999.26F, noValue()};
    ASSERT_TRUE(las.run({}));
    EXPECT_THAT(las.list, ::testing::Contains("Warning: 1 value of Speed is the null value -999.25 and will "
                                              "be read as no value, choose another null value"));
}

TEST(LasExport, TheLastRegularStepIsNotLostToRounding) {
    Export las;
    las.log.depth = {0.1, 0.2, 0.3, 0.4};
    ASSERT_TRUE(las.run({.stop = 0.3, .step = 0.1, .channels = {"Current"}})); // 1.9999999999999998 steps
    EXPECT_EQ(las.data(), "        0.10       48.00\r\n        0.20       49.00\r\n"
                          "        0.30       50.00\r\n");
}

TEST(LasExport, RefusedBeforeAnythingIsWritten) {
    const struct {
        const char* name;
        LasExportOptions options;
        const char* reason;
    } cases[]{
        {"one decimal", {.decimals = 1}, "2 to 5"},
        {"six decimals", {.decimals = 6}, "2 to 5"},
        {"null", {.nullText = "none"}, "no number"},
        {"zero step", {.step = 0.0}, "greater than 0"},
        {"negative step", {.step = -0.5}, "greater than 0"},
        {"turned", {.start = 2.0, .stop = 1.0}, "greater than the stop"},
        {"nowhere", {.start = 1.1, .stop = 1.2}, "no depth step"},
        {"too many", {.start = 0.0, .stop = 80000.0, .step = 1.0}, "80001 lines"},
        {"endless", {.start = 0.0, .stop = 1e300, .step = 1e-300}, "80000"},
        {"channel", {.channels = {"GAMA"}}, "GAMA"},
        {"filtered channel", {.filters = {{"GAMA", "3"}}}, "GAMA"},
        {"filter of a channel that stays", {.filters = {{"GAMMA", "3"}}, .channels = {"Speed"}}, "GAMMA"},
        {"filter 0", {.filters = {{"GAMMA", "0"}}}, "\"0\""},
        {"filter -3", {.filters = {{"GAMMA", "-3"}}}, "\"-3\""},
        {"filter 2.5", {.filters = {{"GAMMA", "2.5"}}}, "\"2.5\""},
        {"no filter", {.filters = {{"GAMMA", ""}}}, "\"\""},
    };
    for (const auto& bad : cases) {
        Export las;
        las.files.put("out.las", "an earlier export");
        EXPECT_FALSE(las.run(bad.options)) << bad.name;
        ASSERT_EQ(las.errors.reports.size(), 1U) << bad.name;
        EXPECT_EQ(las.errors.reports[0].routine, "Logprintexport_exportLASfile");
        EXPECT_THAT(las.errors.reports[0].description, HasSubstr(bad.reason));
        EXPECT_EQ(las.files.text("out.las"), "an earlier export");
    }
    Export empty;
    empty.log = {};
    EXPECT_FALSE(empty.run({}));
    EXPECT_THAT(empty.errors.reports.at(0).description, HasSubstr("nothing to export"));
    Export most;
    EXPECT_TRUE(most.run({.start = 0.0, .stop = 79999.0, .step = 1.0}));
}

TEST(LasExport, NeverOverARun) {
    Export las;
    las.files.put("out.las", "TARVIKDEPTH     ");
    EXPECT_FALSE(las.run({}));
    EXPECT_EQ(las.files.text("out.las"), "TARVIKDEPTH     ");
}

TEST(LasExport, NeverOverTheFileThatTheLogCameFrom) {
    Export las;
    las.files.put("out.las", "~Version with more than was loaded");
    EXPECT_FALSE(las.run({.source = "./out.las"}));
    EXPECT_THAT(las.errors.reports.at(0).description, HasSubstr("is the file read"));
    EXPECT_EQ(las.files.text("out.las"), "~Version with more than was loaded");
}

TEST(LasExport, AnErrorInWritingLeavesThePartlyWrittenFile) {
    Export las;
    las.files.failWritesAfter = 2;
    ASSERT_FALSE(las.run({.start = 1.0, .stop = 80000.0, .step = 1.0}));
    EXPECT_EQ(las.errors.reports.at(0).number, 61);
    const std::string part = las.files.text("out.las");
    EXPECT_THAT(part, ::testing::StartsWith("~Version"));
    EXPECT_GT(part.size(), 2000000U);
    EXPECT_TRUE(part.ends_with("\r\n"));
}

TEST(LasExport, WhatAFileHeldBeforeIsLostOnlyToAWholeExport) {
    Export las;
    const LasExportOptions large{.start = 1.0, .stop = 80000.0, .step = 1.0};
    const auto breakOff = [](int) { return false; };
    las.files.put("out.las", "an earlier export");
    EXPECT_FALSE(
        LasExport(las.trap, las.files).Logprintexport_exportLASfile(las.log, "out.las", large, {}, breakOff));
    EXPECT_EQ(las.files.text("out.las"), "an earlier export");
    las.files.failWritesAfter = las.files.writes() + 3; // aside, first and second piece
    EXPECT_FALSE(las.run(large));
    EXPECT_EQ(las.files.text("out.las.before"), "an earlier export");
    EXPECT_THAT(las.errors.reports.at(0).description, HasSubstr("as it was before is out.las.before"));
    las.files.failWritesAfter = 1000;
    ASSERT_TRUE(las.run(large));
    EXPECT_FALSE(las.files.exists("out.las.before"));
    EXPECT_EQ(lasDepthsProblem(las.log, {.start = 16.0, .stop = 12.0}),
              "The start 16 is greater than the stop 12, enter the smaller depth as start.");
}
