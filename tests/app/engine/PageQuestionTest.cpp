#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PanePage.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/PageReplies.h"
#include "support/TestPrompts.h"
#include "support/WebTest.h"

#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// Two panes on one profile: one whose page asks, and one in which the user goes on.
struct Bench {
    Bench() : pane(std::make_unique<BrowserPane>(profile, prompts)) {
        for (BrowserPane* each : {pane.get(), &other}) {
            each->resize(400, 300);
            each->show();
        }
        server.Serve(u"/other"_s, "<title>other</title>");
    }
    void Open(const QByteArray& body) {
        server.Serve(u"/page"_s, "<title>page</title><body>" + body);
        pane->Navigate(server.Address(u"/page"_s));
    }
    bool IsOpen() { return pane->findChild<PageQuestion*>()->isVisible(); }
    bool IsStopped() { return pane->findChild<PaneNotice*>()->isVisible(); }
    QString Title() { return profile.findChild<PanePage*>()->title(); }

    LoopbackServer server;
    TestPrompts prompts;
    QTemporaryDir folder;
    WebAccess access{WebMode::Direct};
    EngineProfile profile{folder.path() + u"/engine"_s, folder.path(), access, prompts};
    std::unique_ptr<BrowserPane> pane;
    BrowserPane other{profile, prompts};
};

} // namespace

/// What pages show and ask, in their own panes.
class PageQuestionTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void MessagesAndQuestionsAreShownInThePaneAsTheyAre() {
        Bench bench;
        PageReplies replies(*bench.pane);
        replies.replies = {
            {"QuestionYes", u"you"_s}, {"QuestionYes", u"you"_s}, {"QuestionYes", u"you"_s}};
        bench.Open("<script>alert('<b>hello</b>'); document.title = confirm('sure?') + ' ' +"
                   " prompt('name?', 'me')</script>");
        QTRY_COMPARE(bench.Title(), u"true you"_s);
        QTRY_COMPARE(replies.asked.size(), 3);
        for (const QString& text : {u"127.0.0.1 says: <b>hello</b>"_s, u"127.0.0.1 says: sure?"_s,
                                    u"127.0.0.1 asks: name?"_s})
            QVERIFY(replies.asked.contains(text));
        QCOMPARE(replies.offers.count(false), 1);
        QVERIFY(!bench.IsOpen());
        QVERIFY(bench.prompts.messages.isEmpty());
        QVERIFY(!QApplication::activeModalWidget());
    }

    void TheRestOfTheProgramGoesOnMeanwhile() {
        Bench bench;
        // A message holds nothing up.
        bench.Open("<script>alert('stay'); document.title = 'on'</script>");
        QTRY_VERIFY(bench.IsOpen());
        QTRY_COMPARE(bench.Title(), u"on"_s);
        bench.other.Navigate(bench.server.Address(u"/other"_s));
        QVERIFY(Await([&] { return !bench.other.Busy(); }));
        QCOMPARE(bench.server.CountOf(u"/other"_s), 1);
        QVERIFY(bench.IsOpen());
        QVERIFY(!QApplication::activeModalWidget());
    }

    void AQuestionEndsWhenAPageIsWantedElsewhere() {
        Bench bench;
        bench.Open("<script>document.title = confirm('stay')</script>");
        bool wasOpen = false;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            if (bench.IsOpen() && !std::exchange(wasOpen, true))
                bench.other.Navigate(bench.server.Address(u"/other"_s));
        });
        timer.start(2);
        QTRY_COMPARE(bench.Title(), u"false"_s);
        QTRY_COMPARE(bench.server.CountOf(u"/other"_s), 1);
        QVERIFY(Await([&] { return !bench.other.Busy(); }));
        QVERIFY(!bench.IsOpen());
    }

    void ThePaneMayBeClosedWhileItsPageAsks() {
        Bench bench;
        bench.Open("<script>confirm('stay')</script>");
        bool wasOpen = false;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            if (!bench.pane || !bench.IsOpen())
                return;
            wasOpen = true;
            bench.pane.reset();
        });
        timer.start(2);
        QVERIFY(Await([&] { return wasOpen; }));
        bench.other.Navigate(bench.server.Address(u"/other"_s));
        QVERIFY(Await([&] { return !bench.other.Busy(); }));
        QVERIFY(Await([&] { return bench.profile.findChildren<PanePage*>().size() == 1; }));
    }

    void AnotherPageMayBeOpenedWhileThePageAsks() {
        Bench bench;
        bench.Open("<script>confirm('stay'); confirm('stay'); confirm('stay')</script>");
        QTimer timer;
        bool wasOpen = false;
        connect(&timer, &QTimer::timeout, this, [&] {
            if (bench.IsOpen() && !std::exchange(wasOpen, true))
                bench.pane->Navigate(bench.server.Address(u"/other"_s));
        });
        timer.start(2);
        QTRY_COMPARE(bench.Title(), u"other"_s);
        QVERIFY(!bench.IsOpen());
        QVERIFY(!bench.IsStopped());
    }

    void TheUserMayWantNoMoreFromAPage() {
        Bench bench;
        PageReplies replies(*bench.pane);
        replies.replies = {{"QuestionYes"}, {"QuestionSilence"}};
        bench.Open(
            "<script>confirm(1); confirm(2); alert(3); document.title = confirm(4)</script>");
        QTRY_COMPARE(bench.Title(), u"false"_s);
        QCOMPARE(replies.asked.size(), 2);
        // Another page is heard again.
        bench.Open("<script>alert(5); document.title = 'heard'</script>");
        QTRY_COMPARE(bench.Title(), u"heard"_s);
        QTRY_COMPARE(replies.asked.size(), 3);
    }

    void AStormIsStoppedWithANoticeAndAWayOn_data() {
        QTest::addColumn<QByteArray>("script");
        QTest::newRow("alert") << QByteArray("for (;;) alert('again')");
        QTest::newRow("confirm") << QByteArray("while (!confirm('again')) {}");
        QTest::newRow("prompt") << QByteArray("while (!prompt('again')) {}");
    }
    void AStormIsStoppedWithANoticeAndAWayOn() {
        QFETCH(const QByteArray, script);
        Bench bench;
        PageReplies replies(*bench.pane);
        bench.Open("<script>" + script + "</script>");
        QVERIFY(Await([&] { return bench.IsStopped(); }));
        QVERIFY(replies.asked.size() <= 4);
        QVERIFY(!bench.pane->Busy());
        QVERIFY(!bench.IsOpen());
        QCOMPARE(bench.pane->findChild<QLabel*>(u"NoticeTitle"_s)->text(),
                 u"This page was stopped"_s);
        QCOMPARE(bench.pane->LocationURL(), bench.server.Address(u"/page"_s));
        // The other pane, whose page may share the process, works, and so does this one.
        bench.other.Navigate(bench.server.Address(u"/other"_s));
        QVERIFY(Await([&] { return !bench.other.Busy(); }));
        QVERIFY(!bench.other.findChild<PaneNotice*>()->isVisible());
        bench.server.Serve(u"/page"_s, "<title>calm</title>");
        QTest::mouseClick(bench.pane->findChild<QPushButton*>(u"NoticeTryAgain"_s), Qt::LeftButton);
        QTRY_COMPARE(bench.Title(), u"calm"_s);
        QVERIFY(!bench.IsStopped());
    }

    void AStormOfSignInsIsStopped() {
        Bench bench;
        PageReplies replies(*bench.pane);
        CannedPage locked{"locked", CannedPage::Ending::Length, 401};
        locked.headers << "WWW-Authenticate: Basic realm=\"again\"";
        bench.server.Serve(u"/locked"_s, locked);
        bench.Open("<script>(async () => { for (let n = 0; ; ++n) await fetch('/locked?' + n) })()"
                   "</script>");
        QVERIFY(Await([&] { return bench.IsStopped(); }));
        QCOMPARE(replies.asked.size(), 4);
        QVERIFY(replies.asked[0].contains(u"again"));
    }

    void LongTextScrollsAndThePaneIsNotLeft() {
        Bench bench;
        PageReplies replies(*bench.pane);
        QRect sheet, pane;
        int range = 0;
        bool hasButton = false;
        replies.replies = {
            {"QuestionYes", {}, {}, [&] {
                 auto* question = bench.pane->findChild<PageQuestion*>();
                 sheet = question->geometry();
                 pane = bench.pane->rect();
                 range = question->findChild<QPlainTextEdit*>()->verticalScrollBar()->maximum();
                 auto* button = question->findChild<QPushButton*>(u"QuestionYes"_s);
                 hasButton = Await([&] { return !button->visibleRegion().isEmpty(); },
                                   std::chrono::seconds(3));
                 bench.pane->resize(100, 40);
                 pane = pane.united(question->geometry());
                 bench.pane->resize(400, 300);
             }}};
        bench.Open("<script>alert('a line of a long text '.repeat(100000));"
                   "document.title = 'read'</script>");
        QTRY_COMPARE(bench.Title(), u"read"_s);
        QVERIFY(range > 0);
        QVERIFY(hasButton);
        QCOMPARE(pane, QRect(0, 0, 400, 300));
        QVERIFY(pane.contains(sheet));
    }

    void AWishWaitsForItsAnswerWithoutStoppingThePage() {
        Bench bench;
        bench.Open(
            "<script>Notification.requestPermission().then(a => document.title = a)</script>");
        QTRY_VERIFY(bench.IsOpen());
        QTRY_COMPARE(bench.Title(), u"page"_s);
        QTest::mouseClick(bench.pane->findChild<QPushButton*>(u"QuestionYes"_s), Qt::LeftButton);
        QTRY_COMPARE(bench.Title(), u"granted"_s);
    }
};

TALLOWMERE_WEB_TEST_MAIN(PageQuestionTest)
#include "PageQuestionTest.moc"
