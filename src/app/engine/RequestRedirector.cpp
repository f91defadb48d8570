#include "app/engine/RequestRedirector.h"

#include "app/base/PortalAddress.h"
#include "app/base/QtText.h"
#include "app/base/WebAccess.h"
#include "core/pages/site_data.h"

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

/// Whether a page is asked for, or a frame of a page of its own site; others keep nothing.
bool RequestRedirector::MayKeepData(const QWebEngineUrlRequestInfo& info) {
    return info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame ||
           (info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeSubFrame &&
            MayBeOneSite(FromQt(info.requestUrl().host()), FromQt(info.firstPartyUrl().host())));
}

void RequestRedirector::AskSecurely(QWebEngineUrlRequestInfo& info, const QUrl& secure) {
    m_access.Https().Ask(secure);
    // It may have been one time too many.
    if (!m_access.Https().IsPlain(secure.host()))
        info.redirect(secure);
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
        // The tables do not lead it; that a site is asked by https holds for it all the same.
        const auto secure = m_access.Secure(url);
        m_passing = secure.value_or(QUrl());
        if (secure)
            AskSecurely(info, *secure);
        return;
    }
    const auto target = m_access.ResolveByTables(url, AddressUse::Page);
    // What the portal knows and whom it asks for more is no matter of the web's pages.
    if (target.value_or(url).scheme() == PortalAddress::Scheme() && IsPartOfForeignPage(info))
        info.block(true);
    else if (const auto secure = m_access.Secure(target.value_or(url)))
        AskSecurely(info, *secure);
    else if (target)
        info.redirect(*target);
    else if (MayKeepData(info))
        Q_EMIT PageAsked(url);
}

} // namespace tallowmere
