#pragma once

#include "app/forms/frmSiteData.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

#include <string>
#include <vector>

namespace tallowmere {

class EngineProfile;
class Prompts;
class SettingsStore;
class frmMain;

/// The window "Site Data": lists what sites keep, clears it, and keeps in the settings which sites
/// may use cookies across sites.
class SiteDataKeeper : public QObject {
    Q_OBJECT
public:
    SiteDataKeeper(frmMain& form, SettingsStore& settings, Prompts& prompts,
                   EngineProfile& profile);

    /// Opens the window, or brings it to the front, and selects the row of a host's site.
    void Show(const QString& host);

    /// Reads from the settings which sites may use cookies across sites, after they changed there.
    void ReadSwitches();

    /// The window while it is open.
    frmSiteData* Window() const { return m_window; }

private:
    void Connect();
    void List();
    void ShowButtons();
    void Select(const QString& site);
    void Tell(const QString& message);
    void Switch(const QTreeWidgetItem& item);
    void Clear();
    void ClearAll();

    frmMain& m_form;
    SettingsStore& m_settings;
    Prompts& m_prompts;
    EngineProfile& m_profile;
    QPointer<frmSiteData> m_window;
    std::vector<std::string> m_crossing; ///< sites that may use cookies across sites
    QString m_asked;                     ///< a host whose site is listed whatever it keeps
    QTimer m_settle;                     ///< cookies come one by one
    QString m_done;                      ///< what is said when all is cleared
};

} // namespace tallowmere
