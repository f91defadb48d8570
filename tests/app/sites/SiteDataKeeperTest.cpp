#include "app/sites/SiteDataKeeper.h"

#include "app/engine/BrowserPane.h"
#include "app/engine/SiteData.h"
#include "app/forms/frmSiteData.h"
#include "app/sites/SiteControllers.h"
#include "support/Await.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QMenu>
#include <QWebEngineView>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

struct Bench {
    Bench() : session(server.Address({}), WebMode::Direct) {
        // Without an icon of its own the engine would ask for one, and get a cookie, at any time.
        CannedPage page{"<title>page</title><link rel=icon href='data:,'>"};
        page.headers << "Set-Cookie: who=you; Path=/; Max-Age=10000";
        server.ServeEverything(page);
    }
    SiteDataKeeper& Keeper() { return *session->Controllers().sites->data; }
    frmSiteData& Window() { return *Keeper().Window(); }
    void Start() {
        session.Start();
        QTRY_VERIFY(!session.Form().Web->Busy());
    }
    QTreeWidgetItem* Row(const QString& site) { return Window().Row(site); }

    LoopbackServer server;
    TestSession session;
};

} // namespace

class SiteDataKeeperTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void TheMenuListsWhoKeepsSomethingAndClearsIt() {
        Bench bench;
        bench.Start();
        bench.session.Form().menus->siteData->trigger();
        const QString site = u"127.0.0.1"_s;
        QTRY_VERIFY(bench.Row(site) && bench.Row(site)->text(frmSiteData::Cookies) == u"1");
        bench.Window().lstData->setCurrentItem(bench.Row(site));
        QTest::mouseClick(bench.Window().cmdClear, Qt::LeftButton);
        QTRY_COMPARE(bench.Window().lblMessage->text(), u"The data of 127.0.0.1 are cleared"_s);
        QTRY_VERIFY(!bench.Row(site));
        QVERIFY(!bench.Window().cmdClear->isEnabled());
    }

    void EverythingIsClearedAfterAQuestion() {
        Bench bench;
        bench.Start();
        bench.session.Form().menus->siteData->trigger();
        QTRY_VERIFY(bench.Row(u"127.0.0.1"_s));
        QTest::mouseClick(bench.Window().cmdClearAll, Qt::LeftButton);
        QVERIFY(bench.session.prompts.messages.last().contains(u"All logins end"));
        QTest::qWait(0);
        QVERIFY(bench.Row(u"127.0.0.1"_s)); // the answer was no
        bench.session.prompts.answers << true;
        QTest::mouseClick(bench.Window().cmdClearAll, Qt::LeftButton);
        QTRY_VERIFY(bench.Window().lblMessage->text().startsWith(u"All data are cleared"));
        QTRY_COMPARE(bench.Window().lstData->topLevelItemCount(), 0);
    }

    void ASwitchIsKeptInTheSettings() {
        Bench bench;
        bench.session.Store("CookieSites", "bank.example|");
        bench.Start();
        bench.session.Form().menus->siteData->trigger();
        QTRY_VERIFY(bench.Row(u"127.0.0.1"_s));
        QCOMPARE(bench.Row(u"bank.example"_s)->checkState(frmSiteData::Across), Qt::Checked);
        QCOMPARE(bench.Row(u"127.0.0.1"_s)->checkState(frmSiteData::Across), Qt::Unchecked);
        bench.Row(u"127.0.0.1"_s)->setCheckState(frmSiteData::Across, Qt::Checked);
        QCOMPARE(bench.session.Stored("CookieSites"), u"bank.example|127.0.0.1|"_s);
        bench.Row(u"bank.example"_s)->setCheckState(frmSiteData::Across, Qt::Unchecked);
        QCOMPARE(bench.session.Stored("CookieSites"), u"127.0.0.1|"_s);
        // The next start keeps it, and lists the site whatever else it keeps.
        bench.session.End();
        bench.Start();
        bench.session.Form().menus->siteData->trigger();
        QTRY_VERIFY(bench.Row(u"127.0.0.1"_s));
        QCOMPARE(bench.Row(u"127.0.0.1"_s)->checkState(frmSiteData::Across), Qt::Checked);
    }

    void AMenuOfThePaneShowsItsSite() {
        Bench bench;
        bench.Start();
        auto* view = bench.session.Form().Web->findChild<QWebEngineView*>();
        QMenu* menu = nullptr;
        const auto hasMenu = [&] {
            for (QWidget* widget : QApplication::topLevelWidgets())
                if (auto* open = qobject_cast<QMenu*>(widget); open && open->isVisible())
                    menu = open;
            return menu != nullptr;
        };
        // A click that comes before the page is drawn has no effect.
        for (int click = 0; click < 10 && !menu; ++click) {
            QTest::mouseClick(view->focusProxy(), Qt::RightButton, {}, {10, 10});
            [[maybe_unused]] const bool soon = Await(hasMenu, std::chrono::seconds(1));
        }
        QVERIFY(menu);
        QAction* data = nullptr;
        for (QAction* action : menu->actions())
            if (action->text() == u"&Data of 127.0.0.1...")
                data = action;
        QVERIFY(data);
        data->trigger();
        menu->close();
        QVERIFY(bench.Keeper().Window());
        QCOMPARE(bench.Window().lstData->currentItem()->text(frmSiteData::Site), u"127.0.0.1"_s);
    }
};

TALLOWMERE_WEB_TEST_MAIN(SiteDataKeeperTest)
#include "SiteDataKeeperTest.moc"
