#include "app/links/PageSource.h"

#include "app/engine/BrowserPane.h"
#include "app/engine/PageReader.h"
#include "app/engine/SourcePages.h"
#include "app/links/PaneDeck.h"
#include "app/links/PaneTabs.h"
#include "core/shell/kept_pages.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QSignalSpy>
#include <QWebEnginePage>
#include <QWebEngineView>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 60000; // a long page takes its time on a busy machine

struct Bench {
    explicit Bench(const QByteArray& page) : session(server.Address({}), WebMode::Direct) {
        server.Serve(u"/first"_s, page);
        session.Store("First", "OK");
        session.Store("Stocks1", "MSFT|");
        session.Store("KeepPages", "True");
        session.Store("DefaultWeb", ("A" + FromQt(server.Address(u"/first"_s))).c_str());
    }
    void Start() {
        session.Start();
        QTRY_VERIFY_WITH_TIMEOUT(!Form().Web->LocationURL().isEmpty(), kPatience);
        QTRY_VERIFY_WITH_TIMEOUT(!Form().Web->Busy(), kPatience);
    }
    frmMain& Form() { return session.Form(); }
    PaneDeck& Deck() { return session->Panes(); }
    BrowserPane* Tab() { return Form().FurtherPanes().value(0); }
    /// Opens the source of the page in front; false when it does not come.
    bool OpenSource() {
        Form().menus->At("viewSource")->trigger();
        const std::chrono::milliseconds patience(kPatience);
        return Await([this] { return Tab() && Tab()->Title().startsWith(u"Source of "_s); },
                     patience) &&
               Await([this] { return !Tab()->Busy(); }, patience);
    }
    QString TextOf(BrowserPane& pane) {
        QString text;
        bool isThere = false;
        PageReader::ReadText(pane, [&](const QString& read) {
            text = read;
            isThere = true;
        });
        [[maybe_unused]] const bool came =
            Await([&] { return isThere; }, std::chrono::milliseconds(kPatience));
        return text;
    }

    LoopbackServer server;
    TestSession session;
};

} // namespace

class PageSourceTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheSourceStandsInATabAsPlainText() {
        Bench bench("<title>first</title><body onload=\"document.title='run'\">"
                    "<b id=x>bold</b><script>var ran = 1;</script>"
                    "<!-- a comment --><p>&lt;/pre&gt;<img src=/nothing onerror='x()'>");
        bench.Start();
        QTRY_COMPARE(bench.Form().Web->Title(), u"run"_s);
        QVERIFY(bench.OpenSource());
        QCOMPARE(bench.Deck().Front(), bench.Tab());
        QCOMPARE(bench.Tab()->Title(), u"Source of http://"_s + bench.server.Address(u"/first"_s));
        const QString text = bench.TextOf(*bench.Tab());
        for (const QString& part :
             {u"http://"_s + bench.server.Address(u"/first"_s), u"<b id=\"x\">bold</b>"_s,
              u"<script>var ran = 1;</script>"_s, u"<!-- a comment -->"_s, u"&lt;/pre&gt;"_s})
            QVERIFY2(text.contains(part), qPrintable(part));
        // Nothing of it ran or was asked for by it.
        QWebEnginePage& page = *bench.Tab()->findChild<QWebEngineView*>()->page();
        QString found;
        page.runJavaScript(u"[typeof ran, document.images.length, document.scripts.length,"
                           "document.querySelectorAll('b[id]').length].join()"_s,
                           [&](const QVariant& value) { found = value.toString(); });
        QTRY_COMPARE(found, u"undefined,0,0,0"_s);
    }

    void HostileSourcesAreShownAndNothingMore() {
        Bench bench(QByteArray("<title>first</title><body>a\0b <x <y <!-- </pre><textarea>", 57));
        bench.Start();
        QVERIFY(bench.OpenSource());
        QVERIFY(bench.TextOf(*bench.Tab()).contains(u"<textarea>"_s));
    }

    void ALongSourceIsCutAndSaysSo() {
        // In a comment it costs the page itself no layout.
        Bench bench("<title>first</title><!--" + QByteArray(8'000'000, 'a') + "-->page");
        bench.Start();
        QVERIFY(bench.OpenSource());
        const QString text = bench.TextOf(*bench.Tab());
        QVERIFY(text.contains(u"Cut after 5000000 of 80000"_s));
        QVERIFY(text.size() < 5'100'000);
    }

    void TheSourceIsFoundLoadedAgainAndNotKept() {
        Bench bench("<title>first</title>gold");
        bench.Start();
        QVERIFY(bench.OpenSource());
        const QString address = bench.Tab()->LocationURL();
        QVERIFY(bench.Tab()->HasPage());
        const QSignalSpy complete(bench.Tab(), &BrowserPane::DocumentComplete);
        bench.Tab()->Refresh();
        QTRY_COMPARE_WITH_TIMEOUT(complete.size(), 1, kPatience);
        QVERIFY(bench.TextOf(*bench.Tab()).contains(u"gold"_s));
        QCOMPARE(bench.Tab()->LocationURL(), address);
        bench.Form().close();
        const KeptPages kept = ReadKeptPages(bench.session.Settings());
        QVERIFY(kept.tabs.empty());
        QCOMPARE(kept.front, 0);
    }

    void WithoutAPageItIsSaid() {
        TestSession session;
        session.Store("First", "OK");
        session.Start();
        session.Form().Web->EndPage();
        session.Form().menus->At("viewSource")->trigger();
        QCOMPARE(session.Form().WebStatus->text(),
                 u"There is no page whose source could be shown"_s);
        QVERIFY(session.Form().FurtherPanes().isEmpty());
    }

    void PagesOfTheWebDoNotGetASource() {
        Bench bench("<title>first</title>secret");
        bench.Start();
        QVERIFY(bench.OpenSource());
        bench.server.Serve(u"/curious"_s,
                           "<title>curious</title><iframe src='portal://source/1'></iframe>"
                           "<script>fetch('portal://source/1').then(r => r.text())"
                           ".then(t => document.title = 'got ' + t,"
                           " () => document.title = 'refused')</script>");
        bench.Form().Web->Navigate(bench.server.Address(u"/curious"_s));
        QTRY_COMPARE(bench.Form().Web->Title(), u"refused"_s);
        QTRY_VERIFY(!bench.Form().Web->Busy());
        QVERIFY(!bench.TextOf(*bench.Form().Web).contains(u"secret"_s));
    }

    void OnlyTheNewestSourcesAreKept() {
        SourcePages sources;
        QList<QUrl> addresses;
        for (int n = 0; n <= SourcePages::kMost; ++n)
            addresses << sources.Keep(QByteArray::number(n));
        QVERIFY(sources.At(addresses.first()).isNull());
        for (int n = 1; n <= SourcePages::kMost; ++n)
            QCOMPARE(sources.At(addresses[n]), QByteArray::number(n));
        for (const QString& other : {u"portal://source/"_s, u"portal://source/99"_s,
                                     u"portal://source/x"_s, u"portal://help/2"_s, u"http://a/2"_s})
            QVERIFY2(sources.At(QUrl(other)).isNull(), qPrintable(other));
    }
};

TALLOWMERE_WEB_TEST_MAIN(PageSourceTest)
#include "PageSourceTest.moc"
