#include "screens/frm_details.h"

#include "files/run_details.h"
#include "screens/desk.h"
#include "screens/review_log.h"

#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTableWidget>

namespace tarvik::test {

TEST(frmDetails, ALasFileTellsWhatItsImportDid) {
    MemorySettingsStore store;
    DesktopMemory memory(store);
    ReviewLog log = gammaRun();
    log.las.emplace();
    {
        frmDetails screen(log, "H1.las", memory);
        EXPECT_EQ(control<QTabWidget>(screen, "details").tabText(4), "&Import");
    }
    log.las->findings = {"H1.las, line 12: run-on numbers, split", "H1.las: no NULL"};
    frmDetails screen(log, "H1.las", memory);
    EXPECT_EQ(control<QTabWidget>(screen, "details").tabText(4), "&Import (2)");
    EXPECT_EQ(control<QPlainTextEdit>(screen, "txtfindings").toPlainText(),
              "H1.las, line 12: run-on numbers, split\nH1.las: no NULL\n");
    click(screen, "comcopydetails");
    EXPECT_TRUE(QGuiApplication::clipboard()->text().endsWith("H1.las: no NULL\n"));
}

TEST(frmDetails, ShowsTheRunAndCopiesItAsText) {
    MemorySettingsStore store;
    DesktopMemory memory(store);
    const ReviewLog log = gammaRun();
    frmDetails screen(log, "project/H1_K201_01.kvx", memory);
    EXPECT_EQ(control<QLabel>(screen, "lbfile").text(), "H1_K201_01.kvx");
    EXPECT_EQ(control<QTabWidget>(screen, "details").count(), 4);
    auto& channels = control<QTableWidget>(screen, "channels");
    ASSERT_EQ(channels.rowCount(), 2);
    EXPECT_EQ(channels.item(0, 0)->text(), "GAMMA");
    EXPECT_EQ(channels.item(0, 2)->text(), "\u25b2 counts");
    EXPECT_EQ(channels.item(1, 3)->text(), "not calibrated"); // the speed
    EXPECT_EQ(control<QPlainTextEdit>(screen, "txtnotes").toPlainText(), "Casing to 12 m");
    click(screen, "comcopydetails");
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              runDetailsText(log, "project/H1_K201_01.kvx"));
}

} // namespace tarvik::test
