// A scan is read and decoded without allocating.
#include "lcu/counting_new.h"
#include "lcu/scan_bench.h"
#include "lcu/scan_reader.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::test;

namespace {

/// The same scan for ever, without a container behind it.
class EndlessPort final : public SerialPort {
  public:
    explicit EndlessPort(std::span<const std::uint8_t> line) : line_(line) {}
    std::int32_t ComOpen(std::string_view, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                         std::int32_t, std::int32_t, std::int32_t) override {
        return 1;
    }
    std::int32_t ComClose(std::int32_t) override { return 1; }
    std::int32_t ComStatus(std::int32_t) override { return static_cast<std::int32_t>(line_.size() - next_); }
    std::int32_t Com_Flush(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t ComPuts(std::int32_t, std::string_view) override { return 1; }
    std::int32_t ComGetc(std::int32_t) override { return line_[next_++]; }
    std::int32_t ComSleepMS(std::int32_t, std::int32_t) override {
        next_ = 0;
        return 1;
    }
    std::int32_t ComSetFlow(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t ComSetYield(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t ComGetCTSStatus(std::int32_t) override { return 1; }
    [[nodiscard]] std::string openProblem() const override { return {}; }

  private:
    std::span<const std::uint8_t> line_;
    std::size_t next_ = 0;
};

} // namespace

TEST(ScanPath, AllocatesNothing) {
    ScanBench bench(lcu4, "K417", 20);
    ScanData line = scanData(1234, 100, std::vector<std::uint16_t>(20, 40000), idle4);
    line.insert(line.begin(), static_cast<std::uint8_t>(line.size() + 1));
    EndlessPort serial(line);
    ScanReader reader(serial, bench.clock, bench.link);
    ScanDecoder decoder(bench.errors, bench.log, bench.setup, bench.state);
    RawScanDecoder rawDecoder(bench.errors, bench.setup);

    const long before = allocationsSoFar();
    for (int i = 0; i < 100; ++i) {
        const ScanRead read = reader.read();
        ++bench.state.scans;
        decoder.LCU_GetValues(read.bytes);
        rawDecoder.LCU_GetRawDataScan(read.bytes, bench.state.current);
    }
    EXPECT_EQ(allocationsSoFar(), before);
    EXPECT_EQ(bench.state.scans, 103);
    EXPECT_EQ(bench.scan().depth, 12.34F);
    ::operator delete(::operator new(1)); // the counter counts
    EXPECT_GT(allocationsSoFar(), before);
}
