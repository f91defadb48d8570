#pragma once

#include <QWidget>

class QWebEngineView;

namespace tallowmere {

class EngineProfile;
class Prompts;

/// One embedded browser. The engine's view is made by the first navigation.
class BrowserPane : public QWidget {
    Q_OBJECT
public:
    BrowserPane(EngineProfile& profile, Prompts& prompts, QWidget* parent);

    /// Loads an address, given as text as it was built; one without a scheme is an http address.
    void Navigate(const QString& address);
    void GoBack();
    void GoForward();
    void Stop();
    void Refresh();
    bool Busy() const { return m_busy; }

    /// Returns when the pane is no longer busy, or is gone.
    void WaitWhileBusy();

    /// The address of the page, as it was built.
    QString LocationURL() const { return m_location; }

    /// Where pages that open in a new window are loaded.
    void SetNewWindowTarget(BrowserPane* pane) { m_newWindows = pane; }

Q_SIGNALS:
    /// A page is about to load; setting `cancel` keeps it from loading.
    void BeforeNavigate2(const QString& address, bool* cancel);
    void StatusTextChange(const QString& text);
    /// 0 of 0 when nothing loads.
    void ProgressChange(int progress, int maximum);
    void LoadFinished();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWebEngineView* View();

    EngineProfile& m_profile;
    Prompts& m_prompts;
    QWebEngineView* m_view = nullptr;
    BrowserPane* m_newWindows = nullptr;
    bool m_busy = false;
    QString m_location;
};

} // namespace tallowmere
