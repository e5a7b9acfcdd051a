#include "screens/desk.h"
#include "screens/field.h"
#include "screens/screen_dialog.h"

#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

namespace tarvik::test {

TEST(Form, AFieldSaysWhatIsWrongAndTheFirstWrongOneGetsTheCursor) {
    auto* const top = lineEdit("top", "5");
    auto* const bottom = lineEdit("bottom", "deep");
    QWidget form;
    Field first("Top", top, "m");
    Field second("Bottom", bottom, "m", "Leave empty for no limit.");
    first.setParent(&form);
    second.setParent(&form);
    first.setCheck(numberBetween(top, 0, 10));
    second.setCheck(numberBetween(bottom, 0, 10, true));

    EXPECT_FALSE(validateAll({&first, &second}));
    EXPECT_EQ(form.focusWidget(), bottom);
    EXPECT_EQ(bottom->accessibleDescription(), "A number from 0 to 10.");
    bottom->clear();
    EXPECT_TRUE(validateAll({&first, &second}));
    EXPECT_EQ(bottom->accessibleDescription(), "Leave empty for no limit.");
}

TEST(Form, ADialogComesBackWhereItWas) {
    MemorySettingsStore store;
    DesktopMemory memory(store);
    {
        ScreenDialog dialog("frmTest", "Test", memory);
        dialog.show();
        dialog.resize(432, 321);
        dialog.reject();
    }
    ScreenDialog again("frmTest", "Test", memory);
    again.show();
    EXPECT_EQ(again.size(), QSize(432, 321));
}

TEST(Form, TheWholeProgramRunsOnASimulatedBox) {
    Desk desk;
    desk.program.modes.Utilities_setprogrammode("ACQUIRE");
    EXPECT_EQ(desk.program.link.model, "LCU4");
    EXPECT_EQ(desk.operatorSide.shown, std::vector<std::string>{"!Tarvik: You must select a project"});
}

/// As large as any dialog gets, and twice that.
struct LargeDialog final : ScreenDialog {
    LargeDialog(DesktopMemory& memory, QSize content) : ScreenDialog("large", "Large", memory) {
        auto* const field = new QWidget;
        field->setMinimumSize(content);
        body()->addWidget(field);
        addPrimaryButton("comdo", "Do it");
        setMinimumSize(content);
    }
};

TEST(ScreenDialogTest, ABodyThatTheScreenCannotHoldScrollsAndTheButtonsStayInReach) {
    MemorySettingsStore store;
    DesktopMemory memory(store);
    const QSize room = QGuiApplication::primaryScreen()->availableGeometry().size();
    for (const bool tooLarge : {false, true}) {
        LargeDialog dialog(memory, tooLarge ? room * 2 : room / 2);
        dialog.show();
        EXPECT_TRUE(QRect(QPoint(), room).contains(QRect(QPoint(), dialog.size())));
        EXPECT_EQ(dialog.findChild<QScrollArea*>() != nullptr, tooLarge);
        const auto& button = control<QPushButton>(dialog, "comdo");
        EXPECT_TRUE(dialog.rect().contains(QRect(button.mapTo(&dialog, QPoint()), button.size())));
    }
}

} // namespace tarvik::test
