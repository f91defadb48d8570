#include "app/sites/SiteEditor.h"

#include "app/engine/BrowserPane.h"
#include "app/forms/frmSites.h"
#include "app/sites/UserSites.h"
#include "core/text/files.h"
#include "support/LoopbackServer.h"
#include "support/Navigations.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// The window over a session in live mode; addresses lead to one loopback server.
struct Bench {
    explicit Bench(WebMode mode = WebMode::Live) : session(server.Address({}), mode) {
        session.today = "[links]\n3 = \"http://" + Host() + "/today/{upper}\"\n" +
                        "15 = \"http://" + Host() + "/zacks\"\n";
        session.Start();
        session.Form().menus->sites->trigger();
    }
    std::string Host() const { return FromQt(server.Address({})); }
    std::filesystem::path File() const { return session.Folder() / "sites.toml"; }
    frmSites& Window() { return *session->Sites().Window(); }
    void Find(const QString& text) {
        Window().txtFind->clear();
        QTest::keyClicks(Window().txtFind, text);
    }
    QTreeWidgetItem* Row() { return Window().Selected(); }
    void Type(const QString& address) {
        Window().txtAddress->setFocus();
        Window().txtAddress->selectAll();
        QTest::keyClicks(Window().txtAddress, address);
    }
    QStringList Shown() {
        QStringList names;
        for (int n = 0; n < Window().lstSites->topLevelItemCount(); ++n)
            if (const auto* item = Window().lstSites->topLevelItem(n); !item->isHidden())
                names << item->text(frmSites::Link);
        return names;
    }

    LoopbackServer server;
    TestSession session;
};

} // namespace

class SiteEditorTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheListSaysWhatIsBuiltAndWhereItLeads() {
        Bench bench;
        bench.Find(u"Full Yahoo! Quote"_s);
        QCOMPARE(bench.Shown(), QStringList{u"3  Y!"_s});
        QCOMPARE(bench.Row()->text(frmSites::Built), bench.server.Address(u"/q?s=msft&d=2b"_s));
        QCOMPARE(bench.Row()->text(frmSites::Today),
                 u"http://"_s + bench.server.Address(u"/today/MSFT"_s));
        QCOMPARE(bench.Row()->text(frmSites::Row), u"Shipped"_s);
        QCOMPARE(bench.Window().txtAddress->text(),
                 u"http://"_s + bench.server.Address(u"/today/{upper}"_s));
    }

    void TheListIsSearchedByWordsInAnyOrderAndCase() {
        Bench bench;
        bench.Find(u"decade big"_s);
        QCOMPARE(bench.Shown(), QStringList{u"BIG > 1-Decade"_s});
        bench.Find(u"there is no such link"_s);
        QCOMPARE(bench.Shown(), QStringList());
        QVERIFY(!bench.Window().cmdTry->isEnabled());
        QVERIFY(!bench.Window().cmdSave->isEnabled());
        QVERIFY(!bench.Window().txtAddress->isEnabled());
        bench.Window().txtFind->clear();
        QVERIFY(bench.Shown().size() > 100);
    }

    void AnEditIsSavedToTheUsersFileAndTakesEffectAtOnce() {
        Bench bench;
        WriteWholeFile(bench.File(), "# mine\n[links]\n15 = \"https://kept.example/\" # kept\n");
        bench.session->OwnSites().Read();
        bench.Find(u"3  Y!"_s);
        bench.Type(u"http://"_s + bench.server.Address(u"/mine/{lower}"_s));
        QTest::keyClick(bench.Window().txtAddress, Qt::Key_Return);
        QCOMPARE(ReadWholeFile(bench.File()),
                 "# mine\n[links]\n15 = \"https://kept.example/\" # kept\n3 = \"http://" +
                     bench.Host() + "/mine/{lower}\"\n");
        QCOMPARE(bench.Row()->text(frmSites::Row), u"Yours"_s);
        QCOMPARE(bench.Row()->text(frmSites::Today),
                 u"http://"_s + bench.server.Address(u"/mine/msft"_s));
        QVERIFY(bench.Window().lblMessage->text().startsWith(u"Saved in "_s));
        bench.session.Form().List1->SetListIndex(0);
        bench.session.ClickLink(3);
        QTRY_COMPARE(bench.server.CountOf(u"/mine/aol"_s), 1);
    }

    void TheShippedRowComesBack() {
        Bench bench;
        WriteWholeFile(bench.File(), "[links]\n3 = \"https://mine.example/\" # mine\n");
        bench.session->OwnSites().Read();
        bench.Find(u"3  Y!"_s);
        QVERIFY(bench.Window().cmdReset->isEnabled());
        QTest::mouseClick(bench.Window().cmdReset, Qt::LeftButton);
        QCOMPARE(ReadWholeFile(bench.File()), std::string("[links]\n"));
        QCOMPARE(bench.Row()->text(frmSites::Row), u"Shipped"_s);
        QCOMPARE(bench.Window().txtAddress->text(),
                 u"http://"_s + bench.server.Address(u"/today/{upper}"_s));
        QVERIFY(!bench.Window().cmdReset->isEnabled());
    }

    void WhatIsNoAddressIsRefusedWithAMessage_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message");
        QTest::newRow("no scheme")
            << u"www.x.example"_s << u"\"www.x.example\" is no http or https address"_s;
        QTest::newRow("script") << u"javascript:alert(1)"_s
                                << u"\"javascript:alert(1)\" is no http or https address"_s;
        QTest::newRow("file") << u"file:///etc/hosts"_s
                              << u"\"file:///etc/hosts\" is no http or https address"_s;
        QTest::newRow("field") << u"https://x.example/{tick}"_s
                               << u"\"https://x.example/{tick}\" has a field that is not known"_s;
    }

    void WhatIsNoAddressIsRefusedWithAMessage() {
        QFETCH(QString, typed);
        Bench bench;
        const Navigations navigations(bench.session.Form());
        bench.Find(u"3  Y!"_s);
        bench.Type(typed);
        for (QPushButton* button : {bench.Window().cmdSave, bench.Window().cmdTry}) {
            QTest::mouseClick(button, Qt::LeftButton);
            QTEST(bench.Window().lblMessage->text(), "message");
            QCOMPARE(bench.Window().txtAddress->text(), typed);
        }
        QVERIFY(!std::filesystem::exists(bench.File()));
        QVERIFY(navigations.isEmpty());
    }

    void AFileThatIsNoTableIsLeftAlone() {
        Bench bench;
        WriteWholeFile(bench.File(), "<html>\n");
        bench.session->OwnSites().Read();
        QVERIFY(bench.Window().lblNote->text().contains(u"sites.toml:1: "_s));
        bench.Find(u"3  Y!"_s);
        bench.Type(u"https://mine.example/"_s);
        QTest::mouseClick(bench.Window().cmdSave, Qt::LeftButton);
        QVERIFY2(bench.Window().lblMessage->text().contains(u"cannot be changed"_s),
                 qPrintable(bench.Window().lblMessage->text()));
        QCOMPARE(ReadWholeFile(bench.File()), std::string("<html>\n"));
    }

    void TryOpensThePageAsAClickDoesOrWhatIsTyped() {
        Bench bench;
        bench.Find(u"3  Y!"_s);
        QTest::keyClick(bench.Window().txtFind, Qt::Key_Return);
        QTRY_COMPARE(bench.server.CountOf(u"/today/MSFT"_s), 1);
        bench.Type(u"http://"_s + bench.server.Address(u"/typed/{first}"_s));
        QTest::mouseClick(bench.Window().cmdTry, Qt::LeftButton);
        QTRY_COMPARE(bench.server.CountOf(u"/typed/m"_s), 1);
        QVERIFY(!std::filesystem::exists(bench.File()));
    }

    void WhileAMultiLinkIsRecordedNothingIsTried() {
        Bench bench;
        const Navigations navigations(bench.session.Form());
        bench.session->Recorded().templateMode = true;
        QTest::mouseClick(bench.Window().cmdTry, Qt::LeftButton);
        QVERIFY(navigations.isEmpty());
        QVERIFY(bench.session->Recorded().multiLinkPage.isEmpty());
        QVERIFY(!bench.Window().lblMessage->text().isEmpty());
    }

    void AChangeOfTheFileShowsAndLeavesWhatIsTyped() {
        Bench bench;
        bench.Find(u"3  Y!"_s);
        bench.Type(u"https://half.exa"_s);
        WriteWholeFile(bench.File(), "[links]\n3 = \"https://other.example/\"\n");
        bench.session->OwnSites().Read();
        QCOMPARE(bench.Row()->text(frmSites::Today), u"https://other.example/"_s);
        QCOMPARE(bench.Window().txtAddress->text(), u"https://half.exa"_s);
    }

    void InOtherModesTheListSaysThatTheRowsCountWhenLive() {
        for (const WebMode mode : {WebMode::Sample, WebMode::Direct}) {
            Bench bench(mode);
            QVERIFY(
                bench.Window().lblNote->text().endsWith(u"The rows count when it runs live."_s));
            bench.Find(u"3  Y!"_s);
            QCOMPARE(bench.Row()->text(frmSites::Today),
                     u"http://"_s + bench.server.Address(u"/today/MSFT"_s));
        }
        Bench bench;
        QVERIFY(bench.Window().lblNote->isHidden());
    }

    void EverythingHasANameAndIsReachedWithTheKeyboard() {
        Bench bench;
        for (QWidget* control :
             bench.Window().findChildren<QWidget*>(QRegularExpression(u"^(txt|lst|cmd).*"_s))) {
            QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
            QVERIFY2(control->focusPolicy() & Qt::TabFocus, qPrintable(control->objectName()));
        }
        QVERIFY(bench.Window().cmdTry->isDefault());
        QTest::keyClick(&bench.Window(), Qt::Key_Escape);
        QTRY_VERIFY(!bench.session->Sites().Window());
        bench.session.Form().menus->sites->trigger();
        QVERIFY(bench.session->Sites().Window());
    }
};

TALLOWMERE_WEB_TEST_MAIN(SiteEditorTest)
#include "SiteEditorTest.moc"
