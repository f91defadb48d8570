#pragma once

#include "core/links/site_hosts.h"

#include <optional>
#include <string>
#include <string_view>

namespace tallowmere {

/// Where an address of the streaming-quote service's stock lookup goes instead: its redirect page,
/// with the portal's form of an index symbol. None for any other address.
std::optional<std::string> RewriteStockLookup(std::string_view address, const SiteHosts& sites);

/// The frame line of one page of a multi-link, with its line end.
std::string MultiLinkFrame(std::string_view address);

} // namespace tallowmere
