#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What sites keep on this machine, and who may get at it.
namespace tallowmere {

/// The host, in lower case, that a cookie's domain names, which may begin with a dot.
std::string HostOfDomain(std::string_view domain);

/// Whether a host is a site or lies below it ("www.example.com" is of the site "example.com").
bool IsOfSite(std::string_view host, std::string_view site);

/// Whether two hosts may be parts of one site: "a.example.com" and "b.example.com". Who owns a name
/// of two parts is not known here, so it is said of some that are not.
bool MayBeOneSite(std::string_view host, std::string_view other);

/// The sites that hosts belong to, sorted, each once: a host below another one counts as part of
/// that.
std::vector<std::string> SitesOf(std::vector<std::string> hosts);

/// The origin whose data lie in a folder of the engine's of this name
/// ("https_www.example.com_0.indexeddb.leveldb"), "https://www.example.com"; empty when it is no
/// such folder.
std::string OriginOfFolder(std::string_view name);

/// The sites of a setting, each followed by a bar; what is no host name is left out.
std::vector<std::string> ReadSiteList(std::string_view setting);
std::string WriteSiteList(const std::vector<std::string>& sites);

/// Whether a request of the page of `firstParty` to `host`, another site, takes cookies along:
/// when the user allowed either of the two to have them across sites.
bool MayCrossSites(std::string_view firstParty, std::string_view host,
                   const std::vector<std::string>& sites);

} // namespace tallowmere
