#include "screens/frm_equipment.h"

#include "screens/equipment_of_user.h"

#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QTableWidget>

namespace tarvik::test {

namespace {

struct EquipmentScreen : Desk {
    EquipmentScreen() {
        ownTool(program, "K215", "S-1");
        ownTool(program, "K417", "D-1");
        program.equipment.ToolWinchData_adduserwinch(1, "W-1");
        Settings& settings = program.settings;
        settings.currentProject = "Northern";
        settings.hole.holeId = "DH-1";
        settings.currentTool = "K215";
        settings.currentWinch = program.equipment.ToolWinchData_loaduserwinchlist().rows.front().code;
    }
    EquipmentModules modules() {
        return {program.settings, program.storedSettings, program.equipment,
                program.files,    program.runReader,      program.places,
                memory,           [this] { ++opened; },   [this] { program.settings.declination = 7.5; }};
    }
    int opened = 0;
};

std::string label(QWidget& screen, const char* name) {
    return control<QLabel>(screen, name).text().toStdString();
}

} // namespace

TEST(frmEquipment, WhatTheSetUpSavedIsNewerThanWhatStandsHere) {
    EquipmentScreen desk;
    EquipmentModules modules = desk.modules();
    modules.addTool = [&] {
        desk.program.settings.currentTool = "K417";
        desk.program.settings.currentToolSerial = "D-1";
        desk.program.settings.samplingMethod = "DEPTH";
        desk.program.settings.samplingInterval = NumberText("7");
    };
    frmEquipment screen(modules);
    click(screen, "opttime");
    click(screen, "comaddtool");
    EXPECT_TRUE(control<QRadioButton>(screen, "optdepth").isChecked());
    EXPECT_EQ(control<QLineEdit>(screen, "txtsamplinginterval").text(), "7");
    EXPECT_TRUE(control<QComboBox>(screen, "lbtool").currentText().startsWith("K417"));
    click(screen, "optup");
    click(screen, "comaddtool"); // nothing new: the choice made here stays
    EXPECT_TRUE(control<QRadioButton>(screen, "optup").isChecked());
}

TEST(frmEquipment, UsingItStoresTheChoiceAndLoadsTheRecords) {
    EquipmentScreen desk;
    frmEquipment screen(desk.modules());
    EXPECT_EQ(label(screen, "lbruns"), "The tool has not been run in this hole yet.");
    control<QComboBox>(screen, "lbtool").setCurrentIndex(2); // K417
    click(screen, "optdepth");
    click(screen, "optup");
    click(screen, "optfeet");
    auto& interval = control<QLineEdit>(screen, "txtsamplinginterval");
    click(screen, "comuseequipment"); // half a second is no centimetre
    EXPECT_EQ(screen.result(), QDialog::Rejected);
    EXPECT_EQ(interval.accessibleDescription(), "A number from 1 to 99 centimetres of cable.");
    interval.setText("5");
    click(screen, "comuseequipment");
    EXPECT_EQ(screen.result(), QDialog::Accepted);

    const Settings stored = desk.program.storedSettings.Utilities_loadregsettings();
    EXPECT_EQ(stored.currentTool, "K417");
    EXPECT_EQ(stored.currentToolSerial, "D-1");
    EXPECT_EQ(stored.samplingMethod, "DEPTH");
    EXPECT_EQ(stored.samplingInterval.text(), "5");
    EXPECT_EQ(stored.logDirection, "UP");
    EXPECT_EQ(stored.depthUnits, "Feet  ");
    EXPECT_EQ(desk.program.equipment.currentTool().record.get(tool::code), "K417");
    EXPECT_FALSE(desk.program.equipment.currentWinch().record.get(winch::code).empty());
}

TEST(frmEquipment, CancellingLeavesSettingsAndToolAlone) {
    EquipmentScreen desk;
    frmEquipment screen(desk.modules());
    control<QComboBox>(screen, "lbtool").setCurrentIndex(2);
    click(screen, "optup");
    click(screen, "comcancel");
    EXPECT_EQ(desk.program.settings.currentTool, "K215");
    EXPECT_EQ(desk.program.settings.logDirection, "DOWN");
    EXPECT_EQ(desk.program.equipment.currentTool().record.get(tool::code), "");
}

TEST(frmEquipment, AToolComesBackInItsModeAlsoAfterARestart) {
    EquipmentScreen desk;
    {
        frmEquipment screen(desk.modules());
        click(screen, "optmode2");
        click(screen, "comuseequipment");
    }
    desk.program.equipment.ToolWinchData_loadcurrentttoolwinch({}, {}, 1); // as a start leaves it
    frmEquipment screen(desk.modules());
    EXPECT_TRUE(control<QRadioButton>(screen, "optmode2").isChecked());
    control<QComboBox>(screen, "lbtool").setCurrentIndex(2);
    EXPECT_TRUE(control<QRadioButton>(screen, "optmode1").isChecked()) << "each tool has its own";
    control<QComboBox>(screen, "lbtool").setCurrentIndex(1);
    EXPECT_TRUE(control<QRadioButton>(screen, "optmode2").isChecked());
}

TEST(frmEquipment, ChannelsSayWhetherTheyAreCalibrated) {
    EquipmentScreen desk;
    CurrentTool tool = desk.program.equipment.userTool({"K215", ""}, 1);
    Calibration made;
    made.sensorName = tool.record.get(tool::channelName(1, 1));
    made.state = "Calibrated";
    made.calibratedBy = "A. Smith";
    made.kind = "Field";
    desk.program.calibrations.PolyCalibration_savecalibrationhistorydata(tool.record, made);
    frmEquipment screen(desk.modules());
    auto& channels = control<QTableWidget>(screen, "channels");
    ASSERT_EQ(channels.rowCount(), tool.channels());
    EXPECT_NE(channels.item(0, 3)->text().indexOf("by A. Smith, Field"), -1);
    EXPECT_FALSE(label(screen, "lbchannelsverdict").empty());
    EXPECT_TRUE(control<QWidget>(screen, "comdeviation").parentWidget()->isHidden());
}

TEST(frmEquipment, TheDeviationToolShowsItsDeclinationAndAddingATool) {
    EquipmentScreen desk;
    desk.program.settings.currentTool = "K417";
    frmEquipment screen(desk.modules());
    EXPECT_FALSE(control<QWidget>(screen, "comdeviation").parentWidget()->isHidden());
    click(screen, "comdeviation");
    EXPECT_EQ(label(screen, "lbdeclination"), "Magnetic declination 7.5\xC2\xB0");
    ownTool(desk.program, "K215", "S-2");
    click(screen, "comaddtool");
    EXPECT_EQ(desk.opened, 1);
    EXPECT_EQ(control<QComboBox>(screen, "lbtool").count(), 4);
    EXPECT_EQ(control<QComboBox>(screen, "lbtool").currentIndex(), 2) << "what was chosen stays chosen";
    control<QComboBox>(screen, "lbtool").setCurrentIndex(0);
    click(screen, "comuseequipment");
    EXPECT_EQ(screen.result(), QDialog::Rejected) << "without a tool there is nothing to use";
}

} // namespace tarvik::test
