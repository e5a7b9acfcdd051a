#include "lcu/start_checks.h"

#include "base/file_names.h"
#include "base/text.h"
#include "lcu/lcu_models.h"

#include <string>

namespace tarvik {

namespace {

constexpr std::string_view sonicTool = "K521";

struct Refusal {
    std::string title;
    std::string text;
};

Refusal sonicRefusal(const LinkState& link) {
    if (link.model == lcu2Plus->name)
        return {"Sonic tool compatability", "The SONIC tool will only operate with\r\na LCU4 control box."};
    return {"Sonic tool", "The sonic run of tool K521 is not built yet. Choose another tool."};
}

/// Without a text the run may start.
Refusal refusalOf(const ToolRecord& tool, const WinchRecord& winch, const LinkState& link,
                  std::string_view hole) {
    const std::string code = tool.get(tool::code);
    if (code == sonicTool) return sonicRefusal(link);
    if (code.empty()) return {"Tool", "No tool is chosen. Choose one of your tools first."};
    // Its record goes into the file, and its factor into the depth.
    if (trimmed(winch.get(winch::code)).empty())
        return {"Winch", "No winch is chosen. Choose one of your winches first."};
    if (link.demo)
        return {"Demonstration", "A demonstration plays a run on file. To log, go to Acquire first."};
    if (!link.open() || modelNamed(link.model) == nullptr)
        return {"LCU", "No LCU is connected. Search for it first."};
    if (!canStandInFileName(hole)) { // it becomes part of one
        return {"Hole name", "The hole name \"" + std::string(hole) +
                                 "\" cannot be part of a file name. Change it: it must not be empty nor hold "
                                 "any of / \\ : * ? \" < > |"};
    }
    return {};
}

} // namespace

bool mayStartLogging(OperatorSide& operatorSide, const ToolRecord& tool, const WinchRecord& winch,
                     const LinkState& link, std::string_view hole, bool recording) {
    if (const Refusal refusal = refusalOf(tool, winch, link, hole); !refusal.text.empty()) {
        operatorSide.message(refusal.title, refusal.text, Icon::exclamation);
        return false;
    }
    if (recording) return true;
    return operatorSide.ask(
               "Warning",
               "You currently have recording mode set to OFF.  No data will be written to file.  "
               "Is this OK ? ",
               Icon::critical) == Answer::yes;
}

} // namespace tarvik
