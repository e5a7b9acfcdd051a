#include "app/command_table.h"
#include "screens/command_looks.h"
#include "screens/icons.h"
#include "screens/qt_text.h"
#include "screens/theme.h"

#include <QApplication>
#include <QIcon>
#include <QImage>
#include <QKeySequence>

#include <algorithm>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace tarvik::test {

TEST(CommandLooks, EveryCommandHasALookAndNoKeyIsClaimedTwice) {
    std::vector<std::string_view> keys = CommandTable::commandKeys();
    std::vector<std::string_view> looks;
    std::set<std::string_view> shortcuts;
    std::set<std::string> mnemonics;
    for (const CommandLook& look : commandLooks()) {
        looks.push_back(look.key);
        EXPECT_FALSE(icon(qt(look.icon)).isNull()) << look.icon;
        EXPECT_FALSE(look.tip.empty()) << look.key;
        if (!look.shortcut.empty()) {
            EXPECT_TRUE(shortcuts.insert(look.shortcut).second) << look.shortcut;
            EXPECT_FALSE(QKeySequence(qt(look.shortcut)).isEmpty()) << look.shortcut;
        }
        const auto mark = look.caption.find('&');
        EXPECT_EQ(mark != std::string_view::npos, look.place != CommandPlace::toolBar) << look.key;
        if (mark == std::string_view::npos) continue;
        const QChar letter = qt(look.caption).at(static_cast<qsizetype>(mark) + 1).toLower();
        EXPECT_TRUE(mnemonics.insert(std::string(menuKey(look.place)) + plain(QString(letter))).second)
            << look.caption;
    }
    std::ranges::sort(keys);
    std::ranges::sort(looks);
    EXPECT_EQ(looks, keys);
    EXPECT_FALSE(icon(qt(searchOffIcon)).isNull());
}

/// The colour that a line of the picture is drawn in.
QColor inkOf(const QIcon& icon, QIcon::Mode mode) {
    const QImage drawn = icon.pixmap(24, mode).toImage();
    QColor ink = Qt::transparent;
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            const QColor here = drawn.pixelColor(x, y);
            if (here.alpha() > ink.alpha()) ink = here;
        }
    }
    return ink;
}

TEST(Icons, WhatCannotBeUsedLooksSoInBothThemes) {
    for (const Theme theme : {Theme::light, Theme::dark}) {
        applyTheme(*qApp, theme);
        const QColor surface = coloursOf(theme).surface;
        const auto stands = [&](QIcon::Mode mode) {
            return std::abs(inkOf(icon("open"), mode).lightness() - surface.lightness());
        };
        EXPECT_LT(stands(QIcon::Disabled) * 3, stands(QIcon::Normal) * 2) << themeName(theme);
    }
    applyTheme(*qApp, Theme::light);
}

TEST(Icons, TheyFollowTheThemeAndStayShapeAtAnySize) {
    const QIcon tool = icon("open");
    const QIcon entry = menuIcon("open");
    for (const Theme theme : {Theme::light, Theme::dark}) {
        applyTheme(*qApp, theme);
        EXPECT_EQ(inkOf(tool, QIcon::Normal), coloursOf(theme).text);
        EXPECT_EQ(inkOf(entry, QIcon::Active), coloursOf(theme).onAccent);
    }
    applyTheme(*qApp, Theme::light);
    const QPixmap large = tool.pixmap(QSize(24, 24), 1.5);
    EXPECT_EQ(large.size(), QSize(36, 36)) << "drawn for the display, not stretched";
}

} // namespace tarvik::test
