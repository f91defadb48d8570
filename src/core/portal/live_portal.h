#pragma once

#include "core/portal/portal_answer.h"
#include "core/quotes/source_schedule.h"
#include "core/sites/site_table.h"

#include <string>
#include <string_view>
#include <vector>

namespace tallowmere {

/// Symbols whose quotes, or prices over a span, a page shows.
struct WantedPrices {
    PriceSpan span = PriceSpan::Quote;
    std::vector<std::string> symbols;
};

/// The built-in portal in live mode: a function from an address and the quotes at hand to a page.
/// It answers what the program reads by machine, the pages of quotes, charts and the ticker strip,
/// and nothing else. It asks nobody: what a page needs is named first and fetched by others.
class LivePortal {
public:
    /// `sites` is kept by reference and outlives the portal.
    LivePortal(const SiteTable& sites, PortalTexts texts);

    /// The tickers that run through the ticker strip behind the indices.
    void SetStripTickers(const std::vector<std::string>& tickers);

    /// What must be fetched for the page of an address to be whole, each span once.
    std::vector<WantedPrices> Needs(std::string_view host, std::string_view pathAndQuery) const;

    /// Whether the page of an address loads itself again and again while it is shown.
    static bool LoadsItself(std::string_view pathAndQuery);

    /// Answers an address without its scheme with the quotes at hand at `now` (epoch seconds);
    /// what is missing or stale is said to be, and that the sources were not asked.
    PortalAnswer Answer(std::string_view host, std::string_view pathAndQuery,
                        const SourceSchedule& quotes, std::int64_t now, bool isAsked = true) const;

private:
    PortalAnswer Page(const MarketView& market, const PortalRequest& request) const;

    const SiteTable& m_sites;
    PortalTexts m_texts;
    std::vector<std::string> m_strip;
};

} // namespace tallowmere
