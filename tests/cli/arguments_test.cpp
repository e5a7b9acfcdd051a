#include "cli/arguments.h"

#include <array>
#include <functional>
#include <gtest/gtest.h>

namespace tarvik {
namespace {

constexpr std::array options{Option{"--depth", "M", "a depth"}, Option{"--name", "TEXT", "a name"},
                             Option{"--quiet", "", "say nothing"}, Option{"-o", "FILE", "the output"}};

Arguments read(std::vector<std::string_view> words) {
    return {words, options};
}

std::string complaint(const std::function<void()>& act) {
    try {
        act();
    } catch (const UsageError& error) {
        return error.what();
    }
    return "";
}

TEST(Arguments, ValuesStandBehindTheirOptionInEitherForm) {
    const Arguments given =
        read({"first", "--depth", "-5.5", "--quiet", "--name=a=b", "-o", "-", "-3", "--", "--x"});
    EXPECT_EQ(given.number("--depth"), -5.5);
    EXPECT_TRUE(given.has("--quiet"));
    EXPECT_EQ(given.text("--name"), "a=b");
    EXPECT_EQ(given.text("-o"), "-");
    EXPECT_EQ(given.rest(), (std::vector<std::string>{"first", "-3", "--x"}));
    EXPECT_FALSE(given.whole("--missing").has_value());
}

TEST(Arguments, TheLastOfARepeatedOptionCountsAndAllAreKept) {
    const Arguments given = read({"--name", "a", "--name", "b"});
    EXPECT_EQ(given.text("--name"), "b");
    EXPECT_EQ(given.all("--name"), (std::vector<std::string>{"a", "b"}));
}

TEST(Arguments, SaysWhichWordIsWrongAndWhatWasExpected) {
    struct Case {
        std::vector<std::string_view> words;
        std::string_view said;
    };
    for (const Case& wrong : std::vector<Case>{
             {{"--dept", "1"}, "unknown option --dept"},
             {{"--quiet=1"}, "--quiet takes no value"},
             {{"--depth"}, "--depth needs a value: a depth"},
         }) {
        EXPECT_EQ(complaint([&] { read(wrong.words); }), wrong.said);
    }
    const auto asked = [](std::string_view value, auto&& get) {
        const Arguments given = read({"--depth", value});
        return complaint([&] { std::ignore = get(given); });
    };
    const auto number = [](const Arguments& given) { return given.number("--depth", {0.5, 20}); };
    const auto whole = [](const Arguments& given) { return given.whole("--depth", {.least = 1}); };
    for (const std::string_view good : {"0.5", "20", " 7 ", "2e1"}) EXPECT_EQ(asked(good, number), "");
    for (const std::string_view bad : {"0.49", "20.01", "", "NaN", "inf", "1e999", "5m", "0x5"}) {
        EXPECT_EQ(asked(bad, number),
                  "--depth expects a number from 0.5 to 20, not \"" + std::string(bad) + "\"");
    }
    EXPECT_EQ(asked("1", whole), "");
    EXPECT_EQ(asked("0", whole), "--depth expects a whole number of 1 or more, not \"0\"");
    EXPECT_EQ(asked("1.5", whole), "--depth expects a whole number of 1 or more, not \"1.5\"");
    EXPECT_EQ(asked("", [](const Arguments& given) { return given.name("--depth"); }),
              "--depth expects a name, not an empty text");
}

TEST(Arguments, AChoiceIsTakenInEitherCaseAndReturnedAsWritten) {
    constexpr std::array<std::string_view, 2> units{"Metres", "Feet"};
    EXPECT_EQ(read({"--name", "fEET"}).oneOf("--name", units), "Feet");
    EXPECT_EQ(complaint([&] {
                  std::ignore = read({"--name", "m"}).oneOf("--name", units);
              }),
              "--name expects Metres or Feet, not \"m\"");
}

TEST(Arguments, HelpStandsInOneColumn) {
    EXPECT_EQ(helpText("x", "does x", options), "usage: tarvik x\n\ndoes x\n\n"
                                                "  --depth M    a depth\n"
                                                "  --name TEXT  a name\n"
                                                "  --quiet      say nothing\n"
                                                "  -o FILE      the output\n");
}

} // namespace
} // namespace tarvik
