#include "app/engine/RequestRedirector.h"

#include "app/base/PortalAddress.h"
#include "app/base/WebAccess.h"

namespace tallowmere {

RequestRedirector::RequestRedirector(const WebAccess& access, QObject* parent)
    : QWebEngineUrlRequestInterceptor(parent), m_access(access) {}

// The engine writes an address in its own way; its host and port are what can be compared.
bool RequestRedirector::Passes(const QWebEngineUrlRequestInfo& info) const {
    return info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame &&
           !m_passing.isEmpty() && info.requestUrl().authority() == m_passing.authority();
}

/// Whether an image, a frame or the like belongs to a page that is not ours. One whose page does
/// not say where it comes from, a sandboxed one, is not.
bool RequestRedirector::IsPartOfForeignPage(const QWebEngineUrlRequestInfo& info) {
    return info.resourceType() != QWebEngineUrlRequestInfo::ResourceTypeMainFrame &&
           info.initiator().scheme() != PortalAddress::Scheme();
}

void RequestRedirector::interceptRequest(QWebEngineUrlRequestInfo& info) {
    const QUrl url = info.requestUrl();
    const QString scheme = url.scheme();
    const bool isSocket = scheme == u"ws" || scheme == u"wss";
    // No page shows a file of the user, and sample mode works without any network.
    if (scheme == u"file" || (isSocket && m_access.Mode() == WebMode::Sample)) {
        info.block(true);
        return;
    }
    if (Passes(info)) {
        m_passing.clear();
        return;
    }
    const auto target = m_access.Resolve(url, AddressUse::Page);
    // What the portal knows and whom it asks for more is no matter of the web's pages.
    if (target.value_or(url).scheme() == PortalAddress::Scheme() && IsPartOfForeignPage(info))
        info.block(true);
    else if (target)
        info.redirect(*target);
}

} // namespace tallowmere
