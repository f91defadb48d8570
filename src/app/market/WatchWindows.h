#pragma once

#include "core/shell/kept_pages.h"

#include <QList>
#include <QObject>
#include <QPointer>

namespace tallowmere {

class Clock;
class CommandKeys;
class EngineProfile;
class Prompts;
class SettingsStore;
class frmMain;
class frmWiz;
class LinkDispatch;

/// All watch windows: each request opens a further one, and all close with the main window.
class WatchWindows : public QObject {
    Q_OBJECT
public:
    WatchWindows(frmMain& form, SettingsStore& settings, Prompts& prompts, const Clock& clock,
                 EngineProfile& profile, LinkDispatch& dispatch);
    ~WatchWindows() override;

    /// Opens a watch window for "caption|address".
    frmWiz* CreateWiz(const QString& target);

    /// What the windows watch that are open, or close with the main window.
    std::vector<KeptWatch> Kept() const;
    /// Opens such windows again, as many as may be kept.
    void Restore(const std::vector<KeptWatch>& watches);

    static constexpr std::size_t kMostKept = 40;

private:
    void CloseAll();

    SettingsStore& m_settings;
    Prompts& m_prompts;
    const Clock& m_clock;
    EngineProfile& m_profile;
    CommandKeys& m_keys;
    QList<QPointer<frmWiz>> m_windows;
};

} // namespace tallowmere
