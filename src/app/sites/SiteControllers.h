#pragma once

#include "app/base/WebMode.h"

#include <QObject>

namespace tallowmere {

class BrowserPane;
class Clock;
class PaneDeck;
class SiteEditor;
class UserSites;
class WebAccess;
class frmMain;
struct RecordingState;
struct Tables;

/// Leads addresses by the tables, anew whenever the user's own changes, and tells what is wrong
/// with that. The form owns it and the window "Sites".
class SiteControllers : public QObject {
    Q_OBJECT
public:
    SiteControllers(frmMain& form, const Clock& clock, const RecordingState& recording,
                    const Tables& tables, WebMode mode, UserSites& userSites, WebAccess& web,
                    PaneDeck& panes);

    /// Says in the status line what is wrong with the user's table, if anything is.
    void TellProblems();

    SiteEditor* editor;

private:
    void LeadAddresses();

    BrowserPane& m_pane;
    const Tables& m_tables;
    WebMode m_mode;
    const UserSites& m_userSites;
    WebAccess& m_web;
    PaneDeck& m_panes;
};

} // namespace tallowmere
