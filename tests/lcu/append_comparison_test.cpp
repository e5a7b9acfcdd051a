// What is shown before an append or a run with the deviation tool.
#include "lcu/append_comparison.h"

#include "files/run_file_layout.h"
#include "lcu/append_check.h"
#include "lcu/declination.h"
#include "lcu/runs_in_hole.h"
#include "platform/memory_files.h"
#include "platform/virtual_clock.h"

#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tarvik;
using ::testing::HasSubstr;

namespace {

RunHeader gammaHeader() {
    RunHeader header;
    header.versionMajor = 2;
    header.versionMinor = 1;
    header.channels.resize(2);
    header.channels[0].name = "Speed";
    header.channels[1].name = "GAMMA";
    return header;
}

} // namespace

TEST(AppendComparison, SaysWhenAnAppendLiesOverTheFile) {
    const DepthRange onFile{5.05, 18.05};
    EXPECT_EQ(overlapWarning(onFile, 3, Direction::down),
              "The tool stands at 3.00, the file has scans to 18.05: what is appended lies over them.");
    EXPECT_EQ(overlapWarning(onFile, 18.05, Direction::down), "");
    EXPECT_EQ(overlapWarning(onFile, 5.05, Direction::up), "");
    EXPECT_NE(overlapWarning(onFile, 18.05, Direction::up), "");
}

TEST(AppendComparison, DiffersExactlyWhereTheCheckRefuses) {
    struct Case {
        const char* what; ///< empty: nothing refuses
        std::function<void(RunHeader&)> change;
    };
    const std::vector<Case> cases{
        {"", [](RunHeader&) {}},
        {"Depth units", [](RunHeader& h) { h.setup.units = DepthUnits::feet; }},
        {"Sampling interval", [](RunHeader& h) { h.setup.interval = 0.25F; }},
        {"Logging direction", [](RunHeader& h) { h.setup.direction = Direction::up; }},
        {"Sampling method", [](RunHeader& h) { h.setup.sampling = Sampling::depth; }},
        {"Tool mode", [](RunHeader& h) { h.toolMode = 2; }},
        {"Channels", [](RunHeader& h) { h.channels[1].name = "DENSITY"; }},
        {"Channels, Record length", [](RunHeader& h) { h.channels.emplace_back(); }},
        {"Scale of the file", [](RunHeader& h) { h.versionMajor = 1; }},
        {"Channels in counts", [](RunHeader& h) { h.channels[1].calibration.state = "Calibrated"; }}};
    for (const Case& one : cases) {
        RunFileInfo latest{.header = gammaHeader(), .shape = {}};
        one.change(latest.header);
        const int values = static_cast<int>(latest.header.channels.size()) - 1;
        latest.shape.recordLength = run_file::scanLength(values);
        const auto rows = appendComparison(gammaHeader(), latest);
        const std::string expected =
            *one.what == '\0' ? "The settings agree with the latest run: it can be appended to."
                              : "An append would be refused, because of: " + std::string(one.what) + ".";
        EXPECT_EQ(appendVerdict(rows), expected);
        EXPECT_EQ(CheckLatestRunSpecs(gammaHeader(), latest).has_value(), *one.what != '\0') << one.what;
    }
}

TEST(AppendComparison, OtherCalibrationsAreShownButDoNotRefuse) {
    RunFileInfo latest{.header = gammaHeader(), .shape = {.recordLength = run_file::scanLength(1)}};
    latest.header.channels[1].calibration.coefficients[1] = 2;
    latest.header.tool.serialNumber = "G-7";
    const auto rows = appendComparison(gammaHeader(), latest);
    EXPECT_EQ(rows.back().now, "others for GAMMA");
    EXPECT_FALSE(rows.back().agrees || rows.back().refuses);
    EXPECT_EQ(appendVerdict(rows),
              "It can be appended to, but these differ from the latest run: Serial number of the "
              "tool, Calibrations.");
    EXPECT_FALSE(CheckLatestRunSpecs(gammaHeader(), latest));
}

TEST(AppendComparison, AFileThatCannotBeReadIsARowOfItsOwn) {
    MemoryFiles files;
    files.put("short.kvx", "no run");
    const auto rows = appendComparison(gammaHeader(), files, "short.kvx");
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_THAT(rows[0].onFile, HasSubstr("short.kvx"));
    EXPECT_FALSE(rows[0].agrees);
}

TEST(RunsInHole, LooksInTheProjectFolderOfTheSettings) {
    class : public ErrorReporter {
        void report(const ErrorReport&) override { ++reports; }

      public:
        int reports = 0;
    } errors;
    MemoryFiles files;
    ErrorTrap trap{errors};
    VirtualClock clock;
    StatusLog log{trap, clock, files, "history"};
    RunFileReader reader{trap, log, files};
    Places places;
    places.homeDrive = "/c";
    Settings settings;
    settings.currentProject = " Northern ";
    settings.hole.holeId = "H1 ";
    EXPECT_EQ(runsInHole(files, reader, settings, places, "K201").runsText, "");
    files.put("/c/Brenna Projects/Northern/H1_K201_01.kvx", "torn");
    const RunsInHole found = runsInHole(files, reader, settings, places, "K201");
    EXPECT_THAT(found.runsText, HasSubstr("Tool has been run once so far on "));
    EXPECT_EQ(found.depthRangeText, "");
    EXPECT_EQ(errors.reports, 1) << "the file cannot be read";
    EXPECT_EQ(depthRangeText(DepthRange{1, 48.754}), "Depth range on file  1.00  to  48.75");
    EXPECT_EQ(runsInHole(files, reader, settings, places, "").runs.count, 0);
}

TEST(Declination, SaysWhichAzimuthsAddNothing) {
    EXPECT_EQ(lostAzimuthsWords(0), "");
    EXPECT_THAT(lostAzimuthsWords(15), HasSubstr("from 345.0\xC2\xB0 to 360.0\xC2\xB0 come out above 360"));
    EXPECT_THAT(lostAzimuthsWords(-12.5), HasSubstr("from 0.0\xC2\xB0 to 12.5\xC2\xB0 come out below 0"));
    EXPECT_THAT(lostAzimuthsWords(360), HasSubstr("from 0.0\xC2\xB0 to 360.0\xC2\xB0"));
    EXPECT_THAT(declinationWords(-12.5), HasSubstr("magnetic 90.0\xC2\xB0 is stored with 77.5\xC2\xB0"));
    EXPECT_THAT(declinationWords(0), HasSubstr("from magnetic north"));
}
