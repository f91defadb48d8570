#include "app/shell/KeptSession.h"

#include "app/engine/BrowserPane.h"
#include "app/forms/TabRow.h"
#include "app/forms/frmUser.h"
#include "app/forms/frmWiz.h"
#include "app/links/PaneDeck.h"
#include "app/links/PaneTabs.h"
#include "app/market/WatchWindows.h"
#include "core/shell/kept_pages.h"
#include "support/LoopbackServer.h"
#include "support/ModalDialog.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QCheckBox>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    Bench() : session(server.Address({}), WebMode::Direct) {
        for (const char* path : {"/start", "/one", "/two", "/three", "/watched"})
            server.Serve(QString::fromLatin1(path),
                         QByteArray("<link rel=icon href='data:,'><title>") + (path + 1) +
                             "</title>");
        session.Store("First", "OK");
        session.Store("DefaultWeb", ("A" + FromQt(server.Address(u"/start"_s))).c_str());
    }
    void Start() {
        session.Start();
        QTRY_VERIFY(!session.Form().Web->Busy());
    }
    frmMain& Form() { return session.Form(); }
    PaneTabs& Tabs() { return *session->Controllers().links.tabs; }
    void Open(const QString& path, bool isInFront) {
        Tabs().Open(server.Address(path), isInFront);
        QTRY_VERIFY(!Form().FurtherPanes().last()->Busy());
    }
    void Close() {
        Form().close();
        session.End();
        server.Clear();
    }
    QString At(const BrowserPane* pane) {
        return pane->Busy() ? QString() : pane->LocationURL().section(u'/', 1);
    }

    LoopbackServer server;
    TestSession session;
};

} // namespace

class KeptSessionTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void NothingIsKeptUnlessItIsWanted() {
        Bench bench;
        bench.Start();
        bench.Open(u"/one"_s, true);
        bench.session->Watches().CreateWiz(u"MSFT|"_s + bench.server.Address(u"/watched"_s));
        bench.Close();
        QVERIFY(!HoldsPages(ReadKeptPages(bench.session.Settings())));
        bench.Start();
        QTRY_COMPARE(bench.At(bench.Form().Web), u"start"_s);
        QVERIFY(bench.Form().tabRow->isHidden());
        QVERIFY(bench.session->Watches().Kept().empty());
    }

    void PagesComeBackAndAreLoadedWhenTheyAreShown() {
        Bench bench;
        bench.session.Store("KeepPages", "True");
        bench.Start();
        bench.Form().Web->Navigate(bench.server.Address(u"/one"_s));
        QTRY_COMPARE(bench.At(bench.Form().Web), u"one"_s);
        bench.Open(u"/two"_s, false);
        bench.Open(u"/three"_s, true);
        bench.Close();
        bench.Start();
        const QList<BrowserPane*> panes = bench.Form().FurtherPanes();
        QCOMPARE(panes.size(), 2);
        QTRY_COMPARE(bench.At(panes[1]), u"three"_s);
        QVERIFY(!panes[1]->isHidden());
        QCOMPARE(bench.server.CountOf(u"/three"_s), 1);
        QCOMPARE(bench.server.CountOf(u"/one"_s), 0);
        QCOMPARE(bench.server.CountOf(u"/two"_s), 0);
        QCOMPARE(bench.Form().tabRow->tabText(1), u"two"_s);
        bench.Tabs().ShowAt(1);
        QTRY_COMPARE(bench.At(panes[0]), u"two"_s);
        bench.Tabs().ShowAt(0);
        QTRY_COMPARE(bench.At(bench.Form().Web), u"one"_s);
        QCOMPARE(bench.server.CountOf(u"/start"_s), 0);
        // What was never shown is kept once more.
        bench.Close();
        bench.Start();
        bench.Close();
        bench.Start();
        QCOMPARE(bench.Tabs().Pages().size(), 2);
        QCOMPARE(bench.Tabs().Pages()[0].caption, u"two"_s);
    }

    void ALinkIsNotHeldUpByAPageThatWaits() {
        Bench bench;
        bench.session.Store("KeepPages", "True");
        bench.Start();
        bench.Open(u"/two"_s, true);
        bench.Close();
        bench.Start();
        bench.session->Panes().Navigate(bench.server.Address(u"/one"_s));
        QTRY_COMPARE(bench.At(bench.Form().Web), u"one"_s);
        QCOMPARE(bench.server.CountOf(u"/start"_s), 0);
    }

    void TheBrokerPageComesBackInItsPane() {
        Bench bench;
        bench.session.Store("KeepPages", "True");
        bench.Start();
        bench.session->Panes().NavigateSecond(bench.server.Address(u"/two"_s));
        QTRY_COMPARE(bench.At(bench.Form().WebB), u"two"_s);
        bench.Close();
        bench.Start();
        QTRY_COMPARE(bench.At(bench.Form().WebB), u"two"_s);
        QVERIFY(!bench.Form().WebB->isHidden());
        QVERIFY(bench.Form().Web->isHidden());
    }

    void WatchWindowsComeBack() {
        Bench bench;
        bench.session.Store("KeepPages", "True");
        bench.Start();
        frmWiz* window =
            bench.session->Watches().CreateWiz(u"MSFT|"_s + bench.server.Address(u"/watched"_s));
        window->txtsecs->setText(u"90"_s);
        bench.session->Watches().CreateWiz(u"AOL|"_s + bench.server.Address(u"/one"_s))->close();
        QTRY_COMPARE(bench.session->Watches().Kept().size(), 1U);
        // What it asks for now is not to be taken for what it asks for later.
        QTRY_COMPARE(bench.server.CountOf(u"/watched"_s), 1);
        bench.Close();
        bench.Start();
        const std::vector<KeptWatch> watches = bench.session->Watches().Kept();
        QCOMPARE(watches.size(), 1U);
        QCOMPARE(ToQt(watches[0].caption), u"MSFT"_s);
        QCOMPARE(ToQt(watches[0].seconds), u"90"_s);
        QTRY_COMPARE(bench.server.CountOf(u"/watched"_s), 1);
    }

    void TheSetupSwitchesItAndForgetsWhatWasKept() {
        Bench bench;
        bench.session.Store("KeepPages", "True");
        bench.Start();
        bench.Open(u"/two"_s, true);
        bench.Close();
        QVERIFY(HoldsPages(ReadKeptPages(bench.session.Settings())));
        bench.Start();
        WithDialog<frmUser>([&] { bench.session.ClickLink(66); },
                            [](frmUser& dialog) {
                                QVERIFY(dialog.chkKeep->isChecked());
                                dialog.chkKeep->click();
                                dialog.cmdOK[0]->click();
                            });
        QCOMPARE(bench.session.Stored("KeepPages"), u"False"_s);
        QVERIFY(!HoldsPages(ReadKeptPages(bench.session.Settings())));
    }
};

TALLOWMERE_WEB_TEST_MAIN(KeptSessionTest)
#include "KeptSessionTest.moc"
