#include "app/backup/Backups.h"

#include "app/base/Clock.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/forms/frmRestore.h"
#include "app/links/PaneDeck.h"
#include "core/backup/dated_copies.h"
#include "core/backup/restore.h"
#include "core/shell/undo_recorder.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// All stores as they were before the last restore, beside the dated copies.
constexpr std::string_view kBeforeRestore = "before-restore.zip";

QString Filter() {
    return u"Backups (*.zip)"_s;
}

QStringList ToQt(const std::vector<std::string>& names) {
    QStringList texts;
    for (const std::string& name : names)
        texts << LineStart(tallowmere::ToQt(name));
    return texts;
}

QString DocumentsFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

} // namespace

Backups::Backups(frmMain& form, SettingsStore& settings, UndoRecorder& undo, Prompts& prompts,
                 const Clock& clock, StorePlaces places, PaneDeck& panes)
    : QObject(&form), m_form(form), m_settings(settings), m_undo(undo), m_prompts(prompts),
      m_clock(clock), m_places(std::move(places)), m_panes(panes) {
    connect(form.menus->At("backUp"), &QAction::triggered, this, &Backups::BackUp);
    connect(form.menus->At("restore"), &QAction::triggered, this, &Backups::RestoreBackup);
    connect(form.menus->At("importProfile"), &QAction::triggered, this, &Backups::ImportProfile);
}

void Backups::Attempt(const std::function<void()>& command) {
    try {
        command();
    } catch (const RuntimeError& error) {
        m_prompts.Message(tallowmere::ToQt(error.what()), MessageTitle());
    }
}

std::string Backups::PackNow() const {
    return PackBackup(ReadStores(m_places),
                      static_cast<std::time_t>(m_clock.Now().toSecsSinceEpoch()));
}

void Backups::BackUp() {
    const QString name = u"tallowmere-"_s + tallowmere::ToQt(CopyName(m_clock.Today()));
    const auto file = m_prompts.SaveFile(u"Back Up"_s, DocumentsFolder() + u'/' + name, Filter());
    if (!file)
        return;
    Attempt([&] {
        Q_EMIT AboutToRead();
        WriteWholeFile(ToPath(*file), PackNow());
        m_panes.ShowLastingStatus(u"Backed up to "_s + *file);
    });
}

void Backups::RestoreBackup() {
    const QString copies = PathToQt(CopiesFolder(m_places));
    const auto file = m_prompts.OpenFile(
        u"Restore"_s, QFileInfo::exists(copies) ? copies : DocumentsFolder(), Filter());
    if (file)
        Attempt([&] { Offer(*file, ReadBackup(ToPath(*file))); });
}

void Backups::ImportProfile() {
    const auto folder = m_prompts.OpenFolder(u"Import Profile"_s, DocumentsFolder());
    if (folder)
        Attempt([&] { Offer(*folder, ReadProfileFolder(ToPath(*folder))); });
}

// What the backup has nothing of stays, unless the user says otherwise: it may be older than the
// whole part. A table that starts programs is not taken without being looked at either.
void Backups::Offer(const QString& source, const BackupFiles& backup) {
    Q_EMIT AboutToRead();
    frmRestore window(&m_form, source);
    const std::vector<PartChanges> parts = CompareStores(ReadStores(m_places), backup);
    for (const PartChanges& part : parts)
        window.AddRow({tallowmere::ToQt(NameOf(part.part)), ToQt(part.fresh), ToQt(part.changed),
                       ToQt(part.gone), tallowmere::ToQt(part.warning),
                       part.isInBackup && part.warning.empty()});
    if (window.exec() != QDialog::Accepted)
        return;
    std::set<BackupPart> chosen;
    for (std::size_t n = 0; n < parts.size(); ++n)
        if (window.IsChosen(static_cast<int>(n)))
            chosen.insert(parts[n].part);
    Take(source, backup, chosen);
}

void Backups::Take(const QString& source, const BackupFiles& backup,
                   const std::set<BackupPart>& parts) {
    const RestorePlan plan = PlanRestore(ReadStores(m_places), backup, parts);
    WriteWholeFile(CopiesFolder(m_places) / kBeforeRestore, PackNow());
    const QString name = QFileInfo(source).fileName();
    UndoFiles files;
    for (const auto& [file, content] : plan.files)
        if (file.ends_with(kMultiLinkEnding))
            files.push_back(file);
    m_undo.Run(
        "Restore " + FromQt(name),
        [&] {
            Restore(m_places, m_settings, plan);
            m_undo.TellRemoved("Restored from " + FromQt(name) + ".");
        },
        files);
    Q_EMIT Restored();
    m_panes.ShowLastingStatus(plan.files.contains(kSourcesEntry)
                                  ? u"Restored from "_s + name +
                                        u". The quote sources count from the next start on."_s
                                  : u"Restored from "_s + name);
}

} // namespace tallowmere
