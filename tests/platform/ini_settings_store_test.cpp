#include "platform/ini_settings_store.h"

#include "base/failure.h"
#include "platform/memory_files.h"

#include <gmock/gmock.h>

using namespace tarvik;
using ::testing::IsEmpty;

namespace {

class IniSettingsStoreTest : public ::testing::Test {
  protected:
    IniSettingsStore open() {
        problems_.clear();
        return {files_, file_, [this](const std::string& problem) { problems_.push_back(problem); }};
    }
    std::string written() const { return files_.text(file_); }

    MemoryFiles files_;
    const Path file_ = "/home/op/settings.ini";
    std::vector<std::string> problems_;
};

} // namespace

TEST_F(IniSettingsStoreTest, AMissingFileIsAnEmptyStoreAndIsCreatedByTheFirstCommit) {
    IniSettingsStore store = open();
    EXPECT_EQ(store.get("Hole", "Company"), std::nullopt);
    store.commit();
    EXPECT_FALSE(files_.exists(file_)) << "nothing was set";
    store.set("Hole", "Company", " ");
    store.set("Setup", "LCUComms", "12");
    store.set("Hole", "Area", "");
    EXPECT_EQ(store.get("Hole", "Company"), " ");
    store.commit();
    EXPECT_EQ(written(), "[Hole]\nArea=\"\"\nCompany=\" \"\n\n[Setup]\nLCUComms=\"12\"\n");
    EXPECT_THAT(problems_, IsEmpty());
}

TEST_F(IniSettingsStoreTest, EveryTextSurvives) {
    const std::array<std::string, 8> texts{
        "", "  two blanks  ", "C:\\new\\table", "say \"no\"", "a\r\nb", "tab\t;#=[x]", "\\", "Bohrloch µ/ж"};
    IniSettingsStore store = open();
    for (std::size_t i = 0; i < texts.size(); ++i) store.set("Hole", "Key " + std::to_string(i), texts[i]);
    store.commit();
    const IniSettingsStore again = open();
    for (std::size_t i = 0; i < texts.size(); ++i)
        EXPECT_EQ(again.get("Hole", "Key " + std::to_string(i)), texts[i]);
    EXPECT_THAT(problems_, IsEmpty());
}

TEST_F(IniSettingsStoreTest, WhatIsNotSetStaysInItsPlace) {
    files_.put(file_, "\xEF\xBB\xBF; mine\r\n[WinchTool]\r\nLogInches = \"3\"\nLogDirection=\"UP\"\n"
                      "# last of its section\n\n\n[Unknown]\nx=\"1\"");
    IniSettingsStore store = open();
    EXPECT_EQ(store.get("WinchTool", "LogInches"), "3");
    EXPECT_EQ(store.get("winchtool", "LogInches"), std::nullopt);
    store.set("WinchTool", "LogDirection", "DOWN");
    store.set("WinchTool", "LogInches", "3");
    store.set("WinchTool", "AllowLogging", "1");
    store.set("Unknown", "y", "2");
    store.commit();
    EXPECT_EQ(written(), "\xEF\xBB\xBF; mine\r\n[WinchTool]\r\nLogInches = \"3\"\nLogDirection=\"DOWN\"\n"
                         "# last of its section\nAllowLogging=\"1\"\n\n\n[Unknown]\nx=\"1\"\ny=\"2\"\n");
    const auto writes = files_.writes();
    store.set("WinchTool", "LogDirection", "DOWN");
    store.commit();
    EXPECT_EQ(files_.writes(), writes) << "nothing changed, nothing is written";
}

TEST_F(IniSettingsStoreTest, AnEditMadeMeanwhileSurvives) {
    files_.put(file_, "[Hole]\nHoleID=\"DH-104\"\n");
    IniSettingsStore store = open();
    store.set("WinchTool", "LogDirection", "UP");
    files_.put(file_, "[Hole]\nHoleID=\"DH-200\"\n");
    store.commit();
    EXPECT_EQ(written(), "[Hole]\nHoleID=\"DH-200\"\n\n[WinchTool]\nLogDirection=\"UP\"\n");
    EXPECT_EQ(store.get("Hole", "HoleID"), "DH-104") << "what this program goes on with";
    store.set("Hole", "HoleID", "DH-104");
    store.set("WinchTool", "AllowLogging", "1");
    files_.put(file_, "[Hole]\nHoleID=\"DH-200\"\n");
    store.commit();
    EXPECT_EQ(written(), "[Hole]\nHoleID=\"DH-200\"\n\n[WinchTool]\nAllowLogging=\"1\"\n");
    store.set("Hole", "HoleID", "DH-300");
    store.commit();
    EXPECT_TRUE(written().starts_with("[Hole]\nHoleID=\"DH-300\"\n")) << written();
}

TEST_F(IniSettingsStoreTest, AFileDeletedMeanwhileIsWrittenWhole) {
    files_.put(file_, "[Hole]\nHoleID=\"DH-104\"\n");
    IniSettingsStore store = open();
    files_.remove(file_);
    store.set("Hole", "HoleID", "DH-104");
    store.commit();
    EXPECT_EQ(written(), "[Hole]\nHoleID=\"DH-104\"\n");
}

TEST_F(IniSettingsStoreTest, DamagedLinesAreNamedLeftOutAndKept) {
    const std::string text = "Early=\"1\"\n"       // 1
                             "[Hole\n"             // 2
                             "[Hole]\n"            // 3
                             "Company=Acme\n"      // 4
                             "Area=\"open\n"       // 5
                             "Operator=\"a\" b\n"  // 6
                             "FluidType=\"\\q\"\n" // 7
                             "=\"x\"\n"            // 8
                             "HoleID=\"1\"\n"      // 9
                             "HoleID=\"2\"\n"      // 10
                             "Prospect=\"\\\"\n";  // 11
    files_.put(file_, text);
    IniSettingsStore store = open();
    ASSERT_EQ(problems_.size(), 1U);
    const std::string& problem = problems_.front();
    EXPECT_TRUE(problem.starts_with(file_.string() + ": 9 lines are damaged")) << problem;
    for (const char* line : {"1", "2", "4", "5", "6", "7", "8", "10", "11"})
        EXPECT_NE(problem.find("\nline " + std::string(line) + ": "), std::string::npos) << line;
    for (const char* key : {"Early", "Company", "Area", "Operator", "FluidType", "Prospect"})
        EXPECT_EQ(store.get("Hole", key), std::nullopt) << key;
    EXPECT_EQ(store.get("Hole", "HoleID"), "2");
    store.set("Hole", "Company", "Acme");
    store.commit();
    EXPECT_EQ(written(), text + "Company=\"Acme\"\n");
}

TEST_F(IniSettingsStoreTest, AFileThatIsNoSettingsFileIsReportedBrieflyAndKept) {
    std::string noise;
    for (int i = 0; i < 300; ++i) noise += std::string("\x7F\x45LF\0\xFF\n", 7);
    files_.put(file_, noise);
    IniSettingsStore store = open();
    ASSERT_EQ(problems_.size(), 1U);
    EXPECT_NE(problems_.back().find("\nand 280 more"), std::string::npos) << problems_.back();
    store.set("Setup", "Search", "True");
    store.commit();
    EXPECT_EQ(written(), noise + "\n[Setup]\nSearch=\"True\"\n");
}

TEST_F(IniSettingsStoreTest, AFileThatIsTooLargeIsLeftAlone) {
    const std::string largest = ";" + std::string(IniSettingsStore::largestFile - 1, 'x');
    files_.put(file_, largest);
    std::ignore = open();
    EXPECT_THAT(problems_, IsEmpty());
    files_.put(file_, largest + "x");
    IniSettingsStore store = open();
    EXPECT_EQ(problems_.size(), 1U);
    store.set("Setup", "Search", "True");
    EXPECT_THROW(store.commit(), Failure);
    EXPECT_EQ(files_.size(file_), IniSettingsStore::largestFile + 1);
}

TEST_F(IniSettingsStoreTest, ACommitThatFailsKeepsWhatWasSet) {
    files_.put(file_, "[Setup]\nSearch=\"True\"\n");
    IniSettingsStore store = open();
    store.set("Setup", "Search", "False");
    files_.failWritesAfter = 0;
    EXPECT_THROW(store.commit(), Failure);
    EXPECT_EQ(written(), "[Setup]\nSearch=\"True\"\n");
    files_.failWritesAfter = 100;
    store.commit();
    EXPECT_EQ(written(), "[Setup]\nSearch=\"False\"\n");
}

TEST(IniDocument, NewLinesDoNotMisplaceTheOnesBehindThem) {
    IniDocument document("[A]\na=\"1\"\n\n[B]\nb=\"1\"\n");
    document.set("A", "new", "1");
    document.set("A", "newer", "1");
    document.set("B", "b", "2");
    document.set("B", "new", "1");
    EXPECT_EQ(document.text(), "[A]\na=\"1\"\nnew=\"1\"\nnewer=\"1\"\n\n[B]\nb=\"2\"\nnew=\"1\"\n");
}

TEST(IniDocument, ANameThatCouldNotBeReadBackIsRefused) {
    IniDocument document;
    for (const char* key : {"", " a", "a=b", "a\nb", ";a", "#a", "[a"})
        EXPECT_THROW(document.set("Section", key, "x"), Failure) << key;
    for (const char* section : {"", "a]", "a\rb"})
        EXPECT_THROW(document.set(section, "Key", "x"), Failure) << section;
    EXPECT_EQ(document.text(), "");
}
