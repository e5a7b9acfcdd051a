// Every screen of the program, opened as the operator opens it, on the smallest display: 1280 x 800 holds as
// much as 1920 x 1080 at 150 % does but for a little height, so the display of these tests is 1280 x 720.
#include "screens/frm_buffer_overflow.h"
#include "screens/frm_curve.h"
#include "screens/frm_data_file_exists.h"
#include "screens/frm_error.h"
#include "screens/inspection.h"
#include "screens/truck.h"

#include <QListWidget>
#include <QMenu>
#include <QTest>

namespace tarvik::test {

namespace {

const QSize smallest{1280, 720};

/// All faults of a screen: on each of its pages and tabs.
std::vector<std::string> faultsOf(QWidget& screen, const QString& place) {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents(); // lists fill, texts wrap
    std::vector<std::string> found = Inspection(screen, place).faults();
    for (QTabWidget* const tabs : screen.findChildren<QTabWidget*>()) {
        for (int tab = 1; tabs->isVisible() && tab < tabs->count(); ++tab) {
            tabs->setCurrentIndex(tab);
            QCoreApplication::processEvents();
            const auto more = Inspection(screen, place + ", " + tabs->tabText(tab)).faults();
            found.insert(found.end(), more.begin(), more.end());
        }
    }
    return found;
}

void expectSound(QWidget& screen) {
    std::vector<std::string> found;
    if (auto* const pages = screen.findChild<QListWidget*>("lbpages"); pages != nullptr) {
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentRow(page);
            const auto more = faultsOf(screen, screen.objectName() + ", " + pages->item(page)->text());
            found.insert(found.end(), more.begin(), more.end());
        }
    } else {
        found = faultsOf(screen, screen.objectName());
    }
    for (const std::string& fault : found) ADD_FAILURE() << fault;
    const int titleBar = screen.isMaximized() ? 0 : 32;
    EXPECT_LE(screen.width(), smallest.width()) << screen.objectName().toStdString();
    EXPECT_LE(screen.height(), smallest.height() - titleBar) << screen.objectName().toStdString();
}

/// A screen that is shown; Escape closes it.
void expectSoundDialog(QWidget& screen) {
    expectSound(screen);
    QTest::keyClick(&screen, Qt::Key_Escape);
    EXPECT_FALSE(screen.isVisible()) << screen.objectName().toStdString() << " stays open at Escape";
    if (screen.isVisible()) static_cast<QDialog&>(screen).QDialog::done(0);
}

/// Opens what `open` opens, waits for it, and inspects it.
void inspect(const std::string& name, const std::function<void()>& open) {
    bool seen = false;
    QTimer waiting;
    QObject::connect(&waiting, &QTimer::timeout, [&] {
        QWidget* const modal = QApplication::activeModalWidget();
        if (modal == nullptr) return;
        waiting.stop();
        seen = true;
        EXPECT_EQ(modal->objectName().toStdString(), name);
        expectSoundDialog(*modal);
    });
    waiting.start(0);
    open();
    EXPECT_TRUE(seen) << name << " did not open";
}

void choose(QWidget& screen, const char* menu, const QString& entry) {
    QMenu& found = control<QMenu>(screen, menu);
    emit found.aboutToShow();
    for (QAction* const action : found.actions()) {
        if (action->text().remove('&').startsWith(entry)) return action->trigger();
    }
    FAIL() << "no entry " << entry.toStdString();
}

struct Tour : Truck {
    Tour() : Truck({.tool = "K240", .openScreens = true}) { screen().showMaximized(); }
    DesktopMemory memory{p().store};
    void open(const std::string& name, const std::string& objectName = {}) {
        inspect(objectName.empty() ? name : objectName, [&] { p().hooks.openScreen({name}); });
    }
};

} // namespace

TEST(EveryScreen, InReview) {
    Tour tour;
    expectSound(tour.screen());
    for (const char* name : {"frmSetup", "frmFile", "frmEventLog", "frmNoLCUFound", "frmExit", "frmAbout",
                             "frmReadme", "frmDemo", "frmDeviation", "frmCalibrations"})
        tour.open(name);
    tour.open("frmBatchProcessing", "frmNotBuilt");
    tour.open("frmCalibTest", "frmNotBuilt");
    tour.p().hooks.openScreen({"help"});
    expectSoundDialog(control<QDialog>(tour.screen(), "HelpWindow"));
}

TEST(EveryScreen, WithTheBoxAndARun) {
    Tour tour;
    inspect("frmEquipment", [&] { tour.acquire(); });
    expectSound(tour.screen());
    tour.open("frmDiagnostics");
    bool seen = false;
    tour.log([&] {
        if (tour.kept() < 20) return;
        if (!std::exchange(seen, true)) expectSound(tour.screen());
        tour.desktop->acquisition().stop();
    });
    EXPECT_TRUE(seen);
    expectSound(tour.screen());
    tour.p().modes.Utilities_setprogrammode("REVIEW");
    ASSERT_TRUE(tour.desktop->review().open(tour.runFile("DH-1_K240_01.kvx")));
    expectSound(tour.screen());
    tour.p().commands.toolClick("MB-Notes");
    expectSound(tour.screen());
    for (const char* name : {"frmFile", "frmDetails", "frmLASexport", "frmDemo"}) tour.open(name);
    inspect("frmPrint", [&] { choose(tour.screen(), "menuexport", "Print"); });
    inspect("frmTrack", [&] { choose(tour.screen(), "menudisplay", "Tracks and curves"); });
    frmCurve curve(tour.screen().picture().display(), 0, 0,
                   {tour.memory, [](const std::optional<LogDisplay>&) {}, {}});
    curve.show();
    expectSoundDialog(curve);
}

TEST(EveryScreen, ThatReports) {
    MemorySettingsStore store;
    DesktopMemory memory(store);
    frmERROR error(memory);
    error.keepError({}, "Monday 23-Nov-26 07:00:02",
                    {"/home/crew/C/Tarvik_RunHistory/Tarvik_Errors.txt", "no room on the disk"});
    error.showUnread();
    expectSoundDialog(error);
    frmBufferOverflow overflow(memory);
    overflow.showOverflow(std::vector<std::string>{"type 2", "   Byte values 001"}, {},
                          {.hour = 14, .minute = 3});
    expectSoundDialog(overflow);
    const LoggingRuns runs{.count = 3, .latest = 4, .latestFile = "H1_K215_04.kvx", .lastRunText = "Monday"};
    frmDataFileExists exists({.runs = runs,
                              .depthRange = "Depth range on file  1.00  to  48.75",
                              .comparison = {{"Sampling interval", "5 cm", "10 cm", false}}},
                             memory);
    exists.show();
    click(exists, "comadvanced");
    expectSoundDialog(exists);
}

} // namespace tarvik::test
