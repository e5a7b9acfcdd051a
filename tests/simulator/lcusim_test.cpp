// The program itself on a real pseudo-terminal. It sets the pace; the tests wait for what must come, never
// for a time.
#include "bench.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

namespace lcusim::test {

namespace {

namespace fs = std::filesystem;

class Program {
  public:
    explicit Program(std::vector<std::string> arguments) {
        std::array<int, 2> out{};
        EXPECT_EQ(pipe2(out.data(), O_CLOEXEC), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        std::string name = LCUSIM_PROGRAM;
        std::vector<char*> words{name.data()};
        for (std::string& argument : arguments) words.push_back(argument.data());
        words.push_back(nullptr);
        EXPECT_EQ(posix_spawn(&pid_, LCUSIM_PROGRAM, &actions, nullptr, words.data(), environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        ::close(out[1]);
        out_ = out[0];
    }
    ~Program() {
        if (pid_ > 0) end();
        ::close(out_);
    }

    std::string line() const {
        std::string text;
        for (char c = 0; ::read(out_, &c, 1) == 1 && c != '\n';) text += c;
        return text;
    }
    int end(int signal = SIGTERM) {
        if (signal != 0) kill(pid_, signal);
        int status = 0;
        waitpid(pid_, &status, 0);
        pid_ = -1;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    pid_t pid_ = -1;
    int out_ = -1;
};

/// The host's end, as a program opens a serial port.
class HostPort {
  public:
    explicit HostPort(const std::string& path, speed_t speed = B9600)
        : device_(::open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        termios line{};
        EXPECT_EQ(tcgetattr(device_, &line), 0) << path;
        cfmakeraw(&line);
        cfsetspeed(&line, speed);
        EXPECT_EQ(tcsetattr(device_, TCSANOW, &line), 0);
    }
    ~HostPort() { ::close(device_); }

    void send(const std::string& text) const {
        EXPECT_EQ(::write(device_, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }
    /// Waits until so many bytes have come; fewer when the line hangs up.
    Bytes receive(std::size_t count) const {
        Bytes bytes;
        for (pollfd watched{device_, POLLIN, 0}; bytes.size() < count && poll(&watched, 1, 20'000) == 1;) {
            std::uint8_t byte = 0;
            if (::read(device_, &byte, 1) != 1) break;
            bytes.push_back(byte);
        }
        return bytes;
    }

  private:
    int device_;
};

class Lcusim : public ::testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(folder_ / "tools");
        std::ofstream(folder_ / "tools" / "t.tool")
            << "[tool]\ncode = T1\nmaximum_current = 100\n[mode 1]\nsensor_factors = a1,f21,p1,z9\n"
               "channel = Gamma | CPS | 0 | 400\nchannel = Conductivity | X\nchannel = C | X\nchannel = D | "
               "X\n";
    }
    void TearDown() override { fs::remove_all(folder_); }

    [[nodiscard]] std::vector<std::string> options(std::vector<std::string> more) const {
        std::vector<std::string> all{"--tool", "T1", "--tools", folder_ / "tools", "--link", link_};
        all.insert(all.end(), more.begin(), more.end());
        return all;
    }

    fs::path folder_ = fs::path(::testing::TempDir()) / ("lcusim_" + std::to_string(getpid()));
    std::string link_ = folder_ / "COM1";
};

} // namespace

TEST_F(Lcusim, AnswersOnItsLinkAndRemovesItAtTheEnd) {
    Program program(options({"--model", "LCU4", "--baud", "115200"}));
    ASSERT_EQ(program.line(), link_);
    {
        const HostPort host(link_, B115200);
        host.send("X\nX\nQ\n");
        const Bytes answer = host.receive(2);
        ASSERT_EQ(answer.size(), 2U);
        EXPECT_EQ(answer[1], 145);
    }
    EXPECT_EQ(program.end(), 0);
    EXPECT_FALSE(fs::is_symlink(link_));
}

TEST_F(Lcusim, StreamsWhatItRecords) {
    const fs::path record = folder_ / "record.txt";
    const fs::path commands = folder_ / "commands.txt";
    Program program(options({"--time-factor", "40", "--record", record, "--commands", commands}));
    program.line();
    Bytes heard;
    {
        const HostPort host(link_);
        host.send("TT10\nV\n");
        heard = host.receive(16 * 50);
    }
    EXPECT_EQ(program.end(SIGINT), 0);
    ASSERT_EQ(heard.size(), 16U * 50);

    std::ifstream lines(record);
    std::string hex;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string kind, number, micros, depth, fate, bytes;
        words >> kind >> number >> micros >> depth >> fate >> bytes;
        if (kind == "scan" && fate == "sent") hex += bytes;
    }
    std::string heardHex;
    for (const std::uint8_t byte : heard) {
        heardHex += "0123456789abcdef"[byte >> 4];
        heardHex += "0123456789abcdef"[byte & 15];
    }
    EXPECT_EQ(hex.substr(0, heardHex.size()), heardHex);
    std::ifstream texts(commands);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(texts), {}), "TT10\nV\n");
}

TEST_F(Lcusim, HangsUpAndComesBackUnderTheSameLink) {
    Program program(options({"--gentle", "--fault", "hang-up@c1=50"}));
    program.line();
    {
        const HostPort host(link_);
        host.send("Q\n");
        EXPECT_EQ(host.receive(1), Bytes{}) << "end of file, not an answer";
    }
    ASSERT_EQ(program.line(), link_) << "printed again when the line is back";
    const HostPort host(link_);
    host.send("Q\n");
    EXPECT_EQ(host.receive(2), (Bytes{'Q', 129}));
}

TEST_F(Lcusim, EndsAfterTheHostHasClosed) {
    Program program(options({"--exit-after-close"}));
    program.line();
    { const HostPort host(link_); }
    EXPECT_EQ(program.end(0), 0);
    EXPECT_FALSE(fs::is_symlink(link_));
}

TEST_F(Lcusim, RefusesWrongUsageAndMissingThings) {
    for (const std::vector<std::string>& wrong : {std::vector<std::string>{},
                                                  {"--tool"},
                                                  {"--nonsense"},
                                                  {"--tool", "T1", "--model", "LCU5"},
                                                  {"--tool", "T1", "--mode", "3"},
                                                  {"--tool", "T1", "--speed", "fast"},
                                                  {"--tool", "T1", "--fault", "x@1"}})
        EXPECT_EQ(Program(wrong).end(0), 2) << ::testing::PrintToString(wrong);
    EXPECT_EQ(Program(options({"--tool", "T9"})).end(0), 1);
    EXPECT_EQ(Program(options({"--mode", "2"})).end(0), 1) << "the tool has one mode";
    std::ofstream(link_) << "a file of the user's";
    EXPECT_EQ(Program(options({})).end(0), 1);
    EXPECT_TRUE(fs::is_regular_file(link_)) << "and it is still there";
    EXPECT_EQ(Program({"--help"}).end(0), 0);
}

} // namespace lcusim::test
