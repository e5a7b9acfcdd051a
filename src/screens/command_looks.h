// How each key of the command table looks: where it stands, its texts, its picture, its shortcut.
//
// The shortcuts of the keys that matter on the winch are function keys, which are found with gloves on. A
// command that stands in a menu and on the tool bar has its shortcut in one of the two places only: a key
// that two actions claim does nothing.
#pragma once

#include <span>
#include <string_view>

namespace tarvik {

enum class CommandPlace { fileMenu, setupMenu, helpMenu, toolBar };

struct CommandLook {
    std::string_view key;
    CommandPlace place = CommandPlace::toolBar;
    std::string_view caption; ///< with its mnemonic in a menu; the short text under the picture on the bar
    std::string_view icon;    ///< name in data/icons
    std::string_view shortcut = {}; ///< in the portable spelling, "Ctrl+O"; may be empty
    std::string_view tip = {};      ///< what it does, in one sentence
    bool startsGroup = false;       ///< a separator stands before it
    bool checkable = false;
    bool shownAtFirst = true; ///< false: only some runs show it
};

/// In the order in which they stand in each place.
[[nodiscard]] std::span<const CommandLook> commandLooks();
/// Nothing for a key that is not in the table.
[[nodiscard]] const CommandLook* commandLook(std::string_view key);

/// "&File", "&Setup", "&Help"; empty for the tool bar.
[[nodiscard]] std::string_view menuTitle(CommandPlace place);
/// The key of the menu as a whole ("File"), by which it is enabled; empty for the tool bar.
[[nodiscard]] std::string_view menuKey(CommandPlace place);

/// The pictures of "Setup-LCUsearch": the automatic search on and off.
constexpr std::string_view searchOnIcon = "search";
constexpr std::string_view searchOffIcon = "search-off";

} // namespace tarvik
