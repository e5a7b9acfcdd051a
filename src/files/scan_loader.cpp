#include "files/scan_loader.h"

#include "files/run_file_layout.h"
#include "files/scan_record.h"

#include <algorithm>
#include <array>

namespace tarvik {

using namespace run_file;

namespace {

/// The progress moves, and the arrays grow, by so many scans.
constexpr std::size_t batchScans = 50;

/// Records that are to be stored, found where they lie; turned into columns one number at a time.
class Batch {
  public:
    explicit Batch(std::size_t channels) : channels_(channels) {}

    void clear() { count_ = 0; }
    void add(const std::uint8_t* record) { records_[count_++] = record; }

    template <class Value, class Convert>
    void appendTo(std::vector<Value>& column, Convert&& convert) const {
        std::array<Value, batchScans> values;
        for (std::size_t i = 0; i < count_; ++i) values[i] = convert(ScanView(records_[i], channels_));
        column.insert(column.end(), values.begin(), values.begin() + static_cast<std::ptrdiff_t>(count_));
    }

  private:
    std::size_t channels_;
    std::array<const std::uint8_t*, batchScans> records_{};
    std::size_t count_ = 0;
};

class ScanLoader {
  public:
    ScanLoader(const RunFileShape& shape, ReviewLog& review)
        : shape_(shape), review_(review), batch_(values()) {}

    void prepare() {
        const auto& channels = review_.header.channels;
        review_.channels.clear();
        for (const RunChannel& channel : channels) {
            const bool speed = &channel == &channels.front();
            review_.channels.push_back({.name = channel.name,
                                        .unit = channel.unit,
                                        .calibrated = speed || channel.calibration.state != "None",
                                        .values = {}});
        }
        forEachColumn([](auto& column) { column.clear(); });
        const std::size_t most = std::min(shape_.scans, maxReviewSteps);
        forEachColumn([&](auto& column) { column.reserve(most); });
        review_.skippedScans = 0;
        review_.partialBytes = shape_.partialBytes;
        review_.reversed = review_.truncated = false;
    }

    /// False when the arrays are full.
    bool load(const std::uint8_t* first, std::size_t count) {
        batch_.clear();
        std::size_t room = maxReviewSteps - review_.steps();
        for (std::size_t i = 0; i < count && !review_.truncated; ++i) {
            const std::uint8_t* const record = first + i * shape_.recordLength;
            if (!ScanView(record, values()).hasDepth()) {
                ++review_.skippedScans;
            } else if (room == 0) {
                review_.truncated = true;
            } else {
                batch_.add(record);
                --room;
            }
        }
        appendColumns();
        return !review_.truncated;
    }

    /// So that depth increases with the index.
    void turnRound() {
        if (review_.steps() == 0 || review_.depth.front() <= review_.depth.back()) return;
        forEachColumn([](auto& column) { std::ranges::reverse(column); });
        review_.reversed = true;
    }

  private:
    [[nodiscard]] std::size_t values() const { return static_cast<std::size_t>(shape_.channels); }

    void appendColumns() {
        // A quotient, not a product with 0.001: 10005 is to be 10.005 to the last bit.
        batch_.appendTo(review_.depth, [](ScanView scan) { return scan.depth() / 1000.0; });
        batch_.appendTo(review_.time, [this](ScanView scan) { return secondsOf(scan); });
        batch_.appendTo(review_.channels[0].values,
                        [](ScanView scan) { return static_cast<float>(std::max(scan.speed(), 0) * 0.01); });
        const RunHeader& header = review_.header;
        const double divisor =
            versionNumber(header.versionMajor, header.versionMinor) > newestUnscaledVersion ? 100 : 1;
        for (std::size_t channel = 0; channel < values(); ++channel) {
            batch_.appendTo(review_.channels[channel + 1].values, [channel, divisor](ScanView scan) {
                return static_cast<float>(scan.value(channel) / divisor);
            });
        }
        batch_.appendTo(review_.current.values,
                        [](ScanView scan) { return static_cast<float>(scan.current()); });
        batch_.appendTo(review_.voltage.values,
                        [](ScanView scan) { return static_cast<float>(scan.voltage()); });
        batch_.appendTo(review_.marker.values,
                        [](ScanView scan) { return static_cast<float>(scan.marker()); });
    }

    /// Since the first scan, whose own count reaches back before the run. Summed as a whole number, so that
    /// long runs do not drift.
    double secondsOf(ScanView scan) {
        if (started_) timeCount_ += scan.time();
        started_ = true;
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
    Batch batch_;
    bool started_ = false;
    std::int64_t timeCount_ = 0; ///< 0.1 ms
};

} // namespace

void loadScans(std::span<const std::uint8_t> file, const RunFileShape& shape, ReviewLog& review,
               const Progress& progress) {
    ScanLoader loader(shape, review);
    loader.prepare();
    for (std::size_t scan = 0; scan < shape.scans; scan += batchScans) {
        const std::size_t count = std::min(batchScans, shape.scans - scan);
        const std::size_t position = shape.firstScan + scan * shape.recordLength;
        const bool goOn = loader.load(file.data() + position, count);
        if (progress) {
            const std::size_t behind = position + count * shape.recordLength;
            progress(static_cast<int>(behind * 100 / file.size()), "Loading data values from file");
        }
        if (!goOn) break;
    }
    loader.turnRound();
}

} // namespace tarvik
