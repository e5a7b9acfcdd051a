// What the tap hears, as lines.
#include "lcu/lcu_bench.h"
#include "lcu/wire_transcript.h"

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::test;

TEST(WireTranscript, CommandsAnswersAndDiscardedBytesEachOnTheirLine) {
    VirtualClock clock;
    ScriptedPort scripted(clock);
    scripted.answer("Q", {{{"Q\x91", 100}}});
    TapPort tap(scripted, clock);
    WireTranscript transcript(clock);
    tap.ComPuts(1, "unheard\n");
    tap.listen(&transcript);
    scripted.put("?!");
    tap.Com_Flush(1, 1);
    tap.ComPuts(1, "Q\n");
    tap.ComSleepMS(1, 300);
    while (tap.ComStatus(1) > 0) tap.ComGetc(1);
    transcript.settle(clock.tickMicros() + WireTranscript::quietMicros);
    const auto line = [](std::string time, std::string hex, std::string text) {
        hex.resize(WireTranscript::bytesPerLine * 3 + 1, ' ');
        return time + hex + text;
    };
    EXPECT_EQ((Lines{transcript.lines().begin(), transcript.lines().end()}),
              (Lines{line("09:00:00.000  x  ", "3F 21", "?!"), line("09:00:00.000  >  ", "51 0A", "Q."),
                     line("09:00:00.300  <  ", "51 91", "Q.")}));
    EXPECT_EQ(transcript.line(1), transcript.lines()[1]);
    tap.listen(nullptr);
    tap.ComPuts(1, "X\n");
    EXPECT_EQ(transcript.completed(), 3U);
}
