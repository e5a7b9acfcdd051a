#include "screens/run_list.h"

#include "files/run_header_codec.h"
#include "platform/memory_files.h"
#include "platform/settings_store.h"
#include "screens/desk.h"

#include <QTableWidget>

#include <gtest/gtest.h>

using namespace tarvik;
using namespace tarvik::test;

TEST(RunListTest, TheNewestRunIsOnTopAndChosen) {
    MemoryFiles files;
    std::vector<Path> runs;
    const auto put = [&](const char* name, const char* date, const char* time) {
        RunHeader header;
        header.runDate = date;
        header.startTime = time;
        header.channels.push_back(speedChannel(header.setup.units));
        runs.emplace_back(name);
        files.put(runs.back(), asText(encodeRunHeader(header)));
    };
    put("a.kvx", "01-Dec-2026", "12:05 am");
    put("b.kvx", "30-Nov-2026", "12:30 pm");
    put("c.kvx", "30-Nov-2026", "09:59 am");
    put("d.kvx", "01-Dec-2026", "01:15 am");
    runs.emplace_back("e.kvx");
    files.put("e.kvx", "no run");
    MemorySettingsStore store;
    DesktopMemory memory(store);
    bool any = false;
    RunList list(files, runs, memory, "frmFile",
                 {.selected = [&any](bool is) { any = is; }, .chosen = [] {}});
    list.show();
    auto& table = control<QTableWidget>(list, "lbruns");
    for (int i = 0; i < 1000 && !table.isSortingEnabled(); ++i) QCoreApplication::processEvents();
    QString order;
    for (int row = 0; row < table.rowCount(); ++row) order += table.item(row, 0)->text().first(1);
    EXPECT_EQ(order, "dabce");
    EXPECT_TRUE(any);
    EXPECT_EQ(list.selected(), Path("d.kvx"));
}
