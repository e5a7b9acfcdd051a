// The header of a run file: from values to its eight blocks and back.
#pragma once

#include "base/run_header.h"
#include "platform/files.h"

#include <cstddef>
#include <span>

namespace tarvik {

/// Where the scans lie: what the header says, checked against the length of the file.
struct RunFileShape {
    std::size_t firstScan = 0;    ///< byte at which the scans begin
    std::size_t recordLength = 0; ///< bytes
    int channels = 0;             ///< values of a scan without Speed, 0 to 20
    std::size_t scans = 0;        ///< whole records
    std::size_t partialBytes = 0; ///< of a torn last record
};

struct RunFileInfo {
    RunHeader header;
    RunFileShape shape;
};

/// All eight blocks. Throws a Failure when the channels do not start with "Speed" or are too many, or when a
/// number does not fit its field.
[[nodiscard]] Bytes encodeRunHeader(const RunHeader& header);

/// `start` is the file up to its scans at least (all of it when it is shorter); `fileSize` its full length.
/// Throws a Failure naming `file`, the place and the remedy when this is no sound run file.
[[nodiscard]] RunFileInfo decodeRunHeader(std::span<const std::uint8_t> start, std::uint64_t fileSize,
                                          const Path& file);

} // namespace tarvik
