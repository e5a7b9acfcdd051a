#include "cli/verb.h"
#include "platform/temporary_folder.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iostream>
#include <sstream>

namespace tarvik {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

struct Done {
    int code;
    std::string out, err;
};

class CommandLine : public testing::Test {
  protected:
    Done tarvik(std::vector<std::string> words) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const std::vector<std::string_view> views(words.begin(), words.end());
        const int code = runCommandLine(views);
        std::string out = testing::internal::GetCapturedStdout();
        return {code, std::move(out), testing::internal::GetCapturedStderr()};
    }
    Done atHome(std::vector<std::string> words) {
        words.insert(words.end(), {"--home", (folder / "home").string()});
        return tarvik(std::move(words));
    }

    TemporaryFolder folder;
};

TEST_F(CommandLine, WrongUsageIsTwoWithTheReasonAndTheWayToTheHelp) {
    struct Case {
        std::vector<std::string> words;
        std::string said;
    };
    const std::vector<Case> cases{
        {{"fly"}, "unknown verb \"fly\""},
        {{"find", "here"}, "\"here\" is not expected"},
        {{"find", "--lcucomms", "7"}, "--lcucomms expects 12, 34, 1, 2, 3 or 4"},
        {{"info"}, "run or LAS file is missing"},
        {{"las", "a.kvx"}, "-o OUT.las is missing"},
        {{"las", "a.kvx", "-o", "b", "--filter", "Gamma="}, "--filter expects NAME=POINTS"},
        {{"fit"}, "--order is missing"},
        {{"calibrate", "--serial", "1", "--sensor", "G", "--order", "1", "--by", "M"}, "--tool is missing"},
        {{"calibrate", "--tool", "K", "--serial", "1", "--sensor", "G", "--order", "8", "--by", "M"},
         "--order expects 1 to 7"},
        {{"calibrate", "--tool", "K", "--serial", "1", "--sensor", "G", "--order", "1", "--by",
          "a name of 21 letters."},
         "--by has room for 20 characters"},
        {{"calibrations", "print"}, "calibrations expects list or export"},
        {{"equipment", "list", "all"}, "list expects nothing behind it"},
        {{"equipment", "add-tool", "K240"}, "add-tool expects a code and a serial number"},
        {{"equipment", "remove-tool", "first"}, "\"first\" is not a number of the list"},
        {{"log", "--project", "P", "--hole", "H", "--interval", "0"}, "from 0.01 to 3600 seconds"},
        {{"log", "--project", "P", "--hole", "H", "--sampling", "DEPTH", "--interval", "0.99"},
         "from 1 to 99 centimetres"},
        {{"log", "--project", "P", "--hole", "H", "--top", "5", "--bottom", "5"},
         "The top depth must be less"},
        {{"log", "--project", "..", "--hole", "H"}, "A project is a single folder"},
        {{"log", "--project", "P"}, "You must select a hole (--hole H)"},
        {{"log", "--append", "--new"}, "--append or --new, not both"},
    };
    for (const Case& wrong : cases) {
        const Done done = atHome(wrong.words);
        EXPECT_EQ(done.code, exitUsage) << wrong.said;
        EXPECT_THAT(done.err, AllOf(HasSubstr(wrong.said), HasSubstr("\nTry: tarvik "), HasSubstr("--help")));
        EXPECT_THAT(done.out, IsEmpty());
    }
    EXPECT_THAT(tarvik({"info", "x", "--home", ""}).err, StartsWith("tarvik: --home expects a name"));
    EXPECT_EQ(tarvik({}).code, exitUsage);
}

TEST_F(CommandLine, HelpIsAResult) {
    for (const std::vector<std::string>& words : {std::vector<std::string>{"--help"},
                                                  {"-h"},
                                                  {"help"},
                                                  {"log", "-h"},
                                                  {"find", "--help", "--bogus"}}) {
        const Done done = tarvik(words);
        EXPECT_EQ(done.code, exitDone);
        EXPECT_THAT(done.out, HasSubstr("usage: tarvik "));
        EXPECT_THAT(done.err, IsEmpty());
    }
}

TEST_F(CommandLine, EquipmentComesAndGoesAndAFailureIsOne) {
    EXPECT_EQ(atHome({"equipment", "add-tool", "k240", "7"}).code, exitDone);
    EXPECT_THAT(atHome({"equipment"}).out, HasSubstr("SN-7"));

    const Done taken = atHome({"equipment", "add-tool", "K240", "7"});
    EXPECT_EQ(taken.code, exitFailed);
    EXPECT_THAT(taken.err, HasSubstr("\"7\" is taken"));
    EXPECT_EQ(atHome({"equipment", "remove-tool", "2"}).code, exitFailed);
    EXPECT_EQ(atHome({"equipment", "remove-tool", "1"}).code, exitDone);

    const Done unread = atHome({"info", (folder / "none.kvx").string()});
    EXPECT_EQ(unread.code, exitFailed);
    EXPECT_THAT(unread.err, HasSubstr("none.kvx: cannot be looked at: No such file"));
}

TEST_F(CommandLine, AListThatCannotBeReadIsAFailureAndNoSerialNumberIsCalledTaken) {
    std::filesystem::create_directories(folder / "home" / "program" / "UserTools-Winches.dat");
    EXPECT_EQ(atHome({"equipment", "list"}).code, exitFailed);
    const Done added = atHome({"equipment", "add-tool", "K240", "7"});
    EXPECT_EQ(added.code, exitFailed);
    EXPECT_THAT(added.err, AllOf(HasSubstr("Is a directory"), Not(HasSubstr("is taken"))));
}

TEST_F(CommandLine, ASearchSaysWhyItsPortCannotBeOpened) {
    std::ofstream(folder / "plain").put('x');
    const Done done = atHome({"find", "--lcucomms", "2", "--com2", (folder / "plain").string()});
    EXPECT_EQ(done.code, exitFailed);
    EXPECT_THAT(done.out, IsEmpty());
    EXPECT_THAT(done.err,
                AllOf(HasSubstr("plain (COM2) is not a serial device"), HasSubstr("No LCU was found.")));
}

TEST_F(CommandLine, ASettingThatCannotBeReadNamesItsFile) {
    std::filesystem::create_directories(folder / "home");
    std::ofstream(folder / "home" / "settings.ini")
        << "[Setup]\nLCUComms=\"all\"\n[Ports]\nCOM1=\"/dev/null\"\n";
    const Done done = atHome({"find", "--lcucomms", "1"});
    EXPECT_THAT(done.err,
                HasSubstr("settings.ini: [Setup] LCUComms=\"all\" is not what this setting can hold; "
                          "its default \"12\" is used."));
}

/// Feeds standard input for as long as it lives.
class StandardInput {
  public:
    explicit StandardInput(const std::string& text) : text_(text), before_(std::cin.rdbuf(text_.rdbuf())) {}
    ~StandardInput() {
        std::cin.rdbuf(before_);
        std::cin.clear();
    }
    StandardInput(const StandardInput&) = delete;
    StandardInput& operator=(const StandardInput&) = delete;

  private:
    std::istringstream text_;
    std::streambuf* before_;
};

TEST_F(CommandLine, ACalibrationIsShownAndSavedOrRefusedWithTheReason) {
    ASSERT_EQ(atHome({"equipment", "add-tool", "K240", "77"}).code, exitDone);
    const auto calibrate = [&](const std::string& points, const std::string& serial,
                               const std::string& sensor, const std::string& order) {
        const StandardInput input(points);
        return atHome({"calibrate", "--tool", "K240", "--serial", serial, "--sensor", sensor, "--order",
                       order, "--by", "Me", "--yes"});
    };
    const std::string line = "0 1\n10 6\n";
    EXPECT_THAT(calibrate(line, "78", "SP", "1").err, HasSubstr("You have no tool K240"));
    EXPECT_THAT(calibrate(line, "77", "Spin", "1").err,
                HasSubstr("no sensor \"Spin\"; it has \"Res 8 inch\""));
    EXPECT_THAT(calibrate("0 1\n10 x\n", "77", "SP", "1").err, HasSubstr("line 2"));
    EXPECT_THAT(calibrate(line, "77", "SP", "2").err, HasSubstr("Invalid polynomial order"));
    std::string many;
    for (int i = 0; i <= 20; ++i) many += std::to_string(i) + " " + std::to_string(i) + "\n";
    EXPECT_THAT(calibrate(many, "77", "SP", "1").err, HasSubstr("room for 20 points, not 21"));
    EXPECT_THAT(atHome({"calibrations", "--serial", "77"}).out, testing::Not(HasSubstr("SP")));

    const Done bent = calibrate("0 0\n1 3\n2 0\n3 0\n", "77", "sp", "1");
    EXPECT_EQ(bent.code, exitDone);
    // The line 1.2 - 0.3x is off by 2.1 in its second point.
    EXPECT_THAT(bent.out, AllOf(HasSubstr("\n1\t3\t-2.1\n"), HasSubstr("largest error\t2.1\n"),
                                HasSubstr("Linear fit"), HasSubstr("\tField\n")));
    EXPECT_THAT(calibrate("0 0\n1 3\n2 0\n", "77", "SP", "2").err, HasSubstr("turns back near"));

    const auto history = folder / "home" / "program" / "Brenna-Calibrations.dat";
    std::filesystem::resize_file(history, std::filesystem::file_size(history) - 1);
    const Done torn = atHome({"calibrations", "--serial", "77"});
    EXPECT_THAT(torn.err, HasSubstr("the last record is torn (599 of 600 bytes)"));
    EXPECT_THAT(torn.out, HasSubstr("K240 SN-77\tSP\tCalibrated\t"));
}

} // namespace
} // namespace tarvik
