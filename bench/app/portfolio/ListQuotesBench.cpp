// A batch of quotes for a list of 1,000 tickers, each with another price, from the answer to the
// painted list, beside the time of one frame.
#include "app/BenchSession.h"
#include "app/portfolio/Portfolios.h"
#include "app/portfolio/TickerModel.h"
#include "app/shell/Application.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cstdio>
#include <set>

using namespace tallowmere;

namespace {

constexpr int kTickers = 1000;
constexpr int kRuns = 31;
constexpr double kFrameMilliseconds = 16;

} // namespace

int main(int argc, char** argv) {
    PrepareBench();
    Application application(argc, argv);
    std::set<std::string> symbols;
    for (int i = 0; i < kTickers; ++i)
        symbols.insert("T" + std::to_string(i));
    BenchSession session([](SettingsStore& settings) {
        settings.SaveSetting("Settings", "Stocks1", StoredTickers('T', kTickers));
    });
    session.Form().resize(1600, 1200);
    PanelSizes panels = session.Form().Panels();
    panels.leftWidth = 420;
    session.Form().SetPanels(panels);
    TickerModel& list = session->Controllers().portfolio.portfolios->List();
    ListedPrice price;
    price.change = 1.25;
    price.percent = 0.5;
    price.day = std::vector<double>(78, 100);
    list.SetQuotes([&](const std::string&) { return std::optional(CellsOf(price)); });
    for (const QString& ticker : list.Items())
        list.QuoteOf(ticker);
    QApplication::processEvents();

    std::vector<double> times;
    for (int run = 0; run < kRuns; ++run) {
        price.last = 100 + run;
        price.day.back() = price.last;
        QElapsedTimer timer;
        timer.start();
        list.RefreshQuotes(symbols);
        QApplication::sendPostedEvents();
        session.Form().List1->repaint();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    const double ours = times[kRuns / 2];
    const auto [first, last] = session.Form().List1->RowsInView();
    std::printf("quotes of %d tickers, %d rows in sight, %zu columns: %.2f ms, %.2f of a frame of "
                "%.0f ms\n",
                kTickers, last - first + 1, session.Form().List1->Columns().size(), ours,
                ours / kFrameMilliseconds, kFrameMilliseconds);
    return 0;
}
