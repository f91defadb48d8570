#include "app/quotes/CompanyDirectory.h"

#include "app/base/QtText.h"
#include "app/quotes/LiveQuotes.h"
#include "core/sites/site_table.h"
#include "core/text/files.h"
#include "support/FullDisk.h"
#include "support/StandIns.h"
#include "support/TestClock.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using Ending = CannedPage::Ending;

namespace {

constexpr auto kList = R"({"0":{"cik_str":1,"ticker":"ZZZQ","title":"MICROBREW HOLDINGS"},
                           "1":{"cik_str":2,"ticker":"MSFT","title":"MICROSOFT CORP"}})";
constexpr qint64 kDay = 86400;

/// Names without a window, in a folder of their own.
class User {
public:
    LoopbackServer server;
    TestClock clock;
    SourceTable table;

    User() {
        WriteWholeFile(Shipped(), "# names\nMSFT|Microsoft|1|2.0\nMU|Micron|1|2.0\n");
        server.Serve(u"/list"_s, CannedPage{kList, Ending::Length, 200, "application/json"});
        table.userAgent = "Program/1.0";
        table.companies.request = "http://" + FromQt(server.Address(u"/list"_s));
        table.companies.contact = "A B a@b.example";
        table.companies.timeout = 1;
        Restart();
    }
    void Restart() {
        directory.reset();
        quotes =
            std::make_unique<LiveQuotes>(m_sites, PortalTexts(), SourceTable(), clock, Quotes());
        directory = std::make_unique<CompanyDirectory>(Shipped(), Kept(), clock);
    }
    void Serve() { directory->Serve(*quotes, table); }
    /// Looks for a name, and waits until what that caused is over.
    QStringList Offered(const char* entry) {
        QStringList tickers;
        for (const NamedTicker& row : directory->Offer(entry).rows)
            tickers << ToQt(row.ticker);
        return tickers;
    }
    bool HasAsked(int times) {
        return QTest::qWaitFor([&] { return server.Requests().size() >= times; });
    }
    /// Whether what came was kept.
    bool HasKept(const char* text) {
        return QTest::qWaitFor([&] {
            return QString::fromStdString(ReadExistingFile(Kept())).contains(QLatin1String(text));
        });
    }
    void Wait(qint64 seconds) { clock.now = clock.now.addSecs(seconds); }
    std::filesystem::path Shipped() const { return ToPath(m_folder.filePath(u"shipped.txt"_s)); }
    std::filesystem::path Kept() const { return ToPath(m_folder.filePath(u"companies.json"_s)); }
    std::filesystem::path Quotes() const { return ToPath(m_folder.filePath(u"quotes.json"_s)); }

    std::unique_ptr<LiveQuotes> quotes;
    std::unique_ptr<CompanyDirectory> directory;

private:
    QTemporaryDir m_folder;
    SiteTable m_sites = SiteTable::Parse("[hosts]\ndefault = \"h.test\"\n", "sites.toml");
};

} // namespace

class CompanyDirectoryTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void KnowsTheShippedNamesWithoutANetwork() {
        User user;
        QCOMPARE(user.Offered("micro"), QStringList({u"MSFT"_s, u"MU"_s}));
        QCOMPARE(user.directory->NameOf("msft"), std::string("Microsoft"));
        QCOMPARE(user.directory->NameOf("NOSUCH"), std::string());
        QVERIFY(user.server.Requests().isEmpty());
        QVERIFY(!std::filesystem::exists(user.Kept()));
    }

    void FetchesTheListOnceAndKeepsIt() {
        User user;
        user.Serve();
        QSignalSpy changed(user.directory.get(), &CompanyDirectory::Changed);
        QCOMPARE(user.Offered("micro"), QStringList({u"MSFT"_s, u"MU"_s}));
        QVERIFY(changed.wait());
        QCOMPARE(user.server.LastHeader("User-Agent"), QByteArray("Program/1.0 A B a@b.example"));
        // The list stands in front, and its names are today's.
        QCOMPARE(user.Offered("micro"), QStringList({u"ZZZQ"_s, u"MSFT"_s, u"MU"_s}));
        QCOMPARE(user.directory->NameOf("MSFT"), std::string("MICROSOFT CORP"));
        QVERIFY(user.HasKept("ZZZQ"));
        user.Restart();
        user.Serve();
        QCOMPARE(user.Offered("microb"), QStringList(u"ZZZQ"_s));
        user.Wait(7 * kDay - 60);
        user.Offered("micro");
        QTest::qWait(0);
        QCOMPARE(user.server.Requests().size(), 1);
        user.Wait(120);
        user.Offered("micro");
        QVERIFY(user.HasAsked(2));
    }

    void NobodyIsAskedBeforeSomebodyLooksForAName() {
        User user;
        user.Serve();
        user.directory->NameOf("MSFT");
        QTest::qWait(0);
        QVERIFY(user.server.Requests().isEmpty());
    }

    void WithoutAContactNothingIsAsked() {
        User user;
        user.table.companies.contact.clear();
        user.Serve();
        QCOMPARE(user.Offered("micro"), QStringList({u"MSFT"_s, u"MU"_s}));
        user.Offered("micron");
        QTest::qWait(0);
        QVERIFY(user.server.Requests().isEmpty());
    }

    void AnAnswerThatIsNoListLeavesTheNamesAndIsAskedForTheNextDay_data() {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<int>("ending");
        const auto row = [](const char* name, int status, const QByteArray& body,
                            Ending ending = Ending::Length) {
            QTest::newRow(name) << status << body << static_cast<int>(ending);
        };
        row("refused", 403, "<html>Undeclared automated tool</html>");
        row("too many", 429, "{}");
        row("gone", 404, kList);
        row("an error", 500, kList);
        row("a page", 200, "<html><body>hello</body></html>");
        row("something else", 200, R"({"error":"no"})");
        row("empty", 200, "");
        row("cut short", 200, kList, Ending::CutShort);
        row("silent", 200, "", Ending::Silent);
        row("endless", 200, QByteArray(1 << 20, ' '), Ending::Endless);
    }
    void AnAnswerThatIsNoListLeavesTheNamesAndIsAskedForTheNextDay() {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(int, ending);
        User user;
        user.server.Serve(
            u"/list"_s, CannedPage{body, static_cast<Ending>(ending), status, "application/json"});
        user.Serve();
        user.Offered("micro");
        QVERIFY(user.HasKept("asked"));
        QCOMPARE(user.Offered("micro"), QStringList({u"MSFT"_s, u"MU"_s}));
        const auto asked = user.server.Requests().size();
        user.Restart();
        user.Serve();
        user.Offered("micro");
        QTest::qWait(0);
        QCOMPARE(user.server.Requests().size(), asked);
        user.server.Serve(u"/list"_s, CannedPage{kList, Ending::Length, 200, "application/json"});
        user.Wait(kDay);
        user.Offered("micro");
        QVERIFY(user.HasKept("ZZZQ"));
    }

    void ADamagedFileIsFetchedAgain() {
        User user;
        WriteWholeFile(user.Kept(), "{\"asked\":17");
        user.Serve();
        user.Offered("micro");
        QVERIFY(user.HasKept("ZZZQ"));
    }

    void AFullDiskCostsNoName() {
        User user;
        user.Serve();
        QSignalSpy changed(user.directory.get(), &CompanyDirectory::Changed);
        const FullDisk disk(0);
        user.Offered("micro");
        QVERIFY(changed.wait());
        QCOMPARE(user.Offered("microb"), QStringList(u"ZZZQ"_s));
        QVERIFY(!std::filesystem::exists(user.Kept()));
    }

    void NamesThatComeWithQuotesAreLearned() {
        User user;
        StandIns sources;
        SiteTable sites = SiteTable::Parse("[hosts]\ndefault = \"h.test\"\n", "sites.toml");
        LiveQuotes quotes(sites, PortalTexts(), sources.Table(1), user.clock);
        user.directory->Serve(quotes, SourceTable());
        QCOMPARE(user.directory->NameOf("AOL"), std::string());
        QSignalSpy changed(user.directory.get(), &CompanyDirectory::Changed);
        quotes.Answer("h.test", "/quotes?symbols=AOL&d=t", Asker::Pane, [](const auto&) {});
        QVERIFY(changed.wait());
        QVERIFY(!user.directory->NameOf("AOL").empty());
    }
};

QTEST_MAIN(CompanyDirectoryTest)
#include "CompanyDirectoryTest.moc"
