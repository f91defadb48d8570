#pragma once

#include <string>
#include <string_view>

/// What the pages of the built-in portal have in common.
namespace tallowmere {

/// What stands around every page of a market; plain text.
struct PageFrame {
    std::string titleEnd;  ///< behind the title
    std::string note;      ///< at the head of the page
    std::string stripNote; ///< the same where there is room for a few words only
    std::string logo;      ///< beside the mark, two words at most
};

/// A whole page around `body`, which is HTML; `title` is plain text.
std::string HtmlPage(const PageFrame& frame, std::string_view title, std::string_view body);

/// How a strip goes by: on and on, or by one entry at a time, which is drawn a few times a turn.
enum class StripPace { Running, Resting };

/// The same as a single line that goes by in `seconds` and starts over without a gap, for a pane
/// that is not higher than that; `run` holds an element for each entry. It rests under the pointer,
/// for a focused link, and for people who want nothing to move, who scroll it by hand; it loads
/// itself anew every minute.
std::string HtmlStrip(const PageFrame& frame, std::string_view title, std::string_view run,
                      std::size_t seconds, StripPace pace);

/// The text of the one script that HtmlStrip has.
std::string_view StripScript();

/// A text from outside made fit to be shown: escaped, without control characters, cut when it is
/// longer than anybody would read.
std::string ShownText(std::string_view text);

/// A link; `href` and `text` are plain text.
std::string HtmlLink(std::string_view href, std::string_view text);

} // namespace tallowmere
