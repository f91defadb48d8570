#include "webdata/portal_pages.h"

#include "text/bytes.h"
#include "webdata/html_page.h"
#include "webdata/number_text.h"
#include "webdata/quote_html.h"
#include "webdata/sample_figures.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::string_view kCompanyHostStart = "www.";
constexpr std::string_view kCompanyHostEnd = ".company.example";

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
std::string TickerBlock(const SampleMarket& market, std::string_view symbol, Period period,
                        Date today) {
    const SampleQuote* quote = market.Find(symbol);
    if (quote == nullptr)
        return "<h2>" + ShownText(symbol) +
               "</h2><p>The sample market has no prices for this ticker.</p>";
    return QuoteBlock(*quote, period, today) + SiblingLinks(quote->symbol);
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

std::string LinkPage(const SampleMarket& market, const LinkRow& row,
                     const std::vector<std::string>& symbols, const PortalRequest& request,
                     Date today) {
    std::string body = Heading(row.caption, row.tooltip) + AskedAddress(request);
    if (symbols.empty())
        body += MarketBlock(market);
    else if (symbols.size() == 1)
        body += TickerBlock(market, symbols.front(), Period::Year, today);
    else
        body += QuoteTable(market, symbols);
    return HtmlPage(Trim(row.caption), body);
}

std::string QuotePage(const SampleMarket& market, std::string_view symbol, std::string_view period,
                      const PortalRequest& request, Date today) {
    return HtmlPage(symbol, Heading("Quote", "") + AskedAddress(request) +
                                TickerBlock(market, symbol, PeriodOf(period), today));
}

std::string TickersPage(const SampleMarket& market, const std::vector<std::string>& symbols,
                        const PortalRequest& request, Date today) {
    return HtmlPage("Tickers", Heading("Tickers", LastTradingDayText(today)) +
                                   AskedAddress(request) + QuoteTable(market, symbols));
}

std::string ProfilePage(const SampleMarket& market, std::string_view symbol,
                        const PortalRequest& request, Date today) {
    const LinkRow& row = Catalogue()[47];
    const LinkRow& finder = Catalogue()[28];
    std::string body = Heading(row.caption, row.tooltip) + AskedAddress(request) +
                       TickerBlock(market, symbol, Period::Year, today);
    const SampleQuote* quote = market.Find(symbol);
    if (quote != nullptr && quote->shares != 0) {
        // The home page finder cuts the address out of the last link before these words.
        body += "<h2>" + ShownText(finder.caption) + "</h2><p>" + ShownText(finder.tooltip) +
                ": <a href=\"http://" + CompanyHost(quote->symbol) + "/\">Home Page</a></p>";
    }
    return HtmlPage(std::string(symbol) + " profile", body);
}

std::string CompanyHost(std::string_view symbol) {
    // A host has no dot of its own in a label; no ticker has a hyphen.
    return std::string(kCompanyHostStart) + ReplaceAll(ToLower(symbol), ".", "-") +
           std::string(kCompanyHostEnd);
}

const SampleQuote* CompanyOnHost(const SampleMarket& market, std::string_view host) {
    if (!host.starts_with(kCompanyHostStart) || !host.ends_with(kCompanyHostEnd) ||
        host.size() < kCompanyHostStart.size() + kCompanyHostEnd.size())
        return nullptr;
    host.remove_prefix(kCompanyHostStart.size());
    host.remove_suffix(kCompanyHostEnd.size());
    return market.Find(ReplaceAll(host, "-", "."));
}

std::string CompanyPage(const SampleQuote& quote, Date today) {
    return HtmlPage(
        quote.name,
        Heading(quote.name, "Home page of the sample company with the ticker " + quote.symbol) +
            QuoteBlock(quote, Period::Year, today) + SiblingLinks(quote.symbol));
}

std::string TickerStripPage(const SampleMarket& market) {
    std::vector<const SampleQuote*> quotes;
    for (const SampleQuote& quote : market.Quotes())
        quotes.push_back(&quote);
    std::stable_partition(quotes.begin(), quotes.end(),
                          [](const SampleQuote* quote) { return quote->shares == 0; });
    // A click opens a new window, which the program shows in its main pane.
    std::string body = "<p>";
    for (const SampleQuote* quote : quotes) {
        const SampleFigures figures = FiguresOf(*quote);
        body += "<span><a target=\"_blank\" href=\"" + EscapeHtml(QuotePath(quote->symbol)) +
                "\">" + ShownText(quote->symbol) + "</a> " + PriceText(figures.last) + " " +
                ColouredChange(figures.change, ChangeText(figures.change)) + "</span> ";
    }
    return HtmlStrip("Ticker", body + "</p>");
}

std::string MarketPage(const SampleMarket& market, std::string_view title) {
    return HtmlPage(title, Heading(title, "") + MarketBlock(market));
}

std::string UnknownPage(const PortalRequest& request) {
    return HtmlPage("No page",
                    Heading("No page here", "The sample market has no page for this address.") +
                        AskedAddress(request));
}

} // namespace tallowmere
