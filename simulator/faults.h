// Faults of the box that can be ordered: which, when, how often, how much.
//
// A fault is written NAME@[c]N[xCOUNT][=VALUE]: from scan N (or, with "c", from the N-th command heard) on,
// COUNT times, with the strength VALUE. Scans and commands are counted from 1 since the box was switched on.
//   short-scan@40        scan 40 breaks off in the middle
//   status-bits@c3=6     the answer to the first status request from the third command on has bit 6 set
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace lcusim {

enum class FaultKind : std::uint8_t {
    shortScan,
    zeroLength,
    extraBytes,
    slowScan,
    garbage,
    emptyScan,
    wrongChannels,
    overCurrent,
    statusBits,
    zeroScanTime,
    depthJump,
    stall,
    silence,
    hangUp,
    powerCut,
    lateReply,
    noReply,
    shortReply,
    longReply,
    wrongEcho,
};

/// Where a fault may strike.
enum class FaultSite : std::uint8_t { scan, reply, either };

struct FaultRule {
    std::string_view name;
    FaultKind kind;
    FaultSite site;
    double value; ///< strength when the order names none
    std::string_view meaning;
};

/// All faults, in the order in which the help prints them.
[[nodiscard]] std::span<const FaultRule> faultRules();

struct Fault {
    FaultKind kind = FaultKind::shortScan;
    bool byCommand = false; ///< counts commands heard instead of scans
    std::int64_t at = 1;
    std::int64_t count = 1;
    double value = 0;
};

struct ParsedFault {
    std::optional<Fault> fault;
    std::string problem; ///< one sentence when there is no fault
};

/// Reads NAME@[c]N[xCOUNT][=VALUE].
[[nodiscard]] ParsedFault parseFault(std::string_view text);

/// The faults ordered, and which of them are used up.
class FaultPlan {
  public:
    explicit FaultPlan(std::vector<Fault> faults);

    /// Strength of the fault for this scan, nothing when it is not due.
    [[nodiscard]] std::optional<double> forScan(FaultKind kind, std::int64_t scan) const;
    /// Strength of the fault once command `commandsHeard` has been heard; each call that returns a value uses
    /// up one.
    [[nodiscard]] std::optional<double> takeForCommand(FaultKind kind, std::int64_t commandsHeard);

  private:
    std::vector<Fault> faults_;
};

} // namespace lcusim
