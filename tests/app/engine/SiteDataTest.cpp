#include "app/engine/SiteData.h"

#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/PanePage.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/PaneRun.h"
#include "support/TestPrompts.h"
#include "support/WebTest.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

struct Run : PaneRun {
    using PaneRun::PaneRun;

    /// What the page that is shown gives for an expression, which may be a promise.
    QString Value(const QString& expression) {
        auto* page = profile.findChild<PanePage*>();
        QString value;
        const QString mark = u"value %1: "_s.arg(++asked);
        page->runJavaScript(u"(async () => %2)().then(value => document.title = '%1' + value,"
                            "error => document.title = '%1' + error)"_s.arg(mark, expression));
        [[maybe_unused]] const bool isThere =
            Await([&] { return page->title().startsWith(mark.trimmed()); });
        return page->title().mid(mark.size());
    }
    QStringList Sites() {
        QStringList sites;
        for (const SiteData::Site& site : profile.Sites().Sites())
            sites << site.host;
        return sites;
    }

    int asked = 0;
};

} // namespace

/// What sites keep in the engine's folder: how much, and how it goes.
class SiteDataTest : public QObject {
    Q_OBJECT
private:
    LoopbackServer m_server;
    QTemporaryDir m_folder;

    // Two sites on one server.
    QString One() const { return u"127.0.0.1:%1/page"_s.arg(m_server.serverPort()); }
    QString Other() const { return u"localhost:%1/page"_s.arg(m_server.serverPort()); }

    static QString Store() {
        return u"(async () => {"
               "localStorage.setItem('text', 'kept');"
               "await new Promise(done => { const wish = indexedDB.open('base');"
               "  wish.onsuccess = () => { wish.result.close(); done() } });"
               "await (await caches.open('cache')).put('/x', new Response('y'));"
               "const files = await navigator.storage.getDirectory();"
               "await files.getFileHandle('file', {create: true});"
               "await navigator.serviceWorker.register('/worker');"
               "await navigator.serviceWorker.ready;"
               "return 'stored' })()"_s;
    }
    static QString Count() {
        return u"(async () => {"
               "const names = [];"
               "for await (const name of (await navigator.storage.getDirectory()).keys())"
               "  names.push(name);"
               "return [document.cookie, localStorage.length, (await indexedDB.databases()).length,"
               "(await caches.keys()).length, names.length].join(' ').trim() })()"_s;
    }
    static QString Workers() {
        return u"(await navigator.serviceWorker.getRegistrations()).length"_s;
    }

private Q_SLOTS:
    void init() {
        m_server.Clear();
        CannedPage page{"<title>page</title>"};
        page.headers << "Set-Cookie: who=you; Path=/; Max-Age=10000";
        m_server.Serve(u"/page"_s, page);
        m_server.Serve(u"/bare"_s, "<title>bare</title>");
        m_server.Serve(u"/worker"_s, CannedPage{"", {}, 200, "text/javascript"});
        QDir(m_folder.path() + u"/engine"_s).removeRecursively();
    }

    void SitesStoreNoMoreThanTheirShare() {
        Run run(m_folder.path());
        QVERIFY(run.Show(One()));
        const double quota = run.Value(u"(await navigator.storage.estimate()).quota"_s).toDouble();
        // Three quarters of what all of them may.
        QVERIFY2(quota > 100'000'000 && quota <= 940'000'000, qPrintable(QString::number(quota)));
    }

    void OneSiteIsClearedAndTheOthersAreNot() {
        const QString kept = u"who=you 1 1 1 1"_s, bare = u"0 0 0 0"_s;
        {
            Run run(m_folder.path());
            for (const QString& site : {One(), Other()}) {
                QVERIFY(run.Show(site));
                QCOMPARE(run.Value(Store()), u"stored"_s);
                QCOMPARE(run.Value(Count()), kept);
            }
            run.profile.Sites().Load();
            QTRY_COMPARE(run.Sites(), (QStringList{u"127.0.0.1"_s, u"localhost"_s}));
            const auto sites = run.profile.Sites().Sites();
            QCOMPARE(sites[0].cookies, 1);
            QVERIFY(sites[0].hasDatabases);

            QSignalSpy cleared(&run.profile.Sites(), &SiteData::Cleared);
            run.profile.Sites().Clear(u"127.0.0.1"_s);
            QVERIFY(cleared.wait());
            QTRY_COMPARE(run.profile.Sites().Sites().value(0).cookies,
                         run.Sites().value(0) == u"localhost" ? 1 : 0);
            QVERIFY(run.Show(One().replace(u"page"_s, u"bare"_s)));
            QCOMPARE(run.Value(Count()), bare);
            QVERIFY(run.Show(Other().replace(u"page"_s, u"bare"_s)));
            QCOMPARE(run.Value(Count()), kept);
        }
        // What runs in the background is gone at the next start.
        Run run(m_folder.path());
        QVERIFY(run.Show(One().replace(u"page"_s, u"bare"_s)));
        QCOMPARE(run.Value(Workers()), u"0"_s);
        QCOMPARE(run.Value(Count()), bare);
        QVERIFY(run.Show(Other().replace(u"page"_s, u"bare"_s)));
        QVERIFY(run.Value(Count()).startsWith(u"who=you 1 1"));
        QVERIFY(!QFile::exists(m_folder.path() + u"/engine/clear-at-start.txt"_s));
    }

    void WhatAPageHasOpenIsToldToBeLeft() {
        Run run(m_folder.path());
        QVERIFY(run.Show(One()));
        const QString open =
            u"new Promise(done => { const wish = indexedDB.open('base');"
            "wish.onsuccess = () => { window.base = wish.result; done('open') } })"_s;
        QCOMPARE(run.Value(open), u"open"_s);
        const auto clear = [&] {
            QSignalSpy cleared(&run.profile.Sites(), &SiteData::Cleared);
            run.profile.Sites().Clear(u"127.0.0.1"_s);
            return cleared.wait(20'000) ? cleared[0][0].toStringList() : QStringList{u"none"_s};
        };
        const QString origin = u"http://127.0.0.1:%1"_s.arg(m_server.serverPort());
        QCOMPARE(clear(), QStringList{origin});
        QVERIFY(run.Sites().contains(u"127.0.0.1"_s));
        QCOMPARE(run.Value(u"base.close()"_s), u"undefined"_s);
        QCOMPARE(clear(), QStringList());
    }

    void ALineThatWasCutOffNamesNoSite() {
        QVERIFY(QDir().mkpath(m_folder.path() + u"/engine"_s));
        QFile file(m_folder.path() + u"/engine/origins.txt"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("https://whole.example\nhttps://cut.exa");
        file.close();
        Run run(m_folder.path());
        QCOMPARE(run.Sites(), QStringList{u"whole.example"_s});
        QVERIFY(run.Show(One()));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), "https://whole.example\nhttp://127.0.0.1:" +
                                     QByteArray::number(m_server.serverPort()) + '\n');
    }

    void AllOfThemAreCleared() {
        {
            Run run(m_folder.path());
            for (const QString& site : {One(), Other()}) {
                QVERIFY(run.Show(site));
                QCOMPARE(run.Value(Store()), u"stored"_s);
            }
            QSignalSpy cleared(&run.profile.Sites(), &SiteData::Cleared);
            run.profile.Sites().Load();
            QTRY_COMPARE(run.profile.Sites().Sites().value(1).cookies, 1);
            run.profile.Sites().ClearAll();
            QVERIFY(cleared.wait());
            for (const QString& site : {One(), Other()}) {
                QVERIFY(run.Show(QString(site).replace(u"page"_s, u"bare"_s)));
                QCOMPARE(run.Value(Count()), u"0 0 0 0"_s);
            }
            // A login after that is a new one.
            QVERIFY(run.Show(One()));
        }
        Run run(m_folder.path());
        QVERIFY(run.Show(One().replace(u"page"_s, u"bare"_s)));
        QCOMPARE(run.Value(Count()), u"who=you 0 0 0 0"_s);
        QCOMPARE(run.Value(Workers()), u"0"_s);
        QVERIFY(run.Show(Other().replace(u"page"_s, u"bare"_s)));
        QCOMPARE(run.Value(Count()), u"0 0 0 0"_s);
        QCOMPARE(run.Value(Workers()), u"0"_s);
    }

    void TooManyTextsAreClearedAtTheStart() {
        const QString texts = m_folder.path() + u"/engine/Local Storage/leveldb"_s;
        QVERIFY(QDir().mkpath(texts));
        QFile file(texts + u"/000003.log"_s);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.resize(249'000'000));
        SiteData::ClearWhatIsDue(m_folder.path() + u"/engine"_s);
        QVERIFY(file.exists());
        QVERIFY(file.resize(251'000'000));
        file.close();
        SiteData::ClearWhatIsDue(m_folder.path() + u"/engine"_s);
        QVERIFY(!file.exists());
    }

    void CookiesAcrossSitesAreAMatterOfTheUser_data() {
        QTest::addColumn<QString>("allowed");
        QTest::addColumn<bool>("isSent");
        QTest::newRow("nobody") << u""_s << false;
        QTest::newRow("who is called in") << u"localhost"_s << true;
        QTest::newRow("who calls in") << u"127.0.0.1"_s << true;
        QTest::newRow("somebody else") << u"example.com"_s << false;
    }
    void CookiesAcrossSitesAreAMatterOfTheUser() {
        QFETCH(const QString, allowed);
        QFETCH(const bool, isSent);
        // The engine takes the two for one site unless one of them is secure; this machine is.
        CannedPage tracker{"x", {}, 200, "text/javascript"};
        tracker.headers << "Set-Cookie: seen=1; Path=/; SameSite=None; Secure";
        m_server.Serve(u"/track"_s, tracker);
        const QByteArray address =
            "http://localhost:" + QByteArray::number(m_server.serverPort()) + "/track";
        m_server.Serve(u"/visit"_s, "<script>const get = n => new Promise(done => {"
                                    "  const script = document.createElement('script');"
                                    "  script.src = '" +
                                        address +
                                        "?' + n; script.onload = done;"
                                        "  document.documentElement.append(script) });"
                                        "get(1).then(() => get(2))</script>");
        QByteArray head;
        const auto note =
            connect(&m_server, &LoopbackServer::Requested, this, [&](const QString& request) {
                if (request == u"GET /track?2")
                    head = m_server.LastHead();
            });
        Run run(m_folder.path());
        if (!allowed.isEmpty())
            run.profile.LetCrossSites({allowed.toStdString()});
        QVERIFY(run.Show(m_server.Address(u"/visit"_s)));
        QTRY_VERIFY(!head.isEmpty());
        QCOMPARE(head.contains("Cookie: seen=1"), isSent);
        disconnect(note);
    }
};

TALLOWMERE_WEB_TEST_MAIN(SiteDataTest)
#include "SiteDataTest.moc"
