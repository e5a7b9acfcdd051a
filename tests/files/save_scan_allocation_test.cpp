// Saving a scan allocates nothing: every allocation of this program is counted.
#include "run_files.h"

#include "platform/disk_files.h"
#include "platform/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {
std::size_t allocations = 0;
} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

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
    const std::size_t before = allocations;
    const std::string saved = writer.LCU_SaveScan({.depth = 1999.125, .channels = values});
    EXPECT_EQ(allocations, before);
    EXPECT_EQ(saved, "1,999.13");
    EXPECT_GT(before, 0U); // the count works
}
