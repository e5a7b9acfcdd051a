// The two looks of the desktop: light with high contrast for work in the sun, dark for the night.
//
// Every text stands on its ground with a contrast of at least 4.5 : 1. Measures are multiples of 4 pixels.
#pragma once

#include <QColor>
#include <QString>

#include <string_view>

class QApplication;

namespace tarvik {

enum class Theme { light, dark };

/// "light" or "dark", as the settings store has it; any other text is light.
[[nodiscard]] Theme themeNamed(std::string_view name);
[[nodiscard]] std::string_view themeName(Theme theme);

struct ThemeColours {
    QColor ground;      ///< behind everything
    QColor surface;     ///< panels, fields, lists
    QColor line;        ///< borders
    QColor text;        ///< what is to be read
    QColor quiet;       ///< labels, hints
    QColor faded;       ///< what cannot be used now
    QColor accent;      ///< the primary button, the selection, the focus
    QColor onAccent;    ///< text on it
    QColor progress;    ///< what is done, behind text
    QColor good;        ///< recording, calibrated, connected
    QColor warning;     ///< look here
    QColor bad;         ///< wrong, lost, stopped
    QColor information; ///< the blue lines of the status log
};

[[nodiscard]] const ThemeColours& coloursOf(Theme theme);

/// The drawings that the style sheet and the icons name.
void openIconResources();
/// Style, palette, fonts and style sheet of the whole program.
void applyTheme(QApplication& application, Theme theme);
/// The one that was applied last.
[[nodiscard]] Theme appliedTheme();

namespace measure {
constexpr int gap = 8;     ///< between things that belong together
constexpr int wide = 16;   ///< between groups
constexpr int margin = 20; ///< of a dialog
} // namespace measure

} // namespace tarvik
