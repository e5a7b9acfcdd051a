#include "files/scan_loader.h"

#include "files/run_file_layout.h"
#include "files/scan_pieces.h"
#include "files/scan_record.h"

#include <algorithm>
#include <array>
#include <span>

namespace tarvik {

using namespace run_file;

namespace {

/// The progress moves on by so many scans.
constexpr std::size_t scansPerProgress = 50;
static_assert(scansPerPiece % scansPerProgress == 0);

class ScanLoader {
  public:
    ScanLoader(const RunFileShape& shape, ReviewLog& review)
        : shape_(shape),
          review_(review),
          scale_(scaleOf(review.header)),
          values_(static_cast<std::size_t>(shape.channels)),
          mostSteps_(std::min(shape.scans, maxReviewSteps)),
          fileLength_(shape.firstScan + shape.scans * shape.recordLength + shape.partialBytes) {}

    void prepare() {
        describeChannels();
        forEachColumn([this](auto& column) {
            column.clear();
            column.reserve(mostSteps_);
        });
        for (std::size_t i = 0; i < values_; ++i) valueColumns_[i] = review_.channels[i + 1].values.data();
        review_.skippedScans = review_.damagedScans = 0;
        review_.partialBytes = shape_.partialBytes;
        review_.reversed = review_.truncated = false;
    }

    /// `position` is the byte of the file at which the piece begins. False when the arrays are full.
    bool loadPiece(std::span<const std::uint8_t> piece, std::size_t position, const Progress& progress) {
        const std::size_t scans = piece.size() / shape_.recordLength;
        grow(scans);
        for (std::size_t scan = 0; scan < scans && !review_.truncated; scan += scansPerProgress) {
            const std::size_t count = std::min(scansPerProgress, scans - scan);
            load(&piece[scan * shape_.recordLength], count);
            const std::size_t behind = position + (scan + count) * shape_.recordLength;
            if (progress)
                progress(static_cast<int>(behind * 100 / fileLength_), "Loading data values from file");
        }
        return !review_.truncated;
    }

    /// Turns upward runs round, so that depth increases with the index.
    void finish() {
        forEachColumn([this](auto& column) { column.resize(stored_); });
        if (stored_ == 0 || review_.depth.front() <= review_.depth.back()) return;
        forEachColumn([](auto& column) { std::ranges::reverse(column); });
        review_.reversed = true;
    }

  private:
    /// Once rounded to a single, the product with 0.01 is the quotient by 100 for every 32-bit number: no
    /// quotient comes closer to the middle between two singles than the product's error.
    static double scaleOf(const RunHeader& header) {
        return versionNumber(header.versionMajor, header.versionMinor) > newestUnscaledVersion ? 0.01 : 1;
    }

    void describeChannels() {
        const auto& channels = review_.header.channels;
        review_.channels.clear();
        for (const RunChannel& channel : channels) {
            const bool speed = &channel == &channels.front();
            review_.channels.push_back({.name = channel.name,
                                        .unit = channel.unit,
                                        .calibrated = speed || channel.calibration.state != "None",
                                        .values = {}});
        }
    }

    /// Makes room for so many scans. Piece by piece, so that it is still in the cache when it is filled.
    void grow(std::size_t scans) {
        const std::size_t size = std::min(stored_ + scans, mostSteps_);
        forEachColumn([size](auto& column) { column.resize(size); });
    }

    void load(const std::uint8_t* first, std::size_t count) {
        for (std::size_t i = 0; i < count && !review_.truncated; ++i) {
            const ScanView scan(first + i * shape_.recordLength, values_);
            if (!marks_.isScan(scan)) {
                ++review_.damagedScans;
            } else if (!scan.hasDepth()) {
                ++review_.skippedScans;
            } else if (stored_ == maxReviewSteps) {
                review_.truncated = true;
            } else {
                store(scan);
            }
        }
    }

    void store(ScanView scan) {
        const std::size_t row = stored_++;
        review_.depth[row] = scan.depth() / 1000.0; // a product with 0.001 would miss 10.005 by a bit
        review_.time[row] = secondsOf(scan, row == 0);
        review_.channels[0].values[row] = static_cast<float>(std::max(scan.speed(), 0) * 0.01);
        for (std::size_t i = 0; i < values_; ++i) {
            valueColumns_[i][row] = static_cast<float>(scan.value(i) * scale_);
        }
        review_.current.values[row] = scan.current();
        review_.voltage.values[row] = scan.voltage();
        review_.marker.values[row] = scan.marker();
    }

    /// Since the first scan, whose own count reaches back before it. Summed as a whole number, so that long
    /// runs do not drift.
    double secondsOf(ScanView scan, bool first) {
        if (!first) timeCount_ += scan.time();
        return static_cast<double>(timeCount_) / 10000.0;
    }

    template <class Do>
    void forEachColumn(Do&& each) {
        each(review_.depth);
        each(review_.time);
        for (ReviewChannel& channel : review_.channels) each(channel.values);
        each(review_.current.values);
        each(review_.voltage.values);
        each(review_.marker.values);
    }

    const RunFileShape& shape_;
    ReviewLog& review_;
    ScanMarks marks_;
    double scale_;       ///< of the channel values
    std::size_t values_; ///< of a scan without Speed
    std::size_t mostSteps_;
    std::size_t fileLength_;
    std::array<float*, mostScanChannels> valueColumns_{};
    std::size_t stored_ = 0;
    std::int64_t timeCount_ = 0; ///< 0.1 ms
};

} // namespace

void loadScans(const Files& files, const Path& file, const RunFileShape& shape, ReviewLog& review,
               const Progress& progress) {
    ScanLoader loader(shape, review);
    loader.prepare();
    forEachScanPiece(files, file, shape, [&](const Bytes& piece, std::size_t position) {
        return loader.loadPiece(piece, position, progress);
    });
    loader.finish();
}

} // namespace tarvik
