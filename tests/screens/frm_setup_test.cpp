#include "screens/frm_setup.h"

#include "app/machine_map.h"
#include "files/run_header_codec.h"
#include "screens/desk.h"
#include "screens/field.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

#include <filesystem>

namespace tarvik::test {

namespace {

struct Setup : testing::Test {
    Setup() { open(); }

    SetupModules modules() {
        Program& p = desk.program;
        return {.errors = p.errors,
                .settings = p.settings,
                .storedSettings = p.storedSettings,
                .store = p.store,
                .places = p.places,
                .files = p.files,
                .equipment = p.equipment,
                .lcu = p.lcu,
                .link = p.link,
                .log = p.log,
                .operatorSide = desk.operatorSide,
                .memory = desk.memory,
                .pageChanged = [this](int page) { lastPage = page; },
                .portsChanged = [this] { ++portChanges; },
                .serialDevices = [] { return std::vector<std::filesystem::path>{"/dev/ttyUSB0"}; },
                .chooseFolder = [this](QWidget*, const QString&) { return chosenFolder; }};
    }

    int portChanges = 0;
    void open() { screen = std::make_unique<frmSetup>(modules()); }
    Settings stored() { return desk.program.storedSettings.Utilities_loadregsettings(); }
    Settings& settings() { return desk.program.settings; }
    QLineEdit& edit(const char* name) { return control<QLineEdit>(*screen, name); }
    QTableWidget& table(const char* name) { return control<QTableWidget>(*screen, name); }
    void press(const char* name) { click(*screen, name); }
    /// Chooses the row whose first column reads `text`.
    void choose(const char* name, const QString& text) {
        for (QTableWidgetItem* item : table(name).findItems(text, Qt::MatchExactly)) {
            if (item->column() == 0) table(name).selectRow(item->row());
        }
    }
    Path folder(const std::string& project) { return desk.program.places.projectsFolder("C") / project; }
    void addTool(const QString& code, const QString& serial) {
        choose("paramtoollist", code);
        edit("toolserialnumber").setText(serial);
        press("comaddtool");
    }

    Desk desk;
    int lastPage = -1;
    QString chosenFolder;
    std::unique_ptr<frmSetup> screen;
};

TEST_F(Setup, AProjectIsMadeInTwoClicksAndKeptWhenThePageIsLeft) {
    edit("txtnewproject").setText("a/b");
    press("comnewproject");
    EXPECT_EQ(edit("txtnewproject").accessibleDescription(),
              R"(A name cannot hold any of / \ : * ? " < > |)");
    screen->show();
    edit("txtnewproject").setText("North");
    QTest::keyClick(&edit("txtnewproject"), Qt::Key_Return);
    EXPECT_TRUE(screen->isVisible()) << "Enter creates while there is a name to create";
    EXPECT_TRUE(desk.program.files.exists(folder("North")));
    EXPECT_EQ(control<QLabel>(*screen, "lbprojectfolder").text().toStdString(), folder("North").string());

    screen->selectPage(1, 1);
    EXPECT_EQ(lastPage, 1);
    EXPECT_EQ(stored().currentProject, "North");
    EXPECT_EQ(control<QTabWidget>(*screen, "lbholetabs").currentIndex(), 1);
    screen->selectPage(0);
    EXPECT_EQ(control<QPushButton>(*screen, "comrecent").text(), "North");
}

TEST_F(Setup, APageWithSomethingWrongIsNotLeft) {
    screen->selectPage(1, 0);
    edit("txtholeid").setText("BH/7");
    screen->selectPage(2);
    EXPECT_EQ(screen->page(), 1);
    EXPECT_EQ(control<QListWidget>(*screen, "lbpages").currentRow(), 1);
    EXPECT_EQ(edit("txtholeid").accessibleDescription(), R"(A name cannot hold any of / \ : * ? " < > |)");
    press("comsave");
    EXPECT_EQ(stored().hole.holeId, " ");
    edit("txtholeid").setText(" BH 7 ");
    press("comsave");
    EXPECT_EQ(stored().hole.holeId, "BH 7");
    EXPECT_EQ(stored().hole.company, " ");
}

TEST_F(Setup, AHoleThatWasLoggedBringsItsDetails) {
    RunHeader header;
    header.channels.resize(1);
    header.channels.front().name = "Speed";
    header.hole = blankHole();
    header.hole.company = "Acme";
    header.hole.fluidLevel = "12";
    settings().currentProject = "North";
    desk.program.files.createFolder(folder("North"));
    desk.program.files.replace(folder("North") / "BH_1_K215_01.kvx", encodeRunHeader(header));

    screen->selectPage(1, 0);
    edit("txtarea").setText("typed");
    choose("lbholes", "BH_1");
    EXPECT_EQ(edit("txtholeid").text(), "BH_1");
    EXPECT_EQ(edit("txtfluidlevel").text(), "12");
    press("comundo");
    EXPECT_EQ(edit("txtarea").text(), "typed");
    EXPECT_EQ(edit("txtcompany").text(), "");
    choose("lbholes", "BH_1");
    press("comnewhole");
    EXPECT_EQ(edit("txtholeid").text(), "");
    EXPECT_EQ(edit("txtfluidlevel").text(), "");
    EXPECT_EQ(edit("txtcompany").text(), "Acme");
}

TEST_F(Setup, CancelPutsTheSettingsBack) {
    settings().currentProject = "North";
    desk.program.files.createFolder(folder("North"));
    open();
    screen->selectPage(1);
    edit("txtcompany").setText("Acme");
    screen->selectPage(4);
    EXPECT_EQ(stored().hole.company, "Acme");
    press("optdark");
    EXPECT_EQ(desk.memory.theme(), Theme::dark);
    press("comcancel");
    EXPECT_EQ(stored().hole.company, " ");
    EXPECT_EQ(desk.memory.theme(), Theme::light);
    EXPECT_EQ(appliedTheme(), Theme::light);
}

TEST_F(Setup, ASerialNumberThatWasTypedIsAddedByEnterAndNotLost) {
    screen->selectPage(2, 1);
    screen->show();
    QTest::keyClicks(&edit("toolserialnumber"), "A-7");
    QTest::keyClick(&edit("toolserialnumber"), Qt::Key_Return); // no model is chosen
    EXPECT_TRUE(screen->isVisible());
    press("comsave");
    EXPECT_TRUE(screen->isVisible());
    EXPECT_EQ(edit("toolserialnumber").accessibleDescription(),
              "Choose a model in the list, or clear the serial number.");
    choose("paramtoollist", "K215");
    edit("toolserialnumber").setText("\u03A9-7");
    press("comaddtool");
    EXPECT_EQ(edit("toolserialnumber").accessibleDescription(),
              "A letter here cannot be kept in the file of your equipment.");
    edit("toolserialnumber").setText("A-7");
    QTest::keyClick(&edit("toolserialnumber"), Qt::Key_Return);
    EXPECT_EQ(desk.program.equipment.ToolWinchData_loadusertoollist().rows.size(), 1U);
    EXPECT_TRUE(screen->isVisible());
    QTest::keyClick(&edit("toolserialnumber"), Qt::Key_Return); // nothing left to add
    EXPECT_FALSE(screen->isVisible());
}

TEST_F(Setup, ToolsAndWinchesAreAddedRemovedAndTakenBack) {
    screen->selectPage(2, 1);
    addTool("K215", "77");
    addTool("K417", "77");
    EXPECT_EQ(edit("toolserialnumber").accessibleDescription(),
              "One of your tools or winches has this serial number already.");
    const Path users = desk.home / "program" / "UserTools-Winches.dat"; // for a moment it cannot be read
    std::filesystem::rename(users, users.string() + ".away");
    std::filesystem::create_directory(users);
    addTool("K417", "78");
    EXPECT_EQ(edit("toolserialnumber").accessibleDescription(),
              "The file of your equipment cannot be read, so nothing can be added to it.");
    std::filesystem::remove(users);
    std::filesystem::rename(users.string() + ".away", users);
    edit("toolserialnumber").clear();
    choose("paramwinchlist", "W110");
    edit("winchserialnumber").setText("W-1");
    press("comaddwinch");
    auto& equipment = desk.program.equipment;
    ASSERT_EQ(equipment.ToolWinchData_loadusertoollist().rows.size(), 1U);
    EXPECT_EQ(equipment.ToolWinchData_loadbrennatoollist().countMessage.substr(0, 37),
              "User currently has only 1 tool select");

    desk.operatorSide.answer = Answer::no;
    choose("usertoollist", "K215");
    press("comremovetool");
    EXPECT_EQ(equipment.ToolWinchData_loadusertoollist().rows.size(), 1U);
    desk.operatorSide.answer = Answer::yes;
    press("comremovetool");
    EXPECT_TRUE(equipment.ToolWinchData_loadusertoollist().rows.empty());
    press("comundotool");
    EXPECT_EQ(equipment.ToolWinchData_loadusertoollist().rows.at(0).serialNumber, "77");

    control<QComboBox>(*screen, "lbcurrenttool").setCurrentIndex(1);
    control<QComboBox>(*screen, "lbcurrentwinchlist").setCurrentIndex(1);
    press("comsave");
    EXPECT_EQ(stored().currentTool, "K215");
    EXPECT_EQ(stored().currentWinchSerial, "W-1");
    EXPECT_EQ(equipment.currentTool().record.get(tool::serialNumber), "77");
    EXPECT_EQ(control<QLabel>(*screen, "lbcurrentwinch").text().left(16), "Current winch : ");

    addTool("K240", "78");
    choose("usertoollist", "K215");
    equipment.ToolWinchData_removeusertool(1); // by another program, behind the list
    press("comremovetool");
    ASSERT_EQ(equipment.ToolWinchData_loadusertoollist().rows.size(), 1U) << "not the one that moved up";
    EXPECT_EQ(equipment.ToolWinchData_loadusertoollist().rows[0].code, "K240");
}

TEST_F(Setup, TheIntervalFollowsMethodAndUnit) {
    screen->selectPage(2, 0);
    auto& interval = edit("txtsamplinginterval");
    press("optdepth");
    EXPECT_EQ(interval.accessibleDescription(), "A number from 1 to 99 centimetres of cable.");
    interval.setText("5");
    press("optfeet");
    EXPECT_EQ(interval.accessibleDescription(), "Counts cable: 5 cm (0.164 ft).");
    press("optup");
    press("comsave");
    EXPECT_EQ(stored().samplingMethod, "DEPTH");
    EXPECT_EQ(stored().samplingInterval.text(), "5");
    EXPECT_EQ(stored().depthUnits, "Feet  ");
    EXPECT_EQ(stored().logDirection, "UP");
    EXPECT_EQ(stored().winchScaleFactor.text(), "1.0");
}

TEST_F(Setup, LogInchesHoldsForTheSessionOnly) {
    screen->selectPage(4);
    press("optloginches");
    press("comsave");
    EXPECT_EQ(settings().logInches, 0);
    EXPECT_EQ(stored().logInches, 1);
}

TEST_F(Setup, TheBoxIsAskedOnlyWhenItCanAnswer) {
    screen->selectPage(5, 0);
    EXPECT_FALSE(control<QPushButton>(*screen, "comstatus").isEnabled());
    ASSERT_EQ(desk.program.search.LCU_Locate(12), SearchResult::found);
    screen->selectPage(6);
    screen->selectPage(5);
    press("comstatus");
    auto& result = control<QLabel>(*screen, "lbstatusresult");
    EXPECT_EQ(result.text(), "The LCU answers and reports no error.");
    EXPECT_EQ(control<QLabel>(*screen, "lblinkport").text(), "COM1");
    desk.program.link.busy = true;
    press("comstatus");
    EXPECT_EQ(result.text(), "The LCU is busy with another command. Wait a moment and try again.");
    desk.program.link.busy = false;
    desk.serial.failNext("ComStatus", 0, 100);
    press("comstatus");
    EXPECT_EQ(result.text(), "The LCU does not answer. Check its power, the cable and the port.");
}

TEST_F(Setup, FirmwareIsReadFromBoxAndTool) {
    ASSERT_EQ(desk.program.search.LCU_Locate(12), SearchResult::found);
    screen->selectPage(6);
    press("comreadfirmware");
    EXPECT_EQ(control<QLabel>(*screen, "lblcufirmware").text().toStdString(), desk.program.link.firmware);
    EXPECT_NE(control<QLabel>(*screen, "lbtoolfirmware").text(), "not read yet");
}

TEST_F(Setup, PortsAndDrivesAreCheckedAndKept) {
    screen->selectPage(5, 1);
    press("optcom34");
    auto& com2 = control<QComboBox>(*screen, "lbcom2");
    com2.setEditText("ttyUSB0");
    press("comsave");
    EXPECT_EQ(stored().lcuComms, 12);
    com2.setEditText("/dev/ttyUSB7");
    chosenFolder = QString::fromStdString((desk.home.path() / "data").string());
    desk.program.files.createFolder(desk.home.path() / "data");
    press("combrowse");
    press("comsetdrive");
    press("comsave");
    EXPECT_EQ(stored().lcuComms, 34);
    const MachineMap map = loadMachineMap(desk.program.store);
    EXPECT_EQ(map.ports[1], "/dev/ttyUSB7");
    EXPECT_EQ(portChanges, 1) << "the next search tries the new device";
    EXPECT_EQ(map.drives.at('D'), chosenFolder.toStdString());
    EXPECT_EQ(desk.program.places.drive("D"), desk.home.path() / "data");
}

} // namespace

} // namespace tarvik::test
