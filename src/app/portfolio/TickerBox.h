#pragma once

#include <QObject>

#include <filesystem>

namespace tallowmere {

class LinkDispatch;
class PaneDeck;
class Portfolios;
class Prompts;
class UndoRecorder;
class frmMain;

/// The entry box and the ticker list: typing tickers, the list's tooltip and its menu, the notes.
class TickerBox : public QObject {
    Q_OBJECT
public:
    TickerBox(frmMain& form, UndoRecorder& undo, Prompts& prompts,
              const std::filesystem::path& programFolder, Portfolios& portfolios,
              LinkDispatch& dispatch, PaneDeck& panes);

    /// Leads from the entry box into the list, to the ticker that was entered last.
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Adds what stands in the entry box to the list.
    void EnterTickers();

    /// Brings the list's tooltip up to date with the selected ticker and the last link.
    void UpdateToolTip();

    /// Fills the ticker menu for the selected ticker.
    void FillTickerMenu();

    /// Asks for the selected ticker's note and stores it.
    void EditNote();
    /// Asks for the note of any ticker, whose stored text is `stored`, and stores it.
    void EditNoteOn(const QString& ticker, const QString& stored);

private:
    void GoToEntered();
    void UpperCase(const QString& text);
    void OpenSelected();
    void PopUpTickerMenu(const QPoint& position);

    frmMain& m_form;
    UndoRecorder& m_undo;
    Prompts& m_prompts;
    std::filesystem::path m_programFolder;
    Portfolios& m_portfolios;
    LinkDispatch& m_dispatch;
    PaneDeck& m_panes;
    QString m_lastEntered;
};

} // namespace tallowmere
