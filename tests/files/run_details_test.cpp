#include "files/run_details.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tarvik;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

ReviewLog gammaRun() {
    ReviewLog log;
    RunHeader& header = log.header;
    header.runDate = "13-Mar-2006";
    header.startTime = "02:05 pm";
    header.project = "Northern";
    header.hole.holeId = "H1";
    header.hole.company = " ";
    header.hole.fluidLevel = "12 m";
    header.tool = {"K201", "Natural gamma", "G-1"};
    header.winch = {"W110", "Portable winch", "W-1"};
    header.toolModeName = "Gamma";
    header.setup.sampling = Sampling::depth;
    header.setup.interval = 5;
    header.setup.units = DepthUnits::feet;
    header.channels.resize(1);
    log.channels = {{"Speed", "Ft/min", true, {1, 2}}, {"GAMMA", "CPS", false, {3, 4}}};
    log.depth = {12.5, 48.25};
    log.time = {0, 300};
    return log;
}

std::string joined(const std::vector<DetailRow>& rows) {
    std::string text;
    for (const DetailRow& row : rows) text += row.title + "=" + row.value + "\n";
    return text;
}

} // namespace

TEST(RunDetails, TheSummaryNamesDamageOnlyWhenThereIsAny) {
    ReviewLog log = gammaRun();
    const std::string sound = joined(runSummary(log, "H1_K201_01.kvx"));
    EXPECT_EQ(sound, "File=H1_K201_01.kvx\nHole=H1  (project Northern)\nTool=K201  Natural gamma  SN-G-1\n"
                     "Winch=Portable winch\n"
                     "Run=13-Mar-2006 02:05 pm, DEPTH sampling every 5 cm (0.164 ft), DOWN\n"
                     "Scans=2, depth 12.50 to 48.25 Feet\n");
    log.skippedScans = 3;
    log.partialBytes = 7;
    EXPECT_EQ(joined(runSummary(log, "H1_K201_01.kvx")),
              sound + "Left out=3 scans without a valid depth (less than 2000 ft)\nTorn=7 bytes of a last "
                      "record, not read\n");
}

TEST(RunDetails, TheScreensRowsAddWhatTheSummaryHasNoRoomFor) {
    ReviewLog log = gammaRun();
    EXPECT_THAT(joined(runRows(log, "x")), HasSubstr("Duration=5.0 minutes\n"));
    EXPECT_THAT(joined(runRows(log, "x")), Not(HasSubstr("Cut=")));
    log.truncated = log.reversed = true;
    log.time = {0, 90};
    EXPECT_THAT(joined(runRows(log, "x")), HasSubstr("Duration=90.0 s\n"));
    EXPECT_THAT(joined(runRows(log, "x")), HasSubstr("Order=logged upwards"));
    EXPECT_THAT(joined(runRows(log, "x")), HasSubstr("Cut=the file holds more"));
}

TEST(RunDetails, HoleTextsThatWereNeverEnteredAreLeftOut) {
    EXPECT_EQ(joined(holeRows(gammaRun().header.hole)), "Hole=H1\nFluid level=12 m\n");
}

TEST(RunDetails, TheTextHasEveryChannelWithItsCalibration) {
    ReviewLog log = gammaRun();
    log.header.channels.resize(2);
    Calibration& gamma = log.header.channels[1].calibration;
    gamma.coefficients = {0.1, 2};
    gamma.pointCount = 1;
    gamma.points[0] = {10, 20.5F};
    EXPECT_THAT(runDetailsText(log, "x"),
                HasSubstr("Channel    GAMMA  CPS  (not calibrated: counts)\n"
                          "             Linear 001-001, 01-Jan-2001 09:00:00 by Manufacturer, Factory, None\n"
                          "             order 1: 0.1 2\n"
                          "             points: (10, 20.5)\n"));
    log.header.channels.clear(); // a header that does not describe them
    EXPECT_EQ(channelDetails(log).size(), 2U);
    EXPECT_EQ(channelDetails(log)[1].calibration.state, "None");
    Calibration damaged;
    damaged.order = 32767;
    damaged.pointCount = -1;
    EXPECT_THAT(calibrationLines(damaged).polynomial, HasSubstr("order 32767: 0 1 0"));
    EXPECT_EQ(calibrationLines(damaged).points, "");
}
