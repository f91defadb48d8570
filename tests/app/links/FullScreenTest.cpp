#include "app/links/FullScreen.h"

#include "app/engine/BrowserPane.h"
#include "app/forms/FullScreenHint.h"
#include "app/forms/TabRow.h"
#include "app/links/PaneDeck.h"
#include "app/links/PaneTabs.h"
#include "support/LoopbackServer.h"
#include "support/PaintedPage.h"
#include "support/PaneBench.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QMenuBar>
#include <QSignalSpy>
#include <QWebEngineFullScreenRequest>

#include <csignal>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A page that asks for the screen when it is clicked, and says in its title how it stands.
constexpr auto kAsking =
    "<title>asking</title><body style='margin:0;height:600px;background:#123'>click<script>"
    "const ask = () => document.documentElement.requestFullscreen()"
    ".catch(() => document.title = 'refused');"
    "document.onfullscreenchange = () =>"
    " document.title = document.fullscreenElement ? 'filling' : 'small';"
    "document.onclick = () => { document.title = 'clicked'; ask() };";

struct Bench {
    explicit Bench(const QByteArray& more = {}) : session(server.Address({}), WebMode::Direct) {
        server.Serve(u"/asking"_s, kAsking + more + "</script>");
        server.Serve(u"/other"_s, "<title>other</title>");
        session.Store("First", "OK");
        session.Store("Stocks1", "MSFT|");
        session.Store("DefaultWeb", ("A" + FromQt(server.Address(u"/asking"_s))).c_str());
    }
    void Start() {
        session.Start();
        Form().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&Form()));
        QTRY_VERIFY(!Form().Web->Title().isEmpty());
        QTRY_VERIFY(!Form().Web->Busy());
    }
    frmMain& Form() { return session.Form(); }
    FullScreen& Screen() { return *session->Controllers().links.fullScreen; }
    PaneTabs& Tabs() { return *session->Controllers().links.tabs; }
    FullScreenHint* Hint() { return Form().findChild<FullScreenHint*>(); }
    QString Words() { return Form().findChild<QLabel*>(u"FullScreenWords"_s)->text(); }
    QWebEngineView* View() { return Form().Web->findChild<QWebEngineView*>(); }
    void Press(Qt::Key key) { QTest::keyClick(Form().windowHandle(), key); }
    void ClickPage() {
        QVERIFY(AwaitPaint(*View()->page()));
        QTest::mouseClick(View()->focusProxy(), Qt::LeftButton, {}, {100, 200});
    }
    void Fill() {
        ClickPage();
        QTRY_VERIFY(Screen().IsOn());
        QTRY_COMPARE(Form().Web->Title(), u"filling"_s);
    }

    void WaitUntilHintGoes() {
        QTimer& seconds = Hint()->Seconds;
        const int usual = seconds.interval();
        seconds.start(0);
        QTRY_VERIFY(!Hint()->isVisible());
        seconds.setInterval(usual);
    }

    LoopbackServer server;
    TestSession session;
};

/// What the layout of the window is, as far as it can be seen.
QStringList Seen(frmMain& form) {
    QStringList seen;
    for (const QWidget* widget : form.findChildren<QWidget*>()) {
        // What the engine makes for itself, and the hint, are no part of it.
        if (widget->objectName().isEmpty() || !widget->isVisible() || widget->window() != &form)
            continue;
        const QRect place(widget->mapTo(&form, QPoint()), widget->size());
        seen << u"%1 %2 %3 %4 %5"_s.arg(widget->objectName())
                    .arg(place.x())
                    .arg(place.y())
                    .arg(place.width())
                    .arg(place.height());
    }
    seen.sort();
    return seen;
}

} // namespace

class FullScreenTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheKeyShowsThePageAloneAndEveryWayBackLeadsToWhatWasBefore_data() {
        QTest::addColumn<int>("way");
        QTest::newRow("the key") << 0;
        QTest::newRow("Escape") << 1;
        QTest::newRow("the button") << 2;
        QTest::newRow("the desktop") << 3;
    }
    void TheKeyShowsThePageAloneAndEveryWayBackLeadsToWhatWasBefore() {
        QFETCH(const int, way);
        Bench bench;
        bench.Start();
        frmMain& form = bench.Form();
        form.txtStock->setFocus();
        const QStringList before = Seen(form);
        const QRect place = form.geometry();
        bench.Press(Qt::Key_F11);
        QTRY_VERIFY(form.isFullScreen());
        QVERIFY(bench.Screen().IsOn());
        for (const QWidget* widget : std::initializer_list<QWidget*>{
                 form.fraTop, form.fraLeft, form.fraRight, form.txtStock, form.List1, form.SpooBar,
                 form.WebStatus, form.lblPort, form.menuBar()})
            QVERIFY2(!widget->isVisible(), qPrintable(widget->objectName()));
        QTRY_COMPARE(form.Web->size(), form.size());
        QCOMPARE(form.Web->mapTo(&form, QPoint()), QPoint());
        QVERIFY(bench.Hint()->isVisible());
        QCOMPARE(bench.Words(), u"Full screen: F11 or Esc goes back."_s);
        // It lies above the page.
        const QPoint middle = bench.Hint()->geometry().center();
        const QWidget* top = form.centralWidget()->childAt(middle);
        QVERIFY(top == bench.Hint() || bench.Hint()->isAncestorOf(top));
        switch (way) {
        case 0:
            bench.Press(Qt::Key_F11);
            break;
        case 1:
            bench.Press(Qt::Key_Escape);
            break;
        case 2:
            QTest::mouseClick(form.findChild<QPushButton*>(u"LeaveFullScreen"_s), Qt::LeftButton);
            break;
        default:
            form.setWindowState(Qt::WindowNoState);
            break;
        }
        QTRY_VERIFY(!bench.Screen().IsOn());
        QTRY_COMPARE(form.geometry(), place);
        QTRY_COMPARE(Seen(form), before);
        QVERIFY(!form.isFullScreen());
        QVERIFY(form.focusWidget() == form.txtStock);
    }

    void WhatComesAndGoesMeanwhileIsThereAfterwards() {
        Bench bench;
        bench.Start();
        bench.Press(Qt::Key_F11);
        bench.Tabs().Open(bench.server.Address(u"/other"_s), true);
        BrowserPane* tab = bench.Form().FurtherPanes().value(0);
        QVERIFY(tab->isVisible());
        QVERIFY(!bench.Form().tabRow->isVisible());
        QCOMPARE(tab->size(), bench.Form().centralWidget()->size());
        const QPoint middle = bench.Hint()->geometry().center();
        QVERIFY(!tab->isAncestorOf(bench.Form().centralWidget()->childAt(middle)));
        bench.Press(Qt::Key_Escape);
        QVERIFY(bench.Form().tabRow->isVisible());
        QCOMPARE(tab->geometry(), bench.Form().Web->geometry());
        QVERIFY(tab->y() >= bench.Form().tabRow->geometry().bottom());
    }

    void EscapeBelongsToTheSearchBarWhileItIsTypedInto() {
        Bench bench;
        bench.Start();
        bench.Press(Qt::Key_F11);
        bench.Form().Web->Find();
        QTRY_VERIFY(bench.Form().Web->IsFinding());
        bench.Press(Qt::Key_Escape);
        QVERIFY(bench.Screen().IsOn());
        QVERIFY(!bench.Form().Web->IsFinding());
        bench.Press(Qt::Key_Escape);
        QVERIFY(!bench.Screen().IsOn());
    }

    void NothingOfItIsKept() {
        Bench bench;
        bench.Start();
        bench.Form().setGeometry(60, 70, 900, 640);
        const QRect before(bench.Form().pos(), bench.Form().size());
        bench.Press(Qt::Key_F11);
        QTRY_VERIFY(bench.Form().width() != 900 || bench.Form().height() != 640);
        bench.Form().close();
        const auto kept = [&](const char* key) {
            return std::stoi(bench.session.Settings().GetSetting("frmMain", key, "-1")) / 15;
        };
        QCOMPARE(QRect(kept("Left"), kept("Top"), kept("Width"), kept("Height")), before);
    }

    void APageFillsTheScreenAfterAClickAndTheUserEndsIt_data() {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("Escape") << Qt::Key_Escape;
        QTest::newRow("F11") << Qt::Key_F11;
    }
    void APageFillsTheScreenAfterAClickAndTheUserEndsIt() {
        QFETCH(const Qt::Key, key);
        // It takes every key and asks again whenever it is made smaller.
        Bench bench("addEventListener('keydown', e => e.preventDefault(), true);"
                    "addEventListener('fullscreenchange', () => {"
                    " if (!document.fullscreenElement) setTimeout(ask) }, true);");
        bench.Start();
        bench.Fill();
        QVERIFY(bench.Form().isFullScreen());
        QCOMPARE(bench.Words(), u"127.0.0.1 fills the screen: F11 or Esc goes back."_s);
        QCOMPARE(bench.Form().findChild<QLabel*>(u"FullScreenWords"_s)->textFormat(),
                 Qt::PlainText);
        QVERIFY(bench.Hint()->isVisible());
        QTRY_COMPARE(bench.View()->size(), bench.Form().size());
        // The engine would let it ask once more for this; but that was before the user left.
        QTest::keyClick(bench.View()->focusProxy(), Qt::Key_A);
        int wishes = 0;
        connect(bench.View()->page(), &QWebEnginePage::fullScreenRequested, this,
                [&](const QWebEngineFullScreenRequest& request) { wishes += request.toggleOn(); });
        bench.Press(key);
        QVERIFY(!bench.Screen().IsOn());
        QVERIFY(!bench.Form().isFullScreen());
        QTRY_COMPARE(wishes, 1);
        QTRY_COMPARE(bench.Form().Web->Title(), u"small"_s);
        QVERIFY(!bench.Screen().IsOn());
    }

    void APageThatNobodyClickedDoesNotFillTheScreen() {
        Bench bench("addEventListener('load', ask);");
        bench.Start();
        QTRY_COMPARE(bench.Form().Web->Title(), u"refused"_s);
        QVERIFY(!bench.Screen().IsOn());
        QVERIFY(!bench.Form().isFullScreen());
    }

    void APageElsewhereDoesNotFillTheScreen() {
        PaneBench bench;
        bench.server.Serve(u"/asking"_s, QByteArray(kAsking) + "</script>");
        QVERIFY(bench.Show(bench.server.Address(u"/asking"_s)));
        QSignalSpy wishes(bench.Page(), &QWebEnginePage::fullScreenRequested);
        bench.ClickPage();
        QTRY_COMPARE(wishes.size(), 1);
        QCOMPARE(bench.Run(u"document.title + !!document.fullscreenElement"_s).toString(),
                 u"clickedfalse"_s);
    }

    void TheHintComesBackWithThePointer() {
        Bench bench;
        bench.Start();
        bench.Fill();
        bench.WaitUntilHintGoes();
        QTest::mouseMove(bench.Form().windowHandle(), {300, 400});
        QTRY_VERIFY(bench.Hint()->isVisible());
        bench.Press(Qt::Key_Escape);
        QVERIFY(!bench.Hint()->isVisible());
        // Where the user chose it, only at the upper edge: one reads there.
        bench.Press(Qt::Key_F11);
        bench.WaitUntilHintGoes();
        QTest::mouseMove(bench.Form().windowHandle(), {310, 410});
        QVERIFY(!bench.Hint()->isVisible());
        QTest::mouseMove(bench.Form().windowHandle(), {310, 1});
        QTRY_VERIFY(bench.Hint()->isVisible());
    }

    void LeavingThePageLeaves_data() {
        QTest::addColumn<int>("way");
        QTest::newRow("another address") << 0;
        QTest::newRow("another tab") << 1;
        QTest::newRow("the page ends it") << 2;
        QTest::newRow("its process ends") << 3;
    }
    void LeavingThePageLeaves() {
        QFETCH(const int, way);
        Bench bench;
        bench.Start();
        const QStringList before = Seen(bench.Form());
        bench.Fill();
        switch (way) {
        case 0:
            bench.Form().Web->Navigate(bench.server.Address(u"/other"_s));
            break;
        case 1:
            bench.Tabs().Open(bench.server.Address(u"/other"_s), true);
            break;
        case 2:
            bench.View()->page()->runJavaScript(u"document.exitFullscreen()"_s);
            break;
        default:
            ::kill(static_cast<pid_t>(bench.View()->page()->renderProcessPid()), SIGKILL);
            break;
        }
        QTRY_VERIFY(!bench.Screen().IsOn());
        QVERIFY(!bench.Form().isFullScreen());
        if (way == 2)
            QTRY_COMPARE(Seen(bench.Form()), before);
    }

    void APageThatEndsItLeavesTheUsersOwnFullScreen() {
        Bench bench;
        bench.Start();
        bench.Press(Qt::Key_F11);
        bench.Fill();
        QVERIFY(bench.Words().startsWith(u"127.0.0.1"_s));
        bench.View()->page()->runJavaScript(u"document.exitFullscreen()"_s);
        QTRY_VERIFY(bench.Words().startsWith(u"Full screen"_s));
        QVERIFY(bench.Screen().IsOn());
        bench.Press(Qt::Key_Escape);
        QVERIFY(!bench.Screen().IsOn());
    }
};

TALLOWMERE_WEB_TEST_MAIN(FullScreenTest)
#include "FullScreenTest.moc"
