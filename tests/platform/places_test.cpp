// Places, serial devices, and what the system says of itself.
#include "platform/places.h"

#include "base/failure.h"
#include "platform/disk_files.h"
#include "platform/memory_files.h"
#include "platform/serial_devices.h"
#include "platform/system_clock.h"
#include "platform/system_info.h"
#include "temporary_folder.h"

#include <ctime>
#include <gmock/gmock.h>
#include <unistd.h>

using namespace tarvik;
using ::testing::ElementsAre;

namespace {

Environment environmentOf(std::map<std::string, std::string> variables) {
    return [variables](const std::string& name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        if (found == variables.end()) return std::nullopt;
        return found->second;
    };
}

} // namespace

TEST(Places, FollowTheVariablesOfTheUser) {
    const Places plain = placesFor({}, environmentOf({{"HOME", "/home/op"}}), "/usr/share/tarvik");
    EXPECT_EQ(plain.settingsFile, "/home/op/.config/tarvik/settings.ini");
    EXPECT_EQ(plain.programFolder, "/home/op/.local/share/tarvik");
    EXPECT_EQ(plain.projectsFolder("C"), "/home/op/Brenna Projects");
    EXPECT_EQ(plain.runHistoryFolder(), "/home/op/Tarvik_RunHistory");
    EXPECT_EQ(plain.installedData, "/usr/share/tarvik");

    const Places moved = placesFor(
        {}, environmentOf({{"HOME", "/home/op"}, {"XDG_CONFIG_HOME", "/etc/op"}, {"XDG_DATA_HOME", "rel"}}),
        {});
    EXPECT_EQ(moved.settingsFile, "/etc/op/tarvik/settings.ini");
    EXPECT_EQ(moved.programFolder, "/home/op/.local/share/tarvik") << "a relative variable does not count";
    EXPECT_THROW(std::ignore = placesFor({}, environmentOf({}), {}), Failure);
}

TEST(Places, WithAHomeEverythingLiesBelowIt) {
    const Environment environment = environmentOf({{"HOME", "/home/op"}, {"XDG_DATA_HOME", "/data"}});
    const Places places = placesFor("/x/y/../z/", environment, "/usr/share/tarvik");
    EXPECT_EQ(places.settingsFile, "/x/z/settings.ini");
    EXPECT_EQ(places.programFolder, "/x/z/program");
    EXPECT_EQ(places.runHistoryFolder(), "/x/z/C/Tarvik_RunHistory");
    EXPECT_EQ(places.drive("D"), "/x/z/C");
    EXPECT_EQ(placesFor("here", environment, {}).homeDrive, std::filesystem::current_path() / "here" / "C");
}

TEST(Places, DrivesComeFromTheSettings) {
    Places places = placesFor({}, environmentOf({{"HOME", "/home/op"}}), {});
    takeDrives(places, {{'D', "/mnt/field/"}, {'E', "~/logs"}, {'F', "logs"}, {'G', ""}, {'C', "/srv"}});
    EXPECT_EQ(places.drive("D"), "/mnt/field");
    EXPECT_EQ(places.drive("d:"), "/mnt/field");
    EXPECT_EQ(places.drive("E"), "/home/op/logs");
    EXPECT_EQ(places.drive("F"), "/home/op/logs");
    for (const char* other : {"G", "Q", "", " ", "C", "c"}) EXPECT_EQ(places.drive(other), "/srv") << other;
    EXPECT_EQ(places.runHistoryFolder(), "/srv/Tarvik_RunHistory");
}

TEST(Places, WithAHomeNoDriveLeadsOutOfIt) {
    Places places = placesFor("/x", environmentOf({}), {});
    std::vector<std::string> problems;
    takeDrives(places, {{'D', "D"}, {'E', "/x/E"}, {'F', "/mnt"}, {'G', "../x2"}, {'H', "."}},
               [&](const std::string& problem) { problems.push_back(problem); });
    EXPECT_EQ(places.drive("D"), "/x/D");
    EXPECT_EQ(places.drive("E"), "/x/E");
    EXPECT_EQ(places.drive("F"), "/x/C");
    EXPECT_EQ(places.drive("G"), "/x/C");
    EXPECT_EQ(places.drive("H"), "/x");
    EXPECT_EQ(problems.size(), 2U);
}

TEST(Places, AFirstStartFillsTheProgramFolderAndALaterOneKeepsIt) {
    MemoryFiles files;
    const Places places = placesFor("/x", environmentOf({}), "/usr/share/tarvik");
    fillProgramFolder(places, files);
    EXPECT_THROW(requireMakersEquipment(places, files), Failure) << "no equipment anywhere";
    files.put("/usr/share/tarvik/BrennaTools-Winches.dat", "maker's");
    files.put("/usr/share/tarvik/Brenna-Calibrations.dat", "factory's");
    fillProgramFolder(places, files);
    EXPECT_NO_THROW(requireMakersEquipment(places, files));
    EXPECT_EQ(files.text("/x/program/BrennaTools-Winches.dat"), "maker's");
    EXPECT_EQ(files.text("/x/program/Brenna-Calibrations.dat"), "factory's");
    files.put("/usr/share/tarvik/BrennaTools-Winches.dat", "newer");
    fillProgramFolder(places, files);
    EXPECT_EQ(files.text("/x/program/BrennaTools-Winches.dat"), "maker's");
}

TEST(Places, InstalledDataLieBesideTheProgramOrWhereItWasBuilt) {
    MemoryFiles files;
    EXPECT_EQ(installedDataFolder(files, "/opt/t/bin/tarvik", "/build/data"), "/build/data");
    files.createFolder("/opt/t/share/tarvik");
    EXPECT_EQ(installedDataFolder(files, "/opt/t/bin/tarvik", "/build/data"), "/opt/t/share/tarvik");
    EXPECT_EQ(runningExecutable().filename(), "platform_tests");
}

TEST(SerialDevices, ComeInTheOrderOfPortsAndOnlyWithHardware) {
    const TemporaryFolder folder;
    DiskFiles files;
    const auto plug = [&](const std::string& name, const std::string& chip) {
        files.createFolder(folder / "sys" / name / "device");
        files.createFolder(folder / "dev");
        files.append(folder / "dev" / name, {});
        if (!chip.empty()) files.append(folder / "sys" / name / "type", asBytes(chip + "\n"));
    };
    for (const char* name : {"ttyUSB10", "ttyUSB9", "ttyACM0"}) plug(name, "");
    plug("ttyS1", "4");
    plug("ttyS0", "0");
    files.createFolder(folder / "sys" / "tty0");
    files.createFolder(folder / "sys" / "ttyUSB3" / "device"); // no node in the device folder
    EXPECT_THAT(serialDevices(folder / "sys", folder / "dev"),
                ElementsAre(folder / "dev" / "ttyS1", folder / "dev" / "ttyUSB9", folder / "dev" / "ttyUSB10",
                            folder / "dev" / "ttyACM0"));
    EXPECT_TRUE(serialDevices(folder / "none", folder / "dev").empty());
}

TEST(SystemInfo, IsWhatTheSystemSays) {
    const SystemInfo info = querySystem();
    EXPECT_EQ(info.family, OsFamily::linux);
    EXPECT_TRUE(info.release.starts_with(std::to_string(info.major) + "." + std::to_string(info.minor)))
        << info.release;
    EXPECT_EQ(info.release.find_first_not_of("0123456789."), std::string::npos) << info.release;
    EXPECT_GT(info.major, 1);
    EXPECT_FALSE(info.buildText.empty());
    EXPECT_EQ(info.memoryBytes, static_cast<std::uint64_t>(::sysconf(_SC_PHYS_PAGES)) *
                                    static_cast<std::uint64_t>(::getpagesize()));
}

TEST(SystemClock, ShowsLocalTimeAndNeverRunsBackwards) {
    ::setenv("TZ", "XYZ-2", 1); // two hours ahead of Greenwich
    ::tzset();
    const std::chrono::system_clock::time_point moment{std::chrono::milliseconds(1'142'289'059'999)};
    const CivilTime expected{
        .year = 2006, .month = 3, .day = 14, .hour = 0, .minute = 30, .second = 59, .millisecond = 999};
    EXPECT_EQ(localTime(moment), expected);
    ::unsetenv("TZ");
    ::tzset();
    const SystemClock clock;
    const auto first = clock.tickMs();
    EXPECT_LE(first, clock.tickMs());
    EXPECT_LE(clock.tickMs(), clock.tickMicros() / 1000);
}
