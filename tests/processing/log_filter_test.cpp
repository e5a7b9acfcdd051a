// The recursive smoother against a transcript of its rule, written the other way round; and the
// interpolation.
#include "processing/log_filter.h"

#include "base/failure.h"
#include "base/review_log.h"
#include "processing/log_interpolation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using namespace tarvik;
using ::testing::ElementsAre;

namespace {

using Floats = std::vector<float>;

/// Counted from 1, in an array with room behind the end, each operation stored in a single.
Floats transcript(const Floats& raw, int n) {
    const int c = static_cast<int>(raw.size());
    std::vector<float> w(raw.size() + static_cast<std::size_t>(n) + 2, 0.0F);
    const auto at = [&w](int i) -> float& { return w[static_cast<std::size_t>(i)]; };
    for (int i = 1; i <= c; ++i) at(i) = raw[static_cast<std::size_t>(i - 1)];
    const int h = n / 2;
    const int s = h + 1;
    const int e = c - h;
    if (s > e) return raw;
    volatile float sum = 0;
    for (int i = 1; i <= n; ++i) sum = sum + at(i);
    for (int i = s; i <= e; ++i) {
        volatile const float mean = sum / static_cast<float>(n);
        at(i) = mean;
        sum = sum - at(i - h);
        sum = sum + at(i + h + 1);
    }
    return {w.begin() + 1, w.begin() + 1 + c};
}

Floats wave(std::size_t count) {
    Floats values;
    for (std::size_t i = 0; i < count; ++i) {
        const auto x = static_cast<double>(i);
        values.push_back(static_cast<float>(1000 * std::sin(x * 0.7) + 0.1 * x * x));
    }
    return values;
}

Floats filtered(Floats values, std::string_view setting) {
    Logprintexport_filterlogdata(values, setting);
    return values;
}

} // namespace

TEST(LogFilter, AgreesWithItsTranscriptToTheLastBit) {
    for (const std::size_t count : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 40U, 1000U}) {
        for (int n = 1; n <= 9; ++n) {
            EXPECT_EQ(filtered(wave(count), std::to_string(n)), transcript(wave(count), n))
                << count << ' ' << n;
        }
    }
}

TEST(LogFilter, TakesSmoothedValuesOutOfItsWindow) {
    // A plain mean would go on with 4 and 5.
    EXPECT_EQ(filtered({3, 6, 3, 0, 9, 6}, "3"), (Floats{3, 4, 3, 14.0F / 3, 17.0F / 3, 6}));
}

TEST(LogFilter, NoneAndShortRunsStayRaw) {
    EXPECT_EQ(filtered({1, 5, 2}, " None "), (Floats{1, 5, 2}));
    EXPECT_EQ(filtered({1, 5, 2}, "4"), (Floats{1, 5, 2}));
    EXPECT_EQ(filtered({1, 5, 2}, "2147483647"), (Floats{1, 5, 2}));
    EXPECT_EQ(filtered({1, 5}, "1"), (Floats{1, 5}));
    for (const char* bad : {"0", "-1", "3.5", "", "three", "2147483648"}) {
        EXPECT_THROW(filtered({1, 5, 2}, bad), Failure) << bad;
    }
}

TEST(LogFilter, GapsPartTheStretches) {
    const float gap = noValue();
    const Floats values = filtered({gap, 3, 6, 3, gap, gap, 30, 60, 30, gap}, "3");
    EXPECT_EQ(Floats(values.begin() + 1, values.begin() + 4), (Floats{3, 4, 3}));
    EXPECT_EQ(Floats(values.begin() + 6, values.begin() + 9), (Floats{30, 40, 30}));
    for (const std::size_t i : {0U, 4U, 5U, 9U}) EXPECT_TRUE(isNoValue(values[i])) << i;
}

TEST(LogInterpolation, DepthsOutOfOrderAndTwiceTheSame) {
    const std::vector<double> loaded{1, 3, 2, 3, 5}; // a jerk of the cable
    const Floats values{10, 30, 20, 31, 50};
    const LogInterpolation interpolation(loaded, {.start = 1, .step = 0.5, .count = 9});
    EXPECT_THAT(interpolation.Logprintexport_interplogdata(values),
                ElementsAre(10, 15, 20, 25, 31, 35.75F, 40.5F, 45.25F, 50));
}

TEST(LogInterpolation, AGapReachesToItsNeighboursAndNoFurther) {
    const float gap = noValue();
    const std::vector<double> loaded{1, 2, 3, 4};
    const LogInterpolation interpolation(loaded, {.start = 0.5, .step = 0.5, .count = 9});
    const Floats values = interpolation.Logprintexport_interplogdata(Floats{1, gap, 3, 4});
    const std::vector<bool> there{false, true, false, false, false, true, true, true, false};
    for (std::size_t i = 0; i < there.size(); ++i) EXPECT_EQ(!isNoValue(values[i]), there[i]) << i;
    EXPECT_EQ(values[1], 1);
    EXPECT_EQ(values[6], 3.5F);
}
