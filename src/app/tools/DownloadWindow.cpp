#include "app/tools/DownloadWindow.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/Download.h"
#include "app/engine/DownloadList.h"
#include "app/forms/frmMain.h"
#include "core/pages/download_text.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>

#include <utility>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kSecond = std::chrono::seconds(1);

} // namespace

DownloadWindow::DownloadWindow(frmMain& form, Prompts& prompts, DownloadList& downloads)
    : QObject(&form), m_form(form), m_prompts(prompts), m_downloads(downloads) {
    m_second.setInterval(kSecond);
    connect(&m_second, &QTimer::timeout, this, &DownloadWindow::ShowRunning);
    connect(form.menus->At("downloads"), &QAction::triggered, this, &DownloadWindow::Show);
    connect(&form, &frmMain::CloseWanted, this, &DownloadWindow::BeforeClose);
    connect(&form, &frmMain::Closing, &downloads, &DownloadList::CancelAll);
    connect(&downloads, &DownloadList::Added, this, [this](Download* one) { AddRow(one, 0); });
    connect(&downloads, &DownloadList::Changed, this, [this](Download* one) { ShowRow(*one); });
    connect(&downloads, &DownloadList::Removed, this, [this](Download* one) {
        delete m_rows.take(one);
        ShowButtons();
    });
    // Who works elsewhere meanwhile is told by the window system.
    connect(&downloads, &DownloadList::Ended, this, [this] { QApplication::alert(&m_form); });
}

void DownloadWindow::Show() {
    if (!m_window) {
        m_window = new frmDownloads(&m_form);
        m_window->setAttribute(Qt::WA_DeleteOnClose);
        m_rows.clear();
        Connect();
        for (Download* download : m_downloads.All())
            AddRow(download, m_window->lstFiles->topLevelItemCount());
        m_window->lstFiles->setCurrentItem(m_window->lstFiles->topLevelItem(0));
        m_second.start();
        ShowButtons();
    }
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
    m_window->lstFiles->setFocus();
}

void DownloadWindow::Connect() {
    connect(m_window, &QObject::destroyed, this, [this] {
        m_second.stop();
        m_rows.clear();
    });
    connect(m_window->lstFiles, &QTreeWidget::currentItemChanged, this, [this] {
        m_why.clear();
        Tell({});
        ShowButtons();
    });
    connect(m_window->lstFiles, &QTreeWidget::itemActivated, this, &DownloadWindow::Open);
    connect(m_window, &frmDownloads::DeleteKey, this, &DownloadWindow::Delete);
    connect(m_window->cmdOpen, &QPushButton::clicked, this, &DownloadWindow::Open);
    connect(m_window->cmdFolder, &QPushButton::clicked, this, &DownloadWindow::ShowInFolder);
    const auto on = [this](QPushButton* button, auto act) {
        connect(button, &QPushButton::clicked, this, [this, act] {
            if (Download* download = Selected())
                act(*download);
        });
    };
    on(m_window->cmdCancel, [](Download& one) { one.Cancel(); });
    on(m_window->cmdAgain, [this](Download& one) { m_downloads.TryAgain(one); });
    on(m_window->cmdRemove, [this](Download& one) { m_downloads.Remove(one); });
}

void DownloadWindow::AddRow(Download* download, int index) {
    if (!m_window)
        return;
    auto* row = new QTreeWidgetItem;
    m_window->lstFiles->insertTopLevelItem(index, row);
    m_rows.insert(download, row);
    row->setText(frmDownloads::File, LineStart(download->Name()));
    row->setToolTip(
        frmDownloads::File,
        tr("%1\nfrom %2").arg(download->Path(), WebAccess::AsBuilt(download->Url()).host()));
    ShowRow(*download);
    if (!m_window->lstFiles->currentItem())
        m_window->lstFiles->setCurrentItem(row);
}

void DownloadWindow::ShowRow(Download& download) {
    QTreeWidgetItem* row = m_rows.value(&download);
    if (!m_window || !row)
        return;
    const DownloadFacts facts = download.Facts();
    const QString text = ToQt(DownloadText(facts));
    row->setText(frmDownloads::Text, text);
    row->setToolTip(frmDownloads::Text, text);
    frmDownloads::SetPercent(*row, DownloadPercent(facts));
    if (row == m_window->lstFiles->currentItem())
        ShowButtons();
}

// A file may go from its folder, too.
void DownloadWindow::ShowRunning() {
    for (Download* download : m_downloads.All())
        ShowRow(*download);
}

Download* DownloadWindow::Selected() const {
    return m_window ? m_rows.key(m_window->lstFiles->currentItem()) : nullptr;
}

void DownloadWindow::ShowButtons() {
    if (!m_window)
        return;
    const Download* selected = Selected();
    const DownloadFacts facts = selected ? selected->Facts() : DownloadFacts{};
    const bool isThere = selected && facts.state == DownloadState::Saved && !facts.isGone;
    const std::string why = isThere ? WhyNotOpened(FromQt(selected->Name())) : std::string();
    m_window->cmdOpen->setEnabled(isThere && why.empty());
    m_window->cmdFolder->setEnabled(selected);
    m_window->cmdCancel->setEnabled(selected && selected->IsRunning());
    m_window->cmdAgain->setEnabled(selected && selected->CanTryAgain());
    m_window->cmdRemove->setEnabled(selected && !selected->IsRunning());
    // What an attempt came to stays until another file is selected.
    if (why != std::exchange(m_why, why))
        Tell(ToQt(why));
}

void DownloadWindow::Tell(const QString& message) {
    if (m_window->lblMessage->text() == message)
        return;
    m_window->lblMessage->setText(message);
    m_window->lblMessage->setAccessibleName(message);
}

// Whatever way led here: nothing that runs is opened.
void DownloadWindow::Open() {
    const Download* selected = Selected();
    if (!selected)
        return;
    const DownloadFacts facts = selected->Facts();
    if (facts.state != DownloadState::Saved || facts.isGone)
        return;
    const QFileInfo file(selected->Path());
    for (const QString& name : {file.fileName(), QFileInfo(file.canonicalFilePath()).fileName()})
        if (const std::string why = WhyNotOpened(FromQt(name)); !why.empty()) {
            Tell(ToQt(why));
            return;
        }
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(selected->Path())))
        Tell(tr("No program could be started for %1.").arg(selected->Name()));
}

void DownloadWindow::ShowInFolder() {
    const Download* selected = Selected();
    if (!selected)
        return;
    const QString folder = QFileInfo(selected->Path()).absolutePath();
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        Tell(tr("The folder %1 could not be shown.").arg(folder));
}

void DownloadWindow::Delete() {
    Download* selected = Selected();
    if (!selected)
        return;
    if (selected->IsRunning())
        selected->Cancel();
    else
        m_downloads.Remove(*selected);
}

void DownloadWindow::BeforeClose(bool* mayClose) {
    // Who ends the program by force is not asked.
    const int running = m_downloads.RunningCount();
    if (running == 0 || m_prompts.IsLeft())
        return;
    *mayClose = m_prompts.Ask(ToQt(ClosingQuestion(running)), MessageTitle(), Prompts::Answer::No);
    if (m_prompts.IsLeft())
        *mayClose = true;
}

} // namespace tallowmere
