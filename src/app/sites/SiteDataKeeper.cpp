#include "app/sites/SiteDataKeeper.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/SiteData.h"
#include "app/forms/frmMain.h"
#include "core/pages/site_data.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"
#include "core/text/runtime_error.h"

#include <QSignalBlocker>
#include <QUrl>

#include <algorithm>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view kKey = "CookieSites";
constexpr auto kSettleTime = std::chrono::milliseconds(100);

} // namespace

SiteDataKeeper::SiteDataKeeper(frmMain& form, SettingsStore& settings, Prompts& prompts,
                               EngineProfile& profile)
    : QObject(&form), m_form(form), m_settings(settings), m_prompts(prompts), m_profile(profile),
      m_crossing(ReadSiteList(UsableSetting(settings, kSettingsSection, kKey))) {
    m_profile.LetCrossSites(m_crossing);
    m_settle.setSingleShot(true);
    m_settle.setInterval(kSettleTime);
    connect(&m_settle, &QTimer::timeout, this, &SiteDataKeeper::List);
    connect(form.menus->siteData, &QAction::triggered, this, [this] { Show({}); });
    connect(&profile, &EngineProfile::SiteDataWanted, this, &SiteDataKeeper::Show);
    connect(&profile.Sites(), &SiteData::Cleared, this, [this](const QStringList& left) {
        Tell(left.isEmpty() ? m_done
                            : tr("Not cleared: what %1 stores. Close its pages and try again")
                                  .arg(QUrl(left.first()).host()));
    });
    connect(&profile.Sites(), &SiteData::Changed, this, [this] {
        if (m_window)
            m_settle.start();
    });
}

void SiteDataKeeper::ReadSwitches() {
    m_crossing = ReadSiteList(UsableSetting(m_settings, kSettingsSection, kKey));
    m_profile.LetCrossSites(m_crossing);
    List();
}

void SiteDataKeeper::Show(const QString& host) {
    if (!m_window) {
        m_window = new frmSiteData(&m_form);
        m_window->setAttribute(Qt::WA_DeleteOnClose);
        Connect();
        m_profile.Sites().Load();
    }
    m_asked = host;
    List();
    Select(host);
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void SiteDataKeeper::Connect() {
    connect(m_window->lstData, &QTreeWidget::currentItemChanged, this,
            &SiteDataKeeper::ShowButtons);
    connect(m_window->lstData, &QTreeWidget::itemChanged, this,
            [this](const QTreeWidgetItem* item) { Switch(*item); });
    connect(m_window->cmdClear, &QPushButton::clicked, this, &SiteDataKeeper::Clear);
    connect(m_window->cmdClearAll, &QPushButton::clicked, this, &SiteDataKeeper::ClearAll);
}

// A site that has been cleared stays in the list when it may use cookies across sites.
void SiteDataKeeper::List() {
    if (!m_window)
        return;
    QTreeWidget& list = *m_window->lstData;
    const QTreeWidgetItem* current = list.currentItem();
    const QString selected = current ? current->text(frmSiteData::Site) : QString();
    QList<SiteData::Site> sites = m_profile.Sites().Sites();
    const auto isListed = [&](const std::string& host) {
        return std::any_of(sites.begin(), sites.end(), [&](const SiteData::Site& site) {
            return IsOfSite(host, FromQt(site.host));
        });
    };
    for (const std::string& host : m_crossing)
        if (!std::any_of(sites.begin(), sites.end(),
                         [&](const auto& site) { return FromQt(site.host) == host; }))
            sites << SiteData::Site{ToQt(host)};
    if (!m_asked.isEmpty() && !isListed(FromQt(m_asked)))
        sites << SiteData::Site{m_asked};

    const QSignalBlocker quiet(list);
    list.clear();
    for (const SiteData::Site& site : sites) {
        auto* item = new QTreeWidgetItem(&list);
        item->setText(frmSiteData::Site, site.host);
        item->setText(frmSiteData::Cookies, QString::number(site.cookies));
        item->setText(frmSiteData::Databases, site.hasDatabases ? tr("Yes") : QString());
        const bool isCrossing =
            std::ranges::find(m_crossing, FromQt(site.host)) != m_crossing.end();
        item->setCheckState(frmSiteData::Across, isCrossing ? Qt::Checked : Qt::Unchecked);
    }
    Select(selected);
    ShowButtons();
}

void SiteDataKeeper::Select(const QString& site) {
    QTreeWidget& list = *m_window->lstData;
    for (int n = 0; n < list.topLevelItemCount(); ++n)
        if (QTreeWidgetItem* item = list.topLevelItem(n);
            IsOfSite(FromQt(site), FromQt(item->text(frmSiteData::Site)))) {
            list.setCurrentItem(item);
            list.scrollToItem(item);
            return;
        }
    if (!list.currentItem())
        list.setCurrentItem(list.topLevelItem(0));
}

void SiteDataKeeper::ShowButtons() {
    m_window->cmdClear->setEnabled(m_window->lstData->currentItem());
}

void SiteDataKeeper::Tell(const QString& message) {
    if (!m_window)
        return;
    m_window->lblMessage->setText(message);
    m_window->lblMessage->setAccessibleName(message);
}

void SiteDataKeeper::Switch(const QTreeWidgetItem& item) {
    const std::string site = FromQt(item.text(frmSiteData::Site));
    const bool isOn = item.checkState(frmSiteData::Across) == Qt::Checked;
    std::vector<std::string> crossing = m_crossing;
    std::erase(crossing, site);
    if (isOn)
        crossing.push_back(site);
    try {
        m_settings.SaveSetting(kSettingsSection, kKey, WriteSiteList(crossing));
    } catch (const RuntimeError& error) {
        Tell(ToQt(error.what()));
        m_settle.start(); // the box says again what is in force
        return;
    }
    m_crossing = std::move(crossing);
    m_profile.LetCrossSites(m_crossing);
    Tell(isOn ? tr("%1 may use cookies across sites").arg(ToQt(site))
              : tr("%1 may not use cookies across sites").arg(ToQt(site)));
}

void SiteDataKeeper::Clear() {
    const QString site = m_window->lstData->currentItem()->text(frmSiteData::Site);
    m_done = tr("The data of %1 are cleared").arg(site);
    Tell(tr("Clearing..."));
    m_asked.clear();
    m_profile.Sites().Clear(site);
}

void SiteDataKeeper::ClearAll() {
    if (!m_prompts.Ask(tr("Clear the cookies, stored data and cache of all sites? All logins end."),
                       MessageTitle()) ||
        !m_window)
        return;
    m_done = tr("All data are cleared; the rest goes at the next start");
    Tell(tr("Clearing..."));
    m_asked.clear();
    m_profile.Sites().ClearAll();
}

} // namespace tallowmere
