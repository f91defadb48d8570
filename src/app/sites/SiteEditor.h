#pragma once

#include "app/base/WebMode.h"
#include "app/forms/frmSites.h"
#include "core/sites/site_listing.h"

#include <QObject>
#include <QPointer>

namespace tallowmere {

class Clock;
class frmMain;
class PaneDeck;
class UserSites;
struct RecordingState;
struct Tables;

/// The window "Sites": lists where every link leads, tries one, and writes a row of the user's own.
class SiteEditor : public QObject {
    Q_OBJECT
public:
    SiteEditor(frmMain& form, const Clock& clock, const RecordingState& recording,
               const Tables& tables, WebMode mode, UserSites& userSites, PaneDeck& panes);

    /// Opens the window, or brings it to the front.
    void Show();

    /// The window while it is open.
    frmSites* Window() const { return m_window; }

private:
    void Connect();
    void List();
    void ShowNote();
    void ShowSelected();
    void ShowButtons();
    const ListedSite* Selected() const;
    std::string Ticker() const;
    void Save();
    void Reset();
    void Try();
    void Run(const std::function<void(const ListedSite&)>& command, const QString& done);

    frmMain& m_form;
    const Clock& m_clock;
    const RecordingState& m_recording;
    const Tables& m_tables;
    WebMode m_mode;
    UserSites& m_userSites;
    PaneDeck& m_panes;
    QPointer<frmSites> m_window;
    std::vector<ListedSite> m_sites; ///< in the order of the list
};

} // namespace tallowmere
