#include "webdata/portal.h"

#include "text/bytes.h"

namespace tallowmere {

SamplePortal::SamplePortal(const SiteTable& sites, SampleMarket market)
    : m_sites(sites), m_market(std::move(market)) {}

PortalAnswer SamplePortal::Answer(std::string_view host, std::string_view pathAndQuery,
                                  Date) const {
    return {"text/html; charset=utf-8", "<html><body><p>SAMPLE DATA</p><p>" + EscapeHtml(host) +
                                            EscapeHtml(pathAndQuery) + "</p></body></html>"};
}

} // namespace tallowmere
