#include "screens/frm_calibrations.h"

#include "screens/equipment_of_user.h"

#include <QComboBox>
#include <QLabel>
#include <QTableWidget>

namespace tarvik::test {

namespace {

struct Workshop : Desk {
    Workshop() { program.files.remove(program.calibrations.file()); }

    void calibrate(const char* code, const char* kind, double slope) {
        ToolRecord record = blankTool();
        record.set(tool::code, code);
        record.set(tool::serialNumber, "S-1");
        Calibration made;
        made.sensorName = "Gamma";
        made.state = "Calibrated";
        made.fitName = "Linear fit";
        made.kind = kind;
        made.coefficients = {1.0 / 3, slope};
        made.pointCount = 2;
        made.points[0] = {0, 0};
        made.points[1] = {100, static_cast<float>(slope * 100)};
        program.calibrations.PolyCalibration_savecalibrationhistorydata(record, made);
    }
    frmCalibrations screen() {
        return frmCalibrations({program.calibrations, operatorSide, memory,
                                program.places.drive("C") / "kvxcalib.txt",
                                [](const CalibrationRow&) { return std::string("CPS"); }});
    }
};

} // namespace

TEST(frmCalibrations, ListsFactoryOnesBoldAndTakesTheChosenOneApart) {
    Workshop desk;
    desk.calibrate("K215", "Factory", 2);
    desk.calibrate("K215", "Field", 3);
    desk.calibrate("K230", "Field", 4);
    frmCalibrations screen = desk.screen();
    auto& table = control<QTableWidget>(screen, "calibrations");
    ASSERT_EQ(table.rowCount(), 3);
    EXPECT_EQ(control<QLabel>(screen, "lbfit").text().left(19), "Linear fit, order 1");
    EXPECT_EQ(control<QLabel>(screen, "lbcoefficients").text(), "c1 = 0.3333333333333333\nc2 = 4");
    EXPECT_EQ(control<QLabel>(screen, "lblargesterror").text(), "Largest error 0.3333 at the reading 100.");
    control<QLineEdit>(screen, "txtfiltercalibrations").setText("factory");
    int shown = 0;
    for (int row = 0; row < table.rowCount(); ++row) {
        if (table.isRowHidden(row)) continue;
        ++shown;
        EXPECT_TRUE(table.item(row, 0)->font().bold());
    }
    EXPECT_EQ(shown, 1);
    control<QLineEdit>(screen, "txtfiltercalibrations").clear();
    control<QComboBox>(screen, "lbtools").setCurrentIndex(1);
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(control<QTableWidget>(screen, "points").rowCount(), 2);
}

TEST(frmCalibrations, TheExportHoldsTheToolChosenAndItsPathIsSaid) {
    Workshop desk;
    desk.calibrate("K215", "Field", 3);
    desk.calibrate("K230", "Field", 4);
    frmCalibrations screen = desk.screen();
    control<QComboBox>(screen, "lbtools").setCurrentIndex(2);
    click(screen, "comexport");
    const Path file = desk.home / "C" / "kvxcalib.txt";
    EXPECT_EQ(desk.operatorSide.shown.back(),
              "!Calibration history: The calibrations are in " + file.string());
    const std::string text = asText(desk.program.files.read(file));
    EXPECT_NE(text.find("K230"), std::string::npos);
    EXPECT_EQ(text.find("K215"), std::string::npos);
}

TEST(frmCalibrations, AnEmptyHistorySaysHowItIsFilled) {
    Workshop desk;
    frmCalibrations screen = desk.screen();
    screen.show();
    EXPECT_FALSE(control<QTableWidget>(screen, "calibrations").isVisible());
    EXPECT_EQ(control<QLabel>(screen, "lbsummary").text().left(30), "File Version : 201  date 31-Au");
    EXPECT_FALSE(screen.grab().isNull());
}

} // namespace tarvik::test
