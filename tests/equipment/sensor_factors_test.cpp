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
    struct Case {
        const char* item;
        SensorFactor expected;
    };
    const Case cases[] = {
        {"a1", {1, 1}},   {"E9", {1, 1}},   {"f21", {2, 21}},   {"J0.5", {2, 0.5F}}, {"F", {2, 0}},
        {"k1", {4, 0}},   {"o1", {4, 0}},   {"p1", {3, 1}},     {"R11", {3, 1}},     {"S0", {3, 1}},
        {"t1", {4, 0}},   {"z", {4, 0}},    {"7", {4, 0}},      {"", {4, 0}},        {" f21", {4, 0}},
        {"pr", {1, 1}},   {"pr8 ", {1, 1}}, {"pr12", {1, 1}},   {"PR", {3, 1}},      {"h21x", {2, 21}},
        {"g-2", {2, -2}}, {"@", {4, 0}},    {"i1e2", {2, 100}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(factorsOf("K201", c.item, 1)[1], c.expected) << '"' << c.item << '"';
    }
}

TEST(SensorFactors, ItemsGoToChannelsInOrderAndMissingOnesArePlainLevels) {
    const SensorFactors factors = factorsOf("K201", "a1,,f21", 4);
    EXPECT_EQ(factors[1], (SensorFactor{1, 1}));
    EXPECT_EQ(factors[2], (SensorFactor{4, 0}));
    EXPECT_EQ(factors[3], (SensorFactor{2, 21}));
    EXPECT_EQ(factors[4], (SensorFactor{4, 0}));
    EXPECT_EQ(factors[5], (SensorFactor{0, 0}));
}

TEST(SensorFactors, APlainLevelKeepsTheFactorItHad) {
    const SensorFactors before = factorsOf("K201", "f21,g5", 2);
    const SensorFactors after = factorsOf("K201", "t1", 1, before);
    EXPECT_EQ(after[1], (SensorFactor{4, 21}));
    EXPECT_EQ(after[2].kind, 0) << "a channel that the mode does not have";
}

TEST(SensorFactors, Pr8AloneMakesEveryChannelAPlainLevel) {
    const SensorFactors factors = factorsOf("K417", "pr8", 8);
    for (std::size_t channel = 1; channel <= 8; ++channel) {
        EXPECT_EQ(factors[channel], (SensorFactor{5, 1})) << channel;
    }
    EXPECT_EQ(factors[9].kind, 0);
    EXPECT_EQ(factorsOf("K417", "pr8,a1", 2)[1], (SensorFactor{1, 1})) << "only when it is the whole text";
    EXPECT_EQ(factorsOf("K417", "PR8", 1)[1], (SensorFactor{3, 1})) << "only in small letters";
}

TEST(SensorFactors, K240HasItsOwnTextWhateverTheRecordHolds) {
    const SensorFactors factors = factorsOf("K240", "pr8", 6);
    EXPECT_EQ(factors[4], (SensorFactor{2, 21}));
    EXPECT_EQ(factors[5], (SensorFactor{1, 1}));
    EXPECT_EQ(factors[6], (SensorFactor{2, 21}));
    EXPECT_EQ(factorsOf("K2401", "pr8", 6)[5], (SensorFactor{5, 1})) << "the whole code counts";
}

TEST(SensorFactors, K245CountsOnChannels5And6WhateverItsItems) {
    for (const char* text : {"a1,b1,f21,t1,f21,p1", "pr8"}) {
        const SensorFactors factors = factorsOf("K245", text, 6);
        EXPECT_EQ(factors[5], (SensorFactor{1, 1})) << text;
        EXPECT_EQ(factors[6], (SensorFactor{1, 1})) << text;
    }
    EXPECT_EQ(factorsOf("K245", "a1,b1,f21,t1,f21,p1", 6)[4], (SensorFactor{4, 0}));
}

TEST(SensorFactors, TwentyChannelsAndNotOneMore) {
    const SensorFactors factors = factorsOf("K201", "", 21);
    EXPECT_EQ(factors[20].kind, 4);
    EXPECT_EQ(factorsOf("K201", "a1", -3)[1].kind, 0);
    SensorFactors none{};
    EXPECT_THROW(applySensorFactors("K201", "f1e300", 1, none), Failure);
}

} // namespace
} // namespace tarvik
