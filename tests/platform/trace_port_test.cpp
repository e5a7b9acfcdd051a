#include "platform/trace_port.h"

#include "platform/memory_files.h"
#include "platform/virtual_clock.h"

#include <deque>
#include <gmock/gmock.h>

using namespace tarvik;
using ::testing::ElementsAre;
using ::testing::StartsWith;

namespace {

/// A line whose bytes are put there by the test.
class PreparedPort final : public SerialPort {
  public:
    explicit PreparedPort(VirtualClock& clock) : clock_(clock) {}

    std::deque<std::uint8_t> waiting;
    bool gone = false;
    std::int32_t openResult = 1;
    std::int32_t sendResult = 1;

    std::int32_t ComOpen(std::string_view, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                         std::int32_t, std::int32_t, std::int32_t) override {
        return openResult;
    }
    std::int32_t ComClose(std::int32_t) override { return 1; }
    std::int32_t ComStatus(std::int32_t) override {
        return gone ? portGone : static_cast<std::int32_t>(waiting.size());
    }
    std::int32_t Com_Flush(std::int32_t, std::int32_t) override {
        waiting.clear();
        return 1;
    }
    std::int32_t ComPuts(std::int32_t, std::string_view) override { return sendResult; }
    std::int32_t ComGetc(std::int32_t) override {
        if (waiting.empty()) return portFailed;
        const std::uint8_t byte = waiting.front();
        waiting.pop_front();
        return byte;
    }
    std::int32_t ComSleepMS(std::int32_t, std::int32_t milliseconds) override {
        clock_.advanceMs(milliseconds);
        return 1;
    }
    std::int32_t ComSetFlow(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t ComSetYield(std::int32_t, std::int32_t) override { return 1; }
    std::int32_t ComGetCTSStatus(std::int32_t) override { return 1; }
    [[nodiscard]] std::string openProblem() const override { return "COM2 has no device."; }

  private:
    VirtualClock& clock_;
};

class TracePortTest : public ::testing::Test {
  protected:
    void put(std::string_view bytes) {
        line_.waiting.insert(line_.waiting.end(), bytes.begin(), bytes.end());
    }
    void takeAll() {
        while (trace_.ComGetc(1) >= 0) {
        }
    }
    std::int32_t open(std::int32_t port = 1) {
        return trace_.ComOpen("COM", port, 9600, 8, 1, 1, 8192, 8192);
    }

    VirtualClock clock_;
    MemoryFiles files_;
    PreparedPort line_{clock_};
    std::vector<std::string> problems_;
    const Path file_ = "/tmp/line.txt";
    TracePort trace_{line_, clock_, files_, file_,
                     [this](const std::string& problem) { problems_.push_back(problem); }};
};

} // namespace

TEST_F(TracePortTest, ReadsAsItIsDocumented) {
    clock_.advanceMicros(1234);
    EXPECT_EQ(open(), 1);
    put("noise");
    trace_.Com_Flush(1, 1);
    EXPECT_EQ(trace_.ComPuts(1, "Q\n"), 1);
    trace_.ComSleepMS(1, 300);
    put(std::string("0123456789ABCDEF\0", 17));
    takeAll();
    clock_.advanceMicros(20'000);
    put("\xFF"); // 20 ms: still the same burst
    takeAll();
    clock_.advanceMicros(20'001);
    put("~");
    takeAll();
    trace_.ComClose(1);
    EXPECT_EQ(files_.text(file_),
              "# Tarvik transcript, Monday 13-Mar-2006 09:00:00\n"
              "# milliseconds  operation  bytes in hexadecimal and as text\n"
              "       1.234 open  COM1 9600 baud\n"
              "       1.234 drop  6E 6F 69 73 65                                  |noise|\n"
              "       1.234 send  51 0A                                           |Q.|\n"
              "     301.234 recv  30 31 32 33 34 35 36 37 38 39 41 42 43 44 45 46 |0123456789ABCDEF|\n"
              "     301.234 +     00 FF                                           |..|\n"
              "     341.235 recv  7E                                              |~|\n"
              "     341.235 close COM1\n");
}

TEST_F(TracePortTest, FailuresAreTold) {
    line_.openResult = portMissing;
    EXPECT_EQ(open(2), portMissing);
    line_.openResult = 1;
    open();
    line_.sendResult = portFailed;
    EXPECT_EQ(trace_.ComPuts(1, "V"), portFailed);
    line_.gone = true;
    EXPECT_EQ(trace_.ComStatus(1), portGone);
    EXPECT_EQ(trace_.ComStatus(1), portGone);
    trace_.ComClose(1);
    std::vector<std::string> events;
    std::istringstream text(files_.text(file_));
    for (std::string line; std::getline(text, line);) {
        if (!line.starts_with('#')) events.push_back(line.substr(13));
    }
    EXPECT_THAT(events, ElementsAre("fail  COM2 9600 baud: COM2 has no device.", "open  COM1 9600 baud",
                                    StartsWith("send  56"), "fail  send -1", "gone  -5", "close COM1"));
}

TEST_F(TracePortTest, NoByteIsLostHoweverLongTheBurst) {
    open();
    const std::string bytes(5000, 'x');
    put(bytes);
    takeAll();
    trace_.ComClose(1);
    const std::string text = files_.text(file_);
    std::size_t count = 0;
    for (auto at = text.find("78 "); at != text.npos; at = text.find("78 ", at + 3)) ++count;
    EXPECT_EQ(count, bytes.size());
}

TEST_F(TracePortTest, LinesReachTheFileWhileThePortIsOpen) {
    open();
    trace_.ComSleepMS(1, 600);
    trace_.ComPuts(1, "V");
    EXPECT_NE(files_.text(file_).find("|V|"), std::string::npos)
        << "half a second of it is all a crash takes";
}

TEST_F(TracePortTest, ATranscriptThatCannotBeWrittenIsReportedOnceAndStopsNothing) {
    files_.failWritesAfter = 0;
    open();
    trace_.ComClose(1);
    EXPECT_EQ(problems_.size(), 1U);
    open();
    put("ab");
    EXPECT_EQ(trace_.ComStatus(1), 2);
    EXPECT_EQ(trace_.ComGetc(1), 'a');
    EXPECT_EQ(trace_.Com_Flush(1, 1), 1);
    EXPECT_EQ(trace_.ComPuts(1, "X"), 1);
    trace_.ComClose(1);
    EXPECT_EQ(problems_.size(), 1U);
}
