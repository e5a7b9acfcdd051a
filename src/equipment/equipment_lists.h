// The lists that the equipment screens and the command line show.
#pragma once

#include "equipment/equipment_file.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvik {

struct MakerRow {
    std::string code;
    std::string name;
    std::string selected; ///< "YES" when the user has one, else "NO"
};

struct MakerList {
    std::vector<MakerRow> rows; ///< row 0 is record 1
    std::string banner;         ///< "BRENNA Winch and Tool database version …"
    std::string countMessage;   ///< "User currently has …"
};

struct UserRow {
    std::string code;
    std::string name;
    std::string serialNumber;

    /// The name, two blanks, "SN-" and the serial number.
    [[nodiscard]] std::string text() const { return name + "  SN-" + serialNumber; }
};

struct UserList {
    std::vector<UserRow> rows; ///< row 0 is record 1
    /// Nothing when there is no user file: what is shown stays.
    std::optional<std::string> countMessage;
};

/// What tools and winches have in common: where their fields are, and what they are called.
template <class Record>
struct EquipmentKind {
    TextField code;
    TextField name;
    TextField serialNumber;
    Int16Field selected;
    Int16Field count; ///< of the header
    std::string_view one;
    std::string_view many;
    std::vector<Record> EquipmentFile::*records;
};

constexpr EquipmentKind<ToolRecord> toolKind{tool::code,     tool::name,           tool::serialNumber,
                                             tool::selected, equipment::toolCount, "tool",
                                             "tools",        &EquipmentFile::tools};
constexpr EquipmentKind<WinchRecord> winchKind{
    winch::code,           winch::name, winch::serialNumber, winch::selected,
    equipment::winchCount, "winch",     "winches",           &EquipmentFile::winches};

template <class Record>
[[nodiscard]] MakerList makerList(const EquipmentFile& maker, const EquipmentKind<Record>& kind);

/// `total` is the number of models that the maker offers.
template <class Record>
[[nodiscard]] UserList userList(const EquipmentFile& user, const EquipmentKind<Record>& kind,
                                std::size_t total);

/// The names of a tool's measured channels, mode 1 before mode 2, each name once.
[[nodiscard]] std::vector<std::string> sensorNames(const ToolRecord& record);

} // namespace tarvik
