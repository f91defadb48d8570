#include "app/portfolio/ListQuotes.h"

#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TickerModel.h"
#include "support/Await.h"
#include "support/StandIns.h"
#include "support/TestSession.h"
#include "support/WebTest.h"

#include <QPaintEvent>
#include <QSignalSpy>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using Host = StandIns::Host;
using enum QuoteColumn;

namespace {

ListedPrice Price(double last, double change) {
    ListedPrice price;
    price.last = last;
    price.change = change;
    price.percent = change / (last - change) * 100;
    price.origin = "Nov 20, SAMPLE DATA";
    price.day = {last - change, last};
    return price;
}

/// The window in sample mode, over prices that the test says.
class Window : public TestSession {
public:
    std::map<std::string, ListedPrice> market;

    explicit Window(const char* tickers) {
        Store("First", "OK");
        Store("Stocks1", tickers);
        prices = [this](const std::string& ticker) -> std::optional<ListedPrice> {
            const auto found = market.find(ticker);
            return found == market.end() ? std::nullopt : std::optional(found->second);
        };
    }
    ~Window() { End(); } // before the prices go

    TickerListBox& List() { return *Form().List1; }
    bool HasQuote(int row) { return List().model()->index(row, 0).data(QuoteRole).isValid(); }
    /// What a screen reader says after the ticker.
    QString Words(int row) { return List().MarkOf(row).meaning; }
    void Widen(int pixels) {
        Form().resize(1600, 900);
        PanelSizes panels = Form().Panels();
        panels.leftWidth = pixels;
        Form().SetPanels(panels);
        List().repaint();
    }
    QList<QuoteColumn> Shown() {
        QList<QuoteColumn> shown;
        for (const PlacedColumn& column : List().Columns())
            shown << column.column;
        return shown;
    }
};

/// What was painted of a widget.
class Painted : public QObject {
public:
    explicit Painted(QWidget& widget) { widget.installEventFilter(this); }
    QRegion region;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

/// The window in live mode, with stand-ins for all sources.
class LiveWindow : public TestSession {
public:
    StandIns sources;

    LiveWindow() : TestSession(u"127.0.0.1:1"_s, WebMode::Live) {
        Store("First", "OK");
        Store("Stocks1", "MSFT|AOL|");
        TestSession::sources = sources.Table();
    }
    /// How often CNBC's service was asked for a symbol.
    qsizetype Asked(const QString& symbol) {
        qsizetype count = 0;
        for (const QString& request : sources[Host::Cnbc].Requests())
            count += request.contains(symbol);
        return count;
    }
    QString Words(int row) { return Form().List1->MarkOf(row).meaning; }
};

} // namespace

class ListQuotesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void PricesStandBesideTheTickersOnceTheFirstPageIsUnderWay() {
        Window window("MSFT|NONE|IBM|");
        window.market = {{"MSFT", Price(430.5, 2.25)}, {"IBM", Price(1234.5, -1.5)}};
        window.Start();
        QVERIFY(!window.HasQuote(0));
        QVERIFY(Await([&] { return window.HasQuote(0); }));
        QVERIFY(!window.asked.isEmpty());
        QCOMPARE(window.Words(0), u"430.50, +2.25, +0.53%"_s);
        QCOMPARE(window.Words(1), QString());
        QCOMPARE(window.Words(2), u"1,234.50, -1.50, -0.12%"_s);
        // The text of a row, and with it its name, stays the ticker.
        QCOMPARE(window.List().Items(), (QStringList{u"MSFT"_s, u"NONE"_s, u"IBM"_s}));
        QCOMPARE(window.List().model()->index(0, 0).data(Qt::AccessibleTextRole), QVariant());
        QCOMPARE(window.List().SelectedText(), u"MSFT"_s);
        QCOMPARE(window.List().MarkOf(0).hint, QString());
    }

    void ColumnsAreAsWideAsTheirTextIsNow() {
        Window window("MSFT|");
        window.market["MSFT"] = Price(123456.5, 2.25);
        window.Start();
        window.Widen(600);
        QVERIFY(Await([&] { return window.HasQuote(0); }));
        const auto columns = [&] {
            window.List().repaint();
            return window.List().Columns();
        };
        const QFont font = window.List().font();
        const auto before = columns();
        QFont large = font;
        large.setPointSizeF(2 * font.pointSizeF());
        window.List().setFont(large);
        QVERIFY(columns().front().width > before.front().width);
        window.List().setFont(font);
        QCOMPARE(columns(), before);
    }

    void AStalePriceSaysItsAgeAndWhereItIsFrom() {
        Window window("MSFT|");
        window.market["MSFT"] = Price(430.5, 2.25);
        window.market["MSFT"].age = "3 h";
        window.Start();
        QVERIFY(Await([&] { return window.HasQuote(0); }));
        QCOMPARE(window.Words(0), u"430.50, +2.25, +0.53%, stale: 3 h"_s);
        QCOMPARE(window.List().MarkOf(0).hint, u"Price of Nov 20, SAMPLE DATA (stale: 3 h)"_s);
        window.Form().SetToolTips(false);
        QCOMPARE(window.List().MarkOf(0).hint, QString());
    }

    void NarrowPanelsDropColumnsFromTheRight() {
        Window window("MSFT|");
        window.market["MSFT"] = Price(430.5, 2.25);
        window.Start();
        QVERIFY(Await([&] { return window.HasQuote(0); }));
        window.Widen(600);
        QCOMPARE(window.Shown(), (QList{Last, Change, Percent, Day}));
        QList<QuoteColumn> before = window.Shown();
        for (int width = 600; width >= 120; width -= 20) {
            window.Widen(width);
            QCOMPARE(window.Shown(), before.first(window.Shown().size()));
            before = window.Shown();
            if (!before.isEmpty())
                QVERIFY(window.List().Columns().front().left > 0);
        }
        QVERIFY(before.size() < 4);
        window.Widen(600);
        QCOMPARE(window.Shown().size(), 4);
    }

    void TheMenuSwitchesTheColumnsAndTheSettingsKeepThem() {
        Window window("MSFT|");
        window.market["MSFT"] = Price(430.5, 2.25);
        window.Start();
        QVERIFY(Await([&] { return window.HasQuote(0); }));
        window.Widen(600);
        for (const QuoteColumnRow& row : kQuoteColumns)
            QVERIFY(window.Form().menus->At(row.command)->isChecked());
        window.Form().menus->At("listChange")->trigger();
        QCOMPARE(window.Shown(), (QList{Last, Percent, Day}));
        QCOMPARE(window.Stored("ListChange"), u"False"_s);
        window.Start();
        QVERIFY(!window.Form().menus->At("listChange")->isChecked());
        QVERIFY(Await([&] { return window.HasQuote(0); }));
        window.Widen(600);
        QCOMPARE(window.Shown(), (QList{Last, Percent, Day}));
        for (const char* name : {"listLast", "listPercent", "listDay"})
            window.Form().menus->At(name)->trigger();
        QVERIFY(window.Shown().isEmpty());
        QCOMPARE(window.Words(0), QString());
        window.Form().menus->At("listChange")->trigger();
        window.List().repaint();
        QCOMPARE(window.Shown(), QList{Change});
        QCOMPARE(window.Stored("ListChange"), u"True"_s);
    }

    void OnlyRowsWhoseNumbersChangedArePaintedAnew() {
        Window window("AAA|BBB|CCC|DDD|");
        for (const char* ticker : {"AAA", "BBB", "CCC", "DDD"})
            window.market[ticker] = Price(100, 1);
        window.Start();
        QVERIFY(Await([&] { return window.HasQuote(0); }));
        QVERIFY(QTest::qWaitForWindowExposed(&window.Form()));
        window.Widen(600);
        const auto rowPlace = [&](int row) {
            return window.List().visualRect(window.List().model()->index(row, 0));
        };
        QVERIFY(rowPlace(3).bottom() < window.List().viewport()->height());
        QCoreApplication::processEvents();
        Painted painted(*window.List().viewport());
        TickerModel& list = window->Ports().List();
        list.RefreshQuotes();
        QCoreApplication::processEvents();
        QVERIFY(painted.region.isEmpty());
        window.market["CCC"] = Price(101, 2);
        list.RefreshQuotes({"BBB", "CCC"});
        QTRY_VERIFY(!painted.region.isEmpty());
        QCOMPARE(painted.region.boundingRect(), rowPlace(2));
        QCOMPARE(window.Words(2), u"101.00, +2.00, +2.02%"_s);
    }

    void TheListInSightIsAskedForInOneRequest() {
        LiveWindow window;
        window.Start();
        QTRY_COMPARE(window.Words(1), u"1,111.25, +1.00, +0.09%"_s);
        QCOMPARE(window.Words(0), window.Words(1));
        QCOMPARE(window.Asked(u"MSFT"_s), 1);
        QCOMPARE(window.Asked(u"AOL"_s), 1);
        // The market is closed, and the price is that of the close.
        window.clock.now = window.clock.now.addSecs(3600);
        window->Controllers().portfolio.listQuotes->LookSoon();
        window.Enter(u"YHOO"_s);
        QTRY_COMPARE(window.Asked(u"YHOO"_s), 1);
        QCOMPARE(window.Asked(u"MSFT"_s), 1);
    }

    void NothingIsAskedForAListThatNobodySees_data() {
        QTest::addColumn<QString>("how");
        for (const char* how : {"folded", "minimised", "alone", "switched off"})
            QTest::newRow(how) << QString::fromLatin1(how);
    }
    void NothingIsAskedForAListThatNobodySees() {
        QFETCH(const QString, how);
        LiveWindow window;
        window.Start();
        QTRY_COMPARE(window.Asked(u"MSFT"_s), 1);
        const auto hide = [&](bool hidden) {
            PanelSizes panels = window.Form().Panels();
            panels.leftFolded = hidden;
            if (how == u"folded")
                window.Form().SetPanels(panels);
            else if (how == u"alone")
                window.Form().ShowPanesAlone(hidden);
            else if (how == u"minimised")
                window.Form().setWindowState(hidden ? Qt::WindowMinimized : Qt::WindowNoState);
            else
                for (const QuoteColumnRow& row : kQuoteColumns)
                    window.Form().menus->At(row.command)->trigger();
        };
        hide(true);
        window.clock.now = window.clock.now.addSecs(3600);
        window->Ports().AddTickers({"YHOO"});
        // Longer than it takes to follow the list: what other work of the window comes first.
        QSignalSpy looked(window->Controllers().portfolio.listQuotes, &ListQuotes::Looked);
        window->Controllers().portfolio.listQuotes->LookSoon();
        QTRY_VERIFY(!looked.isEmpty());
        QCOMPARE(window.Asked(u"YHOO"_s), 0);
        hide(false);
        QTRY_COMPARE(window.Asked(u"YHOO"_s), 1);
        QCOMPARE(window.Asked(u"MSFT"_s), 1);
    }

    void WithoutAMarketThereIsNothingBesideTheTickers() {
        TestSession session(u"127.0.0.1:1"_s, WebMode::Direct);
        session.Store("First", "OK");
        session.Store("Stocks1", "MSFT|");
        session.Start();
        session.Form().List1->repaint();
        QVERIFY(session.Form().List1->Columns().empty());
        QVERIFY(!session.Form().List1->model()->index(0, 0).data(QuoteRole).isValid());
    }
};

TALLOWMERE_WEB_TEST_MAIN(ListQuotesTest)
#include "ListQuotesTest.moc"
