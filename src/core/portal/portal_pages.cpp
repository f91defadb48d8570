#include "core/portal/portal_pages.h"

#include "core/portal/quote_html.h"
#include "core/quotes/number_text.h"
#include "core/text/bytes.h"

namespace tallowmere {

namespace {

std::string AskedAddress(const PortalRequest& request) {
    return "<p class=\"quiet\">Asked for: <code>" + ShownText(request.address) + "</code></p>";
}

std::string Heading(std::string_view caption, std::string_view tooltip) {
    std::string html = "<h1>" + ShownText(Trim(caption)) + "</h1>";
    if (!tooltip.empty())
        html += "<p>" + ShownText(tooltip) + "</p>";
    return html;
}

/// What a page says about one ticker, known or not.
std::string TickerBlock(const MarketView& market, std::string_view symbol, Period period) {
    const auto quote = market.Find(symbol);
    if (!quote)
        return "<h2>" + ShownText(symbol) + "</h2><p>" + ShownText(market.Missing(symbol)) + "</p>";
    return QuoteBlock(market, *quote, period) + SiblingLinks(market, quote->symbol);
}

/// A symbol on the ticker strip. A click opens a new window, which the program shows in its main
/// pane.
std::string StripEntry(const MarketView& market, std::string_view symbol) {
    const auto quote = market.Find(symbol);
    const std::string link = "<a target=\"_blank\" href=\"" +
                             EscapeHtml(market.LinkTo(QuotePath(symbol))) + "\">" +
                             ShownText(symbol) + "</a> ";
    if (!quote)
        return "<span>" + link + "no price</span>";
    const std::string start = quote->age.empty() ? "<span" : "<span class=\"old\"";
    return start + " title=\"" + ShownText(quote->when) + "\">" + link + PriceText(quote->last) +
           " " + ColouredChange(quote->change, TextOr(quote->change, ChangeText, "")) +
           (quote->age.empty() ? "" : " (" + ShownText(quote->age) + ")") + "</span>";
}

Period PeriodOf(std::string_view code) {
    if (code == "1d" || code == "1b")
        return Period::Day;
    if (code == "5d")
        return Period::FiveDays;
    if (code == "3m")
        return Period::ThreeMonths;
    return Period::Year;
}

} // namespace

std::string LinkPage(const MarketView& market, const LinkRow& row,
                     const std::vector<std::string>& symbols, const PortalRequest& request) {
    std::string body = Heading(row.caption, row.tooltip) + AskedAddress(request);
    if (symbols.empty())
        body += MarketBlock(market);
    else if (symbols.size() == 1)
        body += TickerBlock(market, symbols.front(), Period::Year);
    else
        body += QuoteTable(market, symbols);
    return HtmlPage(market.Frame(), Trim(row.caption), body);
}

std::string QuotePage(const MarketView& market, std::string_view symbol, std::string_view period,
                      const PortalRequest& request) {
    return HtmlPage(market.Frame(), symbol,
                    Heading("Quote", "") + AskedAddress(request) +
                        TickerBlock(market, symbol, PeriodOf(period)));
}

std::string TickersPage(const MarketView& market, const std::vector<std::string>& symbols,
                        const PortalRequest& request) {
    return HtmlPage(market.Frame(), "Tickers",
                    Heading("Tickers", "") + AskedAddress(request) + QuoteTable(market, symbols));
}

std::string ProfilePage(const MarketView& market, std::string_view symbol,
                        const PortalRequest& request) {
    const LinkRow& row = Catalogue()[47];
    const LinkRow& finder = Catalogue()[28];
    std::string body = Heading(row.caption, row.tooltip) + AskedAddress(request) +
                       TickerBlock(market, symbol, Period::Year);
    const auto quote = market.Find(symbol);
    const std::string home = quote && !quote->isIndex ? market.HomePage(*quote) : std::string();
    if (!home.empty()) {
        // The home page finder cuts the address out of the last link before these words.
        body += "<h2>" + ShownText(finder.caption) + "</h2><p>" + ShownText(finder.tooltip) +
                ": <a href=\"" + EscapeHtml(home) + "\">Home Page</a></p>";
    }
    return HtmlPage(market.Frame(), std::string(symbol) + " profile", body);
}

std::string CompanyPage(const MarketView& market, const ShownQuote& quote) {
    return HtmlPage(
        market.Frame(), quote.name,
        Heading(quote.name, "Home page of the sample company with the ticker " + quote.symbol) +
            QuoteBlock(market, quote, Period::Year) + SiblingLinks(market, quote.symbol));
}

std::string TickerStripPage(const MarketView& market, const PortalRequest& request) {
    constexpr std::size_t kSecondsPerSymbol = 4;
    std::vector<std::string> symbols = market.StripSymbols();
    if (!request.query.empty()) {
        std::erase_if(symbols, [](const std::string& symbol) { return !symbol.starts_with('^'); });
        for (std::string& ticker : SymbolsOf(request.Parameter("s")))
            symbols.push_back(std::move(ticker));
    }
    std::string run;
    for (const std::string& symbol : symbols)
        run += StripEntry(market, symbol);
    return HtmlStrip(market.Frame(), "Ticker", run, symbols.size() * kSecondsPerSymbol,
                     request.Parameter("rest").empty() ? StripPace::Running : StripPace::Resting);
}

std::string MarketPage(const MarketView& market, std::string_view title) {
    return HtmlPage(market.Frame(), title, Heading(title, "") + MarketBlock(market));
}

std::string UnknownPage(const MarketView& market, const PortalRequest& request,
                        std::string_view why) {
    return HtmlPage(market.Frame(), "No page",
                    Heading("No page here", why) + AskedAddress(request));
}

} // namespace tallowmere
