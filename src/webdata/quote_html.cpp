#include "webdata/quote_html.h"

#include "links/address.h"
#include "market/index_strip.h"
#include "text/bytes.h"
#include "webdata/html_page.h"
#include "webdata/number_text.h"
#include "webdata/sample_figures.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::size_t kMoversShown = 8;

std::string Row(std::string_view name, std::string_view value) {
    return "<tr><td>" + std::string(name) + "</td><td>" + std::string(value) + "</td></tr>";
}

std::string OrDash(double value, std::string text) {
    return value == 0 ? std::string("-") : std::move(text);
}

std::vector<std::string> SymbolsWithChange(const SampleMarket& market, bool rising) {
    std::vector<std::pair<double, std::string>> movers;
    for (const SampleQuote& quote : market.Quotes()) {
        if (quote.shares != 0)
            movers.emplace_back(FiguresOf(quote).percent, quote.symbol);
    }
    std::sort(movers.begin(), movers.end());
    if (rising)
        std::reverse(movers.begin(), movers.end());
    movers.resize(std::min(movers.size(), kMoversShown));
    std::vector<std::string> symbols;
    for (auto& [percent, symbol] : movers)
        symbols.push_back(std::move(symbol));
    return symbols;
}

} // namespace

std::string QuotePath(std::string_view symbol) {
    return "/q?s=" + PercentEncode(ToLower(symbol)) + "&d=2b";
}

std::string ColouredChange(double change, std::string_view text) {
    const std::string_view direction = change < 0 ? "down" : change > 0 ? "up" : "quiet";
    return "<span class=\"" + std::string(direction) + "\">" + std::string(text) + "</span>";
}

std::string QuoteBlock(const SampleQuote& quote, Period period, Date today) {
    const SampleFigures figures = FiguresOf(quote);
    std::string html = "<h2>" + ShownText(quote.name) + " (" + ShownText(quote.symbol) + ")</h2>";
    html += "<p><span class=\"price\">" + PriceText(figures.last) + "</span> " +
            ColouredChange(figures.change,
                           ChangeText(figures.change) + " (" + PercentText(figures.percent) + ")") +
            " <span class=\"quiet\">" + LastTradingDayText(today) + ", 4:00PM</span></p>";
    html += "<div class=\"beside\"><table class=\"figures\">" +
            Row("Previous close", PriceText(figures.previous)) +
            Row("Open", PriceText(figures.open)) +
            Row("Day's range", PriceText(figures.dayLow) + " - " + PriceText(figures.dayHigh)) +
            Row("52-week range", PriceText(figures.yearLow) + " - " + PriceText(figures.yearHigh));
    if (quote.shares != 0) {
        html += Row("Volume", ShortText(figures.volume)) +
                Row("Average volume", ShortText(figures.averageVolume)) +
                Row("Market cap", ShortText(figures.marketCap)) +
                Row("Earnings per share", PriceText(figures.earnings)) +
                Row("P/E", FixedText(figures.priceEarnings, 1)) +
                Row("Dividend per share", OrDash(figures.dividend, PriceText(figures.dividend))) +
                Row("Yield", OrDash(figures.yield, FixedText(figures.yield, 2) + "%"));
    }
    return html + "</table>" + ChartSvg(SampleChart(quote, period, today), ChartSize::Large) +
           "</div>";
}

std::string QuoteTable(const SampleMarket& market, const std::vector<std::string>& symbols) {
    std::string html =
        "<table class=\"figures names\"><tr><th>Symbol</th><th>Name</th><th>Last</th>"
        "<th>Change</th><th>%</th><th>Volume</th><th>Market cap</th></tr>";
    for (const std::string& symbol : symbols) {
        const SampleQuote* quote = market.Find(symbol);
        if (quote == nullptr) {
            html += "<tr><td>" + ShownText(symbol) +
                    "</td><td colspan=\"6\" class=\"quiet\">no sample prices for this ticker</td>"
                    "</tr>";
            continue;
        }
        const SampleFigures figures = FiguresOf(*quote);
        html += "<tr><td>" + HtmlLink(QuotePath(quote->symbol), quote->symbol) + "</td><td>" +
                ShownText(quote->name) + "</td><td>" + PriceText(figures.last) + "</td><td>" +
                ColouredChange(figures.change, ChangeText(figures.change)) + "</td><td>" +
                ColouredChange(figures.change, PercentText(figures.percent)) + "</td><td>" +
                OrDash(figures.volume, ShortText(figures.volume)) + "</td><td>" +
                OrDash(figures.marketCap, ShortText(figures.marketCap)) + "</td></tr>";
    }
    return html + "</table>";
}

std::string MarketBlock(const SampleMarket& market) {
    std::vector<std::string> indices;
    for (const IndexRow& row : IndexTable())
        indices.emplace_back(ToUpper(row.symbol));
    return "<h2>Indices</h2>" + QuoteTable(market, indices) + "<h2>Up most</h2>" +
           QuoteTable(market, SymbolsWithChange(market, true)) + "<h2>Down most</h2>" +
           QuoteTable(market, SymbolsWithChange(market, false));
}

std::string SiblingLinks(std::string_view symbol) {
    const std::string ticker = PercentEncode(ToLower(symbol));
    const std::string page = PercentEncode(FormsOf(symbol).first) + "/" + ticker + ".html";
    return "<nav><p>" + HtmlLink(QuotePath(symbol), "Quote") + " " +
           HtmlLink("/q?s=" + ticker + "&d=1d", "1 day") + " " +
           HtmlLink("/q?s=" + ticker + "&d=3m", "3 months") + " " +
           HtmlLink("/q?s=" + ticker + "&d=1y", "1 year") + " " +
           HtmlLink("/p/" + page, "Profile") + " " + HtmlLink("/n/" + page, "News") + " " +
           HtmlLink("/z/a/" + page, "Research") + " " +
           HtmlLink("/quotes?symbols=" + ticker + "&d=1b", "In a portfolio") + "</p></nav>";
}

} // namespace tallowmere
