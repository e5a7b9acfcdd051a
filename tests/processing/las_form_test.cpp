#include "processing/las_form.h"

#include "platform/memory_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace tarvik;
using ::testing::HasSubstr;

TEST(LasForm, FieldsAreJudgedBeforeAnythingIsDone) {
    for (const char* right : {"", "  ", "0.05", " 1 "}) EXPECT_EQ(lasStepProblem(right), "") << right;
    for (const char* wrong : {"0", "-1", "deep", "nan", "1e999"})
        EXPECT_NE(lasStepProblem(wrong), "") << wrong;
    for (const char* plain : {"", "0.05", "1", "-0.005", "deep"})
        EXPECT_EQ(lasStepWarning(plain), "") << plain;
    EXPECT_THAT(lasStepWarning("0.125"), HasSubstr("rounded"));

    LasExportOptions options;
    EXPECT_EQ(lasChannelsProblem(options), "Choose at least one channel.");
    options.channels = {"GAMMA"};
    for (const char* setting : {"None", "5"}) {
        options.filters = {{"GAMMA", setting}};
        EXPECT_EQ(lasChannelsProblem(options), "") << setting;
    }
    for (const char* setting : {"0", "2.5", "five", ""}) {
        options.filters = {{"GAMMA", setting}};
        EXPECT_THAT(lasChannelsProblem(options), HasSubstr("filter of GAMMA")) << setting;
    }
}

TEST(LasForm, AnExportThatIsBrokenOffIsTakenBack) {
    class : public ErrorReporter {
        void report(const ErrorReport& error) override { ADD_FAILURE() << error.description; }
    } errors;
    ErrorTrap trap(errors);
    MemoryFiles files;
    files.put("out.las", "an older file");
    ReviewLog log; // some 2.5 MB of lines: three pieces
    for (int i = 0; i < 80'000; ++i) log.depth.push_back(i * 0.01);
    log.channels = {{"Speed", "M/min", true, std::vector<float>(80'000, 6)}};
    std::vector<int> percents;
    const auto stopAt = [&](int percent) {
        return [&percents, percent](int now) {
            percents.push_back(now);
            return now < percent;
        };
    };
    LasExport las(trap, files);
    EXPECT_TRUE(las.Logprintexport_exportLASfile(log, "out.las", {}, {}, stopAt(101)));
    const std::string whole = files.text("out.las");
    ASSERT_GE(percents.size(), 1U);
    EXPECT_TRUE(std::ranges::is_sorted(percents));
    percents.clear();
    EXPECT_FALSE(las.Logprintexport_exportLASfile(log, "out.las", {}, {}, stopAt(0)));
    EXPECT_EQ(percents.size(), 1U);
    EXPECT_EQ(files.text("out.las"), whole) << "what was there before comes back";
    EXPECT_GT(whole.size(), 2'000'000U);
}
