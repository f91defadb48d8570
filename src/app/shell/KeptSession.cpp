#include "app/shell/KeptSession.h"

#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneTabs.h"
#include "app/market/WatchWindows.h"
#include "core/shell/conversion.h"
#include "core/shell/kept_pages.h"
#include "core/shell/setting_keys.h"

namespace tallowmere {

KeptSession::KeptSession(frmMain& form, SettingsStore& settings, PaneTabs& tabs,
                         WatchWindows& watches)
    : QObject(&form), m_form(form), m_settings(settings), m_tabs(tabs), m_watches(watches) {}

bool KeptSession::IsWanted() const {
    return ToBoolean(UsableSetting(m_settings, kSettingsSection, "KeepPages"));
}

bool KeptSession::RestorePanes() {
    const KeptPages pages = IsWanted() ? ReadKeptPages(m_settings) : KeptPages{};
    m_tabs.Await(m_form.Web, {ToQt(pages.first), {}});
    m_tabs.Await(m_form.WebB, {ToQt(pages.second), {}});
    for (const KeptPage& page : pages.tabs)
        m_tabs.AddWaiting({ToQt(page.address), ToQt(page.caption)});
    if (pages.front == 0 && pages.first.empty())
        return false;
    m_tabs.ShowAt(pages.front);
    return true;
}

void KeptSession::RestoreWatches() {
    if (IsWanted())
        m_watches.Restore(ReadKeptPages(m_settings).watches);
}

void KeptSession::Save() {
    if (!IsWanted())
        return;
    KeptPages pages;
    pages.first = FromQt(m_tabs.PageOf(m_form.Web).address);
    pages.second = FromQt(m_tabs.PageOf(m_form.WebB).address);
    pages.front = m_tabs.KeptFrontIndex();
    for (const TabPage& page : m_tabs.Pages())
        pages.tabs.push_back({FromQt(page.address), FromQt(page.caption)});
    pages.watches = m_watches.Kept();
    SaveKeptPages(m_settings, pages);
}

} // namespace tallowmere
