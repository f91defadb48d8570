#pragma once

#include <QWebEngineUrlRequestInterceptor>

namespace tallowmere {

class WebAccess;

/// Sends every request of the panes to where its address leads. It runs on the window's thread
/// for every request of every page, so it does nothing that takes time.
class RequestRedirector : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT
public:
    RequestRedirector(const WebAccess& access, QObject* parent);

    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

private:
    const WebAccess& m_access;
};

} // namespace tallowmere
