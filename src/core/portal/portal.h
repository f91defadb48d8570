#pragma once

#include "core/portal/portal_answer.h"
#include "core/portal/sample_market.h"
#include "core/quotes/listed_price.h"
#include "core/sites/address_match.h"
#include "core/sites/site_table.h"
#include "core/text/date.h"

#include <string>
#include <string_view>

namespace tallowmere {

/// The built-in portal in sample mode: a function from an address to a page. It answers every
/// address of the catalogue with a readable page and what the program reads by machine from an
/// invented market; every page of its own says that it is sample data. No socket listens.
class SamplePortal {
public:
    /// `sites` is kept by reference and outlives the portal.
    SamplePortal(const SiteTable& sites, SampleMarket market, PortalTexts texts = {});

    /// Answers an address without its scheme: host, then path and query ("www.example.com/q?s=x").
    /// There is an answer to anything; `today` dates the pages.
    PortalAnswer Answer(std::string_view host, std::string_view pathAndQuery, Date today) const;

    /// The invented price of a ticker, none for one that the market does not have.
    std::optional<ListedPrice> PriceOf(std::string_view ticker, Date today) const;

    /// To be called when the table of sites changed.
    void SitesChanged() { m_matcher = AddressMatcher(m_sites); }

private:
    std::string Page(const MarketView& market, const PortalRequest& request) const;
    std::string CatalogueAnswer(const MarketView& market, const PortalRequest& request) const;

    const SiteTable& m_sites;
    AddressMatcher m_matcher;
    SampleMarket m_market;
    PortalTexts m_texts;
};

} // namespace tallowmere
