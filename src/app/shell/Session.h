#pragma once

#include "app/base/CommandKeys.h"
#include "app/base/Transfers.h"
#include "app/base/WebAccess.h"
#include "app/shell/SessionSetup.h"
#include "app/tools/TextSizes.h"
#include "core/shell/undo_recorder.h"

#include <QObject>

#include <memory>

namespace tallowmere {

class EngineProfile;
class Portal;
class UserSites;
class frmMain;
struct Subsystems;

/// One run of the program: owns the main window, what it works with and the controllers of each
/// subsystem, and takes them through the start and the close.
class Session : public QObject {
    Q_OBJECT
public:
    explicit Session(SessionSetup setup);
    ~Session() override;

    /// Runs the start sequence and shows the window.
    void Start();

    /// Brings the window to the front.
    void Raise();

    frmMain& Form() { return *m_form; }
    SettingsStore& Settings() { return m_settings; }
    UserSites& OwnSites() { return *m_userSites; }
    Subsystems& Controllers() { return *m_subsystems; }

private:
    void ApplyProxy();
    void ApplyPreferences();
    void ReadSettingsAnew();
    void ChooseFirstPage();
    void Close();

    bool Flag(std::string_view key) const;
    QString Text(std::string_view key) const;

    SessionSetup m_setup;
    std::unique_ptr<UserSites> m_userSites;
    SettingsStore m_settings;
    UndoRecorder m_undo;
    CommandKeys m_keys;
    WebAccess m_web;
    std::unique_ptr<Portal> m_portal;
    std::unique_ptr<EngineProfile> m_profile;
    Transfers m_transfers;
    TextSizes m_textSizes;
    std::unique_ptr<frmMain> m_form;
    std::unique_ptr<Subsystems> m_subsystems;
};

} // namespace tallowmere
