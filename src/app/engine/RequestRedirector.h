#pragma once

#include <QUrl>
#include <QWebEngineUrlRequestInterceptor>

namespace tallowmere {

class WebAccess;

/// Sends every request of the panes to where its address leads. It runs on the window's thread
/// for every request of every page, so it does nothing that takes time.
class RequestRedirector : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT
public:
    RequestRedirector(const WebAccess& access, QObject* parent);

    /// The next page that a pane asks for at the host of `url` is loaded as its address stands.
    void LetPass(const QUrl& url) { m_passing = url; }

    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

Q_SIGNALS:
    /// A page or a frame is asked for, where it lies today.
    void PageAsked(const QUrl& url);

private:
    bool Passes(const QWebEngineUrlRequestInfo& info) const;
    static bool MayKeepData(const QWebEngineUrlRequestInfo& info);
    void AskSecurely(QWebEngineUrlRequestInfo& info, const QUrl& secure);
    static bool IsPartOfForeignPage(const QWebEngineUrlRequestInfo& info);

    const WebAccess& m_access;
    QUrl m_passing;
};

} // namespace tallowmere
