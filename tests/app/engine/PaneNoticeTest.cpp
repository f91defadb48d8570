#include "app/engine/PaneNotice.h"

#include "support/PaneBench.h"
#include "support/WebTest.h"

#include <QSignalSpy>

#include <csignal>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using Ending = CannedPage::Ending;

class PaneNoticeTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void AFailedLoadSaysSoAndOffersAWayOn() {
        PaneBench bench;
        const QString address = u"nowhere.invalid/q?s=<b>"_s;
        QVERIFY(bench.Show(bench.server.Address(u"/a"_s)));
        QVERIFY(bench.Show(address));
        QVERIFY(bench.HasNotice());
        QCOMPARE(bench.NoticeText(u"NoticeText"_s), u"There is no host of this name."_s);
        QCOMPARE(bench.NoticeText(u"NoticeAddress"_s), address);
        QCOMPARE(bench.pane.LocationURL(), address);

        bench.before.clear();
        bench.isCancelling = true;
        bench.ClickNotice(u"NoticeArchive"_s);
        bench.ClickNotice(u"NoticeSearch"_s);
        QCOMPARE(bench.before,
                 (QStringList{u"https://web.archive.org/web/http://nowhere.invalid/q?s=<b>"_s,
                              u"https://duckduckgo.com/?q=nowhere.invalid"_s}));
        bench.pane.GoBack();
        QVERIFY(!bench.HasNotice());
        QCOMPARE(bench.pane.LocationURL(), bench.server.Address(u"/a"_s));
    }

    void TryAgainLoadsTheFailedAddress() {
        PaneBench bench;
        const quint16 port = bench.server.serverPort();
        bench.server.close();
        const QString address = u"127.0.0.1:"_s + QString::number(port) + u"/a"_s;
        QVERIFY(bench.Show(address));
        QVERIFY(bench.HasNotice());
        QVERIFY(bench.server.listen(QHostAddress::LocalHost, port));
        bench.ClickNotice(u"NoticeTryAgain"_s);
        QVERIFY(bench.WaitForEnd());
        QVERIFY(!bench.HasNotice());
        QCOMPARE(bench.Title(), u"a"_s);
    }

    void ThePageOfA404IsShownAndAnEmptyOneIsNamed() {
        PaneBench bench;
        QVERIFY(bench.Show(bench.server.Address(u"/missing"_s)));
        QVERIFY(!bench.HasNotice());
        QCOMPARE(bench.Run(u"document.body.innerText"_s).toString(), u"not here"_s);
        bench.server.Serve(u"/empty"_s, CannedPage{{}, Ending::Length, 503});
        QVERIFY(bench.Show(bench.server.Address(u"/empty"_s)));
        QTRY_VERIFY(bench.HasNotice());
        QVERIFY(bench.NoticeText(u"NoticeText"_s).contains(u"503"));
    }

    void WhatIsNoWebAddressIsRefused_data() {
        QTest::addColumn<QString>("address");
        for (const char* address :
             {"file:///etc/hosts", "/etc/hosts", "javascript:document.title='x'",
              "data:text/html,x", "view-source:http://127.0.0.1/", "chrome://version",
              "ftp://127.0.0.1/", "C:\\a.htm", "portal://pages/report.html", "http://",
              "http://a b/"})
            QTest::newRow(address) << QString::fromLatin1(address);
    }
    void WhatIsNoWebAddressIsRefused() {
        QFETCH(const QString, address);
        PaneBench bench;
        bench.pane.Navigate(address);
        QVERIFY(!bench.pane.Busy());
        QVERIFY(!bench.Page());
        QVERIFY(bench.HasNotice());
        QCOMPARE(bench.NoticeText(u"NoticeAddress"_s), address);
    }

    void ACrashedPageSaysSoAndRefreshBringsItBack() {
        PaneBench bench;
        QVERIFY(bench.Show(bench.server.Address(u"/a"_s)));
        ::kill(static_cast<pid_t>(bench.Page()->renderProcessPid()), SIGKILL);
        QTRY_VERIFY(bench.HasNotice());
        QCOMPARE(bench.NoticeText(u"NoticeTitle"_s), u"This page crashed"_s);
        QCOMPARE(bench.NoticeText(u"NoticeAddress"_s), bench.server.Address(u"/a"_s));
        bench.pane.Refresh();
        QTRY_COMPARE(bench.server.CountOf(u"/a"_s), 2);
        QVERIFY(bench.WaitForEnd());
        QVERIFY(!bench.HasNotice());
        QCOMPARE(bench.Run(u"document.title"_s).toString(), u"a"_s);
    }

    void ACrashDuringALoadIsSurvived() {
        PaneBench bench;
        bench.server.Serve(u"/stall"_s, CannedPage{"<title>stall</title>", Ending::Stall});
        bench.pane.Navigate(bench.server.Address(u"/stall"_s));
        QTRY_COMPARE(bench.Title(), u"stall"_s);
        ::kill(static_cast<pid_t>(bench.Page()->renderProcessPid()), SIGKILL);
        QTRY_VERIFY(bench.HasNotice());
        QVERIFY(!bench.pane.Busy());
        QCOMPARE(bench.pane.LocationURL(), bench.server.Address(u"/stall"_s));
        QVERIFY(bench.Show(bench.server.Address(u"/b"_s)));
        QVERIFY(!bench.HasNotice());
        QCOMPARE(bench.Run(u"document.title"_s).toString(), u"b"_s);
    }
};

TALLOWMERE_WEB_TEST_MAIN(PaneNoticeTest)
#include "PaneNoticeTest.moc"
