#include "app/base/modMain.h"

#include "app/base/WebAccess.h"
#include "core/shell/settings_store.h"
#include "core/text/runtime_error.h"
#include "support/LoopbackServer.h"

#include <QElapsedTimer>
#include <QScreen>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <functional>

using namespace tallowmere;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using Ending = CannedPage::Ending;

namespace {

constexpr auto kWait = 300ms;

struct Bench {
    explicit Bench(std::chrono::milliseconds wait = kWait) : pool(access, nullptr, wait) {}

    LoopbackServer server;
    WebAccess access{WebMode::Direct};
    TransferPool pool;
    qint64 elapsed = 0;

    QByteArray Fetch(const QString& path) {
        QElapsedTimer timer;
        timer.start();
        const QByteArray page = pool.FetchPage(server.Address(path));
        elapsed = timer.elapsed();
        return page;
    }
    bool HasWaited() const { return elapsed >= kWait.count(); }
};

struct Place {
    QTemporaryDir folder;
    SettingsStore settings{(folder.path() + u"/t.ini"_s).toStdString()};
    QWidget form;

    Place() { form.setObjectName(u"frmTest"_s); }
    void Store(const char* key, const char* value) { settings.SaveSetting("frmTest", key, value); }
};

} // namespace

class FetchPageTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void APageIsGivenAsSoonAsItEndedWithItsTag() {
        Bench bench;
        const QByteArray page = "<html>xyz</HTML><!-- made today -->";
        for (const Ending ending : {Ending::Length, Ending::Close, Ending::Chunked}) {
            bench.server.Serve(u"/q"_s, CannedPage{page, ending});
            QCOMPARE(bench.Fetch(u"/q"_s), page);
            QVERIFY(!bench.HasWaited());
        }
    }

    void APageThatEndsWithItsTagIsGivenThoughTheServerGoesOn() {
        Bench bench;
        bench.server.Serve(u"/stall"_s, CannedPage{"<html>x</html> \r\n", Ending::Stall});
        QCOMPARE(bench.Fetch(u"/stall"_s), QByteArray("<html>x</html> \r\n"));
        QVERIFY(!bench.HasWaited());
    }

    void APageWithoutItsTagIsGivenAfterTheWait() {
        Bench bench;
        bench.server.Serve(u"/plain"_s, "just text");
        QCOMPARE(bench.Fetch(u"/plain"_s), QByteArray("just text"));
        QVERIFY(bench.HasWaited());
        bench.server.Serve(u"/cut"_s, CannedPage{"<html>half", Ending::CutShort});
        QCOMPARE(bench.Fetch(u"/cut"_s), QByteArray("<html>half"));
        QVERIFY(bench.HasWaited());
        bench.server.Serve(u"/error"_s, CannedPage{"gone", Ending::Length, 404});
        QCOMPARE(bench.Fetch(u"/error"_s), QByteArray("gone"));
        QVERIFY(bench.HasWaited());
    }

    void APageThatStallsBehindItsTagIsGivenAfterTheWait() {
        Bench bench;
        bench.server.Serve(u"/stall"_s, CannedPage{"<html>x</html> more", Ending::Stall});
        QCOMPARE(bench.Fetch(u"/stall"_s), QByteArray("<html>x</html> more"));
        QVERIFY(bench.HasWaited());
    }

    void APageThatNeverEndsIsGivenWithTheRestThatArrived() {
        Bench bench;
        bench.server.Serve(u"/endless"_s, CannedPage{"more ", Ending::Endless});
        QVERIFY(bench.Fetch(u"/endless"_s).startsWith("more more more "));
        QVERIFY(bench.elapsed >= 2 * kWait.count());
        QVERIFY(bench.elapsed < 10 * kWait.count());
    }

    void AnOutrightFailureIsTheEmptyTextAtOnce() {
        // Whoever waited would wait long.
        constexpr auto wait = 30s;
        Bench bench(wait);
        QElapsedTimer timer;
        for (const QString& address :
             {u"127.0.0.1:1/"_s, u"nowhere.invalid"_s, QString(), u"file:///etc/hosts"_s,
              u"https://"_s + bench.server.Address(u"/tls"_s)}) {
            QTimer hangUp;
            hangUp.start(20ms);
            QObject::connect(&hangUp, &QTimer::timeout, &bench.server, [&] {
                // A web server that is spoken to in TLS hangs up.
                for (QTcpSocket* socket : bench.server.findChildren<QTcpSocket*>())
                    socket->close();
            });
            timer.start();
            QCOMPARE(bench.pool.FetchPage(address), QByteArray());
            QVERIFY2(timer.elapsed() < std::chrono::milliseconds(wait).count(),
                     qUtf8Printable(address));
        }
    }

    void FetchesThatWaitAtTheSameTimeNeverShare() {
        Bench bench;
        bench.server.Serve(u"/slow"_s, "no tag here");
        bench.server.Serve(u"/q"_s, "<html>quick</html>");
        QByteArray inner;
        QTimer::singleShot(100ms, &bench.pool,
                           [&] { inner = bench.pool.FetchPage(bench.server.Address(u"/q"_s)); });
        QCOMPARE(bench.Fetch(u"/slow"_s), QByteArray("no tag here"));
        QCOMPARE(inner, QByteArray("<html>quick</html>"));
    }

    void TheTwentySecondFetchThatWaitsIsAnError() {
        Bench bench;
        bench.server.Serve(u"/silent"_s, CannedPage{{}, Ending::Silent});
        int waiting = 0;
        int refused = 0;
        std::function<void()> nest = [&] {
            try {
                ++waiting;
                QTimer::singleShot(0, &bench.pool, nest);
                bench.pool.FetchPage(bench.server.Address(u"/silent"_s));
            } catch (const RuntimeError&) {
                --waiting;
                if (++refused == 1)
                    bench.pool.CancelAll();
            }
        };
        QTimer::singleShot(10s, &bench.pool, &TransferPool::CancelAll);
        nest();
        QCOMPARE(waiting, TransferPool::kMostControls);
        QVERIFY(refused >= 1);
        bench.server.Serve(u"/q"_s, "<html></html>");
        QCOMPARE(bench.Fetch(u"/q"_s), QByteArray("<html></html>"));
    }

    void APositionIsStoredInTwipsAndComesBack() {
        Place place;
        place.form.setGeometry(40, 60, 500, 400);
        SaveFormPosition(place.form, place.settings);
        const auto stored = [&](const char* key) {
            return QString::fromStdString(place.settings.GetSetting("frmTest", key, "none"));
        };
        QCOMPARE(stored("Top"), u"900"_s);
        QCOMPARE(stored("Left"), u"600"_s);
        QCOMPARE(stored("Height"), u"6000"_s);
        QCOMPARE(stored("Width"), u"7500"_s);
        place.form.setGeometry(0, 0, 100, 100);
        LoadFormPosition(place.form, place.settings);
        QCOMPARE(place.form.geometry(), QRect(40, 60, 500, 400));
    }

    void WithoutAStoredPositionTheDefaultsHold() {
        Place place;
        LoadFormPosition(place.form, place.settings);
        QCOMPARE(place.form.pos(), QPoint(3, 3));
        QCOMPARE(place.form.size(), QSize(667, 567));
    }

    void AFormThatIsNotInItsPlaceKeepsTheStoredOne_data() {
        QTest::addColumn<bool>("fillsTheScreen");
        QTest::newRow("minimised") << false;
        QTest::newRow("on the whole screen") << true;
    }
    void AFormThatIsNotInItsPlaceKeepsTheStoredOne() {
        QFETCH(const bool, fillsTheScreen);
        Place place;
        place.Store("Top", "123");
        place.Store("Width", "4560");
        fillsTheScreen ? place.form.showFullScreen() : place.form.showMinimized();
        SaveFormPosition(place.form, place.settings);
        QCOMPARE(place.settings.GetSetting("frmTest", "Top", ""), std::string("123"));
        QCOMPARE(place.settings.GetSetting("frmTest", "Width", ""), std::string("4560"));
        QCOMPARE(place.settings.GetSetting("frmTest", "Left", "none"), std::string("none"));
    }

    void APositionThatIsNoNumberIsAnErrorNamingItsKey() {
        for (const char* key : {"Top", "Left", "Height", "Width"}) {
            Place place;
            place.Store(key, "abc");
            try {
                LoadFormPosition(place.form, place.settings);
                QFAIL(key);
            } catch (const RuntimeError& error) {
                QVERIFY(
                    QString::fromUtf8(error.what()).contains(u"frmTest/"_s + QLatin1String(key)));
            }
        }
    }

    void APositionThatIsNoNumberCountsAsItsDefault() {
        Place place;
        place.Store("Top", "abc");
        place.Store("Left", "300");
        place.Store("Width", "");
        place.Store("Height", "3000");
        QVERIFY_THROWS_EXCEPTION(RuntimeError, LoadFormPosition(place.form, place.settings));
        QCOMPARE(place.form.geometry(), QRect(20, 3, 667, 200));
    }

    void AFormIsNeverTooLargeToBePainted() {
        Place place;
        place.Store("Height", "1e30");
        place.Store("Width", "99999999");
        LoadFormPosition(place.form, place.settings);
        QVERIFY(place.form.width() <= 4096);
        QVERIFY(place.form.height() <= 4096);
        place.Store("Height", "-1e30");
        place.Store("Width", "0");
        LoadFormPosition(place.form, place.settings);
        QVERIFY(QGuiApplication::primaryScreen()->availableGeometry().contains(place.form.pos()));
    }

    void AFormOffEveryScreenIsPulledOntoOne_data() {
        QTest::addColumn<QByteArray>("top");
        QTest::addColumn<QByteArray>("left");
        QTest::newRow("far right") << QByteArray("0") << QByteArray("900000");
        QTest::newRow("far left") << QByteArray("0") << QByteArray("-900000");
        QTest::newRow("above") << QByteArray("-9000") << QByteArray("0");
        QTest::newRow("below") << QByteArray("900000") << QByteArray("0");
        QTest::newRow("beyond all numbers") << QByteArray("1e30") << QByteArray("-1e30");
    }
    void AFormOffEveryScreenIsPulledOntoOne() {
        QFETCH(const QByteArray, top);
        QFETCH(const QByteArray, left);
        Place place;
        place.Store("Top", top.constData());
        place.Store("Left", left.constData());
        place.Store("Width", "3000");
        place.Store("Height", "1500");
        LoadFormPosition(place.form, place.settings);
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY(screen.contains(place.form.geometry()));
    }
};

QTEST_MAIN(FetchPageTest)
#include "FetchPageTest.moc"
