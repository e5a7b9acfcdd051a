#include "cli/console_operator.h"
#include "cli/json.h"
#include "platform/stop_signals.h"

#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace tarvik {
namespace {

TEST(ConsoleLines, AwayFromATerminalProgressComesEveryFiveSeconds) {
    std::ostringstream out;
    ConsoleLines lines(out, 0);
    for (const std::int64_t tick : {100, 5099, 5100, 10'099, 10'100})
        lines.progress("at " + std::to_string(tick), tick);
    EXPECT_EQ(out.str(), "at 100\nat 5100\nat 10100\n");
}

TEST(ConsoleLines, OnATerminalProgressIsWrittenOverAndMakesRoomForOtherLines) {
    std::ostringstream out;
    ConsoleLines lines(out, 8);
    lines.progress("1234567890", 0); // the last column stays free
    lines.progress("12", 1);
    lines.line("news");
    lines.line("more");
    lines.progress("34", 2);
    lines.endProgress();
    lines.endProgress();
    EXPECT_EQ(out.str(), "\r1234567\r12     \r  \rnews\nmore\n\r34\r  \r");
}

TEST(ConsoleOperator, SaysANoticeOnceOnOneLineAndRemembersErrors) {
    std::ostringstream out;
    ConsoleLines lines(out, 0);
    ConsoleOperator console(lines, Answer::yes);
    console.notice("T", "a\r\nb", Icon::none);
    console.notice("T", "a\r\nb", Icon::none);
    EXPECT_EQ(console.ask("Warning", "Is this OK ? ", Icon::critical), Answer::yes);
    EXPECT_FALSE(console.hasShownErrors());
    console.showError({"", "routine", 0, 61, "full"}, "", {"/e.txt", {}});
    console.showError({"", "routine", 0, 61, "full"}, "", {"/e.txt", "no room"});
    EXPECT_TRUE(console.hasShownErrors());
    EXPECT_EQ(out.str(), "T: a b\nWarning: Is this OK ? -> yes\nError 61: full (routine, see /e.txt)\n"
                         "Error 61: full (routine, not recorded in /e.txt)\n");
}

TEST(RedLines, ShowsTheRedTextsOfTheStatusLogOnce) {
    std::ostringstream out;
    ConsoleLines lines(out, 0);
    RedLines red(lines);
    for (const std::string_view line : {R"(09:00:00  \b\0black)", R"(09:00:00  \b\2red)",
                                        R"(09:00:01  \b\2red)", R"(09:00:01  \b\1text \b\2)", ""})
        red.showStatusLine(line);
    EXPECT_EQ(out.str(), "red\n");
}

TEST(Json, TextsAndNumbersAreAlwaysJson) {
    struct Case {
        std::string_view text, json;
    };
    for (const Case& each : {Case{"a\"b\\c\n\x01", R"("a\"b\\c\u000a\u0001")"},
                             Case{"Bohrung \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80",
                                  "\"Bohrung \xC3\xA4 \xE2\x82\xAC \xF0\x9F\x98\x80\""},
                             Case{"\xE4!", R"("\ufffd!")"},                   // code page 1252
                             Case{"\xC3", R"("\ufffd")"},                     // cut short
                             Case{"\xC0\xAF", R"("\ufffd\ufffd")"},           // too long a form
                             Case{"\xED\xA0\x80", R"("\ufffd\ufffd\ufffd")"}, // a surrogate
                             Case{"\xF4\x90\x80\x80", R"("\ufffd\ufffd\ufffd\ufffd")"}}) {
        EXPECT_EQ(jsonString(each.text), each.json);
    }
    EXPECT_EQ(jsonNumber(0.1F), "0.1");
    EXPECT_EQ(jsonNumber(std::numeric_limits<double>::quiet_NaN()), "null");
    EXPECT_EQ(jsonNumber(-std::numeric_limits<float>::infinity()), "null");
    JsonObject object;
    object.add("a", "b");
    object.add("n", 2);
    EXPECT_EQ(object.text(), "{\n  \"a\": \"b\",\n  \"n\": 2\n}\n");
}

TEST(StopSignals, AreAskedForAndDoNotEndTheProgramAfterwards) {
    {
        const StopSignals signals;
        EXPECT_FALSE(signals.arrived());
        std::raise(SIGTERM);
        EXPECT_TRUE(signals.arrived());
    }
    EXPECT_FALSE(StopSignals().arrived());
}

TEST(StopSignals, ThoseThatWereIgnoredStayIgnored) {
    const auto before = std::signal(SIGHUP, SIG_IGN);
    {
        const StopSignals signals;
        std::raise(SIGHUP);
        EXPECT_FALSE(signals.arrived());
    }
    std::signal(SIGHUP, before);
}

} // namespace
} // namespace tarvik
