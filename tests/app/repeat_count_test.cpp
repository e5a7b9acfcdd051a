#include "app/repeat_count.h"

#include <gtest/gtest.h>

TEST(RepeatCount, CountsFromTheFirstTime) {
    tarvik::RepeatCount count;
    count.add({.hour = 14, .minute = 3});
    EXPECT_EQ(count.text(), "at 14:03");
    count.add({.hour = 14, .minute = 7});
    count.add({.hour = 15, .minute = 0});
    EXPECT_EQ(count.text(), "3 times since 14:03");
    count.clear();
    count.add({.hour = 16, .minute = 30});
    EXPECT_EQ(count.text(), "at 16:30");
}
