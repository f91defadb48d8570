#include "webdata/quotes_page.h"

#include "links/address.h"
#include "text/bytes.h"
#include "webdata/html_page.h"
#include "webdata/number_text.h"
#include "webdata/sample_figures.h"
#include "webdata/sample_series.h"

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

/// Values of neighbours would touch without the blanks: the cells have no padding.
std::string Cell(std::string_view name, std::string_view value) {
    return "<td nowrap>" + std::string(name) + "&nbsp;<br>\n" + std::string(value) +
           "&nbsp;&nbsp;</td>";
}

std::string HeaderRow(std::string_view symbol, std::string_view name) {
    const std::string ticker = PercentEncode(ToLower(symbol));
    const std::string page = PercentEncode(FormsOf(symbol).first) + "/" + ticker + ".html";
    return "<tr><td nowrap colspan=7><a href=\"/q?s=" + ticker + "&d=t\"><b>" + ShownText(symbol) +
           "</b></a> " + ShownText(name) + " SAMPLE DATA - More Info: <a href=\"/n/" + page +
           "\">News</a>/<a href=\"/p/" + page + "\">Profile</a>/<a href=\"/z/a/" + page +
           "\">Research</a></td></tr>\n";
}

/// A change in the colour of its direction. The condensed page has no stylesheet, so the colour
/// stands in the tag too.
std::string ChangeHtml(const SampleFigures& figures) {
    const std::string text = ChangeText(figures.change) + " (" + PercentText(figures.percent) + ")";
    if (figures.change == 0)
        return text;
    return (figures.change < 0 ? "<font class=\"down\" color=\"#b3261e\">"
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

std::string FigureRows(const SampleQuote& quote, std::string_view chart) {
    const SampleFigures figures = FiguresOf(quote);
    const bool isIndex = quote.shares == 0;
    const auto orNone = [&](const std::string& text) { return isIndex ? "N/A" : text; };
    return "<tr valign=bottom><td nowrap colspan=2>Last Trade &#183; 4:00PM<br>\n <b>" +
           PriceText(figures.last) + "</b>&nbsp;&nbsp;</td>" + Cell("Change", ChangeHtml(figures)) +
           Cell("Prev Cls", PriceText(figures.previous)) +
           Cell("Volume", orNone(ShortText(figures.volume))) + Cell("Div Date", "N/A") +
           "<td nowrap rowspan=3 align=center valign=middle><a href=\"/q?s=" +
           PercentEncode(ToLower(quote.symbol)) + "&d=1y\"><img border=0 alt=\"Chart\" src=\"" +
           EscapeHtml(chart) + "\"></a><br>\n<small>Small: sample chart</small></td></tr>\n" +
           "<tr valign=bottom>" +
           Cell("Day's Range", PriceText(figures.dayLow) + " - " + PriceText(figures.dayHigh)) +
           Cell("Bid", "N/A") + Cell("Ask", "N/A") + Cell("Open", PriceText(figures.open)) +
           Cell("Avg Vol", orNone(ShortText(figures.averageVolume))) + Cell("Ex-Div", "N/A") +
           "</tr>\n<tr valign=bottom>" +
           Cell("52-week Range", PriceText(figures.yearLow) + " - " + PriceText(figures.yearHigh)) +
           Cell("Earn/Shr", orNone(PriceText(figures.earnings))) +
           Cell("P/E", orNone(FixedText(figures.priceEarnings, 1))) +
           Cell("Mkt Cap", orNone(ShortText(figures.marketCap))) +
           Cell("Div/Shr", orNone(PriceText(figures.dividend))) +
           Cell("Yield", orNone(FixedText(figures.yield, 2))) + "</tr>\n";
}

/// A row per ticker, in one table.
std::string BasicTable(const SampleMarket& market, const std::vector<std::string>& symbols) {
    std::string html(kTableStart);
    html += "<tr><td nowrap>Symbol</td><td nowrap>Name</td><td nowrap>Last Trade</td>"
            "<td nowrap>Change</td><td nowrap>Volume</td></tr>\n";
    for (const std::string& symbol : symbols) {
        const SampleQuote* quote = market.Find(symbol);
        html += "<tr><td nowrap><a href=\"/q?s=" + PercentEncode(ToLower(symbol)) + "&d=t\">" +
                ShownText(symbol) + "</a></td>";
        if (quote == nullptr) {
            html += "<td nowrap colspan=4>no sample prices for this ticker</td></tr>\n";
            continue;
        }
        const SampleFigures figures = FiguresOf(*quote);
        html += "<td nowrap>" + ShownText(quote->name) + "</td><td nowrap><b>" +
                PriceText(figures.last) + "</b></td><td nowrap>" + ChangeHtml(figures) +
                "</td><td nowrap>" + (quote->shares == 0 ? "N/A" : ShortText(figures.volume)) +
                "</td></tr>\n";
    }
    return html + "</table><p>\n";
}

} // namespace

std::string QuotesPage(const SampleMarket& market, const std::vector<std::string>& symbols,
                       std::string_view viewCode, std::string_view chartServer1,
                       std::string_view chartServer2) {
    std::string body = "<h1>Portfolio</h1>\n";
    const bool hasCharts = viewCode == "1b" || viewCode == "2b" || viewCode == "0b";
    if (!hasCharts) {
        body += BasicTable(market, symbols);
    } else {
        for (const std::string& symbol : symbols) {
            const SampleQuote* quote = market.Find(symbol);
            body += kTableStart;
            body += HeaderRow(symbol, quote == nullptr ? "no sample prices" : quote->name);
            if (quote != nullptr)
                body +=
                    FigureRows(*quote, ChartAddress(symbol, viewCode, chartServer1, chartServer2));
            body += "</table><p>\n";
        }
    }
    return HtmlPage("Portfolio", body.append(kDelay));
}

} // namespace tallowmere
