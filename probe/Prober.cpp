#include "probe/Prober.h"

#include "app/base/SendOnce.h"

#include <QNetworkReply>
#include <QTimer>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHostsAtOnce = 6;
constexpr int kRedirectLimit = 10;
constexpr qint64 kMostOfPage = 256 * 1024;
constexpr qint64 kMostOfSource = 8 * 1024 * 1024;

} // namespace

Prober::Prober(std::chrono::milliseconds pause, QObject* parent)
    : QObject(parent), m_pause(pause) {}

void Prober::Start(const std::vector<Probe>& probes) {
    for (const Probe& probe : probes) {
        const QString host = QUrl(QString::fromStdString(probe.address)).authority();
        if (!m_waiting.contains(host))
            m_hosts.enqueue(host);
        m_waiting[host].enqueue(probe);
    }
    QTimer::singleShot(0, this, &Prober::AskHosts);
}

void Prober::AskHosts() {
    while (m_open < kHostsAtOnce && !m_hosts.isEmpty()) {
        ++m_open;
        AskNext(m_hosts.dequeue());
    }
    if (m_open == 0)
        Q_EMIT Finished();
}

void Prober::AskNext(const QString& host) {
    if (m_waiting[host].isEmpty()) {
        --m_open;
        AskHosts();
        return;
    }
    const Probe probe = m_waiting[host].dequeue();
    QNetworkRequest request(QUrl(QString::fromStdString(probe.address)));
    request.setMaximumRedirectsAllowed(kRedirectLimit);
    request.setRawHeader("User-Agent", QByteArray::fromStdString(probe.userAgent));
    request.setRawHeader("Accept", "*/*");
    // A source counts its questions, and is asked here as the program asks it.
    QNetworkReply* reply = probe.source ? SendOnce(m_network, request) : m_network.get(request);
    const auto take = [this, reply, probe, host](bool isTooLate) {
        Take(*reply, probe, isTooLate);
        QTimer::singleShot(m_pause, this, [this, host] { AskNext(host); });
    };
    const qint64 most = probe.source ? kMostOfSource : kMostOfPage;
    connect(reply, &QNetworkReply::finished, this, [take] { take(false); });
    connect(reply, &QNetworkReply::readyRead, this, [reply, take, most] {
        if (reply->bytesAvailable() >= most)
            take(false);
    });
    QTimer::singleShot(std::chrono::seconds(probe.timeout), reply, [take] { take(true); });
}

void Prober::Take(QNetworkReply& reply, const Probe& probe, bool isTooLate) {
    reply.disconnect(this);
    ProbeAnswer answer;
    answer.finalAddress = reply.url().toEncoded().toStdString();
    answer.error = isTooLate ? "not within " + std::to_string(probe.timeout) + " seconds"
                             : reply.errorString().toStdString();
    if (!isTooLate)
        answer.response.status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    answer.response.contentType =
        reply.header(QNetworkRequest::ContentTypeHeader).toString().toStdString();
    answer.response.body = reply.readAll().toStdString();
    reply.abort();
    reply.deleteLater();
    Q_EMIT Answered(probe, answer);
}

} // namespace tallowmere
