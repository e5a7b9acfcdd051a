// A program folder in memory with a small maker's database, and everything a ToolWinchData needs around it.
#pragma once

#include "app/doubles.h"
#include "equipment/equipment_file.h"
#include "equipment/tool_winch_data.h"
#include "platform/memory_files.h"
#include "platform/virtual_clock.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tarvik {

inline ToolRecord makeTool(const std::string& code, const std::string& name, const std::string& serial = "") {
    ToolRecord record = blankTool();
    record.set(tool::code, code);
    record.set(tool::name, name);
    record.set(tool::serialNumber, serial);
    record.set(tool::channelCount(1), 2);
    record.set(tool::channelCount(2), 1);
    record.set(tool::channelName(1, 1), "Gamma");
    record.set(tool::channelName(1, 2), "Caliper");
    record.set(tool::channelName(2, 1), "Gamma");
    record.set(tool::sensorFactors(1), "a1,f21");
    record.set(tool::sensorFactors(2), "p1");
    record.set(Int16Field{3754}, 4711); // a number that only travels along
    return record;
}

inline WinchRecord makeWinch(const std::string& code, const std::string& name,
                             const std::string& serial = "") {
    WinchRecord record = blankWinch();
    record.set(winch::code, code);
    record.set(winch::name, name);
    record.set(winch::serialNumber, serial);
    return record;
}

inline EquipmentFile makerEquipment() {
    EquipmentFile maker;
    maker.header.set(equipment::version, " 201");
    maker.header.set(equipment::date, "31-Aug-2002 ");
    maker.header.set(equipment::criticalVersion, "200.5");
    maker.header.set(TextField{34, 20}, "travels along");
    maker.tools = {makeTool("K201", "Natural gamma"), makeTool("K230", "Density"),
                   makeTool("K417", "Deviation")};
    maker.winches = {makeWinch("W110", "Portable winch"), makeWinch("W240", "Truck winch")};
    correctCounts(maker);
    return maker;
}

struct AnsweringOperator final : WritingOperator {
    using WritingOperator::WritingOperator;
    Answer ask(std::string_view title, std::string_view text, Icon) override {
        write("ask ", title, "|", text);
        return answer;
    }
    Answer answer = Answer::no;
};

class LineKeeper final : public StatusViewer {
  public:
    void showStatusLine(std::string_view line) override { lines.emplace_back(line); }

    std::vector<std::string> lines;
};

class EquipmentBench : public testing::Test {
  protected:
    EquipmentBench() {
        log.addViewer(lines);
        put(maker, makerEquipment());
    }

    void put(const Path& file, const EquipmentFile& content) {
        files.put(file, asText(equipmentBytes(content)));
    }
    [[nodiscard]] EquipmentFile stored(const Path& file) const {
        return readEquipment(files.read(file), file.string());
    }
    /// A user with two gamma tools and a winch.
    void putUser() {
        EquipmentFile owned = makerEquipment();
        owned.tools = {makeTool("K201", "Natural gamma", "G-1"), makeTool("K201", "Natural gamma", "G-2")};
        owned.winches = {makeWinch("W240", "Truck winch", "W-1")};
        correctCounts(owned);
        put(user, owned);
    }

    const Path folder{"/program"};
    const Path maker = folder / "BrennaTools-Winches.dat";
    const Path user = folder / "UserTools-Winches.dat";
    MemoryFiles files;
    MemoryFiles history;
    VirtualClock clock;
    KeptErrors errors;
    ErrorTrap trap{errors};
    StatusLog log{trap, clock, history, "/history"};
    LineKeeper lines;
    Transcript told;
    AnsweringOperator box{told};
    NoCalibrations calibrations;
    ToolWinchData data{trap, files, log, box, calibrations, folder};
};

} // namespace tarvik
