#include "app/doubles.h"
#include "app/elk_settings.h"
#include "app/machine_map.h"
#include "app/stored_settings.h"
#include "app/system_information.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tarvik;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// Keeps values and writes down the order in which keys are read and written.
struct WritingStore final : SettingsStore {
    [[nodiscard]] std::optional<std::string> get(std::string_view section,
                                                 std::string_view key) const override {
        reads.push_back(std::string(section) + "/" + std::string(key));
        return values.get(section, key);
    }
    void set(std::string_view section, std::string_view key, std::string_view value) override {
        writes.push_back(std::string(section) + "/" + std::string(key) + "=" + std::string(value));
        values.set(section, key, value);
    }
    [[nodiscard]] std::string where() const override { return "store"; }
    void commit() override {
        if (broken) throw Failure(ErrorNumber::diskFull, "no room");
        ++commits;
    }

    MemorySettingsStore values;
    mutable std::vector<std::string> reads;
    std::vector<std::string> writes;
    bool broken = false;
    int commits = 0;
};

struct SettingsInStore : testing::Test {
    Settings load() { return stored.Utilities_loadregsettings(); }

    WritingStore store;
    KeptErrors kept;
    ErrorTrap errors{kept};
    StoredSettings stored{errors, store};
};

const std::vector<std::string> freshMachine{"Project/Project_drive=",
                                            "Project/Current_project=",
                                            "Hole/Company= ",
                                            "Hole/Area= ",
                                            "Hole/Operator= ",
                                            "Hole/DrillerDepth= ",
                                            "Hole/Contractor= ",
                                            "Hole/Prospect= ",
                                            "Hole/HoleID= ",
                                            "Hole/HoleCoordinates= ",
                                            "Hole/HoleDiameter= ",
                                            "Hole/PermanentDatum= ",
                                            "Hole/CollarElevation= ",
                                            "Hole/CasingType= ",
                                            "Hole/CasingDepth= ",
                                            "Hole/CasingDiameter= ",
                                            "Hole/CasingThickness= ",
                                            "Hole/FluidType= ",
                                            "Hole/FluidLevel= ",
                                            "WinchTool/CurrentTool=",
                                            "WinchTool/CurrentWinch=",
                                            "WinchTool/DepthUnits=Metres",
                                            "WinchTool/SamplingMethod=TIME",
                                            "WinchTool/SamplingInterval=0.5",
                                            "WinchTool/WinchScaleFactor=1.0",
                                            "WinchTool/LogDirection=DOWN",
                                            "WinchTool/AllowLogging=1",
                                            "WinchTool/Magnetic Marker=0",
                                            "Setup/Search=True",
                                            "Setup/LCUComms=12"};

} // namespace

TEST_F(SettingsInStore, AFreshMachineSavesTheDefaultsInTheOrderOfTheTable) {
    const Settings settings = load();
    EXPECT_TRUE(stored.Utilities_saveregsettings(settings));
    EXPECT_EQ(store.writes, freshMachine);
    EXPECT_EQ(store.commits, 1);
    EXPECT_TRUE(kept.errors.empty());
    EXPECT_EQ(settings.logInches, 1);
    EXPECT_EQ(settings.samplingInterval.value(), 0.5);
}

TEST_F(SettingsInStore, KeysAreReadInTheSameOrderLogInchesBehindTheUnits) {
    std::ignore = load();
    std::erase_if(store.reads, [](const std::string& key) {
        return key.ends_with("Serial") || key == "Deviation/Declination"; // beside the classic keys
    });
    std::vector<std::string> expected;
    for (const std::string& line : freshMachine) {
        expected.push_back(line.substr(0, line.find('=')));
        if (expected.back() == "WinchTool/DepthUnits") expected.emplace_back("WinchTool/LogInches");
    }
    EXPECT_EQ(store.reads, expected);
}

TEST_F(SettingsInStore, EveryValueComesBack) {
    Settings settings;
    settings.projectDrive = "D";
    settings.hole.fluidLevel = "  12 m ";
    settings.currentToolSerial = "123";
    settings.setUnits(DepthUnits::feet);
    settings.samplingInterval = NumberText(12.5);
    settings.winchScaleFactor = NumberText("1.250E-1");
    settings.allowLogging = 0;
    settings.magneticMarker = -2147483647;
    settings.declination = NumberText("-3.5");
    settings.searchAutomatically = false;
    settings.lcuComms = 34;
    settings.logInches = 5;
    stored.Utilities_saveregsettings(settings);
    const Settings back = load();
    EXPECT_EQ(back.hole.fluidLevel, "  12 m ");
    EXPECT_EQ(back.currentToolSerial, "123");
    EXPECT_EQ(back.depthUnits, "Feet  ");
    EXPECT_EQ(back.units(), DepthUnits::feet);
    EXPECT_EQ(back.samplingInterval.text(), "12.5");
    EXPECT_EQ(back.winchScaleFactor.text(), "1.250E-1");
    EXPECT_EQ(back.winchScaleFactor.value(), 0.125);
    EXPECT_EQ(back.allowLogging, 0);
    EXPECT_EQ(back.magneticMarker, -2147483647);
    EXPECT_EQ(back.declination.value(), -3.5);
    EXPECT_FALSE(back.searchAutomatically);
    EXPECT_EQ(back.lcuComms, 34);
    EXPECT_EQ(back.logInches, 1); // changed inside the program, it does not survive
}

TEST_F(SettingsInStore, WhatTheProgramNeverWritesStays) {
    store.set("WinchTool", "LogInches", "0");
    store.set("WinchTool", "CurrentToolSerial", "9");
    Settings settings = load();
    EXPECT_EQ(settings.logInches, 0);
    settings.currentToolSerial.clear();
    stored.Utilities_saveregsettings(settings);
    EXPECT_EQ(store.values.get("WinchTool", "LogInches"), "0");
    EXPECT_EQ(store.values.get("WinchTool", "CurrentToolSerial"), ""); // not the old tool's serial number
}

TEST_F(SettingsInStore, AValueThatDoesNotConvertCostsOnlyItself) {
    store.set("WinchTool", "SamplingInterval", "half");
    store.set("WinchTool", "AllowLogging", "40000");
    store.set("Setup", "Search", "perhaps");
    store.set("Setup", "LCUComms", "");
    store.set("WinchTool", "Magnetic Marker", "7");
    const Settings settings = load();
    EXPECT_EQ(settings.samplingInterval.text(), "0.5");
    EXPECT_EQ(settings.allowLogging, 1);
    EXPECT_TRUE(settings.searchAutomatically);
    EXPECT_EQ(settings.lcuComms, 12);
    EXPECT_EQ(settings.magneticMarker, 7);
    ASSERT_EQ(kept.errors.size(), 4U);
    EXPECT_EQ(kept.errors[0].number, static_cast<int>(ErrorNumber::typeMismatch));
    EXPECT_EQ(kept.errors[0].routine, "Utilities_loadregsettings");
    EXPECT_THAT(kept.errors[0].description, HasSubstr("[WinchTool] SamplingInterval=\"half\""));
    EXPECT_EQ(kept.errors[1].number, static_cast<int>(ErrorNumber::overflow));
}

TEST_F(SettingsInStore, AWordIsOneOfItsTwo) {
    store.set("WinchTool", "SamplingMethod", "BOGUS");
    store.set("WinchTool", "LogDirection", " up");
    const Settings settings = load();
    EXPECT_EQ(settings.samplingMethod, "TIME");
    EXPECT_EQ(settings.logDirection, "UP");
    ASSERT_EQ(kept.errors.size(), 1U);
    EXPECT_THAT(kept.errors[0].description, HasSubstr("[WinchTool] SamplingMethod=\"BOGUS\""));
}

TEST_F(SettingsInStore, TextsOfBooleansAndPorts) {
    for (const auto& [text, value] : std::vector<std::pair<const char*, bool>>{
             {"True", true}, {"true", true}, {"-1", true}, {"1", true}, {"False", false}, {"0", false}}) {
        store.set("Setup", "Search", text);
        EXPECT_EQ(load().searchAutomatically, value) << text;
    }
    for (const auto& [text, value] : std::vector<std::pair<const char*, int>>{
             {"1", 1}, {"4", 4}, {"34", 34}, {"0", 12}, {"5", 12}, {"-1", 12}, {"3.5", 4}, {"2.5", 2}}) {
        store.set("Setup", "LCUComms", text);
        EXPECT_EQ(load().lcuComms, value) << text;
    }
    store.set("WinchTool", "DepthUnits", "Furlongs");
    EXPECT_EQ(load().depthUnits, "Furlon");
    EXPECT_EQ(load().units(), DepthUnits::feet);
}

TEST_F(SettingsInStore, AStoreThatCannotBeWrittenIsReported) {
    store.broken = true;
    EXPECT_FALSE(stored.Utilities_saveregsettings({}));
    EXPECT_EQ(kept.errors.size(), 1U);
}

TEST_F(SettingsInStore, ElkConstantsKeepTheirTexts) {
    StoredElkSettings elk(errors, store);
    store.set("ELK tool", "Tortuosity", "x");
    store.set("ELK tool", "Kelvin Temp", "291.50");
    ElkSettings settings = elk.load();
    ASSERT_EQ(kept.errors.size(), 1U);
    EXPECT_THAT(kept.errors[0].description, HasSubstr("Tortuosity"));
    store.writes.clear();
    EXPECT_TRUE(elk.save(settings));
    ASSERT_EQ(store.writes.size(), 24U);
    EXPECT_EQ(store.writes.front(), "ELK tool/Low frequency=844");
    EXPECT_EQ(store.writes[8], "ELK tool/Pore fluid modulus=2.20E+09");
    EXPECT_EQ(store.writes[12], "ELK tool/Kelvin Temp=291.50");
    EXPECT_EQ(store.writes[15], "ELK tool/Tortuosity=3");
    EXPECT_EQ(store.writes[19], "ELK tool/Input average porosity=1.0000E-14");
    EXPECT_EQ(store.writes[20], "ELK tool/Input average permeability=0.3");
    EXPECT_EQ(store.writes.back(), "ELK tool/Pts avg conductivity sum=13");
}

TEST_F(SettingsInStore, PortsAndDrives) {
    store.set("Ports", "COM4", "/dev/ttyUSB3");
    store.set("Drives", "D", "/data");
    store.set("Drives", "E", "");
    MachineMap map = loadMachineMap(store);
    EXPECT_THAT(map.ports, ElementsAre("", "", "", "/dev/ttyUSB3"));
    EXPECT_EQ(map.drives, (std::map<char, std::string>{{'D', "/data"}}));
    map.ports[0] = "/dev/ttyS0";
    map.drives.clear();
    store.writes.clear();
    saveMachineMap(store, map);
    EXPECT_THAT(store.writes, ElementsAre("Ports/COM1=/dev/ttyS0", "Drives/D="));
}

TEST(SettingsOnScreen, LabelsAndLists) {
    EXPECT_EQ(intervalUnitLabel("TIME", DepthUnits::feet), "seconds");
    EXPECT_EQ(intervalUnitLabel("DEPTH", DepthUnits::metres), "cms");
    EXPECT_EQ(intervalUnitLabel("DEPTH", DepthUnits::feet), "cms (ft)");
    const std::vector<std::string> drives{"a:", "c: [System]", "d:"};
    EXPECT_EQ(driveListIndex(drives, "C"), 1U);
    EXPECT_EQ(driveListIndex(drives, "x"), std::nullopt);
    EXPECT_EQ(driveListIndex(drives, ""), std::nullopt);
}

TEST(SystemTextsTest, OneTextPerSystem) {
    const auto text = [](OsFamily family, int major, int minor) {
        return operatingSystemText({.family = family,
                                    .major = major,
                                    .minor = minor,
                                    .build = 2195,
                                    .release = "6.1.0",
                                    .buildText = std::string("Service Pack 4\0junk", 19)});
    };
    EXPECT_EQ(text(OsFamily::windows95, 4, 0), "Windows 95  Version 4");
    EXPECT_EQ(text(OsFamily::windows95, 4, 10), "Windows 98  Version 4.10");
    EXPECT_EQ(text(OsFamily::windowsNt, 4, 0), "Windows NT version 4.0  Build 2195  Service Pack 4");
    EXPECT_EQ(text(OsFamily::windowsNt, 10, 0), "Windows 2000 version 10.0  Build 2195  Service Pack 4");
    EXPECT_EQ(operatingSystemText({.release = "6.1.0", .buildText = "#1 SMP"}),
              "Linux version 6.1.0  Build #1 SMP");
}

TEST(SystemTextsTest, MemoryFitsSixteenBitsOrIsEmpty) {
    constexpr std::uint64_t half = 524'288;
    const auto withMemory = [](std::uint64_t bytes) {
        SystemInfo system;
        system.memoryBytes = bytes;
        return system;
    };
    EXPECT_EQ(memoryText(511 * half), "Memory : 256 mbytes"); // 255.5: halves go to even
    EXPECT_EQ(systemTexts(withMemory(65'534 * half)).memory, "Memory : 32767 mbytes");
    const SystemTexts big = systemTexts(withMemory(65'536 * half));
    EXPECT_EQ(big.memory, "");
    EXPECT_THAT(big.memoryProblem, HasSubstr("Overflow"));
}
