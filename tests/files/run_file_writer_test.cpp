// Bytes of the run file, computed by hand.
#include "run_files.h"

#include "base/failure.h"
#include "files/run_header_codec.h"
#include "files/scan_record.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::testing;

namespace {

std::string textAt(const Bytes& bytes, std::size_t offset, std::size_t width) {
    return asText(std::span(bytes).subspan(offset, width));
}

std::string padded(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

} // namespace

TEST(RunHeader, EveryFieldLiesAtItsByte) {
    RunHeader header = runHeader(3, DepthUnits::feet);
    header.setup.direction = Direction::up;
    header.setup.magneticMarker = 70000;
    header.hole.company = "Compañía"; // ñ and í are one byte each
    header.hole.area = "Province";
    header.hole.prospect = "Field";
    header.hole.contractor = "Service";
    header.hole.coordinates = "Location";
    header.hole.operatorName = "Operator";
    header.hole.permanentDatum = "Datum";
    header.hole.casingType = "Steel";
    header.hole.casingDepth = "30";
    header.hole.casingThickness = "6";
    header.hole.fluidType = "Water";
    header.specialKind = "DEVIATION";
    header.toolMode = 2;
    header.toolModeName = "Second";
    header.channels[1].calibrated = {1.5F, 250};
    Calibration& calibration = header.channels[1].calibration;
    calibration.sensorName = "Log 1";
    calibration.order = 3;
    calibration.coefficients[19] = -0.5;
    calibration.pointCount = 2;
    calibration.points[19] = {8, 9};
    header.notes = "Notes";
    const Bytes bytes = encodeRunHeader(header);

    ASSERT_EQ(bytes.size(), 26188U);
    const struct {
        std::size_t offset, width;
        const char* text;
    } texts[]{
        {0, 6, "TARVIK"},
        {6, 10, "DEPTH"},
        {22, 12, "13-Mar-2006"},
        {34, 12, "Northern lig"},
        {46, 12, "Hole-with-lo"},
        {58, 6, ""},
        {90, 38, ""},
        {128, 10, "Hole-with-"},
        {138, 20, "Hole-with-long-name"},
        {158, 30,
         "Compa\xF1\xED"
         "a"},
        {188, 30, "Province"},
        {218, 10, "Hole-with-"},
        {228, 12, "13-Mar-2006"},
        {240, 10, "02:05 pm"},
        {250, 6, ""},
        {260, 6, "Feet"},
        {268, 30, "Operator"},
        {298, 30, "Field"},
        {328, 30, "Service"},
        {366, 30, "Location"},
        {404, 20, "Datum"},
        {436, 20, "Steel"},
        {460, 10, "ORIGINAL"},
        {470, 10, "DEVIATION"},
        {498, 454, ""},
        {1052, 50, "Casing depth: 30; thickness: 6"},
        {1102, 50, "Fluid: Water"},
        {1152, 8, "W1"},
        {1160, 40, "Small winch"},
        {1200, 20, "W-12"},
        {1232, 432, ""},
        {1664, 8, "K101"},
        {1672, 40, "Gamma tool"},
        {1712, 20, "T-77"},
        {1738, 12, "Second"},
        {1750, 10, ""},
        {1762, 20, "Speed"},
        {1782, 20, "Log 1"},
        {1762 + 4 * 20, 20, ""},
        {2162, 16, "FT/Min"},
        {2178, 16, "CPS"},
        {2882, 30, ""},
        {2962, 202, ""},
        {3164, 10, "Synthetic"},
        {3174, 10, "OK"},
        {3164 + 4 * 10, 10, ""},
        {3164 + 200, 20, "Linear"},
        {3164 + 600 + 20, 20, "001-001"},
        {3164 + 1000 + 20, 20, "Log 1"},
        {3164 + 1400, 12, "01-Jan-2001"},
        {3164 + 1640, 10, "09:00:00"},
        {3164 + 1840, 12, ""},
        {3164 + 2080, 20, "Manufacturer"},
        {3164 + 2480, 20, ""},
        {3164 + 2880, 30, "Factory"},
        {3164 + 3480, 600, ""},
        {3164 + 7320, 320, ""},
        {3164 + 10960, 1040, ""},
        {15164, 62, ""},
        {15164 + 70, 30, ""},
        {15164 + 170, 30, ""},
        {15164 + 200 + 19 * 80, 48, ""},
        {15164 + 1800, 200, ""},
        {17166, 5000, ""},
        {22170, 18, ""},
        {22188, 4000, "Notes"},
    };
    for (const auto& field : texts) {
        EXPECT_EQ(textAt(bytes, field.offset, field.width), padded(field.text, field.width)) << field.offset;
    }

    const struct {
        std::size_t offset;
        int value;
    } integers[]{{16, 128},  {18, 2},    {20, 1},     {64, 26188}, {66, 1024},
                 {68, 512},  {70, 1500}, {72, 12000}, {74, 2000},  {76, 5024},
                 {78, 4000}, {80, 44},   {82, 0},     {84, 0},     {86, 20},
                 {88, 0},    {266, -1},  {480, 0},    {482, 0},    {484, 0},
                 {1732, 2},  {1760, 4},  {7244, 1},   {7406, 3},   {3164 + 7640 + 166, 2},
                 {15226, 0}, {17164, 0}};
    for (const auto& field : integers)
        EXPECT_EQ(readI16le(&bytes[field.offset]), field.value) << field.offset;
    EXPECT_EQ(readF32le(&bytes[256]), 5.0F);
    EXPECT_EQ(readI32le(&bytes[486]), 70000);
    EXPECT_EQ(readF32le(&bytes[1664 + 898]), 0.0F);
    EXPECT_EQ(readF32le(&bytes[1664 + 978]), 30.0F);
    EXPECT_EQ(readF32le(&bytes[1664 + 1058]), 0.0F);
    EXPECT_EQ(readF32le(&bytes[1664 + 1138]), 30.0F);
    EXPECT_EQ(readF32le(&bytes[1664 + 1058 + 4]), 1.5F);
    EXPECT_EQ(readF32le(&bytes[1664 + 1138 + 4]), 250.0F);
    EXPECT_EQ(readF64le(&bytes[7406 + 2 + 19 * 8]), -0.5);
    EXPECT_EQ(readF32le(&bytes[3164 + 7640 + 166 + 2 + 19 * 8 + 4]), 9.0F);
}

TEST(RunHeader, SonicRunsSayHowTheirScansDiffer) {
    RunHeader header = runHeader(10);
    header.waveformSamples = 1000;
    const Bytes bytes = encodeRunHeader(header);
    EXPECT_EQ(readI16le(&bytes[480]), 1000);
    EXPECT_EQ(readI16le(&bytes[482]), 2);
    EXPECT_EQ(readI16le(&bytes[484]), 2);
    EXPECT_EQ(readI32le(&bytes[80]), 4 * 9 + 28 + 4000);
    EXPECT_EQ(decodeRunHeader(bytes, bytes.size(), runFile).shape.channels, 10);
}

TEST(RunHeader, WithoutAChannelTheFirstSlotSaysNone) {
    const Bytes bytes = encodeRunHeader(runHeader(0));
    EXPECT_EQ(textAt(bytes, 3164, 10), "None      ");
    EXPECT_EQ(readI32le(&bytes[80]), 32);
}

TEST(RunHeader, ChannelsAreSpeedAndAtMostTwentyMore) {
    EXPECT_NO_THROW(std::ignore = encodeRunHeader(runHeader(20)));
    EXPECT_THROW(std::ignore = encodeRunHeader(runHeader(21)), Failure);
    RunHeader header = runHeader();
    header.channels.erase(header.channels.begin());
    EXPECT_THROW(std::ignore = encodeRunHeader(header), Failure);
}

TEST(ScanRecord, BytesOfOneScan) {
    const float values[]{1.005F, -0.125F, 0.375F}; // 100.49999…, -12.5 and 37.5 hundredths
    std::uint8_t record[44];
    encodeScan(record,
               {.depth = 10,
                .scanTime = 0x01020304,
                .speed = 327.67,
                .channels = values,
                .toolCurrent = 48.5F,
                .toolVoltage = -1,
                .magneticMarker = 0x1FFFE},
               DepthUnits::feet);
    const std::uint8_t expected[44]{0x28, 0x80, 0,    0,   0x04, 0x03, 0x02, 0x01, 0xFF, 0x7F, 0,
                                    0,    0x64, 0,    0,   0,    0xF4, 0xFF, 0xFF, 0xFF, 0x26, 0,
                                    0,    0,    0x30, 0,   0xFF, 0xFF, 0xFE, 0xFF, 0,    0,    0,
                                    0,    ' ',  ' ',  ' ', ' ',  ' ',  ' ',  ' ',  ' ',  ' ',  ' '};
    EXPECT_TRUE(std::ranges::equal(record, expected)); // 10 m are 32808 thousandths of a foot
}

TEST(RunFileWriter, AppendsWholeRecordsAndShowsTheSavedDepth) {
    RunFiles run;
    EXPECT_EQ(run.save(1), ""); // no file yet
    ASSERT_TRUE(run.writer.LCU_SetupFileHeader(runFile, runHeader()));
    EXPECT_EQ(run.files.size(runFile), 26188U);
    EXPECT_EQ(run.save(1234.5678), "1,234.57");
    EXPECT_EQ(run.files.size(runFile), 26188U + 40);
    run.writer.close();
    EXPECT_EQ(run.save(2), "");
    EXPECT_EQ(run.files.size(runFile), 26188U + 40);
    EXPECT_TRUE(run.errors.reports.empty());

    RunFiles feet;
    feet.writer.LCU_SetupFileHeader(runFile, runHeader(2, DepthUnits::feet));
    EXPECT_EQ(feet.save(10), "32.81");
}

TEST(RunFileWriter, AValueThatDoesNotFitKeepsTheScanOutAndIsReportedWithTheScan) {
    RunFiles run;
    run.writer.LCU_SetupFileHeader(runFile, runHeader());
    EXPECT_NE(run.save(1, 0, 327.67), "");
    EXPECT_EQ(run.save(12.5, 0, 327.68), ""); // 32768 hundredths
    EXPECT_EQ(run.save(1, 2.2e7F), "");
    EXPECT_EQ(run.save(2147484), "");
    EXPECT_EQ(run.files.size(runFile), 26188U + 40);
    ASSERT_EQ(run.errors.reports.size(), 3U);
    EXPECT_EQ(run.errors.reports[0].routine, "LCUFunctions-LCU_SaveScan");
    EXPECT_EQ(run.errors.reports[0].number, 6);
    EXPECT_EQ(run.errors.reports[0].description,
              "Overflow\r\n   LCU Current depth 12.5\r\n   LCU spped and time  327.68  500");

    const float one[]{1};
    EXPECT_EQ(run.writer.LCU_SaveScan({.channels = one}), ""); // a record of another length
    EXPECT_EQ(run.files.size(runFile), 26188U + 40);
}

TEST(RunFileWriter, AFullDiskLosesNoScan) {
    RunFiles run;
    run.files.failWritesAfter = 0;
    EXPECT_FALSE(run.writer.LCU_SetupFileHeader(runFile, runHeader()));
    EXPECT_EQ(run.save(1), ""); // without a header no scan
    EXPECT_EQ(run.errors.reports.size(), 1U);

    run.files.failWritesAfter = 2;
    ASSERT_TRUE(run.writer.LCU_SetupFileHeader(runFile, runHeader()));
    EXPECT_NE(run.save(1), "");
    EXPECT_EQ(run.save(2), "");
    EXPECT_EQ(run.save(3), "");
    EXPECT_EQ(run.save(3.5, 0, 400), ""); // does not fit its field, disk or no disk
    EXPECT_EQ(run.writer.held(), 2U);
    EXPECT_EQ(run.errors.reports.size(), 3U) << "the full disk is reported once";
    run.files.failWritesAfter = 100;
    EXPECT_EQ(run.save(4), "4.00");
    EXPECT_EQ(run.writer.held(), 0U);
    EXPECT_EQ(run.writer.written().count, 4);
    EXPECT_EQ(run.writer.written().firstDepth, 1);
    EXPECT_EQ(run.writer.written().lastDepth, 4);
    EXPECT_EQ(run.open()->depth, (std::vector<double>{1, 2, 3, 4}));

    run.files.failWritesAfter = 0;
    run.save(5);
    EXPECT_FALSE(run.writer.writeHeld());
    EXPECT_THROW(run.writer.saveHeldIn("other.kvx"), Failure);
    run.files.failWritesAfter = 100;
    EXPECT_THROW(run.writer.saveHeldIn(runFile), Failure) << "a run that is there stays";
    EXPECT_TRUE(run.writer.writeHeld());
    EXPECT_EQ(run.open()->depth, (std::vector<double>{1, 2, 3, 4, 5}));
}

TEST(RunFileWriter, HoldsFourMegabytesOfScans) {
    RunFiles run;
    run.writer.LCU_SetupFileHeader(runFile, runHeader());
    run.files.failWritesAfter = 0;
    for (int scan = 1; scan <= 100'003; ++scan) run.save(scan * 0.01);
    EXPECT_EQ(run.writer.held(), 100'000U);
    EXPECT_EQ(run.writer.lost(), 3);
    EXPECT_EQ(run.errors.reports.size(), 2U) << "the full disk, and the first scan that was lost";
    run.files.failWritesAfter = 100;
    run.save(1001);
    EXPECT_EQ(run.files.size(runFile), 26188U + 40 * 100'001);
}

TEST(RunFileWriter, NeitherOverwritesARunNorBeginsAFileWithoutHeader) {
    RunFiles run;
    run.files.put(runFile, "someone's run");
    EXPECT_FALSE(run.writer.LCU_SetupFileHeader(runFile, runHeader()));
    EXPECT_EQ(run.files.text(runFile), "someone's run");
    run.files.remove(runFile);
    run.writer.LCU_SetupFileHeader(runFile, runHeader());
    run.files.remove(runFile);
    EXPECT_EQ(run.save(1), "");
    EXPECT_FALSE(run.files.exists(runFile));
}
