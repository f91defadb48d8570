#pragma once

#include "core/portfolio/portfolio_csv.h"

#include <QObject>

#include <filesystem>

namespace tallowmere {

class PaneDeck;
class Portfolios;
class Prompts;
class UndoRecorder;
class frmCsvImport;
class frmMain;

/// Export CSV and Import CSV: portfolios, their names and notes as a table, out to a file, and in
/// from one after a look at what would change, as one step.
class CsvCommands : public QObject {
    Q_OBJECT
public:
    CsvCommands(frmMain& form, SettingsStore& settings, UndoRecorder& undo, Prompts& prompts,
                const std::filesystem::path& programFolder, Portfolios& portfolios,
                PaneDeck& panes);

    /// Each asks for a file, and does nothing when that is cancelled.
    void Export();
    void Import();

private:
    void Offer(const QString& file);
    CsvImport Plan(const CsvRows& rows, int target) const;
    void Show(frmCsvImport& window, const CsvTable& table) const;
    void Take(const CsvImport& import);

    frmMain& m_form;
    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    Prompts& m_prompts;
    std::filesystem::path m_programFolder;
    Portfolios& m_portfolios;
    PaneDeck& m_panes;
};

} // namespace tallowmere
