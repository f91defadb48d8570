#pragma once

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

/// The built-in portal in sample mode: a function from an address to a page. It answers every
/// address of the catalogue with a readable page and what the program reads by machine from an
/// invented market; every page says that it is sample data. No socket listens.
class SamplePortal {
public:
    SamplePortal(const SiteTable& sites, SampleMarket market);

    /// Answers an address without its scheme: host, then path and query ("www.example.com/q?s=x").
    /// There is an answer to anything; `today` dates the pages.
    PortalAnswer Answer(std::string_view host, std::string_view pathAndQuery, Date today) const;

private:
    const SiteTable& m_sites;
    SampleMarket m_market;
};

} // namespace tallowmere
