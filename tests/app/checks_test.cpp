#include "app/machine_checks.h"
#include "app/sampling_checks.h"
#include "platform/memory_files.h"

#include <gtest/gtest.h>

using namespace tarvik;

namespace {

TEST(SamplingChecks, AnIntervalIsWhatABoxCanStepBy) {
    struct Row {
        Sampling sampling;
        const char* text;
        bool right;
    };
    for (const Row& row : {Row{Sampling::time, "0.5", true}, Row{Sampling::time, "0", false},
                           Row{Sampling::time, "3601", false}, Row{Sampling::depth, "5", true},
                           Row{Sampling::depth, "0.5", false}, Row{Sampling::depth, "five", false}}) {
        EXPECT_EQ(intervalProblem(row.sampling, row.text).empty(), row.right) << row.text;
    }
    EXPECT_EQ(intervalInWords(Sampling::depth, DepthUnits::feet, "5"), "5 cm (0.164 ft)");
    EXPECT_EQ(intervalInWords(Sampling::depth, DepthUnits::metres, "5"), "5 cm");
    EXPECT_EQ(intervalInWords(Sampling::time, DepthUnits::feet, "5"), "");
    EXPECT_EQ(wholeNumberProblem("65535", 0, 65535), "");
    EXPECT_EQ(wholeNumberProblem("1.5", 0, 65535), "A whole number from 0 to 65535.");
}

TEST(MachineChecks, APortIsAFullPathOfItsOwn) {
    MachineMap map;
    map.ports = {"/dev/ttyS0", "", "ttyUSB0", "/dev/ttyS0"};
    EXPECT_EQ(portProblem(map, 1), "");
    EXPECT_EQ(portProblem(map, 2), "The full path of a device, such as /dev/ttyUSB0.");
    EXPECT_EQ(portProblem(map, 3), "COM1 is this device already: a device can be one port only.");
    map.ports[3].clear();
    EXPECT_EQ(portProblem(map, 0), "");
}

TEST(MachineChecks, ADriveIsALetterAndAFolderThatExists) {
    MemoryFiles files;
    files.createFolder("/home/crew/data/.");
    Places places;
    places.root = "/home/crew";
    EXPECT_EQ(driveProblem(places, files, "d", "data"), "");
    EXPECT_EQ(driveProblem(places, files, "", "data"), "A drive letter from A to Z.");
    EXPECT_EQ(driveProblem(places, files, "D", " "), "Choose the folder that stands for this drive.");
    EXPECT_EQ(driveProblem(places, files, "D", "/srv"), "The folder must lie in /home/crew.");
    EXPECT_EQ(driveProblem(places, files, "D", "none"), "/home/crew/none is no folder on this machine.");
}

} // namespace
