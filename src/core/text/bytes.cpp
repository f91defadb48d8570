#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

std::string MapEach(std::string_view text, char (*map)(char)) {
    std::string result(text.size(), '\0');
    std::transform(text.begin(), text.end(), result.begin(), map);
    return result;
}

int HexValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'A' && digit <= 'F')
        return digit - 'A' + 10;
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    return -1;
}

bool IsUnreserved(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.' || c == '_' || c == '~';
}

} // namespace

std::string ToLower(std::string_view text) {
    return MapEach(
        text, [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
}

std::string ToUpper(std::string_view text) {
    return MapEach(
        text, [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
}

std::string_view Trim(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool Contains(std::string_view text, std::string_view pattern) {
    return text.find(pattern) != std::string_view::npos;
}

std::size_t CountOccurrences(std::string_view text, std::string_view pattern) {
    std::size_t count = 0;
    if (pattern.empty())
        return count;
    for (auto at = text.find(pattern); at != std::string_view::npos;
         at = text.find(pattern, at + 1))
        ++count;
    return count;
}

std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement) {
    std::string result;
    result.reserve(text.size());
    std::size_t from = 0;
    if (!find.empty()) {
        for (auto at = text.find(find); at != std::string_view::npos; at = text.find(find, from)) {
            result.append(text, from, at - from).append(replacement);
            from = at + find.size();
        }
    }
    result.append(text, from);
    return result;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    std::size_t from = 0;
    for (auto at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator, from)) {
        pieces.push_back(text.substr(from, at - from));
        from = at + 1;
    }
    pieces.push_back(text.substr(from));
    return pieces;
}

std::string EscapeHtml(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        case '\'':
            result += "&#39;";
            break;
        default:
            result += c;
        }
    }
    return result;
}

std::string UnescapeHtml(std::string_view text) {
    constexpr std::pair<std::string_view, char> references[] = {
        {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&#39;", '\''}};
    std::string result;
    while (!text.empty()) {
        std::size_t length = 1;
        char byte = text.front();
        for (const auto& [reference, meant] : references)
            if (text.starts_with(reference)) {
                length = reference.size();
                byte = meant;
            }
        result += byte;
        text.remove_prefix(length);
    }
    return result;
}

std::string PercentEncode(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (IsUnreserved(c)) {
            result += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            result += {'%', kHexDigits[byte >> 4], kHexDigits[byte & 15]};
        }
    }
    return result;
}

std::string PercentDecode(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escape = text[i] == '%' && i + 2 < text.size() && HexValue(text[i + 1]) >= 0 &&
                            HexValue(text[i + 2]) >= 0;
        if (escape) {
            result += static_cast<char>(HexValue(text[i + 1]) * 16 + HexValue(text[i + 2]));
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

bool Cursor::ReadUpTo(std::string_view mark, std::string_view& piece) {
    const auto at = m_rest.find(mark);
    if (at == std::string_view::npos)
        return false;
    piece = m_rest.substr(0, at);
    m_rest.remove_prefix(at + mark.size());
    return true;
}

bool Cursor::SkipPast(std::string_view mark) {
    std::string_view skipped;
    return ReadUpTo(mark, skipped);
}

} // namespace tallowmere
