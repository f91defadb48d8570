#include "app/portfolio/ListQuotes.h"

#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/portfolio/TickerModel.h"
#include "app/quotes/LiveQuotes.h"
#include "app/quotes/QuoteWishes.h"
#include "core/portfolio/quote_cells.h"

#include <QEvent>
#include <QScrollBar>

namespace tallowmere {

using namespace std::chrono_literals;

namespace {

/// Whoever scrolls, or goes through several portfolios, has the list follow once.
constexpr auto kFollow = 300ms;

} // namespace

ListQuotes::ListQuotes(frmMain& form, TickerModel& list)
    : QObject(&form), m_form(form), m_list(list) {
    m_minute.setInterval(60s);
    connect(&m_minute, &QTimer::timeout, this, &ListQuotes::Look);
    m_soon.setSingleShot(true);
    m_soon.setInterval(kFollow);
    connect(&m_soon, &QTimer::timeout, this, &ListQuotes::Look);
}

void ListQuotes::Serve(Reader read, QuoteWishes* wishes) {
    m_read = std::move(read);
    m_wishes = wishes;
    // A pane tells of progress once the engine is at work on its page; the rest waits until the
    // window has nothing else to do.
    for (const BrowserPane* pane : {m_form.Web, m_form.WebB})
        connect(pane, &BrowserPane::ProgressChange, this, [this](int progress, int maximum) {
            if (!m_isAboutToBegin && (progress > 0 || maximum == 0)) {
                m_isAboutToBegin = true;
                QTimer::singleShot(0, this, &ListQuotes::Begin);
            }
        });
}

void ListQuotes::Begin() {
    m_hasBegun = true;
    FollowColumns();
    if (m_wishes)
        FollowSight();
    Q_EMIT Begun();
}

void ListQuotes::FollowSight() {
    m_form.installEventFilter(this);
    m_form.List1->installEventFilter(this);
    connect(m_form.List1->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &ListQuotes::LookSoon);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(&m_list, signal, this, &ListQuotes::LookSoon);
    connect(&m_list, &QAbstractItemModel::modelReset, this, &ListQuotes::LookSoon);
    connect(&m_wishes->Quotes(), &LiveQuotes::Learned, this,
            [this](const std::vector<std::string>& symbols) {
                m_list.RefreshQuotes({symbols.begin(), symbols.end()});
            });
    Look();
}

void ListQuotes::FollowColumns() {
    const bool isShown = m_form.List1->Wants();
    if (!m_hasBegun || isShown == m_isShown)
        return LookSoon();
    m_isShown = isShown;
    if (isShown)
        m_list.SetQuotes([this](const std::string& ticker) -> std::optional<QuoteCells> {
            const auto price = m_read(ticker);
            return price ? std::optional(CellsOf(*price)) : std::nullopt;
        });
    else
        m_list.SetQuotes({});
    LookSoon();
}

bool ListQuotes::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        LookSoon();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void ListQuotes::LookSoon() {
    if (m_hasBegun && m_wishes)
        m_soon.start();
}

// In a folded panel the list is visible, but has no place.
bool ListQuotes::IsSeen() const {
    const TickerListBox& list = *m_form.List1;
    return list.Wants() && list.isVisible() && !list.visibleRegion().isEmpty() &&
           !m_form.isMinimized();
}

void ListQuotes::Look() {
    if (IsSeen()) {
        m_minute.start();
        Ask();
        m_list.RefreshQuotes(); // ages rise
    } else {
        m_minute.stop();
        m_wishes->Withdraw(QuoteAsker::List);
    }
    Q_EMIT Looked();
}

void ListQuotes::Ask() {
    const auto [first, last] = m_form.List1->RowsInView();
    ListInView list;
    list.showsDay = m_form.List1->Shows(QuoteColumn::Day);
    for (int row = 0; row < m_list.rowCount(); ++row)
        (row >= first && row <= last ? list.seen : list.others)
            .push_back(FromQt(m_list.Items().at(row)));
    m_wishes->Want(QuoteAsker::List, std::move(list));
}

} // namespace tallowmere
