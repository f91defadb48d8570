#include "app/portfolio/QuotePage.h"
#include "app/base/modMain.h"
#include "app/engine/BrowserPane.h"
#include "core/text/files.h"
#include "support/Await.h"
#include "support/FullDisk.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;

class QuotePageTest : public QObject {
    Q_OBJECT
private:
    static QByteArray Table(const QByteArray& content) {
        return "<table border=1 width=\"100%\" cellpadding=0 cellspacing=0>" + content + "</table>";
    }
    static QByteArray Answer(int tables) {
        QByteArray page = "<html><body>Portfolio";
        for (int i = 0; i < tables; ++i)
            page += Table("<tr><td nowrap>1,024</td></tr>");
        return page + "Quotes delayed 15 minutes</body></html>";
    }
    /// What becomes of one of the tables.
    static QByteArray Cell() {
        return "<table border=0 width=\"1%\" cellpadding=0 cellspacing=0><tr><td nowrap>"
               "<font face=\"Times New Roman\" size=\"1\">1024</font></td></tr></table>";
    }

    /// A session whose main pane only records where it is sent.
    class Quotes : public TestSession {
    public:
        QStringList opened;
        std::string answer; ///< to the query for the quotes
        std::function<void()> whileAsked = [] {};

        explicit Quotes(const char* tickers) {
            Store("First", "OK");
            Store("Stocks1", tickers);
            portal = [this](const std::string&, const std::string& path) {
                if (path.starts_with("/quotes?"))
                    whileAsked();
                return PortalAnswer{"text/html", answer};
            };
            Start();
            Record();
        }
        Quotes(const LoopbackServer& server, const char* tickers)
            : TestSession(server.Address({}), WebMode::Direct) {
            Store("First", "OK");
            Store("Stocks1", tickers);
            Start();
            // What becomes of the start page is told in the status line, too.
            [[maybe_unused]] const bool isThere = Await([this] { return !Form().Web->Busy(); });
            Record();
        }

        void Record() {
            connect(Form().Web, &BrowserPane::BeforeNavigate2, Form().Web,
                    [this](const QString& address, bool* cancel) {
                        opened << address;
                        *cancel = true;
                    });
        }
        void ShowCondensed() { Form().findChild<QAction*>(u"mnuPort16"_s)->trigger(); }
        QString Status() { return Form().WebStatus->text(); }
        std::filesystem::path Page() const { return Folder() / "ycprint.html"; }
        QByteArray Written() const { return QByteArray::fromStdString(ReadExistingFile(Page())); }
        qsizetype Queries() const { return asked.filter(u"/quotes?symbols="_s).size(); }
    };

private Q_SLOTS:
    void OneTickerMakesAPageOfOneCell() {
        Quotes session("IBM|");
        session.answer = Answer(1).toStdString();
        QString during;
        session.whileAsked = [&] { during = session.Status(); };
        session.ShowCondensed();
        QCOMPARE(during, u"Building Portfolio Query (Condensed View)"_s);
        QCOMPARE(session.Written(),
                 "<body topmargin=\"0\" leftmargin=\"0\"><a href=\"http://h.example/\">"
                 "<img src=\"http://h.example/logo.gif\" border=\"0\"></a><br>"
                 "<table><tr><td>" +
                     Cell() + "</td></tr><tr height=15><tr></table></body>");
        QCOMPARE(session.opened, QStringList{PathToQt(session.Page())});
        QCOMPARE(session.Status(), u"Portfolio Query (Condensed View)"_s);
        QCOMPARE(session->Quotes().View().pendingView, "Skip");
    }

    void SevenTickersMakeRowsOfThreeThreeAndOne() {
        Quotes session("A|B|C|D|E|F|G|");
        session.answer = Answer(7).toStdString();
        session.ShowCondensed();
        const QByteArray next = "</td><td witdh=5></td><td>";
        const QByteArray row = "</td></tr><tr height=15><tr></table><table><tr><td>";
        const QByteArray three = Cell() + next + Cell() + next + Cell();
        QVERIFY(session.Written().endsWith("<br><table><tr><td>" + three + row + three + row +
                                           Cell() + "</td></tr><tr height=15><tr></table></body>"));
    }

    void AnEmptyPortfolioAsksNothingAndWritesNothing() {
        Quotes session("");
        session->Quotes().View().pendingView = "1b";
        session.ShowCondensed();
        QCOMPARE(session.Queries(), 0);
        QVERIFY(!std::filesystem::exists(session.Page()));
        QCOMPARE(session.opened, QStringList());
        QCOMPARE(session->Quotes().View().pendingView, "Skip");
    }

    void AnUnusableAnswerEndsQuietlyAndThePageBeforeStays_data() {
        QTest::addColumn<QByteArray>("answer");
        QTest::newRow("no table") << QByteArray("<html>Service unavailable</html>");
        QTest::newRow("no end of the tables")
            << Answer(2).left(Answer(2).indexOf("Quotes")) + "</html>";
        QTest::newRow("cut in a tag") << Answer(1).left(45) + "</html>";
        QTest::newRow("a cell without its end")
            << Table("<tr><td nowrap>Yield<br>1") + "Quotes delayed 15</html>";
    }
    void AnUnusableAnswerEndsQuietlyAndThePageBeforeStays() {
        QFETCH(QByteArray, answer);
        Quotes session("IBM|");
        WriteWholeFile(session.Page(), "before");
        session.answer = answer.toStdString();
        session.ShowCondensed();
        QCOMPARE(session.Queries(), 1);
        QCOMPARE(session.Written(), QByteArray("before"));
        QCOMPARE(session.opened, QStringList());
        QCOMPARE(session.prompts.messages, QStringList());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        // It can be tried again.
        session.answer = Answer(1).toStdString();
        session.ShowCondensed();
        QVERIFY(session.Written().contains(Cell()));
    }

    void AnUnreachableServerEndsQuietly() {
        LoopbackServer server;
        Quotes session(server, "IBM|");
        server.close();
        session.ShowCondensed();
        QVERIFY(!std::filesystem::exists(session.Page()));
        QCOMPARE(session.prompts.messages, QStringList());
    }

    void AStalledServerIsStoppedByTheStopLink() {
        LoopbackServer server;
        server.Serve(u"/quotes?symbols=ibm&d=1b"_s, {Answer(1), CannedPage::Ending::Silent});
        Quotes session(server, "IBM|");
        connect(&server, &LoopbackServer::Requested, &session.Form(), [&](const QString& request) {
            if (!request.contains(u"/quotes?"_s))
                return;
            session.ClickLink(100);
        });
        session.ShowCondensed();
        QCOMPARE(server.CountOf(u"/quotes?symbols=ibm&d=1b"_s), 1);
        QVERIFY(!std::filesystem::exists(session.Page()));
        QCOMPARE(session.Status(), QString());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    void OfTwoPagesThatAreWaitedForTheLaterWinsThePane() {
        LoopbackServer server;
        server.Serve(u"/quotes?symbols=ibm&d=1b"_s, {Answer(1), CannedPage::Ending::Silent});
        server.Serve(u"/quotes?symbols=ibm&d=2b"_s, Answer(2));
        Quotes session(server, "IBM|");
        connect(
            &server, &LoopbackServer::Requested, &session.Form(),
            [&](const QString& request) {
                if (!request.contains(u"d=1b"_s))
                    return;
                session.Form().findChild<QAction*>(u"mnuPort17"_s)->trigger();
                // The first one is still under way; its end changes nothing any more.
                QCOMPARE(session.opened.size(), 1);
                QCOMPARE(session.Status(), u"Portfolio Query (Condensed View)"_s);
                session.ClickLink(100);
            },
            Qt::QueuedConnection);
        session.ShowCondensed();
        QCOMPARE(server.CountOf(u"/quotes?symbols=ibm&d=1b"_s), 1);
        QCOMPARE(server.CountOf(u"/quotes?symbols=ibm&d=2b"_s), 1);
        QCOMPARE(session.Written().count(Cell()), 2);
        QCOMPARE(session.opened.size(), 1);
        QCOMPARE(session.Status(), u"Portfolio Query (Condensed View)"_s);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    void TheClosingTextStaysWhenThePageHasArrivedUntilTheNextOneLoads() {
        Quotes session("IBM|");
        session.Form().Web->disconnect(session.Form().Web); // the page is really loaded
        session.answer = Answer(1).toStdString();
        session.ShowCondensed();
        const BrowserPane& web = *session.Form().Web;
        QVERIFY(
            Await([&] { return !web.Busy() && web.LocationURL() == PathToQt(session.Page()); }));
        QCOMPARE(session.Status(), u"Portfolio Query (Condensed View)"_s);
        // Off a link the pane would say where it is; over one it does.
        Q_EMIT session.Form().Web->StatusTextChange(web.LocationURL());
        QCOMPARE(session.Status(), u"Portfolio Query (Condensed View)"_s);
        Q_EMIT session.Form().Web->StatusTextChange(u"http://h.example/link"_s);
        QCOMPARE(session.Status(), u"http://h.example/link"_s);
        Q_EMIT session.Form().Web->StatusTextChange(web.LocationURL());
        QCOMPARE(session.Status(), web.LocationURL());
    }

    void TheNextNavigationReplacesTheClosingText() {
        Quotes session("IBM|");
        session.answer = Answer(1).toStdString();
        session.ShowCondensed();
        QCOMPARE(session.Status(), u"Portfolio Query (Condensed View)"_s);
        session.Form().Web->disconnect(session.Form().Web);
        session.Form().Web->Navigate(u"h.example/next"_s);
        QCOMPARE(session.Status(), u"Loading h.example/next"_s);
    }

    void WhenNoTransferIsFreeTheStatusLineSaysSo() {
        LoopbackServer server;
        server.Serve(u"/quotes?symbols=ibm&d=1b"_s, {Answer(1), CannedPage::Ending::Silent});
        Quotes session(server, "IBM|");
        QString said;
        connect(
            &server, &LoopbackServer::Requested, &session.Form(),
            [&](const QString& request) {
                if (!request.contains(u"d=1b"_s))
                    return;
                session.ShowCondensed();
                if (said.isEmpty())
                    said = session.Status();
                session.ClickLink(100);
            },
            Qt::QueuedConnection);
        session.ShowCondensed();
        QCOMPARE(server.CountOf(u"/quotes?symbols=ibm&d=1b"_s), TransferPool::kMostControls);
        QVERIFY2(said.contains(u"in use"_s), qPrintable(said));
        QCOMPARE(session.prompts.messages, QStringList());
    }

    void TheWindowMayGoWhileThePageIsWaitedFor() {
        LoopbackServer server;
        server.Serve(u"/quotes?symbols=ibm&d=1b"_s, {Answer(1), CannedPage::Ending::Silent});
        Quotes session(server, "IBM|");
        connect(
            &server, &LoopbackServer::Requested, &server,
            [&](const QString& request) {
                if (request.contains(u"/quotes?"_s))
                    session.End();
            },
            Qt::QueuedConnection);
        session.ShowCondensed();
        QVERIFY(!std::filesystem::exists(session.Page()));
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    void APageThatCannotBeWrittenEndsQuietly() {
        Quotes session("IBM|");
        // A folder of that name cannot be replaced by a file, whoever runs the test.
        std::filesystem::create_directories(session.Page() / "inside");
        session.answer = Answer(1).toStdString();
        session.ShowCondensed();
        QVERIFY(std::filesystem::is_directory(session.Page()));
        QCOMPARE(session.opened, QStringList());
        QCOMPARE(session.prompts.messages, QStringList());
        QCOMPARE(session->Quotes().View().pendingView, "Skip");
    }

    void OnAFullDiskThePageBeforeStays() {
        Quotes session("IBM|");
        WriteWholeFile(session.Page(), "before");
        session.answer = Answer(1000).toStdString();
        {
            const FullDisk disk(65536);
            session.ShowCondensed();
        }
        QCOMPARE(session.Queries(), 1);
        QCOMPARE(session.Written(), QByteArray("before"));
        QCOMPARE(session.opened, QStringList());
        QCOMPARE(session.prompts.messages, QStringList());
        QVERIFY(!std::filesystem::exists(session.Folder() / "ycprint.html.tmp"));
        session.ShowCondensed();
        QVERIFY(session.Written().contains(Cell()));
    }

    void TheHourglassShowsWhileItWorksAndASecondCallKeepsIt() {
        Quotes session("IBM|");
        session.answer = Answer(1).toStdString();
        bool hourglass = false;
        session.whileAsked = [&] {
            hourglass = QGuiApplication::overrideCursor() != nullptr &&
                        QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
            if (session.Queries() == 1) {
                session.ShowCondensed();
                hourglass = hourglass && QGuiApplication::overrideCursor() != nullptr;
            }
        };
        session.ShowCondensed();
        QVERIFY(hourglass);
        QCOMPARE(session.Queries(), 2);
        QCOMPARE(session.opened.size(), 1);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        QCOMPARE(session.Form().lblStat->width(), 0);
    }
};

TALLOWMERE_WEB_TEST_MAIN(QuotePageTest)
#include "QuotePageTest.moc"
