#pragma once

#include "app/engine/PaneFrame.h"
#include "app/engine/PanePlace.h"

#include <QDateTime>
#include <QPointer>
#include <QUrl>

#include <functional>
#include <tuple>

class QWebEngineLoadingInfo;

namespace tallowmere {

class EngineProfile;
class PanePage;
class Prompts;

/// An embedded browser pane: `Web`, `WebB`, `WebTick` and the one of the watch window. Addresses
/// go in and come out as text, as they were built, wherever they lead today. The engine behind it
/// is started by the first navigation.
class BrowserPane : public PaneFrame {
    Q_OBJECT
public:
    BrowserPane(EngineProfile& profile, Prompts& prompts, QWidget* parent = nullptr);
    ~BrowserPane() override;

    /// Shows an address, or the path of a generated page, unless a receiver of BeforeNavigate2
    /// cancels it. An empty address is ignored. What is no web address is refused in the pane.
    void Navigate(const QString& address);
    void GoBack();
    void GoForward();
    /// Where Back or Forward leads from here, the nearest first, as many as are listed.
    QList<HistoryEntry> Steps(HistorySide side) const { return m_place.Steps(side); }
    /// Goes to one of them; does nothing when the history is another one by now.
    void GoTo(const HistoryEntry& entry);
    void Stop();
    /// Ends the page with all that it runs; the pane is as before its first navigation.
    void EndPage();
    /// Loads the page again; after a failure or a crash the page that should be there.
    void Refresh();

    /// Whether a page is being loaded.
    bool Busy() const { return m_isBusy; }
    /// Whether the navigation that BeforeNavigate2 tells of was started by the page itself.
    bool IsPagesOwnWish() const { return m_isInPageHook; }
    /// The address of what the pane shows, as built: no stand-in and no redirect changes it. Where
    /// the user followed links it is the page's own. Empty before the first page.
    QString LocationURL() const { return m_place.Location(); }

    /// The address of what the pane shows, as the engine has it after every redirect: one that
    /// works in any browser. For a page of the program's own, which has none, that of LocationURL.
    QString RealAddress() const { return m_place.RealAddress(); }
    /// Hands the page that is shown to who asks it something (see PageReader); false when there is
    /// none.
    bool AskPage(const std::function<void(QWebEnginePage&)>& ask) const;

    /// As soon as the page at `url` is loaded by the page that the pane has by now, its frames stay
    /// empty: what is in them is shown elsewhere. An empty `url` holds none back.
    void HoldFramesOf(const QUrl& url);

    /// Where a window goes that the page opens on the user's wish: into that pane instead of here.
    void SetNewWindowTarget(BrowserPane* target) { m_newWindowTarget = target; }
    /// Such a window is told as PaneWanted, and nothing is opened here.
    void OfferWindows() { m_offersWindows = true; }
    /// The title of the page that is shown, of strangers; empty before the first page.
    QString Title() const;

    /// Calls `then` when the page has frames that hold nothing: sites refused to be framed, or
    /// could not be reached. To be asked when the page is complete.
    void WhenFramesAreEmpty(std::function<void()> then);

Q_SIGNALS:
    /// Raised once for every navigation that `Navigate` or the page itself starts, with the address
    /// as it was given. It is not raised for redirects, Back, Forward and Refresh. A receiver that
    /// calls `Navigate` replaces the navigation.
    void BeforeNavigate2(const QString& address, bool* cancel);
    /// The page opened a window on the user's wish: a further pane for that address.
    void PaneWanted(const QString& address, bool isInFront);
    void TitleChanged();
    void StatusTextChange(const QString& text);
    /// 0 to 100 of 100 during a load, 0 of 0 when it is over.
    void ProgressChange(int progress, int maximum);
    /// A load is over; `isLoaded` is false when it failed or was stopped.
    void DocumentComplete(bool isLoaded);

private:
    void EnsurePage();
    void EndQuestions();
    void Load(const QString& address);
    void LoadAsBuilt();
    void TellOfFailure(const QString& title, const QString& text, const QUrl& url,
                       const QString& address);
    bool AskPlainly(const QString& host);
    void LoadAgainUnlessBegun();
    void AskPartsPlainly(const QString& host);
    void Begin(const QString& address);
    void End(bool isLoaded);
    void OnLoading(const QWebEngineLoadingInfo& info);
    void OnPageStarting(const QUrl& url, bool* cancel);
    void OnFailure(const QUrl& url, const QString& error);
    void OnCommit();
    void OnCrash();
    void OnStorm();
    void GiveUpPage();
    void OnWindowWanted(const QUrl& url, bool isInFront);
    void TellOfEmptyAnswer(int status);
    void ShowPage();
    void HidePage();
    void Refuse(const QString& address);
    void ShowLocation();

    EngineProfile& m_profile;
    Prompts& m_prompts;
    QPointer<PanePage> m_page;
    QPointer<BrowserPane> m_newWindowTarget;
    bool m_offersWindows = false;
    bool m_isAsBuilt = false; ///< the last load was not led to today's address
    QString m_pendingAddress; ///< of a load by `Navigate` that has not arrived yet
    PanePlace m_place;
    int m_navigation = 0; ///< tells a navigation from one that replaced it
    bool m_isBusy = false;
    bool m_isAskingPlainly = false; ///< a load by http is to take the place of one by https
    QStringList m_plainHosts; ///< found while a page is being loaded that may hold parts of theirs
    QUrl m_requested;         ///< of the last load that was handed to the engine
    std::tuple<int, QUrl, QDateTime> m_placeBefore; ///< where the page was then
    bool m_isStartAwaited = false; ///< a load was handed to the engine, which has not begun it
    bool m_isInPageHook = false;
};

} // namespace tallowmere
