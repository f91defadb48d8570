#include "core/pages/site_data.h"

#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::string_view kHostCharacters = "abcdefghijklmnopqrstuvwxyz0123456789-_.";
constexpr std::string_view kDigits = "0123456789";

bool IsHost(std::string_view text) {
    return !text.empty() && text.find_first_not_of(kHostCharacters) == std::string_view::npos &&
           text.find_first_not_of('.') == 0;
}

/// Whether the host may be a site with others below it: a name of several parts, and no number.
bool HasRoom(std::string_view host) {
    return host.find('.') != std::string_view::npos &&
           host.substr(host.rfind('.') + 1).find_first_not_of(kDigits) != std::string_view::npos;
}

} // namespace

std::string HostOfDomain(std::string_view domain) {
    if (domain.starts_with('.'))
        domain.remove_prefix(1);
    return ToLower(domain);
}

bool IsOfSite(std::string_view host, std::string_view site) {
    return host == site ||
           (!site.empty() && host.ends_with(site) && host[host.size() - site.size() - 1] == '.');
}

bool MayBeOneSite(std::string_view host, std::string_view other) {
    const auto lastTwo = [](std::string_view name) {
        const auto last = name.rfind('.');
        const auto before = last == 0 || last == std::string_view::npos ? std::string_view::npos
                                                                        : name.rfind('.', last - 1);
        return before == std::string_view::npos ? name : name.substr(before + 1);
    };
    return host == other || (HasRoom(host) && lastTwo(host) == lastTwo(other));
}

std::vector<std::string> SitesOf(std::vector<std::string> hosts) {
    // The shorter ones first: they take in the longer.
    std::ranges::sort(hosts, {}, [](const std::string& host) { return host.size(); });
    std::vector<std::string> sites;
    for (const std::string& host : hosts) {
        const bool isKnown = host.empty() || std::ranges::any_of(sites, [&](const auto& site) {
                                 return host == site || (HasRoom(site) && IsOfSite(host, site));
                             });
        if (!isKnown)
            sites.push_back(host);
    }
    std::ranges::sort(sites);
    return sites;
}

std::string OriginOfFolder(std::string_view name) {
    const auto schemeEnd = name.find('_');
    if (schemeEnd == std::string_view::npos)
        return {};
    const std::string_view scheme = name.substr(0, schemeEnd);
    const std::string_view rest = name.substr(schemeEnd + 1);
    // A host may hold underscores, its port and what follows that do not.
    const std::string_view place = rest.substr(0, rest.find(".indexeddb."));
    const auto hostEnd = place.rfind('_');
    if (hostEnd == std::string_view::npos || (scheme != "http" && scheme != "https"))
        return {};
    const std::string_view host = place.substr(0, hostEnd);
    const std::string_view port = place.substr(hostEnd + 1);
    if (!IsHost(host) || port.empty() || port.find_first_not_of(kDigits) != std::string_view::npos)
        return {};
    std::string origin = std::string(scheme).append("://").append(host);
    return port == "0" ? origin : origin.append(":").append(port);
}

std::vector<std::string> ReadSiteList(std::string_view setting) {
    std::vector<std::string> sites;
    for (const std::string_view piece : Split(setting, '|'))
        if (std::string host = ToLower(Trim(piece));
            IsHost(host) && std::ranges::find(sites, host) == sites.end())
            sites.push_back(std::move(host));
    return sites;
}

std::string WriteSiteList(const std::vector<std::string>& sites) {
    std::string setting;
    for (const std::string& site : sites)
        setting.append(site).append("|");
    return setting;
}

bool MayCrossSites(std::string_view firstParty, std::string_view host,
                   const std::vector<std::string>& sites) {
    return std::ranges::any_of(sites, [&](const std::string& site) {
        return IsOfSite(host, site) || IsOfSite(firstParty, site);
    });
}

} // namespace tallowmere
