// How each key of the command table looks: where it stands, its words, icon, shortcut and tool tip.
#pragma once

#include <span>
#include <string_view>

namespace tarvik {

struct CommandLook {
    std::string_view key;
    std::string_view menu;     ///< "File", "Setup" or "Help"; empty: a button of the tool bar
    std::string_view text;     ///< with the mnemonic of a menu entry
    std::string_view icon;     ///< file in data/icons, without its ending
    std::string_view shortcut; ///< as the toolkit reads it; empty for none
    std::string_view tip;
    bool checkable = false;
    bool startsGroup = false; ///< a separator stands before it
};

/// In the order in which they stand. Keys that share an action ("MB-Exit", "File-exit") have a row each.
[[nodiscard]] std::span<const CommandLook> commandLooks();

} // namespace tarvik
