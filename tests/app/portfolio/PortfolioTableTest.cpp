#include "app/portfolio/PortfolioTable.h"

#include "app/forms/WindowCommands.h"
#include "app/links/LinkDispatch.h"
#include "app/portfolio/PortfolioTableModel.h"
#include "app/portfolio/Portfolios.h"
#include "core/portfolio/keyed_store.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"
#include "core/tools/reminders.h"
#include "support/Await.h"
#include "support/FullDisk.h"
#include "support/Navigations.h"
#include "support/PdfReader.h"
#include "support/StandIns.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QClipboard>
#include <QHeaderView>
#include <QSignalSpy>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using Host = StandIns::Host;
using enum TableColumn;

namespace {

/// The window in sample mode, over prices that the test says.
class User : public TestSession {
public:
    std::map<std::string, double> market{{"MSFT", 430}, {"AOL", 20}, {"IBM", 200}, {"KO", 60}};

    explicit User(WebMode mode = WebMode::Sample) : TestSession(u"h.example"_s, mode) {
        Store("First", "OK");
        Store("Stocks1", "MSFT|AOL|IBM|NONE|");
        Store("PortName1", "Tech");
        Store("Stocks3", "KO|IBM|");
        std::string ignored;
        TickerNotes(Folder(), ignored, "SET", "IBM", "Old iron\r\nmore", kTickerNotesFile);
        TickerNotes(Folder(), ignored, "SET", "12-01-2026", "AOL, and KO", kRemindersFile);
        prices = [this](const std::string& ticker) -> std::optional<ListedPrice> {
            const auto found = market.find(ticker);
            if (found == market.end())
                return std::nullopt;
            ListedPrice price;
            price.last = found->second;
            price.change = -0.5;
            price.name = ticker + " Company";
            price.source = "SAMPLE DATA";
            return price;
        };
    }
    ~User() { End(); } // before the prices go

    /// Starts the session, whose panes load nothing, and opens the table.
    void Open() {
        Start();
        navigations.emplace(Form());
        Form().menus->At("portfolioTable")->trigger();
    }
    void Restart() {
        navigations.reset();
        Open();
    }
    void End() {
        navigations.reset();
        TestSession::End();
    }

    frmTable& Window() { return *(*this)->Table().Window(); }
    PortfolioTableModel& Model() { return *(*this)->Table().Model(); }
    QTableView& View() { return *Window().tblTickers; }
    QHeaderView& Header() { return *View().horizontalHeader(); }
    QString Shown() {
        QStringList tickers;
        for (int row = 0; row < Model().rowCount(); ++row)
            tickers << ToQt(Model().At(row).ticker);
        return tickers.join(u' ');
    }
    QString Text(int row, TableColumn column) {
        return Model().index(row, static_cast<int>(column)).data().toString();
    }
    void ClickHeading(TableColumn column) {
        const int section = static_cast<int>(column);
        QTest::mouseClick(Header().viewport(), Qt::LeftButton, {},
                          {Header().sectionViewportPosition(section) + 10, Header().height() / 2});
    }
    void Choose(int row) { View().setCurrentIndex(Model().index(row, static_cast<int>(Symbol))); }
    QAction* Item(QMenu* menu, const QString& caption) {
        for (QAction* action : menu->actions())
            if (action->text() == caption)
                return action;
        return nullptr;
    }

    std::optional<Navigations> navigations;
};

QString Lycos(const QString& ticker) {
    return u"Web: h.example/click?page=quote&company="_s + ticker + u"&x=58&y=9"_s;
}

/// The window in live mode, with stand-ins for all sources.
class LiveUser : public TestSession {
public:
    StandIns sources;

    LiveUser() : TestSession(u"127.0.0.1:1"_s, WebMode::Live) {
        Store("First", "OK");
        Store("Stocks1", "AOL|");
        Store("Stocks2", "MSFT|YHOO|");
        // Only the table asks.
        for (const char* key : {"ListLast", "ListChange", "ListPercent", "ListDay"})
            Store(key, "False");
        Settings().SaveSetting("Table", "All", "True");
        TestSession::sources = sources.Table();
        Start();
    }
    qsizetype Asked(const QString& symbol) {
        qsizetype count = 0;
        for (const QString& request : sources[Host::Cnbc].Requests())
            count += request.contains(symbol);
        return count;
    }
    void Open() { Form().menus->At("portfolioTable")->trigger(); }
    QString Text(int row, TableColumn column) {
        return (*this)->Table().Model()->index(row, static_cast<int>(column)).data().toString();
    }
};

} // namespace

class PortfolioTableTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheMenuOpensTheTableOfThePortfolioOnce() {
        User user;
        user.Start();
        QVERIFY(!user->Table().Window());
        user.Open();
        QVERIFY(user.Window().isVisible());
        QVERIFY(!user.Window().isModal());
        QCOMPARE(user.Window().windowTitle(), u"Portfolio Table - Tech"_s);
        QCOMPARE(user.Shown(), u"MSFT AOL IBM NONE"_s);
        QCOMPARE(user.Text(0, Name), u"MSFT Company"_s);
        QCOMPARE(user.Text(0, Last), u"430.00"_s);
        QCOMPARE(user.Text(1, Change), u"-0.50"_s);
        QCOMPARE(user.Text(1, Reminders), u"12/01/2026"_s);
        QCOMPARE(user.Text(2, Note), u"Old iron\u2026"_s);
        QCOMPARE(user.Text(3, Last), QString());
        QCOMPARE(user.Window().lblState->text(), u"4 tickers"_s);
        QVERIFY(user.Header().isSectionHidden(static_cast<int>(Portfolio)));
        frmTable* before = user->Table().Window();
        user.Form().menus->At("portfolioTable")->trigger();
        QCOMPARE(user->Table().Window(), before);
        for (const QWidget* control : user.Window().findChildren<QWidget*>())
            if (control->focusPolicy() != Qt::NoFocus && !control->objectName().isEmpty() &&
                !control->objectName().startsWith(u"qt_"))
                QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
    }

    void ADoubleClickOnTheNameOpensThePageOfQuotesAndTheTable() {
        User user;
        user.Start();
        user.navigations.emplace(user.Form());
        QTest::mouseDClick(user.Form().lblPort, Qt::LeftButton);
        QVERIFY(user->Table().Window());
        QCOMPARE(user.navigations->size(), 1);
        QTest::mouseDClick(user.Form().lblListNum[1], Qt::LeftButton);
        QCOMPARE(user.navigations->size(), 2);
    }

    void AHeadingSortsAndSortsTheOtherWayAndThenNotAtAll() {
        User user;
        user.Open();
        user.ClickHeading(Last);
        QCOMPARE(user.Shown(), u"AOL IBM MSFT NONE"_s);
        user.ClickHeading(Last);
        QCOMPARE(user.Shown(), u"MSFT IBM AOL NONE"_s);
        user.ClickHeading(Last);
        QCOMPARE(user.Shown(), u"MSFT AOL IBM NONE"_s);
        // By the menu, for those without a pointer.
        user.Item(user.Window().mnuSort, u"Name"_s)->trigger();
        QCOMPARE(user.Shown(), u"AOL IBM MSFT NONE"_s);
        QVERIFY(user.Item(user.Window().mnuSort, u"Name"_s)->isChecked());
        user.Item(user.Window().mnuSort, u"Name"_s)->trigger();
        QCOMPARE(user.Shown(), u"MSFT IBM AOL NONE"_s);
        QVERIFY(user.Item(user.Window().mnuSort, u"Name"_s)->isChecked());
        user.Item(user.Window().mnuSort, u"As in the Portfolios"_s)->trigger();
        QCOMPARE(user.Shown(), u"MSFT AOL IBM NONE"_s);
    }

    void TwoQuickClicksOnAHeadingAreTwoClicks() {
        User user;
        user.Open();
        QWidget* headings = user.Header().viewport();
        const QPointF place(user.Header().sectionViewportPosition(static_cast<int>(Last)) + 10.0,
                            user.Header().height() / 2.0);
        const auto send = [&](QEvent::Type type, Qt::MouseButtons buttons) {
            QMouseEvent event(type, place, headings->mapToGlobal(place), Qt::LeftButton, buttons,
                              Qt::NoModifier);
            QApplication::sendEvent(headings, &event);
        };
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonDblClick}) {
            send(type, Qt::LeftButton);
            send(QEvent::MouseButtonRelease, Qt::NoButton);
        }
        QCOMPARE(user.Shown(), u"MSFT IBM AOL NONE"_s);
    }

    void PricesThatChangeLeaveTheRowsWhereTheyAreUntilTheyAreSortedAgain() {
        User user;
        user.Open();
        user.ClickHeading(Last);
        user.market["AOL"] = 900;
        user.Model().RefreshPrices({"AOL"});
        QCOMPARE(user.Shown(), u"AOL IBM MSFT NONE"_s);
        QCOMPARE(user.Text(0, Last), u"900.00"_s);
        QVERIFY(user.Window().lblState->text().contains(u"sorts again"_s));
        user.Window().commands->At("sortTable")->trigger();
        QCOMPARE(user.Shown(), u"IBM MSFT AOL NONE"_s);
        QCOMPARE(user.Window().lblState->text(), u"4 tickers"_s);
    }

    void WhatIsTypedFiltersAndEscapeGoesBackStepByStep() {
        User user;
        user.Open();
        user.Window().commands->At("filterTable")->trigger();
        QVERIFY(QTest::qWaitForWindowActive(&user.Window()));
        QTest::keyClicks(user.Window().txtFilter, u"iron"_s);
        QCOMPARE(user.Shown(), u"IBM"_s);
        QCOMPARE(user.Window().lblState->text(), u"1 of 4 tickers"_s);
        QTest::keyClick(user.Window().txtFilter, Qt::Key_Down);
        QVERIFY(user.View().hasFocus());
        QCOMPARE(user.View().currentIndex().row(), 0);
        QTest::keyClick(user.Window().txtFilter, Qt::Key_Escape);
        QCOMPARE(user.Shown(), u"MSFT AOL IBM NONE"_s);
        QCOMPARE(user.View().currentIndex().row(), 2); // the row stays current
        QTest::keyClick(user.Window().txtFilter, Qt::Key_Escape);
        QVERIFY(Await([&] { return !user->Table().Window(); }));
    }

    void ColumnsTheirOrderAndWidthsAndTheSortingComeBack() {
        User user;
        user.Open();
        user.Item(user.Window().mnuColumns, u"Volume"_s)->trigger();
        QVERIFY(user.Header().isSectionHidden(static_cast<int>(Volume)));
        QVERIFY(!user.Item(user.Window().mnuColumns, u"Symbol"_s)->isEnabled());
        user.Header().moveSection(user.Header().visualIndex(static_cast<int>(Note)), 1);
        user.Header().resizeSection(static_cast<int>(Name), 321);
        user.ClickHeading(Last);
        user.Window().reject();
        QVERIFY(Await([&] { return !user->Table().Window(); }));
        for (const bool isNewRun : {false, true}) {
            if (isNewRun)
                user.Restart();
            else
                user.Form().menus->At("portfolioTable")->trigger();
            QVERIFY(user.Header().isSectionHidden(static_cast<int>(Volume)));
            QVERIFY(!user.Item(user.Window().mnuColumns, u"Volume"_s)->isChecked());
            QCOMPARE(user.Header().visualIndex(static_cast<int>(Note)), 1);
            QCOMPARE(user.Header().sectionSize(static_cast<int>(Name)), 321);
            QCOMPARE(user.Shown(), u"AOL IBM MSFT NONE"_s);
            QVERIFY(user.Header().isSectionHidden(static_cast<int>(Portfolio)));
        }
        user.Item(user.Window().mnuColumns, u"Volume"_s)->trigger();
        QVERIFY(!user.Header().isSectionHidden(static_cast<int>(Volume)));
        // Kept in a moment, without the window being closed.
        QVERIFY(Await([&] {
            return user.Settings().GetSetting("Table", "Columns", "").find("-Volume") ==
                   std::string::npos;
        }));
    }

    void AllPortfoliosHaveARowForEachTickerOfEachAndAColumnThatNamesThem() {
        User user;
        user.Open();
        user.Window().cmbScope->setCurrentIndex(1);
        QCOMPARE(user.Shown(), u"MSFT AOL IBM NONE KO IBM"_s);
        QVERIFY(!user.Header().isSectionHidden(static_cast<int>(Portfolio)));
        QCOMPARE(user.Text(2, Portfolio), u"1 Tech"_s);
        QCOMPARE(user.Text(5, Portfolio), u"3 Portfolio #3"_s);
        QCOMPARE(user.Window().windowTitle(), u"Portfolio Table - All Portfolios"_s);
        user.Restart();
        QCOMPARE(user.Window().cmbScope->currentIndex(), 1);
        QCOMPARE(user.Shown(), u"MSFT AOL IBM NONE KO IBM"_s);
        user.Window().cmbScope->setCurrentIndex(0);
        QCOMPARE(user.Shown(), u"MSFT AOL IBM NONE"_s);
        QVERIFY(user.Header().isSectionHidden(static_cast<int>(Portfolio)));
    }

    void EnterOpensTheLastLinkAndSelectsInTheListOnlyWhatItShows() {
        User user;
        user.Open();
        user.Window().cmbScope->setCurrentIndex(1);
        user.Form().List1->SetListIndex(-1);
        user.Choose(4); // KO of portfolio 3
        QTest::keyClick(&user.View(), Qt::Key_Return);
        QCOMPARE(*user.navigations, QStringList{Lycos(u"KO"_s)});
        QCOMPARE(user.Form().List1->SelectedText(), QString());
        QCOMPARE(user->Ports().Current(), 1);
        user.Choose(5); // IBM of portfolio 3, which the first has too
        QTest::keyClick(&user.View(), Qt::Key_Return);
        QCOMPARE(user.navigations->last(), Lycos(u"IBM"_s));
        QCOMPARE(user.Form().List1->SelectedText(), QString());
        user.Choose(1);
        QTest::keyClick(&user.View(), Qt::Key_Enter);
        QCOMPARE(user.navigations->last(), Lycos(u"AOL"_s));
        QCOMPARE(user.Form().List1->SelectedText(), u"AOL"_s);
        const QRect place = user.View().visualRect(user.Model().index(0, static_cast<int>(Symbol)));
        QTest::mouseClick(user.View().viewport(), Qt::LeftButton, {}, place.center());
        QCOMPARE(user.navigations->size(), 3);
        QTest::mouseDClick(user.View().viewport(), Qt::LeftButton, {}, place.center());
        QCOMPARE(user.navigations->last(), Lycos(u"MSFT"_s));
        QCOMPARE(user.navigations->size(), 4);
    }

    void TheSelectedRowsAreCopiedAndAllThatAreShownWithoutASelection() {
        User user;
        user.market["MSFT"] = 1430;
        user.Open();
        for (const TableColumnRow& row : kTableColumns)
            if (row.column != Symbol && row.column != Last && row.column != Change)
                user.Header().setSectionHidden(static_cast<int>(row.column), true);
        user.Header().moveSection(user.Header().visualIndex(static_cast<int>(Last)), 0);
        user.Window().cmdCopy->click();
        const QString head = u"\"Last\",\"Symbol\",\"Change\"\r\n"_s;
        const QString msft = u"\"1,430.00\",\"MSFT\",\"'-0.50\"\r\n"_s;
        const QString aol = u"\"20.00\",\"AOL\",\"'-0.50\"\r\n"_s;
        const QString rest = u"\"200.00\",\"IBM\",\"'-0.50\"\r\n\"\",\"NONE\",\"\"\r\n"_s;
        QCOMPARE(QGuiApplication::clipboard()->text(), head + msft + aol + rest);
        QCOMPARE(user.Window().lblState->text(), u"4 rows copied as CSV"_s);
        user.Choose(1);
        QTest::keySequence(&user.View(), QKeySequence::Copy);
        QCOMPARE(QGuiApplication::clipboard()->text(), head + aol);
        user.ClickHeading(Symbol);
        user.View().selectAll();
        user.Window().commands->At("copyTable")->trigger();
        QVERIFY(QGuiApplication::clipboard()->text().startsWith(head + aol));
    }

    void TheTableIsPrintedAndWithoutAPrinterAPdfDocumentIsOffered() {
        User user;
        user.Open();
        user->Table().SetPrinterFactory([] { return nullptr; });
        user.Window().cmdPrint->click();
        QCOMPARE(user.prompts.messages,
                 QStringList{u"Quorvane: No printer is set up. Save the table as a PDF document "
                             "instead?"_s});
        const QString file = PathToQt(user.Folder() / "table.pdf");
        user.prompts.answers << true;
        user.prompts.files << file;
        user.ClickHeading(Symbol);
        user.Window().commands->At("printTable")->trigger();
        const QString text = PdfReader(file).Pages().join(u' ');
        for (const char* word : {"Symbol", "Last", "MSFT", "430.00", "Old iron", "12/01/2026",
                                 "Portfolio Table - Tech, 2026-11-21 10:00 - 1 / 1"})
            QVERIFY2(text.contains(QString::fromLatin1(word)), word);
        QVERIFY(text.indexOf(u"AOL"_s) < text.indexOf(u"MSFT"_s));
        QCOMPARE(user.Window().lblState->text(), u"Saved "_s + file);

        const std::string before = ReadExistingFile(ToPath(file));
        user.prompts.answers << true;
        user.prompts.files << file;
        const FullDisk disk(1000);
        QVERIFY_THROWS_EXCEPTION(RuntimeError, user.Window().cmdPrint->click());
        QCOMPARE(ReadExistingFile(ToPath(file)), before);
    }

    void TheTableFollowsTheStores() {
        User user;
        user.Open();
        user.Choose(2);
        user->Ports().AddTickers({"KO"});
        QVERIFY(Await([&] { return user.Shown() == u"MSFT AOL IBM NONE KO"_s; }));
        QCOMPARE(user.View().currentIndex().row(), 2);
        user.Form().menus->undo->trigger();
        QVERIFY(Await([&] { return user.Shown() == u"MSFT AOL IBM NONE"_s; }));
        user->Ports().SelectPortfolio(3);
        QVERIFY(Await([&] { return user.Shown() == u"KO IBM"_s; }));
        QCOMPARE(user.Window().windowTitle(), u"Portfolio Table - Portfolio #3"_s);
    }

    void NamesComeFromTheirReader() {
        User user;
        user.Open();
        user->Table().ServeNames([](const std::string& ticker) {
            return ticker == "NONE" ? std::string("Nobody & Sons") : std::string();
        });
        QVERIFY(Await([&] { return user.Text(3, Name) == u"Nobody & Sons"_s; }));
        QCOMPARE(user.Text(0, Name), u"MSFT Company"_s);
    }

    void TheRowsInSightAreAskedForInOneRequest() {
        LiveUser user;
        user.Open();
        QVERIFY(Await([&] { return user.Text(2, Last) == u"1,111.25"_s; }));
        QCOMPARE(user.Text(0, Last), u"1,111.25"_s);
        QCOMPARE(user.Text(1, Change), u"+1.00"_s);
        QCOMPARE(user.Asked(u"YHOO"_s), 1);
        QCOMPARE(user.Asked(u"AOL"_s), 1);
        QVERIFY(!user.Text(0, Source).isEmpty());
        QVERIFY(!user.Text(0, Time).isEmpty());
        // No source says them.
        QCOMPARE(user.Text(0, MarketCap), QString());
        QCOMPARE(user.Text(0, PriceEarnings), QString());
    }

    void NothingIsAskedForATableThatNobodySees_data() {
        QTest::addColumn<bool>("isClosed");
        QTest::newRow("closed") << true;
        QTest::newRow("minimised") << false;
    }
    void NothingIsAskedForATableThatNobodySees() {
        QFETCH(const bool, isClosed);
        LiveUser user;
        user.Open();
        QVERIFY(Await([&] { return user.Asked(u"YHOO"_s) == 1; }));
        QSignalSpy looked(&user->Table(), &PortfolioTable::Looked);
        if (isClosed)
            user->Table().Window()->reject();
        else
            user->Table().Window()->setWindowState(Qt::WindowMinimized);
        user.clock.now = user.clock.now.addSecs(3600);
        user->Ports().AddTickers({"ZZY"});
        if (!isClosed)
            QVERIFY(Await([&] { return user->Table().Model()->RowOf(1, "ZZY") >= 0; }));
        looked.clear();
        user->Table().ReloadSoon();
        QVERIFY(Await([&] { return isClosed ? !user->Table().Window() : !looked.isEmpty(); }));
        QCOMPARE(user.Asked(u"ZZY"_s), 0);
        user.Open();
        QVERIFY(Await([&] { return user.Asked(u"ZZY"_s) == 1; }));
        QCOMPARE(user.Asked(u"YHOO"_s), 1); // the price of the close is known
    }

    void InDirectModeThereAreNoPrices() {
        User user(WebMode::Direct);
        user.prices = {};
        user.Open();
        QCOMPARE(user.Shown(), u"MSFT AOL IBM NONE"_s);
        QCOMPARE(user.Text(0, Last), QString());
        QCOMPARE(user.Text(2, Note), u"Old iron\u2026"_s);
    }
};

TALLOWMERE_WEB_TEST_MAIN(PortfolioTableTest)
#include "PortfolioTableTest.moc"
