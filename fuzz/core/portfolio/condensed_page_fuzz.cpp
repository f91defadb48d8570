#include "core/portfolio/condensed_page.h"
#include "core/portfolio/naive_condensed_page.h"
#include "core/sites/site_table.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr std::size_t kLongest = 64; // the naive page is slow
constexpr std::string_view kTable = "<table border=1 width=\"100%\" cellpadding=0 cellspacing=0>";
constexpr std::string_view kHead =
    "<body topmargin=\"0\" leftmargin=\"0\"><a href=\"http://portal.test/\">"
    "<img src=\"http://portal.test/logo.gif\" border=\"0\"></a><br>";

// What the page is made of, and parts of it that may come together. A byte of the input stands for
// the piece of its number, any other byte for itself.
constexpr std::string_view kPieces[] = {"- More Info:",
                                        "- More",
                                        " Info:",
                                        "<small>Small",
                                        "<small>S",
                                        "mall",
                                        "<td nowrap>Div Date",
                                        "<td nowrap>Ex-Div",
                                        "<td nowrap>Yield",
                                        "<td now",
                                        "rap>Yield",
                                        "rap>Div Date",
                                        "</td>",
                                        "</t",
                                        "d>",
                                        "valign=bottom",
                                        "100%",
                                        "<p>",
                                        "border=1",
                                        "<td nowrap>",
                                        "<td nowrap colspan=2>",
                                        "<td nowrap colspan=7>",
                                        "<td nowrap rowspan=3",
                                        ">/<",
                                        "Avg Vol",
                                        "week Range",
                                        "Earn/Shr",
                                        "Mkt Cap",
                                        "Div/Shr",
                                        "Day's",
                                        "Prev Cls",
                                        "\"/q?s=",
                                        "<br>\n",
                                        "&#183",
                                        "&#183;a<br>\nb",
                                        ";a<br>\nb",
                                        "<table bor",
                                        kTable,
                                        "Quotes delayed 15"};

} // namespace

// Compares the page with the one that is made step by step.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const tallowmere::SiteTable sites = tallowmere::SiteTable::Parse(
        "[hosts]\nportal = \"portal.test\"\nquote_server = \"server.test\"\n", "sites.toml");
    std::string body(size % 7 == 0 ? "" : kTable);
    for (std::size_t i = 0; i < std::min(size, kLongest); ++i) {
        if (data[i] < std::size(kPieces))
            body += kPieces[data[i]];
        else
            body += static_cast<char>(data[i]);
    }
    if (size % 5 != 0)
        body += "</td>";
    body += "Quotes delayed 15";
    if (tallowmere::CondensedPage(body, sites) !=
        tallowmere::naive::CondensedPage(body, std::string(kHead), "http://server.test"))
        std::abort();

    const std::string_view raw(reinterpret_cast<const char*>(data), size);
    if (tallowmere::CondensedPage(raw, sites) && raw.find(kTable) == std::string_view::npos)
        std::abort();
    return 0;
}
