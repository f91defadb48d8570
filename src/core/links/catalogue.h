#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// The 218 research links as one table: what each is called, where it stands and what it does.
namespace tallowmere {

/// The colour area of a link, kept as its tag.
enum class Area : std::uint8_t { None, RN, WSR, MB, CQ, NR, TLB, NT, BRK, RTS };

/// The tag of an area, "" for none.
std::string_view AreaCode(Area area);

/// What a click on a link does.
enum class LinkAction : std::uint8_t {
    Ticker, ///< an address that needs a ticker
    Fixed,  ///< an address that needs none
    Menu,   ///< a site menu at the pointer
    Custom, ///< one of the user's own links
    Refresh,
    Back,
    Forward,
    Stop,
    CopyAddress,
    Reminders,
    Setup,
    Calculator,
    Navigate,
    QueryPortfolio,
    MultiLink,
    Wizard,
    HomePage,
    SmallCharts,
    LargeCharts,
    AccountGated, ///< a ticker address behind the question about an account
    StreamingPortfolio,
    Alerts
};

struct LinkRow {
    int index;
    std::string_view caption; ///< as shown: a single "&" is one "&"
    std::string_view tooltip;
    Area area;
    LinkAction action;
    std::string_view site; ///< key of the host in the site table, "" for a row without an address
    /// Path and query with {upper}, {lower}, {first}, {year} and {month} where they are filled in;
    /// for menus the name of the menu; "" for a row that builds its address from more than that.
    std::string_view target;
};

constexpr int kLinkCount = 218;
constexpr int kFirstCustom = 101;
constexpr int kLastCustom = 170;

constexpr std::string_view kEmptyCustomCaption = "< Custom >";

/// Whether `index` is one of the seventy slots for the user's own links.
constexpr bool IsCustomSlot(int index) {
    return index >= kFirstCustom && index <= kLastCustom;
}

/// All rows, in the order of their indexes.
std::span<const LinkRow, kLinkCount> Catalogue();

/// Whether the link's page goes to the second pane `WebB`: the home pages of the brokers.
bool OpensInSecondPane(const LinkRow& row);

/// Whether a click needs a selected ticker. The user's own links tell by their stored address.
bool NeedsTicker(const LinkRow& row);

/// Whether a click leads to a page by itself: no tool, and no menu to choose from.
bool LeadsToPage(const LinkRow& row);

/// Whether the row has a site and a path, so that BuildAddress gives its page.
bool HasAddress(const LinkRow& row);

} // namespace tallowmere
