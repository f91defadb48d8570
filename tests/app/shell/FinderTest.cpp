#include "app/shell/Finder.h"

#include "app/forms/frmFinder.h"
#include "app/links/LinkDispatch.h"
#include "app/links/PaneDeck.h"
#include "app/portfolio/Portfolios.h"
#include "core/portfolio/keyed_store.h"
#include "core/text/files.h"
#include "support/Navigations.h"
#include "support/OutsideBrowser.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QAccessible>
#include <QApplication>
#include <QSignalSpy>
#include <QTimer>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kMultiLink = 211;

/// A window with two portfolios, a note, two links of the user's own and two pages in menus.
struct FinderUser : TestSession {
    FinderUser() {
        menus = MenuTable::Parse(ReadExistingFile(TALLOWMERE_SOURCE_DIR "/data/menus.toml"),
                                 "menus.toml");
        Store("First", "OK");
        Store("Stocks1", "AOL|MSFT|");
        Store("Stocks2", "IBM|");
        Store("PortName2", "Oil");
        Store("CustomT101", "My chart");
        Store("Custom101", "own.example/c?s=LCASETICK");
        Store("CustomT102", "Mainview");
        Store("Custom102", "MULTILINK:Charts.mlnk");
        WriteWholeFile(Folder() / "Charts.mlnk", kMultiPage);
        std::string ignored;
        TickerNotes(Folder(), ignored, "SET", "IBM", "Watch the mainframes\r\nBarrels of them",
                    kTickerNotesFile);
        Begin();
    }
    void Begin() {
        navigations.reset();
        Start();
        navigations.emplace(Form());
        Form().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&Form()));
        Form().List1->SetListIndex(1);
        Form().List1->setFocus();
    }
    static constexpr std::string_view kMultiPage =
        "<html><head><title></title></head><body topmargin=\"0\" leftmargin=\"0\">"
        "<iframe src=\"http://h.example/x?s=LCASETICK\" width=\"100%\" height=\"500\"></iframe>"
        "</body></html>";

    frmFinder* Box() { return Form().findChild<frmFinder*>(); }
    void Open() { QTest::keyClick(Form().focusWidget(), Qt::Key_K, Qt::ControlModifier); }
    void Type(const QString& line) {
        if (!Box() || !Box()->isVisible())
            Open();
        Box()->txtFind->clear();
        QTest::keyClicks(Box()->txtFind, line);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(Box()->txtFind, key, modifiers);
    }
    /// Types a line and presses Enter.
    void Find(const QString& line, Qt::KeyboardModifiers modifiers = {}) {
        Type(line);
        Press(Qt::Key_Return, modifiers);
    }
    /// The rows as a screen reader names them.
    QStringList Rows() {
        QStringList rows;
        const FinderRows& all = Box()->Rows();
        for (int row = 0; row < all.rowCount(); ++row)
            rows << all.At(row).kind + u": "_s + all.At(row).text;
        return rows;
    }
    QString First(const QString& line) {
        Type(line);
        return Rows().value(0);
    }
    QByteArray Opened() const { return browser.Opened(); }
    OutsideBrowser browser{*this};
    std::optional<Navigations> navigations;
};

QString ZacksOf(const QString& ticker) {
    return u"Web: h.example/cgi-bin/AW/DoInquiry.zcom?ticker="_s + ticker + u"&type=100"_s;
}

} // namespace

class FinderTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void NothingOfItIsMadeBeforeItIsOpened() {
        FinderUser user;
        QVERIFY(!user.Box());
        user.Open();
        QVERIFY(user.Box() && user.Box()->isVisible());
        QCOMPARE(user.Form().focusWidget(), user.Box()->txtFind);
        user.Press(Qt::Key_Escape);
        QVERIFY(user.Box()->isHidden());
        QCOMPARE(user.Form().focusWidget(), user.Form().List1);
        user.Open();
        QVERIFY(user.Box()->isVisible());
        user.Form().txtStock->setFocus();
        QVERIFY(user.Box()->isHidden());
        QCOMPARE(user.Form().focusWidget(), user.Form().txtStock);
    }

    void ItsKeysReachItFromABoxForTextAndWithinIt() {
        FinderUser user;
        user.Form().txtStock->setFocus();
        QTest::keyClicks(user.Form().txtStock, u"amd"_s);
        QTest::keyClick(user.Form().txtStock, Qt::Key_Home);
        user.Open();
        QVERIFY(user.Box() && user.Box()->isVisible());
        QTest::keyClicks(user.Box()->txtFind, u"zacks"_s);
        QTest::keyClick(user.Box()->txtFind, Qt::Key_Home);
        user.Open();
        QCOMPARE(user.Box()->txtFind->selectedText(), u"zacks"_s);
        user.Press(Qt::Key_Escape);
        QCOMPARE(user.Form().focusWidget(), user.Form().txtStock);
        QCOMPARE(user.Form().txtStock->text(), u"AMD"_s);
    }

    void ALinkWithAMenuOpensIt() {
        FinderUser user;
        user.Find(u"big - various"_s);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QVERIFY(menu->activeAction());
        menu->close();
        QCOMPARE(user.Form().focusWidget(), user.Link(4));
    }

    void APageOpensForTheSelectedTickerInTheWayOfAClick() {
        FinderUser user;
        QCOMPARE(user.First(u"zacks"_s), u"Link: Zacks - ZACKS Research"_s);
        user.Press(Qt::Key_Return);
        QCOMPARE(user.navigations->last(), ZacksOf(u"MSFT"_s));
        QVERIFY(user.Box()->isHidden());
        QCOMPARE(user.Form().focusWidget(), user.Form().List1);
        QCOMPARE(user->Dispatch().LastLink(), 15);
        // Nothing selected: it says so, as a click does.
        user.Form().List1->SetListIndex(-1);
        user.Find(u"zacks"_s);
        QVERIFY(user.prompts.messages.last().contains(u"Select a Ticker"_s));
    }

    void APageOpensForATickerThatIsNamedInAListOrInNone() {
        FinderUser user;
        user.Find(u"ibm zacks"_s);
        QCOMPARE(user.navigations->last(), ZacksOf(u"IBM"_s));
        user.Find(u"qqqq zacks"_s);
        QCOMPARE(user.navigations->last(), ZacksOf(u"QQQQ"_s));
        user.Find(u"ibm my chart"_s);
        QCOMPARE(user.navigations->last(), u"Web: own.example/c?s=ibm"_s);
        user.Find(u"ibm mainview"_s);
        QVERIFY(user.navigations->last().endsWith(u"multiweb.html"_s));
        QVERIFY(ReadExistingFile(user.Folder() / "multiweb.html").find("x?s=ibm") !=
                std::string::npos);
        QCOMPARE(user.Form().List1->SelectedText(), u"MSFT"_s);
        QCOMPARE(user.Stored("Stocks1"), u"AOL|MSFT|"_s);
        // The next click is for the selected ticker again.
        user.ClickLink(15);
        QCOMPARE(user.navigations->last(), ZacksOf(u"MSFT"_s));
    }

    void PagesForSeveralTickersOpenInTabs() {
        FinderUser user;
        disconnect(&user->Panes(), &PaneDeck::TabWanted, nullptr, nullptr);
        const QSignalSpy tabs(&user->Panes(), &PaneDeck::TabWanted);
        user.Find(u"aol, ibm zacks"_s);
        QCOMPARE(tabs.size(), 2);
        QCOMPARE(u"Web: "_s + tabs[0][0].toString(), ZacksOf(u"AOL"_s));
        QCOMPARE(tabs[0][1].toBool(), true);
        QCOMPARE(u"Web: "_s + tabs[1][0].toString(), ZacksOf(u"IBM"_s));
        QCOMPARE(tabs[1][1].toBool(), false);
        user.Find(u"msft zacks"_s, Qt::ControlModifier);
        QCOMPARE(tabs.size(), 3);
        QCOMPARE(tabs[2][1].toBool(), true);
        // Without a page it is the last link.
        user.Find(u"aol,ibm"_s);
        QCOMPARE(tabs.size(), 5);
        QCOMPARE(u"Web: "_s + tabs[4][0].toString(), ZacksOf(u"IBM"_s));
        QCOMPARE(user->Panes().Next(), PagePlace::Pane);
        // A multi-link is there for one ticker at a time.
        user.Type(u"aol,ibm mainview"_s);
        QCOMPARE(user.Rows(), QStringList());
    }

    void WithShiftThePageOpensInTheSeparateBrowser() {
        FinderUser user;
        user.navigations.reset();
        user.Find(u"ibm zacks"_s, Qt::ShiftModifier);
        QTRY_COMPARE(
            user.Opened(),
            QByteArray("http://h.example/cgi-bin/AW/DoInquiry.zcom?ticker=IBM&type=100\n"));
        QVERIFY(!user->Panes().OpensNextOutside());
    }

    void ItemsOfSiteMenusOpen() {
        FinderUser user;
        QCOMPARE(user.First(u"zacks investment"_s),
                 u"Site menu: Zacks Investment Research - Mega Links"_s);
        user.Press(Qt::Key_Return);
        QCOMPARE(user.navigations->last(), u"Web: https://www.zacks.com/"_s);
        user.Find(u"ibm quarterly earnings"_s);
        QVERIFY(user.navigations->last().endsWith(u"&PH=2&Symbol=ibm"_s));
    }

    void APortfolioIsChosenByItsNumberOrName() {
        FinderUser user;
        user.Find(u"/p 2"_s);
        QCOMPARE(user->Ports().Current(), 2);
        user.Find(u"/p portfolio #1"_s);
        QCOMPARE(user->Ports().Current(), 1);
        user.Find(u"/p oil"_s);
        QCOMPARE(user->Ports().Current(), 2);
    }

    void ATickerIsSelectedWhereItIs() {
        FinderUser user;
        QCOMPARE(user.First(u"ibm"_s), u"Ticker: IBM"_s);
        QCOMPARE(user.Box()->Rows().DetailOf(0), u"Oil"_s);
        user.Press(Qt::Key_Return);
        QCOMPARE(user->Ports().Current(), 2);
        QCOMPARE(user.Form().List1->SelectedText(), u"IBM"_s);
        QCOMPARE(user.Form().focusWidget(), user.Form().List1);
    }

    void ATickerIsFoundByTheNameOfItsCompany() {
        FinderUser user;
        WriteWholeFile(user.Data() / "sample_market.txt", "IBM|Big Blue & Sons|1|2.0\n");
        QCOMPARE(user.First(u"blue sons"_s), u"Ticker: IBM"_s);
        QCOMPARE(user.Box()->Rows().DetailOf(0), u"Big Blue & Sons, Oil"_s);
    }

    void ANoteOnATickerInNoListIsFoundToo() {
        FinderUser user;
        std::string note;
        TickerNotes(user.Folder(), note, "SET", "GONE", "Once a railway", kTickerNotesFile);
        QCOMPARE(user.First(u"railway"_s), u"Note: GONE: Once a railway"_s);
        user.prompts.inputs << u"Still a railway"_s;
        user.Press(Qt::Key_Return);
        QCOMPARE(user.prompts.inputs.size(), 0);
        TickerNotes(user.Folder(), note, "GET", "GONE", "", kTickerNotesFile);
        QCOMPARE(ToQt(note), u"Still a railway"_s);
        QCOMPARE(user.Form().List1->SelectedText(), u"MSFT"_s);
        QVERIFY(!user.Form().menus->mnuTickNotes->data().toString().contains(u"railway"_s));
    }

    void EscapeClosesTheBoxBeforeItEndsTheFullScreen() {
        FinderUser user;
        user.Form().menus->At("fullScreen")->trigger();
        QTRY_VERIFY(user.Form().isFullScreen());
        user.Form().menus->At("findAnything")->trigger();
        QTRY_VERIFY(user.Box() && user.Box()->txtFind->hasFocus());
        user.Press(Qt::Key_Escape);
        QVERIFY(!user.Box()->isVisible());
        QVERIFY(user.Form().isFullScreen());
        QTest::keyClick(&user.Form(), Qt::Key_Escape);
        QTRY_VERIFY(!user.Form().isFullScreen());
    }

    void ANoteIsFoundByItsWordsAndOpens() {
        FinderUser user;
        QCOMPARE(user.First(u"barrels"_s), u"Note: IBM: Watch the mainframes\u2026"_s);
        user.prompts.inputs = {u"Sold"_s};
        user.Press(Qt::Key_Return);
        QCOMPARE(user.prompts.presets, QStringList{u"Watch the mainframes\nBarrels of them"_s});
        QCOMPARE(user.Form().List1->SelectedText(), u"IBM"_s);
        std::string note;
        TickerNotes(user.Folder(), note, "GET", "IBM", "", kTickerNotesFile);
        QCOMPARE(ToQt(note), u"Sold"_s);
        QCOMPARE(user.First(u"sold"_s), u"Note: IBM: Sold"_s);
    }

    void TabAddsATickerThatIsInNoList() {
        FinderUser user;
        QCOMPARE(user.First(u"nvda"_s), u"Ticker: NVDA"_s);
        QVERIFY(user.Box()->lblHint->text().startsWith(u"Tab adds NVDA"_s));
        user.Press(Qt::Key_Tab);
        QCOMPARE(user.Stored("Stocks1"), u"AOL|MSFT|NVDA|"_s);
        QCOMPARE(user.Form().menus->undo->text(), u"&Undo Add NVDA"_s);
        QCOMPARE(user.Form().WebStatus->text(), u"NVDA added."_s);
        // The box stays, and knows it now.
        QCOMPARE(user.Rows().value(0), u"Ticker: NVDA"_s);
        QVERIFY(!user.Box()->lblHint->text().contains(u"Tab"_s));
        user.Press(Qt::Key_Tab);
        QCOMPARE(user.Stored("Stocks1"), u"AOL|MSFT|NVDA|"_s);
        user.Type(u"amd zacks"_s);
        user.Press(Qt::Key_Tab);
        QCOMPARE(user.Stored("Stocks1"), u"AOL|MSFT|NVDA|AMD|"_s);
        QCOMPARE(user.Form().focusWidget(), user.Box()->txtFind);
        // What is in another list is in one.
        user.Type(u"ibm zacks"_s);
        user.Press(Qt::Key_Tab);
        QCOMPARE(user.Stored("Stocks1"), u"AOL|MSFT|NVDA|AMD|"_s);
    }

    void CommandsAreGivenAndDisabledOnesAreNotOffered() {
        FinderUser user;
        const bool wasFolded = user.Form().Panels().leftFolded;
        QCOMPARE(user.First(u"left panel"_s), u"Command: Left Panel"_s);
        const QString keys =
            user.Form().menus->foldLeft->shortcut().toString(QKeySequence::NativeText);
        QCOMPARE(user.Box()->Rows().DetailOf(0), u"View, "_s + keys);
        user.Press(Qt::Key_Return);
        QCOMPARE(user.Form().Panels().leftFolded, !wasFolded);
        user.Type(u"undo"_s);
        QVERIFY(!user.Rows().contains(u"Command: Undo"_s));
        user.Type(u"nvda"_s);
        user.Press(Qt::Key_Tab);
        user.Press(Qt::Key_Escape);
        QCOMPARE(user.First(u"undo"_s), u"Command: Undo Add NVDA"_s);
    }

    void WhatWasOpenedOftenComesFirstAfterARestartToo() {
        FinderUser user;
        const QString before = user.First(u"y"_s);
        user.Find(u"y! news"_s);
        const QString used = u"Link: Y! News - Yahoo! News Page"_s;
        QVERIFY(before != used);
        QCOMPARE(user.First(u"y"_s), used);
        QCOMPARE(ReadExistingFile(user.Folder() / "finder.txt"),
                 std::string("20778 1000 link%2038\n"));
        user.Begin();
        QCOMPARE(user.First(u"y"_s), used);
        user.Type({});
        QCOMPARE(user.Rows().value(0), used);
    }

    void ARecordThatCannotBeReadIsSaidAndNotOverwritten() {
        FinderUser user;
        std::filesystem::create_directory(user.Folder() / "finder.txt");
        user.Find(u"zacks"_s);
        QCOMPARE(user.navigations->last(), ZacksOf(u"MSFT"_s));
        QVERIFY(std::filesystem::is_directory(user.Folder() / "finder.txt"));
    }

    void WhileAMultiLinkIsRecordedOnlyWhatCanBeRecordedIsOffered() {
        FinderUser user;
        QCOMPARE(user.First(u"datek"_s), u"Link: Datek"_s);
        user.Press(Qt::Key_Escape);
        user.ClickLink(kMultiLink);
        user.Type(u"datek"_s);
        QVERIFY(!user.Rows().contains(u"Link: Datek"_s));
        user.Find(u"zacks research"_s);
        QVERIFY(user->Recorded().multiLinkPage.contains(u"ticker=UCASETICK"_s));
    }

    void TheRowsAreWalkedByKeysThatTheWindowHasForCommands() {
        FinderUser user;
        user.Open();
        frmFinder& box = *user.Box();
        QVERIFY(box.Rows().rowCount() > 30);
        QCOMPARE(box.Row(), 0);
        user.Press(Qt::Key_Up);
        QCOMPARE(box.Row(), 0);
        user.Press(Qt::Key_Down);
        QCOMPARE(box.Row(), 1);
        user.Press(Qt::Key_PageDown);
        const int page = box.Row() - 1;
        QVERIFY(page > 1);
        user.Press(Qt::Key_PageUp);
        QCOMPARE(box.Row(), 1);
        for (int n = 0; n < 60; ++n)
            user.Press(Qt::Key_PageDown);
        QCOMPARE(box.Row(), box.Rows().rowCount() - 1);
        box.txtFind->setText(u"\u4E2D\u6587"_s);
        QCOMPARE(box.Row(), -1);
        QVERIFY(box.lblHint->text().startsWith(u"Nothing found"_s));
        user.Press(Qt::Key_Return);
        user.Press(Qt::Key_Down);
        QVERIFY(box.isVisible());
    }

    void AClickOpensARow() {
        FinderUser user;
        user.Type(u"zacks"_s);
        const QListView& list = *user.Box()->lstFound;
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualRect(list.model()->index(0, 0)).center());
        QCOMPARE(user.navigations->last(), ZacksOf(u"MSFT"_s));
    }

    void ScreenReadersHearWhatIsChosen() {
        FinderUser user;
        user.Type(u"zacks"_s);
        frmFinder& box = *user.Box();
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(box.lstFound);
        QCOMPARE(list->text(QAccessible::Name), u"Found"_s);
        QCOMPARE(list->child(0)->text(QAccessible::Name), u"Link: Zacks - ZACKS Research"_s);
        QCOMPARE(box.txtFind->accessibleName(), u"Find anything"_s);
        QCOMPARE(box.txtFind->accessibleDescription(),
                 u"Link: Zacks - ZACKS Research, h.example"_s);
    }

    void ItStaysInsideTheSmallestWindow() {
        FinderUser user;
        user.Open();
        for (const QSize size : {QSize(667, 567), QSize(565, 300), QSize(1280, 900)}) {
            user.Form().resize(size);
            QTRY_COMPARE(user.Form().height(),
                         std::max(size.height(), user.Form().minimumHeight()));
            QTRY_VERIFY(user.Form().rect().contains(user.Box()->geometry()));
            QVERIFY(user.Box()->lstFound->height() > user.Box()->txtFind->height());
        }
    }

    void WithAnAddressItShowsThatOfThePageAndOpensAnother() {
        FinderUser user;
        user.navigations.reset();
        user.Form().Web->Navigate(u"h.example/a%20b?c=d"_s);
        QTRY_VERIFY(!user.Form().Web->Busy() && user.asked.contains(u"h.example/a%20b?c=d"_s));
        user.navigations.emplace(user.Form());
        QTest::keyClick(user.Form().focusWidget(), Qt::Key_L, Qt::ControlModifier);
        frmFinder& box = *user.Box();
        QVERIFY(box.isVisible());
        QCOMPARE(box.txtFind->text(), u"h.example/a%20b?c=d"_s);
        QCOMPARE(box.txtFind->selectedText(), box.txtFind->text());
        QCOMPARE(user.Rows().first(), u"Address: h.example/a%20b?c=d"_s);
        QCOMPARE(user.Rows().last(), u"Command: Smart Navigate"_s);
        // Enter opens it again, or what is typed instead.
        user.Press(Qt::Key_Return);
        QVERIFY(box.isHidden());
        QCOMPARE(user.navigations->last(), u"Web: h.example/a%20b?c=d"_s);
        QTest::keyClick(user.Form().focusWidget(), Qt::Key_L, Qt::ControlModifier);
        QTest::keyClicks(box.txtFind, u"b.example/x"_s);
        QCOMPARE(user.Rows().first(), u"Address: b.example/x"_s);
        QCOMPARE(box.Rows().DetailOf(0), u"b.example"_s);
        user.Press(Qt::Key_Return);
        QCOMPARE(user.navigations->last(), u"Web: b.example/x"_s);
        QTest::keyClick(user.Form().focusWidget(), Qt::Key_L, Qt::ControlModifier);
        box.txtFind->setText(u"b.example/y"_s);
        user.Press(Qt::Key_Return, Qt::ShiftModifier);
        QTRY_COMPARE(user.Opened(), QByteArray("http://b.example/y\n"));
    }

    void WithAnAddressItFindsEverythingToo() {
        FinderUser user;
        // The page of the start is one of the program's own: it has no address for anybody.
        QTest::keyClick(user.Form().focusWidget(), Qt::Key_L, Qt::ControlModifier);
        frmFinder& box = *user.Box();
        QCOMPARE(box.txtFind->text(), QString());
        QTest::keyClicks(box.txtFind, u"ibm zacks"_s);
        QCOMPARE(user.Rows().first(), u"Link: IBM: Zacks - ZACKS Research"_s);
        user.Press(Qt::Key_Return);
        QCOMPARE(user.navigations->last(), ZacksOf(u"IBM"_s));
        // From one kind of box to the other, and back to the first.
        QTest::keyClick(user.Form().focusWidget(), Qt::Key_L, Qt::ControlModifier);
        QTest::keyClicks(box.txtFind, u"zacks"_s);
        const qsizetype count = user.Rows().size();
        user.Open();
        QCOMPARE(box.txtFind->text(), QString());
        QVERIFY(user.Rows().last() != u"Command: Smart Navigate"_s);
        QTest::keyClicks(box.txtFind, u"zacks"_s);
        QVERIFY(user.Rows().size() < count);
    }

    void TheNameOfASiteBecomesItsAddress() {
        FinderUser user;
        QTest::keyClick(user.Form().focusWidget(), Qt::Key_L, Qt::ControlModifier);
        QTest::keyClicks(user.Box()->txtFind, u"tallow"_s);
        QVERIFY2(user.Rows().contains(u"Address: www.tallow.com"_s),
                 qPrintable(user.Rows().join(u'|')));
        user.Box()->lstFound->setCurrentIndex(user.Box()->lstFound->model()->index(
            static_cast<int>(user.Rows().indexOf(u"Address: www.tallow.com"_s)), 0));
        user.Press(Qt::Key_Return);
        QCOMPARE(user.navigations->last(), u"Web: www.tallow.com"_s);
        // Where anything is looked for a word is no address, but an address is one.
        user.Type(u"tallow"_s);
        QVERIFY(!user.Rows().contains(u"Address: www.tallow.com"_s));
        QCOMPARE(user.First(u"tallow.example/x"_s), u"Address: tallow.example/x"_s);
        // Ahead of it stands a ticker that looks like one.
        QCOMPARE(user.First(u"brk.b"_s), u"Ticker: BRK.B"_s);
        QCOMPARE(user.Rows().value(1), u"Address: brk.b"_s);
    }

    void WhatSmartNavigateRemembersIsFoundOnceAndKeptInNoRecord() {
        FinderUser user;
        user.Settings().SaveSetting("Settings", "NAV1", "www.barrels.example/a");
        user.Settings().SaveSetting("Settings", "NAV2", "www.casks.example");
        user.Settings().SaveSetting("Settings", "NAV3", "www.barrels.example/a");
        user.Type(u"barrels.ex"_s);
        QCOMPARE(user.Rows().count(u"Address: www.barrels.example/a"_s), 1);
        user.Box()->lstFound->setCurrentIndex(user.Box()->lstFound->model()->index(
            static_cast<int>(user.Rows().indexOf(u"Address: www.barrels.example/a"_s)), 0));
        user.Press(Qt::Key_Return);
        QCOMPARE(user.navigations->last(), u"Web: www.barrels.example/a"_s);
        QVERIFY(!std::filesystem::exists(user.Folder() / "finder.txt"));
    }

    void SmartNavigateIsReachedFromIt() {
        FinderUser user;
        QTest::keyClick(user.Form().focusWidget(), Qt::Key_L, Qt::ControlModifier);
        bool isShown = false;
        QTimer::singleShot(0, &user.Form(), [&] {
            for (QWidget* window : QApplication::topLevelWidgets())
                if (window->isVisible() && window->windowTitle().startsWith(u"Smart Navigate")) {
                    isShown = true;
                    window->close();
                }
        });
        user.Box()->lstFound->setCurrentIndex(
            user.Box()->lstFound->model()->index(user.Box()->Rows().rowCount() - 1, 0));
        user.Press(Qt::Key_Return);
        QVERIFY(isShown);
    }

    void TextsOfStrangersAndLongLinesDoNoHarm() {
        FinderUser user;
        user.Open();
        user.Box()->txtFind->setText(QString(1'000'000, u'x'));
        QCOMPARE(user.Box()->Row(), -1);
        // What a box keeps of it is another thing with each toolkit; no row shows any of it.
        user.Box()->txtFind->setText(QString(30'000, QChar(0xD800)) + QChar(0x202E));
        for (const QString& row : user.Rows())
            for (const QChar c : row)
                QVERIFY2(!c.isSurrogate() && c != QChar(0x202E), qPrintable(row));
        user.Box()->grab();
    }
};

TALLOWMERE_WEB_TEST_MAIN(FinderTest)
#include "FinderTest.moc"
