#pragma once

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QObject>
#include <QPointer>

namespace tallowmere {

class WebAccess;

/// An internet transfer control: fetches a page's text while the window stays responsive.
class TransferControl : public QObject {
    Q_OBJECT
public:
    explicit TransferControl(const WebAccess& access);

    /// The text of a page; what arrived of it when the transfer fails.
    QByteArray OpenURL(const QString& address);
    /// What arrived of the document since; empty when there is no more.
    QByteArray GetChunk(int size);
    void SetProxy(const QString& server) { m_proxy = server; }
    /// 2 uses the named proxy server, anything else the system's way to the network.
    void SetAccessType(int type) { m_accessType = type; }
    void Cancel();

private:
    const WebAccess& m_access;
    QNetworkAccessManager m_network;
    QPointer<QNetworkReply> m_reply;
    QString m_proxy;
    int m_accessType = 0;
};

} // namespace tallowmere
