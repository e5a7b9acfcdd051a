#include "simulator/simulated_port.h"

#include "bench.h"

#include <gtest/gtest.h>

namespace lcusim::test {

namespace {

struct Office {
    explicit Office(SimulatorOptions options = {.gentle = true}) : engine(options, gammaTool(), record) {
        port.connect(2, engine);
    }
    std::int32_t open(std::int32_t number = 2, std::int32_t baud = 9600) {
        return port.ComOpen("COM", number, baud, 8, 1, 1, 8192, 8192);
    }
    Bytes drain() {
        Bytes bytes; // a poll takes time, in which more would come
        for (int waiting = port.ComStatus(2); waiting > 0; --waiting)
            bytes.push_back(static_cast<std::uint8_t>(port.ComGetc(2)));
        return bytes;
    }

    tarvik::VirtualClock clock;
    MemoryRecord record;
    LcuEngine engine;
    SimulatedPort port{clock};
};

/// Reads scans as a host is told to: a length byte, then the rest within 200 ms, and never more waiting than
/// is still wanted when it had to wait. Gives the number of scans, or what broke.
std::string readStream(Office& office, Micros milliseconds, int nap) {
    const Micros end = office.clock.micros() + milliseconds * millisecond;
    int scans = 0;
    while (office.clock.micros() < end) {
        if (office.port.ComStatus(2) <= 0) {
            office.port.ComSleepMS(2, nap);
            continue;
        }
        const int wanted = office.port.ComGetc(2) - 1;
        const Micros since = office.clock.micros();
        bool waited = false;
        for (int waiting = office.port.ComStatus(2); waiting < wanted; waiting = office.port.ComStatus(2)) {
            if (office.clock.micros() - since > 200 * millisecond) return "time-out";
            office.port.ComSleepMS(2, nap);
            waited = true;
        }
        if (waited && office.port.ComStatus(2) > wanted) return "overflow";
        for (int i = 0; i < wanted; ++i) office.port.ComGetc(2);
        ++scans;
    }
    return std::to_string(scans);
}

} // namespace

TEST(SimulatedPort, AnUnkindStreamIsStillReadableByTheRules) {
    for (std::uint64_t seed = 1; seed <= 10; ++seed) {
        for (const int nap : {1, 5, 20}) {
            Office office({.model = LcuModel::lcu4, .seed = seed});
            office.open();
            office.port.ComPuts(2, "TT8\nV\n");
            EXPECT_EQ(readStream(office, 20'050, nap), "250") << seed << ", " << nap;
        }
    }
}

TEST(SimulatedPort, OpensWhatExistsOnceAtATime) {
    Office office;
    EXPECT_EQ(office.open(1), tarvik::portMissing);
    EXPECT_NE(office.port.openProblem(), "");
    office.port.plugIn(1);
    EXPECT_EQ(office.open(1), 1);
    EXPECT_EQ(office.port.openProblem(), "");
    EXPECT_EQ(office.open(2), tarvik::portBusy);
    EXPECT_EQ(office.port.ComClose(2), tarvik::portFailed);
    EXPECT_EQ(office.port.ComClose(1), 1);
    office.port.refuse(2, tarvik::portNotPermitted);
    EXPECT_EQ(office.open(2), tarvik::portNotPermitted);
    EXPECT_EQ(office.port.ComStatus(2), tarvik::portFailed);
    EXPECT_EQ(office.open(5), tarvik::portMissing);
    EXPECT_EQ(office.port.ComOpen("COM", 1, 9600, 7, 1, 1, 8192, 8192), tarvik::portFailed) << "7 data bits";
}

TEST(SimulatedPort, AsksAndReads) {
    Office office;
    ASSERT_EQ(office.open(), 1);
    EXPECT_EQ(office.port.ComGetc(2), tarvik::portFailed) << "nothing waits";
    EXPECT_EQ(office.port.ComPuts(2, "Q\n"), 1);
    EXPECT_EQ(office.port.ComSleepMS(2, 300), 1);
    EXPECT_EQ(office.clock.tickMs(), 300);
    EXPECT_EQ(office.drain(), (Bytes{'Q', 129}));
    office.port.ComPuts(2, "Q\n");
    office.port.ComSleepMS(2, 300);
    EXPECT_EQ(office.port.Com_Flush(2, 1), 1);
    EXPECT_EQ(office.port.ComStatus(2), 0);
}

TEST(SimulatedPort, PollingAloneMakesHeadway) {
    Office office;
    office.open();
    office.port.ComPuts(2, "Q\n");
    int polls = 0;
    while (office.port.ComStatus(2) < 2 && polls < 10'000) ++polls;
    EXPECT_LT(polls, 3'000) << "300 ms in polls of 0.1 ms";
}

TEST(SimulatedPort, ReceiveBufferOverflowsAt8192) {
    Office office;
    office.open(2, 115200);
    office.port.ComPuts(2, "TT1\nV\n");
    office.port.ComSleepMS(2, 20'000);
    EXPECT_EQ(office.port.ComStatus(2), 8192);
    EXPECT_GT(office.port.bytesOverrun(), 10'000);
    EXPECT_EQ(scansIn(office.drain()).size(), 512U) << "16 bytes each: the oldest are kept";
}

TEST(SimulatedPort, WhatIsSentWhileThePortIsClosedIsLost) {
    Office office;
    office.open();
    office.port.ComPuts(2, "V\n");
    office.port.ComSleepMS(2, 1'100);
    office.port.ComClose(2);
    office.port.ComSleepMS(2, 10'000);
    ASSERT_EQ(office.open(), 1);
    EXPECT_EQ(office.port.ComStatus(2), 0);
    office.port.ComSleepMS(2, 1'000);
    EXPECT_EQ(scansIn(office.drain()).size(), 2U) << "the box streams on";
}

TEST(SimulatedPort, AHangUpStaysUntilThePortIsOpenedAfresh) {
    Office office({.gentle = true, .faults = {fault("hang-up@c2=1000")}});
    office.open();
    office.port.ComPuts(2, "Q\nQ\n");
    office.port.ComSleepMS(2, 300);
    EXPECT_EQ(office.port.ComStatus(2), tarvik::portGone);
    EXPECT_EQ(office.port.ComPuts(2, "Q\n"), tarvik::portGone);
    EXPECT_EQ(office.port.ComGetc(2), tarvik::portGone);
    office.port.ComClose(2);
    EXPECT_EQ(office.open(), tarvik::portMissing);
    office.port.ComSleepMS(2, 1'000);
    ASSERT_EQ(office.open(), 1);
    office.port.ComPuts(2, "Q\n");
    office.port.ComSleepMS(2, 300);
    EXPECT_EQ(office.drain().size(), 2U);
}

TEST(SimulatedPort, FailsOnOrderAndYieldsWhenToldTo) {
    Office office;
    office.open();
    office.port.failNext("ComPuts", -7, 2);
    EXPECT_EQ(office.port.ComPuts(2, "Q\n"), -7);
    EXPECT_EQ(office.port.ComPuts(2, "Q\n"), -7);
    EXPECT_EQ(office.port.ComPuts(2, "Q\n"), 1);
    office.port.failNext("ComSetFlow", 5);
    EXPECT_EQ(office.port.ComSetFlow(2, 2), 5);
    EXPECT_EQ(office.port.ComSetFlow(2, 2), 1);
    int waits = 0;
    office.port.whileWaiting([&] { ++waits; });
    office.port.ComSleepMS(2, 1);
    office.port.ComSetYield(2, 1);
    office.port.ComSleepMS(2, 1);
    EXPECT_EQ(waits, 1);
}

} // namespace lcusim::test
