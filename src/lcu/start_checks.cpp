#include "lcu/start_checks.h"

#include <algorithm>
#include <string>

namespace tarvik {

namespace {

constexpr std::string_view sonicTool = "K521";

bool sonicMayStart(OperatorSide& operatorSide, std::string_view lcuModel) {
    if (lcuModel == "LCU2Plus") {
        operatorSide.message("Sonic tool compatability",
                             "The SONIC tool will only operate with\r\na LCU4 control box.",
                             Icon::exclamation);
    } else {
        operatorSide.message("Sonic tool",
                             "The sonic run of tool K521 is not built yet. Choose another tool.",
                             Icon::exclamation);
    }
    return false;
}

} // namespace

bool mayStartLogging(OperatorSide& operatorSide, const ToolRecord& tool, std::string_view lcuModel,
                     bool recording) {
    if (tool.get(tool::code) == sonicTool) return sonicMayStart(operatorSide, lcuModel);
    if (recording) return true;
    return operatorSide.ask(
               "Warning",
               "You currently have recording mode set to OFF.  No data will be written to file.  "
               "Is this OK ? ",
               Icon::critical) == Answer::yes;
}

std::string holeNameProblem(std::string_view hole) {
    constexpr std::string_view forbidden = R"(/\:*?"<>|)";
    const auto bad = std::ranges::find_if(hole, [&](char c) {
        return forbidden.find(c) != std::string_view::npos || static_cast<unsigned char>(c) < ' ';
    });
    if (bad == hole.end()) return {};
    return "The hole name \"" + std::string(hole) +
           "\" cannot be part of a file name because of the character \"" + *bad +
           "\". Change the hole name.";
}

} // namespace tarvik
