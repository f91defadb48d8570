#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The one table of the commands of the windows. The menus, the keys, the list of shortcuts and the
/// user guide are made from it; a shortcut is written nowhere else.
namespace tallowmere {

/// The menus of the menu bar, from left to right, and the menus in some of them.
enum class CommandMenu : std::uint8_t {
    None,
    Portfolio,
    Select,
    Ticker,
    Link,
    Page,
    View,
    TextSize,
    ListQuotes,
    Tools,
    Help
};

struct MenuRow {
    CommandMenu menu;
    std::string_view caption; ///< with the letter that opens it behind "&"
    CommandMenu in;           ///< the menu that it stands in, none for the menu bar
};

enum class CommandKind : std::uint8_t {
    Plain,
    Checkable,
    MenuOnly, ///< acts on what its menu names while it is open, and has no shortcut
    Submenu,  ///< a menu that is filled elsewhere
    /// Made, but neither shown nor of effect in the main window until a controller offers it.
    Awaited
};

/// The windows in which a command has its shortcut, as bits.
using CommandPlaces = unsigned;
inline constexpr CommandPlaces kMainWindow = 1;
inline constexpr CommandPlaces kWatchWindow = 2;
inline constexpr CommandPlaces kDialogs = 4;
inline constexpr CommandPlaces kTableWindow = 8;

inline constexpr int kNotALink = -1;

struct CommandRow {
    std::string_view name;    ///< of its action, and of its key in the settings
    std::string_view caption; ///< as shipped, with the letter that chooses it behind "&"
    CommandMenu menu;
    int group; ///< a line parts the groups of a menu
    CommandKind kind;
    CommandPlaces places;
    int link;               ///< the link whose click it is, or kNotALink
    std::string_view keys;  ///< its shortcuts as shipped, parted by blanks
    std::string_view words; ///< what the guide says that it does
};

/// All commands, in the order of their menus.
std::span<const CommandRow> Commands();

/// All menus, in order.
std::span<const MenuRow> Menus();

/// The row of a command, null when there is none of that name.
const CommandRow* FindCommand(std::string_view name);

/// A caption as people say it, without the mark of its letter and the dots behind it.
std::string SpokenCaption(std::string_view caption);

/// The letter that opens a caption, upper case; 0 when it has none.
char AccessLetter(std::string_view caption);

/// Where a command stands, as people say it: "Portfolio > Select"; empty outside of all menus.
std::string SpokenMenu(CommandMenu menu);

/// Whether the user may give the command a shortcut.
bool TakesShortcut(const CommandRow& row);

} // namespace tallowmere
