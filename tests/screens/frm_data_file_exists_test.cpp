#include "screens/frm_data_file_exists.h"

#include "screens/desk.h"

#include <QLabel>
#include <QRadioButton>
#include <QTableWidget>

namespace tarvik::test {

namespace {

struct Question {
    MemorySettingsStore store;
    DesktopMemory memory{store};
    LoggingRuns runs{.count = 3, .latest = 4, .latestFile = "H1_K215_04.kvx", .lastRunText = "Monday"};
    std::vector<AppendRow> rows{{"Depth units", "Metres", "Metres", true},
                                {"Sampling interval", "5 cm", "10 cm", false}};
    frmDataFileExists screen{
        {.runs = runs, .depthRange = "Depth range on file  1.00  to  48.75", .comparison = rows}, memory};
};

} // namespace

TEST(frmDataFileExists, TheChoiceIsTheOperatorsAndClosingIsCancel) {
    Question question;
    EXPECT_EQ(question.screen.choice(), RunChoice::cancel);
    EXPECT_EQ(control<QLabel>(question.screen, "lbruns").text(), "Tool has 3 runs so far, last run Monday");
    EXPECT_EQ(control<QLabel>(question.screen, "lbdepthrange").text(),
              "Depth range on file  1.00  to  48.75");
    auto& go = control<QPushButton>(question.screen, "comcontinue");
    EXPECT_EQ(go.text(), "Start new run");
    click(question.screen, "optappend");
    EXPECT_EQ(go.text(), "Append to run");
    go.click();
    EXPECT_EQ(question.screen.choice(), RunChoice::append);
    click(question.screen, "optnewrun");
    EXPECT_EQ(question.screen.choice(), RunChoice::newRun);
    click(question.screen, "comcancel");
    EXPECT_EQ(question.screen.choice(), RunChoice::cancel);
}

TEST(frmDataFileExists, TheAdvancedOptionsShowWhatDiffers) {
    Question question;
    auto& button = control<QPushButton>(question.screen, "comadvanced");
    auto& table = control<QTableWidget>(question.screen, "appendchecks");
    EXPECT_EQ(control<QLabel>(question.screen, "lbverdict").text(),
              "\u25b2  An append would be refused, because of: Sampling interval.");
    EXPECT_EQ(button.text(), "Show advanced append options  >>");
    question.screen.show();
    EXPECT_FALSE(table.isVisible());
    button.click();
    EXPECT_TRUE(table.isVisible());
    EXPECT_EQ(button.text(), "Hide advanced append options  <<");
    ASSERT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.item(0, 1)->text(), "\u2713 agrees");
    EXPECT_EQ(table.item(1, 1)->text(), "\u2716 differs");
    button.click();
    EXPECT_FALSE(table.isVisible());
}

} // namespace tarvik::test
