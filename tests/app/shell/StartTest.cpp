#include "app/base/modMain.h"
#include "app/engine/BrowserPane.h"
#include "app/market/ActiveEdges.h"
#include "app/market/ClubLogin.h"
#include "app/market/IndexStrip.h"
#include "app/market/TickerStrip.h"
#include "app/portfolio/Portfolios.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QLabel>
#include <QTimer>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class StartTest : public QObject {
    Q_OBJECT
private:
    static QString IndexPage() { return u"h.example/q?s=^nya+^spc+^oex+^tyx+^dji+^ixic&d=t"_s; }

private Q_SLOTS:
    void TheWindowHasAnIconOfEverySize() {
        TestSession window;
        window.Start();
        // It is loaded behind the window and its first page.
        for (const int size : {48, 64, 128, 256})
            QTRY_VERIFY2(window.Form().windowIcon().availableSizes().contains(QSize(size, size)),
                         qPrintable(QString::number(size)));
    }

    void AFreshStoreStartsWithTheDefaults() {
        TestSession session;
        session.Start();
        frmMain& form = session.Form();
        for (int n = 1; n <= 10; ++n)
            QCOMPARE(form.menus->mnuCopyPort.items.at(static_cast<std::size_t>(n))->text(),
                     u"Portfolio #"_s + QString::number(n));
        for (int slot = 101; slot <= 170; ++slot)
            QCOMPARE(session.Link(slot)->Caption(), u"< Custom >"_s);
        QCOMPARE(session->Ports().Current(), 1);
        QVERIFY(form.menus->mnuPortOpt[3]->isChecked());
        QVERIFY(!form.lblPort->isHidden());
        QVERIFY(session->Form().ShowsToolTips());
        QVERIFY(!session->Edges().IsActive());
        QVERIFY(!session->Ticker().IsShown());
        QVERIFY(!session->UserAccounts().clubMember);
        QVERIFY(form.fraTick->isHidden());
        QTRY_COMPARE(form.Web->LocationURL(), IndexPage());
        QVERIFY(session->Strip().Timer1.isActive());
        QVERIFY(session.prompts.messages.isEmpty());
    }

    void TheStartPageOpensInItsPane_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<bool>("second");
        QTest::newRow("B") << QByteArray("Bmy.example/page") << true;
        QTest::newRow("A") << QByteArray("Amy.example/page") << false;
        QTest::newRow("any other letter") << QByteArray("xmy.example/page") << false;
    }

    void TheStartPageOpensInItsPane() {
        QFETCH(QByteArray, stored);
        QFETCH(bool, second);
        TestSession session;
        session.Store("DefaultWeb", stored.constData());
        session.Start();
        const frmMain& form = session.Form();
        QTRY_COMPARE((second ? form.WebB : form.Web)->LocationURL(), u"my.example/page"_s);
        QCOMPARE(form.Web->isHidden(), second);
        QCOMPARE(form.WebB->isHidden(), !second);
        QVERIFY((second ? form.Web : form.WebB)->LocationURL().isEmpty());
    }

    void AMemberStartsWithTheClubAndNoIndexPage() {
        TestSession session;
        session.Store("SAVersion", "True");
        session.Start();
        QVERIFY(session.Form().isVisible());
        QTRY_COMPARE(session.Link(189)->Caption(), u"Discussion Groups"_s);
        QCOMPARE(session.Form().Web->LocationURL(), u"h.example/members/"_s);
        QCOMPARE(session.asked.count(u"h.example/members/"_s), 2);
        QVERIFY(session.Form().Web->LocationURL() != IndexPage());
        QVERIFY(session.prompts.messages.isEmpty());
    }

    void AWrongClubLoginIsReportedOnceAndTheStartGoesOn() {
        TestSession session;
        session.Store("SAVersion", "True");
        session.portal = [](const std::string&, const std::string&) {
            return PortalAnswer{"text/html", "<html>401 Authorization Required</html>"};
        };
        session.Start();
        QVERIFY(session.Form().isVisible());
        QTRY_COMPARE(
            session.prompts.messages,
            QStringList{
                u"Quorvane: Sorry, your login information for Society Anonyme was incorrect. "
                "If you wish to try again, u must restart Tallowmere, otherwise uncheck the "
                "Societe Anonyme box in setup if you are not a member."_s});
        QCOMPARE(session.Link(189)->Caption(), u"Y"_s);
    }

    void AMembersStartPageComesWhenTheClubsPageIsThere() {
        TestSession session;
        session.Store("SAVersion", "True");
        session.Store("DefaultWeb", "Ah.example/mine");
        session.Start();
        QTRY_COMPARE(session.Form().Web->LocationURL(), u"h.example/mine"_s);
        QVERIFY(session.asked.indexOf(u"h.example/members/"_s) <
                session.asked.indexOf(u"h.example/mine"_s));
    }

    void AClubThatSaysNothingHoldsNothingUp() {
        LoopbackServer server;
        server.Serve(u"/members/"_s, {"<html>", CannedPage::Ending::Silent});
        TestSession session(server.Address({}), WebMode::Direct);
        session.Store("First", "OK");
        session.Store("SAVersion", "True");
        session.Store("Stocks1", "MSFT|");
        session.Store("DefaultWeb", ("A" + FromQt(server.Address(u"/mine"_s))).c_str());
        session.Start();
        // The window is there with all that it needs, while the page is still waited for.
        QVERIFY(session.Form().isVisible());
        QCOMPARE(session.Form().List1->SelectedText(), u"MSFT"_s);
        QTRY_COMPARE(server.CountOf(u"/members/"_s), 1);
        QVERIFY(session.Form().Web->Busy());
        QCOMPARE(session.Link(189)->Caption(), u"Y"_s);
        // A link that is clicked meanwhile loads, and the start page does not take its place.
        session.ClickLink(3);
        QTRY_VERIFY(session.Form().Web->LocationURL().endsWith(u"/q?s=msft&d=2b"_s));
        QTRY_COMPARE(server.CountOf(u"/members/"_s), 2);
        QCOMPARE(server.CountOf(u"/mine"_s), 0);
        QVERIFY(session.Form().Web->LocationURL().endsWith(u"/q?s=msft&d=2b"_s));
    }

    void WhatComesAfterTheClubComesWhenItIsGivenUp() {
        LoopbackServer server;
        server.Serve(u"/members/"_s, {"<html>", CannedPage::Ending::Silent});
        server.Serve(u"/mine"_s, QByteArray("<html>mine</html>"));
        TestSession session(server.Address({}), WebMode::Direct);
        session.Store("First", "OK");
        session.Store("SAVersion", "True");
        session.Store("DefaultWeb", ("A" + FromQt(server.Address(u"/mine"_s))).c_str());
        session.Start();
        QTRY_COMPARE(server.CountOf(u"/members/"_s), 1);
        // Stop is the user's way of not waiting for it.
        session.ClickLink(100);
        QTRY_COMPARE(session.Form().Web->LocationURL(), server.Address(u"/mine"_s));
        QTRY_COMPARE(server.CountOf(u"/members/"_s), 2);
        auto* club = session.Form().findChild<ClubLogin*>();
        auto* patience = club->findChild<QTimer*>();
        QVERIFY(patience->isActive());
        QVERIFY(patience->interval() <= 30000);
        patience->start(0);
        QTRY_COMPARE(session.Link(189)->Caption(), u"Discussion Groups"_s);
        // The lists of the menus use the same transfer, and come now.
        QTRY_VERIFY(!server.Requests().filter(u"newsites.html"_s).isEmpty());
    }

    void TheTickerStripMovesThePanesDown() {
        TestSession session;
        session.Start();
        QCOMPARE(session.Form().Web->y() * kTwipsPerPixel, 450);
        session.Store("WSCTick", "True");
        session.Start();
        QVERIFY(!session.Form().fraTick->isHidden());
        QCOMPARE(session.Form().Web->y(), PixelsFromTwips(1000));
        QTRY_COMPARE(session.Form().WebTick->LocationURL(), u"h.example/javaticker.html"_s);
    }

    void PortfolioLabelsFollowTheirSetting() {
        TestSession session;
        session.Store("PortLabels", "False");
        session.Start();
        QVERIFY(!session.Form().menus->mnuPortOpt[3]->isChecked());
        QVERIFY(session.Form().lblPort->isHidden());
    }

    void CustomLinksShowTheirCaptionsAndColours() {
        TestSession session;
        session.Store("CustomT101", "R&D");
        session.Store("CustomF101", "255");
        session.Store("CustomB101", "-2147483640");
        session.Start();
        QCOMPARE(session.Link(101)->Caption(), u"R&D"_s);
        QCOMPARE(session.Link(101)->Colors(), (ColorPair{255, 0x80000008}));
        QCOMPARE(session.Link(102)->Colors(), (ColorPair{0x80000008, 0xC0FFFF}));
    }

    void DamagedSettingsAreReportedOnceByNameAndTheStartGoesOn() {
        TestSession session;
        session.Store("TickerList", "many");
        session.Store("PROXY", "x");
        session.Store("Tips", "perhaps");
        session.Store("CustomF101", "red");
        session.Settings().SaveSetting("frmMain", "Width", "wide");
        session.Settings().SaveSetting("Colors", "bTE", "green");
        session.Start();
        QCOMPARE(session.prompts.messages.size(), 1);
        for (const QString& key :
             {u"TickerList"_s, u"PROXY"_s, u"Tips"_s, u"CustomF101"_s, u"Width"_s, u"bTE"_s})
            QVERIFY2(session.prompts.messages[0].contains(key), qPrintable(key));
        QCOMPARE(session->Ports().Current(), 1);
        QVERIFY(session->Form().ShowsToolTips());
        QVERIFY(session.Form().isVisible());
    }

    void ADamagedPositionLeavesTheOthersAsStored() {
        TestSession session;
        session.Settings().SaveSettings(
            "frmMain", {{"Top", "high"}, {"Left", "1500"}, {"Height", ""}, {"Width", "9000"}});
        session.Start();
        QCOMPARE(session.Form().pos(), QPoint(100, 3));
        QCOMPARE(session.Form().size(), QSize(600, 567));
        QCOMPARE(session.prompts.messages.size(), 1);
        for (const QString& key : {u"Top"_s, u"Height"_s})
            QVERIFY2(session.prompts.messages[0].contains(key), qPrintable(key));
    }

    void OnlyTheValue1SwitchesTheTransfersToTheProxy_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<bool>("switched");
        QTest::newRow("1") << QByteArray("1") << true;
        QTest::newRow("a number that rounds to 1") << QByteArray(" 1.2 ") << true;
        QTest::newRow("2") << QByteArray("2") << false;
        QTest::newRow("0") << QByteArray("0") << false;
        QTest::newRow("True") << QByteArray("True") << false;
    }

    void OnlyTheValue1SwitchesTheTransfersToTheProxy() {
        QFETCH(const QByteArray, stored);
        QFETCH(const bool, switched);
        LoopbackServer site;
        LoopbackServer proxy;
        TestSession session(site.Address({}), WebMode::Direct);
        session.Store("Firewall", qPrintable(proxy.Address({})));
        session.Store("PROXY", stored.constData());
        session.Start();
        // The lists of the menus are fetched by one of the transfer controls.
        const QString direct = u"/rr.html"_s;
        const QString throughProxy = u"http://"_s + site.Address(direct);
        QTRY_COMPARE(site.CountOf(direct) + proxy.CountOf(throughProxy), 1);
        QCOMPARE(proxy.CountOf(throughProxy), switched ? 1 : 0);
    }

    void AStoreThatCannotBeWrittenIsToldOnceAndTheStartGoesOn() {
        TestSession session;
        std::filesystem::create_directories(session.Folder() / "settings.ini" / "inside");
        session.Start();
        QCOMPARE(session.prompts.messages.size(), 1);
        QVERIFY(session.prompts.messages[0].startsWith(u"Quorvane: "_s));
        QVERIFY(session.prompts.messages[0].contains(u"settings.ini"_s));
        QCOMPARE(session.Form().List1->Items(), (QStringList{u"AOL"_s, u"YHOO"_s, u"MSFT"_s}));
        QVERIFY(session->Strip().Timer1.isActive());
        session.Form().close();
        QCOMPARE(session.prompts.messages.size(), 2);
        QVERIFY(!session.Form().isVisible());
    }

    void TheWindowComesBackWhereItWas() {
        TestSession session;
        session.Start();
        session.Form().resize(900, 640);
        session.Form().move(40, 30);
        session.Form().close();
        SettingsStore& settings = session.Settings();
        QCOMPARE(settings.GetSetting("frmMain", "Width", ""), std::to_string(900 * 15));
        QCOMPARE(settings.GetSetting("frmMain", "Height", ""), std::to_string(640 * 15));
        session.Start();
        QCOMPARE(session.Form().size(), QSize(900, 640));
        QCOMPARE(session.Form().pos(), QPoint(40, 30));
    }

    void TheDefaultSizeIs10000By8500Twips() {
        TestSession session;
        session.Start();
        QCOMPARE(session.Form().size(), QSize(667, 567));
    }

    void AMinimisedWindowKeepsItsStoredPlace() {
        TestSession session;
        session.Settings().SaveSettings("frmMain", {{"Left", "150"}, {"Width", "10500"}});
        session.Start();
        session.Form().resize(900, 640);
        session.Form().showMinimized();
        session.Form().close();
        QCOMPARE(session.Settings().GetSetting("frmMain", "Width", "none"), "10500");
        QCOMPARE(session.Settings().GetSetting("frmMain", "Left", "none"), "150");
        QCOMPARE(session.Settings().GetSetting("frmMain", "Top", "none"), "none");
        QCOMPARE(session.Stored("TickerList"), u"1"_s);
    }

    void TheWindowDoesNotGetSmallerThanItsLeastSize() {
        TestSession session;
        session.Start();
        session.Form().resize(10, 10);
        QCOMPARE(session.Form().size(), QSize(565, 134));
    }

    void OfAHugeValueOnlyTheStartIsLaidOut() {
        constexpr int kWidest = 100'000;
        const std::string huge(3'000'000, 'W');
        TestSession session;
        session.Store("First", "OK");
        for (const char* key : {"Stocks1", "PortName1", "CustomT101", "DefaultWeb", "Firewall"})
            session.Store(key, huge.c_str());
        session.Start();
        frmMain& form = session.Form();
        QCOMPARE(form.List1->Item(0).size(), qsizetype(huge.size()));
        QVERIFY(form.List1->sizeHintForColumn(0) < kWidest);
        QVERIFY(form.lblPort->sizeHint().width() < kWidest);
        QVERIFY(session.Link(101)->sizeHint().width() < kWidest);
        QVERIFY(form.menus->mnuCopyPort.menu->sizeHint().width() < kWidest);
        for (const auto* label : form.findChildren<QLabel*>())
            QVERIFY2(label->text().size() < kWidest, qPrintable(label->objectName()));
        QVERIFY(!form.grab().isNull());
    }

    void FoldedPanelsStayFoldedAfterARestart() {
        TestSession session;
        session.Start();
        const int width = session.Form().Web->width();
        session.Form().menus->foldRight->trigger();
        QVERIFY(session.Form().Web->width() > width + 100);
        session.Form().close();
        session.Start();
        QVERIFY(session.Form().Web->width() > width + 100);
        session.Form().menus->foldRight->trigger();
        QCOMPARE(session.Form().Web->width(), width);
    }
};

TALLOWMERE_WEB_TEST_MAIN(StartTest)
#include "StartTest.moc"
