#pragma once

#include "app/base/ProxySetting.h"
#include "core/portal/portal_answer.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <optional>

class QNetworkReply;

namespace tallowmere {

class WebAccess;

/// An internet transfer control (`TMNet`, `SpooNet`, the elements of `Inet`): fetches one document
/// at a time, as bytes. Fetching keeps the window alive. Only http and https are fetched, never
/// more than 64 MB, and a transfer that makes no progress for too long has failed.
class TransferControl : public QObject {
    Q_OBJECT
public:
    /// The value of the state that is used here.
    static constexpr int kResponseReceived = 8;
    static constexpr qint64 kSizeLimit = 64 * 1024 * 1024;

    explicit TransferControl(const WebAccess& access, QObject* parent = nullptr,
                             std::chrono::milliseconds stallLimit = std::chrono::seconds(60));
    ~TransferControl() override;

    /// The proxy for the access type "named proxy": "host:port", with "http://" or "socks5://"
    /// before it or not.
    void SetProxy(const QString& proxy) { m_proxy.proxy = proxy; }
    /// 2 for the named proxy, anything else for the system's settings.
    void SetAccessType(int type) { m_proxy.accessType = type; }
    /// Both at once.
    void UseProxy(const ProxySetting& setting) { m_proxy = setting; }

    /// Fetches a document and gives what arrived of it by its end; nothing when it fails or is
    /// cancelled. Throws RuntimeError while another document is under way.
    QByteArray OpenURL(const QString& address);

    /// Up to `size` further bytes of the document that were not given yet, without waiting.
    QByteArray GetChunk(qsizetype size);

    /// Begins to fetch a document and returns. Throws as OpenURL does.
    void Open(const QString& address);
    /// Breaks off what is under way.
    void Cancel();

    /// Whether a document is under way.
    bool IsBusy() const { return m_isBusy; }
    /// Whether the last document could not be had at all: no server answered, or not securely, or
    /// it was cancelled.
    bool HasFailed() const { return m_hasFailed; }
    /// Whether a server answered the last document with a status that means "not here" or "not
    /// now"; what came then is a page about that.
    bool WasRefused() const { return m_wasRefused; }

Q_SIGNALS:
    /// `state` is 8 when the server's response was received.
    void StateChanged(int state);
    void DataArrived();
    /// The document ended, whole or not, or failed.
    void Finished();

private:
    void Send(const QUrl& url);
    void AskBySchemes(const QUrl& url);
    void AskPlainly();
    void DropReply();
    void Follow(const QUrl& url);
    void NoteAnswer();
    void OnAnswer(const std::optional<PortalAnswer>& answer);
    void OnData();
    void OnFinished();
    void End(bool hasFailed);

    const WebAccess& m_access;
    std::chrono::milliseconds m_stallLimit;
    QNetworkAccessManager m_network;
    QPointer<QNetworkReply> m_reply;
    QUrl m_plain; ///< the http address that is asked for when https gets no answer
    QUrl m_asked; ///< after every redirect so far; the reply itself names it before or after
    QTimer m_httpsPatience;
    int m_redirects = 0;
    ProxySetting m_proxy;
    QByteArray m_data; ///< what arrived and was not given yet
    qint64 m_received = 0;
    int m_transfer = 0; ///< counts the documents
    bool m_isBusy = false;
    bool m_hasFailed = false;
    bool m_wasRefused = false;
};

} // namespace tallowmere
