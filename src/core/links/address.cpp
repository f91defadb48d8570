#include "core/links/address.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tallowmere {

namespace {

/// The first character of a UTF-8 text, whole; the first byte where the text is none.
std::string_view FirstCharacter(std::string_view text) {
    const auto isContinuation = [](char c) { return (static_cast<unsigned char>(c) >> 6) == 2; };
    if (text.empty())
        return text;
    std::size_t length = 1;
    if (static_cast<unsigned char>(text[0]) >= 0xC0) {
        while (length < std::min<std::size_t>(4, text.size()) && isContinuation(text[length]))
            ++length;
    }
    return text.substr(0, length);
}

std::string FourDigits(int year) {
    std::string digits = std::to_string(year);
    return digits.size() < 4 ? std::string(4 - digits.size(), '0') + digits : digits;
}

} // namespace

TickerForms FormsOf(std::string_view ticker) {
    TickerForms forms{ToUpper(ticker), ToLower(ticker), {}};
    forms.first = FirstCharacter(forms.lower);
    return forms;
}

TickerForms PlaceholderForms() {
    return {"UCASETICK", "LCASETICK", "LEFTONE"};
}

std::string FillPath(std::string_view pathTemplate, const TickerForms& forms, Date today) {
    const std::array<std::pair<std::string_view, std::string>, 5> fields{{
        {"upper", forms.upper},
        {"lower", forms.lower},
        {"first", forms.first},
        {"year", FourDigits(today.year)},
        {"month", std::to_string(today.month) + "-1-" + std::to_string(today.year)},
    }};
    std::string path;
    Cursor cursor(pathTemplate);
    std::string_view piece;
    while (cursor.ReadUpTo("{", piece)) {
        path += piece;
        const auto* field = std::find_if(fields.begin(), fields.end(), [&](const auto& entry) {
            return cursor.Rest().substr(0, entry.first.size() + 1) ==
                   std::string(entry.first) + "}";
        });
        if (field == fields.end()) {
            path += '{';
        } else {
            path += field->second;
            cursor.Skip(field->first.size() + 1);
        }
    }
    path += cursor.Rest();
    return path;
}

std::string BuildAddress(const LinkRow& row, const TickerForms& forms, const SiteHosts& sites,
                         Date today) {
    return sites.Address(row.site, FillPath(row.target, forms, today));
}

bool HoldsPlaceholder(std::string_view address) {
    return Contains(address, "CASETICK");
}

std::string ExpandPlaceholders(std::string_view address, const TickerForms& forms) {
    const TickerForms words = PlaceholderForms();
    std::string expanded = ReplaceAll(address, words.lower, forms.lower);
    expanded = ReplaceAll(expanded, words.upper, forms.upper);
    return ReplaceAll(expanded, words.first, forms.first);
}

} // namespace tallowmere
