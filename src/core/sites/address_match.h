#pragma once

#include "core/sites/address_tree.h"
#include "core/sites/site_table.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

namespace tallowmere {

/// What an address was built from.
struct AddressMatch {
    int index;          ///< of the catalogue row
    std::string ticker; ///< upper case; empty for a row without one

    friend bool operator==(const AddressMatch&, const AddressMatch&) = default;
};

/// Finds the catalogue row and the ticker in an address, the way back from BuildAddress. The time
/// of a lookup depends on the length of the address alone, not on the number of rows. The catalogue
/// row that reads the profile page by machine is left out: the row that opens it stands for it.
class AddressMatcher {
public:
    explicit AddressMatcher(const SiteTable& sites);

    /// Looks up an address, with or without a scheme, by host and path. Percent escapes, the case
    /// of host and ticker and blanks at the end make no difference; among rows that fit, the one
    /// with the longest fixed prefix wins, then the one with the longest fixed end.
    std::optional<AddressMatch> Match(std::string_view address) const;

    /// Looks up a path with its query whatever the host. Home pages, which all have the path "/",
    /// are not found.
    std::optional<AddressMatch> MatchPath(std::string_view pathAndQuery) const;

    /// Whether `host`, with its port where it has one, is that of a site.
    bool KnowsHost(std::string_view host) const;

private:
    AddressTree m_pages; ///< by the numbers of the rows
    AddressTree m_paths; ///< the same without hosts
    std::unordered_set<std::string> m_hosts;
};

} // namespace tallowmere
