#pragma once

#include "app/base/MainState.h"
#include "app/base/Services.h"
#include "core/links/address.h"

#include <QObject>

#include <optional>

namespace tallowmere {

class frmMain;
class PaneDeck;
class TickerBox;
class TransferPool;

/// What a click on a research link does: it takes the ticker, builds the address and loads it.
class LinkDispatch : public QObject {
    Q_OBJECT
public:
    LinkDispatch(frmMain& form, MainState& state, const Services& services, PaneDeck& panes,
                 TickerBox& tickers, TransferPool& transfers);

    /// Runs the click of link `index`.
    void Click(int index);

    /// Puts a page that the program made into its folder and shows it in `Web`.
    void ShowGenerated(std::string_view name, std::string_view page);

    /// The forms in which addresses take the selected ticker, or the placeholder words while a
    /// multi-link is recorded; none without a selected ticker.
    std::optional<TickerForms> CurrentForms() const;

Q_SIGNALS:
    void MenuRequested(const QString& menu);
    void EditorRequested(int slot);
    void PortfolioMenuRequested();
    void RecordingToggled();
    /// One of the user's own links with such an address was clicked, and a ticker is selected.
    void MultiLinkRequested(const QString& address);
    void WatchRequested(const QString& target);
    void RemindersRequested();
    void SetupRequested();
    void NavigateRequested();
    void CalculatorRequested();
    void AlertsStarted();
    /// A link's page was sent to the main pane.
    void PageLinkOpened(int index);

private:
    void Run(const LinkRow& row, const TickerForms& forms);
    void RunPageTool(const LinkRow& row);
    void RunCustom(int index);
    void LoadRow(const LinkRow& row, const TickerForms& forms);
    void LoadGated(const LinkRow& row, const TickerForms& forms);
    /// Loads a page and waits for it; false when the user, or the window, went on meanwhile.
    bool ShowWhole(const QString& address);
    void LoadStreamingPortfolio();
    void LoadAlerts(const LinkRow& row);
    void FindHomePage(const LinkRow& row, const TickerForms& forms);
    void StartWatch();
    void Remember(const LinkRow& row);
    void AskForTicker(const QString& text);

    frmMain& m_form;
    MainState& m_state;
    Services m_services;
    PaneDeck& m_panes;
    TickerBox& m_tickers;
    TransferPool& m_transfers;
    bool m_finding = false;
};

} // namespace tallowmere
