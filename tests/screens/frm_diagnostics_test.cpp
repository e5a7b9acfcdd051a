// The diagnostics screen on the whole program with a simulated box.
#include "screens/frm_diagnostics.h"

#include "program/diagnostics_modules.h"
#include "screens/desk.h"

#include <QtTest/QTest>

#include <gmock/gmock.h>

namespace tarvik::test {

namespace {

struct DiagnosticsDesk : Desk {
    explicit DiagnosticsDesk(lcusim::LcuModel model = lcusim::LcuModel::lcu4) : Desk("K215", model) {
        program.hooks.searchForLcu();
        serial.whileWaiting([this] {
            if (whileWaiting) whileWaiting();
        });
        screen.show();
    }
    [[nodiscard]] QString text(const char* label) { return control<QLabel>(screen, label).text(); }
    [[nodiscard]] QString lastStatus() {
        auto& list = control<QListWidget>(screen, "lbstatus");
        return list.item(list.count() - 1)->text().mid(10);
    }

    std::function<void()> whileWaiting;
    Path file = home.path() / "lists.txt";
    frmDiagnostics screen{diagnosticsModules(program), program.tap, program.files, memory, nullptr,
                          [this] { return file; }};
};

} // namespace

TEST(FrmDiagnostics, CommandsDepthWinchTestAndClearing) {
    DiagnosticsDesk desk;
    EXPECT_TRUE(desk.program.link.diagnosticsOpen);
    EXPECT_EQ(desk.lastStatus(), "Diagnostics mode activated");
    auto& single = control<QLineEdit>(desk.screen, "txtcommand");
    QTest::keyClicks(&single, "Q");
    QTest::keyClick(&single, Qt::Key_Return);
    EXPECT_EQ(desk.lastStatus(), "Sent status command");
    EXPECT_EQ(desk.text("lbstatusbits"), "1 0 0 1 0 0 0 1");
    EXPECT_EQ(single.text(), "");
    QTest::keyClick(&single, Qt::Key_Up);
    EXPECT_EQ(single.text(), "Q");

    QTest::keyClicks(&control<QLineEdit>(desk.screen, "txtinitdepth"), "12.34");
    click(desk.screen, "cominitdepth");
    EXPECT_EQ(desk.lastStatus(), "Depth successfully set to 12.34 metres");
    EXPECT_EQ(desk.text("lbdepth"), "12.34 m");
    auto& winch = control<QPushButton>(desk.screen, "comwinchtest");
    EXPECT_EQ(winch.text(), "RUN Winch test");
    winch.click();
    EXPECT_EQ(winch.text(), "STOP Winch test");
    winch.click();
    EXPECT_EQ(desk.lastStatus(), "Winch test stopped");
    click(desk.screen, "comreset");
    EXPECT_EQ(desk.lastStatus(), "LCU reset OK");

    control<QPlainTextEdit>(desk.screen, "txtbatch").setPlainText("X\nQ");
    click(desk.screen, "comclear");
    EXPECT_TRUE(control<QPlainTextEdit>(desk.screen, "txtbatch").toPlainText().isEmpty());
    click(desk.screen, "comclearstatus");
    EXPECT_EQ(control<QListWidget>(desk.screen, "lbstatus").count(), 1);
    EXPECT_TRUE(desk.lastStatus().endsWith("Status list cleared"));
    click(desk.screen, "cmdclose");
    EXPECT_FALSE(desk.program.link.diagnosticsOpen);
}

TEST(FrmDiagnostics, FitsASmallDisplayAndTakesKnownCommandsByKeyboard) {
    DiagnosticsDesk desk;
    EXPECT_LE(desk.screen.minimumSizeHint().width(), 853);
    EXPECT_LE(desk.screen.minimumSizeHint().height(), 480);
    auto& known = control<QTableWidget>(desk.screen, "tblcommands");
    control<QTabWidget>(desk.screen, "tabs").setCurrentIndex(3);
    known.setCurrentCell(2, 0);
    QTest::keyClick(&known, Qt::Key_Return);
    EXPECT_EQ(control<QLineEdit>(desk.screen, "txtcommand").text(), "V");
    EXPECT_FALSE(desk.engine.streaming()) << "the command waits to be sent";
}

TEST(FrmDiagnostics, AStreamIsShownSavedAndStoppedByTheButtonOrByClosing) {
    DiagnosticsDesk desk;
    control<QCheckBox>(desk.screen, "chkrawbytes").setChecked(true);
    auto& batch = control<QPlainTextEdit>(desk.screen, "txtbatch");
    batch.setPlainText("TT50\nV");
    desk.whileWaiting = [&] {
        if (desk.screen.console().scans() == 4) click(desk.screen, "comstop");
    };
    QTest::keyClick(&batch, Qt::Key_Return);
    EXPECT_FALSE(desk.engine.streaming());
    const QString data = control<QPlainTextEdit>(desk.screen, "txtdatalog").toPlainText();
    EXPECT_TRUE(data.startsWith(" Depth   Time  Chan1"));
    EXPECT_EQ(data.count('\n'), 5) << "a heading and four scans";

    click(desk.screen, "comsave");
    const std::string saved = asText(desk.program.files.read(desk.file));
    for (const char* part : {"Status list\r\n", "  Data acquisition started\r\n", "Data log\r\n",
                             " Depth   Time  ", "Raw bytes\r\n", "  >  54 54 35 30 0A"}) {
        EXPECT_THAT(saved, testing::HasSubstr(part));
    }
    click(desk.screen, "comclearlog");
    EXPECT_TRUE(control<QPlainTextEdit>(desk.screen, "txtdatalog").toPlainText().isEmpty());

    desk.whileWaiting = [&] {
        if (desk.screen.console().scans() == 4) desk.screen.reject();
    };
    click(desk.screen, "comsend");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !desk.screen.isVisible(); }));
    EXPECT_FALSE(desk.engine.streaming());
    EXPECT_FALSE(desk.program.link.diagnosticsOpen);
}

} // namespace tarvik::test
