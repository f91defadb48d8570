#include "app/quotes/SourceCalls.h"

#include "app/base/SendOnce.h"
#include "app/base/WebAccess.h"
#include "core/quotes/source_text.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

namespace tallowmere {

namespace {

constexpr int kRedirectLimit = 5;

/// Whether a server answered, with whatever status, and the answer arrived as a whole.
bool HasAnswered(const QNetworkReply& reply) {
    const auto error = reply.error();
    const bool isAboutContent =
        error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError;
    const bool isOfServer =
        error >= QNetworkReply::InternalServerError && error <= QNetworkReply::UnknownServerError;
    return error == QNetworkReply::NoError || isAboutContent || isOfServer;
}

/// Where an answer leads on to; never from an encrypted address to one that is not.
std::optional<QUrl> RedirectOf(const QNetworkReply& reply) {
    const QVariant target = reply.attribute(QNetworkRequest::RedirectionTargetAttribute);
    if (reply.error() != QNetworkReply::NoError || !target.isValid())
        return {};
    const QUrl url = reply.url().resolved(target.toUrl());
    const bool staysSafe = reply.url().scheme() != u"https" || url.scheme() == u"https";
    return IsWebUrl(url) && staysSafe ? std::optional(url) : std::nullopt;
}

} // namespace

SourceCalls::~SourceCalls() {
    for (QNetworkReply* reply : m_network.findChildren<QNetworkReply*>())
        reply->disconnect(this);
}

void SourceCalls::Ask(const Call& call, Taker take) {
    Send({call.userAgent, std::move(take), QDeadlineTimer(std::chrono::seconds(call.timeout))},
         QUrl::fromEncoded(QByteArray::fromStdString(call.address)));
}

void SourceCalls::Send(const Question& question, const QUrl& url) {
    m_proxy.ApplyTo(m_network);
    QNetworkRequest request(url);
    // Where a redirect leads to is a request of its own, which must not be repeated either.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setRawHeader("User-Agent", QByteArray::fromStdString(question.userAgent));
    request.setRawHeader("Accept", "*/*");
    QNetworkReply* reply = SendOnce(m_network, request);
    // A server that sends a byte now and then is as good as silent.
    QTimer::singleShot(std::chrono::milliseconds(question.deadline.remainingTime()), reply,
                       &QNetworkReply::abort);
    const auto take = [this, reply, question] { Take(*reply, question); };
    connect(reply, &QNetworkReply::finished, this, take);
    connect(reply, &QNetworkReply::readyRead, this, [reply, take] {
        if (reply->bytesAvailable() > static_cast<qint64>(kMaximumAnswer))
            take();
    });
}

void SourceCalls::Take(QNetworkReply& reply, Question question) {
    reply.disconnect(this);
    SourceResponse response;
    const auto next = RedirectOf(reply);
    if (HasAnswered(reply)) {
        response.status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        response.contentType =
            reply.header(QNetworkRequest::ContentTypeHeader).toString().toStdString();
        response.body = reply.readAll().toStdString();
    }
    response.retryAfter = reply.rawHeader("Retry-After").toStdString();
    reply.abort();
    reply.deleteLater();
    if (next && ++question.redirects <= kRedirectLimit) {
        Send(question, *next);
        return;
    }
    question.take(response);
}

} // namespace tallowmere
