#include "app/portfolio/CsvCommands.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmCsvImport.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "app/portfolio/Portfolios.h"
#include "core/portfolio/keyed_store.h"
#include "core/portfolio/ticker_list.h"
#include "core/shell/undo_recorder.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// Hundreds of thousands of rows; no list of tickers is longer.
constexpr std::uint64_t kLargestTable = 16 * kMegabyte;
/// Of thousands of lines nobody reads all.
constexpr std::size_t kMostLines = 2000;

QString DocumentsFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

QString NameOf(char delimiter) {
    switch (delimiter) {
    case ',':
        return u"commas"_s;
    case ';':
        return u"semicolons"_s;
    case '\t':
        return u"tabs"_s;
    default:
        return u"bars"_s;
    }
}

/// A sentence about so many things; nothing about none.
QString Counted(std::size_t count, const QString& one, const QString& more) {
    return count == 0 ? QString() : count == 1 ? one : more.arg(count);
}

QString FormOf(const CsvTable& table, const CsvImport& import) {
    return (table.rows.empty() ? u"No rows"_s
                               : Counted(table.rows.size(), u"1 row"_s, u"%1 rows"_s)) +
           u", parted by %1, quoted by %2, %3."_s.arg(NameOf(table.delimiter),
                                                      QString(QChar::fromLatin1(table.quote)),
                                                      ToQt(table.encoding)) +
           Counted(import.known, u" 1 ticker is there already."_s,
                   u" %1 tickers are there already."_s) +
           Counted(import.skipped, u" 1 row has nothing to take."_s,
                   u" %1 rows have nothing to take."_s);
}

} // namespace

CsvCommands::CsvCommands(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                         Prompts& prompts, const std::filesystem::path& programFolder,
                         Portfolios& portfolios, PaneDeck& panes)
    : QObject(&form), m_form(form), m_settings(settings), m_undo(undo), m_prompts(prompts),
      m_programFolder(programFolder), m_portfolios(portfolios), m_panes(panes) {
    connect(form.menus->At("exportCsv"), &QAction::triggered, this, &CsvCommands::Export);
    connect(form.menus->At("importCsv"), &QAction::triggered, this, &CsvCommands::Import);
}

void CsvCommands::Export() {
    const auto file = m_prompts.SaveFile(u"Export CSV"_s, DocumentsFolder() + u"/portfolios.csv"_s,
                                         u"Tables (*.csv)"_s);
    if (!file)
        return;
    try {
        m_portfolios.SaveUnwritten();
        const CsvRows rows =
            PortfolioRows(LoadPortfolios(m_settings), ReadStore(m_programFolder, kTickerNotesFile));
        WriteWholeFile(ToPath(*file), WriteCsv(rows));
        m_panes.ShowLastingStatus(u"%1 rows written to "_s.arg(rows.size() - 1) + *file);
    } catch (const RuntimeError& error) {
        m_prompts.Message(ToQt(error.what()), MessageTitle());
    }
}

void CsvCommands::Import() {
    const auto file = m_prompts.OpenFile(u"Import CSV"_s, DocumentsFolder(),
                                         u"Tables (*.csv *.txt *.tsv);;All files (*)"_s);
    if (!file)
        return;
    try {
        Offer(*file);
    } catch (const RuntimeError& error) {
        m_prompts.Message(ToQt(error.what()), MessageTitle());
    }
}

CsvImport CsvCommands::Plan(const CsvRows& rows, int target) const {
    return PlanCsvImport(rows, LoadPortfolios(m_settings),
                         ReadStore(m_programFolder, kTickerNotesFile), target);
}

void CsvCommands::Offer(const QString& file) {
    if (!QFileInfo(file).isFile())
        throw RuntimeError(FromQt(file) + " is no file.");
    m_portfolios.SaveUnwritten();
    const CsvTable table = ReadCsv(ReadExistingFile(ToPath(file), kLargestTable));
    if (!FindColumns(table.rows).ticker) {
        m_prompts.Message(u"No column of tickers was found in "_s + file +
                              u". Its heading can be Ticker, Symbol or Ticker Symbol."_s,
                          MessageTitle());
        return;
    }
    QStringList names;
    for (int n = 1; n <= kPortfolioCount; ++n)
        names << u"%1: "_s.arg(n) + LineStart(m_portfolios.PortfolioName(n));
    frmCsvImport window(&m_form, names);
    window.cmbTarget->setCurrentIndex(m_portfolios.Current() - 1);
    connect(window.cmbTarget, &QComboBox::currentIndexChanged, &window,
            [&] { Show(window, table); });
    Show(window, table);
    if (window.exec() == QDialog::Accepted)
        Take(Plan(table.rows, window.cmbTarget->currentIndex() + 1));
}

void CsvCommands::Show(frmCsvImport& window, const CsvTable& table) const {
    const CsvImport import = Plan(table.rows, window.cmbTarget->currentIndex() + 1);
    window.lblForm->setText(FormOf(table, import));
    const std::vector<std::string> lines = ImportLines(import, LoadPortfolios(m_settings));
    QStringList shown;
    for (std::size_t n = 0; n < std::min(lines.size(), kMostLines); ++n)
        shown << LineStart(ToQt(lines[n]));
    if (lines.size() > kMostLines)
        shown << u"and %1 more"_s.arg(lines.size() - kMostLines);
    window.txtChanges->setPlainText(lines.empty() ? u"Nothing would change."_s : shown.join(u'\n'));
    window.cmdImport->setEnabled(import.IsAny());
}

// The settings are one write; the notes are one more, before them: what cannot be written leaves
// the portfolios as they were.
void CsvCommands::Take(const CsvImport& import) {
    m_undo.Run("Import CSV", [&] {
        std::vector<ReplacedNote> notes;
        for (const auto& [ticker, note, isReplaced] : import.notes)
            notes.push_back({ticker, StorableNote(StoredLines(note))});
        ReplaceNotes(m_programFolder, notes, kTickerNotesFile);
        // Of a list that was edited by hand the last bar may be missing.
        const auto list = [&](int number) {
            return JoinTickerList(SplitTickerList(m_portfolios.StoredList(number)));
        };
        std::vector<SettingChange> changes;
        for (const auto& [number, added, name] : import.portfolios) {
            const std::string n = std::to_string(number);
            if (name)
                changes.push_back({"Settings", "PortName" + n, *name});
            if (!added.empty())
                changes.push_back({"Settings", "Stocks" + n, list(number) + JoinTickerList(added)});
        }
        if (!changes.empty())
            m_settings.ChangeSettings(changes);
    });
    m_portfolios.Reload();
    m_panes.ShowLastingStatus(u"Imported. Undo takes it back."_s);
}

} // namespace tallowmere
