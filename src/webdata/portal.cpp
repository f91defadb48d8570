#include "webdata/portal.h"

#include "links/catalogue.h"
#include "text/bytes.h"
#include "webdata/index_page.h"
#include "webdata/portal_pages.h"
#include "webdata/quotes_page.h"
#include "webdata/sample_series.h"
#include "webdata/web_address.h"

#include <algorithm>
#include <array>
#include <optional>

namespace tallowmere {

namespace {

constexpr std::string_view kHtml = "text/html; charset=utf-8";
constexpr std::string_view kSvg = "image/svg+xml";

// A mark of our own: a curve in a rounded square.
constexpr std::string_view kLogo =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="160" height="32" viewBox="0 0 160 32">)"
    R"(<rect x="1" y="1" width="30" height="30" rx="6" fill="#0b5cad"/><polyline fill="none" )"
    R"(stroke="#ffffff" stroke-width="2.5" points="6,22 12,15 17,19 26,8"/><rect x="36" y="1" )"
    R"(width="123" height="30" rx="6" fill="#ffffff"/><text x="42" y="21" font-size="14" )"
    R"(font-family="sans-serif" fill="#24292f">SAMPLE DATA</text></svg>)";

/// A chart image by its path; what follows the path is the ticker.
struct ChartPath {
    std::string_view path;
    Period period;
    ChartSize size;
    bool inQuery; ///< the ticker is the parameter "s", else the name of the file
};

// clang-format off
constexpr std::array<ChartPath, 7> kChartPaths{{
    {"/c/0b/", Period::Year,        ChartSize::Small, false},
    {"/c/1y/", Period::Year,        ChartSize::Large, false},
    {"/c/3m/", Period::ThreeMonths, ChartSize::Large, false},
    {"/v",     Period::FiveDays,    ChartSize::Small, true},
    {"/t",     Period::Day,         ChartSize::Small, true},
    {"/w",     Period::FiveDays,    ChartSize::Large, true},
    {"/b",     Period::Day,         ChartSize::Large, true},
}};
// clang-format on

/// The ticker in "<folder><first letter>/<ticker><extension>".
std::optional<std::string> TickerOfFile(std::string_view path, std::string_view folder,
                                        std::string_view extension) {
    if (!path.starts_with(folder) || !path.ends_with(extension))
        return std::nullopt;
    path.remove_prefix(folder.size());
    const auto slash = path.find('/');
    if (slash == std::string_view::npos || path.size() - slash - 1 < extension.size())
        return std::nullopt;
    path.remove_suffix(extension.size());
    return ToUpper(path.substr(slash + 1));
}

std::optional<std::string> ChartAnswer(const SampleMarket& market, const PortalRequest& request,
                                       Date today) {
    for (const ChartPath& chart : kChartPaths) {
        std::optional<std::string> ticker;
        if (!chart.inQuery)
            ticker = TickerOfFile(request.path, chart.path, ".gif");
        else if (request.path == chart.path)
            ticker = ToUpper(request.Parameter("s"));
        if (!ticker)
            continue;
        const SampleQuote* quote = market.Find(*ticker);
        return ChartSvg(quote != nullptr
                            ? SampleChart(*quote, chart.period, today)
                            : Chart{"Unknown ticker", std::string(kSampleNote), {}, {}},
                        chart.size);
    }
    return std::nullopt;
}

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
    if (request.path.ends_with("/rr.html"))
        return {std::string(kHtml), m_texts.books};
    if (request.path.ends_with("/newsites.html"))
        return {std::string(kHtml), m_texts.newSites};
    if (request.path == "/logo.gif")
        return {std::string(kSvg), std::string(kLogo)};
    if (auto chart = ChartAnswer(m_market, request, today))
        return {std::string(kSvg), std::move(*chart)};
    return {std::string(kHtml), Page(request, today)};
}

std::string SamplePortal::Page(const PortalRequest& request, Date today) const {
    const std::string& path = request.path;
    if (path == "/quotes")
        return QuotesPage(m_market, SymbolsOf(request.Parameter("symbols")), request.Parameter("d"),
                          WithScheme(m_sites.Host("chart_server_1")),
                          WithScheme(m_sites.Host("chart_server_2")));
    if (path == "/javaticker.html")
        return TickerStripPage(m_market);
    if (path == "/moneynet/cgi-bin/applet.cgi")
        return MarketPage(m_market, "Streaming portfolio");
    if (path == "/moneynet/jtickredir.asp")
        return LinkPage(m_market, Catalogue()[188], SymbolsOf(StreamingSymbol(request)), request,
                        today);
    if (const auto ticker = TickerOfFile(path, "/p/", ".html"))
        return ProfilePage(m_market, *ticker, request, today);
    if (const SampleQuote* company = CompanyOnHost(m_market, request.host))
        return CompanyPage(*company, today);
    return path == "/q" ? QuotesAnswer(request, today) : CatalogueAnswer(request, today);
}

std::string SamplePortal::QuotesAnswer(const PortalRequest& request, Date today) const {
    const auto symbols = SymbolsOf(request.Parameter("s"));
    const std::string view = request.Parameter("d");
    const bool hasIndex = std::any_of(symbols.begin(), symbols.end(),
                                      [](const auto& symbol) { return symbol.starts_with('^'); });
    if (view == "t" && !symbols.empty())
        return DetailedIndexPage(m_market, symbols, today);
    if (symbols.size() > 1 || (hasIndex && view.empty()))
        return IndexPage(m_market, symbols, today);
    if (view == "2b" || symbols.empty())
        return CatalogueAnswer(request, today);
    return QuotePage(m_market, symbols.front(), view, request, today);
}

std::string SamplePortal::CatalogueAnswer(const PortalRequest& request, Date today) const {
    auto match = m_matcher.Match(request.address);
    if (!match)
        match = m_matcher.MatchPath(std::string_view(request.address).substr(request.host.size()));
    if (match) {
        return LinkPage(m_market, Catalogue()[static_cast<std::size_t>(match->index)],
                        SymbolsOf(match->ticker), request, today);
    }
    const auto symbols = SymbolsOf(TickerParameter(request));
    if (!symbols.empty())
        return TickersPage(m_market, symbols, request, today);
    if (request.path == "/" && request.query.empty() &&
        request.host == ToLower(m_sites.Host("portal")))
        return MarketPage(m_market, "Finance portal");
    return UnknownPage(request);
}

} // namespace tallowmere
