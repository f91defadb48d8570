#include "app/custom/CustomMenu.h"
#include "app/custom/CustomEditor.h"
#include "app/engine/BrowserPane.h"
#include "app/links/PaneDeck.h"
#include "app/market/ActiveEdges.h"
#include "core/text/files.h"
#include "support/LinkDrop.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QDesktopServices>
#include <QDrag>
#include <QMenu>
#include <QPushButton>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class CustomMenuTest : public QObject {
    Q_OBJECT
private:
    static QMenu& Menu(TestSession& session) {
        return *session.Form().findChild<QMenu*>(u"mnuCustom"_s);
    }
    static QAction* Item(TestSession& session, int item) {
        return Menu(session).findChild<QAction*>(u"mnuCustLnk"_s + QString::number(item));
    }

    /// Pops the menu of a slot up and chooses one of its items.
    static void Choose(TestSession& session, int slot, int item) {
        QTest::mouseClick(session.Link(slot), Qt::RightButton);
        QMenu& menu = Menu(session);
        QVERIFY(menu.isVisible());
        menu.setActiveAction(Item(session, item));
        QTest::keyClick(&menu, Qt::Key_Return);
    }

    static void StoreLink(TestSession& session, int slot, const char* title, const char* fore,
                          const char* back) {
        const std::string number = std::to_string(slot);
        session.Store(("Custom" + number).c_str(), ("http://h.example/" + number).c_str());
        session.Store(("CustomT" + number).c_str(), title);
        session.Store(("CustomF" + number).c_str(), fore);
        session.Store(("CustomB" + number).c_str(), back);
    }

public Q_SLOTS:
    void OpenOnDesktop(const QUrl& url) { m_onDesktop << url; }

private:
    QList<QUrl> m_onDesktop;

private Q_SLOTS:
    void TheMenuHasItsSevenEntries() {
        TestSession session;
        session.Start();
        QMenu& menu = Menu(session);
        QCOMPARE(menu.title(), u"Custom"_s);
        QCOMPARE(menu.actions().size(), 7);
        const QStringList captions{u"Open"_s, u"Open in New Window"_s, u"Properties"_s,  u"Reset"_s,
                                   QString(), u"Copy Colors"_s,        u"Paste Colors"_s};
        for (int item = 1; item <= 7; ++item) {
            QCOMPARE(menu.actions().at(item - 1), Item(session, item));
            QCOMPARE(Item(session, item)->text(), captions.at(item - 1));
        }
        QVERIFY(Item(session, 5)->isSeparator());
    }

    void TheEdgesAreHeldWhileTheMenuIsOpen() {
        TestSession session;
        StoreLink(session, 101, "Abc", "255", "65280");
        session.Start();
        QTest::mouseClick(session.Link(101), Qt::RightButton);
        QVERIFY(Menu(session).isVisible());
        QCOMPARE(session->SlotMenu().Slot(), 101);
        QVERIFY(session->Edges().IsHeld());
        QTest::keyClick(&Menu(session), Qt::Key_Escape);
        QVERIFY(!session->Edges().IsHeld());
    }

    void OpenLoadsTheLinksPage() {
        TestSession session;
        StoreLink(session, 102, "Abc", "255", "65280");
        session.Start();
        Choose(session, 102, 1);
        QTRY_VERIFY(session.asked.contains(u"h.example/102"_s));
    }

    void OpenInNewWindowLeavesThePanesAlone() {
        TestSession session;
        StoreLink(session, 103, "Abc", "255", "65280");
        session.Start();
        QString inPane;
        QObject::connect(session.Form().Web, &BrowserPane::BeforeNavigate2,
                         [&](const QString& address, const bool* cancel) {
                             inPane = address + (*cancel ? u" cancelled"_s : QString());
                         });
        Choose(session, 103, 2);
        QCOMPARE(inPane, u"http://h.example/103 cancelled"_s);
        QVERIFY(!session->Panes().OpensNextOutside());
    }

    void OpenInNewWindowOfAMultiLinkHandsThePageForTheTickerOver() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "MSFT|");
        session.Store("CustomT103", "Two");
        session.Store("Custom103", "MULTILINK:Two.mlnk");
        WriteWholeFile(session.Folder() / "Two.mlnk", "<html>UCASETICK LCASETICK</html>\r\n");
        session.Start();
        QDesktopServices::setUrlHandler(u"file"_s, this, "OpenOnDesktop");
        Choose(session, 103, 2);
        QDesktopServices::unsetUrlHandler(u"file"_s);
        QCOMPARE(m_onDesktop,
                 QList<QUrl>{QUrl::fromLocalFile(PathToQt(session.Folder() / "multiweb.html"))});
        QCOMPARE(ReadExistingFile(session.Folder() / "multiweb.html"),
                 "<html>MSFT msft</html>\r\n");
        QVERIFY(session.prompts.messages.isEmpty());
        QVERIFY(!session->Panes().OpensNextOutside());
    }

    void TheMenuBarHasTheCommandsOfTheSlotThatHasTheFocus() {
        TestSession session;
        StoreLink(session, 101, "One", "255", "65280");
        StoreLink(session, 102, "Two", "1", "2");
        session.Start();
        session.Form().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&session.Form()));
        QMenu& menu = *session.Form().menus->linkMenu;
        const auto states = [&] {
            Q_EMIT menu.aboutToShow();
            QString text;
            for (const int item : {2, 3, 4, 6, 7}) {
                if (!menu.actions().contains(Item(session, item)))
                    return u"missing"_s;
                text += Item(session, item)->isEnabled() ? u'y' : u'n';
            }
            return text;
        };
        QCOMPARE(states(), u"nnnnn"_s);
        session.Link(101)->setFocus();
        QCOMPARE(states(), u"yyyyn"_s);
        Item(session, 6)->trigger();
        session.Link(102)->setFocus();
        QCOMPARE(states(), u"yyyyy"_s);
        Item(session, 7)->trigger();
        QCOMPARE(session.Stored("CustomF102"), u"255"_s);
        Item(session, 4)->trigger();
        QCOMPARE(session.Stored("CustomT102"), u"< Custom >"_s);
        QCOMPARE(session.Stored("CustomT101"), u"One"_s);
        // Now it is unused: it can only be given a link.
        QCOMPARE(states(), u"nynnn"_s);
        session.Link(3)->setFocus();
        QCOMPARE(states(), u"ynnyn"_s);
        session.Link(0)->setFocus();
        QCOMPARE(states(), u"nnnyn"_s);
        session.Link(101)->setFocus();
        Q_EMIT menu.aboutToShow();
        Item(session, 3)->trigger();
        const frmCustom* editor = session->Editor().Editor();
        QVERIFY(editor);
        QCOMPARE(editor->txtTitle->text(), u"One"_s);
        QTest::mouseClick(editor->Command3, Qt::LeftButton);
    }

    void ByKeyboardABuiltInLinkHasTheMenuToo() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "MSFT|");
        session.Start();
        session.Link(3)->setFocus();
        QTest::keyClick(session.Link(3), Qt::Key_F10, Qt::ShiftModifier);
        QVERIFY(Menu(session).isVisible());
        QVERIFY(Item(session, 1)->isEnabled());
        QVERIFY(Item(session, 2)->isEnabled());
        QVERIFY(!Item(session, 3)->isEnabled());
        QVERIFY(!Item(session, 4)->isEnabled());
        QTest::keyClick(&Menu(session), Qt::Key_Down);
        QTest::keyClick(&Menu(session), Qt::Key_Return);
        QTRY_VERIFY(session.asked.contains(u"h.example/q?s=msft&d=2b"_s));
    }

    void PropertiesOpensTheEditor() {
        TestSession session;
        StoreLink(session, 104, "Abc", "255", "65280");
        session.Start();
        Choose(session, 104, 3);
        const frmCustom* editor = session->Editor().Editor();
        QVERIFY(editor);
        QCOMPARE(editor->txtTitle->text(), u"Abc"_s);
        QTest::mouseClick(editor->Command3, Qt::LeftButton);
        QVERIFY(!session->Recorded().templateMode);
    }

    void PropertiesStartsTheRecordingThatTheEditorPrepared() {
        TestSession session;
        StoreLink(session, 104, "Abc", "255", "65280");
        session.Start();
        Choose(session, 104, 3);
        QTest::mouseClick(session->Editor().Editor()->cmdMulti, Qt::LeftButton);
        QVERIFY(session->Recorded().templateMode);
        QCOMPARE(session->Recorded().multiLinkSlot, 104);
        QCOMPARE(session.Stored("Custom104"), u"MULTILINK:Abc.mlnk"_s);
    }

    void ResetEmptiesTheSlotAndKeepsThePageFile() {
        TestSession session;
        StoreLink(session, 105, "Abc", "255", "65280");
        session.Store("Custom105", "MULTILINK:Abc.mlnk");
        session.Settings().SaveSetting("Colors", "bCUST", "0");
        session.Start();
        WriteWholeFile(session.Folder() / "Abc.mlnk", "page");
        Choose(session, 105, 4);
        QCOMPARE(session.Link(105)->Caption(), u"< Custom >"_s);
        QCOMPARE(session.Link(105)->Colors(), (ColorPair{0x80000008, 0}));
        QCOMPARE(session.Stored("Custom105"), QString());
        QCOMPARE(session.Stored("CustomT105"), u"< Custom >"_s);
        QCOMPARE(session.Stored("CustomF105"), u"-2147483640"_s);
        QCOMPARE(session.Stored("CustomB105"), u"0"_s);
        QVERIFY(std::filesystem::exists(session.Folder() / "Abc.mlnk"));
    }

    void ColoursAreCopiedFromOneLinkToAnother() {
        TestSession session;
        StoreLink(session, 101, "One", "255", "65280");
        StoreLink(session, 102, "Two", "1", "2");
        session.Start();
        QVERIFY(!Item(session, 7)->isEnabled());
        Choose(session, 102, 7);
        QCOMPARE(session.Stored("CustomF102"), u"1"_s);
        QTest::keyClick(&Menu(session), Qt::Key_Escape);
        Choose(session, 101, 6);
        QVERIFY(Item(session, 7)->isEnabled());
        Choose(session, 102, 7);
        QCOMPARE(session.Link(102)->Colors(), (ColorPair{255, 65280}));
        QCOMPARE(session.Stored("CustomF102"), u"255"_s);
        QCOMPARE(session.Stored("CustomB102"), u"65280"_s);
        QCOMPARE(session.Stored("CustomT102"), u"Two"_s);
    }

    void AfterACopyOfABlackTextPasteDoesNothing() {
        TestSession session;
        StoreLink(session, 101, "One", "255", "65280");
        StoreLink(session, 102, "Two", "1", "2");
        session.Start();
        session.Link(101)->SetColors({0, 65280});
        Choose(session, 101, 6);
        QVERIFY(Item(session, 7)->isEnabled());
        Choose(session, 102, 7);
        QCOMPARE(session.Link(102)->Colors(), (ColorPair{1, 2}));
        QCOMPARE(session.Stored("CustomF102"), u"1"_s);
    }

    void ARightClickOnAnUnusedSlotOpensTheEditor() {
        TestSession session;
        session.Start();
        QTest::mouseClick(session.Link(120), Qt::RightButton);
        QVERIFY(!Menu(session).isVisible());
        QVERIFY(session->Editor().Editor());
        QCOMPARE(session->Editor().Slot(), 120);
    }

    void ALinkDroppedOnAnUnusedSlotMovesWithoutAQuestion() {
        TestSession session;
        StoreLink(session, 101, "One", "255", "65280");
        session.Start();
        QVERIFY(DropLink(session, 101, 150));
        QCOMPARE(session.prompts.messages, QStringList());
        QCOMPARE(session.Link(150)->Caption(), u"One"_s);
        QCOMPARE(session.Link(150)->Colors(), (ColorPair{255, 65280}));
        QCOMPARE(session.Stored("Custom150"), u"http://h.example/101"_s);
        QCOMPARE(session.Stored("CustomF150"), u"255"_s);
        QCOMPARE(session.Link(101)->Caption(), u"< Custom >"_s);
        QCOMPARE(session.Link(101)->Colors(), (ColorPair{0x80000008, 0xC0E0FF}));
        QCOMPARE(session.Stored("Custom101"), QString());
        QCOMPARE(session.Stored("CustomT101"), u"< Custom >"_s);
        QCOMPARE(session.Stored("CustomB101"), u"12640511"_s);
    }

    void ALinkDroppedOnAnotherIsMovedOnlyOnYes() {
        TestSession session;
        StoreLink(session, 101, "One", "255", "65280");
        StoreLink(session, 102, "R&D", "1", "2");
        session.Start();
        QVERIFY(DropLink(session, 101, 102));
        const QString question = u"Move Custom Link: Do you want to overwrite the 'R&D' link?"_s;
        QCOMPARE(session.prompts.messages, QStringList{question});
        QCOMPARE(session.Link(101)->Caption(), u"One"_s);
        QCOMPARE(session.Link(102)->Caption(), u"R&D"_s);
        QCOMPARE(session.Stored("Custom102"), u"http://h.example/102"_s);
        session.prompts.answers = {true};
        QVERIFY(DropLink(session, 101, 102));
        QCOMPARE(session.Link(102)->Caption(), u"One"_s);
        QCOMPARE(session.Stored("Custom102"), u"http://h.example/101"_s);
        QCOMPARE(session.Link(101)->Caption(), u"< Custom >"_s);
    }

    void AnUnusedSlotIsNotDragged() {
        TestSession session;
        session.Start();
        Chip* link = session.Link(101);
        QTest::mousePress(link, Qt::LeftButton);
        QVERIFY(session->Edges().IsHeld());
        const QPointF away = link->rect().center() + QPoint(200, 0);
        QMouseEvent move(QEvent::MouseMove, away, link->mapToGlobal(away), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(link, &move);
        QVERIFY(!link->findChild<QDrag*>());
        QVERIFY(session->Edges().IsHeld());
        QTest::mouseRelease(link, Qt::LeftButton, {}, away.toPoint());
    }

    void ALinkWithoutColoursOfItsOwnMovesAsItLooks() {
        TestSession session;
        StoreLink(session, 101, "One", "0", "0");
        StoreLink(session, 102, "Two", "1", "2");
        session.Start();
        const ColorPair shown = session.Link(101)->Colors();
        session.prompts.answers = {true};
        QVERIFY(DropLink(session, 101, 102));
        QCOMPARE(session.Link(102)->Colors(), shown);
        QCOMPARE(session.Stored("CustomF102"), u"0"_s);
    }
};

TALLOWMERE_WEB_TEST_MAIN(CustomMenuTest)
#include "CustomMenuTest.moc"
