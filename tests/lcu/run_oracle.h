// What a run file must hold, worked out from the bytes that the box sent with none of the product's
// arithmetic: for the tool K215 (a count rate and a period of factor 21), uncalibrated.
#pragma once

#include "base/run_setup.h"
#include "simulator/options.h"
#include "simulator/record.h"

#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace tarvik::test {

class RunOracle {
  public:
    RunOracle(const RunSetup& setup, lcusim::LcuModel model) : setup_(setup), model_(model) {}

    /// The records of all kept scans, one after the other.
    std::vector<std::uint8_t> records(const std::vector<lcusim::ScanRecord>& scans) {
        for (const lcusim::ScanRecord& scan : scans) {
            if (scan.fate == lcusim::ScanFate::lost) lastSampled_ = unset;
            missing_ = missing_ || scan.fate != lcusim::ScanFate::sent;
            if (scan.fate == lcusim::ScanFate::sent) take(scan.bytes.data(), static_cast<int>(scan.size) - 1);
        }
        return file_;
    }

  private:
    static constexpr double unset = -9999;

    void take(const std::uint8_t* b, int n) { // b[1] is the first data byte
        if (++count_ <= 2) return;
        int depthCount = b[1] << 16 | b[2] << 8 | b[3];
        if (depthCount > 0x800000) depthCount -= 0x1000000;
        const bool four = model_ == lcusim::LcuModel::lcu4;
        const float depth = static_cast<float>(depthCount * 0.01 * (four ? 0.25 : 1));
        const int time = b[4] << 8 | b[5];
        const bool unbroken = !std::exchange(missing_, false); // else the time is not the one of the way
        const double speed =
            count_ > 3 && time != 0 && unbroken ? std::abs(double{depth} - before_) * 600'000 / time : 0;
        before_ = depth;
        if (!advances(depth) || n != (four ? 16 : 11)) return;

        const double unit = setup_.units == DepthUnits::feet ? 0.3048 : 1;
        put(depth * 1000.0 / unit);
        put(time);
        put(speed / unit * 100);
        const int rate = b[6] << 8 | b[7];
        const int period = b[8] << 8 | b[9];
        put(time == 0 ? 0 : std::nearbyint(rate * 10'000.0 / time) * 100);
        put(time == 0 || period == 0 ? 0 : double{static_cast<float>(21e6 / period)} * 100);
        putTwo(four ? std::nearbyint(std::abs(level(b + n - 1)) * 0.55) : b[n]);
        putTwo(four ? std::nearbyint(std::abs(level(b + n - 3)) * 0.0485) : 0);
        putTwo(setup_.magneticMarker);
        put(0);
        file_.insert(file_.end(), 10, ' ');
    }

    bool advances(float depth) {
        const double last = lastSampled_;
        if (setup_.sampling == Sampling::time || last == unset) {
            lastSampled_ = depth;
            return last != unset;
        }
        const double moved = setup_.direction == Direction::up ? last - depth : depth - last;
        if (moved <= 0 || moved >= 1) return false;
        lastSampled_ = depth;
        return true;
    }

    static int level(const std::uint8_t* word) {
        const int value = word[0] << 8 | word[1];
        return value > 2048 ? value - 4096 : value;
    }
    void putTwo(double value) {
        const auto number = static_cast<std::uint16_t>(static_cast<std::int64_t>(value));
        file_.push_back(static_cast<std::uint8_t>(number));
        file_.push_back(static_cast<std::uint8_t>(number >> 8));
    }
    void put(double value) {
        const auto number = static_cast<std::uint32_t>(static_cast<std::int64_t>(std::nearbyint(value)));
        for (int shift = 0; shift < 32; shift += 8)
            file_.push_back(static_cast<std::uint8_t>(number >> shift));
    }

    RunSetup setup_;
    lcusim::LcuModel model_;
    std::vector<std::uint8_t> file_;
    int count_ = 0;
    double before_ = 0;
    bool missing_ = false; ///< scans since the last one that came
    double lastSampled_ = unset;
};

} // namespace tarvik::test
