#pragma once

#include "core/sites/address_match.h"
#include "core/sites/address_tree.h"

#include <string>
#include <string_view>

namespace tallowmere {

class SettingsStore;
class SiteTable;

/// What the pages of a multi-link are called.
class PageNames {
public:
    /// Takes the sites and the user's own links as they are now.
    PageNames(const SiteTable& sites, const SettingsStore& settings);

    /// The name of the link whose page an address is: the words of the catalogue, or the title of
    /// a link of the user's own. Of any other page its host, and the address when it has none.
    std::string Of(std::string_view address) const;

private:
    AddressMatcher m_catalogue;
    AddressTree m_own; ///< by slots
    const SettingsStore& m_settings;
};

} // namespace tallowmere
