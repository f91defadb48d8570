#include "app/engine/PortalScheme.h"

#include "app/base/PortalAddress.h"
#include "app/base/WebAccess.h"
#include "app/engine/SourcePages.h"
#include "core/pages/page_policy.h"
#include "core/pages/page_scheme.h"
#include "core/portal/generated_pages.h"
#include "core/portal/html_page.h"
#include "core/shell/command_guide.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QPointer>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QUrl>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

void Reply(QWebEngineUrlRequestJob* job, const QByteArray& type, const QByteArray& body) {
    auto* buffer = new QBuffer(job);
    buffer->setData(body);
    job->reply(type, buffer);
}

// The scheme has no headers for its answers, and the text of the pages is fixed: the policy goes in
// on the way to the engine, and so does whether they are light or dark.
QByteArray Governed(std::string_view page, const std::string& policy, PageScheme scheme) {
    return QByteArray::fromStdString(WithPolicy(WithScheme(page, scheme), policy));
}

/// The policy of what the portal makes: its strip has the one script.
const std::string& PolicyOfPortal() {
    static const std::string policy = [] {
        const std::string_view script = StripScript();
        const QByteArrayView text(script.data(), static_cast<qsizetype>(script.size()));
        return PolicyOfMade(QCryptographicHash::hash(text.toByteArray(), QCryptographicHash::Sha256)
                                .toBase64()
                                .toStdString());
    }();
    return policy;
}

// Bytes that are no UTF-8 are shown as Windows-1252.
QByteArray PageType(const QByteArray& body) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString decoded = decoder(body);
    return decoder.hasError() ? "text/html; charset=windows-1252" : "text/html; charset=utf-8";
}

/// The web address that stands behind the host of the pages. The frames of a multi-link hold
/// addresses as they were built, many without a scheme, which the engine takes for pages beside
/// their own.
std::optional<QUrl> AddressBehind(const QUrl& page) {
    const QByteArray address =
        page.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment).mid(1);
    const auto hostEnd = address.indexOf('/');
    if (hostEnd < 0 || !address.left(hostEnd).contains('.'))
        return {};
    const QUrl url = QUrl::fromEncoded("http://" + address);
    return url.isValid() ? std::optional(url) : std::nullopt;
}

} // namespace

PortalScheme::PortalScheme(const WebAccess& access, QString programFolder,
                           const SourcePages& sources, QObject* parent)
    : QWebEngineUrlSchemeHandler(parent), m_access(access),
      m_programFolder(std::move(programFolder)), m_sources(sources) {}

void PortalScheme::Register() {
    QWebEngineUrlScheme scheme(PortalAddress::Scheme().toLatin1());
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::HostAndPort);
    scheme.setDefaultPort(80);
    QWebEngineUrlScheme::registerScheme(scheme);
}

void PortalScheme::requestStarted(QWebEngineUrlRequestJob* job) {
    const QUrl url = job->requestUrl();
    if (PortalAddress::IsPage(url)) {
        AnswerPage(job);
    } else if (PortalAddress::IsSource(url)) {
        AnswerSource(job);
    } else if (url.host() == PortalAddress::HelpHost()) {
        AnswerHelp(job);
    } else {
        // The job ends when its page goes away, which may be before the answer comes.
        const auto take = [job = QPointer(job),
                           scheme = m_access.Scheme()](const std::optional<PortalAnswer>& answer) {
            if (job && answer && answer->type.starts_with("text/html"))
                Reply(job, QByteArray::fromStdString(answer->type),
                      Governed(answer->body, PolicyOfPortal(), scheme));
            else if (job && answer)
                Reply(job, QByteArray::fromStdString(answer->type),
                      QByteArray::fromStdString(answer->body));
            else if (job)
                job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        };
        m_access.Ask(url, IsWebUrl(job->initiator()) ? Asker::WebPage : Asker::Pane, take);
    }
}

void PortalScheme::AnswerHelp(QWebEngineUrlRequestJob* job) const {
    static const QHash<QString, QByteArray> types = {{u"html"_s, "text/html; charset=utf-8"},
                                                     {u"css"_s, "text/css; charset=utf-8"},
                                                     {u"png"_s, "image/png"}};
    // The names of the guide's files are plain; nothing else leads into a folder.
    static const QRegularExpression plainName(u"^/[a-z0-9-]+\\.(html|css|png)\\z"_s);
    const QString path = job->requestUrl().path(QUrl::FullyDecoded);
    const QRegularExpressionMatch match = plainName.match(path);
    QFile file(m_access.HelpFolder() + path);
    if (!match.hasMatch() || !file.open(QIODevice::ReadOnly)) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    QByteArray content = file.readAll();
    if (match.captured(1) == u"html")
        content = QByteArray::fromStdString(WithScheme(
            WithShortcuts(content.toStdString(), m_access.Shortcuts()), m_access.Scheme()));
    Reply(job, types.value(match.captured(1)), content);
}

void PortalScheme::AnswerSource(QWebEngineUrlRequestJob* job) const {
    // It may hold what a site shows to nobody but the user.
    const QByteArray page = m_sources.At(job->requestUrl());
    if (page.isNull() || !job->initiator().isEmpty())
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
    else
        Reply(job, "text/html; charset=utf-8",
              Governed(page.toStdString(), PolicyOfText(), m_access.Scheme()));
}

void PortalScheme::AnswerPage(QWebEngineUrlRequestJob* job) const {
    // Nobody but the program, and a page of its own that has frames, has any business with what the
    // user's pages hold. Behind an origin that says nothing (a page in a sandbox, one made of its
    // own address) anybody may stand.
    const QUrl initiator = job->initiator();
    if (!initiator.isEmpty() && !PortalAddress::IsPage(initiator)) {
        job->fail(QWebEngineUrlRequestJob::RequestDenied);
        return;
    }
    const std::string path = job->requestUrl().path(QUrl::FullyDecoded).toStdString();
    // Pages name each other by where they lie on disk, too.
    std::string_view name = GeneratedPageIn(m_programFolder.toStdString(), path);
    if (name.empty())
        name = std::string_view(path).substr(1);
    QFile file(m_programFolder + u'/' + QString::fromUtf8(name));
    if (!IsGeneratedPageName(name) || !file.open(QIODevice::ReadOnly)) {
        if (const auto address = AddressBehind(job->requestUrl()))
            job->redirect(*address);
        else
            job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    if (const QUrl own = PortalAddress::Page(name); own.host() != job->requestUrl().host()) {
        job->redirect(own);
        return;
    }
    const QByteArray body = file.readAll();
    Reply(job, PageType(body),
          Governed(body.toStdString(), PolicyOfGenerated(name), m_access.Scheme()));
}

} // namespace tallowmere
