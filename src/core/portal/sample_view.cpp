#include "core/portal/sample_view.h"

#include "core/portal/sample_figures.h"
#include "core/portal/sample_series.h"
#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::string_view kCompanyHostStart = "www.";
constexpr std::string_view kCompanyHostEnd = ".company.example";

} // namespace

std::optional<ShownQuote> SampleView::Find(std::string_view symbol) const {
    const SampleQuote* quote = m_market.Find(symbol);
    if (quote == nullptr)
        return std::nullopt;
    const SampleFigures figures = FiguresOf(*quote);
    ShownQuote shown;
    shown.symbol = quote->symbol;
    shown.name = quote->name;
    shown.isIndex = quote->shares == 0;
    shown.last = figures.last;
    shown.change = figures.change;
    shown.percent = figures.percent;
    shown.previous = figures.previous;
    shown.open = figures.open;
    shown.dayLow = figures.dayLow;
    shown.dayHigh = figures.dayHigh;
    shown.yearLow = figures.yearLow;
    shown.yearHigh = figures.yearHigh;
    if (!shown.isIndex) {
        shown.volume = figures.volume;
        shown.averageVolume = figures.averageVolume;
        shown.marketCap = figures.marketCap;
        shown.earnings = figures.earnings;
        shown.priceEarnings = figures.priceEarnings;
        if (figures.dividend != 0) {
            shown.dividend = figures.dividend;
            shown.yield = figures.yield;
        }
    }
    shown.when = LastTradingDayText(m_today) + ", 4:00PM";
    shown.stamp = kSampleNote;
    return shown;
}

Chart SampleView::ChartOf(std::string_view symbol, Period period) const {
    const SampleQuote* quote = m_market.Find(symbol);
    return quote != nullptr ? SampleChart(*quote, period, m_today)
                            : Chart{"Unknown ticker", std::string(kSampleNote), {}, {}};
}

std::vector<std::string> SampleView::StripSymbols() const {
    std::vector<std::string> symbols;
    for (const SampleQuote& quote : m_market.Quotes())
        symbols.push_back(quote.symbol);
    std::stable_partition(symbols.begin(), symbols.end(),
                          [](const std::string& symbol) { return symbol.starts_with('^'); });
    return symbols;
}

std::string SampleView::Missing(std::string_view) const {
    return "The sample market has no prices for this ticker.";
}

std::string SampleView::HomePage(const ShownQuote& quote) const {
    return "http://" + CompanyHost(quote.symbol) + "/";
}

PageFrame SampleView::Frame() const {
    return {" - SAMPLE DATA", "SAMPLE DATA: every price and figure on this page is invented.",
            "SAMPLE DATA", "SAMPLE DATA"};
}

std::string CompanyHost(std::string_view symbol) {
    // A host has no dot of its own in a label; no ticker has a hyphen.
    return std::string(kCompanyHostStart) + ReplaceAll(ToLower(symbol), ".", "-") +
           std::string(kCompanyHostEnd);
}

std::string CompanyOnHost(const SampleMarket& market, std::string_view host) {
    if (!host.starts_with(kCompanyHostStart) || !host.ends_with(kCompanyHostEnd) ||
        host.size() < kCompanyHostStart.size() + kCompanyHostEnd.size())
        return {};
    host.remove_prefix(kCompanyHostStart.size());
    host.remove_suffix(kCompanyHostEnd.size());
    const SampleQuote* quote = market.Find(ReplaceAll(host, "-", "."));
    return quote == nullptr ? std::string() : quote->symbol;
}

} // namespace tallowmere
