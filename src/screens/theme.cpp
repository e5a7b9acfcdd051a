#include "screens/theme.h"

#include <QApplication>
#include <QFont>
#include <QPalette>
#include <QProxyStyle>

#include <array>
#include <utility>

static void initIcons() {
    Q_INIT_RESOURCE(tarvik_icons);
}

namespace tarvik {

namespace {

constexpr const char* themeProperty = "tarvikTheme";
constexpr int textPoints = 10;

const ThemeColours lightColours{.ground = "#eef1f4",
                                .surface = "#ffffff",
                                .line = "#b9c2cc",
                                .text = "#10171e",
                                .quiet = "#46535f",
                                .faded = "#8b97a3",
                                .accent = "#0b5cad",
                                .onAccent = "#ffffff",
                                .progress = "#a9cbee",
                                .good = "#0a6b2d",
                                .warning = "#8a4b00",
                                .bad = "#b3141e",
                                .information = "#0b4fa8"};

const ThemeColours darkColours{.ground = "#14181d",
                               .surface = "#1d232a",
                               .line = "#46525e",
                               .text = "#e9eef3",
                               .quiet = "#a9b5c0",
                               .faded = "#6c7884",
                               .accent = "#5aa9f0",
                               .onAccent = "#06121e",
                               .progress = "#28557f",
                               .good = "#5fd080",
                               .warning = "#f2b354",
                               .bad = "#ff8080",
                               .information = "#7fbcff"};

class Style final : public QProxyStyle {
  public:
    Style() : QProxyStyle("Fusion") {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        // Those of the display's own icons would stand beside ours.
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

QPalette paletteOf(const ThemeColours& colours) {
    QPalette palette;
    palette.setColor(QPalette::Window, colours.ground);
    palette.setColor(QPalette::WindowText, colours.text);
    palette.setColor(QPalette::Base, colours.surface);
    palette.setColor(QPalette::AlternateBase, colours.ground);
    palette.setColor(QPalette::Text, colours.text);
    palette.setColor(QPalette::PlaceholderText, colours.quiet);
    palette.setColor(QPalette::Button, colours.surface);
    palette.setColor(QPalette::ButtonText, colours.text);
    palette.setColor(QPalette::ToolTipBase, colours.surface);
    palette.setColor(QPalette::ToolTipText, colours.text);
    palette.setColor(QPalette::Highlight, colours.accent);
    palette.setColor(QPalette::HighlightedText, colours.onAccent);
    palette.setColor(QPalette::Link, colours.accent);
    palette.setColor(QPalette::Mid, colours.line);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        QColor faded = colours.quiet;
        faded.setAlpha(140);
        palette.setColor(QPalette::Disabled, role, faded);
    }
    return palette;
}

/// "@name" of a colour is replaced by the colour, "@name" itself by the theme's name.
constexpr const char* sheet = R"(
QWidget { font-size: 10pt; }
QMainWindow, QDialog { background: @ground; }
QToolTip { background: @surface; color: @text; border: 1px solid @line; padding: 4px; }
QPushButton { background: @surface; color: @text; border: 1px solid @line; border-radius: 4px;
              padding: 5px 16px; min-height: 20px; }
QPushButton:hover { border-color: @accent; }
QPushButton:pressed { background: @ground; }
QPushButton:focus { border: 2px solid @accent; padding: 4px 15px; }
QPushButton:disabled { color: @quiet; background: @ground; border-color: @line; }
QPushButton[primary="true"] { background: @accent; color: @onAccent; border-color: @accent; font-weight: 600; }
QPushButton[primary="true"]:focus { border: 2px solid @text; }
QPushButton[primary="true"]:disabled { background: @line; color: @ground; border-color: @line; }
QLineEdit, QComboBox, QSpinBox, QDoubleSpinBox, QPlainTextEdit, QTextEdit, QTextBrowser, QListView, QTreeView,
QTableView { background: @surface; color: @text; border: 1px solid @line; border-radius: 4px;
             selection-background-color: @accent; selection-color: @onAccent; }
QLineEdit, QComboBox, QSpinBox, QDoubleSpinBox { padding: 5px 8px; min-height: 20px; }
QLineEdit:focus, QComboBox:focus, QSpinBox:focus, QDoubleSpinBox:focus, QPlainTextEdit:focus, QListView:focus,
QTreeView:focus, QTableView:focus, QTextBrowser:focus, QGraphicsView:focus { border: 2px solid @accent; }
QLineEdit:focus, QComboBox:focus, QSpinBox:focus, QDoubleSpinBox:focus { padding: 4px 7px; }
QListView#lbpages::item { padding: 6px 8px; border-radius: 4px; }
QListView#lbpages::item:selected { background: @accent; color: @onAccent; }
QComboBox::drop-down { border: none; width: 24px; }
QComboBox::down-arrow { image: url(:/icons/arrow-@name.svg); width: 12px; height: 12px; }
QRadioButton, QCheckBox { border: 1px solid transparent; border-radius: 4px; padding: 1px 4px 1px 1px; }
QRadioButton:focus, QCheckBox:focus { border-color: @accent; }
QRadioButton::indicator, QCheckBox::indicator { width: 12px; height: 12px; border: 2px solid @quiet;
              background: @surface; }
QRadioButton::indicator { border-radius: 8px; }
QCheckBox::indicator { border-radius: 3px; }
QRadioButton::indicator:checked { width: 6px; height: 6px; border: 5px solid @accent; }
QCheckBox::indicator:checked { border-color: @accent; background: @accent;
              image: url(:/icons/check-@name.svg); }
QRadioButton::indicator:disabled, QCheckBox::indicator:disabled { border-color: @line; }
QLineEdit[wrong="true"] { border: 2px solid @bad; padding: 4px 7px; }
QLineEdit:disabled, QComboBox:disabled { background: @ground; color: @quiet; }
QHeaderView::section { background: @ground; color: @quiet; border: none; border-bottom: 1px solid @line;
                       padding: 6px 8px; font-weight: 600; }
QTableView::item, QTreeView::item { padding: 0 8px; }
QTableView, QTreeView { gridline-color: @ground; alternate-background-color: @ground; }
QScrollArea, QScrollArea > QWidget > QWidget { background: transparent; }
QScrollArea:focus { border: 2px solid @accent; border-radius: 4px; }
QAbstractScrollArea::corner { background: transparent; border: none; }
QFrame[card="true"] { background: @surface; border: 1px solid @line; border-radius: 6px; }
#logarea[focused="true"] { border: 2px solid @accent; }
QLabel[role="title"] { font-size: 14pt; font-weight: 600; }
QLabel[role="head"] { font-size: 11pt; font-weight: 600; }
QLabel[role="quiet"] { color: @quiet; }
QLabel[role="good"] { color: @good; font-weight: 600; }
QLabel[role="warning"] { color: @warning; font-weight: 600; }
QLabel[role="bad"] { color: @bad; font-weight: 600; }
QMenuBar { background: @surface; border-bottom: 1px solid @line; padding: 2px; }
QMenuBar::item { padding: 4px 12px; border-radius: 4px; }
QMenuBar::item:selected { background: @accent; color: @onAccent; }
QMenu { background: @surface; border: 1px solid @line; padding: 4px; }
QMenu::item { padding: 6px 28px 6px 28px; border-radius: 4px; }
QMenu::item:selected { background: @accent; color: @onAccent; }
QMenu::item:disabled { color: @faded; }
QMenu::separator { height: 1px; background: @line; margin: 4px 8px; }
QToolBar { background: @surface; border: none; border-bottom: 1px solid @line; padding: 4px 8px; spacing: 2px; }
QToolBar::separator { width: 1px; background: @line; margin: 6px 6px; }
QToolButton { border: 1px solid transparent; border-radius: 4px; padding: 3px 8px; color: @text; }
QToolButton:hover { background: @ground; border-color: @line; }
QToolButton:focus { border: 1px solid @accent; }
QToolButton:checked { background: @accent; color: @onAccent; }
QToolButton:checked:focus { border-color: @text; }
QToolButton:disabled { color: @faded; }
QToolButton:checked:disabled { background: @line; color: @text; }
QStatusBar { background: @surface; border-top: 1px solid @line; }
QStatusBar::item { border: none; }
QTabWidget::pane { border: 1px solid @line; border-radius: 6px; background: @surface; top: -1px; }
QTabBar::tab { background: @ground; color: @quiet; border: 1px solid @line; padding: 6px 16px;
               border-top-left-radius: 4px; border-top-right-radius: 4px; margin-right: 2px; }
QTabBar::tab:selected { background: @surface; color: @text; border-bottom-color: @surface; font-weight: 600; }
QTabBar::tab:focus { color: @accent; border: 2px solid @accent; padding: 5px 15px; }
QProgressBar { background: @ground; border: 1px solid @line; border-radius: 4px; text-align: center;
               min-height: 16px; color: @text; }
QProgressBar::chunk { background: @progress; border-radius: 3px; }
QScrollBar:vertical { background: @ground; width: 14px; margin: 0; }
QScrollBar:horizontal { background: @ground; height: 14px; margin: 0; }
QScrollBar::handle { background: @line; border-radius: 5px; margin: 2px; min-height: 28px; min-width: 28px; }
QScrollBar::handle:hover { background: @quiet; }
QScrollBar::add-line, QScrollBar::sub-line, QScrollBar::add-page, QScrollBar::sub-page { background: none;
               border: none; width: 0; height: 0; }
)";

QString styleSheetOf(const ThemeColours& colours, Theme theme) {
    const std::array<std::pair<const char*, QColor>, 12> names{{{"@ground", colours.ground},
                                                                {"@faded", colours.faded},
                                                                {"@surface", colours.surface},
                                                                {"@line", colours.line},
                                                                {"@text", colours.text},
                                                                {"@quiet", colours.quiet},
                                                                {"@onAccent", colours.onAccent},
                                                                {"@accent", colours.accent},
                                                                {"@good", colours.good},
                                                                {"@warning", colours.warning},
                                                                {"@bad", colours.bad},
                                                                {"@progress", colours.progress}}};
    QString text = sheet;
    for (const auto& [name, colour] : names) text.replace(name, colour.name());
    text.replace("@name", QString::fromLatin1(themeName(theme).data()));
    return text;
}

} // namespace

Theme themeNamed(std::string_view name) {
    return name == "dark" ? Theme::dark : Theme::light;
}

std::string_view themeName(Theme theme) {
    return theme == Theme::dark ? "dark" : "light";
}

const ThemeColours& coloursOf(Theme theme) {
    return theme == Theme::dark ? darkColours : lightColours;
}

void openIconResources() {
    initIcons();
}

void applyTheme(QApplication& application, Theme theme) {
    const ThemeColours& colours = coloursOf(theme);
    application.setProperty(themeProperty, static_cast<int>(theme));
    QApplication::setStyle(new Style);
    QFont font("DejaVu Sans");
    font.setPointSize(textPoints);
    QApplication::setFont(font);
    QApplication::setPalette(paletteOf(colours));
    openIconResources();
    application.setStyleSheet(styleSheetOf(colours, theme));
}

Theme appliedTheme() {
    return static_cast<Theme>(qApp->property(themeProperty).toInt());
}

} // namespace tarvik
