#include "simulator/faults.h"

#include "bench.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lcusim::test {

namespace {

/// A gentle box that streams a scan of 16 bytes (LCU2Plus) or 21 (LCU4) every 100 ms with one fault in it.
Bench faulty(std::string_view text, LcuModel model = LcuModel::lcu2Plus) {
    return Bench({.model = model, .gentle = true, .faults = {fault(text)}});
}

std::vector<Bytes> stream(Bench& bench, Micros ms) {
    bench.ask("TT10", 50);
    return scansIn(bench.ask("V", ms));
}

std::vector<ScanFate> fates(const Bench& bench) {
    std::vector<ScanFate> all;
    for (const ScanRecord& scan : bench.record.scans()) all.push_back(scan.fate);
    return all;
}

/// Longest time between two bytes, and what arrived behind it within 20 ms.
std::pair<Micros, std::size_t> longestGap(const Host& host, std::size_t first, std::size_t last) {
    Micros longest = 0;
    std::size_t at = first;
    for (std::size_t i = first + 1; i < last; ++i) {
        if (host.times[i] - host.times[i - 1] <= longest) continue;
        longest = host.times[i] - host.times[i - 1];
        at = i;
    }
    const auto together = std::count(host.times.begin(), host.times.end(), host.times[at]);
    return {longest, static_cast<std::size_t>(together)};
}

constexpr auto sent = ScanFate::sent;
constexpr auto damaged = ScanFate::damaged;
constexpr auto dropped = ScanFate::dropped;

} // namespace

TEST(Faults, ReadsOrders) {
    const Fault full = fault("status-bits@c12x3=6");
    EXPECT_EQ(full.kind, FaultKind::statusBits);
    EXPECT_TRUE(full.byCommand);
    EXPECT_EQ(full.at, 12);
    EXPECT_EQ(full.count, 3);
    EXPECT_EQ(full.value, 6);
    EXPECT_EQ(fault("depth-jump@1").value, 1000);
    EXPECT_EQ(fault("wrong-channels@5=-2").value, -2);
    EXPECT_TRUE(fault("late-reply@2").byCommand) << "answers are counted by commands, with or without the c";
}

TEST(Faults, RefusesOrdersThatMakeNoSense) {
    for (const auto* text :
         {"", "short-scan", "short-scan@", "short-scan@0", "short-scan@-1", "short-scan@x2", "@3",
          "nonsense@3", "short-scan@3x0", "short-scan@3=", "short-scan@3 ", "short-scan@c3"}) {
        EXPECT_FALSE(parseFault(text).fault) << text;
        EXPECT_NE(parseFault(text).problem, "") << text;
    }
    for (const FaultRule& rule : faultRules()) EXPECT_TRUE(parseFault(std::string(rule.name) + "@1").fault);
}

TEST(Faults, ShortScanBreaksOffAndNothingFollowsFor300Ms) {
    Bench bench = faulty("short-scan@3");
    stream(bench, 1'050);
    EXPECT_EQ(fates(bench),
              (std::vector{sent, sent, damaged, dropped, dropped, sent, sent, sent, sent, sent}));
    EXPECT_EQ(bench.host.bytes.size(), 16U * 7 + 8);
    const auto [gap, together] = longestGap(bench.host, 0, bench.host.bytes.size());
    EXPECT_GT(gap, 250 * millisecond);
}

TEST(Faults, ZeroLengthComesInOneBurst) {
    Bench bench = faulty("zero-length@2");
    stream(bench, 250);
    ASSERT_EQ(bench.host.bytes.size(), 32U);
    EXPECT_EQ(bench.host.bytes[16], 0);
    EXPECT_EQ(bench.host.times[16], bench.host.times[31]);
}

TEST(Faults, ExtraBytesArriveWithTheSecondHalf) {
    Bench bench = faulty("extra-bytes@2=7");
    stream(bench, 290);
    ASSERT_EQ(bench.host.bytes.size(), 39U);
    EXPECT_EQ(bench.host.bytes[16], 16) << "the length byte tells nothing of them";
    const auto [gap, together] = longestGap(bench.host, 16, 39);
    EXPECT_GE(gap, 12 * millisecond);
    EXPECT_EQ(together, 8U + 7U);
}

TEST(Faults, SlowScanPausesInTheMiddle) {
    Bench bench = faulty("slow-scan@1=150");
    stream(bench, 300);
    EXPECT_NEAR(static_cast<double>(longestGap(bench.host, 0, 16).first), 150'000, 10'000);
    EXPECT_EQ(bench.host.bytes[0], 16);
}

TEST(Faults, GarbageStandsBeforeAWholeScan) {
    Bench bench = faulty("garbage@2=5");
    stream(bench, 250);
    EXPECT_EQ(bench.host.bytes.size(), 16U + 5 + 16);
    EXPECT_EQ(bench.host.bytes[21], 16);
}

TEST(Faults, ContentOfScans) {
    Bench empty = faulty("empty-scan@2");
    EXPECT_EQ(stream(empty, 350)[1], Bytes{1});

    Bench more = faulty("wrong-channels@2x2=-1");
    const auto scans = stream(more, 450);
    EXPECT_EQ(scans[1].size(), 14U);
    EXPECT_EQ(scans[2].size(), 14U);
    EXPECT_EQ(scans[3].size(), 16U);

    Bench current = faulty("over-current@2");
    const auto amps = stream(current, 350);
    EXPECT_EQ(amps[1].back(), 112);
    EXPECT_NEAR(amps[2].back(), 60, 2);

    Bench bits = faulty("status-bits@2=3", LcuModel::lcu4);
    const auto status = stream(bits, 350);
    EXPECT_EQ(status[1][14], 145 | 8);
    EXPECT_EQ(status[2][14], 145);

    Bench time = faulty("zero-scan-time@2");
    EXPECT_EQ(timeOf(stream(time, 350)[1]), 0);

    Bench jump = faulty("depth-jump@2=-500");
    const auto depths = stream(jump, 350);
    EXPECT_NEAR(depthOf(depths[1]) - depthOf(depths[0]), -499, 1);
    EXPECT_NEAR(depthOf(depths[2]) - depthOf(depths[1]), 1, 1) << "the counter stays off";
}

TEST(Faults, StallStopsDepthScansForItsTime) {
    Bench bench = faulty("stall@3=4000");
    bench.ask("TD+1", 50);
    bench.ask("V", 10'000);
    const auto& scans = bench.record.scans();
    EXPECT_NEAR(static_cast<double>(scans[3].sampledAt - scans[2].sampledAt), 4'100'000, 1'000);
    EXPECT_NEAR(static_cast<double>(scans[4].sampledAt - scans[3].sampledAt), 100'000, 1'000);
}

TEST(Faults, SilenceNeitherSendsNorHears) {
    Bench bench = faulty("silence@3=1000");
    stream(bench, 320);
    EXPECT_EQ(bench.host.bytes.size(), 32U);
    EXPECT_EQ(bench.ask("Q", 600), Bytes{});
    EXPECT_EQ(scansIn(bench.ask("", 950)).size(), 6U) << "it streams on afterwards";
    Bench deaf = faulty("silence@c2=0");
    EXPECT_EQ(deaf.ask("Q", 300).size(), 2U);
    EXPECT_EQ(deaf.ask("Q", 300).size(), 0U);
    EXPECT_EQ(deaf.ask("Q", 3'600'000).size(), 0U);
}

TEST(Faults, PowerCutForgetsTheStream) {
    Bench bench = faulty("power-cut@3=1000");
    stream(bench, 5'000);
    EXPECT_EQ(bench.host.bytes.size(), 32U);
    EXPECT_FALSE(bench.engine.streaming());
    EXPECT_EQ(bench.status(), 129);
    EXPECT_EQ(scansIn(bench.ask("V", 1'200)).size(), 2U) << "sampling as at switch-on";
}

TEST(Faults, HangUpTakesTheLineDownForItsTime) {
    Bench bench = faulty("hang-up@3=1000");
    bench.ask("TT10", 50);
    bench.ask("V", 350);
    EXPECT_FALSE(bench.engine.lineUp());
    bench.wait(940);
    EXPECT_FALSE(bench.engine.lineUp());
    bench.wait(20);
    EXPECT_TRUE(bench.engine.lineUp());
    bench.wait(500);
    const auto all = fates(bench);
    EXPECT_EQ(all[1], sent);
    EXPECT_EQ(std::count(all.begin(), all.end(), ScanFate::lost), 10);
    EXPECT_EQ(all.back(), sent);
}

TEST(Faults, Answers) {
    const auto answer = [](std::string_view text, std::string_view command, Micros ms) {
        Bench bench = faulty(text);
        return bench.ask(command, ms);
    };
    EXPECT_EQ(answer("late-reply@1=500", "Q", 400).size(), 0U);
    EXPECT_EQ(answer("late-reply@1=500", "Q", 600).size(), 2U);
    EXPECT_EQ(answer("no-reply@1", "Q", 600).size(), 0U);
    EXPECT_EQ(answer("short-reply@1", "D", 20).size(), 3U);
    EXPECT_EQ(answer("short-reply@1=9", "D", 20).size(), 0U);
    EXPECT_EQ(answer("long-reply@1=2", "D", 30).size(), 6U);
    EXPECT_EQ(answer("wrong-echo@1=7", "D", 20).at(0), 7);
    EXPECT_EQ(answer("status-bits@c1=1", "Q", 300).at(1), 131);
}

TEST(Faults, AnswersFailFromTheOrderedCommandOnAsOftenAsOrdered) {
    Bench bench = faulty("no-reply@3x2");
    bench.ask("X", 100);
    EXPECT_EQ(bench.status(), 129);
    bench.ask("X", 100); // the third command, but it has no answer
    EXPECT_EQ(bench.status(), -1);
    EXPECT_EQ(bench.status(), -1);
    EXPECT_EQ(bench.status(), 129);
}

} // namespace lcusim::test
