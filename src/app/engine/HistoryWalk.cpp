#include "app/engine/HistoryWalk.h"

#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEnginePage>

#include <utility>

namespace tallowmere {

namespace {

constexpr int kTries = 3; ///< of a step that the engine has lost

} // namespace

HistoryWalk::HistoryWalk(QWebEnginePage& page) : m_page(page) {
    connect(&page, &QWebEnginePage::loadingChanged, this, &HistoryWalk::LookAfter);
    connect(&page, &QWebEnginePage::urlChanged, this, [this] {
        // A step within one page has no load, nor has a page that puts its own address there.
        if (!m_page.isLoading())
            Forget();
    });
}

void HistoryWalk::GoBack() {
    Step(-1);
}

void HistoryWalk::GoForward() {
    Step(1);
}

void HistoryWalk::GoTo(int index) {
    QWebEngineHistory& history = *m_page.history();
    if (index < 0 || index >= history.count())
        return;
    m_interrupted.reset();
    m_from = history.currentItemIndex();
    m_target = index;
    m_triesLeft = kTries;
    history.goToItem(history.itemAt(index));
}

void HistoryWalk::Forget() {
    m_target.reset();
    m_interrupted.reset();
    m_triesLeft = 0;
}

void HistoryWalk::Interrupt() {
    m_interrupted = std::exchange(m_target, std::nullopt);
    m_triesLeft = 0;
    QMetaObject::invokeMethod(
        this, [this] { m_interrupted.reset(); }, Qt::QueuedConnection);
}

// The engine's own step passes over what a page put into the history to hold the user. While a page
// is on its way the engine counts from that page or from the one before, as it happens.
void HistoryWalk::Step(int by) {
    QWebEngineHistory& history = *m_page.history();
    if (m_interrupted)
        m_target = std::exchange(m_interrupted, std::nullopt);
    const bool isOwed = m_target.has_value();
    const int target = m_target.value_or(history.currentItemIndex()) + by;
    if (target < 0 || target >= history.count())
        return;
    if (!isOwed)
        m_from = history.currentItemIndex();
    m_target = target;
    m_triesLeft = isOwed ? kTries : 0;
    if (isOwed)
        history.goToItem(history.itemAt(target));
    else
        m_page.triggerAction(by < 0 ? QWebEnginePage::Back : QWebEnginePage::Forward);
}

// The index alone does not tell where the page is: the engine moves it as soon as a step begins,
// and tells of the end of the page before after that. A step that is lost is taken again.
void HistoryWalk::LookAfter(const QWebEngineLoadingInfo& load) {
    if (!m_target || load.status() == QWebEngineLoadingInfo::LoadStartedStatus ||
        m_page.isLoading())
        return;
    QWebEngineHistory& history = *m_page.history();
    const int index = history.currentItemIndex();
    if (index == *m_target) {
        if (load.url() == history.itemAt(index).url())
            Forget();
    } else if (m_triesLeft > 0 && *m_target < history.count()) {
        --m_triesLeft;
        history.goToItem(history.itemAt(*m_target));
    } else if (index != m_from || load.status() != QWebEngineLoadingInfo::LoadSucceededStatus) {
        Forget();
    }
}

} // namespace tallowmere
