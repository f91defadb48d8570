#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Helpers over text as bytes. Upper and lower case are those of ASCII, every search is exact and
/// case-sensitive, and every function is linear in its input.
namespace tallowmere {

/// The text with the letters A to Z made lower case.
std::string ToLower(std::string_view text);

/// The text with the letters a to z made upper case.
std::string ToUpper(std::string_view text);

/// The text without leading and trailing blanks. Only the blank (0x20) counts, no tab or line end.
std::string_view Trim(std::string_view text);

/// Whether `pattern` occurs in `text`.
bool Contains(std::string_view text, std::string_view pattern);

/// How often `pattern` occurs in `text`, overlapping occurrences included ("aaa" holds "aa"
/// twice). An empty pattern occurs nowhere.
std::size_t CountOccurrences(std::string_view text, std::string_view pattern);

/// The text with every occurrence of `find` replaced, left to right without overlap; what was put
/// in is not searched again. An empty `find` changes nothing.
std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement);

/// The pieces between the separators; n separators give n + 1 pieces.
std::vector<std::string_view> Split(std::string_view text, char separator);

/// The text with `&`, `<`, `>` and both quotes written as HTML character references.
std::string EscapeHtml(std::string_view text);

/// The text with the character references that EscapeHtml writes read back; any other one stays.
std::string UnescapeHtml(std::string_view text);

/// The text with every byte outside the unreserved set of RFC 3986 written as %XX, upper case.
std::string PercentEncode(std::string_view text);

/// The text with every %XX read back (RFC 3986); a percent sign that starts no escape stays.
std::string PercentDecode(std::string_view text);

/// Walks a text from the front; the parsers of fetched pages and files are written with it.
class Cursor {
public:
    explicit Cursor(std::string_view text) : m_rest(text) {}

    /// What has not been read yet.
    std::string_view Rest() const { return m_rest; }
    bool AtEnd() const { return m_rest.empty(); }

    /// Reads up to `mark` and skips the mark. Without a mark nothing is read and false is given.
    bool ReadUpTo(std::string_view mark, std::string_view& piece);

    /// Skips up to and over `mark`; without a mark nothing is skipped and false is given.
    bool SkipPast(std::string_view mark);

    /// Skips `count` bytes, or all that is left when there are fewer.
    void Skip(std::size_t count) { m_rest.remove_prefix(std::min(count, m_rest.size())); }

private:
    std::string_view m_rest;
};

} // namespace tallowmere
