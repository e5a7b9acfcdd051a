// Reading runs back: every rule for scans, torn files and files that are something else.
#include "run_files.h"

#include "base/bytes.h"
#include "base/failure.h"
#include "files/run_header_codec.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::testing;

namespace {

using Doubles = std::vector<double>;
using Floats = std::vector<float>;

/// Raw numbers of a record with two values, to be read as they stand.
struct RawScan {
    std::int32_t depth = 0;
    std::int32_t time = 0;
    std::int32_t speed = 0;
    std::int32_t first = 0;
    std::int16_t current = 0;
};

void appendRaw(Bytes& bytes, const RawScan& scan) {
    std::uint8_t record[40]{};
    writeI32le(record, scan.depth);
    writeI32le(record + 4, scan.time);
    writeI32le(record + 8, scan.speed);
    writeI32le(record + 12, scan.first);
    writeI16le(record + 20, scan.current);
    bytes.insert(bytes.end(), std::begin(record), std::end(record));
}

void put(RunFiles& run, const Bytes& bytes) {
    run.files.put(runFile, asText(bytes));
}

Bytes fileOf(const std::vector<RawScan>& scans, const RunHeader& header = runHeader()) {
    Bytes bytes = encodeRunHeader(header);
    for (const RawScan& scan : scans) appendRaw(bytes, scan);
    return bytes;
}

} // namespace

TEST(RunFileReader, WhatWasWrittenComesBack) {
    RunFiles run;
    RunHeader header = runHeader();
    header.channels[2].calibration.state = "None";
    header.channels[1].calibrated = {1, 2};
    header.setup.direction = Direction::up;
    header.hole.drillerDepth = "120; or so";
    header.hole.collarElevation = "12.5";
    header.hole.casingDiameter = "114";
    header.hole.fluidLevel = "3";
    header.toolMode = 2;
    header.notes = "Cable slipped at 80 m";
    run.writer.LCU_SetupFileHeader(runFile, header);
    run.save(1.5);
    run.save(1.55, 3.25F);
    const auto review = run.open();
    ASSERT_TRUE(review);
    EXPECT_EQ(review->depth, (Doubles{1.5, 1.55}));
    EXPECT_EQ(review->time, (Doubles{0, 0.05}));
    ASSERT_EQ(review->channels.size(), 3U);
    EXPECT_EQ(review->channels[0].values, (Floats{6, 6}));
    EXPECT_EQ(review->channels[1].values, (Floats{1.5F, 3.25F}));
    EXPECT_EQ(review->channels[2].values, (Floats{-2.25F, -2.25F}));
    EXPECT_TRUE(review->channels[0].calibrated && review->channels[1].calibrated);
    EXPECT_FALSE(review->channels[2].calibrated);
    EXPECT_EQ(review->current.values, (Floats{48, 48}));
    EXPECT_EQ(review->voltage.values, (Floats{62, 62}));
    EXPECT_EQ(review->marker.values, (Floats{7, 7}));

    const RunHeader& read = review->header;
    EXPECT_EQ(encodeRunHeader(read).size(), 26188U);
    header.project.resize(12);
    EXPECT_EQ(encodeRunHeader(read), encodeRunHeader(header));
    EXPECT_EQ(read.hole.holeId, header.hole.holeId);
    EXPECT_EQ(read.hole.drillerDepth, header.hole.drillerDepth);
    EXPECT_EQ(read.hole.diameter, "");
    EXPECT_EQ(read.hole.casingDiameter, "114");
    EXPECT_EQ(read.hole.fluidLevel, "3");
    EXPECT_TRUE(run.errors.reports.empty() && run.viewer.lines.empty());
}

TEST(RunFileReader, AHeaderAloneIsAnEmptyRun) {
    RunFiles run;
    run.writer.LCU_SetupFileHeader(runFile, runHeader());
    EXPECT_EQ(run.open()->steps(), 0U);
    EXPECT_FALSE(run.reader.Utilities_checkfiledepthrange(runFile));
    EXPECT_TRUE(run.errors.reports.empty());
}

TEST(RunFileReader, InvalidDepthsNegativeSpeedsAndTimes) {
    RunFiles run;
    put(run, fileOf({{2000000, 9999, 0, 0},
                     {1999999, 400, -5, 150},
                     {2147483647, 7777, 0, 0},
                     {1999999, 5, 32767, -1},
                     {2000000, 1, 0, 0}}));
    const auto review = run.open();
    EXPECT_EQ(review->depth, (Doubles{1999.999, 1999.999}));
    EXPECT_EQ(review->time, (Doubles{0, 0.0005})); // skipped scans add no time
    EXPECT_EQ(review->channels[0].values, (Floats{0, 327.67F}));
    EXPECT_EQ(review->channels[1].values, (Floats{1.5F, -0.01F}));
    EXPECT_EQ(review->skippedScans, 3U);
    EXPECT_FALSE(review->reversed);
}

TEST(RunFileReader, RecordsThatAreNoScansAreLeftOutAndCounted) {
    RunFiles run;
    ASSERT_TRUE(run.writer.LCU_SetupFileHeader(runFile, runHeader()));
    for (const double depth : {10.0, 10.1, 10.2}) run.save(depth);
    Bytes bytes = run.files.read(runFile);
    const std::size_t record = run_file::scanLength(2);
    const Bytes whole(bytes.end() - static_cast<std::ptrdiff_t>(record), bytes.end());
    bytes.insert(bytes.end(), record, 0); // a power cut before the last record was on disk
    bytes.insert(bytes.end(), whole.begin() + 9, whole.end()); // bytes lost: everything behind is out of step
    bytes.insert(bytes.end(), whole.begin(), whole.end());
    put(run, bytes);
    const auto review = run.open();
    EXPECT_EQ(review->depth, (Doubles{10.0, 10.1, 10.2}));
    EXPECT_EQ(review->damagedScans, 2U);
    const auto range = readDepthRange(run.files, runFile);
    EXPECT_EQ(range->smallest, 10.0);
    EXPECT_EQ(range->largest, 10.2);
}

TEST(RunFileReader, OldVersionsStoredWholeUnits) {
    const struct {
        int major, minor;
        float value;
    } cases[]{{1, 99, 150}, {1, 100, 1.5F}, {0, 0, 150}, {2, 0, 1.5F}};
    for (const auto& version : cases) {
        RunFiles run;
        RunHeader header = runHeader();
        header.versionMajor = version.major;
        header.versionMinor = version.minor;
        put(run, fileOf({{1000, 0, 250, 150, 48}}, header));
        const auto review = run.open();
        EXPECT_EQ(review->channels[1].values[0], version.value) << version.major << '.' << version.minor;
        EXPECT_EQ(review->channels[0].values[0], 2.5F);
        EXPECT_EQ(review->current.values[0], 48);
    }
}

TEST(RunFileReader, UpwardRunsAreTurnedRoundWithEverythingThatBelongsToThem) {
    RunFiles run;
    put(run, fileOf({{3000, 1, 300, 100, 1}, {2000, 10000, 200, 200, 2}, {2500, 10000, 100, 300, 3}}));
    const auto review = run.open();
    EXPECT_TRUE(review->reversed);
    EXPECT_EQ(review->depth, (Doubles{2.5, 2, 3}));
    EXPECT_EQ(review->time, (Doubles{2, 1, 0}));
    EXPECT_EQ(review->channels[0].values, (Floats{1, 2, 3}));
    EXPECT_EQ(review->channels[1].values, (Floats{3, 2, 1}));
    EXPECT_EQ(review->current.values, (Floats{3, 2, 1}));
    const auto range = run.reader.Utilities_checkfiledepthrange(runFile);
    EXPECT_EQ(range->smallest, 2);
    EXPECT_EQ(range->largest, 3);
}

TEST(RunFileReader, TwentyValuesAndChannelsWithoutAName) {
    RunFiles run;
    RunHeader header = runHeader(20);
    header.channels[19].name.clear();
    run.writer.LCU_SetupFileHeader(runFile, header);
    const Floats values{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20};
    EXPECT_EQ(run.writer.LCU_SaveScan({.depth = 1, .channels = values, .toolCurrent = 5}), "1.00");
    const auto review = run.open();
    ASSERT_EQ(review->channels.size(), 21U);
    EXPECT_EQ(review->channels[18].name, "Log 18");
    EXPECT_EQ(review->channels[19].name, "Channel 19");
    EXPECT_EQ(review->channels[20].name, "Channel 20");
    EXPECT_EQ(review->channels[20].values, Floats{20});
    EXPECT_EQ(review->current.values, Floats{5});
}

TEST(RunFileReader, KeepsTheFirstEightyThousandAndShowsHowFarItIs) {
    RunFiles run;
    std::vector<RawScan> scans(80002, {.depth = 1000});
    scans[0].depth = 2000000; // does not count toward the limit
    scans[80000].current = 5; // the last that fits
    put(run, fileOf(scans));
    std::vector<int> shown;
    const auto review = run.reader.Tarvikfileopen(runFile, [&](int percent, std::string_view text) {
        EXPECT_EQ(text, "Loading data values from file");
        shown.push_back(percent);
    });
    EXPECT_EQ(review->steps(), 80000U);
    EXPECT_TRUE(review->truncated);
    EXPECT_EQ(review->current.values.back(), 5);
    ASSERT_EQ(run.viewer.lines.size(), 2U);
    EXPECT_TRUE(
        run.viewer.lines[0].ends_with(": 1 scans without a valid depth (less than 2000 m) are left out"));
    EXPECT_TRUE(run.viewer.lines[1].ends_with("2Scan Tarvik data values - too many data points for array"));
    EXPECT_EQ(shown.size(), 1601U); // every 50 scans
    EXPECT_EQ(shown.front(), (26188 + 50 * 40) * 100 / (26188 + 80002 * 40));
    EXPECT_EQ(shown.back(), 100);

    scans.pop_back();
    put(run, fileOf(scans));
    EXPECT_FALSE(run.open()->truncated);
}

TEST(RunFileReader, AFileCutAtAnyByteKeepsItsWholeScansAndTakesFurtherOnes) {
    RunFiles run;
    run.writer.LCU_SetupFileHeader(runFile, runHeader());
    for (const double depth : {1.0, 2.0, 3.0}) run.save(depth);
    const std::string whole = run.files.text(runFile);
    for (std::size_t length = 26188; length <= whole.size(); ++length) {
        const std::size_t scans = (length - 26188) / 40;
        const std::size_t torn = (length - 26188) % 40;
        run.files.put(runFile, whole.substr(0, length));
        run.viewer.lines.clear();
        ASSERT_EQ(run.open()->steps(), scans) << length;
        EXPECT_EQ(run.viewer.lines.size(), torn == 0 ? 0U : 1U);
        EXPECT_EQ(readRunHeader(run.files, runFile).shape.partialBytes, torn);
        EXPECT_EQ(cutTornTail(run.files, runFile), torn);
        EXPECT_EQ(cutTornTail(run.files, runFile), 0U);
        run.writer.continueFile(runFile, readRunHeader(run.files, runFile).header);
        run.save(9);
        const auto review = run.open();
        ASSERT_EQ(review->steps(), scans + 1) << length;
        EXPECT_EQ(review->depth.back(), 9);
        EXPECT_EQ(review->channels[2].values.back(), -2.25F);
    }
    EXPECT_TRUE(run.errors.reports.empty());
}

TEST(RunFileReader, AFileThatChangesWhileItIsReadGivesTheScansThatAreThere) {
    RunFiles run;
    put(run, fileOf({{1000}, {2000}}));
    const RunFileInfo info = readRunHeader(run.files, runFile);
    ReviewLog review;
    review.header = info.header;
    put(run, fileOf({{1000}, {2000}, {3000}}));
    ASSERT_TRUE(run.reader.scanTarvikdatavalues(runFile, info.shape, review, {}));
    EXPECT_EQ(review.depth, (Doubles{1, 2}));
    put(run, fileOf({{1000}}));
    ASSERT_TRUE(run.reader.scanTarvikdatavalues(runFile, info.shape, review, {}));
    EXPECT_EQ(review.depth, Doubles{1});
    EXPECT_EQ(review.marker.values.size(), 1U);
}

TEST(RunFileReader, FilesThatAreNoRunAreRefusedWithFilePlaceAndRemedy) {
    const Bytes sound = fileOf({{1000}});
    const auto with = [&](std::size_t offset, std::int32_t value, int width) {
        Bytes bytes = sound;
        width == 2 ? writeI16le(&bytes[offset], static_cast<std::int16_t>(value))
                   : writeI32le(&bytes[offset], value);
        return bytes;
    };
    const struct {
        const char* name;
        Bytes bytes;
        const char* place;
    } cases[]{
        {"empty", {}, "0 bytes"},
        {"another tag", with(0, 0, 2), "TARVIK"},
        {"block 1 of another length", with(16, 127, 2), "byte 16"},
        {"a negative block", with(74, -1, 2), "byte 74"},
        {"lengths that do not add", with(78, 3999, 2), "byte 64"},
        {"another header length", with(64, 26187, 2), "byte 64"},
        {"cut in its header", Bytes(sound.begin(), sound.begin() + 26187), "26187"},
        {"cut in block 1", Bytes(sound.begin(), sound.begin() + 10), "byte 10 of 26188"},
        {"no room for a value", with(80, 28, 4), "byte 80"},
        {"odd record length", with(80, 41, 4), "byte 80"},
        {"21 values", with(80, 116, 4), "byte 80"},
        {"no record length", with(80, 0, 4), "byte 80"},
        {"negative record length", with(80, -4, 4), "byte 80"},
        {"sonic without room for its waveform", with(480, 1000, 2), "byte 80"},
    };
    for (const auto& bad : cases) {
        RunFiles run;
        put(run, bad.bytes);
        EXPECT_FALSE(run.open()) << bad.name;
        ASSERT_EQ(run.errors.reports.size(), 1U) << bad.name;
        const ErrorReport& report = run.errors.reports[0];
        EXPECT_EQ(report.routine, "Logdisplay1-Tarvikfileopen");
        EXPECT_NE(report.description.find(bad.place), std::string::npos) << report.description;
        EXPECT_NE(report.description.find(runFile.string()), std::string::npos);
        EXPECT_NE(report.description.find("Choose another"), std::string::npos);
        EXPECT_THROW(std::ignore = readRunHeader(run.files, runFile), Failure);
        EXPECT_THROW(cutTornTail(run.files, runFile), Failure);
        EXPECT_EQ(run.files.size(runFile), bad.bytes.size());
        EXPECT_FALSE(run.reader.Utilities_checkfiledepthrange(runFile));
    }
    RunFiles missing;
    EXPECT_FALSE(missing.open());
    EXPECT_EQ(missing.errors.reports.at(0).number, 53);
}

TEST(RunFileReader, SonicScansAreRefusedButTheirHeaderReads) {
    RunFiles run;
    RunHeader header = runHeader(10);
    header.waveformSamples = 1000;
    put(run, encodeRunHeader(header));
    EXPECT_EQ(readRunHeader(run.files, runFile).header.waveformSamples, 1000);
    EXPECT_FALSE(run.open());
    EXPECT_NE(run.errors.reports.at(0).description.find("sonic"), std::string::npos);
}

TEST(RunFileReader, BlocksAreFoundByTheLengthsInTheHeader) {
    Bytes bytes = fileOf({{1000, 0, 600, 150, 3}});
    bytes.erase(bytes.begin() + 1152 + 500, bytes.begin() + 1152 + 512); // block 3 is 12 bytes shorter
    writeI16le(&bytes[68], 500);
    writeI16le(&bytes[64], 26176);
    RunFiles run;
    put(run, bytes);
    const auto review = run.open();
    EXPECT_EQ(review->header.tool.code, "K101");
    EXPECT_EQ(review->channels[1].name, "Log 1");
    EXPECT_EQ(review->depth, Doubles{1});
}
