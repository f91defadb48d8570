#include "app/base/TransferControl.h"

#include "app/base/WebAccess.h"
#include "core/text/runtime_error.h"
#include "support/LoopbackServer.h"

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
    LoopbackServer server;
    WebAccess access{WebMode::Direct};
    TransferControl control{access, nullptr, 500ms};
};

} // namespace

class TransferControlTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
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
        Bench bench;
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
        Bench bench;
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
