#include "app/engine/RequestRedirector.h"

#include "app/base/WebAccess.h"

namespace tallowmere {

RequestRedirector::RequestRedirector(const WebAccess& access, QObject* parent)
    : QWebEngineUrlRequestInterceptor(parent), m_access(access) {}

// The engine writes an address in its own way; its host and port are what can be compared.
bool RequestRedirector::Passes(const QWebEngineUrlRequestInfo& info) const {
    return info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame &&
           !m_passing.isEmpty() && info.requestUrl().authority() == m_passing.authority();
}

void RequestRedirector::interceptRequest(QWebEngineUrlRequestInfo& info) {
    const QUrl url = info.requestUrl();
    const QString scheme = url.scheme();
    const bool isSocket = scheme == u"ws" || scheme == u"wss";
    // No page shows a file of the user, and sample mode works without any network.
    if (scheme == u"file" || (isSocket && m_access.Mode() == WebMode::Sample))
        info.block(true);
    else if (Passes(info))
        m_passing.clear();
    else if (const auto target = m_access.Resolve(url, AddressUse::Page))
        info.redirect(*target);
}

} // namespace tallowmere
