#include "app/engine/PanePage.h"

#include "app/base/Prompts.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/PagePermissions.h"
#include "app/engine/UserInput.h"
#include "core/pages/mail_address.h"
#include "core/pages/passage.h"

#include <QAuthenticator>
#include <QCoreApplication>
#include <QEventLoop>
#include <QPointer>
#include <QWebEngineCertificateError>
#include <QWebEngineHistory>
#include <QWebEngineNewWindowRequest>

namespace tallowmere {

using namespace Qt::StringLiterals;

PanePage::PanePage(EngineProfile& profile, Prompts& prompts)
    : QWebEnginePage(&profile.Engine(), &profile), m_prompts(prompts),
      m_mailClicks(profile.Mails()) {
    m_clock.start();
    connect(this, &QWebEnginePage::urlChanged, this, [this] { m_isUnderWay = false; });
    connect(this, &QWebEnginePage::loadFinished, this, [this] {
        m_isUnderWay = false;
        m_left.reset();
    });
    connect(this, &PanePage::MailWanted, &profile, &EngineProfile::MailWanted);
    connect(this, &QWebEnginePage::newWindowRequested, this, &PanePage::OpenWindow);
    new PagePermissions(*this, [this](const QUrl& origin, const QString& wish,
                                      const std::function<void(bool)>& decide) {
        AskForPermission(origin, wish, decide);
    });
    connect(this, &QWebEnginePage::certificateError, this,
            [](QWebEngineCertificateError error) { error.rejectCertificate(); });
    connect(this, &QWebEnginePage::authenticationRequired, this,
            [this](const QUrl& url, QAuthenticator* authenticator) {
                AskForSignIn(WebAccess::AsBuilt(url).host(), *authenticator);
            });
    connect(this, &QWebEnginePage::renderProcessTerminated, this,
            [this](RenderProcessTerminationStatus status) {
                if (status != NormalTerminationStatus)
                    Q_EMIT Crashed();
            });
    connect(this, &QWebEnginePage::proxyAuthenticationRequired, this,
            [this](const QUrl&, QAuthenticator* authenticator, const QString& proxy) {
                AskForSignIn(proxy, *authenticator);
            });
}

bool PanePage::IsForeign(const QUrl& url) {
    return !url.isEmpty() && PassageOf(FromQt(url.scheme()), {}) != Passage::Shown;
}

bool PanePage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    const Traveller traveller{isMainFrame, IsClicked(url)};
    switch (PassageOf(FromQt(url.scheme()), traveller)) {
    case Passage::Mail:
        AskForMail(url);
        return false;
    case Passage::Refused:
        Refuse(url, isMainFrame);
        return false;
    case Passage::Shown:
        break;
    }
    if (!isMainFrame)
        return m_held.isEmpty() || this->url() != m_held;
    const bool isServersRedirect = type == NavigationTypeRedirect && m_isUnderWay;
    const bool isPagesOwn = type == NavigationTypeLinkClicked ||
                            type == NavigationTypeFormSubmitted || type == NavigationTypeOther ||
                            (type == NavigationTypeRedirect && !isServersRedirect);
    bool cancel = false;
    if (isPagesOwn && IsUserActive())
        BeginAnew();
    if (isPagesOwn) {
        m_walk.Forget();
        Q_EMIT Starting(url, &cancel);
    }
    if (!cancel) {
        m_isUnderWay = true;
        m_wanted = url;
        // A redirect takes the form along.
        m_isForm =
            type == NavigationTypeFormSubmitted || (m_isForm && type == NavigationTypeRedirect);
    }
    return !cancel;
}

void PanePage::SetUserInput(UserInput* input) {
    m_input = input;
    connect(input, &UserInput::Happened, this, [this] { m_downloads.NoteUser(); });
}

void PanePage::BeginAnew() {
    m_walk.Forget();
    m_talk.Forget();
    m_downloads.Forget();
}

bool PanePage::IsUserActive() const {
    return m_input && m_input->IsFresh();
}

// The engine must not be disturbed while it asks.
void PanePage::Refuse(const QUrl& url, bool isMainFrame) {
    QMetaObject::invokeMethod(
        this, [this, url, isMainFrame] { Q_EMIT Refused(url, isMainFrame); }, Qt::QueuedConnection);
}

void PanePage::AskForMail(const QUrl& url) {
    const auto draft = ReadMailAddress(url.toEncoded().toStdString());
    if (!draft) {
        Refuse(url, true);
        return;
    }
    // One click asks for one mail.
    if (m_input)
        m_input->Consume();
    const auto ask = [this, draft] {
        const QPointer<PanePage> guard(this);
        const bool isWanted = m_prompts.Ask(
            tr("The page of %1 wants to write this mail in your mail program. "
               "Shall it?\n\n%2")
                .arg(WebAccess::AsBuilt(this->url()).host(), ToQt(MailDraftText(*draft)).trimmed()),
            MessageTitle());
        if (guard && isWanted)
            Q_EMIT MailWanted(ToQt(WriteMailAddress(*draft)));
    };
    QMetaObject::invokeMethod(this, ask, Qt::QueuedConnection);
}

// A script clicks links too; the user's clicks come with the pointer or the keyboard.
bool PanePage::IsClicked(const QUrl& url) {
    return url.scheme() == u"mailto" && IsUserActive() && m_mail.Take(url);
}

void PanePage::OpenWindow(QWebEngineNewWindowRequest& request) {
    // A window that nobody asked for is dropped.
    if (!request.isUserInitiated())
        return;
    // A link that opens a window for its mail is a link all the same.
    const QUrl url = request.requestedUrl();
    if (IsClicked(url))
        AskForMail(url);
    else if (PassageOf(FromQt(url.scheme()), {}) == Passage::Refused)
        Refuse(url, true);
    else
        Q_EMIT WindowWanted(url, request.destination() !=
                                     QWebEngineNewWindowRequest::InNewBackgroundTab);
}

PanePage::Place PanePage::CurrentPlace() const {
    const QWebEngineHistoryItem item = history()->currentItem();
    return {history()->currentItemIndex(), item.url(), item.lastVisited()};
}

void PanePage::Leave() {
    m_left = CurrentPlace();
}

bool PanePage::IsLeaving() const {
    return m_left && *m_left == CurrentPlace();
}

bool PanePage::Hear(PageAsk& ask) {
    // The page that is awaited asks for a sign-in before it comes.
    const bool isOfTheLeft = IsLeaving() && ask.kind != PageAsk::Kind::SignIn;
    if (!m_question || m_isEnding || isOfTheLeft)
        return false;
    switch (m_talk.Hear(m_clock.elapsed())) {
    case Hearing::Refused:
        return false;
    case Hearing::Stopped:
        QMetaObject::invokeMethod(this, &PanePage::Stormed, Qt::QueuedConnection);
        return false;
    case Hearing::ShownWithOffer:
        ask.offersSilence = true;
        break;
    case Hearing::Shown:
        break;
    }
    return true;
}

PageReply PanePage::AskAndWait(PageAsk ask) {
    if (!Hear(ask))
        return {};
    PageReply answer;
    QEventLoop loop;
    bool isAnswered = false;
    m_question->AskAtOnce(ask, [&](const PageReply& reply) {
        answer = reply;
        isAnswered = true;
        loop.quit();
    });
    // Whoever ends the page meanwhile, the engine comes back to it here.
    ++m_waiting;
    if (!isAnswered)
        loop.exec();
    --m_waiting;
    if (!isAnswered && m_question)
        m_question->EndAll(); // the program ends
    if (answer.wantsSilence)
        m_talk.Silence();
    if (m_isEnding && m_waiting == 0)
        QMetaObject::invokeMethod(
            this, [this] { delete this; }, Qt::QueuedConnection);
    return answer;
}

void PanePage::End() {
    m_isEnding = true;
    if (m_waiting == 0)
        delete this;
}

void PanePage::AskForPermission(const QUrl& origin, const QString& wish,
                                const std::function<void(bool)>& decide) {
    PageAsk ask{PageAsk::Kind::Question, WebAccess::AsBuilt(origin).toString(),
                tr("May this page %1?").arg(wish)};
    if (!Hear(ask)) {
        decide(false);
        return;
    }
    m_question->Ask(ask, [guard = QPointer(this), decide](const PageReply& reply) {
        if (!guard)
            return;
        if (reply.wantsSilence)
            guard->m_talk.Silence();
        decide(reply.isYes);
    });
}

void PanePage::AskForSignIn(const QString& server, QAuthenticator& authenticator) {
    const PageReply reply =
        AskAndWait({PageAsk::Kind::SignIn, server,
                    tr("A user name and a password are wanted: %1").arg(authenticator.realm())});
    // To the engine, an authenticator without anything in it says that the user does not sign in.
    authenticator = {};
    if (reply.isYes) {
        authenticator.setUser(reply.text);
        authenticator.setPassword(reply.password);
    }
}

void PanePage::javaScriptAlert(const QUrl& origin, const QString& text) {
    // The page need not wait until its message is read.
    PageAsk ask{PageAsk::Kind::Message, WebAccess::AsBuilt(origin).host(), text};
    if (!Hear(ask))
        return;
    m_question->Ask(ask, [guard = QPointer(this)](const PageReply& reply) {
        if (guard && reply.wantsSilence)
            guard->m_talk.Silence();
    });
}

bool PanePage::javaScriptConfirm(const QUrl& origin, const QString& text) {
    // A page that is not heard any more must not keep the user from leaving it.
    const QString leaving = QCoreApplication::translate(
        "QWebEnginePage", "Are you sure you want to leave this page? Changes that you made may not "
                          "be saved.");
    if (text == leaving && (!m_question || m_isEnding || IsLeaving() || m_talk.IsSilenced()))
        return true;
    return AskAndWait({PageAsk::Kind::Question, WebAccess::AsBuilt(origin).host(), text}).isYes;
}

bool PanePage::javaScriptPrompt(const QUrl& origin, const QString& text, const QString& preset,
                                QString* answer) {
    const PageReply reply =
        AskAndWait({PageAsk::Kind::Input, WebAccess::AsBuilt(origin).host(), text, preset});
    if (reply.isYes)
        *answer = reply.text;
    return reply.isYes;
}

// What the scripts of outside pages complain about is of no use to anybody here.
void PanePage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& text, int,
                                        const QString&) {
    if (const QUrl mail = m_mailClicks.Read(text); !mail.isEmpty())
        m_mail.Note(mail);
}

} // namespace tallowmere
