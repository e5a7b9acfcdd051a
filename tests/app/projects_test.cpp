#include "app/doubles.h"
#include "app/projects.h"
#include "platform/memory_files.h"
#include "platform/virtual_clock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tarvik;
using testing::ElementsAre;

namespace {

TEST(Projects, TheHoleOfARunFileStandsBeforeToolAndNumber) {
    const std::vector<std::pair<const char*, const char*>> names{
        {"BH7_K215_01.kvx", "BH7"}, {"north_side_2_K417_123.kvx", "north_side_2"},
        {"BH7_notes.kvx", ""},      {"BH7_K215_1a.kvx", ""},
        {"BH7_K215_01.las", ""},    {"_K215_01.kvx", ""},
        {"K215_01.kvx", ""},        {"BH7__01.kvx", ""},
        {"BH7_K215_.kvx", ""},      {".kvx", ""},
    };
    for (const auto& [name, hole] : names) EXPECT_EQ(holeOfRunFile(name), hole) << name;
}

struct ProjectsOnDisk : testing::Test {
    MemoryFiles files;
    KeptErrors kept;
    ErrorTrap errors{kept};
    VirtualClock clock;
    StatusLog log{errors, clock, files, "/history"};
    Projects projects{errors, files, log};
    const Path folder = "/c/Brenna Projects";
};

TEST_F(ProjectsOnDisk, AreFoldersWithRunsAndHoles) {
    EXPECT_TRUE(projects.list(folder).empty());
    EXPECT_TRUE(projects.create(folder, " North "));
    EXPECT_TRUE(projects.create(folder, "Empty"));
    for (const char* run : {"BH1_K215_01.kvx", "BH1_K215_02.kvx", "A_2_K417_01.kvx", "BH1_notes.kvx"})
        files.put(folder / "North" / run, "x");

    const auto rows = projects.list(folder);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].name, "Empty");
    EXPECT_FALSE(rows[0].lastRun.has_value());
    EXPECT_EQ(rows[1].runs, 3);
    EXPECT_EQ(rows[1].lastRun->year, 2006);

    const auto holes = projects.holes(folder / "North");
    ASSERT_EQ(holes.size(), 2U);
    EXPECT_EQ(holes[0].name, "A_2");
    EXPECT_EQ(holes[1].runs, 2);
    EXPECT_EQ(holes[1].latestRun, folder / "North" / "BH1_K215_02.kvx");
}

TEST_F(ProjectsOnDisk, ANewOneNeedsANameOfItsOwn) {
    projects.create(folder, "North");
    const auto rows = projects.list(folder);
    for (const char* wrong : {"", "  ", "a/b", "..", "north", "a\tb", "end.", ".hidden"})
        EXPECT_NE(Projects::newNameProblem(rows, wrong), "") << wrong;
    for (const char* right : {"South", "North 2", "Zürich"})
        EXPECT_EQ(Projects::newNameProblem(rows, right), "") << right;
}

TEST(Projects, TheMostRecentComesFirstOnce) {
    EXPECT_THAT(mostRecentFirst({"a", "b", "c"}, "c", 3), ElementsAre("c", "a", "b"));
    EXPECT_THAT(mostRecentFirst({"a", "b"}, "d", 2), ElementsAre("d", "a"));
}

TEST(Projects, DriveCIsTheFirstOfTheDrives) {
    Places places;
    places.homeDrive = "/home/crew";
    places.drives['E'] = "/data";
    EXPECT_THAT(driveList(places), ElementsAre("C:  /home/crew", "E:  /data"));
}

} // namespace
