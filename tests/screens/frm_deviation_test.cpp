#include "screens/frm_deviation.h"

#include "screens/desk.h"

#include <QLabel>
#include <QRadioButton>
#include <QTest>

namespace tarvik::test {

TEST(frmDeviation, TheDeclinationIsStoredAndItsMeaningSaid) {
    Desk desk;
    frmDeviation screen(desk.program.settings, desk.program.storedSettings, desk.memory);
    EXPECT_TRUE(control<QRadioButton>(screen, "optmagneticnorth").isChecked());
    EXPECT_FALSE(control<QLineEdit>(screen, "txtdeclination").isEnabled());
    click(screen, "opttruenorth");
    auto& edit = control<QLineEdit>(screen, "txtdeclination");
    edit.setText("400");
    click(screen, "comsavedeviation");
    EXPECT_EQ(screen.result(), QDialog::Rejected);
    edit.setText("12.5");
    EXPECT_NE(control<QLabel>(screen, "lbmeaning").text().indexOf("stored with 102.5"), -1);
    EXPECT_NE(control<QLabel>(screen, "lblostazimuths").text().indexOf("from 347.5"), -1);
    click(screen, "comsavedeviation");
    EXPECT_EQ(screen.result(), QDialog::Accepted);
    EXPECT_EQ(desk.program.store.get("Deviation", "Declination").value_or(""), "12.5");
}

TEST(frmDeviation, ReturnPressesTheButtonThatHasTheFocus) {
    Desk desk;
    frmDeviation screen(desk.program.settings, desk.program.storedSettings, desk.memory);
    screen.show();
    click(screen, "opttruenorth");
    control<QLineEdit>(screen, "txtdeclination").setText("12.5");
    control<QPushButton>(screen, "comcancel").setFocus();
    QTest::keyClick(&screen, Qt::Key_Return);
    EXPECT_FALSE(screen.isVisible());
    EXPECT_NE(desk.program.settings.declination.text(), "12.5");
}

TEST(frmDeviation, RemembersWhoseNorthAndMagneticNorthIsZero) {
    Desk desk;
    {
        frmDeviation screen(desk.program.settings, desk.program.storedSettings, desk.memory);
        click(screen, "optusernorth");
        control<QLineEdit>(screen, "txtdeclination").setText("-3");
        click(screen, "comsavedeviation");
    }
    frmDeviation again(desk.program.settings, desk.program.storedSettings, desk.memory);
    EXPECT_TRUE(control<QRadioButton>(again, "optusernorth").isChecked());
    EXPECT_EQ(control<QLineEdit>(again, "txtdeclination").text(), "-3");
    click(again, "optmagneticnorth");
    click(again, "comsavedeviation");
    EXPECT_EQ(desk.program.settings.declination.value(), 0);
}

} // namespace tarvik::test
