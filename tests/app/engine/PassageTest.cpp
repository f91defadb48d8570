#include "app/base/WebAccess.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/EngineProfile.h"
#include "app/engine/PaneNotice.h"
#include "app/engine/PanePage.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/PaintedPage.h"
#include "support/TestPrompts.h"
#include "support/WebTest.h"

#include <QDesktopServices>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWebEngineView>

#include <functional>

using namespace tallowmere;
using namespace Qt::StringLiterals;

/// Where pages, frames, windows, forms and scripts may lead: through the real engine, with the
/// desktop's hands caught in the act.
class PassageTest : public QObject {
    Q_OBJECT
public Q_SLOTS:
    void OpenOnDesktop(const QUrl& url) { m_onDesktop << url.toString(); }

private:
    struct Bench {
        Bench() {
            pane.resize(400, 300);
            pane.show();
        }
        bool Show(LoopbackServer& server, const QByteArray& body) {
            server.Serve(u"/page"_s,
                         "<!doctype html><body style='margin:0'>"
                         "<p style='position:fixed;bottom:0'>a page without anything to see "
                         "takes no clicks</p>" +
                             body);
            pane.Navigate(server.Address(u"/page"_s));
            return Await([this] { return !pane.Busy(); });
        }
        void Click() {
            auto* view = pane.findChild<QWebEngineView*>();
            [[maybe_unused]] const bool isPainted = view->isVisible() && AwaitPaint(*view->page());
            QTest::mouseClick(view->focusProxy(), Qt::LeftButton, {}, {100, 100});
        }
        bool IsRefused() { return pane.findChild<PaneNotice*>()->isVisible(); }

        TestPrompts prompts;
        QTemporaryDir folder;
        WebAccess access{WebMode::Direct};
        EngineProfile profile{folder.path() + u"/engine"_s, folder.path(), access, prompts};
        BrowserPane pane{profile, prompts};
    };

    static QByteArray Link(const QByteArray& address, const QByteArray& more = {}) {
        return "<a href='" + address + "' " + more + " style='display:block;height:300px'>x</a>";
    }
    /// Every way in which a page can go elsewhere after a click into it, but a link's mail.
    static QByteArrayList Ways(const QByteArray& address) {
        const QByteArray html = "<body onclick=\"location=`" + address + "`\" style=height:300px>";
        // Where a script is turned away without a word the page tells that it has tried.
        const QByteArray over = "setTimeout(() => { new Image().src = `/over` }, 200)";
        return {Link(address),
                Link(address, "target=_blank"),
                "<iframe srcdoc='" + Link(address).replace('\'', '"') +
                    "' style='border:0;height:300px'></iframe>",
                "<iframe srcdoc='" + html + "' style='border:0;height:300px'></iframe>",
                "<div onclick=\"location='" + address + "'\" style='height:300px'>",
                "<div onclick=\"window.open('" + address + "');" + over +
                    "\" style='height:300px'>",
                "<form action='" + address +
                    "'><button style='height:300px;width:400px'>x</button></form>",
                "<iframe id=f hidden></iframe><div onclick=\"f.src='" + address + "';" + over +
                    "\" style='height:300px'>"};
    }

    QStringList m_onDesktop;
    LoopbackServer m_server;

private Q_SLOTS:
    void init() {
        m_onDesktop.clear();
        m_server.Clear();
        for (const char* scheme : {"mailto", "smb", "x", "tel", "file", "ftp"})
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "OpenOnDesktop");
    }
    void cleanup() {
        for (const char* scheme : {"mailto", "smb", "x", "tel", "file", "ftp"})
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }

    void NoClickHandsAForeignAddressToTheDesktop_data() {
        QTest::addColumn<QByteArray>("body");
        for (const char* address : {"smb://server/share", "x:y"}) {
            int way = 0;
            for (const QByteArray& body : Ways(address))
                QTest::addRow("%s %d", address, way++) << body;
        }
    }
    void NoClickHandsAForeignAddressToTheDesktop() {
        QFETCH(const QByteArray, body);
        Bench bench;
        QSignalSpy status(&bench.pane, &BrowserPane::StatusTextChange);
        QVERIFY(bench.Show(m_server, body));
        status.clear();
        // It is refused in words: over the page, or in the status line where a frame wanted it. A
        // click that comes before the page is drawn has no effect.
        const auto isRefused = [&] {
            return bench.IsRefused() || m_server.CountOf(u"/over"_s) > 0 ||
                   std::any_of(status.cbegin(), status.cend(), [](const auto& s) {
                       return s.first().toString().startsWith(u"Not opened: ");
                   });
        };
        for (int click = 0; click < 10 && !isRefused(); ++click) {
            bench.Click();
            [[maybe_unused]] const bool soon = Await(isRefused, std::chrono::seconds(1));
        }
        QVERIFY(isRefused());
        QVERIFY2(m_onDesktop.isEmpty(), qPrintable(m_onDesktop.join(u' ')));
        QVERIFY(bench.prompts.messages.isEmpty());
    }

    void AMailIsAQuestionThatShowsAllOfIt() {
        Bench bench;
        QSignalSpy mail(&bench.profile, &EngineProfile::MailWanted);
        QVERIFY(
            bench.Show(m_server, Link("mailto:a@x.test,b@y.test?subject=Hello%20you&amp;body=one"
                                      "%0D%0Atwo&amp;attach=/etc/passwd&amp;cc=c@z.test")));
        bench.Click();
        QTRY_COMPARE(bench.prompts.messages.size(), 1);
        const QString& question = bench.prompts.messages[0];
        QVERIFY2(question.endsWith(u"To: a@x.test,b@y.test\nCc: c@z.test\nSubject: Hello you\n\n"
                                   "one\ntwo"),
                 qPrintable(question));
        QVERIFY(question.contains(u"127.0.0.1"));
        QVERIFY(!question.contains(u"passwd"));
        QCOMPARE(mail.size(), 0); // the answer was no

        bench.prompts.answers << true;
        bench.Click();
        QTRY_COMPARE(mail.size(), 1);
        QCOMPARE(mail[0][0].toString(), u"mailto:a@x.test,b@y.test?cc=c@z.test&subject="
                                        "Hello%20you&body=one%0D%0Atwo"_s);
        QVERIFY(m_onDesktop.isEmpty());
        QVERIFY(!bench.IsRefused());
    }

    /// Clicks until `condition` holds: a click that comes before the page is drawn has no effect.
    static bool ClickUntil(Bench& bench, const std::function<bool()>& condition) {
        for (int click = 0; click < 10 && !condition(); ++click) {
            bench.Click();
            [[maybe_unused]] const bool soon = Await(condition, std::chrono::seconds(1));
        }
        return condition();
    }

    void AMailLinkThatIsClickedAsksWhereverItStands_data() {
        QTest::addColumn<QByteArray>("body");
        const QByteArray link = Link("mailto:a@x.test?subject=s");
        const QByteArray other =
            "http://localhost:" + QByteArray::number(m_server.serverPort()) + "/frame";
        QTest::newRow("page") << link;
        QTest::newRow("window") << Link("mailto:a@x.test?subject=s", "target=_blank");
        QTest::newRow("text in a link") << QByteArray(link).replace(">x<", "><b>x</b><");
        QTest::newRow("frame") << "<iframe srcdoc='" + QByteArray(link).replace('\'', '"') +
                                      "' style='border:0;height:300px'></iframe>";
        QTest::newRow("frame of another site")
            << "<iframe src='" + other + "' style='border:0;height:300px'></iframe>";
        QTest::newRow("frame that opens a window")
            << "<iframe src='" + other + "?blank' style='border:0;height:300px'></iframe>";
    }
    void AMailLinkThatIsClickedAsksWhereverItStands() {
        QFETCH(const QByteArray, body);
        m_server.Serve(u"/frame"_s, "<!doctype html><body style='margin:0'>" +
                                        Link("mailto:a@x.test?subject=s"));
        m_server.Serve(u"/frame?blank"_s, "<!doctype html><body style='margin:0'>" +
                                              Link("mailto:a@x.test?subject=s", "target=_blank"));
        Bench bench;
        QSignalSpy mail(&bench.profile, &EngineProfile::MailWanted);
        bench.prompts.answers << true;
        QVERIFY(bench.Show(m_server, body));
        QVERIFY(ClickUntil(bench, [&] { return !bench.prompts.messages.isEmpty(); }));
        QVERIFY(bench.prompts.messages[0].endsWith(u"To: a@x.test\nSubject: s"));
        QTRY_COMPARE(mail.size(), 1);
        QCOMPARE(mail[0][0].toString(), u"mailto:a@x.test?subject=s"_s);
        QVERIFY(m_onDesktop.isEmpty());
        QVERIFY(!bench.IsRefused());
    }

    void AClickElsewhereBeginsNoMail_data() {
        QTest::addColumn<QByteArray>("body");
        // After a real click, which the page sees, it tries what a link would do.
        const auto whenClicked = [](const QByteArray& script) {
            return "<a id=l href='mailto:a@x.test'></a><div style='height:300px' onclick=\"" +
                   script + "; setTimeout(() => { new Image().src = '/over' }, 300)\">x</div>";
        };
        const QByteArrayList scripts = {
            "l.click()", "location = 'mailto:a@x.test'", "open('mailto:a@x.test')",
            "l.dispatchEvent(new MouseEvent('click', {bubbles: true, cancelable: true}))",
            "console.log('mailto:a@x.test'); l.click()"};
        for (const QByteArray& script : scripts) {
            const QByteArray body = whenClicked(script);
            QTest::addRow("page: %s", script.constData()) << body;
            QTest::addRow("frame: %s", script.constData())
                << "<iframe srcdoc='" +
                       QByteArray(body).replace('&', "&amp;").replace('\'', "&apos;") +
                       "' style='border:0;height:300px'></iframe>";
        }
        // Another address than that of the link that was clicked.
        QTest::newRow("link") << Link("mailto:b@x.test",
                                      "onclick=\"event.preventDefault(); location = "
                                      "`mailto:a@x.test`; setTimeout(() => { new Image().src = "
                                      "`/over` }, 300)\"");
    }
    void AClickElsewhereBeginsNoMail() {
        QFETCH(const QByteArray, body);
        Bench bench;
        QSignalSpy mail(&bench.profile, &EngineProfile::MailWanted);
        QVERIFY(bench.Show(m_server, body));
        const auto isOver = [&] { return m_server.CountOf(u"/over"_s) > 0 || bench.IsRefused(); };
        QVERIFY(ClickUntil(bench, isOver));
        QVERIFY2(bench.prompts.messages.isEmpty(), qPrintable(bench.prompts.messages.join(u'\n')));
        QCOMPARE(mail.size(), 0);
        QVERIFY(m_onDesktop.isEmpty());
    }

    void AMailThatNobodyClickedIsRefused_data() {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("script") << QByteArray("<script>location = 'mailto:a@x.test'</script>");
        QTest::newRow("scripted click")
            << QByteArray("<a id=l href='mailto:a@x.test'>x</a><script>l.click()</script>");
        QTest::newRow("refresh") << QByteArray(
            "<meta http-equiv=refresh content='0;url=mailto:a@x.test'>");
        QTest::newRow("frame") << QByteArray("<iframe src='mailto:a@x.test'></iframe>");
        QTest::newRow("form") << QByteArray(
            "<form id=f action='mailto:a@x.test' method=post></form><script>f.submit()</script>");
        QTest::newRow("window") << QByteArray("<script>open('mailto:a@x.test')</script>");
    }
    void AMailThatNobodyClickedIsRefused() {
        QFETCH(const QByteArray, body);
        Bench bench;
        QSignalSpy mail(&bench.profile, &EngineProfile::MailWanted);
        QVERIFY(bench.Show(m_server, "<script>setTimeout(() => { new Image().src = '/seen' }, 300)"
                                     "</script>" +
                                         body));
        QTRY_COMPARE(m_server.CountOf(u"/seen"_s), 1);
        m_server.Clear();
        QVERIFY(m_onDesktop.isEmpty());
        QVERIFY(bench.prompts.messages.isEmpty());
        QCOMPARE(mail.size(), 0);
    }
};

TALLOWMERE_WEB_TEST_MAIN(PassageTest)
#include "PassageTest.moc"
