// Writes a run in review as a LAS 2.0 file: one line for every depth step.
//
// The recorded channels go out, each filtered if asked for, then interpolated to a regular step if asked for.
// The file is written in large pieces as it grows; after an error in writing what is there stays as it
// stands, and what a file of the same name held before stays beside it. What cannot be exported at all (a
// step of 0, more than 80,000 steps, an unknown channel ...) is refused before anything is written.
#pragma once

#include "app/error_trap.h"
#include "base/review_log.h"
#include "platform/files.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

struct ChannelFilter {
    std::string channel;
    std::string setting = "None"; ///< "None" or the window length in points ("5")
};

/// Depths are in the unit of the log.
struct LasExportOptions {
    std::optional<double> start{};    ///< the first loaded depth when not given
    std::optional<double> stop{};     ///< the last loaded depth when not given
    std::optional<double> step{};     ///< regular step; not given: the loaded steps as they are
    std::string nullText = "-999.25"; ///< a number, written as it stands
    int decimals = 2;                 ///< of the data, 2 to 5
    std::vector<ChannelFilter> filters{};
    /// Names in the order of the columns; empty: all recorded channels. "TIME", "Current", "Voltage" and
    /// "Magnetic Marker" can be named too.
    std::vector<std::string> channels{};
    std::string holeAzimuth{}; ///< degrees, as entered
    std::string holeInclination{};
    /// Where the log came from; never written over, or what was not loaded would be lost for good.
    Path source{};
};

/// The lines of the export list: progress and warnings. May be empty.
using ExportList = std::function<void(std::string_view line)>;

/// Asked after each large piece that was written, with the share of the data lines that are done; false
/// breaks the export off. May be empty: nobody watches.
using ExportWatch = std::function<bool(int percent)>;

class LasExport {
  public:
    LasExport(ErrorTrap& errors, Files& files) : errors_(errors), files_(files) {}

    /// True when the file is complete; false when it was refused or broke off (the error is reported). What
    /// `watch` breaks off is taken back: half a log must not look like a whole one.
    bool Logprintexport_exportLASfile(const ReviewLog& log, const Path& file, const LasExportOptions& options,
                                      const ExportList& list = {}, const ExportWatch& watch = {});

  private:
    ErrorTrap& errors_;
    Files& files_;
};

} // namespace tarvik
