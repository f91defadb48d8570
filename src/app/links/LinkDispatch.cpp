#include "app/links/LinkDispatch.h"

#include "app/base/Clock.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/base/modMain.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/PaneWait.h"
#include "app/forms/frmMain.h"
#include "app/links/Accounts.h"
#include "app/links/PaneDeck.h"
#include "app/links/RecordingState.h"
#include "core/custom/custom_link.h"
#include "core/custom/multi_link.h"
#include "core/links/chart_page.h"
#include "core/links/portfolio_address.h"
#include "core/shell/settings_store.h"
#include "core/sites/site_table.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <QScopeGuard>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

bool ShowsHourglass(LinkAction action) {
    return action != LinkAction::Setup && action != LinkAction::Wizard &&
           action != LinkAction::Calculator && action != LinkAction::Reminders;
}

bool IsTool(LinkAction action) {
    switch (action) {
    case LinkAction::Refresh:
    case LinkAction::Back:
    case LinkAction::Forward:
    case LinkAction::Stop:
    case LinkAction::CopyAddress:
    case LinkAction::Reminders:
    case LinkAction::Wizard:
    case LinkAction::Setup:
    case LinkAction::Calculator:
        return true;
    default:
        return false;
    }
}

} // namespace

LinkDispatch::LinkDispatch(frmMain& form, const RecordingState& recording, const Accounts& accounts,
                           SettingsStore& settings, const SiteTable& sites, Prompts& prompts,
                           const Clock& clock, PaneDeck& panes, TransferPool& transfers)
    : QObject(&form), m_form(form), m_recording(recording), m_accounts(accounts),
      m_settings(settings), m_sites(sites), m_prompts(prompts), m_clock(clock), m_panes(panes),
      m_transfers(transfers) {}

std::optional<TickerForms> LinkDispatch::FormsFor(const QString& ticker) const {
    if (m_recording.templateMode)
        return PlaceholderForms();
    if (!ticker.isEmpty())
        return FormsOf(FromQt(ticker));
    if (m_form.List1->ListIndex() < 0)
        return std::nullopt;
    return FormsOf(FromQt(m_form.List1->SelectedText()));
}

// Pages that the program writes lie in one file for all tickers.
bool LinkDispatch::HasPagePerTicker(int link) const {
    const LinkAction action = Catalogue()[static_cast<std::size_t>(link)].action;
    if (!IsCustomSlot(link))
        return action == LinkAction::Ticker || action == LinkAction::AccountGated;
    const std::string address =
        m_settings.GetSetting("Settings", "Custom" + std::to_string(link), "");
    return !IsMultiLink(address) && HoldsPlaceholder(address);
}

void LinkDispatch::ClickFor(int index, const QString& ticker) {
    const LinkRow& row = Catalogue()[static_cast<std::size_t>(index)];
    const bool hourglass = ShowsHourglass(row.action);
    if (hourglass)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const auto restore = qScopeGuard([hourglass] {
        if (hourglass)
            QGuiApplication::restoreOverrideCursor();
    });
    if (row.action != LinkAction::Wizard && !IsTab(m_panes.Next()) && m_form.Web->Busy())
        m_form.Web->Stop();

    const std::optional<TickerForms> forms = FormsFor(ticker);
    if (IsCustomSlot(index)) {
        RunCustom(index, forms);
        return;
    }
    if (!forms && NeedsTicker(row)) {
        AskForTicker(u"Select a Ticker"_s);
        return;
    }
    if (forms && !IsTool(row.action))
        Remember(row);
    Run(row, forms.value_or(TickerForms{}));
}

// The double-click on the list repeats the link that was used last.
void LinkDispatch::Remember(const LinkRow& row) {
    if (m_recording.templateMode)
        return;
    m_lastLink = row.index;
    Q_EMIT LastLinkChanged();
}

void LinkDispatch::AskForTicker(const QString& text) {
    m_prompts.Message(text, MessageTitle());
}

void LinkDispatch::Run(const LinkRow& row, const TickerForms& forms) {
    switch (row.action) {
    case LinkAction::Ticker:
    case LinkAction::Fixed:
        LoadRow(row, forms);
        break;
    case LinkAction::AccountGated:
        LoadGated(row, forms);
        break;
    case LinkAction::Menu:
        // The brokers of this menu load into the first pane, unlike those beside it.
        if (row.area == Area::BRK && m_panes.Next() == PagePlace::Pane)
            m_panes.ShowFirst();
        Q_EMIT MenuRequested(ToQt(row.target));
        break;
    case LinkAction::QueryPortfolio:
        Q_EMIT PortfolioMenuRequested();
        break;
    case LinkAction::MultiLink:
        Q_EMIT RecordingToggled();
        break;
    case LinkAction::Wizard:
        StartWatch();
        break;
    case LinkAction::HomePage:
        FindHomePage(row, forms);
        break;
    case LinkAction::SmallCharts:
        m_panes.ShowGenerated(kSmallChartsFile, SmallChartsPage(forms, m_sites));
        break;
    case LinkAction::LargeCharts:
        m_panes.ShowGenerated(kLargeChartsFile, LargeChartsPage(forms, m_sites));
        break;
    case LinkAction::StreamingPortfolio:
        LoadStreamingPortfolio();
        break;
    case LinkAction::Alerts:
        LoadAlerts(row);
        break;
    case LinkAction::Reminders:
        Q_EMIT RemindersRequested();
        break;
    case LinkAction::Setup:
        Q_EMIT SetupRequested();
        break;
    case LinkAction::Navigate:
        Q_EMIT NavigateRequested();
        break;
    case LinkAction::Calculator:
        Q_EMIT CalculatorRequested();
        break;
    default:
        RunPageTool(row);
    }
}

void LinkDispatch::RunPageTool(const LinkRow& row) {
    BrowserPane* pane = m_panes.Front();
    switch (row.action) {
    case LinkAction::Refresh:
        pane->Refresh();
        break;
    case LinkAction::Back:
        pane->GoBack();
        break;
    case LinkAction::Forward:
        pane->GoForward();
        break;
    case LinkAction::Stop:
        pane->Stop();
        m_transfers.CancelAll();
        break;
    case LinkAction::CopyAddress:
        QGuiApplication::clipboard()->setText(pane->RealAddress());
        break;
    default:
        Q_UNREACHABLE();
    }
}

void LinkDispatch::LoadRow(const LinkRow& row, const TickerForms& forms) {
    const QString address = ToQt(BuildAddress(row, forms, m_sites, m_clock.Today()));
    if (OpensInSecondPane(row)) {
        m_panes.NavigateSecond(address);
        return;
    }
    if (NeedsTicker(row) && !m_recording.templateMode) {
        m_lastAddress = address;
        m_lastTicker = ToQt(forms.upper);
    }
    m_panes.Navigate(address);
    Q_EMIT PageLinkOpened(row.index);
}

void LinkDispatch::LoadGated(const LinkRow& row, const TickerForms& forms) {
    const bool asked = m_settings.GetSetting("Settings", "FRT", "") == "Done";
    if (!asked && !m_recording.templateMode) {
        const bool setUp = m_prompts.Ask(
            u"FreeRealTime's quotes and message boards cost nothing, but you need to setup an "
            "account with their service.  If you need to setup an account, click Yes."_s,
            MessageTitle());
        m_settings.SaveSetting("Settings", "FRT", "Done");
        if (setUp && !ShowWhole(ToQt(m_sites.Address("freert_home", "/"))))
            return;
    }
    LoadRow(row, forms);
}

bool LinkDispatch::ShowWhole(const QString& address) {
    m_panes.Navigate(address);
    const QPointer<LinkDispatch> alive(this);
    bool isLeft = false;
    const auto leaving = connect(m_form.Web, &BrowserPane::BeforeNavigate2, this,
                                 [&isLeft](const QString&, bool*) { isLeft = true; });
    WaitWhileBusy(*m_form.Web);
    disconnect(leaving);
    return alive && !isLeft;
}

void LinkDispatch::LoadStreamingPortfolio() {
    if (m_accounts.streamLogin.isEmpty()) {
        m_prompts.Message(
            u"You have no user id and password set up for the streaming quote service.  Its "
            "sign-up site will now be opened.  Once you have signed up, enter your user id and "
            "password through the 'Setup--Help' link, then open your portfolio with this link."_s,
            MessageTitle());
        m_panes.Navigate(ToQt(m_sites.Address("stream_signup", "/")));
        return;
    }
    m_panes.Navigate(ToQt(StreamingPortfolioAddress(FromQt(m_accounts.streamLogin),
                                                    FromQt(m_accounts.streamPassword), m_sites)));
}

void LinkDispatch::LoadAlerts(const LinkRow& row) {
    if (m_prompts.Ask(u"Do you want to start TM Alert Monitoring ?"_s, u"TM Alerts"_s))
        Q_EMIT AlertsStarted();
    LoadRow(row, {});
}

void LinkDispatch::FindHomePage(const LinkRow& row, const TickerForms& forms) {
    const int search = ++m_searches;
    const QPointer<LinkDispatch> alive(this);
    const QString ticker = ToQt(forms.upper);
    m_panes.ShowStatus(ticker + u" - Finding Website"_s);
    const QString profile = ToQt(BuildAddress(row, forms, m_sites, m_clock.Today()));
    const QByteArray page = m_transfers.FetchPage(profile);
    // A search that began meanwhile has the pane; it is over by now.
    if (!alive || search != m_searches)
        return;
    const QString home =
        ToQt(tallowmere::FindHomePage({page.data(), static_cast<std::size_t>(page.size())}));
    m_panes.ShowStatus({});
    if (home.isEmpty()) {
        m_prompts.Message(u"Website Not Found"_s, MessageTitle());
        return;
    }
    m_panes.Navigate(home);
    m_form.setWindowTitle(ticker + u" - "_s + home);
}

void LinkDispatch::StartWatch() {
    if (m_lastAddress.isEmpty()) {
        m_prompts.Message(u"You must select a ticker symbol and a research link from "
                          "below before using this feature."_s,
                          MessageTitle());
        return;
    }
    Q_EMIT WatchRequested(m_lastTicker + u"|"_s + m_lastAddress);
}

void LinkDispatch::RunCustom(int index, const std::optional<TickerForms>& forms) {
    if (m_form.lbllink.at(static_cast<std::size_t>(index))->Caption() ==
        ToQt(kEmptyCustomCaption)) {
        Q_EMIT EditorRequested(index);
        return;
    }
    const std::string address =
        m_settings.GetSetting("Settings", "Custom" + std::to_string(index), "");
    const bool multiLink = IsMultiLink(address);
    if ((multiLink || HoldsPlaceholder(address)) && !forms) {
        AskForTicker(u"Select a Ticker..."_s);
        return;
    }
    if (forms)
        Remember(Catalogue()[static_cast<std::size_t>(index)]);
    if (multiLink)
        Q_EMIT MultiLinkRequested(index, *forms);
    else if (HoldsPlaceholder(address))
        m_panes.Navigate(ToQt(ExpandPlaceholders(address, *forms)));
    else
        m_panes.Navigate(ToQt(address));
}

} // namespace tallowmere
