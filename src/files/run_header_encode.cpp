#include "files/run_header_codec.h"

#include "base/failure.h"
#include "base/rounding.h"
#include "files/hole_words.h"
#include "files/run_file_layout.h"

#include <algorithm>

namespace tarvik {

using namespace run_file;

namespace {

/// Fills the text stretches of a block with blanks, from `offset` on; returns where the stretches end.
template <class Record, std::size_t Count>
std::size_t blankTexts(Record& record, const std::array<Stretch, Count>& stretches, std::size_t offset = 0) {
    for (const Stretch& stretch : stretches) {
        if (stretch.kind == Kind::text) record.set(TextField{offset, stretch.width}, "");
        offset += stretch.width;
    }
    return offset;
}

std::size_t recordLengthOf(const RunHeader& header) {
    const int channels = static_cast<int>(header.channels.size()) - 1;
    return header.waveformSamples == 0 ? scanLength(channels)
                                       : sonicScanLength(channels, header.waveformSamples);
}

block1::Record encodeBlock1(const RunHeader& header) {
    block1::Record block;
    blankTexts(block, block1::stretches);
    block.set(block1::tag, tagText);
    block.set(block1::runKind, samplingText(header.setup.sampling));
    block.set(block1::versionMajor, toInt16(header.versionMajor));
    block.set(block1::versionMinor, toInt16(header.versionMinor));
    block.set(block1::runDate, trimmed(header.runDate));
    block.set(block1::project, header.project);
    block.set(block1::hole, header.hole.holeId);
    block.set(block1::headerLength, toInt16(headerLength));
    for (std::size_t i = 0; i < blockLengths.size(); ++i) {
        block.set(block1::blockLength(i + 1), toInt16(static_cast<double>(blockLengths[i])));
    }
    block.set(block1::recordLength, toInt32(static_cast<double>(recordLengthOf(header))));
    block.set(block1::channelSlots, toInt16(slotCount));
    return block;
}

block2::Record encodeBlock2(const RunHeader& header) {
    const HoleDetails& hole = header.hole;
    block2::Record block;
    blankTexts(block, block2::stretches);
    block.set(block2::holeId, hole.holeId);
    block.set(block2::holeName, hole.holeId);
    block.set(block2::company, hole.company);
    block.set(block2::province, hole.area);
    block.set(block2::shortHole, hole.holeId);
    block.set(block2::runDate, header.runDate);
    block.set(block2::startTime, header.startTime);
    block.set(block2::interval, header.setup.interval);
    block.set(block2::units, depthUnitsText(header.setup.units));
    block.set(block2::direction, directionFlag(header.setup.direction));
    block.set(block2::operatorName, hole.operatorName);
    block.set(block2::field, hole.prospect);
    block.set(block2::serviceCompany, hole.contractor);
    block.set(block2::location, hole.coordinates);
    block.set(block2::permanentDatum, hole.permanentDatum);
    block.set(block2::casingType, hole.casingType);
    block.set(block2::dataState, header.dataState);
    block.set(block2::specialKind, header.specialKind);
    if (header.waveformSamples != 0) {
        block.set(block2::waveform[0], toInt16(header.waveformSamples));
        block.set(block2::waveform[1], 2);
        block.set(block2::waveform[2], 2);
    }
    block.set(block2::magneticMarker, header.setup.magneticMarker);
    block.set(block2::drillingWords, joinHoleWords(drillingWords(), hole));
    block.set(block2::casingWords, joinHoleWords(casingWords(), hole));
    block.set(block2::fluidWords, joinHoleWords(fluidWords(), hole));
    return block;
}

template <class Record>
void setIdentity(Record& block, const EquipmentIdentity& identity) {
    block.set(equipment::code, identity.code);
    block.set(equipment::name, identity.name);
    block.set(equipment::serialNumber, identity.serialNumber);
}

block3::Record encodeBlock3(const RunHeader& header) {
    block3::Record block;
    blankTexts(block, block3::stretches);
    setIdentity(block, header.winch);
    return block;
}

block4::Record encodeBlock4(const RunHeader& header) {
    block4::Record block;
    blankTexts(block, block4::stretches);
    setIdentity(block, header.tool);
    block.set(block4::toolMode, toInt16(header.toolMode));
    block.set(block4::toolModeName, header.toolModeName);
    block.set(block4::channelCount, toInt16(static_cast<double>(header.channels.size())));
    for (std::size_t slot = 0; slot < std::min(header.channels.size(), slotCount); ++slot) {
        const RunChannel& channel = header.channels[slot];
        block.set(block4::names[slot], channel.name);
        block.set(block4::units[slot], channel.unit);
        block.set(block4::uncalibratedLeft[slot], channel.uncalibrated.left);
        block.set(block4::uncalibratedRight[slot], channel.uncalibrated.right);
        block.set(block4::calibratedLeft[slot], channel.calibrated.left);
        block.set(block4::calibratedRight[slot], channel.calibrated.right);
    }
    return block;
}

void encodeCalibration(block5::Record& block, std::size_t slot, const Calibration& calibration) {
    block.set(block5::state[slot], calibration.state);
    block.set(block5::fitName[slot], calibration.fitName);
    block.set(block5::identifier[slot], calibration.identifier);
    block.set(block5::sensorName[slot], calibration.sensorName);
    block.set(block5::date[slot], calibration.date);
    block.set(block5::time[slot], calibration.time);
    block.set(block5::calibratedBy[slot], calibration.calibratedBy);
    block.set(block5::serialNumber[slot], calibration.serialNumber);
    block.set(block5::kind[slot], calibration.kind);
    block.set(block5::order(slot), toInt16(calibration.order));
    for (std::size_t i = 0; i < block5::coefficients; ++i) {
        block.set(block5::coefficient(slot, i), calibration.coefficients[i]);
    }
    block.set(block5::pointCount(slot), toInt16(calibration.pointCount));
    for (std::size_t i = 0; i < block5::points; ++i) {
        block.set(block5::pointX(slot, i), calibration.points[i].first);
        block.set(block5::pointY(slot, i), calibration.points[i].second);
    }
}

block5::Record encodeBlock5(const RunHeader& header) {
    block5::Record block;
    blankTexts(block, block5::stretches);
    for (std::size_t slot = 0; slot < std::min(header.channels.size(), slotCount); ++slot) {
        encodeCalibration(block, slot, header.channels[slot].calibration);
    }
    if (header.channels.size() == 1) block.set(block5::state[0], "None"); // no channel besides Speed
    return block;
}

/// Descriptors and annotations are for later editing: a new run has none.
block6::Record blankBlock6() {
    block6::Record block;
    std::size_t offset = blankTexts(block, block6::fixedPart);
    for (std::size_t i = 0; i < block6::entries; ++i) offset = blankTexts(block, block6::entry, offset);
    blankTexts(block, block6::texts, offset);
    return block;
}

block7::Record blankBlock7() {
    block7::Record block;
    blankTexts(block, block7::stretches);
    return block;
}

block8::Record encodeBlock8(const RunHeader& header) {
    block8::Record block;
    block.set(block8::notes, header.notes);
    return block;
}

} // namespace

Bytes encodeRunHeader(const RunHeader& header) {
    if (header.channels.empty() || header.channels.front().name != "Speed") {
        throw Failure(ErrorNumber::internal, "The first channel of a run file is \"Speed\"");
    }
    if (header.channels.size() > mostScanChannels + 1) {
        throw Failure(ErrorNumber::subscriptOutOfRange,
                      "A run file holds 20 channels besides Speed, the run has " +
                          std::to_string(header.channels.size() - 1));
    }
    Bytes bytes;
    bytes.reserve(headerLength);
    const auto add = [&](const auto& block) {
        bytes.insert(bytes.end(), block.bytes().begin(), block.bytes().end());
    };
    add(encodeBlock1(header));
    add(encodeBlock2(header));
    add(encodeBlock3(header));
    add(encodeBlock4(header));
    add(encodeBlock5(header));
    add(blankBlock6());
    add(blankBlock7());
    add(encodeBlock8(header));
    return bytes;
}

} // namespace tarvik
