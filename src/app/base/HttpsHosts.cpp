#include "app/base/HttpsHosts.h"

#include "app/base/ProxySetting.h"
#include "core/links/https_first.h"

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QTimer>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

// A circle of redirects comes back this often, each time within this time; nobody clicks so fast.
constexpr int kCircle = 5;
constexpr auto kCircleTime = std::chrono::seconds(2);
constexpr qsizetype kMostVisits = 200;

} // namespace

HttpsHosts::HttpsHosts(std::chrono::milliseconds patience)
    : m_patience(patience), m_network(new QNetworkAccessManager(this)) {}

HttpsHosts::~HttpsHosts() {
    for (QNetworkReply* reply : m_network->findChildren<QNetworkReply*>())
        reply->disconnect(this);
}

void HttpsHosts::Ask(const QUrl& secure) {
    const QString host = secure.host();
    const bool isNew = !m_asked.contains(host);
    m_asked.insert(host);
    const auto now = std::chrono::steady_clock::now();
    if (m_visits.size() > kMostVisits)
        m_visits.clear();
    Visits& visits = m_visits[secure];
    if (now - visits.last > kCircleTime)
        visits.count = 0;
    visits.last = now;
    // Nobody need ask again: this very request goes on by http.
    if (++visits.count >= kCircle)
        m_plain.insert(host);
    else if (isNew && !IsSecure(host))
        Try(host);
}

void HttpsHosts::NoteFailure(const QString& host, const QString& errorName) {
    if (m_asked.contains(host) && MayLackHttps(errorName.toStdString()))
        NotePlain(host);
}

void HttpsHosts::NotePlain(const QString& host) {
    if (IsPlain(host))
        return;
    m_plain.insert(host);
    m_secure.remove(host);
    Q_EMIT FoundPlain(host);
}

// Nothing but the handshake: the request itself is taken back before it goes out.
void HttpsHosts::Try(const QString& host) {
    // The panes use the proxy of the application, or that of the system.
    if (QNetworkProxy::applicationProxy().type() == QNetworkProxy::NoProxy)
        ProxySetting().ApplyTo(*m_network);
    else
        m_network->setProxy(QNetworkProxy::applicationProxy());
    QUrl url;
    url.setScheme(u"https"_s);
    url.setHost(host);
    QNetworkReply* reply = m_network->head(QNetworkRequest(url));
    connect(reply, &QNetworkReply::encrypted, this, [this, reply, host] {
        NoteSecure(host);
        reply->disconnect(this);
        QMetaObject::invokeMethod(reply, &QNetworkReply::abort, Qt::QueuedConnection);
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply, host] {
        const bool isLate = reply->error() == QNetworkReply::OperationCanceledError;
        if (!IsSecure(host) && (isLate || MayLackHttps(*reply)))
            NotePlain(host);
    });
    connect(reply, &QNetworkReply::finished, reply, &QObject::deleteLater);
    QTimer::singleShot(m_patience, reply, &QNetworkReply::abort);
}

bool MayLackHttps(const QNetworkReply& reply) {
    switch (reply.error()) {
    case QNetworkReply::NoError:
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::OperationCanceledError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyAuthenticationRequiredError:
        return false;
    default:
        return true;
    }
}

} // namespace tallowmere
