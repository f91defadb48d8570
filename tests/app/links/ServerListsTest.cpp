#include "app/links/ServerLists.h"
#include "app/engine/BrowserPane.h"
#include "app/links/SearchMenu.h"
#include "app/links/SitePopups.h"
#include "support/LoopbackServer.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QElapsedTimer>
#include <QMenu>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class ServerListsTest : public QObject {
    Q_OBJECT
private:
    /// A window whose maker's site gives these pages.
    struct Window : TestSession {
        Window(std::string books, std::string sites) {
            Store("First", "OK");
            portal = [=](const std::string&, const std::string& path) {
                return PortalAnswer{"text/html", path == "/rr.html"         ? books
                                                 : path == "/newsites.html" ? sites
                                                                            : "<p>page</p>"};
            };
            Start();
            navigations.emplace(Form());
        }
        std::optional<Navigations> navigations;

        void Fetch() {
            (**this).Lists().GetBooks();
            (**this).Lists().GetNewSites();
        }
        QStringList Captions(const QString& menu) {
            QStringList captions;
            for (const QAction* item : (**this).Popups().Menu(menu)->actions())
                captions << (item->isSeparator() ? u"-"_s : item->text());
            return captions;
        }
        void Choose(const QString& menu, const QString& item) {
            auto* action = (**this).Popups().Menu(menu)->findChild<QAction*>(item);
            QVERIFY2(action, qPrintable(item));
            action->trigger();
        }
    };

    static std::string Anchor(const std::string& address, const std::string& caption) {
        return "<a href=\"" + address + "\">" + caption + "</a><br>\n";
    }

private Q_SLOTS:
    void TheListsAreFetchedOnceTheWindowIsInUse() {
        Window window("1-One<br>\r\n", Anchor("http://a.example/", "A"));
        QVERIFY(!window.asked.contains(u"h.example/rr.html"_s));
        QTRY_COMPARE(window.asked.count(u"h.example/rr.html"_s), 1);
        QTRY_COMPARE(window.asked.count(u"h.example/newsites.html"_s), 1);
    }

    void BooksStandBehindTheSearchAndOpenTheirPageInTheStore() {
        Window window("0060555661-Intelligent Investor<br>\r\n077-Up - and Down<br>\r\n", "");
        window.Fetch();
        QCOMPARE(window.Captions(u"mnuBooks"_s),
                 (QStringList{u"Search for more ...."_s, u"-"_s, u"Intelligent Investor"_s,
                              u"Up - and Down"_s}));
        window.Choose(u"mnuBooks"_s, u"mnuBook4"_s);
        QCOMPARE(*window.navigations, QStringList{u"Web: h.example/exec/obidos/ASIN/077/"_s});
    }

    void ABookListWithoutAHyphenLeavesTheSearchAlone() {
        Window window("no books today<br>\r\n", "");
        window.Fetch();
        QCOMPARE(window.Captions(u"mnuBooks"_s), (QStringList{u"Search for more ...."_s, u"-"_s}));
    }

    void ABookLineWithoutItsEndAddsNothing() {
        Window window("1-One<br>\r\n2-Two", "");
        window.Fetch();
        QCOMPARE(window.Captions(u"mnuBooks"_s),
                 (QStringList{u"Search for more ...."_s, u"-"_s, u"One"_s}));
    }

    void NewSitesTakeThePlaceOfTheOneItem() {
        Window window("", Anchor("http://a.example/", "Profit & Loss") +
                              Anchor("https://b.example/x", "B"));
        window.Fetch();
        QCOMPARE(window.Captions(u"mnuNewSites"_s), (QStringList{u"Profit && Loss"_s, u"B"_s}));
        window.Choose(u"mnuNewSites"_s, u"mnuNewSite1"_s);
        window.Choose(u"mnuNewSites"_s, u"mnuNewSite2"_s);
        QCOMPARE(*window.navigations,
                 (QStringList{u"Web: http://a.example/"_s, u"Web: https://b.example/x"_s}));
    }

    void APageWithoutAnchorsLeavesTheOneItem() {
        Window window("", "<html>nothing new</html>");
        window.Fetch();
        QCOMPARE(window.Captions(u"mnuNewSites"_s), QStringList{u"N/A"_s});
        window.Choose(u"mnuNewSites"_s, u"mnuNewSite1"_s);
        QVERIFY(window.navigations->isEmpty());
    }

    void AMenuThatIsOpenedBeforeItsListIsFilledLater() {
        Window window("", Anchor("http://a.example/", "A"));
        QCOMPARE(window.Captions(u"mnuNewSites"_s), QStringList{u"N/A"_s});
        window.Fetch();
        QCOMPARE(window.Captions(u"mnuNewSites"_s), QStringList{u"A"_s});
    }

    void AnAddressThatIsNotOfTheWebIsNotLoaded() {
        Window window("", Anchor("javascript:alert(1)", "J") + Anchor("file:///etc/passwd", "F") +
                              Anchor("http://", "H"));
        window.Fetch();
        for (const QString& item : {u"mnuNewSite1"_s, u"mnuNewSite2"_s, u"mnuNewSite3"_s})
            window.Choose(u"mnuNewSites"_s, item);
        QVERIFY(window.navigations->isEmpty());
        QCOMPARE(window.Form().WebStatus->text(), u"This entry has no web address: http://"_s);
        QVERIFY(window.prompts.messages.isEmpty());
    }

    void OfAMillionEntriesAMenuShowsTheFirstAndSaysHowManyMoreThereAre() {
        std::string page;
        for (int i = 1; i <= 1000000; ++i)
            page += Anchor("http://a.example/", "Site " + std::to_string(i));
        Window window("", page);
        window.Fetch();
        const QStringList captions = window.Captions(u"mnuNewSites"_s);
        QCOMPARE(captions.size(), 501);
        QCOMPARE(captions[499], u"Site 500"_s);
        QCOMPARE(captions[500], u"... and %L1 more"_s.arg(999500));
        QVERIFY(!(*window).Popups().Menu(u"mnuNewSites"_s)->actions().last()->isEnabled());
    }

    void ACaptionWithoutEndIsShortenedAndHasNoControlCharacters() {
        Window window("", Anchor("http://a.example/", "a\r\n\tb" + std::string(1000000, 'x')));
        window.Fetch();
        const QString caption = window.Captions(u"mnuNewSites"_s).constFirst();
        QCOMPARE(caption.size(), 80);
        QVERIFY(caption.startsWith(u"a   bx"_s) && caption.endsWith(u"x..."_s));
    }

    void AListThatIsFetchedAgainTakesThePlaceOfTheOneBefore() {
        Window window("", "");
        std::string books = "1-One<br>\r\n2-Two<br>\r\n";
        std::string sites = Anchor("http://a.example/", "A") + Anchor("http://b.example/", "B");
        window.portal = [&](const std::string&, const std::string& path) {
            return PortalAnswer{"text/html", path == "/rr.html" ? books : sites};
        };
        window.Fetch();
        window.Fetch();
        const QStringList search{u"Search for more ...."_s, u"-"_s};
        QCOMPARE(window.Captions(u"mnuBooks"_s), (search + QStringList{u"One"_s, u"Two"_s}));
        QCOMPARE(window.Captions(u"mnuNewSites"_s), (QStringList{u"A"_s, u"B"_s}));
        books = "3-Three<br>\r\n";
        sites = Anchor("http://c.example/", "C");
        window.Fetch();
        QCOMPARE(window.Captions(u"mnuBooks"_s), (search + QStringList{u"Three"_s}));
        QCOMPARE(window.Captions(u"mnuNewSites"_s), QStringList{u"C"_s});
        window.Choose(u"mnuNewSites"_s, u"mnuNewSite1"_s);
        QCOMPARE(*window.navigations, QStringList{u"Web: http://c.example/"_s});
    }

    void AListMayArriveWhileItsMenuIsOpen() {
        Window window("", Anchor("http://a.example/", "A") + Anchor("http://b.example/", "B"));
        QMenu* menu = (*window).Popups().Menu(u"mnuNewSites"_s);
        menu->popup({20, 20});
        QTest::keyClick(menu, Qt::Key_Down); // on the item that the list replaces
        window.Fetch();
        QCOMPARE(window.Captions(u"mnuNewSites"_s), (QStringList{u"A"_s, u"B"_s}));
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Down);
        window.Fetch();
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QTRY_COMPARE(window.navigations->size(), 1);
        menu->close();
    }

    void AFetchThatGivesNothingLeavesTheListOfBefore() {
        Window window("", "");
        std::string sites = Anchor("http://a.example/", "A");
        window.portal = [&](const std::string&, const std::string&) {
            return PortalAnswer{"text/html", sites};
        };
        window.Fetch();
        sites.clear();
        window.Fetch();
        QCOMPARE(window.Captions(u"mnuNewSites"_s), QStringList{u"A"_s});
    }

    void HostileAnchorsNeitherLoadNorCrash() {
        // Nested, without a closing quote, with control characters, and then an honest one.
        Window window("",
                      "<a href=\"javascript:alert('<a href=')\">x<a href=\"data:,y\">\x1b\x07</a>" +
                          Anchor("http://a.example/\r\nHost: evil", "A") +
                          "<a href=\"http://never.example/ closed</a>" +
                          Anchor("http://b.example/", "B"));
        window.Fetch();
        const QStringList captions = window.Captions(u"mnuNewSites"_s);
        QCOMPARE(captions.constFirst(), u"x<a href=\"data:,y\">  "_s);
        for (qsizetype i = 1; i <= captions.size(); ++i)
            window.Choose(u"mnuNewSites"_s, u"mnuNewSite"_s + QString::number(i));
        for (const QString& address : std::as_const(*window.navigations))
            QVERIFY2(address.startsWith(u"Web: http://"_s) && !address.contains(u'\n'),
                     qPrintable(address));
        QVERIFY(window.prompts.messages.isEmpty());
    }

    void ThePageOfAnErrorIsNoList() {
        LoopbackServer server;
        TestSession window(server.Address({}), WebMode::Direct);
        window.Store("First", "OK");
        const QByteArray error = "<meta http-equiv=\"x\"><a href=\"http://a.example/\">A</a>";
        for (const QString& page : {u"/rr.html"_s, u"/newsites.html"_s})
            server.Serve(page, {error, CannedPage::Ending::Length, 404});
        window.Start();
        Navigations navigations(window.Form());
        window->Lists().GetBooks();
        window->Lists().GetNewSites();
        QCOMPARE(window->Popups().Menu(u"mnuBooks"_s)->actions().size(), 2);
        QCOMPARE(window->Popups().Menu(u"mnuNewSites"_s)->actions()[0]->text(), u"N/A"_s);
        QVERIFY(window.prompts.messages.isEmpty());
    }

    void AFailedFetchIsNotReported() {
        LoopbackServer server;
        TestSession window(server.Address({}), WebMode::Direct);
        window.Store("First", "OK");
        server.Serve(u"/rr.html"_s, {"1-One<br>\r\n", CannedPage::Ending::CutShort});
        window.Start();
        Navigations navigations(window.Form());
        server.close();
        window->Lists().GetBooks();
        window->Lists().GetNewSites();
        QCOMPARE(window->Popups().Menu(u"mnuNewSites"_s)->actions().size(), 1);
        QVERIFY(window.prompts.messages.isEmpty());
    }
};

TALLOWMERE_WEB_TEST_MAIN(ServerListsTest)
#include "ServerListsTest.moc"
