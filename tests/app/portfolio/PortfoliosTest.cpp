#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TickerModel.h"
#include "core/portfolio/keyed_store.h"
#include "core/text/files.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;

class PortfoliosTest : public QObject {
    Q_OBJECT
private:
    static void SetNote(TestSession& session, const char* ticker, const char* note) {
        std::string ignored;
        TickerNotes(session.Folder(), ignored, "SET", ticker, note, "\\TickNotes.txt");
    }
    static QString Note(TestSession& session, const char* ticker) {
        std::string note;
        TickerNotes(session.Folder(), note, "GET", ticker, "", "\\TickNotes.txt");
        return ToQt(note);
    }
    static void SelectNumber(TestSession& session, int n) {
        QTest::mouseClick(session.Form().lblListNum.at(static_cast<std::size_t>(n)),
                          Qt::LeftButton);
    }

private Q_SLOTS:
    void TheFirstStartSeedsThreeTickers() {
        TestSession session;
        session.Start();
        QCOMPARE(session.Form().List1->Items(), (QStringList{u"AOL"_s, u"YHOO"_s, u"MSFT"_s}));
        QCOMPARE(session.Stored("Stocks1"), u"AOL|YHOO|MSFT|"_s);
        QCOMPARE(session.Stored("First"), u"OK"_s);
        QCOMPARE(session.Form().lblPort->Caption(), u"Portfolio #1"_s);
    }

    void ASecondStartSeedsNothing() {
        TestSession session;
        session.Store("First", "OK");
        session.Start();
        QCOMPARE(session.Form().List1->Count(), 0);
    }

    void AtTheStartTheFirstTickerIsSelected() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks3", "IBM|MSFT|");
        session.Store("TickerList", "3");
        session.Start();
        QCOMPARE(session.Form().List1->SelectedText(), u"IBM"_s);
    }

    void SwitchingRemembersTheSelectionAndInvertsTheNumber() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "AAA|BBB|CCC|");
        session.Store("Stocks2", "XXX|YYY|");
        session.Store("PortName2", "R&D");
        session.Start();
        session.Form().List1->SetListIndex(2);
        SelectNumber(session, 2);
        QCOMPARE(session.Form().List1->Items(), (QStringList{u"XXX"_s, u"YYY"_s}));
        QCOMPARE(session.Form().List1->ListIndex(), 0);
        QCOMPARE(session.Form().lblPort->Caption(), u"R&D"_s);
        QCOMPARE(session.Form().lblListNum[2]->Colors(), (ColorPair{0x000080, 0xFFFFFF}));
        QCOMPARE(session.Form().lblListNum[1]->Colors(), (ColorPair{0xFFFFFF, 0x000080}));
        for (std::size_t n = 1; n <= 10; ++n)
            QCOMPARE(session.Form().lblListNum[n]->accessibleDescription().endsWith(u"current"),
                     n == 2);
        SelectNumber(session, 1);
        QCOMPARE(session.Form().List1->ListIndex(), 2);
    }

    void AnEmptyListIsNotWrittenBySwitching() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "AAA|");
        session.Start();
        session->Ports().List().Clear();
        SelectNumber(session, 2);
        QCOMPARE(session.Stored("Stocks1"), u"AAA|"_s);
    }

    void ARememberedIndexBeyondTheListSelectsNothing() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "AAA|BBB|CCC|");
        session.Start();
        session.Form().List1->SetListIndex(2);
        SelectNumber(session, 2);
        session.Store("Stocks1", "AAA|");
        SelectNumber(session, 1);
        QCOMPARE(session.Form().List1->ListIndex(), -1);
    }

    void AnyStoredListLoadsAndIsWrittenBackWellFormed_data() {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QStringList>("tickers");
        QTest::addColumn<QString>("written");
        const auto row = [](const char* stored, const QStringList& tickers,
                            const QString& written) {
            QTest::newRow(stored) << QByteArray(stored) << tickers << written;
        };
        row("|", {u""_s}, u"|"_s);
        row("||", {u""_s, u""_s}, u"||"_s);
        row("|AAA|", {u""_s, u"AAA"_s}, u"|AAA|"_s);
        row("AAA||BBB|", {u"AAA"_s, u""_s, u"BBB"_s}, u"AAA||BBB|"_s);
        row("AAA", {u"AAA"_s}, u"AAA|"_s);
        row("aaa|AAA|aaa|", {u"aaa"_s, u"AAA"_s, u"aaa"_s}, u"aaa|AAA|aaa|"_s);
        row(" AAA | B B |", {u" AAA "_s, u" B B "_s}, u"AAA|B B|"_s);
        row(" ", {u" "_s}, u"|"_s);
        row("AAA|\r\nBBB|", {u"AAA"_s, u"\r\nBBB"_s}, u"AAA|\r\nBBB|"_s);
        row("R&D|\"Q\"|;x=[1]|", {u"R&D"_s, u"\"Q\""_s, u";x=[1]"_s}, u"R&D|\"Q\"|;x=[1]|"_s);
    }

    void AnyStoredListLoadsAndIsWrittenBackWellFormed() {
        QFETCH(const QByteArray, stored);
        QFETCH(const QStringList, tickers);
        QFETCH(const QString, written);
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", stored.constData());
        session.Start();
        QCOMPARE(session.Form().List1->Items(), tickers);
        SelectNumber(session, 2);
        QCOMPARE(session.Form().List1->Count(), 0);
        QCOMPARE(session.Stored("Stocks1"), written);
        QVERIFY(session.prompts.messages.isEmpty());
    }

    void AListWithoutItsLastBarLoadsWholeAndIsMended() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "AAA|BBB");
        session.Start();
        QCOMPARE(session.Form().List1->Items(), (QStringList{u"AAA"_s, u"BBB"_s}));
        SelectNumber(session, 2);
        QCOMPARE(session.Stored("Stocks1"), u"AAA|BBB|"_s);
    }

    void RemovingATickerRemovesItsNoteUnlessItsTextStandsElsewhere() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "IBM|AOL|");
        session.Store("Stocks5", "IBMX|");
        SetNote(session, "IBM", "kept");
        SetNote(session, "AOL", "gone");
        session.Start();
        QTest::mouseClick(session.Form().Label1, Qt::LeftButton);
        QCOMPARE(session.Stored("Stocks1"), u"AOL|"_s);
        QCOMPARE(session.Form().List1->ListIndex(), -1);
        QCOMPARE(Note(session, "IBM"), u"kept"_s);
        session.Form().List1->SetListIndex(0);
        QTest::keyClick(session.Form().List1, Qt::Key_Delete);
        QCOMPARE(session.Stored("Stocks1"), QString());
        QCOMPARE(Note(session, "AOL"), QString());
        QTest::keyClick(session.Form().List1, Qt::Key_Delete);
        QCOMPARE(session.Form().List1->Count(), 0);
    }

    void WithoutNotesRemovingAndClearingMakeNoFileOfThem() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "IBM|AOL|MSFT|");
        session.Store("Stocks2", "MSFT|");
        session.Start();
        QTest::mouseClick(session.Form().Label1, Qt::LeftButton);
        session.Form().List1->SetListIndex(0);
        session.Form().menus->mnuMovePort.items[3]->trigger();
        session.prompts.answers = {true};
        session.Form().menus->clearList->trigger();
        QCOMPARE(session.Form().List1->Count(), 0);
        QVERIFY(!std::filesystem::exists(session.Folder() / "TickNotes.txt"));
    }

    void ADoubleClickOnTheCrossRemovesOneTickerAndThenAsks() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "AAA|BBB|CCC|");
        session.Store("Stocks2", "CCC|");
        for (const char* ticker : {"AAA", "BBB", "CCC"})
            SetNote(session, ticker, "note");
        session.Start();
        QTest::mouseClick(session.Form().Label1, Qt::LeftButton);
        QTest::mouseDClick(session.Form().Label1, Qt::LeftButton);
        QCOMPARE(session.prompts.messages,
                 QStringList{u"Clear Stocks: Clear Stock List?\n2 tickers in portfolio #1, "
                             "\"Portfolio #1\"."_s});
        QCOMPARE(session.prompts.defaults, QList{Prompts::Answer::No});
        QCOMPARE(session.Form().List1->Items(), (QStringList{u"BBB"_s, u"CCC"_s}));
        session.prompts.answers = {true};
        QTest::mouseDClick(session.Form().Label1, Qt::LeftButton);
        QCOMPARE(session.Form().List1->Count(), 0);
        QCOMPARE(session.Stored("Stocks1"), QString());
        QCOMPARE(Note(session, "BBB"), QString());
        QCOMPARE(Note(session, "CCC"), u"note"_s);
    }

    void WithoutASelectionTheCrossOnlyWritesTheList() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "AAA|BBB");
        SetNote(session, "AAA", "kept");
        session.Start();
        session.Form().List1->SetListIndex(-1);
        QTest::mouseClick(session.Form().Label1, Qt::LeftButton);
        QCOMPARE(session.Form().List1->Count(), 2);
        QCOMPARE(session.Stored("Stocks1"), u"AAA|BBB|"_s);
        QCOMPARE(Note(session, "AAA"), u"kept"_s);
    }

    void ClearingAListWhoseTickersStandElsewhereRemovesNoNote() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "AAA|BBB|");
        session.Store("Stocks7", "XBBBX|");
        session.Store("Stocks10", "AAA|");
        SetNote(session, "AAA", "first");
        SetNote(session, "BBB", "second");
        const std::string before = ReadWholeFile(session.Folder() / "TickNotes.txt");
        session.Start();
        session.prompts.answers = {true};
        session.Form().menus->clearList->trigger();
        QCOMPARE(session.Form().List1->Count(), 0);
        QCOMPARE(session.Stored("Stocks1"), QString());
        QCOMPARE(ReadWholeFile(session.Folder() / "TickNotes.txt"), before);
    }

    void ThePortfolioNamesStandInTheFourSubmenus() {
        TestSession session;
        session.Store("PortName4", "Fish & Chips");
        session.Start();
        const MainMenus& menus = *session.Form().menus;
        for (const PortfolioMenu* menu : {&menus.mnuCopyPort, &menus.mnuMovePort,
                                          &menus.mnuMoveAllPort, &menus.mnuCopyAllPort}) {
            QCOMPARE(menu->items[3]->text(), u"Portfolio #3"_s);
            QCOMPARE(menu->items[4]->text(), u"Fish && Chips"_s);
        }
    }

    void TheCurrentPortfolioIsWrittenAtTheClose() {
        TestSession session;
        session.Store("First", "OK");
        session.Start();
        SelectNumber(session, 7);
        session.Form().close();
        QCOMPARE(session.Stored("TickerList"), u"7"_s);
    }
};

TALLOWMERE_WEB_TEST_MAIN(PortfoliosTest)
#include "PortfoliosTest.moc"
