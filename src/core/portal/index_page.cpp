#include "core/portal/index_page.h"

#include "core/portal/quote_html.h"
#include "core/quotes/number_text.h"
#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::size_t kMostCharts = 12;

constexpr std::string_view kDelay = "<p class=\"quiet\">Quotes delayed 15 minutes or more.</p>";

/// A change as the strip's page writes it: a fall stands in a font tag.
std::string IndexChange(const std::optional<double>& change) {
    const std::string text = TextOr(change, ChangeText, "-");
    return change.value_or(0) < 0 ? "<font class=\"down\">" + text + "</font>" : text;
}

/// The start of a row: its title is what the panel of the strip says of itself, `age` how old a
/// stale value is.
std::string RowStart(std::string_view note, std::string_view age) {
    std::string start = "<tr";
    if (!note.empty())
        start += " title=\"" + ShownText(note) + "\"";
    if (!age.empty())
        start += " data-age=\"" + ShownText(age) + "\"";
    return start + ">";
}

std::string StripRow(std::string start, std::string_view symbol, std::string_view value,
                     std::string_view change, std::string_view when, std::string_view name) {
    return std::move(start) + "<td nowrap><a href=\"/q?s=" + ShownText(symbol) + "&d=t\">" +
           ShownText(symbol) + "</a></td><td nowrap><b>" + std::string(value) +
           "</b></td><td nowrap>" + std::string(change) + "</td><td nowrap>" + ShownText(when) +
           "</td><td nowrap>" + ShownText(name) + "</td></tr>\n";
}

} // namespace

std::string IndexPage(const MarketView& market, const std::vector<std::string>& symbols) {
    std::vector<std::optional<ShownQuote>> quotes;
    quotes.reserve(symbols.size());
    for (const std::string& symbol : symbols)
        quotes.push_back(market.Find(symbol));
    const bool hasAny = std::any_of(quotes.begin(), quotes.end(),
                                    [](const auto& quote) { return quote.has_value(); });

    // The program cuts this page by its tags, letter by letter: the anchor with a bare "&", the
    // value in bold in a cell of its own, the change in the next cell.
    std::string body =
        "<h1>Quotes</h1><table class=\"figures rows\">\n<tr><th>Symbol</th><th>Last</th>"
        "<th>Change</th><th>Time</th><th>Name</th></tr>\n";
    for (std::size_t at = 0; at < symbols.size(); ++at) {
        if (const auto& quote = quotes[at])
            body +=
                StripRow(RowStart(quote->when, quote->age), quote->symbol, PriceText(quote->last),
                         IndexChange(quote->change), quote->when, quote->name);
        else if (hasAny)
            body += StripRow(RowStart(market.Missing(symbols[at]), ""), symbols[at], "N/A", "-", "",
                             market.Missing(symbols[at]));
        else
            body += RowStart(market.Missing(symbols[at]), "") + "<td>" + ShownText(symbols[at]) +
                    "</td><td colspan=4>" + ShownText(market.Missing(symbols[at])) + "</td></tr>\n";
    }
    return HtmlPage(market.Frame(), "Quotes", body.append("</table>").append(kDelay));
}

std::string DetailedIndexPage(const MarketView& market, const std::vector<std::string>& symbols) {
    std::string body = "<h1>Quotes</h1><table class=\"figures names rows\"><tr><th>Symbol</th>"
                       "<th>Name</th><th>Last</th><th>Change</th><th>%</th><th>Open</th>"
                       "<th>Day's range</th><th>52-week range</th><th>Time</th></tr>";
    for (const std::string& symbol : symbols) {
        const auto quote = market.Find(symbol);
        if (!quote) {
            body += "<tr><td>" + ShownText(symbol) + "</td><td colspan=\"8\">" +
                    ShownText(market.Missing(symbol)) + "</td></tr>";
            continue;
        }
        body += "<tr><td>" + HtmlLink(QuotePath(quote->symbol), quote->symbol) + "</td><td>" +
                ShownText(quote->name) + "</td><td>" + LastPrice(*quote, "b") + "</td><td>" +
                ColouredChange(quote->change, TextOr(quote->change, ChangeText, "-")) +
                "</td><td>" +
                ColouredChange(quote->change, TextOr(quote->percent, PercentText, "-")) + "</td>" +
                NamedCell("Open", TextOr(quote->open, PriceText, "-")) +
                NamedCell("Day's range", RangeText(quote->dayLow, quote->dayHigh)) +
                NamedCell("52-week range", YearRange(*quote)) +
                NamedCell("", ShownText(quote->when)) + "</tr>";
    }
    body.append("</table>").append(kDelay);
    for (std::size_t at = 0; at < std::min(symbols.size(), kMostCharts); ++at) {
        if (market.Find(symbols[at]))
            body += ChartSvg(market.ChartOf(symbols[at], Period::Day), ChartSize::Small) + " ";
    }
    return HtmlPage(market.Frame(), "Quotes", body);
}

} // namespace tallowmere
