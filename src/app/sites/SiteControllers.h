#pragma once

#include <QObject>

namespace tallowmere {

class BrowserPane;
class Clock;
class EngineProfile;
class PaneDeck;
class Prompts;
class SettingsStore;
class SiteDataKeeper;
class SiteEditor;
class UserSites;
class WebAccess;
class frmMain;
struct RecordingState;
struct Tables;

/// Leads addresses by the tables, anew whenever the user's own changes, and tells what is wrong
/// with that. The form owns it and the windows "Sites" and "Site Data".
class SiteControllers : public QObject {
    Q_OBJECT
public:
    SiteControllers(frmMain& form, SettingsStore& settings, Prompts& prompts, const Clock& clock,
                    const RecordingState& recording, const Tables& tables, UserSites& userSites,
                    WebAccess& web, EngineProfile& profile, PaneDeck& panes);

    /// Says in the status line what is wrong with the user's table, if anything is.
    void TellProblems();

    SiteEditor* editor;
    SiteDataKeeper* data;

private:
    void LeadAddresses();

    BrowserPane& m_pane;
    const Tables& m_tables;
    const UserSites& m_userSites;
    WebAccess& m_web;
    PaneDeck& m_panes;
};

} // namespace tallowmere
