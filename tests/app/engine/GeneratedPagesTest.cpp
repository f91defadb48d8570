#include "app/base/PortalAddress.h"
#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/PanePage.h"
#include "core/text/files.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/TestPrompts.h"
#include "support/WebTest.h"

#include <QDir>
#include <QNetworkInformation>
#include <QTemporaryDir>

using namespace tallowmere;
using namespace Qt::StringLiterals;

/// What the pages that the program writes or makes may do, and who may look at them.
class GeneratedPagesTest : public QObject {
    Q_OBJECT
private:
    struct Bench {
        explicit Bench(WebMode mode = WebMode::Direct) : access(mode) {
            pane.resize(400, 300);
            pane.show();
        }
        bool Show(const QString& address) {
            pane.Navigate(address);
            return Await([this] { return !pane.Busy(); });
        }
        QString Write(const QString& name, const QByteArray& body) {
            const QString path = folder.path() + u'/' + name;
            WriteWholeFile(path.toStdString(), body.toStdString());
            return path;
        }
        QString Ask(const QString& script) {
            QString result;
            bool isDone = false;
            profile.findChild<PanePage*>()->runJavaScript(script, [&](const QVariant& value) {
                result = value.toString();
                isDone = true;
            });
            [[maybe_unused]] const bool ran = Await([&] { return isDone; });
            return result;
        }

        TestPrompts prompts;
        QTemporaryDir folder;
        WebAccess access;
        EngineProfile profile{folder.path() + u"/engine"_s, folder.path(), access, prompts};
        BrowserPane pane{profile, prompts};
    };

    LoopbackServer m_server;

    QByteArray Http(const QString& path) { return "http://" + m_server.Address(path).toUtf8(); }
    /// A page that asks for /seen when it is shown, and for /stolen when its script runs.
    QByteArray Telltale() {
        const QByteArray steal = "new Image().src=`" + Http(u"/stolen"_s) + "`";
        return "<html><body onload='" + steal + "'><script>" + steal + "</script><script src='" +
               Http(u"/stolen"_s) + "'></script><img src='x:' onerror='" + steal +
               "'><a href='javascript:" + steal + "'>x</a><img src='" + Http(u"/seen"_s) +
               "'></body></html>";
    }

private Q_SLOTS:
    void init() { m_server.Clear(); }

    void NoForeignScriptRunsInAPageThatTheProgramWrote_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"ycprint.html", "ycs.htm", "ycl.htm"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void NoForeignScriptRunsInAPageThatTheProgramWrote() {
        QFETCH(const QString, name);
        Bench bench;
        const QString path = bench.Write(name, Telltale());
        QVERIFY(bench.Show(path));
        QTRY_COMPARE(m_server.CountOf(u"/seen"_s), 1);
        QCOMPARE(m_server.CountOf(u"/stolen"_s), 0);
        // The file itself stays as it was written.
        QCOMPARE(QByteArray::fromStdString(ReadWholeFile(path.toStdString())), Telltale());
        QCOMPARE(bench.Ask(u"document.compatMode"_s), u"BackCompat"_s);
    }

    void TheReportCallsForNothingAtAll() {
        Bench bench;
        QVERIFY(bench.Show(bench.Write(u"report.html"_s, Telltale())));
        QTest::qWait(200);
        QVERIFY(m_server.Requests().isEmpty());
    }

    void TheSitesInAMultiLinkKeepTheirScripts() {
        Bench bench;
        m_server.Serve(u"/site"_s, "<script>new Image().src = '/seen'</script>");
        QVERIFY(bench.Show(
            bench.Write(u"multiweb.html"_s, "<html><body><IFRAME SRC=\"" +
                                                m_server.Address(u"/site"_s).toUtf8() +
                                                "\"></IFRAME><script>new Image().src='" +
                                                Http(u"/stolen"_s) + "'</script></body></html>")));
        QTRY_COMPARE(m_server.CountOf(u"/seen"_s), 1);
        QCOMPARE(m_server.CountOf(u"/stolen"_s), 0);
    }

    void PagesOfOurOwnAreLightOrDarkAsTheyAreToldTo() {
        Bench bench(WebMode::Sample);
        const QString report = bench.Write(u"report.html"_s, "<html><body>x</body></html>");
        QDir(bench.folder.path()).mkdir(u"help"_s);
        bench.Write(u"help/index.html"_s, "<!DOCTYPE html><html><body>x</body></html>");
        bench.access.SetHelpFolder(bench.folder.path() + u"/help"_s);
        bench.access.SetPortal([](const std::string&, const std::string&) {
            return PortalAnswer{"text/html", "<html><body>x</body></html>"};
        });
        const QString scheme = u"getComputedStyle(document.documentElement).colorScheme"_s;
        for (const QString& page : {report, u"portal://help/index.html"_s, u"h.example/page"_s}) {
            for (const auto& [told, shown] : {std::pair{PageScheme::Dark, "dark"},
                                              {PageScheme::Light, "light"},
                                              {PageScheme::Desktop, "light dark"}}) {
                bench.access.SetScheme(told);
                QVERIFY(bench.Show(page));
                QCOMPARE(bench.Ask(scheme), QString::fromLatin1(shown));
            }
        }
    }

    void APageOfTheFolderStandsInAMultiLink() {
        Bench bench;
        const QByteArray chart = bench.Write(u"ycs.htm"_s, Telltale()).toUtf8();
        QVERIFY(bench.Show(bench.Write(u"multiweb.html"_s, "<html><body><IFRAME SRC=\"" + chart +
                                                               "\"></IFRAME></body></html>")));
        QTRY_COMPARE(m_server.CountOf(u"/seen"_s), 1);
        QCOMPARE(m_server.CountOf(u"/stolen"_s), 0);
        // Each has an origin of its own.
        QCOMPARE(bench.Ask(u"try { frames[0].document.body.innerText } catch (e) { e.name }"_s),
                 u"SecurityError"_s);
    }

    void NobodyElseCanShowAGeneratedPage_data() {
        QTest::addColumn<QByteArray>("body");
        const QByteArray page = PortalAddress::Page("ycprint.html").toEncoded();
        const QByteArray frame = "<iframe src=" + page + "></iframe>";
        QTest::newRow("page") << frame;
        QTest::newRow("data") << QByteArray("<iframe src='data:text/html," + frame + "'></iframe>");
        QTest::newRow("sandbox") << QByteArray("<iframe sandbox='allow-scripts' srcdoc='" + frame +
                                               "'></iframe>");
        QTest::newRow("srcdoc") << QByteArray("<iframe srcdoc='" + frame + "'></iframe>");
        QTest::newRow("itself") << QByteArray("<script>onload = () => { location = '" + page +
                                              "' }</script>");
        QTest::newRow("old host") << QByteArray(
            "<iframe src=portal://pages/ycprint.html></iframe>");
    }
    void NobodyElseCanShowAGeneratedPage() {
        QFETCH(const QByteArray, body);
        Bench bench;
        bench.Write(u"ycprint.html"_s, Telltale());
        m_server.Serve(u"/spy"_s, body + "<script>setTimeout(() => { new Image().src = '/over' }, "
                                         "300)</script>");
        m_server.Serve(u"/over"_s, "x");
        bench.pane.Navigate(m_server.Address(u"/spy"_s));
        QVERIFY(Await([&] { return m_server.CountOf(u"/spy"_s) == 1 && !bench.pane.Busy(); }));
        QTest::qWait(500);
        // Nor does the program ask in its place, be it that the network is back.
        if (auto* network = QNetworkInformation::instance())
            Q_EMIT network->reachabilityChanged(QNetworkInformation::Reachability::Online);
        QTest::qWait(300);
        QCOMPARE(m_server.CountOf(u"/seen"_s), 0);
    }

    void ThePagesThatThePortalMakesRunNoScriptOfStrangers() {
        Bench bench(WebMode::Sample);
        QStringList asked;
        bench.access.SetPortal([&](const std::string& host, const std::string& path) {
            asked << QString::fromStdString(host + path);
            return PortalAnswer{"text/html; charset=utf-8",
                                "<!DOCTYPE html><title>t</title><script>document.title = "
                                "'stolen'</script><img src=/p.svg>"};
        });
        QVERIFY(bench.Show(u"h.example/q?s=x"_s));
        QTRY_VERIFY(asked.contains(u"h.example/p.svg"_s));
        QCOMPARE(bench.profile.findChild<PanePage*>()->title(), u"t"_s);
        QCOMPARE(bench.Ask(u"document.compatMode"_s), u"CSS1Compat"_s);
    }
};

TALLOWMERE_WEB_TEST_MAIN(GeneratedPagesTest)
#include "GeneratedPagesTest.moc"
