// Saving a scan allocates nothing.
#include "lcu/counting_new.h"
#include "platform/disk_files.h"
#include "platform/temporary_folder.h"
#include "run_files.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::testing;

TEST(RunFileWriter, SavingAScanAllocatesNothing) {
    const TemporaryFolder folder;
    DiskFiles files;
    Errors errors;
    ErrorTrap trap(errors);
    RunFileWriter writer(trap, files);
    ASSERT_TRUE(writer.LCU_SetupFileHeader(folder / "run.kvx", runHeader()));
    const float values[]{1.5F, -2.25F};
    const long before = test::allocationsSoFar();
    const std::string saved = writer.LCU_SaveScan({.depth = 1999.125, .channels = values});
    EXPECT_EQ(test::allocationsSoFar(), before);
    EXPECT_EQ(saved, "1,999.13");
    EXPECT_GT(before, 0); // the count works
}
