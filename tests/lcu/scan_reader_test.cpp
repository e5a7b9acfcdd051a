// Framing and reading: where a scan ends, and what happens when it does not.
#include "lcu/scan_framer.h"
#include "lcu/scan_reader.h"
#include "lcu/scripted_port.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::test;
using Kind = ScanRead::Kind;

TEST(ScanFramer, Verdicts) {
    using enum FrameVerdict;
    struct Case {
        const char* legend;
        std::uint8_t length;
        std::vector<int> looks; ///< bytes waiting at each look
        FrameVerdict last;
        int received;
    };
    const Case cases[] = {
        {"length 0 cannot be honoured", 0, {}, overflow1, 0},
        {"empty scan", 1, {}, scan, 0},
        {"shortest scan", 2, {1}, scan, 1},
        {"longest scan", 255, {254}, scan, 254},
        {"one byte short", 5, {3}, needMore, 3},
        {"nothing there yet", 5, {0}, needMore, 0},
        {"in pieces", 5, {1, 0, 2, 1}, scan, 4},
        {"backlog at the first look: only this scan is taken", 5, {9}, scan, 4},
        {"remainder exactly", 5, {1, 3}, scan, 4},
        {"remainder and one more", 5, {1, 4}, overflow2, 5},
        {"too many after an empty look", 5, {0, 5}, overflow2, 5},
        {"more than there is room for", 5, {3, 2000}, overflow2, ScanFramer::capacity},
    };
    ScanFramer framer; // the same one throughout: nothing of a scan may stay behind
    for (const Case& c : cases) {
        SCOPED_TRACE(c.legend);
        FrameVerdict verdict = framer.begin(c.length);
        std::uint8_t next = 0;
        for (const int waiting : c.looks) {
            ASSERT_EQ(verdict, needMore);
            verdict = framer.look(waiting, [&] { return ++next; });
        }
        EXPECT_EQ(verdict, c.last);
        ASSERT_EQ(static_cast<int>(framer.bytes().size()), c.received);
        EXPECT_EQ(framer.expected(), c.length - 1);
        for (int i = 0; i < c.received; ++i) EXPECT_EQ(framer.bytes()[std::size_t(i)], (i + 1) % 256);
    }
}

namespace {

class ScanReading : public testing::Test {
  protected:
    ScanReading() { link.port = 1; }

    VirtualClock clock;
    ScriptedPort serial{clock};
    LinkState link;
    ScanReader reader{serial, clock, link};
};

} // namespace

TEST_F(ScanReading, BacklogIsReadOneByOne) {
    serial.put("\x04"
               "abc\x01\x03"
               "de");
    EXPECT_EQ(reader.read().received, 3);
    const ScanRead empty = reader.read();
    EXPECT_EQ(empty.kind, Kind::scan);
    EXPECT_TRUE(empty.bytes.empty());
    const ScanRead last = reader.read();
    EXPECT_EQ(last.kind, Kind::scan);
    EXPECT_EQ(std::string(last.bytes.begin(), last.bytes.end()), "de");
    EXPECT_EQ(reader.read().kind, Kind::none);
    EXPECT_LE(clock.tickMs(), 10) << "a stop button is waiting";
    EXPECT_GT(clock.tickMs(), 0) << "a loop must not spin";
}

TEST_F(ScanReading, RemainderHas200Milliseconds) {
    serial.put("\x04"
               "ab");
    serial.put("c", 200);
    EXPECT_EQ(reader.read().kind, Kind::scan);
    serial.put("\x04"
               "ab");
    serial.put("c", 201);
    const ScanRead late = reader.read();
    EXPECT_EQ(late.kind, Kind::timeout);
    EXPECT_EQ(late.waitedSeconds, 0.2);
    EXPECT_EQ(late.expected, 3);
    EXPECT_EQ(late.received, 2);
    EXPECT_FALSE(link.busy);
}

TEST_F(ScanReading, OverflowsDiscardWhatWaits) {
    serial.put(std::string("\x00xyz", 4));
    ScanRead read = reader.read();
    EXPECT_EQ(read.kind, Kind::overflow1);
    EXPECT_EQ(read.expected, -1);
    EXPECT_TRUE(read.bytes.empty());

    serial.put("\x04"
               "ab");
    serial.put(std::string("c\x04") + std::string(1500, 'z'), 3);
    read = reader.read();
    EXPECT_EQ(read.kind, Kind::overflow2);
    EXPECT_EQ(read.expected, 3);
    EXPECT_EQ(read.received, 1504);
    EXPECT_EQ(read.bytes.size(), 1000U);
    EXPECT_EQ(read.bytes[3], 4) << "the report shows what came beyond the scan";

    serial.put("\x02q");
    EXPECT_EQ(reader.read().kind, Kind::scan) << "the next byte is a length byte again";
}

TEST_F(ScanReading, ALostByteCostsTwoScansAndNoMore) {
    serial.put("\x05"
               "abc"); // the fourth is lost, the next scan comes in two pieces
    serial.put("\x05"
               "d",
               50);
    serial.put("efg", 51);
    serial.put("\x05"
               "hijk",
               100);
    EXPECT_EQ(reader.read().kind, Kind::overflow2);
    ScanRead read = reader.read();
    while (read.kind == Kind::none) read = reader.read();
    EXPECT_EQ(read.kind, Kind::scan);
    EXPECT_EQ(std::string(read.bytes.begin(), read.bytes.end()), "hijk");
}

TEST_F(ScanReading, TheScreensAreServedBetweenScansNotWithinOne) {
    int looks = 0;
    serial.atYield = [&] { ++looks; };
    serial.put("\x04"
               "ab");
    serial.put("c", 30);
    EXPECT_EQ(reader.read().kind, Kind::scan);
    EXPECT_EQ(looks, 1) << "before the length byte";
    serial.put("\x04"
               "ab");
    EXPECT_EQ(reader.read().kind, Kind::timeout);
    EXPECT_GT(looks, 100) << "a remainder that does not come leaves them alive";
    EXPECT_TRUE(serial.yields);
}

TEST_F(ScanReading, APortThatGoesEndsEveryWait) {
    serial.put("\x04"
               "ab");
    serial.whileSleeping = [&] { serial.gone = clock.tickMs() >= 50; };
    EXPECT_EQ(reader.read().kind, Kind::portGone);
    EXPECT_EQ(reader.read().kind, Kind::portGone);
    EXPECT_EQ(clock.tickMs(), 50);
}

TEST_F(ScanReading, KeepsClicksOutOfTheStream) {
    bool seen = false;
    serial.whileSleeping = [&] { seen = link.busy; };
    EXPECT_EQ(reader.read().kind, Kind::none);
    EXPECT_TRUE(seen);
    EXPECT_FALSE(link.busy);
}
