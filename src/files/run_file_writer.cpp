#include "files/run_file_writer.h"

#include "base/number_picture.h"
#include "files/run_header_codec.h"
#include "files/scan_record.h"

namespace tarvik {

namespace {

/// The error with the scan's own numbers behind it, each on a line of the error file.
Failure withScan(const Failure& error, const KeptScan& scan) {
    return {error.number(), std::string(error.what()) + "\r\n   LCU Current depth " +
                                shortestNumber(scan.depth) + "\r\n   LCU spped and time  " +
                                shortestNumber(scan.speed) + "  " + std::to_string(scan.scanTime)};
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
    file_.clear();
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
    units_ = header.setup.units;
    channels_ = header.channels.size() - 1;
}

std::string RunFileWriter::LCU_SaveScan(const KeptScan& scan) {
    if (file_.empty()) return {};
    return errors_.run("LCUFunctions-LCU_SaveScan", std::string(), [&](Level& level) {
        try {
            if (scan.channels.size() != channels_) {
                throw Failure(ErrorNumber::subscriptOutOfRange,
                              "The scan has " + std::to_string(scan.channels.size()) +
                                  " channels, the run file " + std::to_string(channels_));
            }
            const auto record = std::span(record_).first(run_file::scanLength(static_cast<int>(channels_)));
            encodeScan(record, scan, units_);
            level = 1; // appending; a file that has gone is not begun anew without its header
            std::ignore = files_.size(file_);
            files_.append(file_, record);
        } catch (const Failure& error) {
            throw withScan(error, scan);
        }
        const std::int32_t saved = ScanView(record_.data(), channels_).depth();
        return formatPicture(saved / 1000.0, "#,##0.00");
    });
}

} // namespace tarvik
