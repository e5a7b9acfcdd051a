// Writes the run file: its header when the run starts, then one record for every kept scan.
//
// The file is opened and closed for each record, so that a crash costs one scan at most. A record is written
// whole or not at all. Errors are reported through the guard and never reach the run.
#pragma once

#include "app/error_trap.h"
#include "base/run_header.h"
#include "files/run_file_layout.h"
#include "platform/files.h"

#include <array>
#include <string>

namespace tarvik {

/// The first channel of every run, "Speed", in the unit that goes with the file's depths.
[[nodiscard]] RunChannel speedChannel(DepthUnits units);

class RunFileWriter {
  public:
    RunFileWriter(ErrorTrap& errors, Files& files) : errors_(errors), files_(files) {}

    /// Writes the whole header into a new file and makes it the current run file. False when it could not be
    /// written or the file exists already; there is no current file then. `header.channels` starts with
    /// `speedChannel`.
    bool LCU_SetupFileHeader(const Path& file, const RunHeader& header);

    /// Makes an existing run file the current one; the next scan goes to its end, which must be a record
    /// border (see cutTornTail). `header` is what the file's header says.
    void continueFile(const Path& file, const RunHeader& header);

    /// No current file any more: scans are let pass.
    void close() { file_.clear(); }

    /// Appends one record and returns the depth as it was saved, in the file's unit, written "#,##0.00".
    /// Empty, and nothing written, without a current file or after an error: a value that does not fit its
    /// field, a channel count other than the header's, a file that has gone, a full disk.
    std::string LCU_SaveScan(const KeptScan& scan);

    [[nodiscard]] const Path& file() const { return file_; }

  private:
    ErrorTrap& errors_;
    Files& files_;
    Path file_;
    DepthUnits units_ = DepthUnits::metres;
    std::size_t channels_ = 0;
    std::array<std::uint8_t, run_file::scanLength(maxChannels)> record_{};
};

} // namespace tarvik
