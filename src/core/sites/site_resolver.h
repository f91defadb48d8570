#pragma once

#include "core/sites/address_tree.h"
#include "core/sites/site_table.h"
#include "core/sites/today_table.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tallowmere {

/// Who asks for an address: some are both shown to people and read by the program, and lead to
/// different places today.
enum class AddressUse : std::uint8_t {
    Page,    ///< a pane
    Reading, ///< the program itself
    Outside  ///< a browser outside of the program, which cannot see the built-in portal
};

/// Leads the addresses that the catalogue, the menus and the program build to where their pages
/// live today. The time of a lookup does not depend on the number of rows.
class SiteResolver {
public:
    /// Addresses that were built, and stored, with the hosts of `earlier` tables are led as well.
    SiteResolver(const SiteTable& sites, const MenuTable& menus, const TodayTable& today,
                 std::span<const SiteTable> earlier = {});

    /// Today's address of a built address: on the web, or "portal://" with the address itself for
    /// what the built-in portal answers; a browser outside gets a page that is like it. None when
    /// the address is not one of ours or has nowhere to go; it is then used as it stands.
    std::optional<std::string> Resolve(std::string_view address, AddressUse use) const;

private:
    void Add(const TodayRow& row, const TodayTable& today);
    std::optional<std::string> InPlaceOfPortal(std::string_view ticker) const;

    std::vector<std::string> m_targets; ///< by the ids in the trees
    AddressTree m_pages;
    AddressTree m_reads;
    std::string m_quotePage; ///< for a browser outside in place of the portal, with a ticker ...
    std::string m_outside;   ///< ... and without
};

/// Fills a ticker, or the tickers of a list, into an address of today.
std::string FillToday(std::string_view addressTemplate, std::string_view value);

} // namespace tallowmere
