#include "app/links/LinkPanel.h"
#include "app/engine/BrowserPane.h"
#include "app/links/PaneDeck.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TickerModel.h"
#include "core/text/files.h"
#include "support/Navigations.h"
#include "support/OutsideBrowser.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QContextMenuEvent>
#include <QFile>
#include <QMenu>
#include <QSignalSpy>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class LinkPanelTest : public QObject {
    Q_OBJECT
private:
    /// A window with MSFT selected whose separate browser writes its address into a file.
    struct Window : TestSession {
        Window() {
            Store("First", "OK");
            Store("Stocks1", "MSFT|");
            Store("CustomT101", "Mine");
            Store("Custom101", "mine.example");
            Start();
            navigations.emplace(Form());
        }
        QByteArray Opened() const { return browser.Opened(); }
        OutsideBrowser browser{*this};
        std::optional<Navigations> navigations;
    };

    static void TellOfPointer(Chip* link) {
        const QPointF middle = link->rect().center();
        QEnterEvent enter(middle, middle, QCursor::pos());
        QApplication::sendEvent(link, &enter);
    }
    static void MovePointerOnto(Chip* link) {
        QCursor::setPos(QCursor::pos() + QPoint(1, 0));
        TellOfPointer(link);
    }
    /// The background as it is painted, beside the caption.
    static QColor BodyOf(Chip* link) {
        return link->grab().toImage().pixelColor(3, link->height() / 2);
    }

private Q_SLOTS:
    void TheLeftButtonSwapsTheColoursUntilItIsReleased() {
        Window window;
        Chip* link = window.Link(3);
        const ColorPair before = link->Colors();
        QTest::mousePress(link, Qt::LeftButton);
        QCOMPARE(link->Colors(), Swapped(before));
        QTest::mouseRelease(link, Qt::LeftButton);
        QCOMPARE(link->Colors(), before);
    }

    void ThePressedLookEndsWhenThePointerMoves() {
        Window window;
        Chip* link = window.Link(3);
        const ColorPair before = link->Colors();
        QTest::mousePress(link, Qt::LeftButton);
        QMouseEvent move(QEvent::MouseMove, QPointF(3, 3), link->mapToGlobal(QPointF(3, 3)),
                         Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(link, &move);
        QCOMPARE(link->Colors(), before);
        QTest::mouseRelease(link, Qt::LeftButton);
        QCOMPARE(link->Colors(), before);
        QCOMPARE(window.navigations->size(), 1);
    }

    void ARightClickOpensOneSeparateBrowserAndThePaneIsNormalAgain() {
        Window window;
        window.navigations.reset();
        QStringList loaded;
        connect(window.Form().Web, &BrowserPane::BeforeNavigate2, this,
                [&](const QString& address, bool* cancel) {
                    if (!*cancel)
                        loaded << address;
                    *cancel = true;
                });
        QTest::mouseClick(window.Link(3), Qt::RightButton);
        QVERIFY(loaded.isEmpty());
        QTRY_COMPARE(window.Opened(), QByteArray("http://h.example/q?s=msft&d=2b\n"));
        QVERIFY(!window->Panes().OpensNextOutside());
        window.ClickLink(15);
        QCOMPARE(loaded.size(), 1);
    }

    void PagesOfOursOpenOutsideAsTheirWrittenFiles() {
        Window window;
        window.navigations.reset();
        const auto file = [&](const char* name) {
            return QUrl::fromLocalFile(PathToQt(window.Folder() / name)).toEncoded() + '\n';
        };
        QTest::mouseClick(window.Link(6), Qt::RightButton);
        QByteArray opened = file("ycs.htm");
        QTRY_COMPARE(window.Opened(), opened);
        QTest::mouseClick(window.Link(175), Qt::RightButton);
        opened += file("ycl.htm");
        QTRY_COMPARE(window.Opened(), opened);
        window.portal = [](const std::string&, const std::string&) {
            return PortalAnswer{"text/html",
                                "<html><table border=1 width=\"100%\" cellpadding=0 cellspacing=0>"
                                "<tr><td nowrap>1</td></tr></table>Quotes delayed 15</html>"};
        };
        QTest::mouseClick(window.Link(27), Qt::RightButton);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QApplication::activePopupWidget()->close();
        window.Form().findChild<QAction*>(u"mnuPort16"_s)->trigger();
        opened += file("ycprint.html");
        QTRY_COMPARE(window.Opened(), opened);
        window->Panes().OpenNextOutside(true);
        window.Form().menus->mnuViewPort->trigger();
        opened += file("report.html");
        QTRY_COMPARE(window.Opened(), opened);
        QVERIFY(window.prompts.messages.isEmpty());
        QVERIFY(!window->Panes().OpensNextOutside());
        QVERIFY(ReadExistingFile(window.Folder() / "ycs.htm").find("msft") != std::string::npos);
    }

    void ABrokerOpenedOutsideLeavesThePanesAsTheyAre() {
        Window window;
        QTest::mouseClick(window.Link(8), Qt::RightButton);
        QVERIFY(window.Form().WebB->isHidden());
        QTRY_COMPARE(window.Opened(), QByteArray("http://h.example/\n"));
    }

    void TwoClicksThatFollowQuicklyAreTwoClicks() {
        Window window;
        // The window system tells of the second press as of one of a double click.
        const auto clickTwice = [&](int index) {
            Chip* link = window.Link(index);
            QTest::mouseClick(link, Qt::LeftButton);
            QTest::mouseDClick(link, Qt::LeftButton);
            QTest::mouseRelease(link, Qt::LeftButton);
        };
        QSignalSpy clicks(window.Link(19), &Chip::clicked);
        clickTwice(19);
        QCOMPARE(clicks.size(), 2);
        clickTwice(3);
        QCOMPARE(window.navigations->size(), 2);
        clickTwice(101);
        QCOMPARE(window.navigations->size(), 4);
        // A recording that is started and ended.
        clickTwice(211);
        QVERIFY(!window->Recorded().templateMode);
        window.ClickLink(211);
        clickTwice(3);
        QCOMPARE(window->Recorded().multiLinkPage.count(u"<IFRAME"_s), 2);
    }

    void RightPressesThatFollowQuicklyAllCount() {
        Window window;
        QSignalSpy menus(window.Form().findChild<LinkPanel*>(), &LinkPanel::CustomMenuRequested);
        QTest::mouseClick(window.Link(101), Qt::RightButton);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QApplication::activePopupWidget()->close();
        // The window system tells of the next press as of the second one of a double click.
        QMouseEvent again(QEvent::MouseButtonDblClick, {2, 2},
                          window.Link(101)->mapToGlobal(QPointF(2, 2)), Qt::RightButton,
                          Qt::RightButton, Qt::NoModifier);
        QApplication::sendEvent(window.Link(101), &again);
        QCOMPARE(menus.size(), 2);
    }

    void ARightPressOnAToolSetsNothing() {
        Window window;
        for (const int tool : {0, 19, 20, 43, 100, 66, 92, 45}) {
            QTest::mousePress(window.Link(tool), Qt::RightButton);
            QVERIFY2(!window->Panes().OpensNextOutside(), qPrintable(QString::number(tool)));
            QTest::mouseRelease(window.Link(tool), Qt::RightButton);
        }
    }

    void TheNextLeftPressClearsTheRightPress() {
        Window window;
        QTest::mousePress(window.Link(3), Qt::RightButton);
        QVERIFY(window->Panes().OpensNextOutside());
        QTest::mousePress(window.Link(3), Qt::LeftButton);
        QVERIFY(!window->Panes().OpensNextOutside());
    }

    void ADropOnAnUnusedSlotMovesTheLinkWithoutAQuestion() {
        Window window;
        Q_EMIT window.Link(150)->Dropped(101);
        QVERIFY(window.prompts.messages.isEmpty());
        QCOMPARE(window.Stored("Custom150"), u"mine.example"_s);
        QCOMPARE(window.Stored("CustomT150"), u"Mine"_s);
        QCOMPARE(window.Link(150)->Caption(), u"Mine"_s);
        QCOMPARE(window.Stored("Custom101"), QString());
        QCOMPARE(window.Stored("CustomT101"), u"< Custom >"_s);
        QCOMPARE(window.Link(101)->Caption(), u"< Custom >"_s);
        QCOMPARE(window.Link(101)->Colors(), (ColorPair{0x80000008, 0xC0E0FF}));
    }

    void AfterTheMenuOfASlotItsLabelHasItsColoursWithoutThePointersHelp() {
        Window window;
        Chip* link = window.Link(101);
        const QColor plain = ScreenColor(link->Colors().background, link->palette());
        MovePointerOnto(link);
        QVERIFY(BodyOf(link) != plain);
        QTest::mouseClick(link, Qt::RightButton);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QApplication::activePopupWidget()->close();
        QTRY_COMPARE(BodyOf(link), plain);
        // The window system tells once more of the pointer, which has not moved.
        TellOfPointer(link);
        QCOMPARE(BodyOf(link), plain);
        MovePointerOnto(link);
        QVERIFY(BodyOf(link) != plain);
    }

    void AfterADropNoLabelIsTintedAnyMore() {
        Window window;
        window.Store("CustomT102", "Other");
        window.Link(102)->SetCaption(u"Other"_s);
        for (const int slot : {101, 102})
            MovePointerOnto(window.Link(slot));
        window.prompts.answers = {true};
        Q_EMIT window.Link(102)->Dropped(101);
        for (const int slot : {101, 102}) {
            const Chip* link = window.Link(slot);
            QTRY_COMPARE(BodyOf(window.Link(slot)),
                         ScreenColor(link->Colors().background, link->palette()));
        }
    }

    void TheMenuBarOpensTheLinkOfTheFocusInASeparateBrowser() {
        Window window;
        window.Form().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window.Form()));
        const MainMenus& menus = *window.Form().menus;
        const auto ask = [&] { Q_EMIT menus.linkMenu->aboutToShow(); };
        ask();
        QVERIFY(!menus.openOutside->isEnabled());
        window.Link(3)->setFocus();
        ask();
        QVERIFY(menus.openOutside->isEnabled());
        QCOMPARE(menus.openOutside->text(), u"Open Y! in Separate &Browser"_s);
        menus.openOutside->trigger();
        QTRY_COMPARE(window.Opened(), QByteArray("http://h.example/q?s=msft&d=2b\n"));
        QVERIFY(!window->Panes().OpensNextOutside());
        // The link that was used last counts when no link has the focus.
        window.ClickLink(15);
        window.Form().List1->setFocus();
        ask();
        QCOMPARE(menus.openOutside->text(), u"Open Zacks in Separate &Browser"_s);
        window.Link(19)->setFocus();
        ask();
        QVERIFY(!menus.openOutside->isEnabled());
        window.Link(150)->setFocus();
        ask();
        QVERIFY(!menus.openOutside->isEnabled());
        window.Link(101)->setFocus();
        ask();
        QVERIFY(menus.openOutside->isEnabled());
        // Without a ticker nothing opens, now or with the next link.
        window.Form().List1->SetListIndex(-1);
        window.Link(3)->setFocus();
        ask();
        menus.openOutside->trigger();
        QCOMPARE(window.prompts.messages, QStringList{u"Quorvane: Select a Ticker"_s});
        QVERIFY(!window->Panes().OpensNextOutside());
    }

    void TheMenuKeyOpensTheMenuOfEveryLinkBelowIt() {
        Window window;
        QSignalSpy menus(window.Form().findChild<LinkPanel*>(), &LinkPanel::CustomMenuRequested);
        for (const int index : {101, 3, 43}) {
            Chip* link = window.Link(index);
            link->setFocus();
            QContextMenuEvent key(QContextMenuEvent::Keyboard, link->rect().center(),
                                  link->mapToGlobal(link->rect().center()));
            QApplication::sendEvent(link, &key);
            QCOMPARE(menus.size(), 1);
            QCOMPARE(menus[0][0].toInt(), index);
            QCOMPARE(menus[0][1].toPoint(), link->mapToGlobal(link->rect().bottomLeft()));
            QVERIFY(QApplication::activePopupWidget());
            QApplication::activePopupWidget()->close();
            menus.clear();
            QTest::keyClick(link, Qt::Key_F10, Qt::ShiftModifier);
            QCOMPARE(menus.size(), 1);
            QVERIFY(QApplication::activePopupWidget());
            QApplication::activePopupWidget()->close();
            menus.clear();
        }
        QVERIFY(window.navigations->isEmpty());
        QVERIFY(!window->Panes().OpensNextOutside());
    }

    void ByPointerTheMenuOfASlotOpensAtThePointer() {
        Window window;
        QSignalSpy menus(window.Form().findChild<LinkPanel*>(), &LinkPanel::CustomMenuRequested);
        QCursor::setPos(window.Form().mapToGlobal(QPoint(60, 70)));
        QTest::mouseClick(window.Link(101), Qt::RightButton);
        QCOMPARE(menus.size(), 1);
        QCOMPARE(menus[0][1].toPoint(), QCursor::pos());
        QCOMPARE(QCursor::pos(), window.Form().mapToGlobal(QPoint(60, 70)));
        QApplication::activePopupWidget()->close();
    }

    void ADropOnAUsedSlotAsksFirst() {
        Window window;
        window.Store("CustomT102", "Other");
        window.Store("Custom102", "other.example");
        window.Link(102)->SetCaption(u"Other"_s);
        Q_EMIT window.Link(102)->Dropped(101);
        QCOMPARE(window.prompts.messages,
                 QStringList{u"Move Custom Link: Do you want to overwrite the 'Other' link?"_s});
        QCOMPARE(window.Stored("Custom102"), u"other.example"_s);
        QCOMPARE(window.Stored("Custom101"), u"mine.example"_s);
        window.prompts.answers = {true};
        Q_EMIT window.Link(102)->Dropped(101);
        QCOMPARE(window.Stored("Custom102"), u"mine.example"_s);
        QCOMPARE(window.Stored("Custom101"), QString());
    }

    void SendAllJoinsTheTickersOfTheList() {
        Window window;
        window->Ports().List().Clear();
        window->Ports().List().Append({"MSFT", "IBM"});
        window->Panel().SendAll(u"lycos"_s);
        QVERIFY(window.navigations->last().endsWith(u"company=MSFT%20IBM&x=58&y=9"_s));
        window->Panel().SendAll(u"MSN"_s);
        QCOMPARE(window.navigations->last(),
                 u"Web: h.example/investor/charts/charting.asp?Symbol=MSFT+IBM"_s);
        window->Panel().SendAll(u"stats"_s);
        QCOMPARE(window.navigations->last(),
                 u"Web: h.example/investments/stats/?symbol=MSFT%20IBM"_s);
    }

    void EveryLinkIsNamedAndReachedByKeyboard() {
        Window window;
        for (const Chip* link : window.Form().lbllink) {
            QCOMPARE(link->accessibleName(), link->Caption().trimmed());
            QCOMPARE(link->objectName(), u"lbllink"_s + QString::number(link->Index()));
        }
        // One chip of each group takes the focus by Tab; the arrow keys reach its neighbours.
        window.Link(19)->setFocus();
        QTest::keyClick(window.Link(19), Qt::Key_Right);
        QCOMPARE(window.Form().focusWidget(), window.Link(20));
        QTest::keyClick(window.Link(20), Qt::Key_Left);
        QCOMPARE(window.Form().focusWidget(), window.Link(19));
        window.Link(3)->setFocus();
        QTest::keyClick(window.Link(3), Qt::Key_Return);
        QCOMPARE(*window.navigations, QStringList{u"Web: h.example/q?s=msft&d=2b"_s});
        QTest::keyClick(window.Link(3), Qt::Key_Space);
        QCOMPARE(window.navigations->size(), 2);
    }
};

TALLOWMERE_WEB_TEST_MAIN(LinkPanelTest)
#include "LinkPanelTest.moc"
