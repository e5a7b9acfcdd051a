#include "app/error_trap.h"

#include "app/allocation_count.h"
#include "app/doubles.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

using namespace tarvik;

TEST(ErrorTrap, AnErrorAfterACallIsFiledUnderTheCaller) {
    KeptErrors kept;
    ErrorTrap trap(kept);
    const int result = trap.runIn("frmSetup", "A", -1, [&](Level& level) -> int {
        level = 2;
        trap.run("B", [](Level& inner) { inner = 7; });
        level += 1;
        throw Failure(ErrorNumber::diskFull, "no room");
    });
    EXPECT_EQ(result, -1);
    ASSERT_EQ(kept.errors.size(), 1U);
    EXPECT_EQ(kept.errors[0].form, "frmSetup");
    EXPECT_EQ(kept.errors[0].routine, "A");
    EXPECT_EQ(kept.errors[0].level, 3);
    EXPECT_EQ(kept.errors[0].number, 61);
    EXPECT_EQ(trap.place().form, "Introscreen");
    EXPECT_EQ(trap.place().routine, "");
}

TEST(ErrorTrap, AnInnerErrorIsReportedOnceAndTheCallerGoesOn) {
    KeptErrors kept;
    ErrorTrap trap(kept);
    bool wentOn = false;
    trap.run("A", [&](Level&) {
        trap.run("B", [](Level& level) {
            level = 4;
            throw std::logic_error("wrong");
        });
        wentOn = trap.place().routine == "A";
    });
    EXPECT_TRUE(wentOn);
    ASSERT_EQ(kept.errors.size(), 1U);
    EXPECT_EQ(kept.errors[0].routine, "B");
    EXPECT_EQ(kept.errors[0].level, 4);
}

TEST(ErrorTrap, ADisabledTrapLetsThroughAndStillPutsThePlaceBack) {
    KeptErrors kept;
    ErrorTrap trap(kept, false);
    EXPECT_THROW(trap.run("A", [](Level&) { throw Failure(ErrorNumber::overflow, "x"); }), Failure);
    EXPECT_TRUE(kept.errors.empty());
    EXPECT_EQ(trap.place().routine, "");
}

TEST(ErrorTrap, AReporterThatFailsIsTheEndOfTheMatter) {
    struct Failing final : ErrorReporter {
        void report(const ErrorReport&) override { throw std::bad_alloc(); }
    } failing;
    ErrorTrap trap(failing);
    EXPECT_EQ(trap.run("A", 5, [](Level&) -> int { throw std::bad_alloc(); }), 5);
}

TEST(ErrorTrap, EnteringAllocatesNothing) {
    KeptErrors kept;
    ErrorTrap trap(kept);
    const std::size_t before = allocationCount();
    int sum = 0;
    for (int scan = 0; scan < 1000; ++scan) {
        trap.run("LCUFunctions-LCU_GetValues, a name too long for any small buffer", [&](Level& level) {
            level = 1;
            sum += trap.run("inner", 0, [&](Level&) { return scan; });
        });
    }
    EXPECT_EQ(allocationCount(), before);
    EXPECT_EQ(sum, 499500);
}
