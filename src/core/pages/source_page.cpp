#include "core/pages/source_page.h"

#include "core/text/bytes.h"
#include "core/text/plain_text.h"

namespace tallowmere {

namespace {

constexpr std::string_view kHead =
    "<!doctype html><html lang=\"en\"><head><meta charset=\"utf-8\"><style>"
    ":root { color-scheme: light dark; } "
    "body { margin: 0.6em; font-family: sans-serif; } "
    "p { margin: 0 0 0.6em; overflow-wrap: anywhere; } "
    "pre { margin: 0; font-family: monospace; white-space: pre-wrap; overflow-wrap: anywhere; }"
    "</style><title>";
constexpr std::size_t kLongestAddress = 2000;
constexpr std::string_view kNoCharacter = "\xEF\xBF\xBD"; ///< where no character can stand

// The engine takes a zero for the end of nothing, but says nothing about it either.
std::string Shown(std::string_view text) {
    return EscapeHtml(ReplaceAll(text, std::string_view("\0", 1), kNoCharacter));
}

} // namespace

std::string SourcePage(std::string_view address, std::string_view source) {
    const std::string shownAddress = Shown(FrontOf(address, kLongestAddress));
    const std::string_view front = FrontOf(source, kLongestSource);
    const bool isCut = front.size() < source.size();
    const std::string cut = isCut ? "Cut after " + std::to_string(front.size()) + " of " +
                                        std::to_string(source.size()) + " bytes."
                                  : "";
    std::string page(kHead);
    page.append("Source of ").append(shownAddress).append("</title></head><body><p>Source of <b>");
    page.append(shownAddress)
        .append("</b>, as the page stands now: with what its scripts changed.");
    if (isCut)
        page.append(" ").append(cut);
    // The first line end in such an element is none of its text.
    page.append("</p><pre>\n").append(Shown(front)).append("</pre>");
    if (isCut)
        page.append("<p><b>").append(cut).append("</b></p>");
    return page.append("</body></html>");
}

} // namespace tallowmere
