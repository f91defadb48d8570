#pragma once

#include <QHash>
#include <QStringList>
#include <QTcpServer>

#include <optional>

class QTcpSocket;

namespace tallowmere {

/// What the loopback server answers on one path, and how it ends the answer.
struct CannedPage {
    enum class Ending {
        Length,   ///< says its length and closes
        Close,    ///< says no length; the end of the connection is the end of the page
        Chunked,  ///< in chunks
        CutShort, ///< says a longer length than it sends, and closes
        Stall,    ///< says a longer length than it sends, and stays open
        Silent,   ///< never answers
        HangUp,   ///< breaks the connection off instead of answering
        Endless   ///< sends the body again every few milliseconds
    };

    QByteArray body;
    Ending ending = Ending::Length;
    int status = 200;
    QByteArray type = "text/html; charset=utf-8";
    QByteArrayList headers = {}; ///< further header lines, without line ends
};

/// A web server on the loopback interface that serves canned pages and records what was asked.
class LoopbackServer : public QTcpServer {
    Q_OBJECT
public:
    LoopbackServer();

    /// "127.0.0.1:<port>" followed by `path`, without a scheme.
    QString Address(const QString& path) const;

    /// Answers `path` (with or without its query) with `page`; other paths get a 404 page.
    void Serve(const QString& path, const CannedPage& page) { m_pages[path] = page; }
    void Serve(const QString& path, const QByteArray& body) { m_pages[path] = CannedPage{body}; }
    /// Answers every path with `page` from now on.
    void ServeEverything(const CannedPage& page) { m_everything = page; }
    /// Answers `path` with a redirect to `location`.
    void Redirect(const QString& path, const QString& location);

    /// The request lines so far without their protocol: "GET /q?s=msft&d=2b".
    const QStringList& Requests() const { return m_requests; }
    /// How often `path`, with its query, was asked for with GET.
    qsizetype CountOf(const QString& path) const {
        return m_requests.count(QStringLiteral("GET ") + path);
    }
    /// The whole head of the last request; those for the icon of a site, which the engine makes by
    /// itself at any time, do not count.
    const QByteArray& LastHead() const { return m_lastHead; }
    /// A header of the last request by its name, in whatever case either is written.
    QByteArray LastHeader(const QByteArray& name) const;
    /// Forgets the recorded requests.
    void Clear() { m_requests.clear(); }

    /// Answers every request that comes in on `socket`.
    void Attend(QTcpSocket* socket);

Q_SIGNALS:
    void Requested(const QString& request);

private:
    void Answer(QTcpSocket* socket, const QByteArray& head);

    QHash<QString, CannedPage> m_pages;
    std::optional<CannedPage> m_everything;
    QStringList m_requests;
    QByteArray m_lastHead;
};

} // namespace tallowmere
