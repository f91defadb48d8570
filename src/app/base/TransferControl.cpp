#include "app/base/TransferControl.h"

#include "app/base/PortalAddress.h"
#include "app/base/WebAccess.h"
#include "core/text/runtime_error.h"

#include <QEventLoop>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRedirectLimit = 20;
constexpr int kFirstRefusal = 400; // statuses from here on are errors

} // namespace

TransferControl::TransferControl(const WebAccess& access, QObject* parent,
                                 std::chrono::milliseconds stallLimit)
    : QObject(parent), m_access(access), m_stallLimit(stallLimit) {
    m_httpsPatience.setSingleShot(true);
    connect(&m_httpsPatience, &QTimer::timeout, this, &TransferControl::AskPlainly);
}

TransferControl::~TransferControl() {
    if (m_reply)
        m_reply->disconnect(this);
}

void TransferControl::Open(const QString& address) {
    if (m_isBusy)
        throw RuntimeError("The transfer is still busy with another address");
    m_data.clear();
    m_received = 0;
    m_isBusy = true;
    m_hasFailed = false;
    ++m_transfer;
    m_wasRefused = false;

    QUrl url = UrlFromAddress(address);
    if (const auto target = m_access.ResolveByTables(url, AddressUse::Reading))
        url = *target;
    if (url.scheme() == PortalAddress::Scheme()) {
        const auto take = [guard = QPointer(this), transfer = m_transfer](const auto& answer) {
            if (guard && guard->m_isBusy && guard->m_transfer == transfer)
                guard->OnAnswer(answer);
        };
        m_access.Ask(url, Asker::Transfer, take);
        return;
    }
    if (!url.isValid() || !IsWebUrl(url) || url.host().isEmpty()) {
        End(true);
        return;
    }
    m_redirects = 0;
    AskBySchemes(url);
}

// By https first, where http need not be.
void TransferControl::AskBySchemes(const QUrl& url) {
    const auto secure = m_access.Secure(url);
    m_plain = secure ? url : QUrl();
    if (secure && !m_access.Https().IsSecure(secure->host()))
        m_httpsPatience.start(m_access.Https().Patience());
    Send(secure.value_or(url));
}

void TransferControl::Send(const QUrl& url) {
    m_asked = url;
    m_proxy.ApplyTo(m_network);
    QNetworkRequest request(url);
    request.setMaximumRedirectsAllowed(kRedirectLimit);
    request.setTransferTimeout(static_cast<int>(m_stallLimit.count()));
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      u"Mozilla/5.0 Tallowmere/" TALLOWMERE_VERSION ""_s);
    if (m_access.Mode() == WebMode::Live)
        request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                             QNetworkRequest::UserVerifiedRedirectPolicy);
    m_reply = m_network.get(request);
    connect(m_reply, &QNetworkReply::redirected, this, &TransferControl::Follow);
    connect(m_reply, &QNetworkReply::encrypted, this, &TransferControl::NoteAnswer);
    connect(m_reply, &QNetworkReply::metaDataChanged, this,
            [this] { Q_EMIT StateChanged(kResponseReceived); });
    connect(m_reply, &QNetworkReply::readyRead, this, &TransferControl::OnData);
    connect(m_reply, &QNetworkReply::finished, this, &TransferControl::OnFinished);
}

// Where a server sends the program on, too, it asks by https first; from there it never goes back,
// unless https was but a try.
void TransferControl::Follow(const QUrl& url) {
    if (m_access.Mode() != WebMode::Live)
        return;
    const QUrl from = std::exchange(m_asked, url);
    const bool isBack = from.scheme() == u"https" && url.scheme() == u"http";
    const auto secure = m_access.Secure(url);
    if (isBack && !m_plain.isEmpty() && (!secure || *secure == from))
        AskPlainly();
    else if (++m_redirects > kRedirectLimit || (isBack && !secure))
        End(true);
    else if (secure) {
        DropReply();
        AskBySchemes(url);
    } else {
        Q_EMIT m_reply->redirectAllowed();
    }
}

void TransferControl::NoteAnswer() {
    m_httpsPatience.stop();
    if (!m_plain.isEmpty())
        m_access.Https().NoteSecure(m_plain.host());
}

// Whoever does not answer by https is asked by http, as the address says.
void TransferControl::AskPlainly() {
    m_httpsPatience.stop();
    DropReply();
    m_data.clear();
    m_received = 0;
    const QUrl plain = std::exchange(m_plain, QUrl());
    Send(plain);
    m_access.Https().NotePlain(plain.host());
}

void TransferControl::DropReply() {
    if (!m_reply)
        return;
    m_reply->disconnect(this);
    m_reply->abort();
    m_reply->deleteLater();
    m_reply = nullptr;
}

QByteArray TransferControl::OpenURL(const QString& address) {
    Open(address);
    const QPointer<TransferControl> guard(this);
    if (m_isBusy) {
        QEventLoop loop;
        connect(this, &TransferControl::Finished, &loop, &QEventLoop::quit);
        connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
        loop.exec();
    }
    if (!guard)
        return {};
    // The whole program ends: nobody waits for the rest.
    if (m_isBusy)
        Cancel();
    return m_hasFailed ? QByteArray() : std::exchange(m_data, {});
}

QByteArray TransferControl::GetChunk(qsizetype size) {
    if (size >= m_data.size())
        return std::exchange(m_data, {});
    QByteArray chunk = m_data.left(size);
    m_data.remove(0, size);
    return chunk;
}

void TransferControl::Cancel() {
    if (!m_isBusy)
        return;
    m_data.clear();
    End(true);
}

void TransferControl::OnAnswer(const std::optional<PortalAnswer>& answer) {
    if (answer) {
        m_data = QByteArray::fromStdString(answer->body);
        Q_EMIT StateChanged(kResponseReceived);
    }
    End(!answer);
}

void TransferControl::OnData() {
    const QByteArray piece = m_reply->read(kSizeLimit - m_received);
    m_received += piece.size();
    m_data += piece;
    if (m_received >= kSizeLimit) {
        End(false);
        return;
    }
    Q_EMIT DataArrived();
}

void TransferControl::OnFinished() {
    // A server that answered has answered, with whatever status and however short it fell.
    const QVariant status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    m_wasRefused = status.toInt() >= kFirstRefusal;
    const bool hasAnswered = status.isValid() &&
                             m_reply->error() != QNetworkReply::InsecureRedirectError &&
                             m_reply->error() != QNetworkReply::TooManyRedirectsError &&
                             m_reply->error() != QNetworkReply::OperationCanceledError;
    if (!hasAnswered)
        m_data.clear();
    // Who secured the connection and is silent then speaks https; newer Qt gives that a name of its
    // own.
    const bool isSlow = m_reply->error() == QNetworkReply::TimeoutError &&
                        m_access.Https().IsSecure(m_plain.host());
    if (!hasAnswered && !isSlow && !m_plain.isEmpty() && MayLackHttps(*m_reply))
        AskPlainly();
    else
        End(!hasAnswered);
}

void TransferControl::End(bool hasFailed) {
    m_httpsPatience.stop();
    DropReply();
    m_isBusy = false;
    m_hasFailed = hasFailed;
    Q_EMIT Finished();
}

} // namespace tallowmere
