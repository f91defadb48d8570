#include "app/engine/PanePage.h"

#include "app/base/PortalAddress.h"
#include "app/base/Prompts.h"
#include "app/base/WebAccess.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/PagePermissions.h"

#include <QAuthenticator>
#include <QWebEngineCertificateError>
#include <QWebEngineNewWindowRequest>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

bool IsShown(const QUrl& url) {
    return IsWebUrl(url) || url.scheme() == PortalAddress::Scheme() || url.scheme() == u"about";
}

} // namespace

PanePage::PanePage(EngineProfile& profile, Prompts& prompts)
    : QWebEnginePage(&profile.Engine(), &profile), m_prompts(prompts) {
    connect(this, &QWebEnginePage::urlChanged, this, [this] { m_isUnderWay = false; });
    connect(this, &QWebEnginePage::loadFinished, this, [this] { m_isUnderWay = false; });
    connect(this, &QWebEnginePage::newWindowRequested, this, &PanePage::OpenWindow);
    new PagePermissions(*this, prompts);
    connect(this, &QWebEnginePage::certificateError, this,
            [](QWebEngineCertificateError error) { error.rejectCertificate(); });
    connect(this, &QWebEnginePage::authenticationRequired, this,
            [this](const QUrl& url, QAuthenticator* authenticator) {
                AskForSignIn(WebAccess::AsBuilt(url).host(), *authenticator);
            });
    connect(this, &QWebEnginePage::proxyAuthenticationRequired, this,
            [this](const QUrl&, QAuthenticator* authenticator, const QString& proxy) {
                AskForSignIn(proxy, *authenticator);
            });
}

bool PanePage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) {
    // Sub-frames may hold what the engine itself makes (a blank frame, a frame's srcdoc).
    if (!isMainFrame)
        return url.scheme() != u"file";
    // The desktop writes the mail when the user clicks such a link; no page is left for it.
    if (url.scheme() == u"mailto")
        return type == NavigationTypeLinkClicked;
    if (!IsShown(url)) {
        if (url.scheme() == u"file")
            Q_EMIT FileRefused(url);
        return false;
    }
    const bool isServersRedirect = type == NavigationTypeRedirect && m_isUnderWay;
    const bool isPagesOwn = type == NavigationTypeLinkClicked ||
                            type == NavigationTypeFormSubmitted || type == NavigationTypeOther ||
                            (type == NavigationTypeRedirect && !isServersRedirect);
    bool cancel = false;
    if (isPagesOwn)
        Q_EMIT Starting(url, &cancel);
    if (!cancel)
        m_isUnderWay = true;
    return !cancel;
}

void PanePage::OpenWindow(QWebEngineNewWindowRequest& request) {
    // A window that nobody asked for is dropped.
    if (request.isUserInitiated())
        Q_EMIT WindowWanted(request.requestedUrl());
}

void PanePage::AskForSignIn(const QString& server, QAuthenticator& authenticator) {
    const auto signIn = m_prompts.AskSignIn(
        tr("%1 asks for a user name and a password: %2").arg(server, authenticator.realm()),
        MessageTitle());
    // To the engine, an authenticator without anything in it says that the user does not sign in.
    authenticator = {};
    if (signIn) {
        authenticator.setUser(signIn->user);
        authenticator.setPassword(signIn->password);
    }
}

void PanePage::javaScriptAlert(const QUrl& origin, const QString& text) {
    m_prompts.Message(text, WebAccess::AsBuilt(origin).host());
}

bool PanePage::javaScriptConfirm(const QUrl& origin, const QString& text) {
    return m_prompts.Ask(text, WebAccess::AsBuilt(origin).host());
}

bool PanePage::javaScriptPrompt(const QUrl& origin, const QString& text, const QString& preset,
                                QString* answer) {
    const auto input = m_prompts.Input(text, WebAccess::AsBuilt(origin).host(), preset);
    if (input)
        *answer = *input;
    return input.has_value();
}

// What the scripts of outside pages complain about is of no use to anybody here.
void PanePage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                        const QString&) {}

} // namespace tallowmere
