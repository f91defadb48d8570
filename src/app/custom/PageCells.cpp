#include "app/custom/PageCells.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "core/custom/multi_link.h"
#include "core/text/files.h"

#include <QEvent>

namespace tallowmere {

PageCells::PageCells(frmMain& form, Prompts& prompts, const std::filesystem::path& programFolder,
                     PaneDeck& panes, EngineProfile& profile)
    : QObject(&form), m_form(form), m_prompts(prompts), m_programFolder(programFolder),
      m_panes(panes), m_profile(profile) {
    connect(form.Web, &BrowserPane::DocumentComplete, this, &PageCells::Complete);
    connect(form.Web, &BrowserPane::ProgressChange, this,
            [this](int, int maximum) { Progress(maximum); });
    form.Web->installEventFilter(this);
}

// Whatever begins to load in the pane takes the place of the cells.
void PageCells::Progress(int maximum) {
    const bool loading = maximum > 0;
    if (loading && !m_loading)
        Remove();
    m_loading = loading;
}

void PageCells::Complete(bool isLoaded) {
    if (isLoaded && m_form.Web->LocationURL() == PathToQt(DisplayPage()))
        m_form.Web->WhenFramesAreEmpty([guard = QPointer(this)] {
            if (guard && !guard->m_column)
                guard->ShowRecorded();
        });
}

void PageCells::ShowRecorded() {
    QStringList addresses;
    for (const std::string& address : RecordedAddresses(ReadWholeFile(DisplayPage())))
        addresses << ToQt(address);
    if (!addresses.isEmpty())
        Show(addresses);
}

std::filesystem::path PageCells::DisplayPage() const {
    return m_programFolder / std::string(kDisplayPage);
}

void PageCells::Show(const QStringList& addresses) {
    const auto makePane = [this](QWidget* parent) {
        auto* pane = new BrowserPane(m_profile, m_prompts, parent);
        connect(pane, &BrowserPane::StatusTextChange, &m_panes, &PaneDeck::ShowStatus);
        return pane;
    };
    m_column = new CellColumn(addresses, makePane, m_form.Web);
    connect(m_column, &CellColumn::AloneWanted, &m_panes, &PaneDeck::Navigate);
    m_column->setGeometry(m_form.Web->rect());
    m_column->show();
    m_column->raise();
}

// The cells may go while one of their own buttons is being clicked.
void PageCells::Remove() {
    if (!m_column)
        return;
    m_column->hide();
    m_column->deleteLater();
    m_column = nullptr;
}

bool PageCells::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && m_column)
        m_column->setGeometry(m_form.Web->rect());
    return QObject::eventFilter(watched, event);
}

} // namespace tallowmere
