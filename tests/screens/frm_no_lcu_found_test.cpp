#include "screens/frm_no_lcu_found.h"

#include "screens/desk.h"

#include <QLabel>

namespace tarvik::test {

TEST(frmNoLCUFound, ASearchOnOtherPortsIsToldOfAndCanBeGivenUp) {
    MemorySettingsStore store;
    DesktopMemory memory(store);
    int ports = 12;
    bool cancelled = false;
    frmNoLCUFound* shown = nullptr;
    frmNoLCUFound screen(true,
                         {.search =
                              [&] {
                                  shown->reject(); // Escape while it searches
                                  return false;
                              },
                          .setUpPorts = [] {},
                          .report =
                              [] {
                                  return std::vector<PortReport>(2, {"Silent", "Look."});
                              },
                          .cancelled = [] { return false; },
                          .ports = [&] { return ports; },
                          .cancel = [&] { cancelled = true; }},
                         memory);
    shown = &screen;
    screen.show();
    ports = 34; // set up meanwhile
    EXPECT_EQ(control<QLabel>(screen, "lbheadline").text(), "No LCU answered on COM1 and COM2");
    click(screen, "comsearch");
    EXPECT_TRUE(cancelled);
    EXPECT_TRUE(screen.isVisible()) << "what was found so far is shown";
    EXPECT_EQ(control<QLabel>(screen, "lbheadline").text(), "No LCU answered on COM3 and COM4");
    EXPECT_EQ(screen.findChildren<QLabel*>("lbport").size(), 2);
    click(screen, "comclose");
    EXPECT_FALSE(screen.isVisible());
}

} // namespace tarvik::test
