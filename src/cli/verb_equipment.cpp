// tarvik equipment: the maker's tools and winches, and the user's own.
#include "cli/terminal.h"

#include "base/text.h"

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

int list(Program& program) {
    ToolWinchData& equipment = program.equipment;
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

void checkSerial(ToolWinchData& equipment, std::string_view serial) {
    if (trimmed(serial).empty()) throw UsageError("the serial number is empty");
    if (!equipment.ToolWinchData_checkserialnumber(serial)) {
        throw Failure(ErrorNumber::badFile, "The serial number \"" + std::string(serial) +
                                                "\" is taken by another tool or winch of yours.");
    }
}

int add(Program& program, bool isTool, const std::string& code, const std::string& serial) {
    ToolWinchData& equipment = program.equipment;
    checkSerial(equipment, serial);
    const auto models =
        isTool ? equipment.ToolWinchData_loadbrennatoollist() : equipment.ToolWinchData_loadbrennawinchlist();
    const int index = makerIndex(models, code, isTool ? "tool" : "winch");
    const bool added = isTool ? equipment.ToolWinchData_addusertool(index, serial)
                              : equipment.ToolWinchData_adduserwinch(index, serial);
    if (!added) return exitFailed;
    if (isTool)
        equipment.ToolWinchData_updatebrennatoollist();
    else
        equipment.ToolWinchData_updatebrennawinchlist();
    return exitDone;
}

int remove(Program& program, bool isTool, const std::string& position) {
    ToolWinchData& equipment = program.equipment;
    const auto number = parseInteger(position);
    const auto rows =
        (isTool ? equipment.ToolWinchData_loadusertoollist() : equipment.ToolWinchData_loaduserwinchlist())
            .rows;
    if (!number || *number < 1 || *number > static_cast<long long>(rows.size())) {
        throw Failure(ErrorNumber::subscriptOutOfRange,
                      "There is no number " + position + " in the list; see: tarvik equipment list");
    }
    const int index = static_cast<int>(*number);
    const bool removed = isTool ? equipment.ToolWinchData_removeusertool(index)
                                : equipment.ToolWinchData_removeuserwinch(index);
    if (!removed) return exitFailed;
    if (isTool)
        equipment.ToolWinchData_updatebrennatoollist();
    else
        equipment.ToolWinchData_updatebrennawinchlist();
    return exitDone;
}

int runEquipment(const Arguments& arguments) {
    const auto& words = arguments.rest();
    const std::string act = words.empty() ? "list" : words.front();
    const auto expect = [&](std::size_t count, std::string_view what) {
        if (words.size() != count) throw UsageError(act + " expects " + std::string(what));
    };
    Terminal terminal;
    Program program(programOptions(arguments), terminal.shell());
    const RedLines damage(program.log);
    if (act == "list") return list(program);
    if (act == "add-tool" || act == "add-winch") {
        expect(3, "a code and a serial number");
        return add(program, act == "add-tool", words[1], words[2]);
    }
    if (act == "remove-tool" || act == "remove-winch") {
        expect(2, "a number of the list");
        return remove(program, act == "remove-tool", words[1]);
    }
    throw UsageError("\"" + act + "\" is none of list, add-tool, add-winch, remove-tool, remove-winch");
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
