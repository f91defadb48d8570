#include "core/pages/page_scheme.h"

#include "core/pages/page_policy.h"

namespace tallowmere {

namespace {

constexpr std::string_view kDarkQuotation = "font[color=\"#008000\"] { color: #5fd080; }";

// A page may bring a style of its own that follows the desktop; this one comes first and wins.
std::string Style(std::string_view scheme, std::string_view colors) {
    return std::string(":root { color-scheme: ")
        .append(scheme)
        .append(" !important; ")
        .append(colors)
        .append(" }");
}

std::string Important(std::string_view colors) {
    std::string result;
    for (const char character : colors) {
        if (character == ';')
            result += " !important";
        result += character;
    }
    return result;
}

} // namespace

std::string WithScheme(std::string_view page, PageScheme scheme) {
    std::string style;
    switch (scheme) {
    case PageScheme::Desktop:
        style = Style("light dark", "")
                    .append(" @media (prefers-color-scheme: dark) { ")
                    .append(kDarkQuotation)
                    .append(" }");
        break;
    case PageScheme::Light:
        style = Style("light", Important(kLightPageColors));
        break;
    case PageScheme::Dark:
        style = Style("dark", Important(kDarkPageColors)).append(" ").append(kDarkQuotation);
        break;
    }
    // On paper dark pages are light, whatever the window is.
    return WithHead(page, "<style media=\"screen\">" + style + "</style>");
}

} // namespace tallowmere
