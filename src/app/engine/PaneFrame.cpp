#include "app/engine/PaneFrame.h"

#include "app/base/PortalAddress.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/AnswerLater.h"
#include "app/engine/FindBar.h"
#include "app/engine/LocationLine.h"
#include "app/engine/PageQuestion.h"
#include "app/engine/PageReader.h"
#include "app/engine/PageView.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PasswordLookout.h"
#include "app/engine/SiteZooms.h"
#include "app/engine/SourcePages.h"
#include "app/engine/UserInput.h"
#include "core/pages/site_zoom.h"
#include "core/pages/source_page.h"

#include <QPageLayout>
#include <QPointer>
#include <QUrl>
#include <QVBoxLayout>
#include <QWebEngineDownloadRequest>
#include <QWebEngineFullScreenRequest>
#include <QWebEngineHistory>
#include <QWheelEvent>

#include <utility>

namespace tallowmere {

using namespace Qt::StringLiterals;

PaneFrame::PaneFrame(SiteZooms& zooms, SourcePages& sources, FindText& finding, QWidget* parent)
    : QWidget(parent), m_notice(new PaneNotice(this)), m_findBar(new FindBar(finding, this)),
      m_passwords(new PasswordLookout(this)), m_question(new PageQuestion(this)), m_zooms(zooms),
      m_sources(sources), m_location(new LocationLine(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_notice, 1);
    layout->addWidget(m_findBar);
    layout->addWidget(m_location);
    m_notice->hide();
    connect(&zooms, &SiteZooms::Changed, this, [this](const std::string& site) {
        if (site == m_site)
            ReadZoom();
    });
}

void PaneFrame::SetView(PageView* view) {
    m_view = view;
    auto* column = static_cast<QVBoxLayout*>(layout());
    column->insertWidget(column->indexOf(m_notice), view, 1);
    connect(&view->Input(), &UserInput::Scaled, this, &PaneFrame::TurnZoom);
    connect(view->page(), &QWebEnginePage::fullScreenRequested, this, &PaneFrame::OnFill);
}

void PaneFrame::SetHeader(QWidget* header) {
    static_cast<QVBoxLayout*>(layout())->insertWidget(0, header);
}

void PaneFrame::ShowPart(int index) {
    if (HasPage())
        PageReader::ScrollToFrame(*m_view->page(), index);
}

void PaneFrame::OnScroll(const QObject* receiver, std::function<void(double)> tell) const {
    if (!m_view)
        return;
    const QWebEnginePage* page = m_view->page();
    connect(page, &QWebEnginePage::scrollPositionChanged, receiver,
            [page, tell = std::move(tell)](const QPointF& position) {
                if (const double height = page->contentsSize().height(); height > 0)
                    tell(position.y() / height);
            });
}

bool PaneFrame::IsPageShown() const {
    return m_notice->Why() == PaneNotice::Reason::None;
}

void PaneFrame::ShowView() {
    m_notice->Clear();
    m_view->show();
}

void PaneFrame::HideView() {
    EndFill();
    if (m_view)
        m_view->hide();
}

void PaneFrame::ShowPlace(const QUrl& url, const QString& built) {
    UseZoomOf(url);
    m_isLocated = m_hasLocation && IsPageShown() && !url.isEmpty() && url != QUrl(u"about:blank"_s);
    m_location->setVisible(m_isLocated && !m_isFilling);
    if (m_isLocated)
        m_location->Show(url, built, m_passwords->IsAskedBy(url));
}

bool PaneFrame::HasPage() const {
    return m_view && IsPageShown() && m_view->history()->count() > 0;
}

// Without a title of its own the engine takes a page's address, with or without its scheme; that of
// a page of ours says nothing to anybody.
QString PaneFrame::Title() const {
    if (!HasPage())
        return {};
    const QString title = m_view->title();
    const QUrl url = m_view->url();
    const bool isOwn = title.startsWith(PortalAddress::Scheme() + u"://"_s);
    const bool isAddress = title.contains(url.host()) && url.toString().endsWith(title);
    return isOwn || isAddress ? QString() : title;
}

void PaneFrame::WritePdf(const QPageLayout& layout,
                         std::function<void(const QByteArray&)> receive) {
    const auto answer = [guard = QPointer(this), receive = std::move(receive)](
                            const QByteArray& pdf) { AnswerLater(guard, receive, pdf); };
    if (HasPage())
        m_view->page()->printToPdf(answer, layout);
    else
        answer({});
}

void PaneFrame::SaveTo(const QString& path, SavedForm form) const {
    if (HasPage())
        m_view->page()->save(path, form == SavedForm::OneFile
                                       ? QWebEngineDownloadRequest::MimeHtmlSaveFormat
                                       : QWebEngineDownloadRequest::CompleteHtmlSaveFormat);
}

void PaneFrame::KeepSource(const QString& address, std::function<void(const QString&)> receive) {
    if (!HasPage())
        return;
    const std::function<void(const QString&)> keep =
        [this, address, receive = std::move(receive)](const QString& source) {
            const std::string page = SourcePage(FromQt(address), FromQt(source));
            receive(m_sources.Keep(QByteArray::fromStdString(page)).toString());
        };
    m_view->page()->toHtml([guard = QPointer(this), keep](const QString& source) {
        AnswerLater(guard, keep, source);
    });
}

void PaneFrame::FocusPage() {
    if (m_view && IsPageShown())
        m_view->setFocus();
    else
        m_notice->setFocus();
}

// The engine makes sure that the user has just done something on the page; what was done before the
// page filled the screen last does not count again.
void PaneFrame::OnFill(QWebEngineFullScreenRequest request) {
    if (!request.toggleOn()) {
        request.accept();
        EndFill();
        return;
    }
    bool isGranted = false;
    if (m_hasLocation && IsPageShown() && m_view->Input().IsFresh())
        Q_EMIT FillWanted(WebAccess::AsBuilt(request.origin()).host(), &isGranted);
    if (!isGranted) {
        request.reject();
        return;
    }
    m_isFilling = true;
    m_location->hide();
    request.accept();
}

void PaneFrame::EndFill() {
    if (!std::exchange(m_isFilling, false))
        return;
    m_location->setVisible(m_isLocated);
    m_view->Input().Consume();
    m_view->triggerPageAction(QWebEnginePage::ExitFullScreen);
    Q_EMIT FillOver();
}

bool PaneFrame::IsFinding() const {
    return m_findBar->isAncestorOf(window()->focusWidget());
}

void PaneFrame::Find() {
    if (m_view && IsPageShown())
        m_findBar->Open();
}

void PaneFrame::FindOn(bool isBackward) {
    if (m_view && IsPageShown())
        m_findBar->FindOn(isBackward);
}

void PaneFrame::ZoomIn() {
    Zoom(&PageZoom::In);
}

void PaneFrame::ZoomOut() {
    Zoom(&PageZoom::Out);
}

void PaneFrame::ZoomReset() {
    Zoom(&PageZoom::Reset);
}

void PaneFrame::TurnZoom(int angle) {
    // Who turns back does not have to make up for what was turned before.
    if ((angle > 0) != (m_angle > 0))
        m_angle = 0;
    m_angle += angle;
    for (; m_angle >= QWheelEvent::DefaultDeltasPerStep;
         m_angle -= QWheelEvent::DefaultDeltasPerStep)
        ZoomIn();
    for (; m_angle <= -QWheelEvent::DefaultDeltasPerStep;
         m_angle += QWheelEvent::DefaultDeltasPerStep)
        ZoomOut();
}

// A page that belongs to no site has its size as long as it stands there.
void PaneFrame::Zoom(void (PageZoom::*change)()) {
    if (!m_view)
        return;
    (m_zoom.*change)();
    m_view->setZoomFactor(m_zoom.Factor());
    if (!m_site.empty())
        m_zooms.Set(m_site, m_zoom.Percent());
}

// A strip has no room for larger pages.
void PaneFrame::UseZoomOf(const QUrl& page) {
    const std::string site =
        m_hasLocation ? ZoomSite(FromQt(page.scheme()), FromQt(page.host())) : std::string();
    if (std::exchange(m_site, site) != site)
        ReadZoom();
    // Each process that shows pages begins with a size of its own, which the engine does not tell.
    else if (m_view)
        m_view->setZoomFactor(m_zoom.Factor());
}

void PaneFrame::ReadZoom() {
    m_zoom = PageZoom(m_zooms.PercentOf(m_site));
    if (m_view)
        m_view->setZoomFactor(m_zoom.Factor());
}

} // namespace tallowmere
