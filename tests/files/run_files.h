// What the run-file tests share: a small run, its writer and reader on files in memory, and their error log.
#pragma once

#include "app/error_trap.h"
#include "app/status_log.h"
#include "files/run_file_reader.h"
#include "files/run_file_writer.h"
#include "platform/memory_files.h"
#include "platform/virtual_clock.h"

#include <string>
#include <vector>

namespace tarvik::testing {

inline const Path runFile = "project/H1_K101_01.kvx";

inline RunHeader runHeader(std::size_t values = 2, DepthUnits units = DepthUnits::metres) {
    RunHeader header;
    header.versionMajor = 2;
    header.versionMinor = 1;
    header.runDate = "13-Mar-2006";
    header.startTime = "02:05 pm";
    header.project = "Northern lights";
    header.hole.holeId = "Hole-with-long-name";
    header.setup.sampling = Sampling::depth;
    header.setup.interval = 5;
    header.setup.units = units;
    header.tool = {"K101", "Gamma tool", "T-77"};
    header.winch = {"W1", "Small winch", "W-12"};
    header.channels.push_back(speedChannel(units));
    for (std::size_t i = 1; i <= values; ++i) {
        RunChannel channel;
        channel.name = "Log " + std::to_string(i);
        channel.unit = "CPS";
        channel.calibration.state = "OK";
        header.channels.push_back(channel);
    }
    return header;
}

class Errors final : public ErrorReporter {
  public:
    void report(const ErrorReport& error) override { reports.push_back(error); }
    std::vector<ErrorReport> reports;
};

class Lines final : public StatusViewer {
  public:
    void showStatusLine(std::string_view line) override { lines.emplace_back(line); }
    std::vector<std::string> lines;
};

struct RunFiles {
    RunFiles() { log.addViewer(viewer); }

    /// Appends a scan of the current file's two values at a depth in metres.
    std::string save(double depth, float first = 1.5F, double speed = 6) {
        const float values[]{first, -2.25F};
        return writer.LCU_SaveScan({.depth = depth,
                                    .scanTime = 500,
                                    .speed = speed,
                                    .channels = values,
                                    .toolCurrent = 48,
                                    .toolVoltage = 62,
                                    .magneticMarker = 7});
    }
    std::optional<ReviewLog> open() { return reader.Tarvikfileopen(runFile); }

    MemoryFiles files;
    Errors errors;
    Lines viewer;
    ErrorTrap trap{errors};
    VirtualClock clock;
    StatusLog log{trap, clock, files, "history"};
    RunFileWriter writer{trap, files};
    RunFileReader reader{trap, log, files};
};

} // namespace tarvik::testing
