#include "app/market/WatchWindows.h"

#include "app/base/Clock.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/forms/frmMain.h"
#include "app/forms/frmWiz.h"
#include "app/links/LinkDispatch.h"
#include "app/market/ChangeWatch.h"
#include "app/market/WatchWindow.h"
#include "core/market/watch.h"
#include "core/shell/settings_store.h"

#include <QLineEdit>

#include <algorithm>
#include <span>

namespace tallowmere {

WatchWindows::WatchWindows(frmMain& form, SettingsStore& settings, Prompts& prompts,
                           const Clock& clock, EngineProfile& profile, LinkDispatch& dispatch)
    : QObject(&form), m_settings(settings), m_prompts(prompts), m_clock(clock), m_profile(profile),
      m_keys(form.menus->Keys()) {
    connect(&dispatch, &LinkDispatch::WatchRequested, this, &WatchWindows::CreateWiz);
    connect(&form, &frmMain::Closing, this, &WatchWindows::CloseAll);
}

// The pages in the windows must not outlive the profile.
WatchWindows::~WatchWindows() {
    for (const QPointer<frmWiz>& window : std::as_const(m_windows))
        delete window;
}

frmWiz* WatchWindows::CreateWiz(const QString& target) {
    auto* window = new frmWiz(m_profile, m_prompts, m_keys);
    window->setAttribute(Qt::WA_DeleteOnClose);
    m_windows.removeAll(nullptr);
    std::vector<int> taken;
    for (const QPointer<frmWiz>& open : std::as_const(m_windows))
        if (const auto* watch = open->findChild<WatchWindow*>(); watch && open->isVisible())
            taken.push_back(watch->Step());
    new WatchWindow(*window, m_settings, m_prompts, m_clock, FromQt(target), FreeStep(taken));
    m_windows << window;
    window->show();
    return window;
}

std::vector<KeptWatch> WatchWindows::Kept() const {
    std::vector<KeptWatch> watches;
    for (const QPointer<frmWiz>& window : m_windows) {
        auto* watch = window ? window->findChild<WatchWindow*>() : nullptr;
        const std::string address = watch ? FromQt(window->Text1->text()) : std::string();
        if (!address.empty() && watches.size() < kMostKept)
            watches.push_back({watch->Caption(), address, FromQt(window->txtsecs->text()),
                               watch->Changes().IsOn(), FromQt(watch->Changes().Part())});
    }
    return watches;
}

void WatchWindows::Restore(const std::vector<KeptWatch>& watches) {
    for (const KeptWatch& watch : std::span(watches).first(std::min(watches.size(), kMostKept))) {
        frmWiz* window = CreateWiz(ToQt(JoinWatchTarget(watch.caption, watch.address)));
        window->txtsecs->setText(ToQt(SettledSeconds(watch.seconds)));
        window->findChild<WatchWindow*>()->Changes().Watch(watch.tellsChanges, ToQt(watch.part));
    }
}

void WatchWindows::CloseAll() {
    const QList<QPointer<frmWiz>> windows = m_windows;
    for (const QPointer<frmWiz>& window : windows)
        if (window)
            window->close();
}

} // namespace tallowmere
