#include "webdata/index_page.h"

#include "text/bytes.h"
#include "webdata/html_page.h"
#include "webdata/number_text.h"
#include "webdata/quote_html.h"
#include "webdata/sample_figures.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::size_t kMostCharts = 12;

constexpr std::string_view kDelay = "<p class=\"quiet\">Quotes delayed 15 minutes or more.</p>";

/// A change as the strip's page writes it: a fall stands in a font tag.
std::string IndexChange(double change) {
    const std::string text = ChangeText(change);
    return change < 0 ? "<font class=\"down\">" + text + "</font>" : text;
}

} // namespace

std::string IndexPage(const SampleMarket& market, const std::vector<std::string>& symbols,
                      Date today) {
    // The program cuts this page by its tags, letter by letter: the anchor with a bare "&", the
    // value in bold in a cell of its own, the change in the next cell.
    std::string body = "<h1>Quotes</h1><table class=\"figures\">\n<tr><th>Symbol</th><th>Last</th>"
                       "<th>Change</th><th>Day</th><th>Name</th></tr>\n";
    for (const std::string& symbol : symbols) {
        const SampleQuote* quote = market.Find(symbol);
        if (quote == nullptr) {
            body += "<tr><td>" + ShownText(symbol) +
                    "</td><td colspan=4>no sample prices for this symbol</td></tr>\n";
            continue;
        }
        const SampleFigures figures = FiguresOf(*quote);
        body += "<tr><td nowrap><a href=\"/q?s=" + EscapeHtml(quote->symbol) + "&d=t\">" +
                EscapeHtml(quote->symbol) + "</a></td><td nowrap><b>" + PriceText(figures.last) +
                "</b></td><td nowrap>" + IndexChange(figures.change) + "</td><td nowrap>" +
                LastTradingDayText(today) + "</td><td nowrap>" + ShownText(quote->name) +
                "</td></tr>\n";
    }
    return HtmlPage("Quotes", body.append("</table>").append(kDelay));
}

std::string DetailedIndexPage(const SampleMarket& market, const std::vector<std::string>& symbols,
                              Date today) {
    std::string body = "<h1>Quotes</h1><p class=\"quiet\">" + LastTradingDayText(today) +
                       ", 4:00PM</p><table class=\"figures names\"><tr><th>Symbol</th><th>Name</th>"
                       "<th>Last</th><th>Change</th><th>%</th><th>Open</th><th>Day's range</th>"
                       "<th>52-week range</th></tr>";
    for (const std::string& symbol : symbols) {
        const SampleQuote* quote = market.Find(symbol);
        if (quote == nullptr) {
            body += "<tr><td>" + ShownText(symbol) +
                    "</td><td colspan=\"7\">no sample prices for this symbol</td></tr>";
            continue;
        }
        const SampleFigures figures = FiguresOf(*quote);
        body += "<tr><td>" + HtmlLink(QuotePath(quote->symbol), quote->symbol) + "</td><td>" +
                ShownText(quote->name) + "</td><td><b>" + PriceText(figures.last) +
                "</b></td><td>" + ColouredChange(figures.change, ChangeText(figures.change)) +
                "</td><td>" + ColouredChange(figures.change, PercentText(figures.percent)) +
                "</td><td>" + PriceText(figures.open) + "</td><td>" + PriceText(figures.dayLow) +
                " - " + PriceText(figures.dayHigh) + "</td><td>" + PriceText(figures.yearLow) +
                " - " + PriceText(figures.yearHigh) + "</td></tr>";
    }
    body.append("</table>").append(kDelay);
    for (std::size_t at = 0; at < std::min(symbols.size(), kMostCharts); ++at) {
        if (const SampleQuote* quote = market.Find(symbols[at]))
            body += ChartSvg(SampleChart(*quote, Period::Day, today), ChartSize::Small) + " ";
    }
    return HtmlPage("Quotes", body);
}

} // namespace tallowmere
