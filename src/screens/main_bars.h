// Menu bar and main tool bar, made from the table of commands: every entry and button carries its key.
#pragma once

#include "screens/command_looks.h"

#include <QString>

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>

class QAction;
class QComboBox;
class QMainWindow;
class QMenu;
class QToolBar;

namespace tarvik {

class MainBars {
  public:
    /// Object names: the menus "File", "Setup" ("ch-setup") and "Help", the tool bar "mainbuttons", each
    /// action its key.
    MainBars(QMainWindow& window, std::function<void(std::string_view key)> toolClick);

    /// A menu, a button or the scale list, by its key.
    void setEnabled(std::string_view key, bool enabled);
    void setShown(std::string_view key, bool shown);
    void setChecked(std::string_view key, bool checked);
    void uncheckAll();
    void setCaption(std::string_view key, std::string_view caption);
    void setSearchPicture(bool searching);
    void fillScales(std::span<const std::string_view> scales);
    /// Told the scale that the operator chooses, 200 for 1:200.
    void whenScaleChosen(std::function<void(double scale)> act);
    /// The scale as it is, 200 for 1:200; nobody is told.
    void showScale(double scale);
    /// Pictures without words where the window has no room for both.
    void fit(int width);
    [[nodiscard]] QComboBox& scales() { return *scales_; }

  private:
    void makeMenus(QMainWindow& window);
    void makeToolBar(QMainWindow& window);
    void place(const CommandLook& look, QAction* made);
    [[nodiscard]] QAction* action(std::string_view key) const;

    std::function<void(std::string_view key)> toolClick_;
    std::map<std::string, QMenu*, std::less<>> menus_;
    std::map<std::string, QAction*, std::less<>> actions_;
    QToolBar* bar_ = nullptr;
    QComboBox* scales_ = nullptr;
    QAction* scalesAction_ = nullptr;
    int widthWithWords_ = 0; ///< of the bar, when they were last shown
};

} // namespace tarvik
