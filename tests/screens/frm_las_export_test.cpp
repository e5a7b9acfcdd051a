#include "screens/frm_las_export.h"

#include "screens/desk.h"
#include "screens/review_log.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTableWidget>

namespace tarvik::test {

namespace {

struct Exporter : Desk {
    explicit Exporter(ReviewLog run = gammaRun()) : log(std::move(run)) {}

    LasScreenModules modules() {
        return {program.lasExport,
                program.files,
                operatorSide,
                program.log,
                memory,
                [this](QWidget*, const QString&) { return QString::fromStdString(chosen.string()); }};
    }
    std::string written() { return asText(program.files.read(home / "out.las")); }
    QStringList list() {
        QStringList lines;
        auto& widget = control<QListWidget>(screen, "lbexport");
        for (int i = 0; i < widget.count(); ++i) lines.append(widget.item(i)->text());
        return lines;
    }
    void setChecked(int row, bool on) {
        static_cast<QCheckBox*>(control<QTableWidget>(screen, "channels").cellWidget(row, 0))->setChecked(on);
    }
    QComboBox& filterOf(int row) {
        return static_cast<QComboBox&>(*control<QTableWidget>(screen, "channels").cellWidget(row, 3));
    }

    ReviewLog log;
    Path chosen = home / "out.las";
    frmLASexport screen{log, home / "H1_K201_01.kvx", {}, modules()};
};

} // namespace

TEST(frmLASexport, WritesWhatTheFormAsksFor) {
    Exporter desk;
    EXPECT_EQ(control<QLineEdit>(desk.screen, "txtfile").text().toStdString(),
              (desk.home / "H1_K201_01.las").string());
    click(desk.screen, "combrowse");
    control<QLineEdit>(desk.screen, "txtstart").setText("1");
    control<QLineEdit>(desk.screen, "txtstop").setText("2");
    control<QLineEdit>(desk.screen, "txtstep").setText("0.125");
    control<QLineEdit>(desk.screen, "txtazimuth").setText("12.5");
    control<QComboBox>(desk.screen, "lbdecimals").setCurrentIndex(1);
    desk.setChecked(0, false); // Speed
    desk.setChecked(3, true);  // Current
    desk.filterOf(1).setCurrentText("3");
    click(desk.screen, "comexport");
    const std::string text = desk.written();
    EXPECT_NE(text.find("~A     Depth       GAMMA     Current\r\n        1.00      10.000      48.000\r\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("GAMMA - 3 pt"), std::string::npos);
    EXPECT_NE(text.find("HOLEAZIM.DEG        12.5"), std::string::npos);
    const QStringList list = desk.list();
    EXPECT_TRUE(list.contains("Interpolate..."));
    EXPECT_TRUE(list.contains("Warning: the step 0.125 is no multiple of 0.01, depths are rounded"));
    EXPECT_EQ(list.back().toStdString(), "Written: " + (desk.home / "out.las").string());
}

TEST(frmLASexport, AWrongFieldOrNoChannelStopsItBeforeAnythingIsWritten) {
    Exporter desk;
    click(desk.screen, "combrowse");
    control<QLineEdit>(desk.screen, "txtstep").setText("0");
    click(desk.screen, "comexport");
    control<QLineEdit>(desk.screen, "txtstep").clear();
    desk.filterOf(1).setCurrentText("wide");
    click(desk.screen, "comexport");
    EXPECT_NE(control<QLabel>(desk.screen, "lbchannelsproblem").text().indexOf("\"wide\""), -1);
    desk.setChecked(0, false);
    desk.setChecked(1, false);
    click(desk.screen, "comexport");
    EXPECT_EQ(control<QLabel>(desk.screen, "lbchannelsproblem").text(), "Choose at least one channel.");
    EXPECT_FALSE(desk.program.files.exists(desk.chosen));
}

TEST(frmLASexport, AnExistingFileIsWrittenOverOnlyWhenAllowed) {
    Exporter desk;
    desk.program.files.replace(desk.chosen, asBytes("older"));
    click(desk.screen, "combrowse");
    desk.operatorSide.answer = Answer::no;
    click(desk.screen, "comexport");
    EXPECT_EQ(desk.written(), "older");
    desk.operatorSide.answer = Answer::yes;
    click(desk.screen, "comexport");
    EXPECT_NE(desk.written(), "older");
}

TEST(frmLASexport, CancellingALongExportLeavesNoFileAndTheDialogOpen) {
    ReviewLog log = gammaRun();
    log.time.clear();
    log.current.values.clear();
    log.depth.clear();
    for (int i = 0; i < 80'000; ++i) log.depth.push_back(i * 0.01);
    for (ReviewChannel& channel : log.channels) channel.values.assign(log.steps(), 1);
    Exporter desk(std::move(log));
    desk.screen.show();
    click(desk.screen, "combrowse");
    bool pressed = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto& button = control<QPushButton>(desk.screen, "comclose");
        if (pressed || button.text() != "Cancel export") return;
        pressed = true;
        button.click();
    });
    poll.start(0);
    click(desk.screen, "comexport");
    EXPECT_TRUE(pressed);
    EXPECT_EQ(desk.list().back(), "Cancelled: nothing was written");
    EXPECT_FALSE(desk.program.files.exists(desk.chosen));
    EXPECT_TRUE(desk.screen.isVisible());
    EXPECT_EQ(control<QPushButton>(desk.screen, "comclose").text(), "Close");
}

} // namespace tarvik::test
