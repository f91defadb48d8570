#include "app/sites/UserSites.h"

#include "app/engine/BrowserPane.h"
#include "app/links/SitePopups.h"
#include "app/market/IndexStrip.h"
#include "core/text/files.h"
#include "support/LoopbackServer.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QSignalSpy>

#include <fstream>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

/// A session in live mode whose sites and today's addresses all lie on one loopback server.
struct Bench {
    Bench() : session(server.Address({}), WebMode::Live) {
        session.today = "[links]\n3 = \"http://" + Host() + "/today/{upper}\"\n";
        session.menus =
            MenuTable::Parse("[mnuAVLink]\n3 = \"http://" + Host() + "/tv\"\n", "menus.toml");
    }
    std::string Host() const { return FromQt(server.Address({})); }
    std::filesystem::path File() const { return session.Folder() / "sites.toml"; }
    std::string Row(const std::string& key, const std::string& path) const {
        return key + " = \"http://" + Host() + path + "\"\n";
    }
    void Click(int index) {
        session.Form().List1->SetListIndex(0);
        session.ClickLink(index);
    }
    QString Status() { return session.Form().WebStatus->text(); }

    LoopbackServer server;
    TestSession session;
};

void Overwrite(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << text;
}

} // namespace

class UserSitesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ARowInTheUsersFileGoesBeforeTheProgramsOwn() {
        Bench bench;
        WriteWholeFile(bench.File(), "[links]\n" + bench.Row("3", "/mine/{lower}"));
        bench.session.Start();
        bench.Click(3);
        QTRY_COMPARE(bench.server.CountOf(u"/mine/aol"_s), 1);
        QTRY_COMPARE(bench.session.Form().Web->LocationURL(),
                     bench.server.Address(u"/q?s=aol&d=2b"_s));
        QCOMPARE(bench.server.CountOf(u"/q?s=aol&d=2b"_s), 0);
    }

    void AFileThatAppearsChangesIsReplacedAndGoesTakesEffectWithoutARestart() {
        Bench bench;
        bench.session.Start();
        QSignalSpy changed(&bench.session->OwnSites(), &UserSites::Changed);
        const auto leadsTo = [&](const QString& path) {
            if (!changed.wait())
                return false;
            bench.server.Clear();
            bench.Click(3);
            return QTest::qWaitFor([&] { return bench.server.CountOf(path) == 1; });
        };
        Overwrite(bench.File(), "[links]\n" + bench.Row("3", "/first/{upper}"));
        QVERIFY(leadsTo(u"/first/AOL"_s));
        Overwrite(bench.File(), "[links]\n" + bench.Row("3", "/changed/{upper}"));
        QVERIFY(leadsTo(u"/changed/AOL"_s));
        for (int n = 1; n <= 2; ++n) {
            WriteWholeFile(bench.File(),
                           "[links]\n" + bench.Row("3", "/replaced" + std::to_string(n)));
            QVERIFY(leadsTo(u"/replaced%1"_s.arg(n)));
        }
        std::filesystem::remove(bench.File());
        QVERIFY(leadsTo(u"/today/AOL"_s));
        Overwrite(bench.File(), "[links]\n" + bench.Row("3", "/again"));
        QVERIFY(leadsTo(u"/again"_s));
    }

    void AnOverriddenHostIsUsedInNewAddressesAndMenusAndTheOldOneStillLeads() {
        Bench bench;
        bench.session.Start();
        QSignalSpy changed(&bench.session->OwnSites(), &UserSites::Changed);
        WriteWholeFile(bench.File(), "[hosts]\nquote = \"mine.example\"\n"
                                     "menu_mnuHisto = \"" +
                                         bench.Host() + "/hist\"\n[menus.mnuAVLink]\n" +
                                         bench.Row("3", "/mytv"));
        QVERIFY(changed.wait());
        bench.Click(3);
        QTRY_COMPARE(bench.server.CountOf(u"/today/AOL"_s), 1);
        QTRY_COMPARE(bench.session.Form().Web->LocationURL(), u"mine.example/q?s=aol&d=2b"_s);
        bench.session.Form().Web->Navigate(bench.server.Address(u"/q?s=msft&d=2b"_s));
        QTRY_COMPARE(bench.server.CountOf(u"/today/MSFT"_s), 1);
        bench.session->Popups().Choose(u"mnuHisto"_s, 1);
        QTRY_COMPARE(bench.server.CountOf(u"/hist/cgi-bin/cgipage?PGMNM=hstqte&GRP=QUOTE&ITEM=03&"
                                          "Symbol=aol+++++&Period=30++++"_s),
                     1);
        bench.session->Popups().Choose(u"mnuAVLink"_s, 3);
        QTRY_COMPARE(bench.server.CountOf(u"/mytv"_s), 1);
        QCOMPARE(bench.server.CountOf(u"/tv"_s), 0);
    }

    void TransfersGoWhereTheRowSays() {
        Bench bench;
        bench.session.Start();
        QSignalSpy changed(&bench.session->OwnSites(), &UserSites::Changed);
        WriteWholeFile(bench.File(), "[links]\n" + bench.Row("read_indices", "/indices"));
        QVERIFY(changed.wait());
        bench.session->Strip().Timer1.stop();
        bench.session.clock.now = bench.session.clock.now.addSecs(1000);
        bench.session->Strip().Tick();
        QTRY_COMPARE(bench.server.CountOf(u"/indices"_s), 1);
    }

    void AWrongRowIsReportedWithFileAndLineAndTheOthersCount() {
        Bench bench;
        bench.session.Start();
        QSignalSpy changed(&bench.session->OwnSites(), &UserSites::Changed);
        QTRY_VERIFY(!bench.session.Form().Web->Busy());
        WriteWholeFile(bench.File(), "[links]\n15 = \"nowhere\"\n" + bench.Row("3", "/mine"));
        QVERIFY(changed.wait());
        QCOMPARE(bench.Status(), u"sites.toml:2: \"15\" is no http or https address"_s);
        bench.Click(3);
        QTRY_COMPARE(bench.server.CountOf(u"/mine"_s), 1);
    }

    void AFileThatIsNoTableIsReportedAndTheOldRowsStay() {
        Bench bench;
        WriteWholeFile(bench.File(), "[links]\n" + bench.Row("3", "/mine"));
        bench.session.Start();
        QTRY_VERIFY(!bench.session.Form().Web->Busy());
        QSignalSpy problems(&bench.session->OwnSites(), &UserSites::ProblemsFound);
        Overwrite(bench.File(), "<html>\n<body>\n");
        QVERIFY(problems.wait());
        QVERIFY2(bench.Status().startsWith(u"sites.toml:1: "_s), qPrintable(bench.Status()));
        QVERIFY2(bench.Status().endsWith(u" (and 1 more)"_s), qPrintable(bench.Status()));
        bench.Click(3);
        QTRY_COMPARE(bench.server.CountOf(u"/mine"_s), 1);
    }

    void AWrongFileAtTheStartKeepsNothingFromStartingAndIsReportedAfterTheFirstPage() {
        Bench bench;
        WriteWholeFile(bench.File(), "[links]\n3 = 7\n");
        bench.session.Start();
        QTRY_VERIFY(!bench.session.Form().Web->Busy());
        QCOMPARE(bench.Status(), u"sites.toml:2: \"3\" is not an address in quotes"_s);
        bench.Click(3);
        QTRY_COMPARE(bench.server.CountOf(u"/today/AOL"_s), 1);
    }

    void AFolderInPlaceOfTheFileIsReported() {
        Bench bench;
        std::filesystem::create_directory(bench.File());
        bench.session.Start();
        QCOMPARE(bench.session->OwnSites().Problems().size(), std::size_t(1));
        QVERIFY(bench.session->OwnSites().Problems()[0].ends_with("the file cannot be read"));
    }
};

TALLOWMERE_WEB_TEST_MAIN(UserSitesTest)
#include "UserSitesTest.moc"
