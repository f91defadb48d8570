#pragma once

#include "core/links/site_hosts.h"

#include <string>
#include <string_view>
#include <vector>

/// The lists that the maker's server supplies: books and new sites, one menu item per entry.
namespace tallowmere {

/// Paths of the two pages at the maker's site.
constexpr std::string_view kBookListPath = "/rr.html";
constexpr std::string_view kNewSitesPath = "/newsites.html";

/// The index of the first book in `mnuBook`, behind the search and the line that are always there.
constexpr int kFirstBook = 3;
/// The index of the first entry in `mnuNewSite`, whose one item it replaces.
constexpr int kFirstNewSite = 1;

/// One entry of a list.
struct ServerEntry {
    int index;           ///< of its menu item
    std::string target;  ///< code of a book, or address of a site as the page gives it
    std::string caption; ///< without control characters
    friend bool operator==(const ServerEntry&, const ServerEntry&) = default;
};

/// The books of the page of books: lines of code, "-", title and a line end of six characters that
/// starts with "<". A line without "<" ends the list.
std::vector<ServerEntry> ReadBookList(std::string_view page);

/// The anchors of the page of new sites. An address without its closing mark, a mark that stands
/// before the anchor and an anchor that is not closed end the list.
std::vector<ServerEntry> ReadNewSites(std::string_view page);

/// The bookstore's page of a book.
std::string BookAddress(std::string_view code, const SiteHosts& sites);

} // namespace tallowmere
