#include "app/custom/CustomEditor.h"
#include "app/engine/BrowserPane.h"
#include "app/forms/frmMain.h"
#include "app/links/PaneDeck.h"
#include "core/text/files.h"
#include "support/Await.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

using namespace tallowmere;
using namespace Qt::StringLiterals;

class CustomEditorTest : public QObject {
    Q_OBJECT
private:
    static void Click(QWidget* button) { QTest::mouseClick(button, Qt::LeftButton); }

    /// Opens the editor for a slot that is not used yet, with a click on its link.
    static frmCustom& OpenUnused(TestSession& session, int slot = 101) {
        session.ClickLink(slot);
        return *session->Editor().Editor();
    }

    /// Opens the editor for a slot that is in use, as the menu does.
    static frmCustom& Open(TestSession& session, int slot) {
        session->Editor().Open(slot);
        return *session->Editor().Editor();
    }

    static void Type(QLineEdit* box, const QString& text) {
        box->setFocus();
        box->selectAll();
        if (text.isEmpty())
            QTest::keyClick(box, Qt::Key_Delete);
        else
            QTest::keyClicks(box, text);
    }

    static void StoreLink(TestSession& session, const char* address) {
        session.Store("Custom101", address);
        session.Store("CustomT101", "Abc");
        session.Store("CustomF101", "255");
        session.Store("CustomB101", "65280");
    }

private Q_SLOTS:
    void AnUnusedSlotOpensEmptyInTheColoursOfUnusedSlots() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        QVERIFY(editor.isVisible());
        QVERIFY(editor.isModal());
        QCOMPARE(editor.windowTitle(), u"Custom Link Properties"_s);
        QCOMPARE(editor.txtTitle->text(), u"< Custom >"_s);
        QCOMPARE(editor.txtURL->text(), QString());
        QCOMPARE(editor.lblExamp->Caption(), u"< Custom >"_s);
        QCOMPARE(editor.lblExamp->Colors(), (ColorPair{0x80000008, 0xC0E0FF}));
    }

    void TheControlsHaveTheirNamesAndCaptions() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        const QList<std::pair<QString, QString>> buttons = {
            {u"Command1"_s, u"&Reset"_s},      {u"Command2"_s, u"&Save"_s},
            {u"Command3"_s, u"&Cancel"_s},     {u"Command4"_s, u"Current &Page"_s},
            {u"Command5"_s, u"&Text Color"_s}, {u"Command6"_s, u"&Background Color"_s},
            {u"cmdMulti"_s, u"&Multi Link"_s}};
        for (const auto& [name, caption] : buttons) {
            const auto* button = editor.findChild<QPushButton*>(name);
            QVERIFY2(button, qPrintable(name));
            QCOMPARE(button->text(), caption);
        }
        QVERIFY(editor.findChild<QLineEdit*>(u"txtTitle"_s));
        QVERIFY(editor.findChild<QLineEdit*>(u"txtURL"_s));
        QVERIFY(editor.findChild<Chip*>(u"lblExamp"_s));
        QStringList texts;
        for (const QLabel* label : editor.findChildren<QLabel*>())
            texts << label->text();
        QVERIFY(texts.contains(u"Sample :"_s));
        QVERIFY(texts.contains(
            u"Enter a Title for the link (up to 12 char in length).  Enter the full URL for the "
            "link.  If the link should contain the current stock symbol selected in your "
            "portfolio, replace the symbol(s) in the URL with UCASETICK for an upper case symbol "
            "and LCASETICK for a lower case symbol.  When you click your custom link, the "
            "UCASETICK and/or LCASETICK will be replaced with the symbol you have selected in "
            "your portfolio."_s));
        QVERIFY(texts.contains(
            u"To create a 'Multi Link',  enter a title for the link and then click the Multi Link "
            "button to begin selecting the links you wish to include in your Multi Link.  Once "
            "you have selected the links, click the blinking ML button to to finish.  See the "
            "Help page for further detail on MultiLinks."_s));
    }

    void ASlotInUseOpensWithWhatItHolds() {
        TestSession session;
        StoreLink(session, "http://h.example/?s=LCASETICK ");
        session.Start();
        const frmCustom& editor = Open(session, 101);
        QCOMPARE(editor.txtTitle->text(), u"Abc"_s);
        QCOMPARE(editor.txtURL->text(), u"http://h.example/?s=LCASETICK "_s);
        QCOMPARE(editor.lblExamp->Caption(), u"Abc"_s);
        QCOMPARE(editor.lblExamp->Colors(), (ColorPair{255, 65280}));
    }

    void TheSampleFollowsTheTitle() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        Type(editor.txtTitle, u"R&D"_s);
        QCOMPARE(editor.lblExamp->Caption(), u"R&D"_s);
    }

    void ATitleOfThirteenCharactersCannotBeTypedAndIsCutWhenPasted() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        Type(editor.txtTitle, u"1234567890123"_s);
        QCOMPARE(editor.txtTitle->text(), u"123456789012"_s);
        QGuiApplication::clipboard()->setText(u"ABCDEFGHIJKLMNOP"_s);
        editor.txtTitle->selectAll();
        QTest::keyClick(editor.txtTitle, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(editor.txtTitle->text(), u"ABCDEFGHIJKL"_s);
        QCOMPARE(editor.lblExamp->Caption(), u"ABCDEFGHIJKL"_s);
    }

    void BlanksAroundTheTitleGoWhenItsBoxIsLeft() {
        TestSession session;
        session.Start();
        frmCustom& editor = OpenUnused(session);
        QVERIFY(QTest::qWaitForWindowActive(&editor));
        Type(editor.txtTitle, u"  a b "_s);
        QCOMPARE(editor.txtTitle->text(), u"  a b "_s);
        QTest::keyClick(editor.txtTitle, Qt::Key_Tab);
        QCOMPARE(editor.txtTitle->text(), u"a b"_s);
    }

    void SavingStoresTheFourValuesAndShowsTheLink() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session, 142);
        Type(editor.txtTitle, u"Mine"_s);
        Type(editor.txtURL, u" http://h.example/?s=UCASETICK "_s);
        session.prompts.colors = {QColor(1, 2, 3), QColor(255, 128, 0)};
        Click(editor.Command5);
        Click(editor.Command6);
        QCOMPARE(editor.lblExamp->Colors(), (ColorPair{0x030201, 0x0080FF}));
        Click(editor.Command2);
        QVERIFY(!session->Editor().Editor());
        QCOMPARE(session.Stored("Custom142"), u" http://h.example/?s=UCASETICK "_s);
        QCOMPARE(session.Stored("CustomT142"), u"Mine"_s);
        QCOMPARE(session.Stored("CustomF142"), u"197121"_s);
        QCOMPARE(session.Stored("CustomB142"), u"33023"_s);
        QCOMPARE(session.Link(142)->Caption(), u"Mine"_s);
        QCOMPARE(session.Link(142)->Colors(), (ColorPair{0x030201, 0x0080FF}));
        session.Start();
        QCOMPARE(session.Link(142)->Caption(), u"Mine"_s);
        QCOMPARE(session.Link(142)->Colors(), (ColorPair{0x030201, 0x0080FF}));
    }

    void ABlackSampleIsStoredAsTheDarkestColourThatCounts() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        Type(editor.txtTitle, u"Abc"_s);
        session.prompts.colors = {QColor(Qt::black), QColor(Qt::black)};
        Click(editor.Command5);
        Click(editor.Command6);
        QTest::keyClick(editor.txtTitle, Qt::Key_Return);
        QCOMPARE(session.Stored("CustomF101"), u"65793"_s);
        QCOMPARE(session.Stored("CustomB101"), u"65793"_s);
        QCOMPARE(session.Link(101)->Colors(), (ColorPair{65793, 65793}));
    }

    void TheColourDialogStartsWithTheSamplesColour() {
        TestSession session;
        StoreLink(session, "x");
        session.Start();
        const frmCustom& editor = Open(session, 101);
        Click(editor.Command5);
        Click(editor.Command6);
        QCOMPARE(session.prompts.initials, (QList{QColor(255, 0, 0), QColor(0, 255, 0)}));
        // Both dialogs were cancelled.
        QCOMPARE(editor.lblExamp->Colors(), (ColorPair{255, 65280}));
    }

    void CurrentPageTakesTheAddressOfTheMainPane() {
        TestSession session;
        session.Start();
        const QString address = u"http://h.example/q?s=%5Edji&d=2b%02"_s;
        session.Form().Web->Navigate(address);
        QVERIFY(Await([&] { return session.Form().Web->LocationURL() == address; }));
        const frmCustom& editor = OpenUnused(session);
        Click(editor.Command4);
        QCOMPARE(editor.txtURL->text(), address);
    }

    void TheTitleIsSelectedSoThatTypingReplacesIt() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        QCOMPARE(editor.txtTitle->selectedText(), u"< Custom >"_s);
        QTest::keyClicks(editor.txtTitle, u"Abc"_s);
        QCOMPARE(editor.txtTitle->text(), u"Abc"_s);
    }

    void WhatIsTypedIntoTheCaptionOfAnUnusedSlotTakesItsPlace() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        for (const int at : {0, 5, 10}) {
            editor.txtTitle->setText(u"< Custom >"_s);
            editor.txtTitle->setCursorPosition(at);
            QTest::keyClicks(editor.txtTitle, u"Ab"_s);
            QCOMPARE(editor.txtTitle->text(), u"Ab"_s);
        }
        editor.txtTitle->setText(u"< Custom >"_s);
        editor.txtTitle->setCursorPosition(10);
        QTest::keyClick(editor.txtTitle, Qt::Key_Backspace);
        QCOMPARE(editor.txtTitle->text(), QString());
        editor.txtTitle->setText(u"Mine"_s);
        QTest::keyClicks(editor.txtTitle, u"2"_s);
        QCOMPARE(editor.txtTitle->text(), u"Mine2"_s);
    }

    void CurrentPageOffersAPlaceholderForTheTickerInTheAddress() {
        TestSession session;
        session.Store("First", "OK");
        session.Store("Stocks1", "AOL|MSFT|");
        session.Start();
        session.Form().List1->SetListIndex(1);
        session->Panes().Navigate(u"http://h.example/m/msft?s=MSFT"_s);
        QTRY_COMPARE(session.Form().Web->LocationURL(), u"http://h.example/m/msft?s=MSFT"_s);
        const frmCustom& editor = OpenUnused(session);
        const auto* shown = editor.findChild<QLabel*>(u"lblExpanded"_s);
        QVERIFY(editor.cmdPlaceholder->isHidden());
        editor.Command4->click();
        QCOMPARE(editor.txtURL->text(), u"http://h.example/m/msft?s=MSFT"_s);
        QVERIFY(!editor.cmdPlaceholder->isHidden());
        QCOMPARE(shown->text(), u"MSFT found : http://h.example/LEFTONE/LCASETICK?s=UCASETICK"_s);
        editor.cmdPlaceholder->click();
        QCOMPARE(editor.txtURL->text(), u"http://h.example/LEFTONE/LCASETICK?s=UCASETICK"_s);
        QVERIFY(editor.cmdPlaceholder->isHidden());
        QCOMPARE(shown->text(), u"For MSFT : http://h.example/m/msft?s=MSFT"_s);
        editor.txtURL->setText(u"http://h.example/"_s);
        QCOMPARE(shown->text(), QString());
    }

    void SavingWithoutATitleIsRefused() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        Type(editor.txtURL, u"http://h.example/"_s);
        Click(editor.Command2);
        Type(editor.txtTitle, {});
        Click(editor.Command2);
        const QString refusal = u"Custom Link: Enter a title before saving."_s;
        QCOMPARE(session.prompts.messages, (QStringList{refusal, refusal}));
        QVERIFY(editor.isVisible());
        QCOMPARE(session.Stored("CustomT101"), u"<absent>"_s);
    }

    void AnUnusedSlotWithABlankAddressIsSavedAndStaysUnused() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        Type(editor.txtURL, u"   "_s);
        Click(editor.Command2);
        QVERIFY(!session->Editor().Editor());
        QCOMPARE(session.prompts.messages, QStringList());
        QCOMPARE(session.Stored("Custom101"), u"   "_s);
        QCOMPARE(session.Link(101)->Caption(), u"< Custom >"_s);
        session.ClickLink(101);
        QVERIFY(session->Editor().Editor());
    }

    void AVeryLongAddressIsKeptWhole() {
        TestSession session;
        session.Start();
        const QString address = u"http://h.example/?"_s + QString(100000, u'a');
        const frmCustom& editor = OpenUnused(session);
        Type(editor.txtTitle, u"Long"_s);
        QGuiApplication::clipboard()->setText(address);
        QTest::keyClick(editor.txtURL, Qt::Key_V, Qt::ControlModifier);
        Click(editor.Command2);
        QCOMPARE(session.Stored("Custom101"), address);
        QCOMPARE(Open(session, 101).txtURL->text(), address);
    }

    void ResetAndCancelLeaveTheSlotAndItsPageFile() {
        TestSession session;
        StoreLink(session, "MULTILINK:Abc.mlnk");
        session.Start();
        const auto page = session.Folder() / "Abc.mlnk";
        WriteWholeFile(page, "page");
        const frmCustom& editor = Open(session, 101);
        Click(editor.Command1);
        QCOMPARE(editor.txtTitle->text(), u"< Custom >"_s);
        QCOMPARE(editor.txtURL->text(), QString());
        QCOMPARE(editor.lblExamp->Colors(), (ColorPair{0x80000008, 0xC0E0FF}));
        Click(editor.Command3);
        QCOMPARE(session.Stored("Custom101"), u"MULTILINK:Abc.mlnk"_s);
        QCOMPARE(session.Link(101)->Caption(), u"Abc"_s);
        QVERIFY(std::filesystem::exists(page));
        // Nor does a later save delete it.
        Click(Open(session, 101).Command2);
        QVERIFY(std::filesystem::exists(page));
    }

    void ResetAndSaveDeleteThePageFile() {
        TestSession session;
        StoreLink(session, "MULTILINK:Abc.mlnk");
        session.Start();
        const auto page = session.Folder() / "Abc.mlnk";
        WriteWholeFile(page, "page");
        const frmCustom& editor = Open(session, 101);
        Click(editor.Command1);
        Click(editor.Command2);
        QVERIFY(!std::filesystem::exists(page));
        QCOMPARE(session.Stored("Custom101"), QString());
        QCOMPARE(session.Stored("CustomT101"), u"< Custom >"_s);
        QCOMPARE(session.Link(101)->Caption(), u"< Custom >"_s);
        QCOMPARE(session.Link(101)->Colors(), (ColorPair{0x80000008, 0xC0E0FF}));
    }

    void ResetNeverDeletesAFileOfAnotherFolder() {
        TestSession session;
        const auto outside = session.Folder().parent_path() / "outside.mlnk";
        WriteWholeFile(outside, "page");
        StoreLink(session, "MULTILINK:../outside.mlnk");
        session.Start();
        const frmCustom& editor = Open(session, 101);
        Click(editor.Command1);
        Click(editor.Command2);
        const bool there = std::filesystem::remove(outside);
        QVERIFY(there);
    }

    void EscapeCancels() {
        TestSession session;
        StoreLink(session, "http://h.example/");
        session.Start();
        const frmCustom& editor = Open(session, 101);
        Type(editor.txtTitle, u"Other"_s);
        QTest::keyClick(editor.txtTitle, Qt::Key_Escape);
        QVERIFY(!session->Editor().Editor());
        QCOMPARE(session.Stored("CustomT101"), u"Abc"_s);
        QCOMPARE(session.Link(101)->Caption(), u"Abc"_s);
    }

    void AMultiLinkWithoutATitleIsRefused() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        Click(editor.cmdMulti);
        Type(editor.txtTitle, {});
        Click(editor.cmdMulti);
        const QString refusal =
            u"Custom Link: Enter a title before using the Multi-Link feature."_s;
        QCOMPARE(session.prompts.messages, (QStringList{refusal, refusal}));
        QVERIFY(editor.isVisible());
        QVERIFY(!session->Recorded().multiLinkPending);
    }

    void AMultiLinkUnderATakenTitleIsRefused() {
        TestSession session;
        session.Start();
        WriteWholeFile(session.Folder() / "Taken.mlnk", "page");
        const frmCustom& editor = OpenUnused(session);
        Type(editor.txtTitle, u"Taken"_s);
        Click(editor.cmdMulti);
        QCOMPARE(session.prompts.messages,
                 (QStringList{u"Custom Link: A custom Multi-Link with the title 'Taken ' already "
                              "exists, please enter another title."_s}));
        QCOMPARE(ReadWholeFile(session.Folder() / "Taken.mlnk"), "page");
        QVERIFY(editor.isVisible());
    }

    void ATitleThatCannotBeAFileIsRefused_data() {
        QTest::addColumn<QString>("title");
        for (const char* title : {"a/b", "../x", "/tmp/x", "..\\x", "C:x", "con"})
            QTest::newRow(title) << QString::fromLatin1(title);
    }
    void ATitleThatCannotBeAFileIsRefused() {
        QFETCH(QString, title);
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        Type(editor.txtTitle, title);
        Click(editor.cmdMulti);
        QCOMPARE(session.prompts.messages,
                 (QStringList{u"Custom Link: You have entered an invald Title for a Multi-Link.  "
                              "Please enter a new title using only alphanumeric characters."_s}));
        QVERIFY(editor.isVisible());
        QCOMPARE(session.Stored("CustomT101"), u"<absent>"_s);
    }

    void AMultiLinkIsStoredAndItsRecordingStarts() {
        TestSession session;
        session.Start();
        const frmCustom& editor = OpenUnused(session);
        Type(editor.txtTitle, u"Three"_s);
        session.prompts.colors = {QColor(Qt::black)};
        Click(editor.Command5);
        Click(editor.cmdMulti);
        QVERIFY(!session->Editor().Editor());
        QCOMPARE(session.Stored("Custom101"), u"MULTILINK:Three.mlnk"_s);
        QCOMPARE(session.Stored("CustomT101"), u"Three"_s);
        QCOMPARE(session.Stored("CustomF101"), u"65793"_s);
        QCOMPARE(session.Stored("CustomB101"), u"12640511"_s);
        QCOMPARE(session.Link(101)->Caption(), u"Three"_s);
        QVERIFY(session->Recorded().multiLinkPending);
        QCOMPARE(session->Recorded().multiLinkSlot, 101);
        QVERIFY(session->Recorded().templateMode);
        // The file that the title was tried with is gone.
        QVERIFY(!std::filesystem::exists(session.Folder() / "Three.mlnk"));
    }
};

TALLOWMERE_WEB_TEST_MAIN(CustomEditorTest)
#include "CustomEditorTest.moc"
