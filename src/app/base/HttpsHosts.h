#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QUrl>

#include <chrono>

class QNetworkAccessManager;
class QNetworkReply;

namespace tallowmere {

/// What is known in this run about the sites that are asked by https instead of http: who does not
/// answer so is asked by http after all. An answer in time is a connection that is secured; how
/// long the page then takes does not matter.
class HttpsHosts : public QObject {
    Q_OBJECT
public:
    /// What users have it for.
    static constexpr auto kPatience = std::chrono::seconds(4);

    /// Sites have `patience` to secure a connection.
    explicit HttpsHosts(std::chrono::milliseconds patience = kPatience);
    ~HttpsHosts() override;

    std::chrono::milliseconds Patience() const { return m_patience; }

    bool IsPlain(const QString& host) const { return m_plain.contains(host); }
    bool IsSecure(const QString& host) const { return m_secure.contains(host); }

    /// A page asks for `secure` in place of an http address. A site that is not known yet is tried
    /// beside it, because the engine does not say when a part of a page fails; one that keeps
    /// sending the engine back to http is given up.
    void Ask(const QUrl& secure);

    /// The host answered by https.
    void NoteSecure(const QString& host) { m_secure.insert(host); }
    /// The host does not; it is asked by http from now on.
    void NotePlain(const QString& host);
    /// A page of the host failed, with the engine's name for why: the same, if that may mean that
    /// it does not speak https, and it was asked so although its address says http.
    void NoteFailure(const QString& host, const QString& errorName);

Q_SIGNALS:
    /// What was asked of this host by https may be asked again.
    void FoundPlain(const QString& host);

private:
    void Try(const QString& host);

    std::chrono::milliseconds m_patience;
    QNetworkAccessManager* m_network;
    QSet<QString> m_asked, m_plain, m_secure;
    struct Visits {
        int count = 0;
        std::chrono::steady_clock::time_point last;
    };
    QHash<QUrl, Visits> m_visits; ///< of late
};

/// Whether a transfer failed in a way that may mean that its server does not speak https.
bool MayLackHttps(const QNetworkReply& reply);

} // namespace tallowmere
