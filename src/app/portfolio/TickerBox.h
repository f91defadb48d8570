#pragma once

#include <QObject>

#include <filesystem>

namespace tallowmere {

class LinkDispatch;
class Portfolios;
class Prompts;
class frmMain;

/// The entry box and the ticker list: typing tickers, the list's tooltip and its menu, the notes.
class TickerBox : public QObject {
    Q_OBJECT
public:
    TickerBox(frmMain& form, Prompts& prompts, const std::filesystem::path& programFolder,
              Portfolios& portfolios, LinkDispatch& dispatch);

    /// Adds what stands in the entry box to the list.
    void EnterTickers();

    /// Brings the list's tooltip up to date with the selected ticker and the last link.
    void UpdateToolTip();

    /// Fills the ticker menu for the selected ticker.
    void FillTickerMenu();

    /// Asks for the selected ticker's note and stores it.
    void EditNote();

private:
    void UpperCase(const QString& text);
    void OpenSelected();
    void PopUpTickerMenu(const QPoint& position);

    frmMain& m_form;
    Prompts& m_prompts;
    std::filesystem::path m_programFolder;
    Portfolios& m_portfolios;
    LinkDispatch& m_dispatch;
};

} // namespace tallowmere
