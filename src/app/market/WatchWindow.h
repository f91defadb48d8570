#pragma once

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include <string>

namespace tallowmere {

class ChangeWatch;
class Clock;
class Prompts;
class SettingsStore;
class frmWiz;

/// What one watch window does: it loads its page over and over until it is closed.
class WatchWindow : public QObject {
    Q_OBJECT
public:
    /// `target` is "caption|address". The window stands `step` steps of a cascade from the stored
    /// place; the one that stands there itself keeps that place.
    WatchWindow(frmWiz& form, SettingsStore& settings, Prompts& prompts, const Clock& clock,
                const std::string& target, int step);

    int Step() const { return m_step; }
    /// The caption that it was opened with.
    const std::string& Caption() const { return m_caption; }

    ChangeWatch& Changes() { return *m_changes; }

    /// Begins a wait of so many seconds, and one more: until it is over, or the window closes, the
    /// page stays as it is. The window stays alive, and so do all others: the waits of many windows
    /// are under way at once, and none may keep another from ending.
    void WaitSecs(int seconds);

    QTimer Timer1;

private:
    void Place();
    void Connect();
    void Tick();
    bool IsWaiting() const;
    void SettleSeconds();
    void OnLoaded(bool isLoaded);
    void ShowTimes();
    void Stop();
    void Export();
    void Write(const QString& path, const QString& text);

    std::string m_caption;
    frmWiz& m_form;
    SettingsStore& m_settings;
    Prompts& m_prompts;
    const Clock& m_clock;
    QTime m_loaded;    ///< when the page was loaded last
    QDateTime m_began; ///< the wait that is under way, and how long it is
    int m_seconds = 0;
    int m_step;
    bool m_stop = false;
    ChangeWatch* m_changes;
};

} // namespace tallowmere
