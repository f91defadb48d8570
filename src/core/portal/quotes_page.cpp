#include "core/portal/quotes_page.h"

#include "core/links/address.h"
#include "core/portal/quote_html.h"
#include "core/quotes/number_text.h"
#include "core/text/bytes.h"

namespace tallowmere {

namespace {

// The condensed page is cut out of this page letter by letter. Tags, their attributes and the
// words that they stand beside are therefore fixed: this start of every table and of nothing else,
// a header cell across seven columns whose rest after "- More Info:" is dropped, three rows that
// each have one cell which is dropped, a chart cell that spans them, a dot with the time behind it
// up to the first line break, and the remark about the delay at the end.
constexpr std::string_view kTableStart =
    "<table border=1 width=\"100%\" cellpadding=0 cellspacing=0>\n";
constexpr std::string_view kDelay =
    "<p class=\"quiet\">Quotes delayed 15 minutes for all exchanges.</p>";

constexpr std::string_view kUnknown = "N/A";

/// Values of neighbours would touch without the blanks: the cells have no padding.
std::string Cell(std::string_view name, std::string_view value) {
    return "<td nowrap>" + std::string(name) + "&nbsp;<br>\n" + std::string(value) +
           "&nbsp;&nbsp;</td>";
}

std::string HeaderRow(std::string_view symbol, std::string_view name) {
    const std::string ticker = PercentEncode(ToLower(symbol));
    const std::string page = PercentEncode(FormsOf(symbol).first) + "/" + ticker + ".html";
    return "<tr><td nowrap colspan=7><a href=\"/q?s=" + ticker + "&d=t\"><b>" + ShownText(symbol) +
           "</b></a> " + ShownText(name) + " - More Info: <a href=\"/n/" + page +
           "\">News</a>/<a href=\"/p/" + page + "\">Profile</a>/<a href=\"/z/a/" + page +
           "\">Research</a></td></tr>\n";
}

/// A change in the colour of its direction. The condensed page has no stylesheet, so the colour
/// stands in the tag too.
std::string ChangeHtml(const ShownQuote& quote) {
    if (!quote.change)
        return std::string(kUnknown);
    std::string text =
        ChangeText(*quote.change) + " (" + TextOr(quote.percent, PercentText, kUnknown) + ")";
    if (*quote.change == 0)
        return text;
    return (*quote.change < 0 ? "<font class=\"down\" color=\"#b3261e\">"
                              : "<font class=\"up\" color=\"#14692f\">") +
           text + "</font>";
}

/// Image address of the small chart of a view.
std::string ChartAddress(std::string_view symbol, std::string_view viewCode,
                         std::string_view chartServer1, std::string_view chartServer2) {
    const std::string ticker = PercentEncode(ToLower(symbol));
    if (viewCode == "1b")
        return std::string(chartServer2) + "/t?s=" + ticker;
    if (viewCode == "2b")
        return std::string(chartServer2) + "/v?s=" + ticker;
    return std::string(chartServer1) + "/c/0b/" + PercentEncode(FormsOf(symbol).first) + "/" +
           ticker + ".gif";
}

std::string RatioText(double value) {
    return FixedText(value, 1);
}

std::string YieldText(double value) {
    return FixedText(value, 2);
}

std::string FigureRows(const ShownQuote& quote, std::string_view chart) {
    const auto cell = [](std::string_view name, const std::optional<double>& value,
                         std::string (*text)(double)) {
        return Cell(name, TextOr(value, text, kUnknown));
    };
    return "<tr valign=bottom><td nowrap colspan=2>Last Trade &#183; latest<br>\n <b>" +
           PriceText(quote.last) + "</b>&nbsp;&nbsp;</td>" + Cell("Change", ChangeHtml(quote)) +
           cell("Prev Cls", quote.previous, PriceText) + cell("Volume", quote.volume, ShortText) +
           Cell("Div Date", kUnknown) +
           "<td nowrap rowspan=3 align=center valign=middle><a href=\"/q?s=" +
           PercentEncode(ToLower(quote.symbol)) + "&d=1y\"><img border=0 alt=\"Chart\" src=\"" +
           EscapeHtml(chart) + "\"></a><br>\n<small>Small: chart</small></td></tr>\n" +
           "<tr valign=bottom>" + Cell("Day's Range", RangeText(quote.dayLow, quote.dayHigh)) +
           Cell("Bid", kUnknown) + Cell("Ask", kUnknown) + cell("Open", quote.open, PriceText) +
           cell("Avg Vol", quote.averageVolume, ShortText) + Cell("Ex-Div", kUnknown) +
           "</tr>\n<tr valign=bottom>" +
           Cell("52-week Range", RangeText(quote.yearLow, quote.yearHigh)) +
           cell("Earn/Shr", quote.earnings, PriceText) +
           cell("P/E", quote.priceEarnings, RatioText) +
           cell("Mkt Cap", quote.marketCap, ShortText) +
           cell("Div/Shr", quote.dividend, PriceText) + cell("Yield", quote.yield, YieldText) +
           "</tr>\n";
}

/// A row per ticker, in one table.
std::string BasicTable(const MarketView& market, const std::vector<std::string>& symbols) {
    std::string html(kTableStart);
    html += "<tr><td nowrap>Symbol</td><td nowrap>Name</td><td nowrap>Last Trade</td>"
            "<td nowrap>Change</td><td nowrap>Volume</td><td nowrap>Time</td></tr>\n";
    for (const std::string& symbol : symbols) {
        const auto quote = market.Find(symbol);
        html += "<tr><td nowrap><a href=\"/q?s=" + PercentEncode(ToLower(symbol)) + "&d=t\">" +
                ShownText(symbol) + "</a></td>";
        if (!quote) {
            html += "<td nowrap colspan=5>" + ShownText(market.Missing(symbol)) + "</td></tr>\n";
            continue;
        }
        html += "<td nowrap>" + ShownText(quote->name) + "</td><td nowrap><b>" +
                PriceText(quote->last) + "</b></td><td nowrap>" + ChangeHtml(*quote) +
                "</td><td nowrap>" + TextOr(quote->volume, ShortText, kUnknown) +
                "</td><td nowrap>" + ShownText(quote->when) + "</td></tr>\n";
    }
    return html + "</table><p>\n";
}

} // namespace

std::string QuotesPage(const MarketView& market, const std::vector<std::string>& symbols,
                       std::string_view viewCode, std::string_view chartServer1,
                       std::string_view chartServer2) {
    std::string body = "<h1>Portfolio</h1>\n";
    const bool hasCharts = viewCode == "1b" || viewCode == "2b" || viewCode == "0b";
    if (!hasCharts) {
        body += BasicTable(market, symbols);
    } else {
        for (const std::string& symbol : symbols) {
            const auto quote = market.Find(symbol);
            body += kTableStart;
            body += HeaderRow(symbol,
                              quote ? quote->name + " " + quote->stamp : market.Missing(symbol));
            if (quote)
                body +=
                    FigureRows(*quote, ChartAddress(symbol, viewCode, chartServer1, chartServer2));
            body += "</table><p>\n";
        }
    }
    return HtmlPage(market.Frame(), "Portfolio", body.append(kDelay));
}

} // namespace tallowmere
