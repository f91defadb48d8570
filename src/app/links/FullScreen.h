#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QRect>

class QAction;
class QPointF;
class QToolBar;
class QWidget;

namespace tallowmere {

class BrowserPane;
class FullScreenHint;
class PaneDeck;
class SettingsStore;
class frmMain;

/// The page in front alone on the whole screen, because the user wants it so or because the page
/// asked for it after a click. Whoever began it, the user ends it, by keys that no page gets.
class FullScreen : public QObject {
    Q_OBJECT
public:
    FullScreen(frmMain& form, SettingsStore& settings, PaneDeck& deck);

    bool IsOn() const { return m_isOn; }
    /// Goes back to the layout of before.
    void Leave();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Toggle();
    void Enter();
    void Grant(BrowserPane* pane, const QString& host, bool* isGranted);
    void EndFill();
    void OnFillOver(const BrowserPane* pane);
    void ShowHint(const QString& host);
    void OnPointer(const QPointF& position);
    bool HasTheKeys() const;

    frmMain& m_form;
    SettingsStore& m_settings;
    PaneDeck& m_deck;
    QAction* m_command;
    QPointer<FullScreenHint> m_hint;  ///< made when it is first needed
    QPointer<BrowserPane> m_filler;   ///< whose page asked for the screen
    QList<QPointer<QToolBar>> m_bars; ///< that were there before
    QPointer<QWidget> m_focus;        ///< what had the keys before
    Qt::WindowStates m_before;
    QRect m_place; ///< of the window before
    bool m_isOn = false;
    bool m_isPagesWish = false; ///< it ends when the page wants no more
};

} // namespace tallowmere
