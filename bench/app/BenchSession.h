#pragma once

#include "AllowRoot.h"
#include "app/base/Clock.h"
#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/PortalScheme.h"
#include "app/forms/frmMain.h"
#include "app/shell/Session.h"
#include "app/shell/Subsystems.h"
#include "app/sites/Tables.h"
#include "core/sites/site_table.h"

#include <QTemporaryDir>

#include <functional>

namespace tallowmere {

/// What has to be done before the application object exists: no display is needed, and the engine's
/// sandbox refuses to run for root.
inline void PrepareBench() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    AllowRoot();
    PortalScheme::Register();
}

/// The clock of the machine, until it is set: from then on it stands.
class BenchClock : public Clock {
public:
    QDateTime standing;
    QDateTime Now() const override { return standing.isNull() ? Clock::Now() : standing; }
};

inline PortalAnswer PlainPage(const std::string&, const std::string&) {
    return PortalAnswer{"text/html", "<html></html>"};
}

/// A portfolio of so many tickers that begin with a letter, as it is stored.
inline std::string StoredTickers(char first, int count) {
    std::string list;
    for (int i = 0; i < count; ++i)
        list += first + std::to_string(i) + '|';
    return list;
}

/// A started session on a fresh profile. All sites lie on one host; in sample mode every address
/// is answered by the portal.
class BenchSession {
public:
    explicit BenchSession(const std::function<void(SettingsStore&)>& prepare = {},
                          const std::string& host = "h.example", WebMode mode = WebMode::Sample,
                          const WebAccess::PortalFunction& portal = PlainPage) {
        Folders folders;
        folders.programFolder = ToPath(m_folder.path());
        folders.settingsFile = folders.programFolder / "settings.ini";
        folders.engine = folders.programFolder / "engine";
        folders.tables = folders.programFolder;
        SettingsStore settings(folders.settingsFile);
        settings.SaveSetting("Settings", "First", "OK");
        if (prepare)
            prepare(settings);
        m_tables.sites = SiteTable::Parse("[hosts]\ndefault = \"" + host + "\"\n", "bench");
        m_session = std::make_unique<Session>(
            SessionSetup{folders, mode, m_tables, portal, m_prompts, m_clock});
        m_session->Start();
    }

    Session* operator->() { return m_session.get(); }
    frmMain& Form() { return m_session->Form(); }
    void SetClock(const QDateTime& now) { m_clock.standing = now; }

private:
    QTemporaryDir m_folder;
    DialogPrompts m_prompts;
    BenchClock m_clock;
    Tables m_tables;
    std::unique_ptr<Session> m_session;
};

} // namespace tallowmere
