#include "files/run_header_codec.h"

#include "base/failure.h"
#include "files/hole_words.h"
#include "files/run_file_layout.h"

#include <algorithm>

namespace tarvik {

using namespace run_file;

namespace {

[[noreturn]] void refuse(const Path& file, const std::string& what) {
    throw Failure(ErrorNumber::badFile,
                  file.string() + ": " + what + " Choose another file, or restore this one from its backup.");
}

[[noreturn]] void refuseCutHeader(const Path& file, std::uint64_t fileSize, std::size_t length) {
    refuse(file, "The file ends in its header, at byte " + std::to_string(fileSize) + " of " +
                     std::to_string(length) + ".");
}

/// The header as it lies in the file: the blocks are found by adding the lengths that block 1 gives.
class HeaderBytes {
  public:
    HeaderBytes(std::span<const std::uint8_t> start, std::uint64_t fileSize, const Path& file)
        : start_(start), block1_(start) {
        if (fileSize == 0) refuse(file, "The file is empty: 0 bytes.");
        if (block1_.get(block1::tag) != tagText) {
            refuse(file, "This is no run file: it does not begin with \"TARVIK\".");
        }
        if (start.size() < block1::Record::size) refuseCutHeader(file, fileSize, headerLength);
        std::size_t sum = 0;
        for (std::size_t block = 1; block <= blockLengths.size(); ++block) {
            const int length = block1_.get(block1::blockLength(block));
            if (length <= 0 || (block == 1 && length != static_cast<int>(blockLengths[0]))) {
                refuse(file, "The header gives block " + std::to_string(block) + " a length of " +
                                 std::to_string(length) + " bytes (byte " +
                                 std::to_string(block1::blockLength(block).offset) + ").");
            }
            begins_[block - 1] = sum;
            sum += static_cast<std::size_t>(length);
        }
        begins_.back() = sum;
        const int stated = block1_.get(block1::headerLength);
        if (stated != static_cast<int>(sum)) {
            refuse(file, "The header length " + std::to_string(stated) +
                             " (byte 64) is not the sum of its blocks, " + std::to_string(sum) + ".");
        }
        if (std::min<std::uint64_t>(start.size(), fileSize) < sum) refuseCutHeader(file, fileSize, sum);
    }

    [[nodiscard]] const block1::Record& first() const { return block1_; }
    [[nodiscard]] std::size_t length() const { return begins_.back(); }

    template <class Record>
    [[nodiscard]] Record block(std::size_t number) const {
        const std::size_t begin = begins_[number - 1];
        return Record(start_.subspan(begin, begins_[number] - begin));
    }

  private:
    std::span<const std::uint8_t> start_;
    block1::Record block1_;
    std::array<std::size_t, blockLengths.size() + 1> begins_{};
};

/// The number of values per scan that the record length leaves room for; -1 when it makes no sense.
int channelsOf(std::int64_t recordLength, int waveformSamples) {
    const std::int64_t room = waveformSamples == 0
                                  ? recordLength - 28 - 4
                                  : recordLength - 28 + 4 - std::int64_t{4} * waveformSamples;
    const int least = waveformSamples == 0 ? 0 : 2;
    if (room % 4 != 0 || room / 4 < least || room / 4 > mostScanChannels) return -1;
    return static_cast<int>(room / 4);
}

Calibration decodeCalibration(const block5::Record& block, std::size_t slot) {
    Calibration calibration;
    calibration.state = block.get(block5::state[slot]);
    calibration.fitName = block.get(block5::fitName[slot]);
    calibration.identifier = block.get(block5::identifier[slot]);
    calibration.sensorName = block.get(block5::sensorName[slot]);
    calibration.date = block.get(block5::date[slot]);
    calibration.time = block.get(block5::time[slot]);
    calibration.calibratedBy = block.get(block5::calibratedBy[slot]);
    calibration.serialNumber = block.get(block5::serialNumber[slot]);
    calibration.kind = block.get(block5::kind[slot]);
    calibration.order = std::clamp<int>(block.get(block5::order(slot)), 0, maxCoefficients - 1);
    for (std::size_t i = 0; i < block5::coefficients; ++i) {
        calibration.coefficients[i] = block.get(block5::coefficient(slot, i));
    }
    calibration.pointCount = std::clamp<int>(block.get(block5::pointCount(slot)), 0, maxCalibrationPoints);
    for (std::size_t i = 0; i < block5::points; ++i) {
        calibration.points[i] = {block.get(block5::pointX(slot, i)), block.get(block5::pointY(slot, i))};
    }
    return calibration;
}

std::vector<RunChannel> decodeChannels(const HeaderBytes& bytes, int values) {
    const auto block4 = bytes.block<block4::Record>(4);
    const auto block5 = bytes.block<block5::Record>(5);
    std::vector<RunChannel> channels(static_cast<std::size_t>(values) + 1);
    for (std::size_t slot = 0; slot < channels.size(); ++slot) {
        RunChannel& channel = channels[slot];
        if (slot < slotCount) {
            channel.name = block4.get(block4::names[slot]);
            channel.unit = block4.get(block4::units[slot]);
            channel.uncalibrated = {block4.get(block4::uncalibratedLeft[slot]),
                                    block4.get(block4::uncalibratedRight[slot])};
            channel.calibrated = {block4.get(block4::calibratedLeft[slot]),
                                  block4.get(block4::calibratedRight[slot])};
            channel.calibration = decodeCalibration(block5, slot);
        }
        if (channel.name.empty()) channel.name = slot == 0 ? "Speed" : "Channel " + std::to_string(slot);
    }
    return channels;
}

template <class Record>
EquipmentIdentity identityIn(const Record& block) {
    return {block.get(equipment::code), block.get(equipment::name), block.get(equipment::serialNumber)};
}

HoleDetails decodeHole(const block2::Record& block) {
    HoleDetails hole;
    hole.holeId = block.get(block2::holeName);
    hole.company = block.get(block2::company);
    hole.area = block.get(block2::province);
    hole.operatorName = block.get(block2::operatorName);
    hole.prospect = block.get(block2::field);
    hole.contractor = block.get(block2::serviceCompany);
    hole.coordinates = block.get(block2::location);
    hole.permanentDatum = block.get(block2::permanentDatum);
    hole.casingType = block.get(block2::casingType);
    splitHoleWords(block.get(block2::drillingWords), drillingWords(), hole);
    splitHoleWords(block.get(block2::casingWords), casingWords(), hole);
    splitHoleWords(block.get(block2::fluidWords), fluidWords(), hole);
    return hole;
}

RunSetup decodeSetup(const block1::Record& block1, const block2::Record& block2) {
    RunSetup setup;
    setup.sampling =
        block1.get(block1::runKind) == samplingText(Sampling::depth) ? Sampling::depth : Sampling::time;
    setup.interval = block2.get(block2::interval);
    setup.direction =
        block2.get(block2::direction) == directionFlag(Direction::up) ? Direction::up : Direction::down;
    setup.units = depthUnitsFrom(block2.get(block2::units));
    setup.magneticMarker = block2.get(block2::magneticMarker);
    return setup;
}

RunHeader decodeValues(const HeaderBytes& bytes) {
    const auto& block1 = bytes.first();
    const auto block2 = bytes.block<block2::Record>(2);
    const auto block4 = bytes.block<block4::Record>(4);
    RunHeader header;
    header.versionMajor = block1.get(block1::versionMajor);
    header.versionMinor = block1.get(block1::versionMinor);
    header.project = block1.get(block1::project);
    header.runDate = block2.get(block2::runDate);
    header.startTime = block2.get(block2::startTime);
    header.hole = decodeHole(block2);
    header.setup = decodeSetup(block1, block2);
    header.dataState = block2.get(block2::dataState);
    header.specialKind = block2.get(block2::specialKind);
    header.waveformSamples = std::max<int>(block2.get(block2::waveform[0]), 0);
    header.winch = identityIn(bytes.block<block3::Record>(3));
    header.tool = identityIn(block4);
    header.toolMode = block4.get(block4::toolMode);
    header.toolModeName = block4.get(block4::toolModeName);
    header.notes = bytes.block<block8::Record>(8).get(block8::notes);
    return header;
}

} // namespace

RunFileInfo decodeRunHeader(std::span<const std::uint8_t> start, std::uint64_t fileSize, const Path& file) {
    const HeaderBytes bytes(start, fileSize, file);
    RunFileInfo info{.header = decodeValues(bytes), .shape = {}};
    const std::int32_t recordLength = bytes.first().get(block1::recordLength);
    const int channels = channelsOf(recordLength, info.header.waveformSamples);
    if (channels < 0) {
        refuse(file, "The header gives scans of " + std::to_string(recordLength) +
                         " bytes (byte 80), which fits no number of channels from 0 to 20.");
    }
    info.header.channels = decodeChannels(bytes, channels);
    const auto length = static_cast<std::size_t>(recordLength);
    const std::size_t scanBytes = static_cast<std::size_t>(fileSize) - bytes.length();
    info.shape = {.firstScan = bytes.length(),
                  .recordLength = length,
                  .channels = channels,
                  .scans = scanBytes / length,
                  .partialBytes = scanBytes % length};
    return info;
}

} // namespace tarvik
