#include "app/quotes/LiveQuotes.h"

#include "app/base/SendOnce.h"
#include "core/quotes/source_text.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <QNetworkReply>
#include <QNetworkRequest>

#include <algorithm>
#include <cstdio>

namespace tallowmere {

namespace {

using namespace std::chrono_literals;

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

LiveQuotes::LiveQuotes(const SiteTable& sites, PortalTexts texts, SourceTable sources,
                       const Clock& clock, std::filesystem::path store, QObject* parent,
                       std::chrono::milliseconds patience)
    : QObject(parent), m_portal(sites, std::move(texts)), m_quotes(std::move(sources)),
      m_clock(clock), m_store(std::move(store)), m_patience(patience) {
    m_tick.setInterval(1s);
    connect(&m_tick, &QTimer::timeout, this, &LiveQuotes::Proceed);
    try {
        m_quotes.Restore(ReadQuotes(ReadExistingFile(m_store), Now()));
    } catch (const RuntimeError& unreadable) {
        std::fprintf(stderr, "tallowmere: %s\n", unreadable.what());
    }
}

LiveQuotes::~LiveQuotes() {
    for (QNetworkReply* reply : m_network.findChildren<QNetworkReply*>())
        reply->disconnect(this);
}

void LiveQuotes::Answer(const std::string& host, const std::string& pathAndQuery, Asker asker,
                        WebAccess::PortalReply reply) {
    if (asker == Asker::WebPage) {
        reply(m_portal.Answer(host, pathAndQuery, m_quotes, Now(), false));
        return;
    }
    const Urgency urgency = LivePortal::LoadsItself(pathAndQuery) ? Urgency::Routine
                            : asker == Asker::Pane                ? Urgency::Asked
                                                                  : Urgency::Regular;
    Page page{host, pathAndQuery, std::move(reply), m_portal.Needs(host, pathAndQuery),
              QDeadlineTimer(m_patience)};
    for (WantedPrices& wanted : page.needs) {
        m_quotes.Want(wanted.span, wanted.symbols, Now(), urgency);
        std::reverse(wanted.symbols.begin(), wanted.symbols.end()); // the first are fetched first
    }
    m_waiting.push_back(std::move(page));
    Proceed();
}

void LiveQuotes::WantListed(const ListInView& list) {
    m_isListSeen = true;
    const ListWish wish = m_listPace.Next(m_quotes, list, Now());
    m_quotes.Want(PriceSpan::Quote, wish.quotes, Now(), Urgency::Listed);
    m_quotes.Want(PriceSpan::Day, wish.days, Now(), Urgency::Listed);
    Proceed();
}

void LiveQuotes::LeaveList() {
    m_isListSeen = false;
    Proceed();
}

void LiveQuotes::Save() const {
    const std::vector<KeptQuote> quotes = m_quotes.KeptQuotes();
    if (m_store.empty() || quotes.empty())
        return;
    try {
        WriteWholeFile(m_store, WriteQuotes(quotes));
    } catch (const RuntimeError& unwritten) {
        std::fprintf(stderr, "tallowmere: %s\n", unwritten.what());
    }
}

void LiveQuotes::Proceed() {
    // What was under way when the list went out of sight is not passed on to another source.
    if (!m_isListSeen)
        m_quotes.WithdrawListed();
    while (const auto request = m_quotes.Next(Now()))
        Send({*request, QDeadlineTimer(std::chrono::seconds(request->timeout))},
             QUrl::fromEncoded(QByteArray::fromStdString(request->address)));
    if (!m_quotes.IsBusy())
        m_tick.stop();
    else if (!m_tick.isActive())
        m_tick.start();
    AnswerWholePages();
}

void LiveQuotes::Send(const Question& question, const QUrl& url) {
    m_proxy.ApplyTo(m_network);
    QNetworkRequest request(url);
    // Where a redirect leads to is a request of its own, which must not be repeated either.
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setRawHeader("User-Agent", QByteArray::fromStdString(question.request.userAgent));
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

void LiveQuotes::Take(QNetworkReply& reply, Question question) {
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
    m_quotes.Answer(question.request.id, response, Now());
    Proceed();
    Q_EMIT Learned(question.request.symbols);
}

void LiveQuotes::AnswerWholePages() {
    // A reply may lead to further questions.
    std::vector<Page> whole;
    const auto keep = [&](Page& page) {
        if (!IsWhole(page) && !page.patience.hasExpired())
            return false;
        whole.push_back(std::move(page));
        return true;
    };
    std::erase_if(m_waiting, keep);
    for (const Page& page : whole)
        page.reply(m_portal.Answer(page.host, page.pathAndQuery, m_quotes, Now()));
}

bool LiveQuotes::IsWhole(Page& page) const {
    for (WantedPrices& wanted : page.needs)
        for (; !wanted.symbols.empty(); wanted.symbols.pop_back())
            if (m_quotes.IsPending(wanted.span, wanted.symbols.back()))
                return false;
    return true;
}

} // namespace tallowmere
