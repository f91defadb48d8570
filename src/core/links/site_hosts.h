#pragma once

#include <map>
#include <string>
#include <string_view>

namespace tallowmere {

/// Which host each site of the catalogue has: what addresses are built with.
class SiteHosts {
public:
    /// The host of a site, else the default host, else the empty text. It may hold a scheme, a port
    /// and a folder; it is put before a path as it stands.
    std::string_view Host(std::string_view site) const;

    /// Host and path of a page of a site.
    std::string Address(std::string_view site, std::string_view path) const;

    /// All hosts by site.
    const std::map<std::string, std::string, std::less<>>& Hosts() const { return m_hosts; }

protected:
    std::map<std::string, std::string, std::less<>> m_hosts;
};

} // namespace tallowmere
