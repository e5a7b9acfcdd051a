#include "equipment/equipment_lists.h"

#include <algorithm>

namespace tarvik {

namespace {

/// `one` is "tool" or "winch", `many` its plural.
std::string countMessage(std::size_t selected, std::size_t total, std::string_view one,
                         std::string_view many) {
    std::string message = "User currently has ";
    if (selected == 0) {
        message.append("no ").append(many);
    } else if (selected == 1) {
        message.append("only 1 ").append(one);
    } else {
        message.append(std::to_string(selected)).append(" ").append(many);
    }
    return message + " selected from a total of " + std::to_string(total);
}

} // namespace

template <class Record>
MakerList makerList(const EquipmentFile& maker, const EquipmentKind<Record>& kind) {
    MakerList list;
    list.banner = "BRENNA Winch and Tool database version " + maker.header.get(equipment::version) +
                  "  date " + maker.header.get(equipment::date);
    std::size_t selected = 0;
    for (const Record& record : maker.*kind.records) {
        const bool has = record.get(kind.selected) != 0;
        selected += has ? 1 : 0;
        list.rows.push_back({record.get(kind.code), record.get(kind.name), has ? "YES" : "NO"});
    }
    list.countMessage = countMessage(selected, list.rows.size(), kind.one, kind.many);
    return list;
}

template <class Record>
UserList userList(const EquipmentFile& user, const EquipmentKind<Record>& kind, std::size_t total) {
    UserList list;
    for (const Record& record : user.*kind.records) {
        list.rows.push_back({record.get(kind.code), record.get(kind.name), record.get(kind.serialNumber)});
    }
    list.countMessage = countMessage(list.rows.size(), total, kind.one, kind.many);
    return list;
}

template MakerList makerList(const EquipmentFile&, const EquipmentKind<ToolRecord>&);
template MakerList makerList(const EquipmentFile&, const EquipmentKind<WinchRecord>&);
template UserList userList(const EquipmentFile&, const EquipmentKind<ToolRecord>&, std::size_t);
template UserList userList(const EquipmentFile&, const EquipmentKind<WinchRecord>&, std::size_t);

std::vector<std::string> sensorNames(const ToolRecord& record) {
    std::vector<std::string> names;
    for (const int mode : {1, 2}) {
        for (int channel = 1; channel <= tool::channels(record, mode); ++channel) {
            std::string name = record.get(tool::channelName(mode, channel));
            if (!name.empty() && std::ranges::find(names, name) == names.end())
                names.push_back(std::move(name));
        }
    }
    return names;
}

} // namespace tarvik
