#include "core/links/site_hosts.h"

namespace tallowmere {

std::string_view SiteHosts::Host(std::string_view site) const {
    auto found = m_hosts.find(site);
    if (found == m_hosts.end())
        found = m_hosts.find(std::string_view("default"));
    return found == m_hosts.end() ? std::string_view() : std::string_view(found->second);
}

std::string SiteHosts::Address(std::string_view site, std::string_view path) const {
    return std::string(Host(site)).append(path);
}

} // namespace tallowmere
