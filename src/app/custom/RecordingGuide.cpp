#include "app/custom/RecordingGuide.h"

#include "app/base/QtText.h"
#include "app/custom/MultiLinks.h"
#include "app/forms/RecorderBar.h"
#include "app/forms/frmMain.h"
#include "app/links/RecordingState.h"
#include "core/custom/multi_link.h"

#include <QAction>

namespace tallowmere {

using namespace Qt::StringLiterals;

RecordingGuide::RecordingGuide(frmMain& form, const RecordingState& recording,
                               MultiLinks& multiLinks)
    : QObject(&form), m_form(form), m_recording(recording), m_multiLinks(multiLinks),
      m_discard(form.menus->At("discardRecorded")) {
    connect(m_discard, &QAction::triggered, &multiLinks, &MultiLinks::DiscardLast);
    connect(&multiLinks, &MultiLinks::RecordingChanged, this, &RecordingGuide::Follow);
}

void RecordingGuide::Follow() {
    if (!m_recording.templateMode) {
        End();
        return;
    }
    if (!m_bar)
        Begin();
    QStringList pages;
    for (const std::string& address : RecordedAddresses(FromQt(m_recording.multiLinkPage)))
        pages << ToQt(address);
    // It has its key only while there is something to discard.
    m_discard->setVisible(!pages.isEmpty());
    m_bar->Tell(ToQt(RecordingLine(static_cast<std::size_t>(pages.size()))), pages);
}

void RecordingGuide::Begin() {
    m_bar = new RecorderBar(m_form.centralWidget());
    connect(m_bar, &RecorderBar::DiscardWanted, &m_multiLinks, &MultiLinks::DiscardLast);
    connect(m_bar, &RecorderBar::EndWanted, &m_multiLinks, &MultiLinks::Toggle);
    m_form.ShowOverPanes(m_bar);
    if (!m_form.ShowsToolTips())
        return;
    for (Chip* link : m_form.lbllink)
        if (!link->isEnabled())
            link->setToolTip(
                u"Not while a multi-link is recorded: this is no page about a ticker"_s);
}

void RecordingGuide::End() {
    m_discard->setVisible(false);
    if (!m_bar)
        return;
    // It may be one of its own buttons that ended the recording.
    m_bar->hide();
    m_bar->deleteLater();
    m_bar.clear();
    m_form.SetToolTips(m_form.ShowsToolTips());
}

} // namespace tallowmere
