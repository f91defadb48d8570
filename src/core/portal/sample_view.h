#pragma once

#include "core/portal/market_view.h"
#include "core/portal/sample_market.h"
#include "core/text/date.h"

namespace tallowmere {

/// The sample market as the pages see it on a day.
class SampleView : public MarketView {
public:
    /// `market` is kept by reference.
    SampleView(const SampleMarket& market, Date today) : m_market(market), m_today(today) {}

    std::optional<ShownQuote> Find(std::string_view symbol) const override;
    Chart ChartOf(std::string_view symbol, Period period) const override;
    std::vector<std::string> StripSymbols() const override;
    std::string Missing(std::string_view symbol) const override;
    std::string HomePage(const ShownQuote& quote) const override;
    PageFrame Frame() const override;

private:
    const SampleMarket& m_market;
    Date m_today;
};

/// The invented host of a company's home page, under a name that belongs to nobody.
std::string CompanyHost(std::string_view symbol);

/// The symbol of the company whose home page is on `host`; empty for any other host.
std::string CompanyOnHost(const SampleMarket& market, std::string_view host);

} // namespace tallowmere
