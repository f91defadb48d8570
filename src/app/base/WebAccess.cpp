#include "app/base/WebAccess.h"

#include "app/base/PortalAddress.h"
#include "core/links/https_first.h"
#include "core/links/web_address.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

// A host of such a name would be taken for the program's own pages.
QString PortalHost(const QString& host) {
    const bool isOwn = PortalAddress::IsPagesHost(host) || host == PortalAddress::HelpHost();
    return isOwn ? host + u".invalid"_s : host;
}

QUrl PortalUrl(QUrl url) {
    const int usual = url.scheme() == u"https" ? 443 : 80;
    if (url.port(usual) == usual)
        url.setPort(-1);
    url.setScheme(PortalAddress::Scheme());
    url.setHost(PortalHost(url.host()));
    url.setUserInfo({});
    if (url.path().isEmpty())
        url.setPath(u"/"_s);
    return url;
}

} // namespace

void WebAccess::SetPortal(PortalFunction portal) {
    m_portal = [portal = std::move(portal)](const std::string& host, const std::string& path, Asker,
                                            const PortalReply& reply) {
        reply(portal(host, path));
    };
}

std::optional<QUrl> WebAccess::Resolve(const QUrl& url, AddressUse use) const {
    const std::optional<QUrl> led = ResolveByTables(url, use);
    const std::optional<QUrl> secure = Secure(led.value_or(url));
    return secure ? secure : led;
}

std::optional<QUrl> WebAccess::Secure(const QUrl& url) const {
    if (m_mode != WebMode::Live || url.scheme() != u"http" || m_https->IsPlain(url.host()))
        return {};
    const auto secure = HttpsInstead(url.toEncoded().toStdString());
    return secure ? std::optional(QUrl::fromEncoded(QByteArray::fromStdString(*secure)))
                  : std::nullopt;
}

std::optional<QUrl> WebAccess::ResolveByTables(const QUrl& url, AddressUse use) const {
    if (!IsWebUrl(url))
        return {};
    if (m_mode == WebMode::Sample)
        return PortalUrl(url);
    if (m_mode == WebMode::Direct || !m_resolver)
        return {};
    const std::string address = url.toEncoded().toStdString();
    const std::string standIn = m_resolver(address, use);
    if (standIn == address)
        return {};
    if (standIn.starts_with(kPortalTarget))
        return PortalUrl(url);
    return QUrl(QString::fromStdString(standIn));
}

QUrl WebAccess::ResolveOutside(const QUrl& url) const {
    if (m_mode != WebMode::Live)
        return url;
    return ResolveByTables(url, AddressUse::Outside).value_or(url);
}

void WebAccess::Ask(const QUrl& portalUrl, Asker asker, PortalReply reply) const {
    if (!m_portal) {
        reply({});
        return;
    }
    const QByteArray host =
        portalUrl.toEncoded(QUrl::RemoveScheme | QUrl::RemoveUserInfo | QUrl::RemovePath |
                            QUrl::RemoveQuery | QUrl::RemoveFragment);
    const QByteArray path =
        portalUrl.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment);
    m_portal(host.mid(2).toStdString(), path.toStdString(), asker, std::move(reply));
}

QUrl WebAccess::AsBuilt(const QUrl& url) {
    QUrl built = url;
    if (url.scheme() == PortalAddress::Scheme() && !PortalAddress::IsPage(url) &&
        !PortalAddress::IsOwn(url))
        built.setScheme(u"http"_s);
    return built;
}

bool IsWebUrl(const QUrl& url) {
    return url.scheme() == u"http" || url.scheme() == u"https";
}

QUrl UrlFromAddress(const QString& address) {
    return QUrl(QString::fromStdString(WithScheme(address.toStdString())), QUrl::TolerantMode);
}

} // namespace tallowmere
