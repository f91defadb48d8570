#include "core/portal/portal_answer.h"

#include "core/links/web_address.h"
#include "core/portal/index_page.h"
#include "core/portal/portal_pages.h"
#include "core/portal/quotes_page.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

/// A mark of our own: a curve in a rounded square, and a few words.
std::string LogoSvg(std::string_view words) {
    return R"(<svg xmlns="http://www.w3.org/2000/svg" width="160" height="32" )"
           R"(viewBox="0 0 160 32"><rect x="1" y="1" width="30" height="30" rx="6" )"
           R"(fill="#0b5cad"/><polyline fill="none" stroke="#ffffff" stroke-width="2.5" )"
           R"(points="6,22 12,15 17,19 26,8"/><rect x="36" y="1" width="123" height="30" )"
           R"(rx="6" fill="#ffffff"/><text x="42" y="21" font-size="14" )"
           R"(font-family="sans-serif" fill="#24292f">)" +
           ShownText(words) + "</text></svg>";
}

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

std::optional<std::string> ChartAnswer(const MarketView& market, const PortalRequest& request) {
    for (const ChartPath& chart : kChartPaths) {
        std::optional<std::string> ticker;
        if (!chart.inQuery)
            ticker = TickerOfFile(request.path, chart.path, ".gif");
        else if (request.path == chart.path)
            ticker = ToUpper(request.Parameter("s"));
        if (ticker)
            return ChartSvg(market.ChartOf(*ticker, chart.period), chart.size);
    }
    return std::nullopt;
}

PortalAnswer SvgAnswer(std::string image) {
    return {"image/svg+xml", std::move(image)};
}

} // namespace

PortalAnswer HtmlAnswer(std::string page) {
    return {"text/html; charset=utf-8", std::move(page)};
}

std::optional<PortalAnswer> AnswerProgram(const MarketView& market, const PortalRequest& request,
                                          const SiteTable& sites, const PortalTexts& texts) {
    const std::string& path = request.path;
    if (path.ends_with("/rr.html"))
        return HtmlAnswer(texts.books);
    if (path.ends_with("/newsites.html"))
        return HtmlAnswer(texts.newSites);
    if (path == "/logo.gif")
        return SvgAnswer(LogoSvg(market.Frame().logo));
    if (auto chart = ChartAnswer(market, request))
        return SvgAnswer(std::move(*chart));
    if (path == "/quotes")
        return HtmlAnswer(QuotesPage(
            market, SymbolsOf(request.Parameter("symbols")), request.Parameter("d"),
            WithScheme(sites.Host("chart_server_1")), WithScheme(sites.Host("chart_server_2"))));
    if (path == kTickerStripPath)
        return HtmlAnswer(TickerStripPage(market, request));
    if (const auto ticker = TickerOfFile(path, "/p/", ".html"))
        return HtmlAnswer(ProfilePage(market, *ticker, request));
    return std::nullopt;
}

std::optional<std::string> AnswerQuotes(const MarketView& market, const PortalRequest& request) {
    const auto symbols = SymbolsOf(request.Parameter("s"));
    const std::string view = request.Parameter("d");
    const bool hasIndex = std::any_of(symbols.begin(), symbols.end(),
                                      [](const auto& symbol) { return symbol.starts_with('^'); });
    if (symbols.empty())
        return std::nullopt;
    if (view == "t")
        return DetailedIndexPage(market, symbols);
    if (symbols.size() > 1 || (hasIndex && view.empty()))
        return IndexPage(market, symbols);
    return QuotePage(market, symbols.front(), view, request);
}

} // namespace tallowmere
