#include "screens/frm_buffer_overflow.h"

#include "screens/desk.h"

#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>

namespace tarvik::test {

TEST(frmBufferOverflow, AFurtherOneReplacesTheTextAndIsCounted) {
    MemorySettingsStore store;
    DesktopMemory memory(store);
    frmBufferOverflow screen(memory);
    const std::vector<std::string> first{"type 2", "   Byte values 001"};
    const std::vector<std::string> later{"type 1"};
    screen.showOverflow(first, {}, {.hour = 14, .minute = 3});
    EXPECT_TRUE(screen.isVisible());
    EXPECT_FALSE(screen.isModal());
    auto& text = control<QPlainTextEdit>(screen, "txtoverflow");
    EXPECT_EQ(text.toPlainText(), "type 2\n   Byte values 001");
    click(screen, "comcopyoverflow");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text.toPlainText());

    screen.showOverflow(later, {}, {.hour = 14, .minute = 5});
    screen.showOverflow(later, {}, {.hour = 14, .minute = 9});
    EXPECT_EQ(text.toPlainText(), "type 1");
    EXPECT_EQ(control<QLabel>(screen, "lboverflowcount").text(),
              "\u25b2  Buffer overflow 3 times since 14:03");
    click(screen, "comcloseoverflow");
    screen.showOverflow(later, {}, {.hour = 15, .minute = 1});
    EXPECT_EQ(control<QLabel>(screen, "lboverflowcount").text(), "\u25b2  Buffer overflow at 15:01");
}

} // namespace tarvik::test
