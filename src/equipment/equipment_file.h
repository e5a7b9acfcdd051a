// The two equipment files, "BrennaTools-Winches.dat" (the maker's) and "UserTools-Winches.dat" (the user's
// own): a header of 128 bytes, the tool records of 4000 bytes, the winch records of 1024 bytes, nothing
// between.
//
// Reading takes what is there. A count that cannot be true and a record that the file cuts short are told as
// faults (file, place, remedy); what is missing reads as blanks and zeros.
#pragma once

#include "base/tool_record.h"
#include "base/winch_record.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarvik {

using EquipmentHeader = FixedRecord<128>;

namespace equipment {

constexpr TextField version{0, 10};
constexpr TextField date{10, 20};
constexpr Int16Field toolCount{30};
constexpr Int16Field winchCount{32};
constexpr TextField criticalVersion{54, 10};
constexpr TextField reserved{64, 64};

static_assert(endOf(version) == date.offset && endOf(date) == toolCount.offset);
static_assert(endOf(toolCount) == winchCount.offset && endOf(criticalVersion) == reserved.offset);
static_assert(endOf(reserved) == EquipmentHeader::size);

} // namespace equipment

struct EquipmentFile {
    EquipmentHeader header;
    std::vector<ToolRecord> tools;
    std::vector<WinchRecord> winches;
    std::vector<std::string> faults; ///< what reading found damaged; empty for a file in order
};

/// Where a record starts; `index` counts from 1.
[[nodiscard]] std::uint64_t toolOffset(std::size_t index);
[[nodiscard]] std::uint64_t winchOffset(std::size_t toolCount, std::size_t index);

/// `fileName` is for the faults. A user file that was just made for its first record carries the maker's
/// count of the other kind with none of its records: that is read as it is meant, and is no fault.
[[nodiscard]] EquipmentFile readEquipment(std::span<const std::uint8_t> bytes, std::string_view fileName);

/// Header as it stands, then the records.
[[nodiscard]] std::vector<std::uint8_t> equipmentBytes(const EquipmentFile& file);

/// Sets both counts to the records there are. Throws Failure(overflow) beyond 32,767 of a kind.
void correctCounts(EquipmentFile& file);

} // namespace tarvik
