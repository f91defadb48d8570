#pragma once

#include "links/address_match.h"
#include "links/site_table.h"
#include "text/date.h"
#include "webdata/sample_market.h"

#include <string>
#include <string_view>

namespace tallowmere {

/// What the built-in portal answers.
struct PortalAnswer {
    std::string type; ///< media type, such as "text/html; charset=utf-8"
    std::string body;
};

/// Pages that the portal hands out as they are.
struct PortalTexts {
    std::string books;    ///< "rr.html", the list of books
    std::string newSites; ///< "newsites.html", the list of new sites
};

struct PortalRequest;

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

private:
    std::string Page(const PortalRequest& request, Date today) const;
    std::string QuotesAnswer(const PortalRequest& request, Date today) const;
    std::string CatalogueAnswer(const PortalRequest& request, Date today) const;

    const SiteTable& m_sites;
    AddressMatcher m_matcher;
    SampleMarket m_market;
    PortalTexts m_texts;
};

} // namespace tallowmere
