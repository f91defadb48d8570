#include "app/quotes/LiveQuotes.h"
#include "core/sites/site_table.h"

#include "app/base/QtText.h"
#include "app/base/TransferControl.h"
#include "core/text/files.h"
#include "support/StandIns.h"
#include "support/TestClock.h"

#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace tallowmere;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using Ending = CannedPage::Ending;
using Host = StandIns::Host;

namespace {

/// Today's quotes without a window.
class Portal {
public:
    StandIns sources;
    TestClock clock;
    QStringList pages; ///< the answers, in the order in which they came

    explicit Portal(std::chrono::milliseconds patience = 10s)
        : m_quotes(std::make_unique<LiveQuotes>(
              m_sites, PortalTexts{"<html>books</html>", "<html>new</html>"}, sources.Table(1),
              clock, Store(), nullptr, patience)) {}

    LiveQuotes& Quotes() { return *m_quotes; }
    void End() { m_quotes.reset(); }
    /// Ends and begins anew.
    void Restart() {
        m_quotes->Save();
        m_quotes =
            std::make_unique<LiveQuotes>(m_sites, PortalTexts(), sources.Table(1), clock, Store());
    }
    std::filesystem::path Store() const { return ToPath(m_folder.filePath(u"quotes.json"_s)); }

    void Ask(const std::string& pathAndQuery, Asker asker = Asker::Pane) {
        m_quotes->Answer("h.test", pathAndQuery, asker, [this](const auto& answer) {
            pages << (answer ? QString::fromStdString(answer->body) : u"none"_s);
        });
    }
    /// Waits for the answers to all that was asked.
    bool HasAnswered(qsizetype count) {
        return QTest::qWaitFor([&] { return pages.size() == count; });
    }

private:
    QTemporaryDir m_folder;
    SiteTable m_sites = SiteTable::Parse("[hosts]\ndefault = \"h.test\"\n", "sites.toml");
    std::unique_ptr<LiveQuotes> m_quotes;
};

/// The price that a host says, as a page writes it.
QString PriceOf(Host host) {
    return QLocale(QLocale::English).toString(StandIns::PriceOf(host), 'f', 2);
}

/// A path for the quotes of so many tickers: T0, T1 ...
std::string QuotesPath(int count) {
    std::string path = "/quotes?symbols=";
    for (int i = 0; i < count; ++i)
        path += (i == 0 ? "T" : "+T") + std::to_string(i);
    return path + "&d=t";
}

/// The symbols of a request to CNBC's service.
QStringList SymbolsOf(const QString& request) {
    return request.section(u"symbols="_s, 1).section(u'&', 0, 0).split(u"%7C"_s);
}

} // namespace

class LiveQuotesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void APageThatNeedsNoQuotesIsAnsweredAtOnce() {
        Portal portal;
        portal.Ask("/rr.html");
        QCOMPARE(portal.pages, QStringList{u"<html>books</html>"_s});
        QCOMPARE(portal.sources.RequestCount(), 0);
    }

    void APageIsAnsweredOnceItsQuotesAreThereAndAtOnceWhileTheyAreFresh() {
        Portal portal;
        portal.Ask("/q?s=^nya+^spc");
        QVERIFY(portal.pages.isEmpty());
        QVERIFY(portal.HasAnswered(1));
        QVERIFY(portal.pages[0].contains(u"1,111.25"_s));
        portal.Ask("/q?s=^spc+^nya");
        QCOMPARE(portal.pages.size(), 2);
        QCOMPARE(portal.sources.RequestCount(), 1);
    }

    void PagesThatWaitForTheSameQuotesAskOnce() {
        Portal portal;
        portal.Ask("/q?s=^nya+^spc");
        portal.Ask("/q?s=^spc+^nya");
        portal.Ask("/quotes?symbols=^spc+^nya&d=t");
        QVERIFY(portal.HasAnswered(3));
        QCOMPARE(portal.sources.RequestCount(), 1);
    }

    void AThousandTickersAreAskedForInFullBatchesAndNoneTwice() {
        Portal portal;
        QByteArrayList symbols;
        for (int i = 0; i < 1000; ++i)
            symbols << "T" + QByteArray::number(i);
        portal.sources.Answer(Host::Cnbc, StandIns::CnbcAnswer(symbols, 5));
        portal.Ask(QuotesPath(1000));
        QVERIFY(portal.HasAnswered(1));
        const QStringList& requests = portal.sources[Host::Cnbc].Requests();
        QCOMPARE(requests.size(), 25);
        QCOMPARE(portal.sources.RequestCount(), 25);
        QSet<QString> asked;
        for (const QString& request : requests) {
            QCOMPARE(SymbolsOf(request).size(), 40);
            for (const QString& symbol : SymbolsOf(request))
                asked << symbol;
        }
        QCOMPARE(asked.size(), 1000);
        QCOMPARE(portal.pages[0].count(u"<b>5.00</b>"_s), 1000);
    }

    void APageWaitsNoLongerThanItsPatience() {
        Portal portal(100ms);
        portal.sources.Answer(Host::Cnbc, {{}, Ending::Silent});
        portal.sources.Answer(Host::Yahoo, {{}, Ending::Silent});
        portal.Ask("/q?s=^nya+^spc");
        QVERIFY(portal.HasAnswered(1));
        QVERIFY(portal.pages[0].contains(u"The sources have not answered yet."_s));
        QVERIFY(!portal.sources[Host::Cnbc].Requests().isEmpty());
    }

    void TheLastQuotesAreShownAsStaleAfterARestartWithoutANetwork() {
        Portal portal;
        portal.Ask("/q?s=^nya+^spc");
        QVERIFY(portal.HasAnswered(1));
        portal.sources.TakeDown(Host::Cnbc);
        portal.sources.TakeDown(Host::Yahoo);
        portal.sources.TakeDown(Host::Cboe);
        portal.sources.TakeDown(Host::Fred);
        portal.Restart();
        portal.Ask("/q?s=^nya+^spc");
        QVERIFY(portal.HasAnswered(2));
        QCOMPARE(portal.pages[1].count(u"1,111.25"_s), 2);
        QVERIFY(portal.pages[1].contains(u"ET, CNBC, stale since "_s));

        portal.sources.SetCnbcPrice(7.5);
        portal.sources.BringBack(Host::Cnbc);
        portal.clock.now = portal.clock.now.addSecs(20);
        portal.Ask("/q?s=^nya+^spc");
        QVERIFY(portal.HasAnswered(3));
        QCOMPARE(portal.pages[2].count(u"7.50"_s), 2);
        QVERIFY(!portal.pages[2].contains(u"stale"_s));
    }

    void ADamagedFileOfQuotesIsPassedOver() {
        Portal portal;
        WriteWholeFile(portal.Store(), "[{\"symbol\":");
        portal.Restart();
        portal.Ask("/q?s=^nya+^spc");
        QVERIFY(portal.HasAnswered(1));
        QVERIFY(portal.pages[0].contains(u"1,111.25"_s));
    }

    void APageThatWaitsIsDroppedWithTheRest() {
        Portal portal;
        portal.sources.Answer(Host::Cnbc, {{}, Ending::Silent});
        portal.Ask("/q?s=^nya+^spc");
        QTRY_COMPARE(portal.sources.RequestCount(), 1);
        portal.End();
        QTest::qWait(20);
        QVERIFY(portal.pages.isEmpty());
    }

    void AnAnswerMayLeadToTheNextQuestion() {
        Portal portal;
        bool isDone = false;
        portal.Quotes().Answer("h.test", "/q?s=^nya+^spc", Asker::Pane, [&](const auto&) {
            portal.Quotes().Answer("h.test", "/q?s=^dji+^ixic", Asker::Pane,
                                   [&](const auto& answer) { isDone = answer.has_value(); });
        });
        QTRY_VERIFY(isDone);
        QCOMPARE(portal.sources.RequestCount(), 2);
    }

    void NothingIsSentASecondTimeWhenTheConnectionBreaks() {
        Portal portal;
        for (const Host host : {Host::Cnbc, Host::Yahoo, Host::Nasdaq, Host::Cboe})
            portal.sources.Answer(host, {{}, Ending::HangUp});
        for (int i = 0; i < 10; ++i)
            portal.Ask("/q?s=msft+aol");
        QVERIFY(portal.HasAnswered(10));
        for (const Host host : {Host::Cnbc, Host::Yahoo, Host::Nasdaq, Host::Cboe}) {
            const QStringList& requests = portal.sources[host].Requests();
            QVERIFY(!requests.isEmpty());
            QCOMPARE(QSet<QString>(requests.begin(), requests.end()).size(), requests.size());
        }
    }

    void NothingIsSentASecondTimeToWhereARedirectLeads() {
        Portal portal;
        CannedPage moved;
        moved.status = 302;
        moved.headers << "Location: http://" + portal.sources[Host::Fred].Address({}).toUtf8() +
                             "/moved";
        portal.sources.Answer(Host::Cnbc, moved);
        portal.sources[Host::Fred].Serve(u"/moved"_s, {{}, Ending::HangUp});
        portal.Ask("/q?s=msft");
        QVERIFY(portal.HasAnswered(1));
        QCOMPARE(portal.sources[Host::Fred].CountOf(u"/moved"_s), 1);
    }

    void RedirectsInACircleEnd() {
        Portal portal;
        CannedPage moved;
        moved.status = 302;
        moved.headers << "Location: /round";
        portal.sources.Answer(Host::Cnbc, moved);
        portal.Ask("/q?s=^nya");
        QVERIFY(portal.HasAnswered(1));
        QCOMPARE(portal.sources[Host::Cnbc].Requests().size(), 6);
        QVERIFY(portal.pages[0].contains(PriceOf(Host::Yahoo)));
    }

    void APageOfTheWebGetsWhatIsAtHandAndMakesNobodyAskForMore() {
        Portal portal;
        portal.Ask("/q?s=^nya+^spc");
        QVERIFY(portal.HasAnswered(1));
        const qsizetype before = portal.sources.RequestCount();
        portal.clock.now = portal.clock.now.addSecs(600);
        portal.Ask("/q?s=^nya+^spc", Asker::WebPage);
        portal.Ask("/c/1y/x/x0.gif", Asker::WebPage);
        QCOMPARE(portal.pages.size(), 3);
        QVERIFY(portal.pages[1].contains(PriceOf(Host::Cnbc)));
        for (int i = 0; i < 100; ++i)
            portal.Ask("/t?s=x" + std::to_string(i), Asker::WebPage);
        QCOMPARE(portal.pages.size(), 103);
        portal.Ask("/q?s=^nya"); // after anything that those might have left behind
        QVERIFY(portal.HasAnswered(104));
        QCOMPARE(portal.sources.RequestCount(), before + 1);
    }

    /// After an hour in which every source refused, asked once a minute.
    void QuotesAreBackAsSoonAsSomebodyAsks_data() {
        QTest::addColumn<QByteArray>("header");
        QTest::addColumn<bool>("isBack");
        QTest::newRow("rests of our own") << QByteArray("X-Nothing: 0") << true;
        QTest::newRow("a rest that was asked for") << QByteArray("Retry-After: 36000") << false;
    }

    void QuotesAreBackAsSoonAsSomebodyAsks() {
        QFETCH(QByteArray, header);
        QFETCH(bool, isBack);
        Portal portal;
        const CannedPage refusal{"{}", Ending::Length, 429, "application/json", {header}};
        for (const Host host : {Host::Cnbc, Host::Yahoo, Host::Nasdaq, Host::Cboe})
            portal.sources.Answer(host, refusal);
        for (int minute = 1; minute <= 60; ++minute) {
            portal.Ask("/javaticker.html?s=msft", Asker::Pane);
            QVERIFY(portal.HasAnswered(minute));
            portal.clock.now = portal.clock.now.addSecs(60);
        }
        portal.sources.Answer(Host::Cnbc, StandIns::CnbcAnswer({"MSFT"}, 77));
        portal.Ask("/q?s=msft");
        QVERIFY(portal.HasAnswered(61));
        QCOMPARE(portal.pages.last().contains(u"77.00"_s), isBack);
    }

    void TheStripBringsQuotesBackByItself() {
        Portal portal;
        const CannedPage refusal{"{}", Ending::Length, 403, "application/json"};
        for (int host = 0; host < StandIns::kHosts; ++host)
            portal.sources.Answer(static_cast<Host>(host), refusal);
        int answers = 0;
        const auto fetch = [&] {
            portal.Ask("/q?s=^nya+^spc", Asker::Transfer);
            return portal.HasAnswered(++answers);
        };
        for (int i = 0; i < 15; ++i) { // an hour, every four minutes
            QVERIFY(fetch());
            portal.clock.now = portal.clock.now.addSecs(240);
        }
        portal.sources.Answer(Host::Cnbc, StandIns::CnbcAnswer({".NYA", ".SPX"}, 77));
        QVERIFY(fetch());
        QVERIFY(portal.pages.last().contains(u"77.00"_s));
    }

    void TheProgramCallsItselfByItsNameOrAsTheTableSays() {
        Portal portal;
        portal.Ask("/q?s=^nya+^spc");
        QVERIFY(portal.HasAnswered(1));
        QCOMPARE(portal.sources[Host::Cnbc].LastHeader("User-Agent"),
                 "Tallowmere/1.0 (personal stock research browser)");
    }

    void ARedirectIsFollowed() {
        Portal portal;
        CannedPage moved;
        moved.status = 302;
        moved.headers << "Location: http://" + portal.sources[Host::Fred].Address({}).toUtf8() +
                             "/moved";
        portal.sources.Answer(Host::Cnbc, moved);
        portal.sources[Host::Fred].Serve(u"/moved"_s, StandIns::CnbcAnswer({".NYA"}, 8.25));
        portal.Ask("/q?s=^nya");
        QVERIFY(portal.HasAnswered(1));
        QVERIFY2(portal.pages[0].contains(u"8.25"_s), qUtf8Printable(portal.pages[0]));
    }

    void TheNamedProxyIsUsed() {
        Portal portal;
        LoopbackServer proxy;
        portal.Quotes().UseProxy({proxy.Address({}), ProxySetting::kNamedProxy});
        portal.Ask("/q?s=^nya+^spc");
        QVERIFY(portal.HasAnswered(1));
        QVERIFY(proxy.Requests().first().startsWith(u"GET http://127.0.0.1:"_s));
        QCOMPARE(portal.sources.RequestCount(), 0);
    }

    void ATransferThatIsBrokenOffHearsNothingOfItsPage() {
        Portal portal;
        WebAccess access(WebMode::Live);
        access.SetResolver([](const std::string& address, AddressUse use) {
            return use == AddressUse::Reading ? "portal:" + address.substr(5) : address;
        });
        access.SetLatePortal([&](const std::string& host, const std::string& pathAndQuery,
                                 Asker asker, WebAccess::PortalReply reply) {
            portal.Quotes().Answer(host, pathAndQuery, asker, std::move(reply));
        });
        TransferControl control(access);
        control.Open(u"h.test/q?s=^nya+^spc"_s);
        control.Cancel();
        QVERIFY(control.HasFailed());
        const QByteArray page = control.OpenURL(u"h.test/q?s=^dji+^ixic"_s);
        QVERIFY2(page.contains("^IXIC") && !page.contains("^NYA"), page.constData());
        control.Open(u"h.test/q?s=^tyx+^oex"_s);
        QVERIFY(control.IsBusy());
        QTRY_VERIFY(!control.IsBusy());
        QVERIFY(control.GetChunk(100000).contains("^OEX"));
    }

    void APageForATransferThatIsGoneDoesNoHarm() {
        Portal portal;
        WebAccess access(WebMode::Live);
        access.SetResolver(
            [](const std::string& address, AddressUse) { return "portal:" + address.substr(5); });
        access.SetLatePortal([&](const std::string& host, const std::string& pathAndQuery,
                                 Asker asker, WebAccess::PortalReply reply) {
            portal.Quotes().Answer(host, pathAndQuery, asker, std::move(reply));
        });
        {
            TransferControl control(access);
            control.Open(u"h.test/q?s=^nya+^spc"_s);
        }
        portal.Ask("/q?s=^nya+^spc");
        QVERIFY(portal.HasAnswered(1));
    }
};

QTEST_GUILESS_MAIN(LiveQuotesTest)
#include "LiveQuotesTest.moc"
