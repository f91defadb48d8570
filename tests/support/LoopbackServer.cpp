#include "support/LoopbackServer.h"

#include <QTcpSocket>
#include <QTimer>

namespace tallowmere {

using namespace Qt::StringLiterals;
using Ending = CannedPage::Ending;

namespace {

constexpr int kEndlessPause = 20;  // milliseconds between two pieces of an endless page
constexpr int kMissingBytes = 100; // by which a page that is cut short falls short

QByteArray HeadOf(const CannedPage& page) {
    QByteArray head = "HTTP/1.1 " + QByteArray::number(page.status) + " Canned\r\n";
    head += "Content-Type: " + page.type + "\r\nConnection: close\r\n";
    for (const QByteArray& line : page.headers)
        head += line + "\r\n";
    const bool isShort = page.ending == Ending::CutShort || page.ending == Ending::Stall;
    if (isShort || page.ending == Ending::Length) {
        const qsizetype length = page.body.size() + (isShort ? kMissingBytes : 0);
        head += "Content-Length: " + QByteArray::number(length) + "\r\n";
    }
    if (page.ending == Ending::Chunked)
        head += "Transfer-Encoding: chunked\r\n";
    return head + "\r\n";
}

QByteArray InChunks(const QByteArray& body) {
    constexpr qsizetype size = 7;
    QByteArray chunks;
    for (qsizetype at = 0; at < body.size(); at += size) {
        const QByteArray piece = body.mid(at, size);
        chunks += QByteArray::number(piece.size(), 16) + "\r\n" + piece + "\r\n";
    }
    return chunks + "0\r\n\r\n";
}

} // namespace

LoopbackServer::LoopbackServer() {
    if (!listen(QHostAddress::LocalHost))
        qFatal("no loopback port: %s", qUtf8Printable(errorString()));
    connect(this, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = nextPendingConnection())
            Attend(socket);
    });
}

QString LoopbackServer::Address(const QString& path) const {
    return u"127.0.0.1:"_s + QString::number(serverPort()) + path;
}

void LoopbackServer::Redirect(const QString& path, const QString& location) {
    CannedPage page;
    page.status = 302;
    page.headers << "Location: " + location.toUtf8();
    Serve(path, page);
}

void LoopbackServer::Attend(QTcpSocket* socket) {
    connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QTcpSocket::readyRead, this, [this, socket, head = QByteArray()]() mutable {
        head += socket->readAll();
        if (!head.contains("\r\n\r\n"))
            return;
        Answer(socket, std::exchange(head, {}));
    });
}

QByteArray LoopbackServer::LastHeader(const QByteArray& name) const {
    for (const QByteArray& line : m_lastHead.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0 && line.left(colon).compare(name, Qt::CaseInsensitive) == 0)
            return line.mid(colon + 1).trimmed();
    }
    return {};
}

void LoopbackServer::Answer(QTcpSocket* socket, const QByteArray& head) {
    const QString line = QString::fromLatin1(head.left(head.indexOf("\r\n")));
    const QString request = line.section(u' ', 0, 1);
    const QString path = request.section(u' ', 1);
    m_requests << request;
    if (path != u"/favicon.ico")
        m_lastHead = head;

    CannedPage page{"<html><body>not here</body></html>", Ending::Length, 404};
    if (m_everything)
        page = *m_everything;
    else if (m_pages.contains(path))
        page = m_pages[path];
    else if (const QString bare = path.section(u'?', 0, 0); m_pages.contains(bare))
        page = m_pages[bare];
    Q_EMIT Requested(request);

    if (page.ending == Ending::Silent)
        return;
    if (page.ending == Ending::HangUp) {
        socket->abort();
        return;
    }
    socket->write(HeadOf(page));
    socket->write(page.ending == Ending::Chunked ? InChunks(page.body) : page.body);
    if (page.ending == Ending::Endless) {
        auto* timer = new QTimer(socket);
        connect(timer, &QTimer::timeout, socket, [socket, page] { socket->write(page.body); });
        timer->start(kEndlessPause);
    } else if (page.ending != Ending::Stall) {
        socket->disconnectFromHost();
    }
}

} // namespace tallowmere
