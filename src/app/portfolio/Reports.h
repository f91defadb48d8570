#pragma once

#include "app/base/Printers.h"
#include "core/portfolio/report.h"

#include <QObject>

#include <filesystem>

namespace tallowmere {

class Clock;
class PaneDeck;
class Prompts;
class SettingsStore;
class SiteTable;
class frmMain;

/// The report of all portfolios, in the pane and on paper.
class Reports : public QObject {
    Q_OBJECT
public:
    Reports(frmMain& form, SettingsStore& settings, const SiteTable& sites, Prompts& prompts,
            const Clock& clock, const std::filesystem::path& programFolder, PaneDeck& panes);

    /// Writes the report and shows it in `Web`.
    void View();

    /// Prints the report on the system's printer; where there is none, offers a PDF document.
    void Print();

    void SetPrinterFactory(PrinterFactory factory) { m_makePrinter = std::move(factory); }

private:
    NoteIndex Notes() const;
    bool PrintOn(QPrinter& printer) const;

    SettingsStore& m_settings;
    const SiteTable& m_sites;
    Prompts& m_prompts;
    const Clock& m_clock;
    std::filesystem::path m_programFolder;
    PaneDeck& m_panes;
    PrinterFactory m_makePrinter;
};

} // namespace tallowmere
