#pragma once

#include <QWebEnginePage>

class QAuthenticator;
class QWebEngineNewWindowRequest;

namespace tallowmere {

class EngineProfile;
class Prompts;

/// The engine's page of a pane: what it starts itself is offered to the pane first, and what it
/// wants beyond showing itself is asked of the user or refused. It belongs to the profile.
class PanePage : public QWebEnginePage {
    Q_OBJECT
public:
    PanePage(EngineProfile& profile, Prompts& prompts);

    /// Whether a load has been accepted and its page has not arrived yet.
    bool IsUnderWay() const { return m_isUnderWay; }

Q_SIGNALS:
    /// The page itself is about to go elsewhere: a link, a form, a script.
    void Starting(const QUrl& url, bool* cancel);
    /// The user opened a link into a window of its own.
    void WindowWanted(const QUrl& url);
    /// A file was dropped on the page; no pane shows files.
    void FileRefused(const QUrl& url);

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    void javaScriptAlert(const QUrl& origin, const QString& text) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& text) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& text, const QString& preset,
                          QString* answer) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& text,
                                  int line, const QString& source) override;

private:
    void OpenWindow(QWebEngineNewWindowRequest& request);
    void AskForSignIn(const QString& server, QAuthenticator& authenticator);

    Prompts& m_prompts;
    bool m_isUnderWay = false;
};

} // namespace tallowmere
