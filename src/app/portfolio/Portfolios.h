#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>

namespace tallowmere {

class frmMain;

/// The ten portfolios: switching between them, saving the list, removing and clearing.
class Portfolios : public QObject {
    Q_OBJECT
public:
    Portfolios(frmMain& form, MainState& state, const Services& services);

    /// Puts the names of the portfolios into the menus.
    void SetPorts();

    /// Makes portfolio `number` (1 to 10) the current one and fills the list with its tickers.
    void SelectPortfolio(int number);

    /// Writes the list to the store as the current portfolio, even when it is empty.
    void SaveCurrentList();

    /// Removes the selected ticker and, unless another portfolio still holds its text, its note.
    void RemoveSelectedTicker();

    /// Asks, then empties the list and removes the notes that no other portfolio needs.
    void ClearList();

    /// The tickers of the list box.
    std::vector<std::string> ListedTickers() const;

    /// The stored list of a portfolio.
    std::string StoredList(int number) const;
    void StoreList(int number, std::string_view tickers);

    QString PortfolioName(int number) const;

    /// Paints the number labels and the caption in the colours of their area; the current
    /// portfolio's number stands inverted.
    void PaintNumbers();

private:
    std::string OtherLists() const;
    void ConnectControls();

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
};

} // namespace tallowmere
