#include "app/portfolio/QuotePage.h"

#include "app/base/QtText.h"
#include "app/base/modMain.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "core/portfolio/condensed_page.h"
#include "core/shell/settings_store.h"
#include "core/sites/site_table.h"
#include "core/text/runtime_error.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScopeGuard>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

// The steps of the progress bar.
constexpr int kFetching = 1;
constexpr int kArranging = 2;
constexpr int kSteps = 3;

} // namespace

QuotePage::QuotePage(frmMain& form, SettingsStore& settings, const SiteTable& sites,
                     PaneDeck& panes, TransferPool& transfers)
    : QObject(&form), m_form(form), m_settings(settings), m_sites(sites), m_panes(panes),
      m_transfers(transfers) {}

void QuotePage::Show(std::string_view viewCode) {
    const int call = ++m_latest;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto done = qScopeGuard([this, call, alive = QPointer(this)] {
        QGuiApplication::restoreOverrideCursor();
        if (!alive || call != m_latest)
            return;
        m_panes.ShowProgress(0, kSteps);
        m_view.pendingView = kSkippedView;
    });
    m_panes.ShowStatus(u"Building Portfolio Query (Condensed View)"_s);
    const std::string query = Query();
    if (query.empty()) {
        m_panes.ShowStatus({});
        return;
    }
    try {
        Build(query, viewCode, call);
    } catch (const RuntimeError& error) {
        // The page that was written before stays; no box stands in the way, the status line tells.
        m_panes.ShowStatus(ToQt(error.what()));
    }
}

std::string QuotePage::Query() const {
    if (m_view.allPortfolios)
        return CondensedQuery(LoadPortfolios(m_settings));
    std::vector<std::string> tickers;
    for (const QString& item : m_form.List1->Items())
        tickers.push_back(FromQt(item));
    return CondensedQuery(tickers);
}

// A later call runs while this one waits for its page, and has ended when this one goes on.
void QuotePage::Build(const std::string& query, std::string_view viewCode, int call) {
    const QPointer<QuotePage> alive(this);
    m_panes.ShowProgress(kFetching, kSteps);
    const QByteArray body = m_transfers.FetchPage(ToQt(CondensedAddress(query, viewCode, m_sites)));
    if (!alive || call != m_latest)
        return;
    m_panes.ShowProgress(kArranging, kSteps);
    const auto page = CondensedPage({body.data(), static_cast<std::size_t>(body.size())}, m_sites);
    if (!page) {
        m_panes.ShowStatus({});
        return;
    }
    m_panes.ShowGenerated("ycprint.html", *page);
    m_panes.ShowLastingStatus(u"Portfolio Query (Condensed View)"_s);
}

} // namespace tallowmere
