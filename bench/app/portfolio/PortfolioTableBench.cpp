// The table of 10,000 tickers: filled, sorted by a price and by a name, filtered, scrolled by a
// page and painted, each beside the time of one frame.
#include "app/BenchSession.h"
#include "app/MeasureFrames.h"
#include "app/forms/frmTable.h"
#include "app/portfolio/PortfolioTable.h"
#include "app/portfolio/PortfolioTableModel.h"
#include "app/shell/Application.h"

#include <QScrollBar>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kTickers = 10000;
constexpr int kRuns = 15;

std::optional<ListedPrice> PriceOf(const std::string& ticker) {
    const double number = std::stod(ticker.substr(1));
    ListedPrice price;
    price.last = 10 + static_cast<int>(number * 7919) % 1000;
    price.change = static_cast<int>(number * 104729) % 200 / 10.0 - 10;
    price.percent = *price.change / 10;
    price.volume = number * 1000;
    price.dayLow = price.yearLow = price.last - 5;
    price.dayHigh = price.yearHigh = price.last + 10;
    price.marketCap = number * 1e9;
    price.priceEarnings = 20;
    price.yield = 1.5;
    price.name = "Company " + std::to_string(static_cast<int>(number * 31) % kTickers);
    price.source = "SAMPLE DATA";
    price.when = "Nov 20, 2026 4:00 PM ET";
    price.origin = price.when + ", " + price.source;
    return price;
}

} // namespace

int main(int argc, char** argv) {
    PrepareBench();
    Application application(argc, argv);
    BenchSession session([](SettingsStore& settings) {
        settings.SaveSetting("Settings", "Stocks1", StoredTickers('T', kTickers));
    });
    QApplication::processEvents();
    PortfolioTable& table = *session->Controllers().portfolio.table;
    table.Serve(PriceOf, nullptr);
    table.Show();
    table.Window()->resize(1600, 1000);
    QApplication::processEvents();
    PortfolioTableModel& model = *table.Model();
    QTableView& view = *table.Window()->tblTickers;
    const auto paint = [&] {
        QApplication::sendPostedEvents();
        view.viewport()->repaint();
    };
    const auto sort = [&](TableColumn column, int run) {
        view.sortByColumn(static_cast<int>(column),
                          run % 2 == 0 ? Qt::AscendingOrder : Qt::DescendingOrder);
        paint();
    };
    MeasureFrames("table of 10,000 tickers, filled", kRuns, [&](int run) {
        table.Window()->cmbScope->setCurrentIndex(run % 2 == 0 ? 1 : 0);
        paint();
    });
    MeasureFrames("table of 10,000 tickers, sorted by price", kRuns,
                  [&](int run) { sort(TableColumn::Last, run); });
    MeasureFrames("table of 10,000 tickers, sorted by name", kRuns,
                  [&](int run) { sort(TableColumn::Name, run); });
    MeasureFrames("table of 10,000 tickers, filtered", kRuns, [&](int run) {
        model.SetFilter(run % 2 == 0 ? u"company 77"_s : QString());
        paint();
    });
    model.SetFilter({});
    MeasureFrames("table of 10,000 tickers, scrolled by a page", kRuns, [&](int run) {
        QScrollBar& bar = *view.verticalScrollBar();
        bar.setValue(run * bar.pageStep());
        view.viewport()->repaint();
    });
    return 0;
}
