#include "app/engine/PaneFrame.h"

#include "app/engine/FindBar.h"
#include "app/engine/LocationLine.h"
#include "app/engine/PageQuestion.h"
#include "app/engine/PageView.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PasswordLookout.h"

#include <QUrl>
#include <QVBoxLayout>

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
    static_cast<QVBoxLayout*>(layout())->insertWidget(0, view, 1);
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
