#include "shell/TransferControl.h"

#include "webdata/WebAccess.h"

#include <QEventLoop>

namespace tallowmere {

TransferControl::TransferControl(const WebAccess& access) : m_access(access) {}

QByteArray TransferControl::OpenURL(const QString& address) {
    const QUrl url = UrlFromAddress(address);
    if (const auto portalUrl = m_access.Resolve(url)) {
        const auto answer = m_access.Answer(*portalUrl);
        return answer ? QByteArray::fromStdString(answer->body) : QByteArray();
    }
    QEventLoop loop;
    m_reply = m_network.get(QNetworkRequest(url));
    connect(m_reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    connect(m_reply, &QObject::destroyed, &loop, &QEventLoop::quit);
    loop.exec();
    if (!m_reply)
        return {};
    const QByteArray text = m_reply->readAll();
    m_reply->deleteLater();
    return text;
}

QByteArray TransferControl::GetChunk(int) {
    return {};
}

void TransferControl::Cancel() {
    if (m_reply)
        m_reply->abort();
}

} // namespace tallowmere
