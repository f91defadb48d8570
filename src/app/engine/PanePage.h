#pragma once

#include "app/engine/HistoryWalk.h"
#include "app/engine/MailClicks.h"
#include "app/engine/PageQuestion.h"
#include "core/pages/page_talk.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QPointer>
#include <QUrl>
#include <QWebEnginePage>

#include <functional>
#include <optional>
#include <tuple>

class QAuthenticator;
class QWebEngineNewWindowRequest;

namespace tallowmere {

class EngineProfile;
class Prompts;
class UserInput;

/// The engine's page of a pane: what it starts itself is offered to the pane first, and what it
/// wants beyond showing itself is asked of the user or refused. It belongs to the profile.
class PanePage : public QWebEnginePage {
    Q_OBJECT
public:
    PanePage(EngineProfile& profile, Prompts& prompts);

    /// Where the page speaks to the user. Without such a place, and when that has gone, all that it
    /// asks is answered with no.
    void SetQuestion(PageQuestion* question) { m_question = question; }
    /// Ends the page; one that waits for an answer ends when that is there.
    void End();

    /// Whether `url` is none that a page is shown from: it is refused, or becomes a mail.
    static bool IsForeign(const QUrl& url);

    /// Where the page went last, after every redirect so far, and whether it sent a form there.
    const QUrl& Wanted() const { return m_wanted; }
    bool IsSendingForm() const { return m_isForm; }
    /// Whether a load has been accepted and its page has not arrived yet.
    bool IsUnderWay() const { return m_isUnderWay; }

    /// What the user does on this page is seen there.
    void SetUserInput(UserInput* input);
    /// Where the user goes back and forward.
    HistoryWalk& Walk() { return m_walk; }
    /// The frames of the page at that address stay empty; an empty one holds none back.
    void HoldFramesOf(const QUrl& url) { m_held = url; }
    /// The user goes to another page: what this one did is not held against that.
    void BeginAnew();
    /// Until another page has come nothing is heard of this one, which would keep it from coming.
    void Leave();
    /// Whether another page was asked for that has neither come nor failed yet.
    bool IsComing() const { return m_left.has_value() || isLoading(); }
    /// Where in its history the page is, as of which visit; another one as soon as the next page
    /// is there.
    using Place = std::tuple<int, QUrl, QDateTime>;
    Place CurrentPlace() const;
    /// Whether the user is to be asked about a file that the page wants to save now.
    bool MayAskForDownload() { return m_downloads.MayAsk(); }

Q_SIGNALS:
    /// The page itself is about to go elsewhere: a link, a form, a script.
    void Starting(const QUrl& url, bool* cancel);
    /// The user opened a link into a window of its own, which is to come to the front or not.
    void WindowWanted(const QUrl& url, bool isInFront);
    /// An address is neither shown nor handed to another program; `isWholePage` says whether it
    /// was to take the place of the page, and not of a frame in it.
    void Refused(const QUrl& url, bool isWholePage);
    /// The page asks more than anybody can answer; its script has to be stopped.
    void Stormed();
    /// The process that shows the page ended otherwise than it was told to.
    void Crashed();
    /// The user agreed to write a mail: a clean "mailto:" address.
    void MailWanted(const QString& address);

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    void javaScriptAlert(const QUrl& origin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& preset,
                          QString* answer) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& text,
                                  int line, const QString& source) override;

private:
    bool IsUserActive() const;
    /// Whether the page is heard with `ask`; it gets its offer of silence then.
    bool Hear(PageAsk& ask);
    /// Shows `ask` in the pane and waits for the answer, while the program goes on.
    PageReply AskAndWait(PageAsk ask);
    void Refuse(const QUrl& url, bool isMainFrame);
    bool IsClicked(const QUrl& url);
    void AskForMail(const QUrl& url);
    void OpenWindow(QWebEngineNewWindowRequest& request);
    void AskForPermission(const QUrl& origin, const QString& wish,
                          const std::function<void(bool)>& decide);
    void AskForSignIn(const QString& server, QAuthenticator& authenticator);
    bool IsLeaving() const;

    Prompts& m_prompts;
    const MailClicks& m_mailClicks;
    ClickedMail m_mail;
    QPointer<UserInput> m_input;
    QPointer<PageQuestion> m_question;
    HistoryWalk m_walk{*this};
    PageTalk m_talk;
    PageDownloads m_downloads;
    QElapsedTimer m_clock;
    int m_waiting = 0; ///< answers that the engine waits for in this page's code
    bool m_isEnding = false;
    /// The page that the user leaves: its place, its address and when it came.
    std::optional<Place> m_left;
    QUrl m_held;
    bool m_isUnderWay = false;
    QUrl m_wanted;
    bool m_isForm = false;
};

} // namespace tallowmere
