// An hour of logging at the full line rate, 20 channels with Speed at 9600 baud: 20 scans a second, each read
// from the port, decoded, and appended to a run file that is opened and closed for it. Against the same
// number of files opened, appended to and closed with the same bytes, which is the least that a crash-proof
// run costs.
#include "app/link_state.h"
#include "base/bytes.h"
#include "count_rates.h"
#include "large_run.h"
#include "lcu/scan_decoder.h"
#include "lcu/scan_reader.h"
#include "race.h"

#include <array>
#include <vector>

namespace {

using namespace tarvik;
using namespace tarvik::bench;

constexpr std::size_t scansAnHour = 20 * 3600;
constexpr std::size_t dataBytes = 5 + 2 * (maxChannels - 1) + 2; // of an LCU2Plus
constexpr int values = maxChannels - 1;

/// The hour's bytes, as if they waited in the port; sleeping moves the virtual clock.
class HourPort final : public SerialPort {
  public:
    HourPort(std::span<const std::uint8_t> line, VirtualClock& clock) : line_(line), clock_(clock) {}

    [[nodiscard]] bool atEnd() const { return next_ == line_.size(); }

    std::int32_t ComOpen(std::string_view, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                         std::int32_t, std::int32_t, std::int32_t) override {
        return 1;
    }
    std::int32_t ComClose(std::int32_t) override { return 1; }
    std::int32_t ComStatus(std::int32_t) override {
        return static_cast<std::int32_t>(std::min<std::size_t>(line_.size() - next_, 1 + dataBytes));
    }
    std::int32_t Com_Flush(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t ComPuts(std::int32_t, std::string_view) override { return 1; }
    std::int32_t ComGetc(std::int32_t) override { return line_[next_++]; }
    std::int32_t ComSleepMS(std::int32_t, std::int32_t milliseconds) override {
        clock_.advanceMs(milliseconds);
        return 1;
    }
    std::int32_t ComSetFlow(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t ComSetYield(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t ComGetCTSStatus(std::int32_t) override { return 1; }
    [[nodiscard]] std::string openProblem() const override { return {}; }

  private:
    std::span<const std::uint8_t> line_;
    VirtualClock& clock_;
    std::size_t next_ = 0;
};

std::vector<std::uint8_t> hourOnTheLine() {
    std::vector<std::uint8_t> line;
    line.reserve(scansAnHour * (1 + dataBytes));
    for (std::size_t scan = 0; scan < scansAnHour; ++scan) {
        std::array<std::uint8_t, 1 + dataBytes> bytes{};
        bytes[0] = 1 + dataBytes;
        bytes[1] = static_cast<std::uint8_t>(scan >> 16);
        bytes[2] = static_cast<std::uint8_t>(scan >> 8);
        bytes[3] = static_cast<std::uint8_t>(scan);
        bytes[4] = 500 / 256;
        bytes[5] = 500 % 256;
        for (std::size_t i = 6; i < bytes.size(); ++i)
            bytes[i] = static_cast<std::uint8_t>(scan * 7 + i * 31);
        line.insert(line.end(), bytes.begin(), bytes.end());
    }
    return line;
}

RunHeader header() {
    RunHeader header;
    header.channels.push_back(speedChannel(header.setup.units));
    for (int i = 1; i <= values; ++i) {
        header.channels.push_back({"Channel " + std::to_string(i), "CPS", {}, {}, {}});
    }
    return header;
}

class Hour {
  public:
    Hour() { std::filesystem::create_directories(folder_); }
    ~Hour() { std::filesystem::remove_all(folder_); }
    Hour(const Hour&) = delete;
    Hour& operator=(const Hour&) = delete;

    void log(std::span<const std::uint8_t> line) {
        std::filesystem::remove(file_);
        RunFileWriter writer(trap_, files_);
        writer.LCU_SetupFileHeader(file_, header());
        HourPort port(line, clock_);
        LinkState link;
        link.port = 1;
        ScanReader reader(port, clock_, link);
        ScanState state;
        ScanDecoder decoder(trap_, log_, setup_, state);
        while (!port.atEnd()) {
            const ScanRead read = reader.read();
            ++state.scans;
            decoder.LCU_GetValues(read.bytes);
            if (!state.flags.advance) continue;
            writer.LCU_SaveScan({.depth = state.current.depth,
                                 .scanTime = state.current.scanTime,
                                 .speed = 6,
                                 .channels = std::span(state.current.calibrated).subspan(1, values),
                                 .toolCurrent = state.current.toolCurrent});
        }
    }

    void appendOnly() {
        std::filesystem::remove(file_);
        const std::array<std::uint8_t, run_file::scanLength(values)> record{};
        for (std::size_t scan = 0; scan < scansAnHour; ++scan) files_.append(file_, record);
    }

  private:
    Path folder_ = std::filesystem::temp_directory_path() / ("tarvik_hour_" + std::to_string(::getpid()));
    Path file_ = folder_ / "H1_K101_01.kvx";
    NoErrors errors_;
    ErrorTrap trap_{errors_};
    VirtualClock clock_;
    DiskFiles files_;
    StatusLog log_{trap_, clock_, files_, folder_ / "history"};
    ScanSetup setup_ = countRates(lcu2Plus, values);
};

void anHourOfLogging(benchmark::State& state) {
    const auto line = hourOnTheLine();
    Hour hour;
    race(
        state, [&] { hour.log(line); }, [&] { hour.appendOnly(); });
    state.counters["scans"] = scansAnHour;
}
BENCHMARK(anHourOfLogging)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
