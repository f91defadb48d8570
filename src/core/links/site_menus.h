#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The pop-up menus of research sites as tables: menus, the arrays of items that they show, and the
/// items themselves.
namespace tallowmere {

class MenuTable;
class SiteHosts;

/// No research link pops the menu up: it is a submenu.
constexpr int kNoLink = -1;

struct SiteMenu {
    std::string_view name;
    std::string_view caption;
    int link;                ///< index of the research link that pops it up, or kNoLink
    std::string_view parent; ///< the menu whose submenu it is, "" for a pop-up menu
};

/// A numbered group of items.
struct SiteMenuArray {
    std::string_view name;
    std::string_view menu; ///< the menu that shows it, "" when a heading item opens it
    std::string_view site; ///< key of the host of its ticker addresses in the site table, else ""
};

enum class MenuItemKind : std::uint8_t {
    Fixed,      ///< a page whose address is data
    Ticker,     ///< a page of the selected ticker
    Separator,  ///< a line, which does nothing
    Heading,    ///< opens another array as a submenu
    Placeholder ///< stands until the list of the server fills the array; does nothing
};

struct SiteMenuItem {
    std::string_view array;
    int index;                ///< from 1; 0 for an item that is an array of its own
    std::string_view caption; ///< as shown: a single "&" is one "&"
    MenuItemKind kind;
    /// Path and query with {lower} for a ticker item, the array that a heading opens, else "".
    std::string_view target = {};
};

/// All menus, each after its parent, submenus in the order in which they are shown.
std::span<const SiteMenu> SiteMenus();

/// All arrays, in the order in which a menu shows them.
std::span<const SiteMenuArray> SiteMenuArrays();

/// All items, those of an array together and in the order of their indexes.
std::span<const SiteMenuItem> SiteMenuItems();

/// The items of one array; none for an unknown name.
std::span<const SiteMenuItem> SiteMenuItems(std::string_view array);

/// One item, null when there is none.
const SiteMenuItem* FindSiteMenuItem(std::string_view array, int index);

/// The index of the research link whose menu leads to an array, or kNoLink for an unknown name.
int LinkOfArray(std::string_view array);

/// The address that an item loads; empty for one that loads nothing. `lowerTicker` is the
/// lower-cased ticker, or the placeholder word that stands for it.
std::string SiteMenuAddress(std::string_view array, int index, std::string_view lowerTicker,
                            const SiteHosts& sites, const MenuTable& menus);

} // namespace tallowmere
