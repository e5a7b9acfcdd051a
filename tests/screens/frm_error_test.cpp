#include "screens/frm_error.h"

#include "screens/desk.h"
#include "screens/qt_text.h"

#include <QLabel>
#include <QLayout>

#include <gmock/gmock.h>

namespace tarvik::test {

using testing::AllOf;
using testing::HasSubstr;

TEST(frmERROR, ErrorsWaitUntilTheyAreReadAndRepeatsAreCounted) {
    MemorySettingsStore store;
    DesktopMemory memory(store);
    frmERROR screen(memory);
    const auto text = [&](const char* name) { return plain(control<QLabel>(screen, name).text()); };
    const auto show = [&](const ErrorReport& error, const char* dateTime, const ErrorFiling& filed) {
        screen.keepError(error, dateTime, filed);
        screen.showUnread();
    };
    const ErrorReport full{"Introscreen", "LCU_SaveScan", 2, 61, "no room on the disk"};
    show(full, "Monday 23-Nov-26 07:00:02", {"/c/Tarvik_Errors.txt", {}});
    EXPECT_EQ(text("lbtimes"), "");
    show({"Introscreen", "Utilities_backup", 1, 76, "no folder " + std::string(300, 'x')},
         "Monday 23-Nov-26 07:00:09", {"/c/Tarvik_Errors.txt", {}});
    show(full, "Monday 23-Nov-26 07:00:10", {"/c/Tarvik_Errors.txt", "no room either"});
    EXPECT_EQ(text("lbwhat"), "no room on the disk") << "what is being read stays";
    EXPECT_EQ(text("lbtimes"), "Error 1 of 2, 2 times");
    EXPECT_THAT(text("lbfacts"), HasSubstr("Level : 2\nMonday 23-Nov-26 07:00:10"));
    EXPECT_THAT(text("lbfile"), AllOf(HasSubstr("could not be recorded"), HasSubstr("no room either")));
    click(screen, "comnext");
    EXPECT_THAT(text("lbwhat"), HasSubstr("no folder"));
    EXPECT_GE(screen.height(), screen.layout()->totalHeightForWidth(screen.width())) << "nothing is cut";
    click(screen, "comclose");
    show(full, "Monday 23-Nov-26 07:00:20", {"/c/Tarvik_Errors.txt", {}});
    EXPECT_EQ(text("lbtimes"), "");
}

TEST(frmERROR, ComesBeforeTheDialogThatIsOpen) {
    MemorySettingsStore store;
    DesktopMemory memory(store);
    frmERROR screen(memory);
    screen.keepError({}, "", {});
    screen.showUnread();
    EXPECT_FALSE(screen.isModal());
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    screen.showUnread();
    EXPECT_EQ(QApplication::activeModalWidget(), &screen);
}

} // namespace tarvik::test
