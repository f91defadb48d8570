// The page of a portfolio of 1,000 tickers in live mode, from the question for it to the page, with
// a source on the loopback interface; beside the time that the same requests take by themselves.
#include "app/base/WebAccess.h"
#include "app/quotes/LiveQuotes.h"
#include "core/sites/site_table.h"
#include "core/text/bytes.h"
#include "support/LoopbackServer.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QNetworkReply>

#include <algorithm>
#include <cstdio>
#include <set>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kTickers = 1000;
constexpr int kBatch = 40;
constexpr int kRuns = 15;
constexpr double kGoalMilliseconds = 200;

std::string Ticker(int number) {
    return std::string("T").append(std::to_string(number));
}

std::string PortfolioPath() {
    std::string path = "/quotes?d=1b&symbols=";
    for (int i = 0; i < kTickers; ++i)
        path.append(Ticker(i)).append("+");
    return path;
}

QString BatchPath(int batch) {
    std::string path = "/q?s=";
    for (int i = 0; i < kBatch; ++i)
        path.append(i == 0 ? "" : "%7C").append(Ticker(batch * kBatch + i));
    return QString::fromStdString(path);
}

QByteArray BatchAnswer(int batch) {
    std::string rows;
    for (int i = 0; i < kBatch; ++i)
        rows.append(i == 0 ? "" : ",")
            .append(R"({"symbol":")")
            .append(Ticker(batch * kBatch + i))
            .append(R"(","name":"Some Company","last":"1,234.50","change":"+1.25",)"
                    R"("volume":"12,345,678","last_time":"2024-11-20T16:00:00-0500"})");
    return QByteArray::fromStdString("{\"FormattedQuoteResult\":{\"FormattedQuote\":[" + rows +
                                     "]}}");
}

SourceTable Sources(const LoopbackServer& server) {
    const std::string request = "http://" + server.Address({}).toStdString() + "/q?s={symbols}";
    return ReadSourceTable("[sources.a]\nformat = \"cnbc\"\nseparator = \"%7C\"\nbatch = " +
                               std::to_string(kBatch) + "\nrequest = \"" + request + "\"\n",
                           "bench");
}

/// The page by way of the program; its milliseconds.
double PageTime(const SiteTable& sites, const LoopbackServer& server, const std::string& path) {
    const Clock clock;
    LiveQuotes quotes(sites, {}, Sources(server), clock);
    QEventLoop loop;
    QElapsedTimer timer;
    timer.start();
    std::size_t rows = 0;
    quotes.Answer("h", path, Asker::Pane, [&](const auto& answer) {
        rows = CountOccurrences(answer->body, "<b>1,234.50</b>");
        loop.quit();
    });
    loop.exec();
    if (rows != kTickers)
        qFatal("%zu rows of %d", rows, kTickers);
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// The same requests without anything around them.
double BareTime(const LoopbackServer& server) {
    QNetworkAccessManager network;
    QElapsedTimer timer;
    timer.start();
    for (int batch = 0; batch < kTickers / kBatch; ++batch) {
        const QUrl url(u"http://"_s + server.Address(BatchPath(batch)));
        QNetworkReply* reply = network.get(QNetworkRequest(url));
        QEventLoop loop;
        QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
        loop.exec();
        reply->readAll();
        reply->deleteLater();
    }
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    LoopbackServer server;
    for (int batch = 0; batch < kTickers / kBatch; ++batch)
        server.Serve(BatchPath(batch), CannedPage{BatchAnswer(batch), CannedPage::Ending::Length,
                                                  200, "application/json"});
    const SiteTable sites = SiteTable::Parse("[hosts]\ndefault = \"h\"\n", "bench");
    const std::string path = PortfolioPath();

    std::vector<double> ours, bare;
    qsizetype requests = 0;
    std::size_t different = 0;
    for (int run = 0; run <= kRuns; ++run) {
        const double bareTime = BareTime(server);
        server.Clear();
        const double pageTime = PageTime(sites, server, path);
        requests = server.Requests().size();
        different = std::set(server.Requests().begin(), server.Requests().end()).size();
        if (run == 0)
            continue; // warms the caches
        bare.push_back(bareTime);
        ours.push_back(pageTime);
    }
    const double more = Median(ours) - Median(bare);
    std::printf("portfolio page, %d tickers: %lld requests, %zu different, of %d tickers at most; "
                "%.1f ms, %.1f ms for the requests alone, %.1f ms besides, %.2f of the goal\n",
                kTickers, static_cast<long long>(requests), different, kBatch, Median(ours),
                Median(bare), more, more / kGoalMilliseconds);
    return 0;
}
