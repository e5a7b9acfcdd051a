// A run as large as review takes: 80,000 scans of 20 channels with Speed, on the disk.
#pragma once

#include "app/error_trap.h"
#include "app/status_log.h"
#include "base/limits.h"
#include "files/run_file_reader.h"
#include "files/run_file_writer.h"
#include "files/run_header_codec.h"
#include "files/scan_record.h"
#include "platform/disk_files.h"
#include "platform/virtual_clock.h"

#include <array>
#include <cmath>
#include <filesystem>
#include <stdexcept>
#include <unistd.h>

namespace tarvik::bench {

/// Nothing may go wrong here.
class NoErrors final : public ErrorReporter {
  public:
    void report(const ErrorReport& error) override { throw std::runtime_error(error.description); }
};

/// Values that need all their digits, as measured ones do.
inline float measured(std::size_t scan, std::size_t channel) {
    const auto x = static_cast<double>(scan) * 0.013 + static_cast<double>(channel);
    return static_cast<float>(900 * std::sin(x) + 2500 * std::sin(x * 0.07) + 40);
}

class LargeRun {
  public:
    LargeRun() {
        std::filesystem::create_directories(folder_);
        RunHeader header;
        header.setup.sampling = Sampling::depth;
        header.channels.push_back(speedChannel(header.setup.units));
        for (std::size_t i = 1; i <= values; ++i) {
            header.channels.push_back({"Channel " + std::to_string(i), "CPS", {}, {}, {}});
        }
        Bytes bytes = encodeRunHeader(header);
        std::array<float, values> channels{};
        std::array<std::uint8_t, run_file::scanLength(values)> record{};
        for (std::size_t scan = 0; scan < maxReviewSteps; ++scan) {
            for (std::size_t i = 0; i < values; ++i) channels[i] = measured(scan, i);
            encodeScan(record,
                       {.depth = static_cast<double>(scan) * 0.02,
                        .scanTime = 500,
                        .speed = 6,
                        .channels = channels,
                        .toolCurrent = 48},
                       header.setup.units);
            bytes.insert(bytes.end(), record.begin(), record.end());
        }
        files.replace(file, bytes);
    }
    ~LargeRun() { std::filesystem::remove_all(folder_); }
    LargeRun(const LargeRun&) = delete;
    LargeRun& operator=(const LargeRun&) = delete;

    [[nodiscard]] ReviewLog load() {
        auto review = RunFileReader(trap, log, files).Tarvikfileopen(file);
        if (!review || review->steps() != maxReviewSteps) throw std::runtime_error("the run did not load");
        return std::move(*review);
    }

  private:
    static constexpr std::size_t values = maxChannels - 1;

    Path folder_ = std::filesystem::temp_directory_path() / ("tarvik_bench_" + std::to_string(::getpid()));
    NoErrors errors_;
    VirtualClock clock_;

  public:
    DiskFiles files;
    Path file = folder_ / "H1_K101_01.kvx";
    Path lasFile = folder_ / "H1_K101_01.las";
    ErrorTrap trap{errors_};
    StatusLog log{trap, clock_, files, folder_ / "history"};
};

} // namespace tarvik::bench
