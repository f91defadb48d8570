#include "support/TlsProxy.h"

#include <QFile>
#include <QNetworkProxy>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <QStandardPaths>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

// No certificate counts for all names of one ending.
QString Names() {
    QStringList names;
    for (const auto name : {"good"_L1, "late"_L1, "back"_L1, "today"_L1})
        names << u"DNS:"_s + name + u".example"_s;
    return u"subjectAltName="_s + names.join(u',');
}

} // namespace

TlsProxy::TlsProxy() {
    const QString key = m_folder.filePath(u"key.pem"_s);
    const QString certificate = m_folder.filePath(u"certificate.pem"_s);
    const QString openssl = QStandardPaths::findExecutable(u"openssl"_s);
    if (openssl.isEmpty() ||
        QProcess::execute(openssl,
                          {u"req"_s, u"-x509"_s, u"-newkey"_s, u"rsa:2048"_s, u"-nodes"_s,
                           u"-subj"_s, u"/CN=stand-in"_s, u"-addext"_s, Names(), u"-days"_s, u"2"_s,
                           u"-keyout"_s, key, u"-out"_s, certificate}) != 0)
        return;
    QFile keyFile(key);
    m_hasCertificate = keyFile.open(QIODevice::ReadOnly);
    m_tls.setLocalCertificate(QSslCertificate::fromPath(certificate).value(0));
    m_tls.setPrivateKey(QSslKey(&keyFile, QSsl::Rsa));
    QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
    trusting.addCaCertificate(m_tls.localCertificate());
    QSslConfiguration::setDefaultConfiguration(trusting);
}

void TlsProxy::ServeTunnel(const QString& host, const CannedPage& page) {
    m_served.insert(host + u":443"_s);
    Serve(host + u":443"_s, page);
}

void TlsProxy::Forget() {
    Clear();
    m_tunnels.clear();
    m_secure.clear();
}

void TlsProxy::incomingConnection(qintptr descriptor) {
    auto* socket = new QSslSocket(this);
    socket->setProxy(QNetworkProxy::NoProxy);
    socket->setSocketDescriptor(descriptor);
    connect(socket, &QSslSocket::readyRead, this, [this, socket] { Begin(socket); });
}

void TlsProxy::Begin(QSslSocket* socket) {
    const QByteArray head = socket->peek(socket->bytesAvailable());
    if (!head.contains("\r\n\r\n"))
        return;
    socket->disconnect(this);
    if (head.startsWith("CONNECT ")) {
        const QString site = QString::fromLatin1(head.split(' ').value(1));
        m_tunnels << site;
        if (m_secure.contains(site.section(u':', 0, 0))) {
            socket->readAll();
            socket->write("HTTP/1.1 200 Connected\r\n\r\n");
            socket->setSslConfiguration(m_tls);
            socket->startServerEncryption();
            Attend(socket);
            return;
        }
        if (!m_served.contains(site)) {
            socket->readAll();
            socket->write("HTTP/1.1 502 No Tunnel\r\nContent-Length: 0\r\n\r\n");
            socket->disconnectFromHost();
            return;
        }
    }
    Attend(socket);
    Q_EMIT socket->readyRead();
}

} // namespace tallowmere
