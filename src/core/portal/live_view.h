#pragma once

#include "core/portal/market_view.h"
#include "core/quotes/source_schedule.h"
#include "core/sites/site_table.h"

namespace tallowmere {

/// Today's market, as far as the sources told, as the pages see it at a moment.
class LiveView : public MarketView {
public:
    /// `quotes`, `sites` and `strip` (the symbols of the ticker strip) are kept by reference; `now`
    /// is in epoch seconds. `isAsked` says whether the sources were asked for what the page needs.
    LiveView(const SourceSchedule& quotes, const SiteTable& sites,
             const std::vector<std::string>& strip, std::int64_t now, bool isAsked = true)
        : m_quotes(quotes), m_sites(sites), m_strip(strip), m_now(now), m_isAsked(isAsked) {}

    std::optional<ShownQuote> Find(std::string_view symbol) const override;
    Chart ChartOf(std::string_view symbol, Period period) const override;
    std::vector<std::string> StripSymbols() const override { return m_strip; }
    std::string Missing(std::string_view symbol) const override;
    std::string HomePage(const ShownQuote& quote) const override;
    std::string LinkTo(std::string_view path) const override;
    PageFrame Frame() const override;

private:
    std::string WhyMissing(PriceSpan span, std::string_view symbol) const;

    const SourceSchedule& m_quotes;
    const SiteTable& m_sites;
    const std::vector<std::string>& m_strip;
    std::int64_t m_now;
    bool m_isAsked;
};

/// The span of prices that a chart of a period is drawn from.
PriceSpan SpanOf(Period period);

} // namespace tallowmere
