// Writes the run file: its header when the run starts, then one record for every kept scan.
//
// The file is opened and closed for each record, so that a crash costs one scan at most. A record is written
// whole or not at all. Scans that cannot be written (a full disk) are held and go to the file, in order, with
// the next one that can. Errors are reported through the guard and never reach the run.
#pragma once

#include "app/error_trap.h"
#include "base/run_header.h"
#include "files/run_file_layout.h"
#include "platform/files.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace tarvik {

/// The first channel of every run, "Speed", in the unit that goes with the file's depths.
[[nodiscard]] RunChannel speedChannel(DepthUnits units);

/// What this run has put on file; depths in the file's unit, as stored.
struct WrittenScans {
    std::int64_t count = 0;
    double firstDepth = 0;
    double lastDepth = 0;
};

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

    /// No current file any more: scans are let pass, scans held are given up (see writeHeld).
    void close();

    /// Appends one record, behind those held, and returns the depth as it was saved, in the file's unit,
    /// written "#,##0.00". Empty, and nothing written, without a current file or after an error: a value that
    /// does not fit its field and a channel count other than the header's lose the scan; a file that has gone
    /// or a full disk has it held, which is reported once until scans can be written again.
    std::string LCU_SaveScan(const KeptScan& scan);

    /// Scans held. About four megabytes of them at most; those beyond are lost.
    [[nodiscard]] std::size_t held() const { return held_.size() / recordLength(); }
    /// Scans that could neither be written nor held, since the file was made the current one. The first is
    /// reported, the others only counted.
    [[nodiscard]] std::int64_t lost() const { return lost_; }
    /// A last try to write them; that they cannot be has been reported. True when none is left.
    bool writeHeld();

    /// Puts the scans held into a new run file with the header of the current one. Throws a Failure, and
    /// holds them still, when it cannot be written or is there already.
    void saveHeldIn(const Path& file);

    /// Since the file was made the current one; stays until the next one is.
    [[nodiscard]] const WrittenScans& written() const { return written_; }
    [[nodiscard]] const Path& file() const { return file_; }

  private:
    static constexpr std::size_t mostHeldBytes = 4'000'000;

    [[nodiscard]] std::size_t recordLength() const {
        return run_file::scanLength(static_cast<int>(channels_));
    }
    void hold(const KeptScan& scan);
    void appendHeld();
    void append(std::span<const std::uint8_t> records);

    ErrorTrap& errors_;
    Files& files_;
    Path file_;
    RunHeader header_;
    DepthUnits units_ = DepthUnits::metres;
    std::size_t channels_ = 0;
    std::array<std::uint8_t, run_file::scanLength(maxChannels)> record_{};
    WrittenScans written_;
    std::int64_t lost_ = 0;
    Bytes held_; ///< whole records; between two scans empty unless the file cannot be written
};

} // namespace tarvik
