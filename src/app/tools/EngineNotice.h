#pragma once

#include <QObject>

namespace tallowmere {

class Clock;
class PaneDeck;
class SettingsStore;
class frmMain;

/// One quiet line in the window when the web engine is old, with what to do about it. It is told
/// once a start, and never again for an engine whose line the user has waved away.
class EngineNotice : public QObject {
    Q_OBJECT
public:
    EngineNotice(frmMain& form, SettingsStore& settings, const Clock& clock, PaneDeck& panes);

    /// Shows the line when there is a reason for it.
    void Tell();

private:
    frmMain& m_form;
    SettingsStore& m_settings;
    const Clock& m_clock;
    PaneDeck& m_panes;
};

} // namespace tallowmere
