#pragma once

#include "app/base/FinderSource.h"

#include <filesystem>

namespace tallowmere {

class Clock;
class ListColumns;
class ListQuotes;
class PortfolioTable;
class Portfolios;
class Prompts;
class QuotePage;
class Reports;
class SettingsStore;
class SiteTable;
class TickerBox;
class TickerCompletion;
class TickerImport;
class TickerMarks;
class TransferPool;
class UndoRecorder;
class frmMain;
struct LinkControllers;

/// The controllers of the portfolios, connected to each other and to the links below them. The
/// form owns the controllers.
struct PortfolioControllers {
    PortfolioControllers(frmMain& form, SettingsStore& settings, UndoRecorder& undo,
                         const SiteTable& sites, Prompts& prompts, const Clock& clock,
                         const std::filesystem::path& programFolder, LinkControllers& links,
                         TransferPool& transfers);

    Portfolios* portfolios;
    TickerBox* tickers;
    TickerCompletion* completion;
    TickerMarks* marks;
    ListColumns* columns;
    ListQuotes* listQuotes;
    QuotePage* quotes;
    Reports* reports;
    TickerImport* import;
    PortfolioTable* table;
    MakeFinderSources makeFinderSources;
};

} // namespace tallowmere
