// The layout of the run file (.kvx): a header of eight fixed blocks, then scan records of one length to the
// end of the file. Writer and readers know the file through this header alone.
//
// Each block is a table of stretches, texts (blank when empty) and numbers (zero when empty), whose widths
// add up to the block; the fields that have a meaning are named below their block. Per-channel arrays have 20
// slots, slot 0 being "Speed". docs/formats/run_file.md tells the same in prose.
#pragma once

#include "base/depth_units.h"
#include "base/fixed_record.h"
#include "base/limits.h"

#include <array>
#include <cstddef>
#include <limits>
#include <numeric>
#include <string_view>

namespace tarvik::run_file {

constexpr std::string_view tagText = "TARVIK";
constexpr std::size_t slotCount = maxChannels; ///< of the per-channel arrays

constexpr std::array<std::size_t, 8> blockLengths{128, 1024, 512, 1500, 12000, 2000, 5024, 4000};
constexpr std::size_t headerLength =
    std::accumulate(blockLengths.begin(), blockLengths.end(), std::size_t{0});
static_assert(headerLength == 26188 && headerLength <= std::numeric_limits<std::int16_t>::max());

/// Version 1.99 and older stored channel values as whole units instead of hundredths.
constexpr int newestUnscaledVersion = 199;
[[nodiscard]] constexpr int versionNumber(int major, int minor) {
    return major * 100 + minor;
}

// --- tables ------------------------------------------------------------------------------------------------

enum class Kind { text, number };

struct Stretch {
    Kind kind;
    std::size_t width;
};

template <std::size_t Count>
[[nodiscard]] constexpr std::size_t widthOf(const std::array<Stretch, Count>& stretches) {
    std::size_t sum = 0;
    for (const Stretch& stretch : stretches) sum += stretch.width;
    return sum;
}

/// One field in a per-channel array.
template <class Field>
struct Slots;
template <>
struct Slots<TextField> {
    std::size_t offset, width;
    [[nodiscard]] constexpr TextField operator[](std::size_t slot) const {
        return {offset + slot * width, width};
    }
    [[nodiscard]] constexpr std::size_t end() const { return offset + slotCount * width; }
};
template <>
struct Slots<FloatField> {
    std::size_t offset;
    [[nodiscard]] constexpr FloatField operator[](std::size_t slot) const { return {offset + slot * 4}; }
    [[nodiscard]] constexpr std::size_t end() const { return offset + slotCount * 4; }
};

// --- block 1: identification and block lengths -------------------------------------------------------------

namespace block1 {
using Record = FixedRecord<blockLengths[0]>;
constexpr std::array stretches{Stretch{Kind::text, 16}, Stretch{Kind::number, 6}, Stretch{Kind::text, 42},
                               Stretch{Kind::number, 26}, Stretch{Kind::text, 38}};
static_assert(widthOf(stretches) == Record::size);

constexpr TextField tag{0, 6};
constexpr TextField runKind{6, 10}; ///< the sampling method, "TIME" or "DEPTH"
constexpr Int16Field versionMajor{18};
constexpr Int16Field versionMinor{20};
constexpr TextField runDate{22, 12};
constexpr TextField project{34, 12};
constexpr TextField hole{46, 12};
constexpr Int16Field headerLength{64};
/// Of block 1 to 8.
constexpr Int16Field blockLength(std::size_t block) {
    return {block == 1 ? 16 : 66 + (block - 2) * 2};
}
constexpr Int32Field recordLength{80};
constexpr Int16Field channelSlots{86};

static_assert(endOf(tag) == runKind.offset && endOf(runKind) == blockLength(1).offset);
static_assert(endOf(blockLength(1)) == versionMajor.offset && endOf(versionMajor) == versionMinor.offset);
static_assert(endOf(versionMinor) == runDate.offset && endOf(runDate) == project.offset);
static_assert(endOf(project) == hole.offset && endOf(hole) + 6 == headerLength.offset);
static_assert(endOf(headerLength) == blockLength(2).offset && endOf(blockLength(8)) == recordLength.offset);
static_assert(endOf(recordLength) + 2 == channelSlots.offset && endOf(channelSlots) + 2 + 38 == Record::size);
} // namespace block1

// --- block 2: hole and run ---------------------------------------------------------------------------------

namespace block2 {
using Record = FixedRecord<blockLengths[1]>;
constexpr std::array stretches{
    Stretch{Kind::text, 128}, Stretch{Kind::number, 4},  Stretch{Kind::text, 6},  Stretch{Kind::number, 2},
    Stretch{Kind::text, 90},  Stretch{Kind::number, 8},  Stretch{Kind::text, 30}, Stretch{Kind::number, 8},
    Stretch{Kind::text, 20},  Stretch{Kind::number, 12}, Stretch{Kind::text, 20}, Stretch{Kind::number, 4},
    Stretch{Kind::text, 20},  Stretch{Kind::number, 18}, Stretch{Kind::text, 654}};
static_assert(widthOf(stretches) == Record::size);

constexpr TextField holeId{0, 10};
constexpr TextField holeName{10, 20}; ///< the hole again, with more room
constexpr TextField company{30, 30};
constexpr TextField province{60, 30};
constexpr TextField shortHole{90, 10};
constexpr TextField runDate{100, 12};
constexpr TextField startTime{112, 10};
constexpr FloatField interval{128}; ///< seconds by time; centimetres of cable by depth
constexpr TextField units{132, 6};
constexpr Int16Field direction{138}; ///< 0 down, -1 up
constexpr TextField operatorName{140, 30};
constexpr TextField field{170, 30};
constexpr TextField serviceCompany{200, 30};
constexpr TextField location{238, 30};
constexpr TextField permanentDatum{276, 20};
constexpr TextField casingType{308, 20};
constexpr TextField dataState{332, 10};
constexpr TextField specialKind{342, 10};
/// Samples per waveform, then 2 and 2; zero in all but sonic runs.
constexpr std::array<Int16Field, 3> waveform{{{352}, {354}, {356}}};
constexpr Int32Field magneticMarker{358}; ///< the run's depth-marker option
constexpr TextField drillingWords{824, 100};
constexpr TextField casingWords{924, 50};
constexpr TextField fluidWords{974, 50};

static_assert(endOf(holeId) == holeName.offset && endOf(holeName) == company.offset);
static_assert(endOf(company) == province.offset && endOf(province) == shortHole.offset);
static_assert(endOf(shortHole) == runDate.offset && endOf(runDate) == startTime.offset);
static_assert(endOf(startTime) + 6 == interval.offset && endOf(interval) == units.offset);
static_assert(endOf(units) == direction.offset && endOf(direction) == operatorName.offset);
static_assert(endOf(operatorName) == field.offset && endOf(field) == serviceCompany.offset);
static_assert(endOf(serviceCompany) + 8 == location.offset && endOf(location) + 8 == permanentDatum.offset);
static_assert(endOf(permanentDatum) + 12 == casingType.offset && endOf(casingType) + 4 == dataState.offset);
static_assert(endOf(dataState) == specialKind.offset && endOf(specialKind) == waveform[0].offset);
static_assert(endOf(waveform[2]) == magneticMarker.offset && endOf(magneticMarker) + 8 + 454 == 824);
static_assert(endOf(drillingWords) == casingWords.offset && endOf(casingWords) == fluidWords.offset);
static_assert(endOf(fluidWords) == Record::size);
} // namespace block2

// --- block 3: the winch ------------------------------------------------------------------------------------

/// Code, name and serial number stand alike at the start of the equipment records and of blocks 3 and 4.
namespace equipment {
constexpr TextField code{0, 8};
constexpr TextField name{8, 40};
constexpr TextField serialNumber{48, 20};
static_assert(endOf(code) == name.offset && endOf(name) == serialNumber.offset);
} // namespace equipment

namespace block3 {
using Record = FixedRecord<blockLengths[2]>;
constexpr std::array stretches{Stretch{Kind::text, 68}, Stretch{Kind::number, 12}, Stretch{Kind::text, 432}};
static_assert(widthOf(stretches) == Record::size);
} // namespace block3

// --- block 4: the tool and its recorded channels -----------------------------------------------------------

namespace block4 {
using Record = FixedRecord<blockLengths[3]>;
constexpr std::array stretches{
    Stretch{Kind::text, 68},  Stretch{Kind::number, 6},  Stretch{Kind::text, 22},
    Stretch{Kind::number, 2}, Stretch{Kind::text, 720},  Stretch{Kind::number, 400},
    Stretch{Kind::text, 30},  Stretch{Kind::number, 50}, Stretch{Kind::text, 202}};
static_assert(widthOf(stretches) == Record::size);

constexpr Int16Field toolMode{68};
constexpr TextField toolModeName{74, 12};
constexpr Int16Field channelCount{96}; ///< with "Speed"
constexpr Slots<TextField> names{98, 20};
constexpr Slots<TextField> units{498, 16};
// The first of five scale arrays is not used.
constexpr Slots<FloatField> uncalibratedLeft{898};
constexpr Slots<FloatField> uncalibratedRight{978};
constexpr Slots<FloatField> calibratedLeft{1058};
constexpr Slots<FloatField> calibratedRight{1138};

static_assert(endOf(equipment::serialNumber) == toolMode.offset && endOf(toolMode) + 4 == 74);
static_assert(endOf(toolModeName) + 10 == channelCount.offset && endOf(channelCount) == names.offset);
static_assert(names.end() == units.offset && units.end() + slotCount * 4 == uncalibratedLeft.offset);
static_assert(uncalibratedLeft.end() == uncalibratedRight.offset);
static_assert(uncalibratedRight.end() == calibratedLeft.offset);
static_assert(calibratedLeft.end() == calibratedRight.offset && calibratedRight.end() == 1218);
static_assert(calibratedRight.end() + 20 + 10 + 2 + 48 + 202 == Record::size);
} // namespace block4

// --- block 5: the calibration of each channel --------------------------------------------------------------

namespace block5 {
using Record = FixedRecord<blockLengths[4]>;
constexpr std::array stretches{Stretch{Kind::text, 4080}, Stretch{Kind::number, 3240},
                               Stretch{Kind::text, 320}, Stretch{Kind::number, 3320},
                               Stretch{Kind::text, 1040}};
static_assert(widthOf(stretches) == Record::size);

constexpr Slots<TextField> state{0, 10};
constexpr Slots<TextField> fitName{200, 20};
constexpr Slots<TextField> identifier{600, 20};
constexpr Slots<TextField> sensorName{1000, 20};
constexpr Slots<TextField> date{1400, 12};
constexpr Slots<TextField> time{1640, 10};
constexpr Slots<TextField> unused{1840, 12};
constexpr Slots<TextField> calibratedBy{2080, 20};
constexpr Slots<TextField> serialNumber{2480, 20};
constexpr Slots<TextField> kind{2880, 30};
constexpr Slots<TextField> blank{3480, 30};

constexpr std::size_t coefficients = 20;
constexpr std::size_t points = 20;
/// Of each slot: the order, then the coefficients, lowest power first.
constexpr Int16Field order(std::size_t slot) {
    return {4080 + slot * 162};
}
constexpr DoubleField coefficient(std::size_t slot, std::size_t index) {
    return {endOf(order(slot)) + index * 8};
}
/// Of each slot: the number of points, then (x, y) pairs, then 4 bytes to spare.
constexpr Int16Field pointCount(std::size_t slot) {
    return {7640 + slot * 166};
}
constexpr FloatField pointX(std::size_t slot, std::size_t index) {
    return {endOf(pointCount(slot)) + index * 8};
}
constexpr FloatField pointY(std::size_t slot, std::size_t index) {
    return {endOf(pointX(slot, index))};
}

static_assert(state.end() == fitName.offset && fitName.end() == identifier.offset);
static_assert(identifier.end() == sensorName.offset && sensorName.end() == date.offset);
static_assert(date.end() == time.offset && time.end() == unused.offset);
static_assert(unused.end() == calibratedBy.offset && calibratedBy.end() == serialNumber.offset);
static_assert(serialNumber.end() == kind.offset && kind.end() == blank.offset);
static_assert(blank.end() == order(0).offset);
static_assert(endOf(coefficient(0, coefficients - 1)) == order(1).offset && order(slotCount).offset == 7320);
static_assert(order(slotCount).offset + 320 == pointCount(0).offset);
static_assert(endOf(pointY(0, points - 1)) + 4 == pointCount(1).offset);
static_assert(pointCount(slotCount).offset + 1040 == Record::size);
} // namespace block5

// --- blocks 6 to 8: descriptors, annotations, notes --------------------------------------------------------

namespace block6 {
using Record = FixedRecord<blockLengths[5]>;
constexpr std::size_t entries = 20;
constexpr std::array fixedPart{Stretch{Kind::text, 62},  Stretch{Kind::number, 8}, Stretch{Kind::text, 30},
                               Stretch{Kind::number, 2}, Stretch{Kind::text, 20},  Stretch{Kind::number, 48},
                               Stretch{Kind::text, 30}};
constexpr std::array entry{Stretch{Kind::text, 48}, Stretch{Kind::number, 32}};
constexpr std::array texts{Stretch{Kind::text, 200}};
static_assert(widthOf(fixedPart) == 200);
static_assert(widthOf(fixedPart) + entries * widthOf(entry) + widthOf(texts) == Record::size);
} // namespace block6

namespace block7 {
using Record = FixedRecord<blockLengths[6]>;
constexpr std::array stretches{Stretch{Kind::number, 2}, Stretch{Kind::text, 50 * 100},
                               Stretch{Kind::number, 4}, Stretch{Kind::text, 18}};
static_assert(widthOf(stretches) == Record::size);
} // namespace block7

namespace block8 {
using Record = FixedRecord<blockLengths[7]>;
constexpr TextField notes{0, 4000};
static_assert(endOf(notes) == Record::size);
} // namespace block8

// --- scan records ------------------------------------------------------------------------------------------

/// A scan of N values is depth, time, speed and N values, 4 bytes each, and a trailer of 20 bytes.
constexpr int mostScanChannels = maxChannels;
[[nodiscard]] constexpr std::size_t scanLength(int channels) {
    return 4 * (static_cast<std::size_t>(channels) + 1) + 28;
}
/// Two channel slots of a sonic scan give way to the waveform, 4 bytes a sample.
constexpr int sonicSamples = 1000;
[[nodiscard]] constexpr std::size_t sonicScanLength(int channels, int samples) {
    return 4 * (static_cast<std::size_t>(channels) - 1) + 28 + 4 * static_cast<std::size_t>(samples);
}

namespace scan {
constexpr std::size_t depth = 0;   ///< int32, thousandths of the depth unit
constexpr std::size_t time = 4;    ///< int32, 0.1 ms since the scan before
constexpr std::size_t speed = 8;   ///< int32 within the range of an int16, hundredths
constexpr std::size_t values = 12; ///< int32 each, hundredths
/// Behind the values: int16 current, voltage and marker, int32 spare, ten blanks.
constexpr std::size_t trailer(std::size_t channels) {
    return values + 4 * channels;
}
constexpr std::size_t current = 0;
constexpr std::size_t voltage = 2;
constexpr std::size_t marker = 4;
constexpr std::size_t spare = 6;
constexpr std::size_t blanks = 10;
constexpr std::size_t trailerLength = 20;
static_assert(trailer(7) + trailerLength == scanLength(7));

/// A raw depth from here on says that the scan has no valid depth.
constexpr std::int32_t invalidDepth = 2000000;
} // namespace scan

/// False for a depth, in metres, that a reader of the file takes for none: from 2,000 m or 2,000 ft on.
[[nodiscard]] constexpr bool isValidDepth(double metres, DepthUnits units) {
    return fromMetres(metres, units) * 1000 < scan::invalidDepth - 0.5;
}

} // namespace tarvik::run_file
