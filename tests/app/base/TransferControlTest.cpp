#include "app/base/TransferControl.h"

#include "app/base/WebAccess.h"
#include "core/text/runtime_error.h"
#include "support/LoopbackServer.h"
#include "support/TlsProxy.h"

#include <QSignalSpy>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>

#include <memory>

using namespace tallowmere;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using Ending = CannedPage::Ending;

namespace {

struct Bench {
    /// Only who waits for the end of a silent transfer needs little patience.
    explicit Bench(std::chrono::milliseconds stallLimit = 20s)
        : control(access, nullptr, stallLimit) {}

    LoopbackServer server;
    WebAccess access{WebMode::Direct};
    TransferControl control;
};

} // namespace

class TransferControlTest : public QObject {
    Q_OBJECT
private:
    /// What a transfer in live mode gets from the stand-in of the web.
    static QByteArray Fetch(const TlsProxy& web, const QString& address) {
        const WebAccess access(WebMode::Live, 500ms);
        TransferControl control(access, nullptr, 5s);
        control.SetProxy(web.Address({}));
        control.SetAccessType(ProxySetting::kNamedProxy);
        return control.OpenURL(address);
    }

private Q_SLOTS:
    void ASiteIsAskedByHttpsFirst() {
        TlsProxy web;
        if (!web.HasCertificate())
            QSKIP("openssl makes the certificate, and is not installed");
        web.SpeakHttps(u"good.example"_s);
        web.Serve(u"/a"_s, "secure");
        web.Serve(u"http://good.example/a"_s, "plain");
        QCOMPARE(Fetch(web, u"good.example/a"_s), QByteArray("secure"));
        QCOMPARE(web.Requests(), QStringList{u"GET /a"_s});
        web.Serve(u"http://good.example:8080/a"_s, "port");
        QCOMPARE(Fetch(web, u"good.example:8080/a"_s), QByteArray("port"));
    }

    void ASiteWithoutHttpsIsAskedByHttp_data() {
        QTest::addColumn<int>("ending");
        QTest::newRow("hangs up") << int(Ending::HangUp);
        QTest::newRow("refuses") << int(Ending::Length);
        QTest::newRow("is silent") << int(Ending::Silent);
    }
    void ASiteWithoutHttpsIsAskedByHttp() {
        QFETCH(const int, ending);
        TlsProxy web;
        web.ServeTunnel(u"plain.example"_s, CannedPage{"", Ending(ending), 502});
        web.Serve(u"http://plain.example/a"_s, "plain");
        const WebAccess access(WebMode::Live, 500ms);
        TransferControl control(access, nullptr, 5s);
        control.SetProxy(web.Address({}));
        control.SetAccessType(ProxySetting::kNamedProxy);
        QCOMPARE(control.OpenURL(u"plain.example/a"_s), QByteArray("plain"));
        QVERIFY(web.Tunnels().contains(u"plain.example:443"_s));
        QVERIFY(access.Https().IsPlain(u"plain.example"_s));
        QVERIFY(!access.Secure(QUrl(u"http://plain.example/a"_s)));
        QCOMPARE(control.OpenURL(u"plain.example/a"_s), QByteArray("plain"));
    }

    void ASlowAnswerByHttpsIsWaitedFor() {
        TlsProxy web;
        if (!web.HasCertificate())
            QSKIP("openssl makes the certificate, and is not installed");
        web.SpeakHttps(u"late.example"_s);
        web.Serve(u"/late"_s, CannedPage{"", Ending::Silent});
        const WebAccess access(WebMode::Live, 100ms);
        TransferControl control(access, nullptr, 1s);
        control.SetProxy(web.Address({}));
        control.SetAccessType(ProxySetting::kNamedProxy);
        QCOMPARE(control.OpenURL(u"late.example/late"_s), QByteArray());
        QVERIFY(access.Https().IsSecure(u"late.example"_s));
    }

    void ARedirectIsAskedByHttpsToo() {
        TlsProxy web;
        if (!web.HasCertificate())
            QSKIP("openssl makes the certificate, and is not installed");
        web.Redirect(u"http://plain.example/a"_s, u"http://good.example/b"_s);
        web.SpeakHttps(u"good.example"_s);
        web.Serve(u"/b"_s, "secure");
        QCOMPARE(Fetch(web, u"plain.example/a"_s), QByteArray("secure"));
        web.SpeakHttps(u"back.example"_s);
        web.Redirect(u"/c"_s, u"http://back.example/c"_s);
        web.Serve(u"http://back.example/c"_s, "back");
        QCOMPARE(Fetch(web, u"back.example/c"_s), QByteArray("back"));
    }

    void ADocumentIsGivenWholeHoweverItIsSent_data() {
        QTest::addColumn<int>("ending");
        QTest::newRow("with its length") << int(Ending::Length);
        QTest::newRow("until the connection closes") << int(Ending::Close);
        QTest::newRow("in chunks") << int(Ending::Chunked);
    }
    void ADocumentIsGivenWholeHoweverItIsSent() {
        QFETCH(const int, ending);
        Bench bench;
        const QByteArray body = QByteArray(300000, 'x') + "\xFF\x00 end";
        bench.server.Serve(u"/q"_s, CannedPage{body, Ending(ending)});
        QSignalSpy states(&bench.control, &TransferControl::StateChanged);
        QCOMPARE(bench.control.OpenURL(bench.server.Address(u"/q?s=a+b&d=t"_s)), body);
        QCOMPARE(bench.server.Requests(), QStringList{u"GET /q?s=a+b&d=t"_s});
        QCOMPARE(states.value(0), QVariantList{TransferControl::kResponseReceived});
        QVERIFY(!bench.control.IsBusy());
        QVERIFY(!bench.control.HasFailed());
        QCOMPARE(bench.control.GetChunk(1000000), QByteArray());
    }

    void ThePageOfAnErrorStatusIsGiven() {
        Bench bench;
        bench.server.Serve(u"/members"_s, CannedPage{"401 Authorization Required", {}, 401});
        QCOMPARE(bench.control.OpenURL(bench.server.Address(u"/members"_s)),
                 QByteArray("401 Authorization Required"));
        QVERIFY(bench.control.WasRefused());
        QVERIFY(!bench.control.HasFailed());
        bench.server.Serve(u"/open"_s, "page");
        bench.control.OpenURL(bench.server.Address(u"/open"_s));
        QVERIFY(!bench.control.WasRefused());
    }

    void ADocumentThatIsCutShortIsGivenAsFarAsItCame() {
        Bench bench;
        bench.server.Serve(u"/cut"_s, CannedPage{"half a page", Ending::CutShort});
        QCOMPARE(bench.control.OpenURL(bench.server.Address(u"/cut"_s)), QByteArray("half a page"));
    }

    void WhatCannotBeHadIsEmptyAtOnce_data() {
        QTest::addColumn<QString>("address");
        QTest::newRow("refused") << u"127.0.0.1:1/x"_s;
        QTest::newRow("unknown host") << u"nowhere.invalid"_s;
        QTest::newRow("empty") << QString();
        QTest::newRow("no address") << u"http://"_s;
        QTest::newRow("a file") << u"file:///etc/hosts"_s;
        QTest::newRow("a path") << u"/etc/hosts"_s;
        QTest::newRow("ftp") << u"ftp://127.0.0.1/"_s;
        QTest::newRow("data") << u"data:text/plain,x"_s;
    }
    void WhatCannotBeHadIsEmptyAtOnce() {
        QFETCH(const QString, address);
        Bench bench;
        QCOMPARE(bench.control.OpenURL(address), QByteArray());
        QVERIFY(bench.control.HasFailed());
        QVERIFY(!bench.control.IsBusy());
    }

    void ATransferWithoutProgressHasFailed() {
        Bench bench(500ms);
        bench.server.Serve(u"/silent"_s, CannedPage{{}, Ending::Silent});
        QCOMPARE(bench.control.OpenURL(bench.server.Address(u"/silent"_s)), QByteArray());
        QVERIFY(bench.control.HasFailed());
    }

    void RedirectsAreFollowedButNotInCircles() {
        Bench bench;
        bench.server.Redirect(u"/old"_s, u"/new"_s);
        bench.server.Serve(u"/new"_s, "new page");
        QCOMPARE(bench.control.OpenURL(bench.server.Address(u"/old"_s)), QByteArray("new page"));
        bench.server.Redirect(u"/round"_s, u"/round"_s);
        QCOMPARE(bench.control.OpenURL(bench.server.Address(u"/round"_s)), QByteArray());
        QVERIFY(bench.control.HasFailed());
        bench.server.Redirect(u"/file"_s, u"file:///etc/hosts"_s);
        QVERIFY(!bench.control.OpenURL(bench.server.Address(u"/file"_s)).contains("localhost"));
    }

    void TheWindowStaysAliveAndCancelEndsTheWait() {
        Bench bench;
        bench.server.Serve(u"/endless"_s, CannedPage{"more ", Ending::Endless});
        int ticks = 0;
        QTimer timer;
        QTimer::singleShot(200ms, &bench.control, &TransferControl::Cancel);
        connect(&timer, &QTimer::timeout, &timer, [&] { ++ticks; });
        timer.start(10ms);
        QCOMPARE(bench.control.OpenURL(bench.server.Address(u"/endless"_s)), QByteArray());
        QVERIFY(ticks > 3);
        QVERIFY(!bench.control.IsBusy());
    }

    void AControlMayBeDestroyedWhileItWaits() {
        Bench bench;
        bench.server.Serve(u"/silent"_s, CannedPage{{}, Ending::Silent});
        auto* control = new TransferControl(bench.access);
        QTimer::singleShot(100ms, control, &QObject::deleteLater);
        QCOMPARE(control->OpenURL(bench.server.Address(u"/silent"_s)), QByteArray());
    }

    void ASecondAddressIsRefusedWhileOneIsUnderWay() {
        Bench bench;
        bench.server.Serve(u"/q"_s, "page");
        bool isRefused = false;
        connect(&bench.control, &TransferControl::StateChanged, &bench.control, [&] {
            try {
                bench.control.OpenURL(u"127.0.0.1"_s);
            } catch (const RuntimeError&) {
                isRefused = true;
            }
        });
        QCOMPARE(bench.control.OpenURL(bench.server.Address(u"/q"_s)), QByteArray("page"));
        QVERIFY(isRefused);
    }

    void TheNamedProxyIsUsedWhenTheAccessTypeSaysSo_data() {
        QTest::addColumn<QString>("scheme");
        QTest::newRow("host and port") << QString();
        QTest::newRow("with http") << u"http://"_s;
    }
    void TheNamedProxyIsUsedWhenTheAccessTypeSaysSo() {
        QFETCH(const QString, scheme);
        Bench bench;
        bench.server.Serve(u"http://quotes.invalid/q?s=x"_s, "by proxy");
        bench.control.SetProxy(scheme + bench.server.Address({}));
        QCOMPARE(bench.control.OpenURL(u"quotes.invalid/q?s=x"_s), QByteArray());
        QVERIFY(bench.server.Requests().isEmpty());
        bench.control.SetAccessType(ProxySetting::kNamedProxy);
        QCOMPARE(bench.control.OpenURL(u"quotes.invalid/q?s=x"_s), QByteArray("by proxy"));
        QCOMPARE(bench.server.Requests(), QStringList{u"GET http://quotes.invalid/q?s=x"_s});
    }

    void ASocksProxyIsAskedInItsOwnWay() {
        Bench bench(3s);
        QTcpServer proxy;
        QVERIFY(proxy.listen(QHostAddress::LocalHost));
        QByteArray greeting;
        connect(&proxy, &QTcpServer::newConnection, &proxy, [&] {
            QTcpSocket* socket = proxy.nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [&greeting, socket] {
                greeting += socket->readAll();
                socket->abort();
            });
        });
        bench.control.SetProxy(u"socks5://127.0.0.1:"_s + QString::number(proxy.serverPort()));
        bench.control.SetAccessType(ProxySetting::kNamedProxy);
        QCOMPARE(bench.control.OpenURL(u"quotes.invalid/q"_s), QByteArray());
        QVERIFY(greeting.startsWith('\x05'));
    }

    void InSampleModeThePortalAnswersAndNoServerIsAsked() {
        Bench bench;
        WebAccess sample(WebMode::Sample);
        TransferControl control(sample);
        QCOMPARE(control.OpenURL(bench.server.Address(u"/q"_s)), QByteArray());
        QVERIFY(control.HasFailed());
        QStringList asked;
        sample.SetPortal([&](const std::string& host, const std::string& path) {
            asked << QString::fromStdString(host) << QString::fromStdString(path);
            return PortalAnswer{"text/html", "SAMPLE DATA"};
        });
        QCOMPARE(control.OpenURL(bench.server.Address(u"/q?s=^nya"_s)), QByteArray("SAMPLE DATA"));
        QCOMPARE(asked, (QStringList{bench.server.Address({}), u"/q?s=%5Enya"_s}));
        QVERIFY(bench.server.Requests().isEmpty());
    }

    void InLiveModeTheStandInIsFetched() {
        Bench bench;
        bench.server.Serve(u"/today"_s, "today's page");
        WebAccess live(WebMode::Live);
        live.SetResolver([&](const std::string& address, AddressUse) {
            return address == "http://old.invalid/q"
                       ? (u"http://"_s + bench.server.Address(u"/today"_s)).toStdString()
                       : address;
        });
        TransferControl control(live);
        QCOMPARE(control.OpenURL(u"old.invalid/q"_s), QByteArray("today's page"));
    }

    void NoMoreThanTheLimitIsTaken() {
        Bench bench;
        const QByteArray body(TransferControl::kSizeLimit + 1000, 'x');
        bench.server.Serve(u"/big"_s, CannedPage{body, Ending::Close});
        QCOMPARE(bench.control.OpenURL(bench.server.Address(u"/big"_s)).size(),
                 TransferControl::kSizeLimit);
    }
};

QTEST_GUILESS_MAIN(TransferControlTest)
#include "TransferControlTest.moc"
