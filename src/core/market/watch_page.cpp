#include "core/market/watch_page.h"

#include "core/text/bytes.h"

namespace tallowmere {

std::string WatchDocument(const WatchedPage& page) {
    const std::string caption = EscapeHtml(page.caption);
    std::string document = "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>";
    document += caption;
    document += "</title>\n</head>\n<body>\n<h1>";
    document += caption;
    document += "</h1>\n<p>";
    document += EscapeHtml(page.address);
    document += "<br>\n";
    document += EscapeHtml(page.time);
    document += "</p>\n<hr>\n<pre style=\"white-space: pre-wrap\">";
    // A line end right after the tag would be taken for part of it.
    document += '\n';
    document += EscapeHtml(page.text);
    document += "</pre>\n</body>\n</html>\n";
    return document;
}

} // namespace tallowmere
