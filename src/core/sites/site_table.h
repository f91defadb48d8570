#pragma once

#include "core/links/site_hosts.h"

#include <map>
#include <string>
#include <string_view>

namespace tallowmere {

struct TolerantToml;

/// Which host each site of the catalogue has, and which programs are started outside. Read from a
/// TOML file: a table [hosts] with a key per site and `default` for any site without a key, and a
/// table [programs] with `browser`, `calculator` and `mail`.
class SiteTable : public SiteHosts {
public:
    /// Reads the text of a table. Throws RuntimeError "<fileName>:<line>: <what is wrong>".
    static SiteTable Parse(std::string_view text, std::string_view fileName);
    /// The same from a text that was read already.
    static SiteTable Of(const TolerantToml& file);

    /// Puts the rows of a user's file over those of this table. A row that is wrong, or of a site
    /// or program that there is not, is complained of and left out.
    void Override(TolerantToml& file);

    /// The command of a program that is started outside, empty for the desktop's own.
    std::string_view Program(std::string_view name) const;

private:
    std::map<std::string, std::string, std::less<>> m_programs;
};

} // namespace tallowmere
