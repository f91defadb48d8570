#include "app/market/Timers.h"

#include "app/base/QtText.h"
#include "app/base/TransferControl.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/LinkDispatch.h"
#include "core/shell/area_colors.h"
#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"
#include "core/sites/site_table.h"

#include <QPointer>

namespace tallowmere {

Timers::Timers(frmMain& form, SettingsStore& settings, const SiteTable& sites,
               TransferControl& tmNet, LinkDispatch& dispatch)
    : QObject(&form), m_form(form), m_settings(settings), m_sites(sites), m_tmNet(tmNet) {
    Timer2.setInterval(kFirstClubInterval);
    Timer3.setInterval(kRefreshInterval);
    connect(&Timer2, &QTimer::timeout, this, &Timers::TickClub);
    connect(&Timer3, &QTimer::timeout, this, &Timers::TickRefresh);
    connect(&dispatch, &LinkDispatch::AlertsStarted, this, &Timers::StartAlerts);
    connect(&dispatch, &LinkDispatch::PageLinkOpened, this, &Timers::Unmark);
    connect(form.menus->mnuRefresh, &QAction::triggered, this, &Timers::SwitchRefresh);
}

void Timers::Start() {
    const bool on = ToBoolean(UsableSetting(m_settings, kSettingsSection, "AutoRefresh"));
    m_form.menus->mnuRefresh->setChecked(on);
    if (on)
        Timer3.start();
}

void Timers::SwitchRefresh(bool on) {
    m_settings.SaveSetting(kSettingsSection, "AutoRefresh", FromBoolean(on));
    if (on)
        Timer3.start();
    else
        Timer3.stop();
}

void Timers::TickRefresh() {
    if (m_refreshes.Tick())
        m_form.Web->Refresh();
}

void Timers::StartAlerts() {
    Timer2.start();
}

void Timers::TickClub() {
    if (m_fetching)
        return;
    if (Timer2.interval() == kFirstClubInterval) {
        Chip* alerts = m_form.lbllink[kAlertsLink];
        // A caption is never cut, however large the font.
        alerts->setFixedWidth(std::max(PixelsFromTwips(kAlertsWidth), alerts->sizeHint().width()));
        Timer2.setInterval(kClubInterval);
    }
    const QPointer<Timers> alive(this);
    m_fetching = true;
    FetchClubPages();
    if (alive)
        m_fetching = false;
}

void Timers::FetchClubPages() {
    const QPointer<Timers> alive(this);
    for (std::size_t i = 0; i < ClubPages().size(); ++i) {
        const ClubPage& page = ClubPages()[i];
        // What another part of the window fetches first is not disturbed; the next tick is near.
        if (m_tmNet.IsBusy())
            return;
        const QString address = ToQt(m_sites.Address("club_pages", page.path));
        const QByteArray body = m_tmNet.OpenURL(address);
        if (!alive)
            return;
        if (m_watch.Take(i, body.toStdString()))
            m_form.lbllink.at(static_cast<std::size_t>(page.link))
                ->SetColors({kChangedText, kChangedBackground});
    }
}

void Timers::Unmark(int link) {
    for (const ClubPage& page : ClubPages()) {
        if (page.link == link)
            m_form.lbllink.at(static_cast<std::size_t>(link))
                ->SetColors(ReadAreaColors(m_settings).Of("TLB"));
    }
}

} // namespace tallowmere
