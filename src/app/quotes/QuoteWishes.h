#pragma once

#include "core/quotes/list_pace.h"

#include <QObject>
#include <QTimer>

#include <map>

namespace tallowmere {

class LiveQuotes;

/// Who wants quotes all the time, beside the pages.
enum class QuoteAsker : std::uint8_t { List, Table, Alerts };

/// Gathers what the ticker list and others want to know all the time, and has all of it asked for
/// together about once a minute: however many they are, they cause no more requests than the list
/// alone.
class QuoteWishes : public QObject {
    Q_OBJECT
public:
    /// `quotes` is kept by reference.
    explicit QuoteWishes(LiveQuotes& quotes);

    LiveQuotes& Quotes() const { return m_quotes; }

    /// Asks for what an asker wants, with what others want at this moment, and then every minute
    /// until it wants something else.
    void Want(QuoteAsker asker, ListInView wish);

    /// An asker wants nothing any more: what was to be asked for its sake alone is not.
    void Withdraw(QuoteAsker asker);

private:
    void Ask();

    LiveQuotes& m_quotes;
    std::map<QuoteAsker, ListInView> m_wishes;
    QTimer m_soon;
    QTimer m_minute;
};

} // namespace tallowmere
