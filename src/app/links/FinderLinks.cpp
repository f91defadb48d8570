#include "app/links/FinderLinks.h"

#include "app/base/Clock.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "app/links/LinkPanel.h"
#include "app/links/SitePopups.h"
#include "core/links/site_menus.h"
#include "core/shell/commands.h"
#include "core/sites/site_table.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::string_view kLinkKey = "link ";
constexpr std::string_view kMenuKey = "menu ";
constexpr std::string_view kDash = " - ";

bool IsCommand(int link) {
    return std::ranges::find(Commands(), link, &CommandRow::link) != Commands().end();
}

std::string TextOf(const LinkRow& row) {
    std::string text(row.caption);
    if (!row.tooltip.empty() && row.tooltip != row.caption)
        text.append(kDash).append(row.tooltip);
    return text;
}

const LinkRow& RowOf(int link) {
    return Catalogue()[static_cast<std::size_t>(link)];
}

// Pages that are written, or searched for, are there for one ticker at a time.
FinderTickers TakenBy(const LinkRow& row) {
    switch (row.action) {
    case LinkAction::Ticker:
    case LinkAction::AccountGated:
        return FinderTickers::Several;
    case LinkAction::SmallCharts:
    case LinkAction::LargeCharts:
    case LinkAction::HomePage:
        return FinderTickers::One;
    default:
        return FinderTickers::None;
    }
}

int NumberAtEnd(std::string_view key) {
    return std::stoi(std::string(key.substr(key.rfind(' ') + 1)));
}

/// The array in the key of a menu's item, empty for the key of a link.
std::string_view ArrayIn(std::string_view key) {
    if (!key.starts_with(kMenuKey))
        return {};
    key.remove_prefix(kMenuKey.size());
    return key.substr(0, key.rfind(' '));
}

} // namespace

FinderLinks::FinderLinks(frmMain& form, const SiteTable& sites, const MenuTable& addresses,
                         const WebAccess& access, const Clock& clock, const LinkDispatch& dispatch,
                         LinkPanel& panel, SitePopups& popups)
    : m_form(form), m_sites(sites), m_addresses(addresses), m_access(access), m_clock(clock),
      m_dispatch(dispatch), m_panel(panel), m_popups(popups) {}

bool FinderLinks::CanClick(int link) const {
    return link >= 0 && m_form.lbllink.at(static_cast<std::size_t>(link))->isEnabled();
}

void FinderLinks::Offer(std::vector<FinderItem>& items) {
    for (const LinkRow& row : Catalogue())
        if (!IsCustomSlot(row.index) && !IsCommand(row.index) && CanClick(row.index))
            items.push_back({FinderKind::Link, TextOf(row),
                             row.site.empty() ? "" : m_sites.Address(row.site, ""),
                             std::string(kLinkKey) + std::to_string(row.index), TakenBy(row), 0});
    OfferMenuItems(items);
}

void FinderLinks::OfferMenuItems(std::vector<FinderItem>& items) const {
    for (const SiteMenuItem& item : SiteMenuItems()) {
        const int link = LinkOfArray(item.array);
        const bool isTickers = item.kind == MenuItemKind::Ticker;
        const std::string_view address = m_addresses.Address(item.array, item.index);
        const bool isPage = isTickers || (item.kind == MenuItemKind::Fixed && !address.empty());
        if (!isPage || !CanClick(link))
            continue;
        items.push_back(
            {FinderKind::MenuItem,
             std::string(item.caption).append(kDash).append(RowOf(link).caption),
             std::string(RowOf(link).tooltip).append(" ").append(address),
             std::string(kMenuKey).append(item.array) + ' ' + std::to_string(item.index),
             isTickers ? FinderTickers::Several : FinderTickers::None, 0});
    }
}

std::string FinderLinks::Address(const FinderItem& item, const QString& ticker) const {
    const TickerForms forms = m_dispatch.FormsFor(ticker).value_or(PlaceholderForms());
    if (const std::string_view array = ArrayIn(item.key); !array.empty())
        return SiteMenuAddress(array, NumberAtEnd(item.key), forms.lower, m_sites, m_addresses);
    const LinkRow& row = RowOf(NumberAtEnd(item.key));
    return HasAddress(row) ? BuildAddress(row, forms, m_sites, m_clock.Today()) : std::string();
}

QString FinderLinks::Detail(const FinderItem& item, const QString& ticker) {
    const std::string address = Address(item, ticker);
    return address.empty() ? QString() : HostOfBuilt(ToQt(address), m_access);
}

void FinderLinks::Open(const FinderItem& item, PagePlace place, const QString& ticker) {
    const int number = NumberAtEnd(item.key);
    if (const std::string_view array = ArrayIn(item.key); !array.empty())
        m_popups.Open(ToQt(array), number, place, ticker);
    else
        m_panel.Open(number, place, ticker);
}

} // namespace tallowmere
