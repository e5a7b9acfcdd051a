#include "files/run_file_writer.h"

#include "base/number_picture.h"
#include "files/run_header_codec.h"
#include "files/scan_record.h"

namespace tarvik {

namespace {

/// The error with the scan's own numbers behind it, each on a line of the error file.
Failure withScan(const Failure& error, const KeptScan& scan) {
    return {error.number(),
            std::string(error.what()) + "\r\n   LCU Current depth " +
                shortestNumber(static_cast<float>(scan.depth)) + "\r\n   LCU spped and time  " +
                shortestNumber(static_cast<float>(scan.speed)) + "  " + std::to_string(scan.scanTime)};
}

} // namespace

RunChannel speedChannel(DepthUnits units) {
    RunChannel speed{.name = "Speed",
                     .unit = units == DepthUnits::metres ? "M/min" : "FT/Min",
                     .uncalibrated = {0, 30},
                     .calibrated = {0, 30},
                     .calibration = {}};
    speed.calibration.sensorName = speed.name;
    speed.calibration.state = "Synthetic"; // worked out from depth and time, no sensor to calibrate
    return speed;
}

bool RunFileWriter::LCU_SetupFileHeader(const Path& file, const RunHeader& header) {
    close();
    return errors_.run("LCUFunctions-LCU_SetupFileHeader", false, [&](Level& level) {
        const Bytes bytes = encodeRunHeader(header);
        level = 1; // writing
        if (files_.exists(file)) {
            throw Failure(ErrorNumber::pathFileAccess,
                          file.string() +
                              ": There is a run of this name already. Start the run again to get the "
                              "next run number.");
        }
        files_.replace(file, bytes);
        continueFile(file, header);
        return true;
    });
}

void RunFileWriter::continueFile(const Path& file, const RunHeader& header) {
    file_ = file;
    header_ = header;
    units_ = header.setup.units;
    channels_ = header.channels.size() - 1;
    written_ = {};
    lost_ = 0;
    held_.clear();
    held_.reserve(recordLength()); // saving a scan allocates nothing while the file can be written
}

void RunFileWriter::close() {
    file_.clear();
    held_.clear();
}

std::string RunFileWriter::LCU_SaveScan(const KeptScan& scan) {
    if (file_.empty()) return {};
    return errors_.run("LCUFunctions-LCU_SaveScan", std::string(), [&](Level& level) {
        const bool failedBefore = held() > 0;
        try {
            hold(scan);
            level = 1; // appending
            appendHeld();
        } catch (const Failure& error) {
            if (failedBefore && (level == 1 || lost_ > 1)) return std::string();
            throw withScan(error, scan);
        }
        return formatPicture(written_.lastDepth, "#,##0.00");
    });
}

bool RunFileWriter::writeHeld() {
    if (held_.empty()) return true;
    try {
        appendHeld();
        return true;
    } catch (const Failure&) {
        return false;
    }
}

void RunFileWriter::saveHeldIn(const Path& file) {
    if (files_.exists(file)) throw Failure(ErrorNumber::pathFileAccess, file.string() + ": is there already");
    Bytes bytes = encodeRunHeader(header_);
    bytes.insert(bytes.end(), held_.begin(), held_.end());
    files_.replace(file, bytes);
    held_.clear();
}

void RunFileWriter::hold(const KeptScan& scan) {
    if (scan.channels.size() != channels_) {
        throw Failure(ErrorNumber::subscriptOutOfRange,
                      "The scan has " + std::to_string(scan.channels.size()) + " channels, the run file " +
                          std::to_string(channels_));
    }
    const auto record = std::span(record_).first(recordLength());
    encodeScan(record, scan, units_);
    if (held_.size() + record.size() > mostHeldBytes) {
        ++lost_;
        appendHeld();
        --lost_;
    }
    held_.insert(held_.end(), record.begin(), record.end());
}

/// The oldest record goes first by itself, so that trying in vain costs little however much is held. A file
/// that has gone is not begun anew without its header.
void RunFileWriter::appendHeld() {
    std::ignore = files_.size(file_);
    const auto oldest = std::span(held_).first(recordLength());
    append(oldest);
    held_.erase(held_.begin(), held_.begin() + static_cast<std::ptrdiff_t>(oldest.size()));
    if (held_.empty()) return;
    append(held_);
    held_.clear();
}

void RunFileWriter::append(std::span<const std::uint8_t> records) {
    files_.append(file_, records);
    const auto depthOf = [&](std::span<const std::uint8_t> record) {
        return ScanView(record.data(), channels_).depth() / 1000.0;
    };
    if (written_.count == 0) written_.firstDepth = depthOf(records.first(recordLength()));
    written_.lastDepth = depthOf(records.last(recordLength()));
    written_.count += static_cast<std::int64_t>(records.size() / recordLength());
}

} // namespace tarvik
