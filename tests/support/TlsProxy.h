#pragma once

#include "support/LoopbackServer.h"

#include <QSet>
#include <QSslConfiguration>
#include <QTemporaryDir>

class QSslSocket;

namespace tallowmere {

/// A proxy on the loopback interface that stands in for the whole web, so that sites with names of
/// the web can be asked on their usual ports. It serves "http://<host>/<path>" for what is asked by
/// http, and "/<path>" for what is asked by https of one of the sites that speak it; to the others
/// a tunnel is refused, or as `ServeTunnel` says.
class TlsProxy : public LoopbackServer {
    Q_OBJECT
public:
    /// Makes a certificate for good, late, back and today.example, which transfers trust from then
    /// on.
    TlsProxy();
    /// False when the program that makes certificates is not installed.
    bool HasCertificate() const { return m_hasCertificate; }

    /// From now on this site speaks https.
    void SpeakHttps(const QString& host) { m_secure.insert(host); }
    /// Answers whoever wants to ask `host` by https with `page`.
    void ServeTunnel(const QString& host, const CannedPage& page);
    /// Every site that was asked for by https, "<host>:443", in order.
    const QStringList& Tunnels() const { return m_tunnels; }
    /// Forgets what was asked, and who speaks https.
    void Forget();

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    void Begin(QSslSocket* socket);

    QTemporaryDir m_folder;
    QSslConfiguration m_tls;
    bool m_hasCertificate = false;
    QSet<QString> m_secure, m_served;
    QStringList m_tunnels;
};

} // namespace tallowmere
