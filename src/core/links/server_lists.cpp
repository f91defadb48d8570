#include "core/links/server_lists.h"

#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::string_view kAnchor = "<a href";
/// The anchor with the equals sign and the quote that are expected behind it.
constexpr std::size_t kAnchorLength = 9;

/// A text of outside as one line: every control character becomes a blank.
std::string DisplayText(std::string_view text) {
    std::string shown(text);
    std::replace_if(
        shown.begin(), shown.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, ' ');
    return shown;
}

} // namespace

std::vector<ServerEntry> ReadBookList(std::string_view page) {
    constexpr std::size_t kRestOfLineEnd = 5;
    std::vector<ServerEntry> books;
    Cursor cursor(page);
    std::string_view code;
    std::string_view title;
    for (int index = kFirstBook; cursor.ReadUpTo("-", code) && cursor.ReadUpTo("<", title);
         ++index) {
        books.push_back({index, std::string(code), DisplayText(title)});
        cursor.Skip(kRestOfLineEnd);
    }
    return books;
}

std::vector<ServerEntry> ReadNewSites(std::string_view page) {
    std::vector<ServerEntry> entries;
    Cursor cursor(page);
    std::string_view head;
    std::string_view caption;
    for (int index = kFirstNewSite;; ++index) {
        // The closing mark is the first one of all the text that is left, wherever it stands.
        const auto anchor = cursor.Rest().find(kAnchor);
        if (anchor == std::string_view::npos || !cursor.ReadUpTo("\">", head) ||
            head.size() < anchor + kAnchorLength || !cursor.ReadUpTo("</a>", caption))
            return entries;
        entries.push_back(
            {index, std::string(head.substr(anchor + kAnchorLength)), DisplayText(caption)});
    }
}

std::string BookAddress(std::string_view code, const SiteHosts& sites) {
    // The code comes from outside: encoded, it cannot lead to another page of the store.
    return sites.Address("bookstore", "/exec/obidos/ASIN/" + PercentEncode(code) + "/");
}

} // namespace tallowmere
