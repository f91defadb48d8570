#include "app/portfolio/TickerImport.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/base/modMain.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/forms/frmTicImport.h"
#include "app/links/PaneDeck.h"
#include "app/portfolio/Portfolios.h"
#include "core/portfolio/ticker_scan.h"
#include "core/text/runtime_error.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QPointer>
#include <QPushButton>
#include <QScopeGuard>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// The sample as it stands in its box, with the ticker highlighted.
std::optional<ScanSample> SampleOf(const SampleBox& box) {
    const QString link = box.text();
    const int start = box.hasSelectedText() ? box.selectionStart() : box.cursorPosition();
    return SplitSample(FromQt(link), FromQt(link.left(start)).size(),
                       FromQt(box.selectedText()).size());
}

std::vector<std::string> Texts(const ListBox& list) {
    std::vector<std::string> texts;
    for (const QString& item : list.Items())
        texts.push_back(FromQt(item));
    return texts;
}

QStringList ToQtList(std::span<const std::string> texts) {
    QStringList list;
    for (const std::string& text : texts)
        list << ToQt(text);
    return list;
}

} // namespace

TickerImport::TickerImport(frmMain& form, Prompts& prompts, Portfolios& portfolios, PaneDeck& panes,
                           TransferPool& transfers)
    : QObject(&form), m_form(form), m_prompts(prompts), m_portfolios(portfolios), m_panes(panes),
      m_transfers(transfers) {
    connect(form.menus->mnuImptTick, &QAction::triggered, this, &TickerImport::Open);
}

void TickerImport::Open() {
    if (m_dialog)
        return;
    m_dialog = new frmTicImport(&m_form);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    const QString caption = ToQt(kSendCaption) + QString::number(m_portfolios.Current());
    m_dialog->Command2->setText(caption);
    m_dialog->Command2->setAccessibleName(caption);
    connect(m_dialog->Command1, &QPushButton::clicked, this, &TickerImport::Scan);
    connect(m_dialog->Command2, &QPushButton::clicked, this, &TickerImport::Send);
    connect(m_dialog->List1, &ListBox::DeletePressed, this, &TickerImport::RemoveEntry);
    connect(m_dialog, &QDialog::finished, this, [this] {
        EndScan();
        m_dialog = nullptr; // it deletes itself
        m_portfolios.SelectPortfolio(m_portfolios.Current());
    });
    m_dialog->setModal(true);
    m_dialog->show();
}

void TickerImport::Scan() {
    if (m_isScanning)
        return;
    m_dialog->List1->Clear();
    const auto sample = SampleOf(*m_dialog->txtFind);
    if (!sample) {
        m_prompts.Message(ToQt(kTickerInFront), MessageTitle());
        return;
    }
    m_isScanning = true;
    m_dialog->Command1->setEnabled(false);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const QPointer<frmTicImport> asker(m_dialog);
    QByteArray page;
    try {
        page = m_transfers.FetchPage(m_panes.Front()->LocationURL(), asker);
    } catch (const RuntimeError&) {
        // As a page that cannot be fetched: there is nothing to be found.
    }
    if (asker && asker == m_dialog)
        Collect(page.toStdString(), *sample);
}

// The dialog may be closed, or everything ended, whenever events are handled.
void TickerImport::Collect(std::string page, const ScanSample& sample) {
    const QPointer<frmTicImport> dialog(m_dialog);
    TickerScan scan(std::move(page), sample);
    std::size_t shown = 0;
    for (bool goesOn = true; goesOn;) {
        goesOn = scan.Step();
        const std::span symbols(scan.Symbols());
        dialog->List1->AddItems(ToQtList(symbols.subspan(shown)));
        shown = symbols.size();
        QCoreApplication::processEvents();
        if (!dialog || dialog != m_dialog)
            return;
    }
    EndScan();
    if (!scan.Found())
        m_prompts.Message(ToQt(kNoneFound), MessageTitle());
}

void TickerImport::EndScan() {
    if (!m_isScanning)
        return;
    m_isScanning = false;
    m_dialog->Command1->setEnabled(true);
    QGuiApplication::restoreOverrideCursor();
}

void TickerImport::Send() {
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto restore = qScopeGuard([] { QGuiApplication::restoreOverrideCursor(); });
    const auto added = TickersToSend(Texts(*m_dialog->List1), Texts(*m_form.List1));
    if (added.empty())
        return;
    // What is selected again when the dialog closes is read from the store.
    m_portfolios.AddTickers(added);
}

void TickerImport::RemoveEntry() {
    TextListBox& list = *m_dialog->List1;
    const int index = list.ListIndex();
    if (index < 0)
        return;
    list.RemoveItem(index);
    list.SetListIndex(std::min(index, list.Count() - 1));
}

} // namespace tallowmere
