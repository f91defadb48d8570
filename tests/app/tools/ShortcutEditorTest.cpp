#include "app/tools/ShortcutEditor.h"

#include "app/forms/frmShortcuts.h"
#include "app/forms/frmSites.h"
#include "app/forms/frmWiz.h"
#include "app/market/WatchWindows.h"
#include "app/sites/SiteEditor.h"
#include "support/Await.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QMenuBar>
#include <QPointer>
#include <QSignalSpy>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A session with the window of the shortcuts open.
struct Bench : TestSession {
    explicit Bench(const std::function<void(SettingsStore&)>& prepare = {}) {
        Store("First", "OK");
        if (prepare)
            prepare(Settings());
        Start();
        Form().menus->At("shortcuts")->trigger();
    }
    frmShortcuts& Window() { return *(*this)->Shortcuts().Window(); }
    QString Said() { return Window().lblMessage->text(); }
    QString Keys() { return Window().Selected()->text(frmShortcuts::Keys); }
    QString Kept(const char* command) const {
        return ToQt(
            SettingsStore(Folder() / "settings.ini").GetSetting("Shortcuts", command, "<absent>"));
    }
    /// Finds the one command of that name and selects it.
    void Select(const QString& command) {
        Window().txtFind->clear();
        for (QTreeWidgetItem* item :
             Window().lstCommands->findItems(command, Qt::MatchExactly, frmShortcuts::Command))
            Window().lstCommands->setCurrentItem(item);
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        Window().txtKeys->setFocus();
        QTest::keyClick(Window().txtKeys, key, modifiers);
        // The box takes keys as done once none came for a while.
        QTRY_VERIFY(!Said().isEmpty());
    }
    static void Click(QPushButton* button) { QTest::mouseClick(button, Qt::LeftButton); }
    static QList<QKeySequence> Sequences(std::initializer_list<const char*> texts) {
        QList<QKeySequence> keys;
        for (const char* text : texts)
            keys << QKeySequence::fromString(QString::fromLatin1(text));
        return keys;
    }
};

/// The window gets the keys; shortcuts are its own only once the application knows it, too.
bool Activate(QWidget& window) {
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window) &&
           Await([&] { return QApplication::activeWindow() == &window; });
}

QStringList ShownRows(const frmShortcuts& window) {
    QStringList shown;
    for (int n = 0; n < window.lstCommands->topLevelItemCount(); ++n)
        if (const auto* item = window.lstCommands->topLevelItem(n); !item->isHidden())
            shown << item->text(frmShortcuts::Command);
    return shown;
}

} // namespace

class ShortcutEditorTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheMenusHaveTheCaptionsAndKeysOfTheTable() {
        Bench bench;
        for (const CommandRow& row : Commands()) {
            if (row.menu == CommandMenu::None || row.kind == CommandKind::Submenu)
                continue;
            const QAction* action = bench.Form().menus->At(row.name);
            QCOMPARE(action->objectName(), ToQt(row.name));
            QStringList keys;
            for (const QKeySequence& sequence : action->shortcuts())
                keys << sequence.toString(QKeySequence::PortableText);
            QCOMPARE(keys.join(u' '), ToQt(row.keys));
            QVERIFY2(action->isVisible() || row.kind == CommandKind::Awaited, row.name.data());
        }
        QVERIFY(!bench.Form().menus->At("discardRecorded")->isVisible());
        QStringList bar;
        for (const QAction* menu : bench.Form().menuBar()->actions())
            bar << menu->text();
        QCOMPARE(bar, (QStringList{u"&Portfolio"_s, u"&Ticker"_s, u"&Link"_s, u"Pa&ge"_s,
                                   u"&View"_s, u"T&ools"_s, u"&Help"_s}));
    }

    void AllCommandsAreListedAndSearchedByTheirWords() {
        Bench bench;
        QVERIFY(ShownRows(bench.Window()).size() > 40);
        QVERIFY(ShownRows(bench.Window()).contains(u"Export to File"_s));
        QTest::keyClicks(bench.Window().txtFind, u"page ZOOM"_s);
        QCOMPARE(ShownRows(bench.Window()), (QStringList{u"Zoom In"_s, u"Zoom Out"_s}));
        bench.Window().txtFind->clear();
        QTest::keyClicks(bench.Window().txtFind, u"ctrl+shift+w"_s);
        QCOMPARE(ShownRows(bench.Window()), QStringList{u"Watch Wizard"_s});
        QCOMPARE(bench.Window().Selected()->text(frmShortcuts::Command), u"Watch Wizard"_s);
        bench.Window().txtFind->clear();
        QTest::keyClicks(bench.Window().txtFind, u"nothing like this"_s);
        QVERIFY(!bench.Window().Selected());
        QVERIFY(!bench.Window().txtKeys->isEnabled());
        QVERIFY(!bench.Window().cmdRemove->isEnabled());
    }

    void AFreeShortcutIsSetAndWorksAtOnceAndAfterARestart() {
        Bench bench;
        bench.Select(u"About Tallowmere"_s);
        QVERIFY(!bench.Window().cmdSet->isEnabled());
        bench.Press(Qt::Key_F9, Qt::ControlModifier);
        QCOMPARE(bench.Said(), u"Ctrl+F9 is free."_s);
        QVERIFY(!bench.Window().cmdAdd->isEnabled());
        bench.Click(bench.Window().cmdSet);
        QCOMPARE(bench.Said(), u"\"About Tallowmere\" has Ctrl+F9 now."_s);
        QCOMPARE(bench.Keys(), u"Ctrl+F9"_s);
        QCOMPARE(bench.Window().Selected()->text(frmShortcuts::Origin), u"You"_s);
        QCOMPARE(bench.Kept("about"), u"Ctrl+F9"_s);
        for (int run = 0; run < 2; ++run) {
            QVERIFY(Activate(bench.Form()));
            QTest::keyClick(&bench.Form(), Qt::Key_F9, Qt::ControlModifier);
            QCOMPARE(bench.prompts.messages.size(), run + 1);
            QVERIFY(bench.prompts.messages.last().startsWith(u"About Tallowmere"_s));
            if (run == 0)
                bench.Start();
        }
    }

    void AFurtherShortcutIsAddedToTheFirst() {
        Bench bench;
        bench.Select(u"Find in Page"_s);
        bench.Press(Qt::Key_F12, Qt::NoModifier);
        bench.Click(bench.Window().cmdAdd);
        QCOMPARE(bench.Form().menus->findInPage->shortcuts(), bench.Sequences({"Ctrl+F", "F12"}));
        QCOMPARE(bench.Kept("findInPage"), u"Ctrl+F F12"_s);
        bench.Click(bench.Window().cmdRemove);
        QCOMPARE(bench.Said(), u"\"Find in Page\" has no shortcut now."_s);
        QCOMPARE(bench.Form().menus->findInPage->shortcuts(), QList<QKeySequence>());
        QCOMPARE(bench.Kept("findInPage"), QString());
        bench.Click(bench.Window().cmdReset);
        QCOMPARE(bench.Form().menus->findInPage->shortcuts(), bench.Sequences({"Ctrl+F"}));
        QCOMPARE(bench.Kept("findInPage"), u"<absent>"_s);
        QVERIFY(!bench.Window().cmdReset->isEnabled());
    }

    void AConflictIsToldByNameAndTheOtherKeepsItUnlessItIsTakenOver() {
        Bench bench;
        bench.Select(u"About Tallowmere"_s);
        bench.Press(Qt::Key_R, Qt::ControlModifier);
        QCOMPARE(bench.Said(), u"Ctrl+R is the shortcut of \"Refresh\"."_s);
        bench.Click(bench.Window().cmdSet);
        QCOMPARE(bench.prompts.messages,
                 QStringList{u"Quorvane: Ctrl+R is the shortcut of \"Refresh\".\n"
                             "Take it over for \"About Tallowmere\"?"_s});
        QCOMPARE(bench.prompts.defaults, QList{Prompts::Answer::No});
        QCOMPARE(bench.Form().menus->about->shortcuts(), QList<QKeySequence>());
        QCOMPARE(bench.Kept("about"), u"<absent>"_s);

        bench.prompts.answers << true;
        bench.Click(bench.Window().cmdSet);
        QCOMPARE(bench.Form().menus->about->shortcuts(), bench.Sequences({"Ctrl+R"}));
        QCOMPARE(bench.Form().menus->At("link0")->shortcuts(), bench.Sequences({"F5"}));

        bench.prompts.answers << true;
        bench.Click(bench.Window().cmdResetAll);
        QCOMPARE(bench.Form().menus->about->shortcuts(), QList<QKeySequence>());
        QCOMPARE(bench.Form().menus->At("link0")->shortcuts(), bench.Sequences({"F5", "Ctrl+R"}));
        QCOMPARE(bench.Kept("link0"), u"<absent>"_s);
        QVERIFY(!bench.Window().cmdResetAll->isEnabled());
    }

    void KeysThatCanBeNoShortcutAreRefusedInWords() {
        Bench bench;
        bench.Select(u"About Tallowmere"_s);
        bench.Press(Qt::Key_A, Qt::NoModifier);
        QCOMPARE(bench.Said(), u"A needs Ctrl or Alt besides, or a function key."_s);
        QVERIFY(!bench.Window().cmdSet->isEnabled());
        bench.Window().txtKeys->clear();
        bench.Press(Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(bench.Said(), u"Ctrl+C is the one that copies."_s);
        QVERIFY(!bench.Window().cmdSet->isEnabled());
        bench.Select(u"Open in Separate Browser"_s);
        QVERIFY(!bench.Window().txtKeys->isEnabled());
        QCOMPARE(bench.Said(), u"It acts on what its menu names, and has no shortcut."_s);
    }

    void OfKeysPressedOneAfterTheOtherTheLastCount() {
        Bench bench;
        bench.Select(u"About Tallowmere"_s);
        bench.Window().txtKeys->setFocus();
        QTest::keyClick(bench.Window().txtKeys, Qt::Key_K, Qt::ControlModifier);
        QTest::keyClick(bench.Window().txtKeys, Qt::Key_G, Qt::ControlModifier);
        QTRY_COMPARE(bench.Said(), u"Ctrl+G is free."_s);
        QCOMPARE(bench.Window().txtKeys->keySequence().count(), 1);
        bench.Click(bench.Window().cmdSet);
        QCOMPARE(bench.Kept("about"), u"Ctrl+G"_s);
    }

    void DamagedShortcutsAreToldAndThoseOfTheTableHold() {
        Bench bench([](SettingsStore& store) {
            store.SaveSetting("Shortcuts", "help", "Ctrl+Nonsense \x01");
            store.SaveSetting("Shortcuts", "about", "F4");
        });
        QCOMPARE(bench.prompts.messages.size(), 1);
        QVERIFY(bench.prompts.messages.first().contains(u"help = Ctrl+Nonsense"_s));
        QCOMPARE(bench.Form().menus->help->shortcuts(), bench.Sequences({"F1"}));
        QCOMPARE(bench.Form().menus->about->shortcuts(), bench.Sequences({"F4"}));
    }

    void TheKeysOfAWatchWindowAreThoseOfTheSameTable() {
        Bench bench;
        QPointer<frmWiz> watch = bench->Watches().CreateWiz(u"Page|h.example/watched"_s);
        bench.Select(u"Close"_s);
        bench.Press(Qt::Key_F4, Qt::ControlModifier);
        bench.Click(bench.Window().cmdSet);
        QVERIFY(Activate(*watch));
        QTest::keyClick(watch, Qt::Key_W, Qt::ControlModifier);
        QVERIFY(watch && watch->isVisible());
        QTest::keyClick(watch, Qt::Key_F4, Qt::ControlModifier);
        QTRY_VERIFY(!watch);
        QVERIFY(bench.Form().isVisible());
    }

    void CtrlWClosesADialogAndNeverTheProgram() {
        Bench bench;
        QPointer<frmShortcuts> window = &bench.Window();
        QVERIFY(Activate(*window));
        QTest::keyClick(window->txtFind, Qt::Key_W, Qt::ControlModifier);
        QTRY_VERIFY(!window);
        QSignalSpy closing(&bench.Form(), &frmMain::Closing);
        QVERIFY(Activate(bench.Form()));
        QTest::keyClick(&bench.Form(), Qt::Key_W, Qt::ControlModifier);
        QVERIFY(closing.isEmpty());
        QVERIFY(bench.Form().isVisible());
    }

    void AnAwaitedCommandIsInItsMenuOnceItIsOffered() {
        Bench bench;
        QAction* discard = bench.Form().menus->At("discardRecorded");
        QSignalSpy triggered(discard, &QAction::triggered);
        QVERIFY(Activate(bench.Form()));
        QTest::keyClick(&bench.Form(), Qt::Key_Escape);
        QVERIFY(triggered.isEmpty());
        QCOMPARE(bench.Form().menus->Offer("discardRecorded"), discard);
        QVERIFY(discard->isVisible());
        QTest::keyClick(&bench.Form(), Qt::Key_Escape);
        QCOMPARE(triggered.size(), 1);
    }
};

TALLOWMERE_WEB_TEST_MAIN(ShortcutEditorTest)
#include "ShortcutEditorTest.moc"
