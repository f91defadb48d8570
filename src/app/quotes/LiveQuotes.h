#pragma once

#include "app/base/Clock.h"
#include "app/base/WebAccess.h"
#include "app/quotes/SourceCalls.h"
#include "core/portal/live_portal.h"
#include "core/quotes/list_pace.h"
#include "core/quotes/listed_price.h"
#include "core/sites/site_table.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <filesystem>

namespace tallowmere {

/// Answers the portal's addresses with today's quotes: what a page needs and is not at hand is
/// fetched from the sources first. Nothing is asked that no page needs.
class LiveQuotes : public QObject {
    Q_OBJECT
public:
    /// `sites` and `clock` are kept by reference. The quotes that an earlier run left in the file
    /// `store` are shown, as stale, until there are newer ones; an empty path is no file. A page
    /// waits for its quotes as long as `patience`; then it is made from what is there.
    LiveQuotes(const SiteTable& sites, PortalTexts texts, SourceTable sources, const Clock& clock,
               std::filesystem::path store = {}, QObject* parent = nullptr,
               std::chrono::milliseconds patience = std::chrono::seconds(25));

    /// The proxy of all requests from now on.
    void UseProxy(const ProxySetting& setting) { m_calls.UseProxy(setting); }

    /// Answers an address without its scheme: at once when all it needs is at hand or its asker
    /// has no claim to more, else later.
    void Answer(const std::string& host, const std::string& pathAndQuery, Asker asker,
                WebAccess::PortalReply reply);

    /// Whether the sources have said of a symbol that they do not know it.
    bool IsUnknown(const std::string& symbol) const { return m_quotes.IsUnknown(symbol); }

    /// The price of a ticker among the quotes at hand, for the list of tickers.
    std::optional<ListedPrice> PriceOf(const std::string& ticker) const {
        return FindListedPrice(m_quotes, ticker, Now());
    }

    /// The names that came with the quotes at hand, and that of one symbol; empty where none did.
    std::vector<NamedTicker> Names() const;
    std::string NameOf(const std::string& symbol) const;

    /// Asks for what the list of tickers lacks; to be called about once a minute while somebody
    /// sees it. It causes one request a minute at most.
    void WantListed(const ListInView& list);
    /// Nobody sees the list: nothing more is asked for its sake.
    void LeaveList();

    /// Leaves the quotes at hand to a later run. What goes wrong is told on standard error.
    void Save() const;

Q_SIGNALS:
    /// A source has answered a question about these symbols, in the program's form.
    void Learned(const std::vector<std::string>& symbols);

private:
    /// A page that waits for its quotes.
    struct Page {
        std::string host;
        std::string pathAndQuery;
        WebAccess::PortalReply reply;
        std::vector<WantedPrices> needs; ///< from the back: what was found there is taken off
        QDeadlineTimer patience;
    };

    void Proceed();
    void Send(const SourceRequest& request);
    void AnswerWholePages();
    bool IsWhole(Page& page) const;
    std::int64_t Now() const { return m_clock.Now().toSecsSinceEpoch(); }

    LivePortal m_portal;
    SourceSchedule m_quotes;
    ListPace m_listPace;
    bool m_isListSeen = false;
    const Clock& m_clock;
    std::filesystem::path m_store;
    std::chrono::milliseconds m_patience;
    SourceCalls m_calls;
    QTimer m_tick;
    std::vector<Page> m_waiting;
};

} // namespace tallowmere
