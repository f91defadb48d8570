#include "app/market/PriceAlerts.h"

#include "app/base/DesktopNotice.h"
#include "app/market/AlertWindow.h"
#include "app/portfolio/ListQuotes.h"
#include "core/text/files.h"
#include "support/Await.h"
#include "support/StandIns.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QSignalSpy>
#include <QTimeZone>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using Host = StandIns::Host;
using enum AlertKind;

namespace {

/// A window on a desktop without notices; the first page is not waited for.
class User : public TestSession {
public:
    using TestSession::TestSession;

    std::map<std::string, ListedPrice> market;

    User() {
        Store("First", "OK");
        Store("Stocks1", "MSFT|AOL|");
        prices = [this](const std::string& ticker) -> std::optional<ListedPrice> {
            const auto found = market.find(ticker);
            return found == market.end() ? std::nullopt : std::optional(found->second);
        };
        Market("MSFT", 430);
    }
    ~User() { End(); } // before the prices go

    void Market(const std::string& ticker, double last) {
        ListedPrice price;
        price.last = last;
        price.origin = "Nov 20, SAMPLE DATA";
        market[ticker] = price;
    }
    void StartQuiet() {
        Start();
        Windows().Notice().UseBus(QDBusConnection(u"no such connection"_s));
    }
    void Begin() {
        StartQuiet();
        Alerts().Begin();
    }
    PriceAlerts& Alerts() { return *(*this)->Controllers().market.alerts; }
    AlertWindow& Windows() { return *(*this)->Controllers().market.alertWindow; }
    void Set(AlertKind kind, double limit, const char* ticker) {
        Alerts().Add({0, kind, limit, ticker});
    }
    QByteArray File(std::string_view name) {
        return QByteArray::fromStdString(ReadExistingFile(Folder() / name));
    }
    void Write(std::string_view name, std::string_view content) {
        WriteWholeFile(Folder() / name, content);
    }
    std::size_t FiredCount() { return Alerts().Book().Log().size(); }
};

/// The same in live mode, with stand-ins for all sources. The clock stands at noon of a day of
/// trading; the price of CNBC's service is of that moment.
class LiveUser : public User {
public:
    StandIns sources;

    LiveUser() : User(u"127.0.0.1:1"_s, WebMode::Live) {
        Store("First", "OK");
        Store("Stocks1", "MSFT|");
        TestSession::sources = sources.Table();
        clock.now = QDateTime(QDate(2026, 11, 20), QTime(17, 0), QTimeZone::utc());
        Serve(100, "2026-11-20T12:00:00-0500");
    }
    void Serve(double price, const char* time) {
        CannedPage page = StandIns::CnbcAnswer({"MSFT", "AOL", "YHOO"}, price);
        page.body.replace("2026-11-20T16:00:00-0500", time);
        page.body.replace("+1.00", "+0.50");
        sources[Host::Cnbc].Serve(u"/quotes"_s, page);
    }
    qsizetype Asked(const QString& symbol) {
        qsizetype count = 0;
        for (const QString& request : sources[Host::Cnbc].Requests())
            count += request.contains(symbol);
        return count;
    }
};

} // namespace

class PriceAlertsTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void AnAlertFiresOnceAndIsInTheLog() {
        User user;
        user.Begin();
        user.Set(Above, 450, "MSFT");
        user.Alerts().Look();
        QCOMPARE(user.FiredCount(), 0U);
        user.Market("MSFT", 450);
        QSignalSpy changed(&user.Alerts(), &PriceAlerts::Changed);
        user.Alerts().Look();
        QCOMPARE(user.FiredCount(), 1U);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(user.Form().WebStatus->text(), u"MSFT is at 450.00: at or above 450.00"_s);
        user.Market("MSFT", 460);
        user.Alerts().Look();
        QCOMPARE(user.FiredCount(), 1U);
        const auto log = ReadAlertLog(user.File(kAlertLogFile).toStdString());
        QCOMPARE(log.size(), 1U);
        QCOMPARE(log[0].price, 450);
        QCOMPARE(log[0].origin, std::string("Nov 20, SAMPLE DATA"));
        QCOMPARE(log[0].firedAt, user.clock.now.toSecsSinceEpoch());
        // Over a restart it rests.
        user.Begin();
        QCOMPARE(user.FiredCount(), 1U);
    }

    void APriceAtHandFiresAnAlertThatIsSet() {
        User user;
        user.Begin();
        user.Set(Below, 430, "msft");
        QCOMPARE(user.FiredCount(), 1U);
    }

    void AStaleOrDoubtfulPriceFiresNothing() {
        User user;
        user.market["MSFT"].age = "3 h";
        user.Begin();
        user.Set(Above, 1, "MSFT");
        QCOMPARE(user.FiredCount(), 0U);
        user.market["MSFT"].age.clear();
        user.market["MSFT"].doubtful = true;
        user.Alerts().Look();
        QCOMPARE(user.FiredCount(), 0U);
        user.market["MSFT"].doubtful = false;
        user.Alerts().Look();
        QCOMPARE(user.FiredCount(), 1U);
    }

    void ResetArmsAnAlertForTheNextPrice() {
        User user;
        user.Begin();
        user.Set(Above, 430, "MSFT");
        QCOMPARE(user.FiredCount(), 1U);
        user.Alerts().Reset(user.Alerts().Book().List().alerts.at(0).id);
        const PriceAlert armed = user.Alerts().Book().List().alerts.at(0);
        QVERIFY(!user.Alerts().Book().FiredBy(armed.id));
        user.Alerts().Look();
        QCOMPARE(user.FiredCount(), 1U);
        user.Market("MSFT", 431);
        user.Alerts().Look();
        QCOMPARE(user.FiredCount(), 2U);
    }

    void EachChangeIsAStepOfUndo() {
        User user;
        user.Begin();
        MainMenus& menus = *user.Form().menus;
        user.Set(Above, 430, "MSFT");
        const QByteArray set = user.File(kAlertsFile);
        const auto id = [&] { return user.Alerts().Book().List().alerts.at(0).id; };
        QCOMPARE(menus.undo->text(), u"&Undo Alert on MSFT"_s);
        user.Alerts().Reset(id());
        QCOMPARE(menus.undo->text(), u"&Undo Reset Alert on MSFT"_s);
        QVERIFY(!user.Alerts().Book().FiredBy(id()));
        menus.undo->trigger();
        QCOMPARE(user.File(kAlertsFile), set);
        QVERIFY(user.Alerts().Book().FiredBy(id()));
        user.Alerts().Replace(id(), {0, Below, 10, "AOL"});
        QCOMPARE(user.Alerts().Book().ArmedTickers(), std::vector<std::string>{"AOL"});
        menus.undo->trigger();
        QCOMPARE(user.File(kAlertsFile), set);
        user.Alerts().Remove(id());
        QVERIFY(user.Alerts().Book().List().alerts.empty());
        menus.undo->trigger();
        QCOMPARE(user.File(kAlertsFile), set);
        menus.undo->trigger();
        QVERIFY(user.Alerts().Book().List().alerts.empty());
        menus.redo->trigger();
        QCOMPARE(user.File(kAlertsFile), set);
        // What fired meanwhile did not get into the way of that.
        QVERIFY(user.Alerts().Book().FiredBy(id()));
    }

    void ADamagedLineIsToldOnceAndKept() {
        User user;
        user.Write(kAlertsFile, "1 above 450 MSFT\n2 beyond 5 AOL\n");
        user.Begin();
        QCOMPARE(user.prompts.messages.size(), 1);
        QVERIFY(user.prompts.messages[0].contains(u"2 beyond 5 AOL"_s));
        user.Windows().Show();
        user.Set(Above, 500, "AOL");
        QCOMPARE(user.prompts.messages.size(), 1);
        QVERIFY(user.File(kAlertsFile).startsWith("1 above 450 MSFT\n"));
        QVERIFY(user.File(kAlertsFile).endsWith(" above 500 AOL\n2 beyond 5 AOL\n"));
    }

    void WhatAnotherProgramWroteIsFollowed() {
        User user;
        user.Begin();
        user.Write(kAlertsFile, "1 below 450 MSFT\n");
        user.Alerts().Look();
        QCOMPARE(user.FiredCount(), 1U);
    }

    void WhatCannotBeWrittenIsToldAndDoesNotFireAgain() {
        User user;
        user.Begin();
        // Nothing can be put in the place of a folder that holds something.
        std::filesystem::create_directories(user.Folder() / kAlertLogFile / "full");
        user.Set(Above, 430, "MSFT");
        QCOMPARE(user.FiredCount(), 1U);
        QTRY_COMPARE(user.prompts.messages.size(), 1);
        QVERIFY(user.prompts.messages[0].contains(u"could not be saved"_s));
        user.Market("MSFT", 440);
        user.Alerts().Look();
        QCOMPARE(user.FiredCount(), 1U);
        user.Market("AOL", 5);
        user.Set(Below, 5, "AOL");
        QCOMPARE(user.FiredCount(), 2U);
        QCoreApplication::processEvents();
        QCOMPARE(user.prompts.messages.size(), 1);
    }

    void AnAlertThatCannotBeWrittenIsNone() {
        User user;
        user.Begin();
        std::filesystem::create_directories(user.Folder() / kAlertsFile / "full");
        user.Set(Above, 430, "MSFT");
        QCOMPARE(user.prompts.messages.size(), 1);
        QCOMPARE(user.FiredCount(), 0U);
        QVERIFY(user.Alerts().Book().List().alerts.empty());
    }

    void NoMoreThanAThousandCanBeSet() {
        User user;
        std::string lines;
        for (std::size_t n = 1; n <= kMostAlerts; ++n)
            lines += std::to_string(n) + " above 450 A\n";
        user.Write(kAlertsFile, lines);
        user.Begin();
        user.Set(Above, 450, "B");
        QCOMPARE(user.prompts.messages.size(), 1);
        QVERIFY(user.prompts.messages[0].contains(u"There are 1000 alerts already"_s));
        QCOMPARE(user.File(kAlertsFile).toStdString(), lines);
    }

    void ItBeginsOnceTheFirstPageIsUnderWay() {
        User user;
        user.Write(kAlertsFile, "1 below 450 MSFT\n");
        user.StartQuiet();
        QCOMPARE(user.FiredCount(), 0U);
        QVERIFY(Await([&] { return user.FiredCount() == 1; }));
    }

    void WithoutAMarketNothingIsChecked() {
        User user(u"127.0.0.1:1"_s, WebMode::Direct);
        user.Store("First", "OK");
        user.Begin();
        user.Set(Above, 1, "MSFT");
        user.Alerts().Look();
        QCOMPARE(user.FiredCount(), 0U);
        QVERIFY(user.prompts.messages.isEmpty());
    }

    void AQuoteOfATickerThatIsInNoListFires() {
        LiveUser user;
        user.Start();
        user.Windows().Notice().UseBus(QDBusConnection(u"no such connection"_s));
        user.Write(kAlertsFile, "1 above 100 YHOO\n2 above 500 AOL\n");
        QTRY_COMPARE(user.FiredCount(), 1U);
        const FiredAlert fired = user.Alerts().Book().Log().at(0);
        QCOMPARE(fired.price, 100);
        QCOMPARE(fired.origin, std::string("Nov 20, 2026 12:00 PM ET, CNBC"));
        // The list and both alerts went in one request.
        QCOMPARE(user.sources[Host::Cnbc].Requests().filter(u"YHOO"_s),
                 user.sources[Host::Cnbc].Requests().filter(u"MSFT"_s));
        QCOMPARE(user.Asked(u"AOL"_s), 1);
    }

    void OnlyArmedAlertsAreAskedForWhenNobodySeesTheList() {
        LiveUser user;
        user.Write(kAlertsFile, "1 above 100 YHOO\n2 above 500 AOL\n");
        user.Store("LeftFolded", "True");
        user.Settings().SaveSetting("frmMain", "LeftFolded", "True");
        user.Start();
        user.Windows().Notice().UseBus(QDBusConnection(u"no such connection"_s));
        QTRY_COMPARE(user.FiredCount(), 1U);
        QCOMPARE(user.Asked(u"MSFT"_s), 0);
        // A minute later the one that fired is not asked for any more.
        user.clock.now = user.clock.now.addSecs(61);
        user.Set(Above, 600, "AOL");
        QTRY_COMPARE(user.Asked(u"AOL"_s), 2);
        QCOMPARE(user.Asked(u"YHOO"_s), 1);
        QCOMPARE(user.Asked(u"MSFT"_s), 0);
        // Nor is anything once none is armed.
        while (!user.Alerts().Book().ArmedTickers().empty())
            user.Alerts().Remove(user.Alerts().Book().List().alerts.back().id);
        user.clock.now = user.clock.now.addSecs(61);
        QSignalSpy looked(user->Controllers().portfolio.listQuotes, &ListQuotes::Looked);
        user->Controllers().portfolio.listQuotes->LookSoon();
        QTRY_VERIFY(!looked.isEmpty());
        QCOMPARE(user.Asked(u"AOL"_s), 2);
        QCOMPARE(user.Asked(u"YHOO"_s), 1);
    }

    void TheQuotesOfAnEarlierRunFireNothing() {
        LiveUser user;
        user.Serve(100, "2026-11-20T12:00:00-0500");
        user.Start();
        QTRY_COMPARE(user.Asked(u"MSFT"_s), 1);
        QTRY_VERIFY(user.Alerts().PriceOf("MSFT"));
        user.Form().close();
        user.sources.TakeDown(Host::Cnbc);
        user.Write(kAlertsFile, "1 above 1 MSFT\n");
        user.Start();
        user.Alerts().Begin();
        QVERIFY(user.Alerts().PriceOf("MSFT"));
        user.Alerts().Look();
        QCOMPARE(user.FiredCount(), 0U);
    }
};

TALLOWMERE_WEB_TEST_MAIN(PriceAlertsTest)
#include "PriceAlertsTest.moc"
