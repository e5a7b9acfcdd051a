#include "files/run_file_reader.h"

#include "base/failure.h"
#include "files/run_details.h"
#include "files/run_file_layout.h"
#include "files/scan_loader.h"
#include "files/scan_pieces.h"
#include "files/scan_record.h"

#include <algorithm>
#include <limits>

namespace tarvik {

namespace {

/// The header's own length is a 16-bit number.
constexpr std::size_t longestHeader = std::numeric_limits<std::int16_t>::max();

/// A scan that holds a waveform is laid out by the sonic run, which this reader does not know.
void refuseWaveforms(const RunHeader& header, const Path& file) {
    if (header.waveformSamples == 0) return;
    throw Failure(ErrorNumber::badFile, file.string() + ": The scans hold sonic waveforms of " +
                                            std::to_string(header.waveformSamples) +
                                            " samples, which cannot be shown yet. Choose another run.");
}

} // namespace

RunFileInfo readRunHeader(const Files& files, const Path& file) {
    return decodeRunHeader(files.readPart(file, 0, longestHeader), files.size(file), file);
}

std::optional<DepthRange> readDepthRange(const Files& files, const Path& file) {
    const RunFileShape shape = readRunHeader(files, file).shape;
    std::int32_t smallest = std::numeric_limits<std::int32_t>::max();
    std::int32_t largest = std::numeric_limits<std::int32_t>::min();
    ScanMarks marks;
    forEachScanPiece(files, file, shape, [&](const Bytes& piece, std::size_t) {
        for (std::size_t at = 0; at + shape.recordLength <= piece.size(); at += shape.recordLength) {
            const ScanView scan(&piece[at], static_cast<std::size_t>(shape.channels));
            if (!marks.isScan(scan) || !scan.hasDepth()) continue;
            smallest = std::min(smallest, scan.depth());
            largest = std::max(largest, scan.depth());
        }
        return true;
    });
    if (smallest > largest) return std::nullopt;
    return DepthRange{.smallest = smallest / 1000.0, .largest = largest / 1000.0};
}

std::size_t cutTornTail(Files& files, const Path& file) {
    const RunFileShape shape = readRunHeader(files, file).shape;
    if (shape.partialBytes != 0) files.truncate(file, shape.firstScan + shape.scans * shape.recordLength);
    return shape.partialBytes;
}

std::optional<ReviewLog> RunFileReader::Tarvikfileopen(const Path& file, const Progress& progress) {
    return errors_.run("Logdisplay1-Tarvikfileopen", std::optional<ReviewLog>(), [&](Level& level) {
        RunFileInfo info = readRunHeader(files_, file);
        refuseWaveforms(info.header, file);
        level = 1; // the scans
        std::optional<ReviewLog> review(std::in_place);
        review->header = std::move(info.header);
        if (!scanTarvikdatavalues(file, info.shape, *review, progress)) review.reset();
        return review;
    });
}

bool RunFileReader::scanTarvikdatavalues(const Path& file, const RunFileShape& shape, ReviewLog& review,
                                         const Progress& progress) {
    return errors_.run("Logdisplay1-scanTarvikdatavalues", false, [&](Level& level) {
        loadScans(files_, file, shape, review, progress);
        level = 1; // telling what was not read
        if (!skippedText(review).empty())
            log_.red(file.filename().string() + ": " + skippedText(review) + " are left out");
        if (review.truncated) log_.red("Scan Tarvik data values - too many data points for array");
        if (review.partialBytes != 0) {
            log_.red("Scan Tarvik data values - last scan is incomplete, " +
                     std::to_string(review.partialBytes) + " bytes not read");
        }
        return true;
    });
}

std::optional<DepthRange> RunFileReader::Utilities_checkfiledepthrange(const Path& file) {
    return errors_.run("Utilities_checkfiledepthrange", std::optional<DepthRange>(),
                       [&](Level&) { return readDepthRange(files_, file); });
}

} // namespace tarvik
