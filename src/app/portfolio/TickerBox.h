#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"

#include <QObject>

namespace tallowmere {

class frmMain;
class Portfolios;

/// The entry box and the ticker list: typing tickers, the list's tooltip and its menu, the notes.
class TickerBox : public QObject {
    Q_OBJECT
public:
    TickerBox(frmMain& form, MainState& state, const Services& services, Portfolios& portfolios);

    /// Adds what stands in the entry box to the list.
    void EnterTickers();

    /// Brings the list's tooltip up to date with the selected ticker and the last link.
    void UpdateToolTip();

    /// Fills the ticker menu for the selected ticker.
    void FillTickerMenu();

    /// Asks for the selected ticker's note and stores it.
    void EditNote();

Q_SIGNALS:
    /// A ticker was double-clicked: the last link is to be opened.
    void OpenLastLink(int index);
    /// The pointer moved over the list, or the entry box was used.
    void EdgesTouched();

private:
    void UpperCase(const QString& text);
    void OpenSelected();
    void PopUpTickerMenu(const QPoint& position);

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    Portfolios& m_portfolios;
};

} // namespace tallowmere
