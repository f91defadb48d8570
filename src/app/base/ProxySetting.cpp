#include "app/base/ProxySetting.h"

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QUrl>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// Leaves the choice to what the user set for the whole system.
class SystemProxies : public QNetworkProxyFactory {
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery& query) override {
        return systemProxyForQuery(query);
    }
};

QNetworkProxy NamedProxy(const QString& text) {
    const QUrl url(text.contains(u"://"_s) ? text.trimmed() : u"http://"_s + text.trimmed());
    const bool isSocks = url.scheme().startsWith(u"socks"_s);
    return QNetworkProxy(isSocks ? QNetworkProxy::Socks5Proxy : QNetworkProxy::HttpProxy,
                         url.host(), static_cast<quint16>(url.port(isSocks ? 1080 : 80)),
                         url.userName(), url.password());
}

} // namespace

void ProxySetting::ApplyTo(QNetworkAccessManager& network) const {
    if (accessType == kNamedProxy && !proxy.trimmed().isEmpty())
        network.setProxy(NamedProxy(proxy));
    else
        network.setProxyFactory(new SystemProxies);
}

} // namespace tallowmere
