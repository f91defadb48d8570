#include "core/portal/portal.h"

#include "core/links/catalogue.h"
#include "core/portal/portal_pages.h"
#include "core/portal/sample_figures.h"
#include "core/portal/sample_series.h"
#include "core/portal/sample_view.h"
#include "core/quotes/symbol_dialect.h"
#include "core/text/bytes.h"

namespace tallowmere {

namespace {

/// The parameter under which sites take tickers, whichever it is.
std::string TickerParameter(const PortalRequest& request) {
    for (const std::string_view name : {"symbols", "symbol", "company", "s", "ticker"}) {
        std::string value = request.Parameter(name);
        if (!value.empty())
            return value;
    }
    return {};
}

/// The symbol that the streaming service was sent, in the portal's form: "?.DJI" is "^DJI".
std::string StreamingSymbol(const PortalRequest& request) {
    const std::string symbol = ToUpper(request.Parameter("symbol"));
    return symbol.starts_with("?.") ? "^" + symbol.substr(2) : symbol;
}

} // namespace

SamplePortal::SamplePortal(const SiteTable& sites, SampleMarket market, PortalTexts texts)
    : m_sites(sites), m_matcher(sites), m_market(std::move(market)), m_texts(std::move(texts)) {}

PortalAnswer SamplePortal::Answer(std::string_view host, std::string_view pathAndQuery,
                                  Date today) const {
    const PortalRequest request(host, pathAndQuery);
    const SampleView market(m_market, today);
    if (auto answer = AnswerProgram(market, request, m_sites, m_texts))
        return std::move(*answer);
    return HtmlAnswer(Page(market, request));
}

std::optional<ListedPrice> SamplePortal::PriceOf(std::string_view ticker, Date today) const {
    const SampleQuote* quote = m_market.Find(OwnSymbol(ticker));
    if (!quote)
        return std::nullopt;
    const SampleFigures figures = FiguresOf(*quote);
    ListedPrice price;
    price.last = figures.last;
    price.change = figures.change;
    price.percent = figures.percent;
    price.previous = figures.previous;
    price.dayLow = figures.dayLow;
    price.dayHigh = figures.dayHigh;
    price.yearLow = figures.yearLow;
    price.yearHigh = figures.yearHigh;
    if (quote->shares != 0) {
        price.volume = figures.volume;
        price.marketCap = figures.marketCap;
        price.priceEarnings = figures.priceEarnings;
        if (figures.yield != 0)
            price.yield = figures.yield;
    }
    price.name = quote->name;
    price.source = kSampleNote;
    price.when = LastTradingDayText(today);
    price.origin = price.when + ", " + price.source;
    price.day = SampleDay(*quote);
    return price;
}

std::string SamplePortal::Page(const MarketView& market, const PortalRequest& request) const {
    const std::string& path = request.path;
    if (path == "/moneynet/cgi-bin/applet.cgi")
        return MarketPage(market, "Streaming portfolio");
    if (path == "/moneynet/jtickredir.asp")
        return LinkPage(market, Catalogue()[188], SymbolsOf(StreamingSymbol(request)), request);
    if (const auto company = market.Find(CompanyOnHost(m_market, request.host)))
        return CompanyPage(market, *company);
    // The view "2b" is that of a link, whose page says so.
    if (path == "/q" && request.Parameter("d") != "2b")
        if (auto quotes = AnswerQuotes(market, request))
            return std::move(*quotes);
    return CatalogueAnswer(market, request);
}

std::string SamplePortal::CatalogueAnswer(const MarketView& market,
                                          const PortalRequest& request) const {
    auto match = m_matcher.Match(request.address);
    if (!match)
        match = m_matcher.MatchPath(std::string_view(request.address).substr(request.host.size()));
    if (match) {
        return LinkPage(market, Catalogue()[static_cast<std::size_t>(match->index)],
                        SymbolsOf(match->ticker), request);
    }
    const auto symbols = SymbolsOf(TickerParameter(request));
    if (!symbols.empty())
        return TickersPage(market, symbols, request);
    if (request.path == "/" && request.query.empty() &&
        request.host == ToLower(m_sites.Host("portal")))
        return MarketPage(market, "Finance portal");
    return UnknownPage(market, request, "The sample market has no page for this address.");
}

} // namespace tallowmere
