#include "app/shell/Portal.h"

#include "app/base/WebAccess.h"
#include "app/market/PriceAlerts.h"
#include "app/market/TickerStrip.h"
#include "app/portfolio/ListQuotes.h"
#include "app/portfolio/PortfolioTable.h"
#include "app/portfolio/TickerCompletion.h"
#include "app/portfolio/TickerMarks.h"
#include "app/quotes/CompanyDirectory.h"
#include "app/quotes/LiveQuotes.h"
#include "app/quotes/QuoteWishes.h"
#include "app/shell/SessionSetup.h"
#include "app/shell/Subsystems.h"

namespace tallowmere {

Portal::Portal(const SessionSetup& setup, WebAccess& web, const Subsystems& parts)
    : m_companies(std::make_unique<CompanyDirectory>(setup.folders.data / "sample_market.txt",
                                                     setup.folders.programFolder / "companies.json",
                                                     setup.clock)) {
    const auto companies = m_companies.get();
    parts.portfolio.completion->Serve(
        [companies](const std::string& entry) { return companies->Offer(entry); });
    parts.portfolio.marks->SetNames(
        [companies](const std::string& ticker) { return companies->NameOf(ticker); });
    QObject::connect(companies, &CompanyDirectory::Changed, parts.portfolio.table,
                     &PortfolioTable::ReloadSoon);
    parts.portfolio.table->ServeNames(
        [companies](const std::string& ticker) { return companies->NameOf(ticker); });
    if (setup.web == WebMode::Live) {
        ServeLive(setup, web, parts);
    } else if (setup.portal) {
        if (setup.prices) {
            parts.portfolio.listQuotes->Serve(setup.prices, nullptr);
            parts.market.alerts->Serve(setup.prices, nullptr);
            parts.portfolio.table->Serve(setup.prices, nullptr);
        }
        web.SetPortal([portal = setup.portal, ticker = parts.market.ticker](
                          const std::string& host, const std::string& pathAndQuery) {
            return portal(host, ticker->WithTickers(pathAndQuery));
        });
    }
}

Portal::~Portal() = default;

void Portal::ServeLive(const SessionSetup& setup, WebAccess& web, const Subsystems& parts) {
    m_live = std::make_unique<LiveQuotes>(setup.tables.sites, setup.texts, setup.sources,
                                          setup.clock, setup.folders.programFolder / "quotes.json");
    LiveQuotes* live = m_live.get();
    m_companies->Serve(*live, setup.sources);
    parts.portfolio.marks->SetUnknown(
        [live](const std::string& ticker) { return live->IsUnknown(ticker); });
    QObject::connect(live, &LiveQuotes::Learned, parts.portfolio.marks, &TickerMarks::Refresh);
    m_wishes = std::make_unique<QuoteWishes>(*live);
    const auto read = [live](const std::string& ticker) { return live->PriceOf(ticker); };
    parts.portfolio.listQuotes->Serve(read, m_wishes.get());
    parts.market.alerts->Serve(read, m_wishes.get());
    parts.portfolio.table->Serve(read, m_wishes.get());
    web.SetLatePortal([live, ticker = parts.market.ticker](
                          const std::string& host, const std::string& pathAndQuery, Asker asker,
                          WebAccess::PortalReply reply) {
        live->Answer(host, ticker->WithTickers(pathAndQuery), asker, std::move(reply));
    });
}

void Portal::UseProxy(const ProxySetting& proxy) {
    if (m_live)
        m_live->UseProxy(proxy);
    m_companies->UseProxy(proxy);
}

void Portal::Save() const {
    if (m_live)
        m_live->Save();
}

} // namespace tallowmere
