#include "equipment/sensor_factors.h"

#include "base/failure.h"

#include <gtest/gtest.h>

namespace tarvik {
namespace {

SensorFactors factorsOf(std::string_view code, std::string_view text, int channels,
                        SensorFactors factors = {}) {
    applySensorFactors(code, text, channels, factors);
    return factors;
}

TEST(SensorFactors, EachItemByItsFirstLetter) {
    const std::pair<const char*, SensorFactor> cases[] = {
        {"a1", {1, 1}},   {"E9", {1, 1}},   {"f21", {2, 21}},   {"J0.5", {2, 0.5F}}, {"F", {2, 0}},
        {"k1", {4, 0}},   {"o1", {4, 0}},   {"p1", {3, 1}},     {"R11", {3, 1}},     {"S0", {3, 1}},
        {"t1", {4, 0}},   {"z", {4, 0}},    {"7", {4, 0}},      {"", {4, 0}},        {" f21", {4, 0}},
        {"pr", {1, 1}},   {"pr8 ", {1, 1}}, {"pr12", {1, 1}},   {"PR", {3, 1}},      {"h21x", {2, 21}},
        {"g-2", {2, -2}}, {"@", {4, 0}},    {"i1e2", {2, 100}},
    };
    for (const auto& [item, expected] : cases) {
        EXPECT_EQ(factorsOf("K201", item, 1)[1], expected) << '"' << item << '"';
    }
}

/// Which text a channel's kind and factor come from.
TEST(SensorFactors, ToolsAndWholeTexts) {
    const struct {
        const char* tool;
        const char* text;
        int channels;
        std::size_t channel;
        SensorFactor expected;
    } cases[] = {
        {"K201", "a1,,f21", 4, 2, {4, 0}}, // items in order, a missing one is a plain level
        {"K201", "a1,,f21", 4, 3, {2, 21}},
        {"K201", "a1,,f21", 4, 4, {4, 0}},
        {"K201", "a1,,f21", 4, 5, {0, 0}},
        {"K201", "", 21, 20, {4, 0}}, // twenty and not one more
        {"K201", "a1", -3, 1, {0, 0}},
        {"K417", "pr8", 8, 1, {5, 1}},
        {"K417", "pr8", 8, 8, {5, 1}},
        {"K417", "pr8", 8, 9, {0, 0}},
        {"K417", "pr8,a1", 2, 1, {1, 1}}, // only when it is the whole text, in small letters
        {"K417", "PR8", 1, 1, {3, 1}},
        {"K240", "pr8", 6, 4, {2, 21}}, // a text of its own whatever the record holds
        {"K240", "pr8", 6, 5, {1, 1}},
        {"K240", "pr8", 6, 6, {2, 21}},
        {"K2401", "pr8", 6, 5, {5, 1}},
        {"K245", "a1,b1,f21,t1,f21,p1", 6, 4, {4, 0}}, // counts on 5 and 6 whatever the items
        {"K245", "a1,b1,f21,t1,f21,p1", 6, 5, {1, 1}},
        {"K245", "pr8", 6, 6, {1, 1}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(factorsOf(c.tool, c.text, c.channels)[c.channel], c.expected)
            << c.tool << ' ' << c.text << ' ' << c.channel;
    }
    SensorFactors none{};
    EXPECT_THROW(applySensorFactors("K201", "f1e300", 1, none), Failure);
}

TEST(SensorFactors, APlainLevelKeepsTheFactorItHad) {
    const SensorFactors before = factorsOf("K201", "f21,g5", 2);
    const SensorFactors after = factorsOf("K201", "t1", 1, before);
    EXPECT_EQ(after[1], (SensorFactor{4, 21}));
    EXPECT_EQ(after[2].kind, 0) << "a channel that the mode does not have";
}

} // namespace
} // namespace tarvik
