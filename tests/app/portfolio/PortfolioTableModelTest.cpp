#include "app/portfolio/PortfolioTableModel.h"

#include "app/base/QtText.h"
#include "app/forms/TableCellPainter.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include <map>

using namespace tallowmere;
using namespace Qt::StringLiterals;
using enum TableColumn;

namespace {

/// A model over a market that the test says.
class Table {
public:
    std::map<std::string, double> market{{"AOL", 20}, {"MSFT", 430}, {"IBM", 200}};

    Table() : m_tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest) {}

    void Fill(const std::vector<StoredPortfolio>& portfolios) {
        model.Fill(
            portfolios,
            {[this](const std::string& ticker) { return PriceOf(ticker); },
             {},
             [](const std::string& ticker) {
                 return ticker == "IBM" ? std::string("Old iron") : std::string();
             },
             [](const std::string& ticker) {
                 return ticker == "AOL" ? TickerReminders{1, Date{2026, 12, 1}} : TickerReminders();
             }});
    }
    QString Text(int row, TableColumn column) const {
        return model.index(row, static_cast<int>(column)).data().toString();
    }
    /// The tickers that are shown, from the top.
    QString Shown() const {
        QStringList tickers;
        for (int row = 0; row < model.rowCount(); ++row)
            tickers << ToQt(model.At(row).ticker);
        return tickers.join(u' ');
    }
    void Sort(TableColumn column, Qt::SortOrder order = Qt::AscendingOrder) {
        model.sort(static_cast<int>(column), order);
    }

    PortfolioTableModel model;

private:
    std::optional<ListedPrice> PriceOf(const std::string& ticker) const {
        const auto found = market.find(ticker);
        if (found == market.end())
            return std::nullopt;
        ListedPrice price;
        price.last = found->second;
        price.change = 1;
        price.yearLow = 0;
        price.yearHigh = 2 * found->second;
        price.name = ticker + " Company";
        price.origin = "Nov 20, Test";
        price.day = {1, 2};
        return price;
    }

    QAbstractItemModelTester m_tester;
};

const StoredPortfolio kFirst{1, "Tech", "MSFT|NONE|IBM|AOL|"};
const StoredPortfolio kSecond{2, "Rest", "IBM|KO|"};

} // namespace

class PortfolioTableModelTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void HasARowForEachTickerOfEachPortfolio() {
        Table table;
        QCOMPARE(table.model.rowCount(), 0);
        table.Fill({kFirst, kSecond});
        QCOMPARE(table.Shown(), u"MSFT NONE IBM AOL IBM KO"_s);
        QCOMPARE(table.model.columnCount(), 16);
        QCOMPARE(table.Text(0, Portfolio), u"1 Tech"_s);
        QCOMPARE(table.Text(4, Portfolio), u"2 Rest"_s);
        QCOMPARE(table.Text(0, Name), u"MSFT Company"_s);
        QCOMPARE(table.Text(0, Last), u"430.00"_s);
        QCOMPARE(table.Text(1, Last), QString());
        QCOMPARE(table.Text(2, Note), u"Old iron"_s);
        QCOMPARE(table.Text(3, Reminders), u"12/01/2026"_s);
        QCOMPARE(table.model.headerData(static_cast<int>(PriceEarnings), Qt::Horizontal).toString(),
                 u"P/E"_s);
        QVERIFY(table.model.At(0).price->day.empty());
        table.Fill({});
        QCOMPARE(table.model.rowCount(), 0);
    }

    void ACellTellsItsMoveItsRangeAndWhereItIsFrom() {
        Table table;
        table.Fill({kFirst});
        const auto cell = [&](int row, TableColumn column) {
            return table.model.index(row, static_cast<int>(column));
        };
        QCOMPARE(cell(0, Change).data(TableCellPainter::MoveRole).toInt(),
                 static_cast<int>(PriceMove::Up));
        QCOMPARE(cell(0, Last).data(TableCellPainter::MoveRole).toInt(),
                 static_cast<int>(PriceMove::None));
        QCOMPARE(cell(0, YearRange).data(TableCellPainter::RangeRole).toDouble(), 0.5);
        QVERIFY(!cell(0, DayRange).data(TableCellPainter::RangeRole).isValid());
        QVERIFY(!cell(1, YearRange).data(TableCellPainter::RangeRole).isValid());
        QCOMPARE(cell(0, Last).data(Qt::ToolTipRole).toString(), u"430.00\nNov 20, Test"_s);
        QCOMPARE(cell(2, Note).data(Qt::ToolTipRole).toString(), u"Old iron"_s);
        QVERIFY(cell(0, Last).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
        QVERIFY(cell(0, Symbol).data(Qt::TextAlignmentRole).toInt() & Qt::AlignLeft);
    }

    void SortsByAnyColumnAndTheSelectionGoesWithItsRow() {
        Table table;
        table.Fill({kFirst});
        const QPersistentModelIndex ibm = table.model.index(2, static_cast<int>(Name));
        table.Sort(Last);
        QCOMPARE(table.Shown(), u"AOL IBM MSFT NONE"_s);
        QCOMPARE(ibm.row(), 1);
        QCOMPARE(ibm.column(), static_cast<int>(Name));
        table.Sort(Last, Qt::DescendingOrder);
        QCOMPARE(table.Shown(), u"MSFT IBM AOL NONE"_s);
        table.Sort(Symbol);
        QCOMPARE(table.Shown(), u"AOL IBM MSFT NONE"_s);
        // Of one change each: as they were.
        table.Sort(Change, Qt::DescendingOrder);
        QCOMPARE(table.Shown(), u"AOL IBM MSFT NONE"_s);
        table.model.sort(-1);
        QCOMPARE(table.Shown(), u"MSFT NONE IBM AOL"_s);
        QCOMPARE(ibm.row(), 2);
    }

    void FiltersByWhatIsWrittenAndKeepsTheOrder() {
        Table table;
        table.Fill({kFirst, kSecond});
        table.Sort(Symbol);
        table.model.SetFilter(u"company"_s);
        QCOMPARE(table.Shown(), u"AOL IBM IBM MSFT"_s);
        table.model.SetFilter(u"IRON rest"_s);
        QCOMPARE(table.Shown(), u"IBM"_s);
        QCOMPARE(table.model.RowOf(2, "IBM"), 0);
        QCOMPARE(table.model.RowOf(1, "IBM"), -1);
        QCOMPARE(table.model.TotalCount(), 6);
        table.Sort(Symbol, Qt::DescendingOrder);
        table.model.SetFilter(u"no such"_s);
        QCOMPARE(table.model.rowCount(), 0);
        table.model.SetFilter({});
        QCOMPARE(table.Shown(), u"NONE MSFT KO IBM IBM AOL"_s);
        QCOMPARE(table.model.RowOf(1, "NOSUCH"), -1);
    }

    void RowsKeepTheirPlacesWhenPricesChangeUntilTheyAreSortedAgain() {
        Table table;
        table.Fill({kFirst, kSecond});
        table.Sort(Last);
        QCOMPARE(table.Shown(), u"AOL IBM IBM MSFT NONE KO"_s);
        QSignalSpy grewOld(&table.model, &PortfolioTableModel::OrderGrewOld);
        QSignalSpy changed(&table.model, &QAbstractItemModel::dataChanged);
        table.model.RefreshPrices({"AOL", "IBM", "NOSUCH"});
        QVERIFY(changed.isEmpty());
        table.market["IBM"] = 10;
        table.market["AOL"] = 21;
        table.model.RefreshPrices({"IBM"});
        // Both rows of it, and no other.
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed[0][0].toModelIndex().row(), 1);
        QCOMPARE(changed[0][1].toModelIndex().row(), 2);
        QCOMPARE(table.Shown(), u"AOL IBM IBM MSFT NONE KO"_s);
        QCOMPARE(table.Text(1, Last), u"10.00"_s);
        QCOMPARE(table.Text(0, Last), u"20.00"_s);
        QVERIFY(table.model.IsOrderOld());
        QCOMPARE(grewOld.size(), 1);
        table.model.RefreshRows(0, 0);
        QCOMPARE(table.Text(0, Last), u"21.00"_s);
        QCOMPARE(grewOld.size(), 1);
        table.model.SortAgain();
        QCOMPARE(table.Shown(), u"IBM IBM AOL MSFT NONE KO"_s);
        QVERIFY(!table.model.IsOrderOld());
        // What is not sorted by prices does not grow old.
        table.Sort(Symbol);
        table.market["IBM"] = 11;
        table.model.RefreshPrices({"IBM"});
        QVERIFY(!table.model.IsOrderOld());
        table.model.RefreshRows(-1, -1);
        table.model.RefreshRows(0, 100);
    }

    void ANameThatArrivesWithAPriceIsFoundByTheFilter() {
        Table table;
        table.market.clear();
        table.Fill({kFirst});
        table.model.SetFilter(u"ms"_s);
        QCOMPARE(table.Shown(), u"MSFT"_s);
        table.market["IBM"] = 7;
        table.model.RefreshPrices({"IBM"});
        table.model.SetFilter(u"ibm company"_s);
        QCOMPARE(table.Shown(), u"IBM"_s);
    }

    void AReaderOfNamesComesBeforeTheNameOfThePrice() {
        Table table;
        table.model.Fill({kFirst}, {{},
                                    [](const std::string& ticker) {
                                        return ticker == "MSFT" ? std::string("Micro\nsoft")
                                                                : std::string();
                                    },
                                    {},
                                    {}});
        QCOMPARE(table.Text(0, Name), u"Micro soft"_s);
        QCOMPARE(table.Text(2, Name), QString());
    }
};

QTEST_GUILESS_MAIN(PortfolioTableModelTest)
#include "PortfolioTableModelTest.moc"
