#include "app/quotes/QuoteWishes.h"

#include "app/quotes/LiveQuotes.h"

namespace tallowmere {

using namespace std::chrono_literals;

namespace {

void Append(std::vector<std::string>& all, const std::vector<std::string>& more) {
    all.insert(all.end(), more.begin(), more.end());
}

} // namespace

QuoteWishes::QuoteWishes(LiveQuotes& quotes) : m_quotes(quotes) {
    m_soon.setSingleShot(true);
    connect(&m_soon, &QTimer::timeout, this, &QuoteWishes::Ask);
    m_minute.setInterval(60s);
    connect(&m_minute, &QTimer::timeout, this, &QuoteWishes::Ask);
}

void QuoteWishes::Want(QuoteAsker asker, ListInView wish) {
    m_wishes[asker] = std::move(wish);
    m_soon.start(0);
}

// What the others want is asked for anew in its minute.
void QuoteWishes::Withdraw(QuoteAsker asker) {
    if (m_wishes.erase(asker) == 0)
        return;
    m_quotes.LeaveList();
    m_minute.stop();
    m_soon.stop();
    if (!m_wishes.empty())
        m_soon.start(0);
}

void QuoteWishes::Ask() {
    ListInView all;
    for (const auto& [asker, wish] : m_wishes) {
        Append(all.seen, wish.seen);
        Append(all.others, wish.others);
        Append(all.watched, wish.watched);
        all.showsDay = all.showsDay || wish.showsDay;
    }
    m_minute.start();
    m_quotes.WantListed(all);
}

} // namespace tallowmere
