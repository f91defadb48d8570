#include "core/custom/placeholder_offer.h"

#include "core/links/address.h"
#include "core/text/bytes.h"

namespace tallowmere {

namespace {

bool IsWordByte(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

/// Where what a site is asked for begins.
std::size_t PathStart(std::string_view address) {
    const auto scheme = address.find("://");
    const auto site = scheme == std::string_view::npos ? 0 : scheme + 3;
    return std::min(address.find_first_of("/?#", site), address.size());
}

/// Whether a word can begin at a place: nothing of a word stands before it. What stands behind a
/// percent sign are the digits of an escape.
bool BeginsWord(std::string_view text, std::size_t at) {
    if (at == 0 || !IsWordByte(text[at - 1]))
        return true;
    return at >= 3 && text[at - 3] == '%' && IsHexDigit(text[at - 2]) && IsHexDigit(text[at - 1]);
}

bool EndsWord(std::string_view text, std::size_t at) {
    return at >= text.size() || !IsWordByte(text[at]);
}

/// Replaces a form of a ticker where it stands as a word; false when it stands nowhere.
bool ReplaceWord(std::string& path, std::string_view word, std::string_view placeholder) {
    bool found = false;
    for (auto at = path.find(word); at != std::string::npos; at = path.find(word, at)) {
        if (!BeginsWord(path, at) || !EndsWord(path, at + word.size())) {
            ++at;
            continue;
        }
        path.replace(at, word.size(), placeholder);
        at += placeholder.size();
        found = true;
    }
    return found;
}

} // namespace

std::optional<PlaceholderOffer> OfferPlaceholders(std::string_view address,
                                                  const std::vector<std::string>& tickers) {
    const TickerForms words = PlaceholderForms();
    const auto start = PathStart(address);
    for (const std::string& ticker : tickers) {
        const TickerForms forms = FormsOf(Trim(ticker));
        if (forms.upper.empty())
            continue;
        std::string path(address.substr(start));
        bool found = ReplaceWord(path, forms.upper, words.upper);
        // A ticker without letters has one form only.
        if (forms.lower != forms.upper)
            found = ReplaceWord(path, forms.lower, words.lower) || found;
        if (!found)
            continue;
        const std::string folder = "/" + forms.first + "/";
        if (IsWordByte(forms.first.front()))
            path = ReplaceAll(path, folder, "/" + words.first + "/");
        return PlaceholderOffer{std::string(Trim(ticker)),
                                std::string(address.substr(0, start)) + path};
    }
    return std::nullopt;
}

} // namespace tallowmere
