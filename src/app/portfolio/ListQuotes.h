#pragma once

#include "core/quotes/listed_price.h"

#include <QObject>
#include <QTimer>

#include <functional>

namespace tallowmere {

class BrowserPane;
class QuoteWishes;
class TickerModel;
class frmMain;

/// The quotes in the ticker list: reads those at hand, and in live mode has the sources asked for
/// what the rows in sight lack, while somebody can see them. Begins once the first page of the run
/// is under way.
class ListQuotes : public QObject {
    Q_OBJECT
public:
    using Reader = std::function<std::optional<ListedPrice>(const std::string& ticker)>;

    ListQuotes(frmMain& form, TickerModel& list);

    /// Shows the prices that `read` gives. `wishes`, if there are any, take what it lacks; they
    /// outlive the form.
    void Serve(Reader read, QuoteWishes* wishes);

    /// Shows the quotes, or none when no column is wanted.
    void FollowColumns();

    /// Looks in a moment at what can be seen, and has what it lacks asked for.
    void LookSoon();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The first page is under way.
    void Begun();
    /// It has looked at what can be seen.
    void Looked();

private:
    void Begin();
    void FollowSight();
    void Look();
    void Ask();
    bool IsSeen() const;

    frmMain& m_form;
    TickerModel& m_list;
    Reader m_read;
    QuoteWishes* m_wishes = nullptr;
    bool m_isAboutToBegin = false;
    bool m_hasBegun = false;
    bool m_isShown = false;
    QTimer m_minute;
    QTimer m_soon;
};

} // namespace tallowmere
