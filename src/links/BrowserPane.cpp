#include "links/BrowserPane.h"

#include "webdata/EngineProfile.h"
#include "webdata/PortalScheme.h"
#include "webdata/WebAccess.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

namespace tallowmere {

using namespace Qt::StringLiterals;

BrowserPane::BrowserPane(EngineProfile& profile, Prompts& prompts, QWidget* parent)
    : QWidget(parent), m_profile(profile), m_prompts(prompts) {
    setAutoFillBackground(true);
}

QWebEngineView* BrowserPane::View() {
    if (m_view)
        return m_view;
    m_view = new QWebEngineView(this);
    m_view->setPage(new QWebEnginePage(&m_profile.Engine(), m_view));
    m_view->setGeometry(rect());
    m_view->show();
    connect(m_view, &QWebEngineView::loadStarted, this, [this] { m_busy = true; });
    connect(m_view, &QWebEngineView::loadProgress, this,
            [this](int progress) { Q_EMIT ProgressChange(progress, 100); });
    connect(m_view, &QWebEngineView::loadFinished, this, [this] {
        m_busy = false;
        Q_EMIT ProgressChange(0, 0);
        Q_EMIT LoadFinished();
    });
    connect(m_view->page(), &QWebEnginePage::linkHovered, this, &BrowserPane::StatusTextChange);
    return m_view;
}

void BrowserPane::Navigate(const QString& address) {
    if (address.isEmpty())
        return;
    bool cancel = false;
    Q_EMIT BeforeNavigate2(address, &cancel);
    if (cancel)
        return;
    m_location = address;
    const QFileInfo file(address);
    const bool generated =
        file.absolutePath() == QFileInfo(m_profile.ProgramFolder()).absoluteFilePath();
    View()->load(generated ? PortalScheme::PageUrl(file.fileName().toStdString())
                           : UrlFromAddress(address));
}

void BrowserPane::GoBack() {
    if (m_view)
        m_view->back();
}

void BrowserPane::GoForward() {
    if (m_view)
        m_view->forward();
}

void BrowserPane::Stop() {
    if (m_view)
        m_view->stop();
}

void BrowserPane::Refresh() {
    if (m_view)
        m_view->reload();
}

void BrowserPane::WaitWhileBusy() {
    if (!m_busy)
        return;
    QEventLoop loop;
    connect(this, &BrowserPane::LoadFinished, &loop, &QEventLoop::quit);
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    loop.exec();
}

void BrowserPane::resizeEvent(QResizeEvent*) {
    if (m_view)
        m_view->setGeometry(rect());
}

} // namespace tallowmere
