// The port on real pseudo-terminals. Bytes take an unknown while to cross one, so tests wait for them, at
// most a bounded number of short waits, and never look at the time.
#include "platform/termios_port.h"

#include "platform/port_problem.h"
#include "temporary_folder.h"

#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <grp.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <thread>

using namespace tarvik;
using ::testing::HasSubstr;

namespace {

class TermiosPortTest : public ::testing::Test {
  protected:
    void SetUp() override {
        int master = -1;
        int slave = -1;
        std::array<char, 64> name{};
        ASSERT_EQ(::openpty(&master, &slave, name.data(), nullptr, nullptr), 0);
        box_ = Descriptor(master);
        otherEnd_ = Descriptor(slave);
        device_ = name.data();
    }

    static std::int32_t open(TermiosPort& port, std::int32_t number = 1, std::int32_t baud = 9600) {
        return port.ComOpen("COM", number, baud, 8, 1, 1, 8192, 8192);
    }
    void send(std::string_view bytes) {
        ASSERT_EQ(::write(box_.number(), bytes.data(), bytes.size()), std::ssize(bytes));
    }
    /// The count once it has come to `wanted`, or the last one seen.
    static std::int32_t waitFor(TermiosPort& port, std::int32_t wanted) {
        for (int wait = 0; wait < 2000 && port.ComStatus(1) != wanted; ++wait) port.ComSleepMS(1, 1);
        return port.ComStatus(1);
    }
    static std::string take(TermiosPort& port) {
        std::string bytes;
        for (std::int32_t byte = port.ComGetc(1); byte >= 0; byte = port.ComGetc(1))
            bytes += static_cast<char>(byte);
        return bytes;
    }
    std::string received(std::size_t count) {
        std::string bytes(count, '\0');
        std::size_t done = 0;
        while (done < count) {
            const ssize_t got = ::read(box_.number(), bytes.data() + done, count - done);
            if (got <= 0) break;
            done += static_cast<std::size_t>(got);
        }
        bytes.resize(done);
        return bytes;
    }

    Descriptor box_;      ///< where the LCU would be
    Descriptor otherEnd_; ///< a simulated LCU keeps one open, so that the line outlives the program's visits
    Path device_;
};

std::string everyByte() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    return bytes;
}

} // namespace

TEST_F(TermiosPortTest, EveryByteCrossesUnchangedBothWays) {
    TermiosPort port({{1, device_}});
    ASSERT_EQ(open(port), 1) << port.openProblem();
    EXPECT_EQ(port.ComSetFlow(1, 2), 1);
    EXPECT_EQ(port.ComSetFlow(1, 1), portFailed);
    EXPECT_EQ(port.ComStatus(1), 0);
    EXPECT_EQ(port.ComGetc(1), portFailed);
    send(everyByte());
    EXPECT_EQ(waitFor(port, 256), 256);
    EXPECT_EQ(take(port), everyByte());
    EXPECT_EQ(port.ComPuts(1, everyByte()), 1);
    EXPECT_EQ(received(256), everyByte());
    EXPECT_LT(port.ComGetCTSStatus(1), 0) << "a pseudo-terminal has no such line";
}

TEST_F(TermiosPortTest, TheLineIsSetAsAskedAndIsOurs) {
    TermiosPort port({{1, device_}});
    for (const auto& [baud, code] : {std::pair{9600, B9600}, std::pair{115200, B115200}}) {
        ASSERT_EQ(open(port, 1, baud), 1);
        termios line{};
        ASSERT_EQ(::tcgetattr(box_.number(), &line), 0);
        EXPECT_EQ(::cfgetospeed(&line), code);
        EXPECT_EQ(line.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), static_cast<tcflag_t>(CS8));
        EXPECT_EQ(line.c_iflag & (IXON | IXOFF), 0U);
    }
    int exclusive = 0;
    ::ioctl(otherEnd_.number(), TIOCGEXCL, &exclusive);
    EXPECT_EQ(exclusive, 1);
    TermiosPort second({{1, device_}});
    EXPECT_EQ(open(second), portBusy);
    EXPECT_THAT(second.openProblem(), HasSubstr(device_.string() + " (COM1) is in use by another program"));
    EXPECT_EQ(port.ComClose(1), 1);
    ::ioctl(otherEnd_.number(), TIOCGEXCL, &exclusive);
    EXPECT_EQ(exclusive, 0) << "the mark would keep us out the next time";
    EXPECT_EQ(open(second), 1);
    EXPECT_EQ(second.openProblem(), "");
    EXPECT_EQ(open(port, 1, 1234), portFailed);
}

TEST_F(TermiosPortTest, BeyondTheRingBytesWaitInTheSystem) {
    TermiosPort port({{1, device_}});
    ASSERT_EQ(open(port), 1);
    std::string bytes;
    for (int i = 0; i < 10'000; ++i) bytes += static_cast<char>(i % 251);
    std::jthread box([&] { send(bytes); }); // the system takes only a part at once
    EXPECT_EQ(waitFor(port, 8192), 8192);
    EXPECT_EQ(port.ComSleepMS(1, 1), 1) << "a full ring must not spin or overflow";
    std::string all(1, static_cast<char>(port.ComGetc(1)));
    EXPECT_EQ(waitFor(port, 8192), 8192);
    for (int wait = 0; wait < 2000 && all.size() < bytes.size(); ++wait) {
        all += take(port);
        port.ComSleepMS(1, 1);
    }
    EXPECT_EQ(all, bytes);
}

TEST_F(TermiosPortTest, AFlushDiscardsWhatHasCome) {
    TermiosPort port({{1, device_}});
    ASSERT_EQ(open(port), 1);
    send(std::string(6000, 'x'));
    EXPECT_EQ(waitFor(port, 6000), 6000);
    EXPECT_EQ(port.Com_Flush(1, 2), portFailed) << "only the receive buffer is known";
    EXPECT_EQ(port.ComStatus(1), 6000);
    EXPECT_EQ(port.Com_Flush(1, 1), 1);
    EXPECT_EQ(port.ComStatus(1), 0);
}

TEST_F(TermiosPortTest, WhatCameWhileThePortWasClosedIsGone) {
    TermiosPort port({{1, device_}});
    ASSERT_EQ(open(port), 1);
    port.ComClose(1);
    send("old");
    pollfd arrival{.fd = otherEnd_.number(), .events = POLLIN, .revents = 0};
    ASSERT_EQ(::poll(&arrival, 1, 10'000), 1);
    ASSERT_EQ(open(port), 1);
    EXPECT_EQ(port.ComStatus(1), 0);
}

TEST_F(TermiosPortTest, AHangUpIsSeenAndNothingHangs) {
    TermiosPort port({{1, device_}});
    ASSERT_EQ(open(port), 1);
    send("last");
    ASSERT_EQ(waitFor(port, 4), 4);
    otherEnd_.close();
    box_.close();
    EXPECT_EQ(port.ComSleepMS(1, 1), 1);
    EXPECT_EQ(port.ComStatus(1), 4) << "what had come can still be read";
    EXPECT_EQ(take(port), "last");
    EXPECT_EQ(port.ComStatus(1), portGone);
    EXPECT_EQ(port.ComGetc(1), portGone);
    EXPECT_EQ(port.ComPuts(1, "X\n"), portGone);
    EXPECT_EQ(port.Com_Flush(1, 1), portGone);
    EXPECT_EQ(port.ComSleepMS(1, 1), 1);
    EXPECT_EQ(port.ComClose(1), 1);
    EXPECT_EQ(port.ComStatus(1), portFailed);
}

TEST_F(TermiosPortTest, AHangUpDuringAWaitOrASendingEndsTheWait) {
    int calls = 0;
    TermiosPort port({{1, device_}}, [&] {
        ++calls;
        otherEnd_.close();
        box_.close();
    });
    ASSERT_EQ(open(port), 1);
    ASSERT_EQ(port.ComSetYield(1, 1), 1);
    EXPECT_EQ(port.ComSleepMS(1, 25), 1);
    EXPECT_GE(calls, 1);
    EXPECT_LE(calls, 4) << "a line that hung up must not make the wait spin";
    EXPECT_EQ(port.ComStatus(1), portGone);
}

TEST_F(TermiosPortTest, TheScreensLiveOnlyWhereYieldingIsOn) {
    int calls = 0;
    TermiosPort port({{1, device_}}, [&] { ++calls; });
    ASSERT_EQ(open(port), 1);
    port.ComSleepMS(1, 1);
    EXPECT_EQ(calls, 0);
    port.ComSetYield(1, 1);
    port.ComSleepMS(1, 25);
    EXPECT_GE(calls, 1);
    EXPECT_LE(calls, 4);
}

TEST_F(TermiosPortTest, ALongTextGoesOutWhole) {
    TermiosPort port({{1, device_}});
    ASSERT_EQ(open(port), 1);
    const std::string text(100'000, 'x');
    std::string got;
    std::jthread slowBox([&] { got = received(text.size()); });
    EXPECT_EQ(port.ComPuts(1, text), 1);
    slowBox.join();
    EXPECT_EQ(got, text);
}

TEST_F(TermiosPortTest, AClosedPortAndAnotherNumberAreRefused) {
    TermiosPort port({{1, device_}, {2, "/dev/null"}});
    const auto refused = [&](std::int32_t number) {
        return port.ComStatus(number) == portFailed && port.ComGetc(number) == portFailed &&
               port.ComPuts(number, "X") == portFailed && port.Com_Flush(number, 1) == portFailed &&
               port.ComSetFlow(number, 2) == portFailed && port.ComSetYield(number, 1) == portFailed &&
               port.ComGetCTSStatus(number) == portFailed && port.ComSleepMS(number, 0) == portFailed &&
               port.ComClose(number) == portFailed;
    };
    EXPECT_TRUE(refused(1));
    EXPECT_TRUE(refused(0));
    ASSERT_EQ(open(port), 1);
    EXPECT_TRUE(refused(2));
    EXPECT_EQ(port.ComStatus(1), 0);
    EXPECT_EQ(open(port, 2), portFailed) << "no serial device";
    EXPECT_TRUE(refused(1)) << "one port is open at a time";
}

TEST_F(TermiosPortTest, AnotherDeviceCountsFromTheNextOpening) {
    TermiosPort port({{1, "/dev/no-such-line"}});
    EXPECT_EQ(open(port), portMissing);
    port.useDevices({{1, device_}});
    EXPECT_EQ(open(port), 1);
    port.useDevices({});
    send("x");
    EXPECT_EQ(waitFor(port, 1), 1) << "what is open stays open";
}

TEST(PortProblem, SaysInPlainWordsWhatToDo) {
    TermiosPort port({{1, "/dev/no-such-line"}, {2, "/dev/null"}});
    const auto open = [&](std::int32_t number) {
        return port.ComOpen("COM", number, 9600, 8, 1, 1, 8192, 8192);
    };
    EXPECT_EQ(open(1), portMissing);
    EXPECT_EQ(port.openProblem(),
              "COM1 is set to /dev/no-such-line, which is not there: plug the adapter in, or name another "
              "device with --com1 or under COM1 in the section [Ports] of the settings.");
    EXPECT_EQ(open(2), portFailed);
    EXPECT_THAT(port.openProblem(), HasSubstr("/dev/null (COM2) is not a serial device"));
    EXPECT_EQ(open(3), portMissing);
    EXPECT_THAT(port.openProblem(), HasSubstr("COM3 has no device"));
}

TEST(PortProblem, NamesTheGroupToJoin) {
    const TemporaryFolder folder;
    const Path device = folder / "line";
    std::ofstream(device) << "";
    if (::geteuid() == 0) std::ignore = ::chown(device.c_str(), 0, 1);
    struct stat status {};
    ASSERT_EQ(::stat(device.c_str(), &status), 0);
    const group* const owner = ::getgrgid(status.st_gid);
    if (owner == nullptr || status.st_gid == 0) GTEST_SKIP() << "no group to join here";
    const std::string name = owner->gr_name;

    ::chmod(device.c_str(), 0660);
    const PortProblem withGroup = portProblem(EACCES, 1, device);
    EXPECT_EQ(withGroup.code, portNotPermitted);
    EXPECT_EQ(withGroup.sentence, "You may not open " + device.string() +
                                      " (COM1): add yourself to the group " + name + ": sudo usermod -aG " +
                                      name + " $USER, then log in again.");
    ::chmod(device.c_str(), 0640);
    EXPECT_THAT(portProblem(EACCES, 1, device).sentence, HasSubstr("ask the administrator"));
}
