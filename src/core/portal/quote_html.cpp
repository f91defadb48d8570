#include "core/portal/quote_html.h"

#include "core/links/address.h"
#include "core/links/index_query.h"
#include "core/quotes/number_text.h"
#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::size_t kMoversShown = 8;
constexpr std::string_view kUnknown = "-";

std::string Row(std::string_view name, std::string_view value) {
    return "<tr><td>" + std::string(name) + "</td><td>" + std::string(value) + "</td></tr>";
}

std::vector<std::string> SymbolsWithChange(const MarketView& market, bool rising) {
    std::vector<std::pair<double, std::string>> movers;
    for (const std::string& symbol : market.StripSymbols()) {
        const auto quote = market.Find(symbol);
        if (quote && !quote->isIndex && quote->percent)
            movers.emplace_back(*quote->percent, symbol);
    }
    std::sort(movers.begin(), movers.end());
    if (rising)
        std::reverse(movers.begin(), movers.end());
    movers.resize(std::min(movers.size(), kMoversShown));
    std::vector<std::string> symbols;
    symbols.reserve(movers.size());
    for (auto& [percent, symbol] : movers)
        symbols.push_back(std::move(symbol));
    return symbols;
}

std::string RatioText(double value) {
    return FixedText(value, 1);
}

std::string YieldText(double value) {
    return FixedText(value, 2) + "%";
}

} // namespace

std::string QuotePath(std::string_view symbol) {
    return "/q?s=" + PercentEncode(ToLower(symbol)) + "&d=2b";
}

std::string ColouredChange(const std::optional<double>& change, std::string_view text) {
    const double value = change.value_or(0);
    const std::string_view direction = value < 0 ? "down" : value > 0 ? "up" : "quiet";
    return "<span class=\"" + std::string(direction) + "\">" + std::string(text) + "</span>";
}

std::string RangeText(const std::optional<double>& low, const std::optional<double>& high) {
    return low && high ? PriceText(*low) + " - " + PriceText(*high) : std::string(kUnknown);
}

std::string LastPrice(const ShownQuote& quote, std::string_view element) {
    const std::string name(element);
    const std::string start = quote.age.empty() ? "<" + name + ">" : "<" + name + " class=\"old\">";
    return start + PriceText(quote.last) + "</" + name + ">";
}

std::string NamedCell(std::string_view name, std::string_view value) {
    return "<td data-name=\"" + std::string(name) + "\">" + std::string(value) + "</td>";
}

std::string YearRange(const ShownQuote& quote) {
    const std::string range = RangeText(quote.yearLow, quote.yearHigh);
    if (quote.rangeSource.empty())
        return range;
    return range + " <small class=\"quiet\">" + ShownText(quote.rangeSource) + "</small>";
}

std::string QuoteBlock(const MarketView& market, const ShownQuote& quote, Period period) {
    const std::string symbol = ShownText(quote.symbol);
    std::string html = "<h2>" +
                       (quote.name.empty() ? symbol : ShownText(quote.name) + " (" + symbol + ")") +
                       "</h2>";
    html += "<p><span class=\"price\">" + LastPrice(quote, "b") + "</span> " +
            ColouredChange(quote.change, TextOr(quote.change, ChangeText, kUnknown) + " (" +
                                             TextOr(quote.percent, PercentText, kUnknown) + ")") +
            " <span class=\"quiet\">" + ShownText(quote.when) + "</span></p>";
    html += "<div class=\"beside\"><table class=\"figures\">" +
            Row("Previous close", TextOr(quote.previous, PriceText, kUnknown)) +
            Row("Open", TextOr(quote.open, PriceText, kUnknown)) +
            Row("Day's range", RangeText(quote.dayLow, quote.dayHigh)) +
            Row("52-week range", YearRange(quote));
    if (!quote.isIndex) {
        html += Row("Volume", TextOr(quote.volume, ShortText, kUnknown)) +
                Row("Average volume", TextOr(quote.averageVolume, ShortText, kUnknown)) +
                Row("Market cap", TextOr(quote.marketCap, ShortText, kUnknown)) +
                Row("Earnings per share", TextOr(quote.earnings, PriceText, kUnknown)) +
                Row("P/E", TextOr(quote.priceEarnings, RatioText, kUnknown)) +
                Row("Dividend per share", TextOr(quote.dividend, PriceText, kUnknown)) +
                Row("Yield", TextOr(quote.yield, YieldText, kUnknown));
    }
    return html + "</table>" + ChartSvg(market.ChartOf(quote.symbol, period), ChartSize::Large) +
           "</div>";
}

std::string QuoteTable(const MarketView& market, const std::vector<std::string>& symbols) {
    std::string html =
        "<table class=\"figures names rows\"><tr><th>Symbol</th><th>Name</th><th>Last</th>"
        "<th>Change</th><th>%</th><th>Volume</th><th>Market cap</th><th>Time</th></tr>";
    for (const std::string& symbol : symbols) {
        const auto quote = market.Find(symbol);
        if (!quote) {
            html += "<tr><td>" + ShownText(symbol) + "</td><td colspan=\"7\" class=\"quiet\">" +
                    ShownText(market.Missing(symbol)) + "</td></tr>";
            continue;
        }
        html += "<tr><td>" + HtmlLink(QuotePath(quote->symbol), quote->symbol) + "</td><td>" +
                ShownText(quote->name) + "</td><td>" + LastPrice(*quote, "b") + "</td><td>" +
                ColouredChange(quote->change, TextOr(quote->change, ChangeText, kUnknown)) +
                "</td><td>" +
                ColouredChange(quote->change, TextOr(quote->percent, PercentText, kUnknown)) +
                "</td>" + NamedCell("Volume", TextOr(quote->volume, ShortText, kUnknown)) +
                NamedCell("Market cap", TextOr(quote->marketCap, ShortText, kUnknown)) +
                NamedCell("", ShownText(quote->when)) + "</tr>";
    }
    return html + "</table>";
}

std::string MarketBlock(const MarketView& market) {
    std::vector<std::string> indices;
    for (const IndexRow& row : IndexTable())
        indices.emplace_back(ToUpper(row.symbol));
    return "<h2>Indices</h2>" + QuoteTable(market, indices) + "<h2>Up most</h2>" +
           QuoteTable(market, SymbolsWithChange(market, true)) + "<h2>Down most</h2>" +
           QuoteTable(market, SymbolsWithChange(market, false));
}

std::string SiblingLinks(const MarketView& market, std::string_view symbol) {
    const std::string ticker = PercentEncode(ToLower(symbol));
    const std::string page = PercentEncode(FormsOf(symbol).first) + "/" + ticker + ".html";
    const auto link = [&](const std::string& path, std::string_view text) {
        return HtmlLink(market.LinkTo(path), text);
    };
    return "<nav><p>" + link(QuotePath(symbol), "Quote") + " " +
           link("/q?s=" + ticker + "&d=1d", "1 day") + " " +
           link("/q?s=" + ticker + "&d=3m", "3 months") + " " +
           link("/q?s=" + ticker + "&d=1y", "1 year") + " " + link("/p/" + page, "Profile") + " " +
           link("/n/" + page, "News") + " " + link("/z/a/" + page, "Research") + " " +
           link("/quotes?symbols=" + ticker + "&d=1b", "In a portfolio") + "</p></nav>";
}

} // namespace tallowmere
