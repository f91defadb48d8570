#include "app/engine/PageRest.h"

#include "app/engine/PanePage.h"

#include <QEvent>
#include <QWebEngineView>

namespace tallowmere {

namespace {
constexpr auto kPatience = std::chrono::minutes(10);
}

PageRest::PageRest(QWebEngineView& view, PanePage& page)
    : QObject(&view), m_view(view), m_page(page) {
    m_due.setSingleShot(true);
    m_due.setInterval(kPatience);
    connect(&m_due, &QTimer::timeout, this, &PageRest::Rest);
    // A page that was woken to be loaded or read rests again when nobody has looked at it.
    connect(&page, &QWebEnginePage::lifecycleStateChanged, this, &PageRest::Await);
    view.installEventFilter(this);
    Await();
}

void PageRest::SetPatience(std::chrono::milliseconds patience) {
    m_due.setInterval(patience);
    Await();
}

bool PageRest::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Show)
        m_due.stop();
    else if (event->type() == QEvent::Hide)
        Await();
    return false;
}

void PageRest::Await() {
    if (m_page.lifecycleState() == QWebEnginePage::LifecycleState::Active && !m_view.isVisible())
        m_due.start();
    else
        m_due.stop();
}

void PageRest::Rest() {
    // A load that is stopped in its tracks never ends.
    if (m_page.IsComing() || m_page.recommendedState() == QWebEnginePage::LifecycleState::Active)
        m_due.start();
    else
        m_page.setLifecycleState(QWebEnginePage::LifecycleState::Frozen);
}

} // namespace tallowmere
