#pragma once

#include <QObject>
#include <QTimer>

namespace tallowmere {

class LinkPanel;
class PaneDeck;
class SettingsStore;
class SitePopups;
class frmMain;

/// The active edges: side panels that show while the pointer is at the window's edge and hide a
/// moment later.
class ActiveEdges : public QObject {
    Q_OBJECT
public:
    ActiveEdges(frmMain& form, SettingsStore& settings, PaneDeck& panes, LinkPanel& panel,
                SitePopups& popups);

    /// Takes the switch over from the settings.
    void Start();

    /// Whether the feature is on.
    bool IsActive() const { return m_isActive; }

    /// The panels stay as long as they are held.
    void Hold(bool held) { m_isHeld = held; }
    bool IsHeld() const { return m_isHeld; }

    /// Follows the switch: everything that the edges show is hidden, or comes
    /// back when the feature is off.
    void Apply();

    /// Switches the feature and writes it down.
    void Switch(bool on);

    /// The pointer moved over the window: `x` and the outer `width` in twips.
    void PointerMoved(int x, int width);

    /// Restarts the countdown of `timAE`.
    void Touch();

    /// Hides both sides at once; a page is about to load.
    void HideAll();

    QTimer timAE;

private:
    void Tick();
    bool MayNotHide() const;
    void ShowLeft(bool shown);

    frmMain& m_form;
    SettingsStore& m_settings;
    bool m_isActive = false;
    bool m_isHeld = false;
};

} // namespace tallowmere
