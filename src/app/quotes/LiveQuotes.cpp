#include "app/quotes/LiveQuotes.h"

#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <algorithm>
#include <cstdio>

namespace tallowmere {

using namespace std::chrono_literals;

LiveQuotes::LiveQuotes(const SiteTable& sites, PortalTexts texts, SourceTable sources,
                       const Clock& clock, std::filesystem::path store, QObject* parent,
                       std::chrono::milliseconds patience)
    : QObject(parent), m_portal(sites, std::move(texts)), m_quotes(std::move(sources)),
      m_clock(clock), m_store(std::move(store)), m_patience(patience) {
    m_tick.setInterval(1s);
    connect(&m_tick, &QTimer::timeout, this, &LiveQuotes::Proceed);
    try {
        m_quotes.Restore(ReadQuotes(ReadExistingFile(m_store), Now()));
    } catch (const RuntimeError& unreadable) {
        std::fprintf(stderr, "tallowmere: %s\n", unreadable.what());
    }
}

void LiveQuotes::Answer(const std::string& host, const std::string& pathAndQuery, Asker asker,
                        WebAccess::PortalReply reply) {
    if (asker == Asker::WebPage) {
        reply(m_portal.Answer(host, pathAndQuery, m_quotes, Now(), false));
        return;
    }
    const Urgency urgency = LivePortal::LoadsItself(pathAndQuery) ? Urgency::Routine
                            : asker == Asker::Pane                ? Urgency::Asked
                                                                  : Urgency::Regular;
    Page page{host, pathAndQuery, std::move(reply), m_portal.Needs(host, pathAndQuery),
              QDeadlineTimer(m_patience)};
    for (WantedPrices& wanted : page.needs) {
        m_quotes.Want(wanted.span, wanted.symbols, Now(), urgency);
        std::reverse(wanted.symbols.begin(), wanted.symbols.end()); // the first are fetched first
    }
    m_waiting.push_back(std::move(page));
    Proceed();
}

std::vector<NamedTicker> LiveQuotes::Names() const {
    std::vector<NamedTicker> names;
    for (const KeptQuote& kept : m_quotes.KeptQuotes())
        if (!kept.quote.name.empty())
            names.push_back({kept.quote.symbol, kept.quote.name});
    return names;
}

std::string LiveQuotes::NameOf(const std::string& symbol) const {
    const auto found = m_quotes.FindQuote(symbol);
    return found.value ? found.value->name : std::string();
}

void LiveQuotes::WantListed(const ListInView& list) {
    m_isListSeen = true;
    const ListWish wish = m_listPace.Next(m_quotes, list, Now());
    m_quotes.Want(PriceSpan::Quote, wish.quotes, Now(), Urgency::Listed);
    m_quotes.Want(PriceSpan::Day, wish.days, Now(), Urgency::Listed);
    Proceed();
}

void LiveQuotes::LeaveList() {
    m_isListSeen = false;
    Proceed();
}

void LiveQuotes::Save() const {
    const std::vector<KeptQuote> quotes = m_quotes.KeptQuotes();
    if (m_store.empty() || quotes.empty())
        return;
    try {
        WriteWholeFile(m_store, WriteQuotes(quotes));
    } catch (const RuntimeError& unwritten) {
        std::fprintf(stderr, "tallowmere: %s\n", unwritten.what());
    }
}

void LiveQuotes::Proceed() {
    // What was under way when the list went out of sight is not passed on to another source.
    if (!m_isListSeen)
        m_quotes.WithdrawListed();
    while (const auto request = m_quotes.Next(Now()))
        Send(*request);
    if (!m_quotes.IsBusy())
        m_tick.stop();
    else if (!m_tick.isActive())
        m_tick.start();
    AnswerWholePages();
}

void LiveQuotes::Send(const SourceRequest& request) {
    m_calls.Ask({request.address, request.userAgent, request.timeout},
                [this, request](const SourceResponse& response) {
                    m_quotes.Answer(request.id, response, Now());
                    Proceed();
                    Q_EMIT Learned(request.symbols);
                });
}

void LiveQuotes::AnswerWholePages() {
    // A reply may lead to further questions.
    std::vector<Page> whole;
    const auto keep = [&](Page& page) {
        if (!IsWhole(page) && !page.patience.hasExpired())
            return false;
        whole.push_back(std::move(page));
        return true;
    };
    std::erase_if(m_waiting, keep);
    for (const Page& page : whole)
        page.reply(m_portal.Answer(page.host, page.pathAndQuery, m_quotes, Now()));
}

bool LiveQuotes::IsWhole(Page& page) const {
    for (WantedPrices& wanted : page.needs)
        for (; !wanted.symbols.empty(); wanted.symbols.pop_back())
            if (m_quotes.IsPending(wanted.span, wanted.symbols.back()))
                return false;
    return true;
}

} // namespace tallowmere
