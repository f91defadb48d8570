#pragma once

#include <string>
#include <string_view>

/// What the pages of the built-in portal have in common.
namespace tallowmere {

/// A whole page of sample data around `body`, which is HTML; `title` is plain text.
std::string HtmlPage(std::string_view title, std::string_view body);

/// The same as a single line, for a pane that is not higher than that.
std::string HtmlStrip(std::string_view title, std::string_view body);

/// A text from outside made fit to be shown: escaped, without control characters, cut when it is
/// longer than anybody would read.
std::string ShownText(std::string_view text);

/// A link; `href` and `text` are plain text.
std::string HtmlLink(std::string_view href, std::string_view text);

} // namespace tallowmere
