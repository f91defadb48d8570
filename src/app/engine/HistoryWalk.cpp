#include "app/engine/HistoryWalk.h"

#include <QWebEngineHistory>
#include <QWebEnginePage>

#include <utility>

namespace tallowmere {

HistoryWalk::HistoryWalk(QWebEnginePage& page) : m_page(page) {
    connect(&page, &QWebEnginePage::loadFinished, this, &HistoryWalk::Arrive);
    connect(&page, &QWebEnginePage::urlChanged, this, [this] {
        // A step within one page has no load.
        if (!m_page.isLoading() && m_page.history()->currentItemIndex() == m_target)
            Forget();
    });
}

void HistoryWalk::GoBack() {
    Step(-1);
}

void HistoryWalk::GoForward() {
    Step(1);
}

void HistoryWalk::Forget() {
    m_target.reset();
    m_isOwed = false;
}

// The engine's own step passes over what a page put into the history to hold the user. While a page
// is on its way the engine counts from that page or from the one before, as it happens.
void HistoryWalk::Step(int by) {
    QWebEngineHistory& history = *m_page.history();
    m_isOwed = m_target.has_value();
    const int target = m_target.value_or(history.currentItemIndex()) + by;
    if (target < 0 || target >= history.count())
        return;
    m_target = target;
    if (m_isOwed)
        history.goToItem(history.itemAt(target));
    else
        m_page.triggerAction(by < 0 ? QWebEnginePage::Back : QWebEnginePage::Forward);
}

void HistoryWalk::Arrive() {
    if (m_page.isLoading())
        return;
    QWebEngineHistory& history = *m_page.history();
    if (std::exchange(m_isOwed, false) && *m_target < history.count() &&
        *m_target != history.currentItemIndex())
        history.goToItem(history.itemAt(*m_target));
    else
        m_target.reset();
}

} // namespace tallowmere
