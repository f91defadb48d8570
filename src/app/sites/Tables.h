#pragma once

#include "app/base/Folders.h"
#include "app/base/WebAccess.h"
#include "core/quotes/source_table.h"
#include "core/sites/site_resolver.h"
#include "core/sites/site_table.h"

#include <memory>

namespace tallowmere {

/// The tables that the program reads: where sites lie, and where they lead today.
struct Tables {
    SiteTable sites;
    MenuTable menus;
    TodayTable today;
    /// Others whose hosts stored addresses may hold.
    std::vector<SiteTable> earlier;

    /// Reads the tables that ship with the program, or `sitesFile` for the sites. Rows of today's
    /// addresses that are wrong are left out and told on standard error. Throws RuntimeError
    /// "<file>:<line>: <what is wrong>" for a table that cannot be read.
    static Tables Read(const Folders& folders, const QString& sitesFile);
};

/// The sources of quotes: the table that ships, with the user's own `sources.toml` over it. What
/// is wrong in them is left out and told on standard error. Throws RuntimeError when the shipped
/// one cannot be read.
SourceTable ReadSources(const Folders& folders);

/// The text of a file that has to be there. Throws RuntimeError naming it when it cannot be read.
std::string ReadTable(const std::filesystem::path& path);

/// Gives today's address of an address on the web, or the same address when it has not moved.
WebAccess::Resolver MakeResolver(const Tables& tables);

} // namespace tallowmere
