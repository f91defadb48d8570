#include "core/links/chart_page.h"

#include "core/links/web_address.h"
#include "core/text/bytes.h"

#include <span>

namespace tallowmere {

namespace {

struct Chart {
    std::string_view heading; ///< above the chart, "" for none
    std::string_view period;
    std::string_view server;
    std::string_view path;
    std::string_view text;
};

// clang-format off
constexpr Chart kSmallCharts[] = {
    {"",        "1y", "chart_server_1", "/c/0b/{first}/{lower}.gif", "Yahoo 1-Year Chart (Small)"},
    {"",        "5d", "chart_server_2", "/v?s={lower}",              "Yahoo 5-Day Chart (Small)"},
    {"",        "1d", "chart_server_2", "/t?s={lower}",              "Yahoo 1-Day Chart (Small)"},
};

constexpr Chart kLargeCharts[] = {
    {"1 Year",  "1y", "chart_server_1", "/c/1y/{first}/{lower}.gif", "Yahoo 1-Year Chart (Large)"},
    {"3 Month", "3m", "chart_server_1", "/c/3m/{first}/{lower}.gif", "Yahoo 3-Month Chart (Large)"},
    {"5 Days",  "5d", "chart_server_2", "/w?s={lower}",              "Yahoo 5-Day Chart (Large)"},
    {"1 Day",   "1d", "chart_server_2", "/b?s={lower}",              "Yahoo 1-Day Chart (Large)"},
};
// clang-format on

std::string Quoted(std::string_view value) {
    return "\"" + std::string(value) + "\"";
}

std::string PageAddress(const SiteHosts& sites, std::string_view site, std::string_view path) {
    return Quoted(WithScheme(sites.Address(site, path)));
}

std::string Paragraph(const Chart& chart, const TickerForms& forms, const SiteHosts& sites) {
    const std::string quotePage = "/q?s=" + forms.upper + "&amp;d=" + std::string(chart.period);
    // The path holds no date.
    const std::string image = FillPath(chart.path, forms, Date{});
    std::string html;
    if (!chart.heading.empty())
        html = "<h3>" + std::string(chart.heading) + "</h3>";
    return html + "<p><a href=" + PageAddress(sites, "quote", quotePage) +
           "><img src=" + PageAddress(sites, chart.server, image) + " alt=" + Quoted(chart.text) +
           " border=\"0\"></a></p>";
}

std::string ChartsPage(std::span<const Chart> charts, const TickerForms& ticker,
                       const SiteHosts& sites) {
    // A ticker that came from a page may hold anything; it stays inside its quote marks.
    const TickerForms forms{EscapeHtml(ticker.upper), EscapeHtml(ticker.lower),
                            EscapeHtml(ticker.first)};
    // Both blanks after "span" and the escapes that are no line end belong to the page as its
    // readers know it.
    std::string page = "<html><head><title>Yahoo Charts</title></head><body>"
                       "<span  width=\"100%\" >";
    page += "<a href=" + PageAddress(sites, "portal", "/") +
            "><img src=" + PageAddress(sites, "portal", "/logo.gif") + " border=\"0\"> </a>";
    for (const Chart& chart : charts)
        page += Paragraph(chart, forms, sites);
    return page + "\\r\\n</span></body></html>\r\n";
}

} // namespace

std::string SmallChartsPage(const TickerForms& forms, const SiteHosts& sites) {
    return ChartsPage(kSmallCharts, forms, sites);
}

std::string LargeChartsPage(const TickerForms& forms, const SiteHosts& sites) {
    return ChartsPage(kLargeCharts, forms, sites);
}

} // namespace tallowmere
