#include "app/engine/PaneFrame.h"

#include "app/engine/FindBar.h"
#include "app/engine/LocationLine.h"
#include "app/engine/PageQuestion.h"
#include "app/engine/PageReader.h"
#include "app/engine/PageView.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PasswordLookout.h"

#include <QPageLayout>
#include <QUrl>
#include <QVBoxLayout>
#include <QWebEngineDownloadRequest>
#include <QWebEngineHistory>

namespace tallowmere {

using namespace Qt::StringLiterals;

PaneFrame::PaneFrame(QWidget* parent)
    : QWidget(parent), m_notice(new PaneNotice(this)), m_findBar(new FindBar(this)),
      m_passwords(new PasswordLookout(this)), m_question(new PageQuestion(this)),
      m_location(new LocationLine(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_notice, 1);
    layout->addWidget(m_findBar);
    layout->addWidget(m_location);
    m_notice->hide();
}

void PaneFrame::SetView(PageView* view) {
    m_view = view;
    auto* column = static_cast<QVBoxLayout*>(layout());
    column->insertWidget(column->indexOf(m_notice), view, 1);
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
    if (m_view)
        m_view->hide();
}

void PaneFrame::ShowPlace(const QUrl& url, const QString& built) {
    const bool isShown =
        m_hasLocation && IsPageShown() && !url.isEmpty() && url != QUrl(u"about:blank"_s);
    m_location->setVisible(isShown);
    if (isShown)
        m_location->Show(url, built, m_passwords->IsAskedBy(url));
}

bool PaneFrame::HasPage() const {
    return m_view && IsPageShown() && m_view->history()->count() > 0;
}

// Without a title of its own the engine takes a page's address.
QString PaneFrame::Title() const {
    if (!HasPage())
        return {};
    const QString title = m_view->title();
    const QString address = m_view->url().toString();
    return address.endsWith(title) ? QString() : title;
}

void PaneFrame::WritePdf(const QPageLayout& layout,
                         std::function<void(const QByteArray&)> receive) const {
    if (HasPage())
        m_view->page()->printToPdf(receive, layout);
    else
        receive({});
}

void PaneFrame::SaveTo(const QString& path, SavedForm form) const {
    if (HasPage())
        m_view->page()->save(path, form == SavedForm::OneFile
                                       ? QWebEngineDownloadRequest::MimeHtmlSaveFormat
                                       : QWebEngineDownloadRequest::CompleteHtmlSaveFormat);
}

void PaneFrame::Find() {
    if (m_view && IsPageShown())
        m_findBar->Open();
}

void PaneFrame::ZoomIn() {
    m_zoom.In();
    ApplyZoom();
}

void PaneFrame::ZoomOut() {
    m_zoom.Out();
    ApplyZoom();
}

void PaneFrame::ZoomReset() {
    m_zoom.Reset();
    ApplyZoom();
}

void PaneFrame::ApplyZoom() {
    if (m_view)
        m_view->setZoomFactor(m_zoom.Factor());
}

} // namespace tallowmere
