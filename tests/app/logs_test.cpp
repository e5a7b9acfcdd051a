#include "app/doubles.h"
#include "app/error_log.h"
#include "app/run_history.h"
#include "app/status_log.h"
#include "platform/memory_files.h"
#include "platform/virtual_clock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

using namespace tarvik;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

struct Logs : testing::Test, StatusViewer {
    Logs() { log.addViewer(*this); }
    void showStatusLine(std::string_view line) override { viewer.emplace_back(line); }
    [[nodiscard]] std::string day() const { return files.text("/h/Mon-13-Mar-2006.txt"); }
    [[nodiscard]] std::string errorText() const { return files.text("/h/Tarvik_Errors.txt"); }

    MemoryFiles files;
    VirtualClock clock{{.year = 2006, .month = 3, .day = 13, .hour = 9, .minute = 5, .second = 7}};
    Transcript shown;
    WritingOperator person{shown};
    ErrorLog errorLog{person,    clock, files, "/h", {" Linux version 6.1.0 ", "Memory : 512 mbytes", {}},
                      {2, 1, 37}};
    ErrorTrap errors{errorLog};
    StatusLog log{errors, clock, files, "/h"};
    std::vector<std::string> viewer;
};

const std::string head = "File created : Monday, 13-Mar-2006\r\n";

} // namespace

TEST_F(Logs, TheFirstLineOfADayCreatesTheFile) {
    log.Utilities_logstatus("======== Project : x", Bold::yes, "BLU"); // in a new file without a line before
    EXPECT_EQ(day(), head + "\r\n09:05:07  ======== Project : x\r\n");
    clock.advanceMs(15 * 3'600'000);
    log.black("next day");
    EXPECT_EQ(files.text("/h/Tue-14-Mar-2006.txt"),
              "File created : Tuesday, 14-Mar-2006\r\n\r\n00:05:07  next day\r\n");
    EXPECT_EQ(log.todaysFile(), Path("/h/Tue-14-Mar-2006.txt"));
}

TEST_F(Logs, RulesAndProjectHeadersStandApart) {
    for (const char* text : {"a", "=======", "========", "Project :x", "project :"}) log.black(text);
    EXPECT_EQ(day(), head + "\r\n09:05:07  a\r\n09:05:07  =======\r\n\r\n09:05:07  ========\r\n"
                            "\r\n09:05:07  Project :x\r\n09:05:07  project :\r\n");
}

TEST_F(Logs, ViewersGetWeightAndColourTheFileDoesNot) {
    log.Utilities_logstatus("t", Bold::yes, "RED");
    log.blue("t");
    log.Utilities_logstatus("t", Bold::no, "GRN");
    EXPECT_THAT(viewer, ElementsAre("09:05:07  \\B\\2t", "09:05:07  \\b\\1t", "09:05:07  \\b\\0t"));
    EXPECT_EQ(day().find('\\'), std::string::npos);
    log.black("Bohrung 5 µm €");
    EXPECT_THAT(day(), EndsWith("5 \xB5m \x80\r\n"));
    log.removeViewer(*this);
    log.black("unseen");
    EXPECT_EQ(viewer.size(), 4U);
}

TEST_F(Logs, ALineThatCannotBeWrittenIsShownAndFiledOnce) {
    files.readOnly.insert("/h/Mon-13-Mar-2006.txt");
    log.red("lost on disk");
    EXPECT_THAT(viewer, ElementsAre("09:05:07  \\b\\2lost on disk"));
    EXPECT_FALSE(files.exists("/h/Mon-13-Mar-2006.txt"));
    EXPECT_THAT(errorText(),
                HasSubstr("   Form : Introscreen  Routine : Utilities_logstatus\r\n   Error : 70  "));
    EXPECT_THAT(errorText(), EndsWith("may not be written  (Level=1)\r\n\r\n"));
}

TEST_F(Logs, NothingRecursWhenTheErrorFileCannotBeWrittenEither) {
    struct Chatty final : StatusViewer {
        explicit Chatty(ErrorTrap& trap) : errors(trap) {}
        void showStatusLine(std::string_view) override { errors.report(1, "from a viewer"); }
        ErrorTrap& errors;
    } chatty(errors);
    files.readOnly.insert("/h");
    log.addViewer(chatty);
    log.black("x");
    ASSERT_EQ(shown.size(), 2U); // the viewer's, the log's: each shown, each saying that the file lacks it
    EXPECT_THAT(shown[0], AllOf(HasSubstr("from a viewer|"), HasSubstr("|not there: ")));
    EXPECT_THAT(shown[1], AllOf(HasSubstr("Utilities_logstatus|"), HasSubstr("|not there: ")));
}

TEST_F(Logs, AnErrorInsideTheDialogIsDropped) {
    struct Recursive final : WritingOperator {
        using WritingOperator::WritingOperator;
        void showError(const ErrorReport& error, std::string_view, const ErrorFiling&) override {
            ++calls;
            log->report(error);
        }
        ErrorLog* log = nullptr;
        int calls = 0;
    } recursive{shown};
    ErrorLog own{recursive, clock, files, "/h", {}, {}};
    recursive.log = &own;
    own.report({"f", "r", 0, 1, "d"});
    own.report({"f", "r", 0, 1, "d"});
    EXPECT_EQ(recursive.calls, 2); // once each: the guard opens again
}

TEST_F(Logs, ErrorEntries) {
    errorLog.report({"frmSetup", "comadd", 6, 53, "no such file"});
    const std::string entry = "Monday 13-Mar-06 09:05:07  Tarvik - Version 2.01  (build 37)\r\n"
                              "   Form : frmSetup  Routine : comadd\r\n"
                              "   Error : 53  no such file  (Level=6)\r\n\r\n";
    const std::string fileHead =
        head + "Operating system : Linux version 6.1.0\r\nMemory : 512 mbytes\r\n\r\n";
    EXPECT_EQ(errorText(), fileHead + entry);
    EXPECT_THAT(shown,
                ElementsAre("error comadd|no such file|Monday 13-Mar-06 09:05:07|/h/Tarvik_Errors.txt"));
    EXPECT_TRUE(errorLog.file({"frmSetup", "comadd", 6, 53, "no such file"}));
    EXPECT_EQ(errorText(), fileHead + entry + entry);
    EXPECT_EQ(shown.size(), 1U); // filed without being shown
}

namespace {

struct OverflowLogs : Logs {
    std::array<std::uint8_t, 12> bytes{0, 1, 22, 255, 4, 5, 6, 7, 8, 9, 10, 11};
    BufferOverflow overflow{.type = 2,
                            .expected = 5,
                            .received = 12,
                            .bytes = bytes,
                            .samplingMethod = "DEPTH",
                            .interval = 2.5F,
                            .speed = 12.25,
                            .first = {1234.5, 7},
                            .second = OverflowReading{0.5, 123},
                            .secondSensible = true};
};

} // namespace

TEST_F(OverflowLogs, TheWholeAnalysis) {
    errorLog.reportOverflow({"Introscreen", "LCUFunctions-LCU_AcquireData_Pulse", 3}, overflow);
    const std::string analysis = "   Buffer overflow type 2 expected 5 chars, received 12\r\n"
                                 "   Sampling method DEPTH interval 2.5 Speed 12.3\r\n"
                                 "   Initial buffer bytes give values :  Depth 1,234.50  time 07 msecs\r\n"
                                 "   Additional buffer bytes give values :  Depth .50  time 123 msecs\r\n"
                                 "   It appears that the LCU sent valid scan data therefore\r\n"
                                 "   this indicates too high a logging speed\r\n"
                                 "   Byte values 000 001 022 255 004 005 006 007 008 009\r\n"
                                 "   Byte values 010 011\r\n";
    EXPECT_THAT(errorText(),
                EndsWith("\r\n\r\nMonday 13-Mar-06 09:05:07  Tarvik - Version 2.01  (build 37)\r\n"
                         "   Form : Introscreen  Routine : LCUFunctions-LCU_AcquireData_Pulse\r\n" +
                         analysis));
    EXPECT_THAT(shown,
                ElementsAre(HasSubstr("  were 12 characters.  Speed was 12.3\n   Buffer overflow type 2")));
}

TEST_F(OverflowLogs, VerdictsByWhatIsThere) {
    overflow.secondSensible = false;
    EXPECT_EQ(overflowAnalysis(overflow)[5], "   or spurious LCU data as the depth value is not sensible");
    overflow.received = 11; // two scans and one byte
    EXPECT_EQ(overflowAnalysis(overflow).size(), 8U);
    overflow.received = 10;
    EXPECT_EQ(overflowAnalysis(overflow)[3], "   Insufficient remaining bytes to analyse as a full scan");
    overflow.type = 1;
    EXPECT_EQ(overflowAnalysis(overflow).size(), 2U);
    EXPECT_EQ(overflowFormLines(overflow).size(), 8U);
    EXPECT_EQ(overflowFormLines(overflow)[4], "  Buffer should have contained 5 characters however there");
}
