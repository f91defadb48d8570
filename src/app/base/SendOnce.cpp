#include "app/base/SendOnce.h"

#include <QIODevice>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace tallowmere {

namespace {

/// A body of no bytes that cannot be read a second time: what has one is not sent again. How many
/// bytes are sent is said by the request; one without a size would be passed over by newer Qt.
class UnrepeatableBody : public QIODevice {
public:
    explicit UnrepeatableBody(QObject* parent) : QIODevice(parent) { open(ReadOnly | Unbuffered); }
    bool isSequential() const override { return true; }
    bool atEnd() const override { return true; }
    qint64 size() const override { return 1; }
    bool reset() override { return false; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64) override { return -1; }
};

} // namespace

QNetworkReply* SendOnce(QNetworkAccessManager& network, QNetworkRequest request) {
    request.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
    request.setHeader(QNetworkRequest::ContentLengthHeader, 0);
    auto* body = new UnrepeatableBody(&network);
    QNetworkReply* reply = network.sendCustomRequest(request, "GET", body);
    body->setParent(reply);
    return reply;
}

} // namespace tallowmere
