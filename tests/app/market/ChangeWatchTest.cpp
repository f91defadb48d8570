#include "app/market/ChangeWatch.h"

#include "app/base/DesktopNotice.h"
#include "app/engine/BrowserPane.h"
#include "app/engine/PageReader.h"
#include "app/forms/ChangeBar.h"
#include "app/forms/WindowCommands.h"
#include "app/forms/frmChange.h"
#include "app/forms/frmWiz.h"
#include "app/market/WatchWindow.h"
#include "app/market/WatchWindows.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QAction>
#include <QMenu>
#include <QPushButton>
#include <QTextBlock>
#include <QToolButton>
#include <QWebEnginePage>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A watch window on a page of a server on this machine, on a desktop without notices.
struct Watcher {
    explicit Watcher(const QByteArray& body) : session(server.Address({}), WebMode::Direct) {
        session.Store("First", "OK");
        session.Store("DefaultWeb", ("A" + FromQt(server.Address(u"/first"_s))).c_str());
        server.Serve(u"/first"_s, "<title>first</title>");
        Serve(body);
        session.Start();
        form = session->Watches().CreateWiz(u"MSFT|"_s + server.Address(u"/watched"_s));
        Prepare();
    }
    void Prepare() {
        Changes().Notice().UseBus(QDBusConnection(u"no such connection"_s));
        Changes().Settle.setInterval(0);
        [[maybe_unused]] const bool isLoaded =
            Await([this] { return !form->Web->Busy() && form->Web->Title() == u"watched"_s; });
    }
    void Serve(const QByteArray& body) {
        server.Serve(u"/watched"_s, "<title>watched</title><body>" + body);
    }
    ChangeWatch& Changes() { return form->findChild<WatchWindow*>()->Changes(); }
    QAction* Command(const char* name) { return form->commands->At(name); }
    /// Loads the page again with another body; what changed is known then.
    void Reload(const QByteArray& body) {
        Serve(body);
        const qsizetype count = server.CountOf(u"/watched"_s);
        form->Web->Refresh();
        QVERIFY(Await([&] { return server.CountOf(u"/watched"_s) > count && !form->Web->Busy(); }));
        QVERIFY(Await([this] { return !Changes().Settle.isActive(); }));
        Answered();
    }
    /// The page has answered all that it was asked.
    void Answered() {
        bool isThere = false;
        PageReader::ReadText(*form->Web, [&](const QString&) { isThere = true; });
        QVERIFY(Await([&] { return isThere; }));
    }
    void Script(const QString& script) {
        bool isThere = false;
        form->Web->AskPage([&](QWebEnginePage& page) {
            page.runJavaScript(script, [&](const QVariant&) { isThere = true; });
        });
        QVERIFY(Await([&] { return isThere; }));
    }
    /// Marks all that is in an element.
    void Mark(const QString& selector) {
        Script(u"getSelection().selectAllChildren(document.querySelector('%1'))"_s.arg(selector));
    }
    void Trigger(const char* name) {
        Command(name)->trigger();
        Answered();
    }
    QString Told() { return form->barChange->isHidden() ? QString() : form->barChange->Words(); }
    QStringList Shown() {
        auto* dialog = form->findChild<frmChange*>();
        return dialog ? dialog->txtChange->toPlainText().split(u'\n') : QStringList();
    }

    LoopbackServer server;
    TestSession session;
    frmWiz* form = nullptr;
};

} // namespace

class ChangeWatchTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void NothingIsToldUntilItIsWanted() {
        Watcher user("<p>one<p>two");
        user.Reload("<p>one<p>three");
        QCOMPARE(user.Told(), QString());
        QVERIFY(!user.Command("tellChanges")->isChecked());
        QVERIFY(!user.Command("showChange")->isEnabled());
        QVERIFY(user.form->barChange->isHidden());
    }

    void AChangeOfThePageIsToldAndShown() {
        Watcher user("<p>one<p>two");
        user.Trigger("tellChanges");
        QVERIFY(user.Command("tellChanges")->isChecked());
        // The same text in another dress is no change.
        user.Reload("<div>one</div>\n<div><b>two</b></div>");
        QCOMPARE(user.Told(), QString());
        user.Reload("<p>one<p>three<p>four");
        QCOMPARE(user.Told(), u"10:00:00: 2 lines are new, 1 is gone"_s);
        QVERIFY(user.Command("showChange")->isEnabled());
        user.form->barChange->findChild<QPushButton*>(u"cmdShowChange"_s)->click();
        QCOMPARE(user.Shown(), (QStringList{u"- two"_s, u"+ three"_s, u"+ four"_s}));
        QVERIFY(user.form->barChange->isHidden());
        QCOMPARE(user.form->findChild<frmChange*>()->windowTitle(),
                 u"What Changed - MSFT - Watch Wizard"_s);
        // While it is open it shows what changes next.
        user.Reload("<p>one<p>three");
        QCOMPARE(user.Told(), u"10:00:00: 1 line is gone"_s);
        QCOMPARE(user.Shown(), QStringList{u"- four"_s});
        user.form->barChange->findChild<QPushButton*>(u"cmdDismissChange"_s)->click();
        QVERIFY(user.form->barChange->isHidden());
        QVERIFY(user.Command("showChange")->isEnabled());
    }

    void WhatScriptsWriteWhileItIsLookedAtCountsFromTheNextLoadOn() {
        Watcher user("<p id=a>one");
        user.Trigger("tellChanges");
        user.Reload("<p id=a>one<script>document.getElementById('a').textContent = 'two'</script>");
        QCOMPARE(user.Told(), u"10:00:00: 1 line is new, 1 is gone"_s);
    }

    void OnlyTheMarkedPartIsLookedAt() {
        Watcher user("<p>clock 1</p><table><tr><td>price</td><td>10</td></tr></table>");
        user.Mark(u"td:nth-of-type(2)"_s);
        user.Trigger("markedPart");
        QVERIFY(user.Command("markedPart")->isChecked());
        QVERIFY(user.Command("tellChanges")->isChecked());
        user.Reload("<p>clock 2</p><table><tr><td>Price</td><td>10</td></tr></table>");
        QCOMPARE(user.Told(), QString());
        user.Reload("<p>clock 3</p><table><tr><td>Price</td><td>11</td></tr></table>");
        QCOMPARE(user.Told(), u"10:00:00: 1 line is new, 1 is gone"_s);
        user.Trigger("showChange");
        QCOMPARE(user.Shown(), (QStringList{u"- 10"_s, u"+ 11"_s}));

        // Gone is told once; what it is when it is back is compared with what it was.
        user.Reload("<p>clock 4</p>");
        QCOMPARE(user.Told(), u"10:00:00: The marked part is not in the page any more"_s);
        user.form->barChange->hide();
        user.Reload("<p>clock 5</p>");
        QCOMPARE(user.Told(), QString());
        user.Reload("<p>clock 6</p><table><tr><td>Price</td><td>12</td></tr></table>");
        QCOMPARE(user.Told(), u"10:00:00: 1 line is new, 1 is gone"_s);

        // All of the page again.
        user.form->barChange->hide();
        user.Trigger("markedPart");
        QVERIFY(!user.Command("markedPart")->isChecked());
        QVERIFY(user.Command("tellChanges")->isChecked());
        user.Reload("<p>clock 7</p><table><tr><td>Price</td><td>12</td></tr></table>");
        QCOMPARE(user.Told(), u"10:00:00: 1 line is new, 1 is gone"_s);
    }

    void APartIsFoundByItsNameWhereverItGoes() {
        Watcher user("<p>x</p><div id=\"a&quot;]b'\">old</div>");
        user.Mark(u"div"_s);
        user.Trigger("markedPart");
        user.Reload("<h1>y</h1><section><div id=\"a&quot;]b'\">new</div></section>");
        QCOMPARE(user.Told(), u"10:00:00: 1 line is new, 1 is gone"_s);
    }

    void WithoutAMarkItIsSaid() {
        Watcher user("<p>one");
        user.Trigger("markedPart");
        QCOMPARE(user.Told(), u"Mark a part of the page first"_s);
        QVERIFY(!user.Command("markedPart")->isChecked());
        QVERIFY(!user.Command("tellChanges")->isChecked());
        QVERIFY(!user.form->barChange->findChild<QPushButton*>(u"cmdShowChange"_s)->isVisible());
    }

    void NonsenseForAPartIsAPartThatIsGone() {
        Watcher user("<p>one");
        user.Changes().Watch(true, u"'); document.title = 'run'; ('"_s);
        user.Answered();
        QCOMPARE(user.Told(), u"10:00:00: The marked part is not in the page any more"_s);
        QCOMPARE(user.form->Web->Title(), u"watched"_s);
    }

    void AnotherPageIsNoChange() {
        Watcher user("<p>one");
        user.Trigger("tellChanges");
        user.server.Serve(u"/other"_s, "<title>other</title><p>two");
        user.form->Web->Navigate(user.server.Address(u"/other"_s));
        QVERIFY(Await([&] { return user.form->Web->Title() == u"other"_s; }));
        QVERIFY(
            Await([&] { return !user.form->Web->Busy() && !user.Changes().Settle.isActive(); }));
        user.Answered();
        QCOMPARE(user.Told(), QString());
        user.server.Serve(u"/other"_s, "<title>other</title><p>three");
        user.form->Web->Refresh();
        QTRY_COMPARE(user.Told(), u"10:00:00: 1 line is new, 1 is gone"_s);
    }

    void AFailedLoadIsNoChange() {
        Watcher user("<p>one");
        user.Trigger("tellChanges");
        user.server.Serve(u"/watched"_s, {"", CannedPage::Ending::HangUp});
        user.form->Web->Refresh();
        QTRY_VERIFY(!user.form->Web->Busy());
        QVERIFY(!user.Changes().Settle.isActive());
        QCOMPARE(user.Told(), QString());
        user.Reload("<p>one");
        QCOMPARE(user.Told(), QString());
    }

    void TextsOfThePageAreShownAsTheyAre() {
        Watcher user("<p>one");
        user.Trigger("tellChanges");
        user.Reload("<p>&lt;b onclick=x&gt;&lt;img src=http://127.0.0.1/leak&gt;");
        user.Trigger("showChange");
        QCOMPARE(user.Shown(),
                 (QStringList{u"- one"_s, u"+ <b onclick=x><img src=http://127.0.0.1/leak>"_s}));
    }

    void APageThatIsNotThereAnyMoreIsNoChange() {
        Watcher user("<p>one");
        user.Trigger("tellChanges");
        user.Changes().Settle.setInterval(60'000);
        user.Changes().Loaded();
        user.server.Serve(u"/watched"_s, {"", CannedPage::Ending::HangUp});
        user.form->Web->Refresh();
        QTRY_VERIFY(!user.form->Web->Busy());
        QVERIFY(user.Changes().Settle.isActive());
        user.Changes().Settle.start(0);
        QTRY_VERIFY(!user.Changes().Settle.isActive());
        QCOMPARE(user.Told(), QString());
    }

    void TheWindowMayCloseWhileThePageIsRead() {
        Watcher user("<p>one");
        user.Changes().Watch(true, {});
        user.Mark(u"p"_s);
        user.Command("markedPart")->trigger();
        user.session.End();
    }

    void OfVeryManyLinesTheFirstAreShown() {
        QWidget parent;
        frmChange dialog(&parent);
        dialog.Show(std::vector<ChangedLine>(2'500, {true, "x"}));
        QCOMPARE(dialog.txtChange->document()->blockCount(), 2'001);
        QCOMPARE(dialog.txtChange->document()->lastBlock().text(), u"... and 500 more"_s);
        dialog.Show({{false, "y"}});
        QCOMPARE(dialog.txtChange->toPlainText(), u"- y"_s);
    }

    void ItIsKeptForTheNextStart() {
        Watcher user("<p>one");
        user.Changes().Watch(true, u"#a"_s);
        const std::vector<KeptWatch> kept = user.session->Watches().Kept();
        QCOMPARE(kept.size(), 1U);
        QVERIFY(kept[0].tellsChanges);
        QCOMPARE(kept[0].part, "#a");
        user.form->close();
        user.session->Watches().Restore(kept);
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* form = qobject_cast<frmWiz*>(window); form && form->isVisible())
                user.form = form;
        user.Prepare();
        QVERIFY(user.Changes().IsOn());
        QCOMPARE(user.Changes().Part(), u"#a"_s);
        QVERIFY(user.Command("markedPart")->isChecked());
    }

    void TheCommandsStandInTheMenusOfTheWindow() {
        Watcher user("<p>one");
        QStringList captions;
        for (const QAction* action : user.form->mnuChanges->actions())
            captions << action->text();
        QCOMPARE(captions, (QStringList{u"Tell of &Changes"_s, u"Only the &Marked Part"_s,
                                        u"&Show What Changed..."_s}));
        QVERIFY(user.form->mnuPoP->actions().contains(user.form->mnuChanges->menuAction()));
        QCOMPARE(user.form->findChild<QToolButton*>(u"cmdChanges"_s)->menu(),
                 user.form->mnuChanges);
        QTest::keyClick(user.form, Qt::Key_T, Qt::ControlModifier);
        QVERIFY(user.Command("tellChanges")->isChecked());
    }
};

TALLOWMERE_WEB_TEST_MAIN(ChangeWatchTest)
#include "ChangeWatchTest.moc"
