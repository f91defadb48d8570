#include "core/sites/address_match.h"

#include "core/links/catalogue.h"
#include "core/text/bytes.h"

namespace tallowmere {

namespace {

std::optional<AddressMatch> Matched(const std::optional<AddressHit>& hit) {
    if (!hit)
        return std::nullopt;
    return AddressMatch{static_cast<int>(hit->id), hit->value};
}

} // namespace

AddressMatcher::AddressMatcher(const SiteTable& sites) {
    for (const auto& [site, host] : sites.Hosts()) {
        std::string name = SplitAddress(host).first;
        if (!name.empty())
            m_hosts.insert(std::move(name));
    }
    for (const LinkRow& row : Catalogue()) {
        if (!HasAddress(row) || row.action == LinkAction::HomePage)
            continue;
        const auto id = static_cast<std::size_t>(row.index);
        if (row.target != "/")
            m_paths.Add(row.target, id);
        if (!sites.Host(row.site).empty())
            m_pages.Add(sites.Address(row.site, row.target), id);
    }
}

std::optional<AddressMatch> AddressMatcher::Match(std::string_view address) const {
    return Matched(m_pages.Find(address));
}

std::optional<AddressMatch> AddressMatcher::MatchPath(std::string_view pathAndQuery) const {
    // A path without its leading slash would be taken for a host.
    return Matched(
        m_paths.Find(std::string(pathAndQuery.starts_with('/') ? "" : "/").append(pathAndQuery)));
}

bool AddressMatcher::KnowsHost(std::string_view host) const {
    return m_hosts.contains(ToLower(host));
}

} // namespace tallowmere
