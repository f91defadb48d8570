#pragma once

#include "core/links/address.h"

#include <QObject>

#include <optional>

namespace tallowmere {

struct Accounts;
class Clock;
class PaneDeck;
class Prompts;
struct RecordingState;
class SettingsStore;
class SiteTable;
class TransferPool;
class frmMain;

/// What a click on a research link does: it takes the ticker, builds the address and loads it.
class LinkDispatch : public QObject {
    Q_OBJECT
public:
    LinkDispatch(frmMain& form, const RecordingState& recording, const Accounts& accounts,
                 SettingsStore& settings, const SiteTable& sites, Prompts& prompts,
                 const Clock& clock, PaneDeck& panes, TransferPool& transfers);

    /// The link that a double-click on the ticker list opens when none was used yet.
    static constexpr int kDefaultLink = 185;

    /// Runs the click of link `index`.
    void Click(int index) { ClickFor(index, {}); }

    /// The same for a ticker, whichever is selected; for the selected one when it is empty.
    void ClickFor(int index, const QString& ticker);

    /// The index of the ticker link that was used last; of the default one when none was yet.
    int LastLink() const { return m_lastLink == 0 ? kDefaultLink : m_lastLink; }

    /// The forms in which addresses take the selected ticker, or the placeholder words while a
    /// multi-link is recorded; none without a selected ticker.
    std::optional<TickerForms> CurrentForms() const { return FormsFor({}); }

    /// The same for a ticker instead of the selected one, unless it is empty.
    std::optional<TickerForms> FormsFor(const QString& ticker) const;

    /// Whether a link leads to another page for each ticker, all of which can be open at once.
    bool HasPagePerTicker(int link) const;

Q_SIGNALS:
    void MenuRequested(const QString& menu);
    void EditorRequested(int slot);
    void LastLinkChanged();
    void PortfolioMenuRequested();
    void RecordingToggled();
    /// One of the user's own links that is a multi-link was clicked, for a ticker.
    void MultiLinkRequested(int slot, const TickerForms& forms);
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
    void RunCustom(int index, const std::optional<TickerForms>& forms);
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
    const RecordingState& m_recording;
    const Accounts& m_accounts;
    SettingsStore& m_settings;
    const SiteTable& m_sites;
    Prompts& m_prompts;
    const Clock& m_clock;
    PaneDeck& m_panes;
    TransferPool& m_transfers;
    int m_lastLink = 0;    ///< 0 for none
    QString m_lastAddress; ///< of the last ticker link
    QString m_lastTicker;  ///< upper case, of the same link
    int m_searches = 0;    ///< for home pages; the last one wins the pane
};

} // namespace tallowmere
