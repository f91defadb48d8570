#include "app/engine/BrowserPane.h"
#include "app/market/ActiveEdges.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/QuotePage.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;

class QuoteMenusTest : public QObject {
    Q_OBJECT
private:
    /// A session with tickers in portfolios 1 and 3 whose main pane only records where it is sent.
    class Menus : public TestSession {
    public:
        QStringList opened;

        Menus() {
            Store("First", "OK");
            Store("Stocks1", "AOL|YHOO|");
            Store("Stocks3", "IBM|");
            Start();
            connect(Form().Web, &BrowserPane::BeforeNavigate2, Form().Web,
                    [this](const QString& address, bool* cancel) {
                        opened << address;
                        *cancel = true;
                    });
        }
        QMenu* Menu(const char* name) { return Form().findChild<QMenu*>(Latin(name)); }
        QAction* Item(const char* name) { return Form().findChild<QAction*>(Latin(name)); }
        const PortfolioView& View() { return (*this)->Quotes().View(); }

        static QString Latin(const char* name) { return QString::fromLatin1(name); }
    };

    static QStringList Captions(const QMenu* menu) {
        QStringList captions;
        for (const QAction* item : menu->actions())
            captions << item->text();
        return captions;
    }

private Q_SLOTS:
    void TheMenusBearTheirCaptions() {
        Menus session;
        QCOMPARE(Captions(session.Menu("mnuPort")),
                 (QStringList{u"ALL Portfolios"_s, u"Basic"_s, u"1-Day Charts"_s, u"5-Day Charts"_s,
                              u"1-Year Charts"_s, u"Lycos"_s, u"MSN Combined Chart"_s,
                              u"Quicken Combined Chart"_s, u"News"_s, u"Fundamentals"_s,
                              u"Comparison"_s, u"Company Info"_s, u"Analyst Estimates"_s,
                              u"Analyst Research"_s, u"Evaluator"_s, u"Condensed (1-day)"_s,
                              u"Condensed (5-day)"_s, u"Condensed (1-year)"_s}));
        QCOMPARE(
            Captions(session.Menu("mnuQAll")),
            (QStringList{u"Basic"_s, u"1-Day Charts"_s, u"5-Day Charts"_s, u"1-Year Charts"_s,
                         u"Condensed (1-day)"_s, u"Condensed (5-day)"_s, u"Condensed (1-year)"_s}));
        QCOMPARE(session.Item("mnuPort1")->menu(), session.Menu("mnuQAll"));
        QVERIFY(Captions(session.Form().menus->portfolioMenu).contains(u"Query Portfolio"_s));
    }

    void TheLinkPopsTheMenuUpAndLoadsNothingByItself() {
        Menus session;
        session.ClickLink(27);
        QMenu* menu = session.Menu("mnuPort");
        QVERIFY(menu->isVisible());
        QVERIFY(session->Edges().IsHeld());
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(!menu->isVisible());
        QVERIFY(!session->Edges().IsHeld());
        QCOMPARE(session.opened, QStringList());
    }

    void AViewOfTheCurrentPortfolioIsLoaded_data() {
        QTest::addColumn<QByteArray>("item");
        QTest::addColumn<QString>("view");
        QTest::newRow("basic") << QByteArray("mnuPort2") << QString();
        QTest::newRow("1-day") << QByteArray("mnuPort3") << u"1b"_s;
        QTest::newRow("5-day") << QByteArray("mnuPort4") << u"2b"_s;
        QTest::newRow("1-year") << QByteArray("mnuPort5") << u"0b"_s;
    }
    void AViewOfTheCurrentPortfolioIsLoaded() {
        QFETCH(QByteArray, item);
        QFETCH(QString, view);
        Menus session;
        session.ClickLink(27);
        QMenu* menu = session.Menu("mnuPort");
        menu->setActiveAction(session.Item(item.constData()));
        QTest::keyClick(menu, Qt::Key_Return);
        QVERIFY(!menu->isVisible());
        QCOMPARE(session.opened, QStringList{u"h.example/quotes?symbols=aol+yhoo&d="_s + view});
        QCOMPARE(ToQt(session.View().pendingView), view);
        QVERIFY(!session.View().allPortfolios);
    }

    void AViewOfAllPortfoliosTakesTheirTickersInOrder() {
        Menus session;
        const QStringList views{QString(), u"1b"_s, u"2b"_s, u"0b"_s};
        for (int k = 1; k <= 4; ++k) {
            session.opened.clear();
            session.Form().findChild<QAction*>(u"mnuQAll"_s + QString::number(k))->trigger();
            QCOMPARE(session.opened,
                     QStringList{u"h.example/quotes?symbols=aol+yhoo+ibm&d="_s + views[k - 1]});
            QVERIFY(session.View().allPortfolios);
        }
        // The submenu is not remembered, and the other menu ends its scope.
        QCOMPARE(session.View().lastItem, std::int16_t{0});
        session.opened.clear();
        session.Item("mnuPort2")->trigger();
        QCOMPARE(session.opened, QStringList{u"h.example/quotes?symbols=aol+yhoo&d="_s});
    }

    void AllTickersAreSentToASite_data() {
        QTest::addColumn<QByteArray>("item");
        QTest::addColumn<QString>("address");
        const auto row = [](const char* item, const QString& address) {
            QTest::newRow(item) << QByteArray(item) << u"h.example"_s + address;
        };
        row("mnuPort6", u"/click?page=quote&company=AOL%20YHOO&x=58&y=9"_s);
        row("mnuPort7", u"/investor/charts/charting.asp?Symbol=AOL+YHOO"_s);
        row("mnuPort8", u"/click?bfpage=charts&symbol=AOL+YHOO&period=3MONTH&charttype=HIST"
                        "&othersymbols="_s);
        row("mnuPort9", u"/click?bfpage=news&symbol=AOL%20YHOO"_s);
        row("mnuPort10", u"/investments/stats/?symbol=AOL%20YHOO"_s);
        row("mnuPort11", u"/click?bfpage=quotes&defview=FULL&symbol=AOL%20YHOO"_s);
        row("mnuPort12", u"/investments/snapshot/?symbol=AOL%20YHOO"_s);
        row("mnuPort13", u"/click?bfpage=estimates&symbol=AOL%20YHOO"_s);
        row("mnuPort14", u"/investments/multex/?symbol=AOL%20YHOO"_s);
        row("mnuPort15", u"/investments/stkeval/?symbol=AOL%20YHOO"_s);
    }
    void AllTickersAreSentToASite() {
        QFETCH(QByteArray, item);
        QFETCH(QString, address);
        Menus session;
        session.Item("mnuPort3")->trigger();
        session.opened.clear();
        session.Item(item.constData())->trigger();
        QCOMPARE(session.opened, QStringList{address});
        QCOMPARE(session.View().pendingView, "Skip");
    }

    void TheCondensedItemsAskForTheirView() {
        Menus session;
        const QStringList views{u"1b"_s, u"2b"_s, u"0b"_s};
        for (int i = 0; i < 3; ++i) {
            session.asked.clear();
            session.Form().findChild<QAction*>(u"mnuPort"_s + QString::number(16 + i))->trigger();
            QVERIFY(session.asked.contains(u"h.example/quotes?symbols=aol+yhoo&d="_s + views[i]));
            session.Form().findChild<QAction*>(u"mnuQAll"_s + QString::number(5 + i))->trigger();
            QVERIFY(
                session.asked.contains(u"h.example/quotes?symbols=AOL+YHOO+IBM&d="_s + views[i]));
        }
        QCOMPARE(session.View().pendingView, "Skip");
        QCOMPARE(session.opened, QStringList());
    }

    void ADoubleClickShowsTheBasicViewUntilOneWasChosen() {
        Menus session;
        QTest::mouseClick(session.Form().lblPort, Qt::LeftButton);
        QCOMPARE(session.opened, QStringList());
        QTest::mouseDClick(session.Form().lblPort, Qt::LeftButton);
        QCOMPARE(session.opened, QStringList{u"h.example/quotes?symbols=aol+yhoo&d="_s});
    }

    void ADoubleClickOnANumberRepeatsTheChoiceForItsPortfolio() {
        Menus session;
        session.Item("mnuPort9")->trigger();
        session.Item("mnuQAll1")->trigger();
        session.opened.clear();
        QTest::mouseClick(session.Form().lblListNum[3], Qt::LeftButton);
        QTest::mouseDClick(session.Form().lblListNum[3], Qt::LeftButton);
        QCOMPARE(session->Ports().Current(), 3);
        QCOMPARE(session.opened, QStringList{u"h.example/click?bfpage=news&symbol=IBM"_s});
    }

    void TheRightButtonTwiceShowsNoQuotes() {
        Menus session;
        QTest::mouseDClick(session.Form().lblPort, Qt::RightButton);
        QCOMPARE(session.opened, QStringList());
    }
};

TALLOWMERE_WEB_TEST_MAIN(QuoteMenusTest)
#include "QuoteMenusTest.moc"
