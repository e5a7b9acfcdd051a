#include "base/tool_record.h"
#include "base/winch_record.h"

namespace tarvik {

namespace {

template <class Record>
void blank(Record& record, std::initializer_list<TextField> fields) {
    for (const TextField& field : fields) record.set(field, "");
}

} // namespace

ToolRecord blankTool() {
    ToolRecord record;
    blank(record, {{0, 116},    // codes, name, kinds, serial number, mode texts
                   {142, 1440}, // channel names and units
                   {1742, 60},  // mode names
                   {3162, 460}, // sensor factors, parameters and the texts behind them
                   {3624, 130}, // three texts
                   {3756, 90},  // six texts
                   tool::reserved});
    return record;
}

WinchRecord blankWinch() {
    WinchRecord record;
    blank(record, {{0, 68}, {92, 30}, {124, 90}, winch::reserved});
    return record;
}

} // namespace tarvik
