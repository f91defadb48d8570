#pragma once

#include "app/base/ProxySetting.h"
#include "core/quotes/quote.h"

#include <QDeadlineTimer>
#include <QNetworkAccessManager>
#include <QObject>

#include <functional>
#include <string>

class QNetworkReply;
class QUrl;

namespace tallowmere {

/// Asks sources over the network: each question goes out once, leads over a few redirects at most,
/// and ends within its time and within the most bytes that an answer may have.
class SourceCalls : public QObject {
    Q_OBJECT
public:
    struct Call {
        std::string address;
        std::string userAgent;
        int timeout = 10; ///< seconds, redirects and all
    };
    /// Takes what came; its status is 0 when there was no answer.
    using Taker = std::function<void(const SourceResponse& response)>;

    explicit SourceCalls(QObject* parent = nullptr) : QObject(parent) {}
    ~SourceCalls() override;

    /// The proxy of all questions from now on.
    void UseProxy(const ProxySetting& setting) { m_proxy = setting; }

    /// Sends a question; `take` is called once, later, unless this object goes before.
    void Ask(const Call& call, Taker take);

private:
    /// A question that is under way, over as many redirects as it takes.
    struct Question {
        std::string userAgent;
        Taker take;
        QDeadlineTimer deadline;
        int redirects = 0;
    };

    void Send(const Question& question, const QUrl& url);
    void Take(QNetworkReply& reply, Question question);

    ProxySetting m_proxy;
    QNetworkAccessManager m_network;
};

} // namespace tallowmere
