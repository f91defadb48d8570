#pragma once

#include "core/portfolio/stored_portfolio.h"

#include <QObject>

#include <filesystem>

namespace tallowmere {

class Prompts;
class SettingsStore;
class TickerModel;
class UndoRecorder;
class frmMain;

/// The ten portfolios: switching between them, saving the list, removing and clearing.
class Portfolios : public QObject {
    Q_OBJECT
public:
    Portfolios(frmMain& form, SettingsStore& settings, UndoRecorder& undo, Prompts& prompts,
               const std::filesystem::path& programFolder);

    /// The tickers of the current portfolio, as the list shows them.
    TickerModel& List() { return *m_list; }

    /// Puts the names of the portfolios into the menus.
    void SetPorts();

    /// The number of the current portfolio, 0 until one was selected.
    int Current() const;

    /// Makes portfolio `number` (1 to 10) the current one and fills the list with its tickers.
    void SelectPortfolio(int number);

    /// Puts the tickers of a first start into the empty first portfolio; does nothing elsewhere.
    void SeedFirstStart();

    /// Writes a list that holds other tickers than the store: an entry that ended with a ticker
    /// which is there already has added its others to the list alone.
    void SaveUnwritten();

    /// Adds tickers to the end of the list and writes it.
    void AddTickers(const std::vector<std::string>& tickers);

    /// Shows what the store holds by now, and selects what came back into the list.
    void Reload();

    /// Removes the selected ticker and, unless another portfolio still holds its text, its note.
    void RemoveSelectedTicker();

    /// Asks, then empties the list and removes the notes that no other portfolio needs.
    void ClearList();

    /// The tickers of the list box.
    std::vector<std::string> ListedTickers() const;

    /// The stored list of a portfolio.
    std::string StoredList(int number) const;

    QString PortfolioName(int number) const;

    /// Shows the name of the current portfolio above the list and in the menu of the portfolios.
    void ShowName();

    /// Paints the number labels and the caption in the colours of their area; the current
    /// portfolio's number stands inverted.
    void PaintNumbers();

Q_SIGNALS:
    /// Another portfolio is shown.
    void Selected();

private:
    std::string OtherLists() const;
    void ConnectControls();

    frmMain& m_form;
    SettingsStore& m_settings;
    UndoRecorder& m_undo;
    Prompts& m_prompts;
    std::filesystem::path m_programFolder;
    TickerModel* m_list;
    /// The index that was selected when a portfolio was left; element 0 is not used.
    std::array<int, kPortfolioCount + 1> m_rememberedSelection{};
};

} // namespace tallowmere
