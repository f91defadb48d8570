#include "app/portfolio/TickerImport.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmTicImport.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

const QString kPage = u"h.example/list"_s;

/// A page that links to a quote of each of these.
std::string Listing(const std::vector<std::string>& tickers) {
    std::string page = "<html><body>";
    for (const std::string& ticker : tickers)
        page += "<a href=\"/q?s=" + ticker + "\">company</a>\n";
    return page + "</body></html>";
}

} // namespace

class TickerImportTest : public QObject {
    Q_OBJECT
private:
    /// A window that shows a page; the dialog of the ticker scan is open.
    struct Window : TestSession {
        explicit Window(std::string page = Listing({"IBM"}),
                        const std::function<void(TestSession&)>& prepare = {}) {
            Store("First", "OK");
            Store("Stocks1", "AAA|");
            if (prepare)
                prepare(*this);
            content = std::move(page);
            portal = [this](const std::string&, const std::string& path) {
                return PortalAnswer{"text/html", path == "/list" ? content : Listing({})};
            };
            Start();
            Form().Web->Navigate(kPage);
            [[maybe_unused]] const bool shown =
                Await([this] { return Form().Web->LocationURL() == kPage; });
            Form().menus->mnuImptTick->trigger();
        }
        frmTicImport& Dialog() { return *(*this)->Import().Dialog(); }

        /// Puts a link into the box and highlights the ticker in it.
        void Highlight(const QString& link, const QString& ticker) {
            Dialog().txtFind->setText(link);
            Dialog().txtFind->setSelection(static_cast<int>(link.indexOf(ticker)),
                                           static_cast<int>(ticker.size()));
        }
        void Scan(const QString& link = u"/q?s=IBM\">"_s, const QString& ticker = u"IBM"_s) {
            Highlight(link, ticker);
            QTest::mouseClick(Dialog().Command1, Qt::LeftButton);
        }
        QStringList Found() { return Dialog().List1->Items(); }

        std::string content;
    };

    static void CollectFor(Window& window, const std::vector<std::string>& tickers) {
        window.content = Listing(tickers);
        window.Scan();
    }

private Q_SLOTS:
    void TheDialogHasItsCaptionsAndNames() {
        Window window(Listing({}), [](TestSession& session) {
            session.Store("Stocks3", "BBB|");
            session.Store("TickerList", "3");
        });
        const frmTicImport& dialog = window.Dialog();
        QVERIFY(dialog.isVisible());
        QVERIFY(dialog.isModal());
        QCOMPARE(dialog.windowTitle(), u"Ticker Scan"_s);
        QCOMPARE(dialog.Command2->text(), u"Send Tickers to Portfolio #3"_s);
        QVERIFY(dialog.Command1->isDefault());
        QStringList texts;
        for (const QLabel* label : dialog.findChildren<QLabel*>())
            texts << label->text();
        QVERIFY(texts.contains(u"Sample Link (Highlight Ticker)"_s));
        QVERIFY(texts
                    .filter(u"Ticker Scan is used to quickly import lists of tickers on a web "
                            "page into one of your portfolios."_s)
                    .size() == 1);
        for (const char* name : {"txtFind", "List1", "Command1", "Command2", "Command3"})
            QVERIFY2(dialog.findChild<QWidget*>(QString::fromLatin1(name)), name);
    }

    void EachTickerIsListedOnceAndNumbersAreLeftOut() {
        Window window;
        CollectFor(window, {"IBM", "IBM", "BRK.B", "123"});
        QCOMPARE(window.Found(), (QStringList{u"IBM"_s, u"BRK.B"_s}));
        QVERIFY(window.prompts.messages.isEmpty());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void SevenCharactersAreKeptAndEightAreNot() {
        Window window;
        CollectFor(window, {"ABCDEFG", "ABCDEFGH", "lower"});
        QCOMPARE(window.Found(), (QStringList{u"ABCDEFG"_s, u"LOWER"_s}));
    }

    void ATickerInFrontOfTheLinkIsRefused() {
        Window window;
        window.asked.clear();
        window.Scan(u"IBM\">"_s, u"IBM"_s);
        QCOMPARE(window.prompts.messages,
                 QStringList{u"Quorvane: The ticker can not be in the front of the link. Select "
                             "the ticker within the link."_s});
        QVERIFY(window.asked.isEmpty());
        QVERIFY(window.Found().isEmpty());
    }

    void AnAbsoluteSampleFitsAPageOfRelativeLinks() {
        Window window(Listing({"IBM", "AOL"}));
        window.Scan(u"http://h.example/q?s=IBM"_s, u"IBM"_s);
        QCOMPARE(window.Found(), (QStringList{u"IBM"_s, u"AOL"_s}));
    }

    void WithoutAMatchThereIsNoneFound() {
        Window window("<html>AAA</html>");
        window.Scan(u"#%~IBM"_s, u"IBM"_s);
        QCOMPARE(window.prompts.messages, QStringList{u"Quorvane: None Found"_s});
        window.Scan(u"~IBM"_s, u"IBM"_s);
        QCOMPARE(window.prompts.messages.size(), 2);
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(window.Dialog().Command1->isEnabled());
    }

    void APrefixOfOneCharacterIsScannedFor() {
        Window window("<html>(IBM)(AOL)</html>");
        window.Scan(u"(IBM)"_s, u"IBM"_s);
        QCOMPARE(window.Found(), (QStringList{u"IBM"_s, u"AOL"_s}));
    }

    void ANewScanBeginsWithAnEmptyList() {
        Window window;
        CollectFor(window, {"IBM"});
        CollectFor(window, {"AOL"});
        QCOMPARE(window.Found(), QStringList{u"AOL"_s});
    }

    void TheHighlightStaysWhenTheFocusGoes() {
        Window window(Listing({"IBM"}));
        QVERIFY(QTest::qWaitForWindowActive(&window.Dialog()));
        window.Highlight(u"/q?s=IBM\">"_s, u"IBM"_s);
        window.Dialog().txtFind->setFocus();
        QTest::keyClick(window.Dialog().txtFind, Qt::Key_Tab);
        QCOMPARE(window.Dialog().txtFind->selectedText(), u"IBM"_s);
        QTest::keyClick(window.Dialog().Command1, Qt::Key_Backtab);
        QCOMPARE(window.Dialog().txtFind->selectedText(), u"IBM"_s);
        QTest::keyClick(window.Dialog().txtFind, Qt::Key_Return);
        QCOMPARE(window.Found(), QStringList{u"IBM"_s});
    }

    void SentTickersAreInTheStoreAtOnceAndStayAfterClosing() {
        Window window;
        CollectFor(window, {"IBM", "AAA", "AOL"});
        QTest::mouseClick(window.Dialog().Command2, Qt::LeftButton);
        QVERIFY(window->Import().Dialog());
        QCOMPARE(window.Form().List1->Items(), (QStringList{u"AAA"_s, u"IBM"_s, u"AOL"_s}));
        QCOMPARE(window.Stored("Stocks1"), u"AAA|IBM|AOL|"_s);
        QTest::mouseClick(window.Dialog().Command3, Qt::LeftButton);
        QVERIFY(!window->Import().Dialog());
        QCOMPARE(window.Form().List1->Items(), (QStringList{u"AAA"_s, u"IBM"_s, u"AOL"_s}));
    }

    void SendingWhatThePortfolioHoldsChangesNothing() {
        Window window;
        CollectFor(window, {"AAA"});
        const QString before = window.Stored("Stocks1");
        QTest::mouseClick(window.Dialog().Command2, Qt::LeftButton);
        QCOMPARE(window.Form().List1->Items(), QStringList{u"AAA"_s});
        QCOMPARE(window.Stored("Stocks1"), before);
        window.Dialog().List1->Clear();
        QTest::mouseClick(window.Dialog().Command2, Qt::LeftButton);
        QCOMPARE(window.Form().List1->Items(), QStringList{u"AAA"_s});
    }

    void DeleteRemovesAnEntryBeforeSending() {
        Window window;
        CollectFor(window, {"IBM", "AOL", "MSFT"});
        window.Dialog().List1->SetListIndex(1);
        QTest::keyClick(window.Dialog().List1, Qt::Key_Delete);
        QCOMPARE(window.Found(), (QStringList{u"IBM"_s, u"MSFT"_s}));
        QCOMPARE(window.Dialog().List1->SelectedText(), u"MSFT"_s);
        QTest::keyClick(window.Dialog().List1, Qt::Key_Delete);
        QTest::keyClick(window.Dialog().List1, Qt::Key_Delete);
        QTest::keyClick(window.Dialog().List1, Qt::Key_Delete);
        QVERIFY(window.Found().isEmpty());
    }

    void ClosingSelectsThePortfolioAgain() {
        Window window;
        window.Store("PortName1", "Renamed");
        window.Dialog().close();
        QCOMPARE(window.Form().lblPort->Caption(), u"Renamed"_s);
        QCOMPARE(window.Form().List1->Items(), QStringList{u"AAA"_s});
    }

    void AHugePageLeavesTheWindowAlive() {
        Window window;
        std::string page;
        for (const char a : std::string_view("ABCDEFGHIJ"))
            page += std::string("<a href=\"/q?s=T") + a + "\">" + std::string(5'000'000, a);
        window.content = page + "</html>";
        int ticks = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] { ++ticks; });
        timer.start(0);
        window.Scan();
        QCOMPARE(window.Found().size(), 10);
        // Events were handled at least every half of a megabyte.
        QVERIFY2(ticks > 100, qPrintable(QString::number(ticks)));
    }

    void APageThatNeverEndsKeepsTheWindowAliveUntilTheDialogCloses() {
        LoopbackServer server;
        server.Serve(u"/list"_s, QByteArray("<html><body>page</body></html>"));
        TestSession session(server.Address({}), WebMode::Direct);
        session.Store("First", "OK");
        session.Start();
        frmMain& form = session.Form();
        form.Web->Navigate(server.Address(u"/list"_s));
        QVERIFY(Await([&] { return form.Web->LocationURL() == server.Address(u"/list"_s); }));
        QVERIFY(Await([&] { return !form.Web->Busy(); }));
        server.Serve(u"/list"_s, CannedPage{"<a href=\"/q?s=IBM\">", CannedPage::Ending::Endless});
        server.Clear();
        form.menus->mnuImptTick->trigger();
        const QPointer<frmTicImport> dialog(session->Import().Dialog());
        dialog->txtFind->setText(u"/q?s=IBM\">"_s);
        dialog->txtFind->setSelection(5, 3);

        QTimer poll;
        bool refused = false;
        connect(&poll, &QTimer::timeout, this, [&] {
            if (server.CountOf(u"/list"_s) == 0)
                return;
            poll.stop();
            QTest::keyClick(dialog->txtFind, Qt::Key_Return);
            dialog->Command1->click();
            refused = !dialog->Command1->isEnabled();
            dialog->close();
        });
        poll.start(10);
        QTest::mouseClick(dialog->Command1, Qt::LeftButton);
        QVERIFY(refused);
        QVERIFY(!session->Import().Dialog());
        QVERIFY(!dialog);
        QCOMPARE(server.CountOf(u"/list"_s), 1);
        QVERIFY(!QGuiApplication::overrideCursor());
        // The next scan is as good as new.
        server.Serve(u"/list"_s, QByteArray("<a href=\"/q?s=AOL\"></html>"));
        form.menus->mnuImptTick->trigger();
        session->Import().Dialog()->txtFind->setText(u"/q?s=IBM\">"_s);
        session->Import().Dialog()->txtFind->setSelection(5, 3);
        QTest::mouseClick(session->Import().Dialog()->Command1, Qt::LeftButton);
        QCOMPARE(session->Import().Dialog()->List1->Items(), QStringList{u"AOL"_s});
    }

    void ClosingDuringTheSearchEndsIt() {
        Window window;
        std::string page;
        for (int i = 0; i < 200; ++i)
            page += "<a href=\"/q?s=IBM\">" + std::string(100'000, 'x');
        window.content = page + "</html>";
        const QPointer<frmTicImport> dialog(&window.Dialog());
        QTimer poll;
        connect(&poll, &QTimer::timeout, this, [&] {
            if (dialog && dialog->List1->Count() > 0)
                dialog->close();
        });
        poll.start(0);
        window.Scan();
        QVERIFY(!window->Import().Dialog());
        QVERIFY(!QGuiApplication::overrideCursor());
        QTRY_VERIFY(!dialog);
    }
};

TALLOWMERE_WEB_TEST_MAIN(TickerImportTest)
#include "TickerImportTest.moc"
