// tarvik equipment: the maker's tools and winches, and the user's own.
#include "cli/terminal.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <iostream>

namespace tarvik {

namespace {

void print(std::string_view title, const MakerList& list) {
    std::cout << title << "  " << list.banner << "\n";
    for (const MakerRow& row : list.rows) {
        std::cout << "  " << row.code << "\t" << row.name << "\t" << row.selected << "\n";
    }
    if (!list.countMessage.empty()) std::cout << list.countMessage << "\n";
}

void print(std::string_view title, const UserList& list) {
    std::cout << title << "\n";
    for (std::size_t i = 0; i < list.rows.size(); ++i) {
        std::cout << "  " << i + 1 << "\t" << list.rows[i].code << "\t" << list.rows[i].text() << "\n";
    }
}

/// What a verb's act works with; `operands` are the words behind its name.
struct Call {
    Program& program;
    const ConsoleOperator& console;
    std::span<const std::string> operands;
};

int list(const Call& call) {
    ToolWinchData& equipment = call.program.equipment;
    print("Tools of the maker", equipment.ToolWinchData_loadbrennatoollist());
    print("Winches of the maker", equipment.ToolWinchData_loadbrennawinchlist());
    print("Your tools", equipment.ToolWinchData_loadusertoollist());
    print("Your winches", equipment.ToolWinchData_loaduserwinchlist());
    return exitDone;
}

/// The position from 1 of a code in the maker's list.
int makerIndex(const MakerList& list, std::string_view code, std::string_view what) {
    for (std::size_t i = 0; i < list.rows.size(); ++i) {
        if (upperCase(list.rows[i].code) == upperCase(code)) return static_cast<int>(i + 1);
    }
    throw Failure(ErrorNumber::badFile, "The maker has no " + std::string(what) + " with the code \"" +
                                            std::string(code) + "\". See: tarvik equipment list");
}

/// False when the user's equipment cannot be read; the operator has been told by then.
bool isFree(const Call& call, const std::string& serial) {
    if (call.program.equipment.ToolWinchData_checkserialnumber(serial)) return true;
    if (call.console.hasShownErrors()) return false;
    throw Failure(ErrorNumber::badFile,
                  "The serial number \"" + serial + "\" is taken by another tool or winch of yours.");
}

void updateMakerList(ToolWinchData& equipment, bool isTool) {
    if (isTool)
        equipment.ToolWinchData_updatebrennatoollist();
    else
        equipment.ToolWinchData_updatebrennawinchlist();
}

template <bool isTool>
int add(const Call& call) {
    ToolWinchData& equipment = call.program.equipment;
    const std::string& serial = call.operands[1];
    if (trimmed(serial).empty()) throw UsageError("the serial number is empty");
    if (!isFree(call, serial)) return exitFailed;
    const auto models =
        isTool ? equipment.ToolWinchData_loadbrennatoollist() : equipment.ToolWinchData_loadbrennawinchlist();
    const int index = makerIndex(models, call.operands[0], isTool ? "tool" : "winch");
    const bool added = isTool ? equipment.ToolWinchData_addusertool(index, serial)
                              : equipment.ToolWinchData_adduserwinch(index, serial);
    if (added) updateMakerList(equipment, isTool);
    return added ? exitDone : exitFailed;
}

template <bool isTool>
int remove(const Call& call) {
    ToolWinchData& equipment = call.program.equipment;
    const std::string& position = call.operands[0];
    const auto number = parseInteger(position);
    if (!number) throw UsageError("\"" + position + "\" is not a number of the list");
    const auto rows =
        (isTool ? equipment.ToolWinchData_loadusertoollist() : equipment.ToolWinchData_loaduserwinchlist())
            .rows;
    if (*number < 1 || *number > static_cast<long long>(rows.size())) {
        throw Failure(ErrorNumber::subscriptOutOfRange,
                      "There is no number " + position + " in the list; see: tarvik equipment list");
    }
    const int index = static_cast<int>(*number);
    const bool removed = isTool ? equipment.ToolWinchData_removeusertool(index)
                                : equipment.ToolWinchData_removeuserwinch(index);
    if (removed) updateMakerList(equipment, isTool);
    return removed ? exitDone : exitFailed;
}

struct Act {
    std::string_view name;
    std::size_t operands;
    std::string_view expected;
    int (*run)(const Call& call);
};

constexpr std::array acts{
    Act{"list", 0, "nothing behind it", list},
    Act{"add-tool", 2, "a code and a serial number", add<true>},
    Act{"add-winch", 2, "a code and a serial number", add<false>},
    Act{"remove-tool", 1, "a number of the list", remove<true>},
    Act{"remove-winch", 1, "a number of the list", remove<false>},
};

int runEquipment(const Arguments& arguments) {
    const std::span words = arguments.rest();
    const std::string_view name = words.empty() ? "list" : std::string_view(words.front());
    const auto* const act = std::ranges::find(acts, name, &Act::name);
    if (act == acts.end()) {
        throw UsageError("\"" + std::string(name) +
                         "\" is none of list, add-tool, add-winch, remove-tool, remove-winch");
    }
    const std::span operands = words.empty() ? words : words.subspan(1);
    if (operands.size() != act->operands)
        throw UsageError(std::string(name) + " expects " + std::string(act->expected));

    Terminal terminal;
    Program program(programOptions(arguments), terminal.shell());
    RedLines damage(terminal.lines());
    program.log.addViewer(damage);
    const int code = act->run({program, terminal.console(), operands});
    return terminal.console().hasShownErrors() ? exitFailed : code;
}

} // namespace

Verb equipmentVerb() {
    return {.name = "equipment",
            .usage = "equipment list|add-tool CODE SERIAL|add-winch CODE SERIAL|remove-tool N|remove-winch N",
            .purpose = "list the maker's tools and winches and your own; add to yours or remove from them",
            .options = {},
            .run = runEquipment};
}

} // namespace tarvik
