#include "support/StandIns.h"

#include "core/text/files.h"

namespace tallowmere {

using namespace Qt::StringLiterals;

namespace {

/// What the tests ask for, in the program's form.
constexpr const char* kSymbols[] = {"^NYA",  "^SPC", "^OEX", "^TYX", "^DJI",
                                    "^IXIC", "MSFT", "AOL",  "YHOO"};

constexpr qint64 kFridayClose = 1795208400; // 4 PM in New York on November 20, 2026
constexpr qint64 kDay = 86400;
constexpr int kDays = 5;

QByteArray Number(double value) {
    return QByteArray::number(value, 'f', 2);
}

/// The symbols as a source spells them, each in `row` in place of "{symbol}", joined by `between`.
QByteArray Rows(Dialect dialect, const QByteArray& row, const QByteArray& between) {
    QByteArrayList rows;
    for (const char* symbol : kSymbols)
        if (const auto spelling = ToDialect(symbol, dialect))
            rows << QByteArray(row).replace("{symbol}", QByteArray::fromStdString(*spelling));
    return rows.join(between);
}

/// The last days' closes, each a quarter above the one before it, and their times.
QByteArray Days(double price, const QByteArray& between) {
    QByteArrayList times, closes;
    for (int day = 0; day < kDays; ++day) {
        times << QByteArray::number(kFridayClose - (kDays - 1 - day) * kDay);
        closes << Number(price - (kDays - 1 - day) * 0.25);
    }
    return times.join(',') + between + closes.join(',');
}

QByteArray SparkBody(double price) {
    return "{" +
           Rows(Dialect::Yahoo,
                R"("{symbol}":{"symbol":"{symbol}","timestamp":[)" + Days(price, R"(],"close":[)") +
                    R"(],"chartPreviousClose":)" + Number(price - 1) + "}",
                ",") +
           "}";
}

QByteArray ChartBody(const QByteArray& symbol, double price) {
    return R"({"chart":{"result":[{"meta":{"symbol":")" + symbol +
           R"(","regularMarketTime":1795208400,"regularMarketPrice":)" + Number(price) +
           R"(,"chartPreviousClose":)" + Number(price - 1) + R"(},"timestamp":[)" +
           Days(price, R"(],"indicators":{"quote":[{"close":[)") + R"(]}]}}],"error":null}})";
}

QByteArray NasdaqBody(double price) {
    return R"({"data":[)" +
           Rows(Dialect::Nasdaq,
                R"({"symbol":"{symbol}","lastSalePrice":"$)" + Number(price) +
                    R"(","netChange":"+1.00","lastTradeTimestamp":"Nov 20, 2026 4:00 PM ET"})",
                ",") +
           R"(],"message":null,"status":{"rCode":200}})";
}

QByteArray CboeBody(const QByteArray& symbol, double price) {
    return R"({"data":{"current_price":)" + Number(price) + R"(,"price_change":1.0,"symbol":")" +
           symbol + R"(","last_trade_time":"2026-11-20T16:00:00"},"symbol":")" + symbol + R"("})";
}

QByteArray FredBody(const QByteArray& series, double price) {
    return "observation_date," + series + "\n2026-11-18," + Number(price - 1) + "\n2026-11-19," +
           Number(price) + "\n";
}

QByteArray Encoded(const std::string& spelling) {
    return QByteArray::fromStdString(spelling).replace("^", "%5E");
}

CannedPage Json(const QByteArray& body) {
    return {body, CannedPage::Ending::Length, 200, "application/json; charset=utf-8"};
}

CannedPage Csv(const QByteArray& body) {
    return {body, CannedPage::Ending::Length, 200, "text/csv"};
}

} // namespace

StandIns::StandIns() {
    const auto& self = *this;
    for (std::size_t i = 0; i < kHosts; ++i)
        m_ports[i] = self.m_servers[i].serverPort();
    auto& servers = *this;
    SetCnbcPrice(PriceOf(Cnbc));
    servers[Yahoo].Serve(u"/spark"_s, Json(SparkBody(PriceOf(Yahoo))));
    servers[Nasdaq].Serve(u"/watchlist"_s, Json(NasdaqBody(PriceOf(Nasdaq))));
    servers[Treasury].Serve(
        u"/yields"_s,
        Csv("Date,\"10 Yr\",\"30 Yr\"\n11/20/2026,4.12,4.51\n11/19/2026,4.14,4.53\n"));
    for (const char* symbol : kSymbols) {
        if (const auto s = ToDialect(symbol, Dialect::Yahoo))
            servers[Yahoo].Serve(u"/chart/"_s + QString::fromLatin1(Encoded(*s)),
                                 Json(ChartBody(QByteArray::fromStdString(*s), PriceOf(Yahoo))));
        if (const auto s = ToDialect(symbol, Dialect::Cboe))
            servers[Cboe].Serve(u"/%1.json"_s.arg(QString::fromStdString(*s)),
                                Json(CboeBody(QByteArray::fromStdString(*s), PriceOf(Cboe))));
        if (const auto s = ToDialect(symbol, Dialect::Fred))
            servers[Fred].Serve(u"/series?id=%1"_s.arg(QString::fromStdString(*s)),
                                Csv(FredBody(QByteArray::fromStdString(*s), PriceOf(Fred))));
    }
}

CannedPage StandIns::CnbcAnswer(const QByteArrayList& symbols, double price) {
    QByteArrayList rows;
    for (const QByteArray& symbol : symbols)
        rows << R"({"symbol":")" + symbol + R"(","code":0,"name":"Name of )" + symbol +
                    R"(","last":")" + Number(price) +
                    R"(","change":"+1.00","last_time":"2026-11-20T16:00:00-0500"})";
    return Json(R"({"FormattedQuoteResult":{"FormattedQuote":[)" + rows.join(',') + "]}}");
}

void StandIns::SetCnbcPrice(double price) {
    QByteArrayList symbols;
    for (const char* symbol : kSymbols)
        symbols << QByteArray::fromStdString(*ToDialect(symbol, Dialect::Cnbc));
    (*this)[Cnbc].Serve(u"/quotes"_s, CnbcAnswer(symbols, price));
}

void StandIns::Answer(Host host, const CannedPage& page) {
    (*this)[host].ServeEverything(page);
}

void StandIns::BringBack(Host host) {
    if (!(*this)[host].listen(QHostAddress::LocalHost, m_ports.at(static_cast<std::size_t>(host))))
        qFatal("the port of a host is taken");
}

QByteArray StandIns::Text(int timeout) const {
    struct Row {
        const char* source;
        Host host;
        const char* path;
    };
    // clang-format off
    constexpr Row rows[] = {
        {"cnbc",        Cnbc,     "/quotes?symbols={symbols}"},
        {"yahoo-spark", Yahoo,    "/spark?symbols={symbols}&range={range}"},
        {"yahoo-chart", Yahoo,    "/chart/{symbols}?range={range}"},
        {"nasdaq",      Nasdaq,   "/watchlist?{symbols}"},
        {"cboe",        Cboe,     "/{symbols}.json"},
        {"treasury",    Treasury, "/yields?year={year}"},
        {"fred",        Fred,     "/series?id={symbols}"},
    };
    // clang-format on
    QByteArray text;
    for (const Row& row : rows)
        text += QByteArray("[sources.") + row.source + "]\nrequest = \"http://127.0.0.1:" +
                QByteArray::number(m_ports.at(static_cast<std::size_t>(row.host))) + row.path +
                "\"\ntimeout = " + QByteArray::number(timeout) + "\n";
    return text;
}

SourceTable StandIns::Table(int timeout) const {
    return ReadSourceTable(
        Text(timeout).toStdString(), "own sources.toml",
        ReadSourceTable(ReadExistingFile(TALLOWMERE_SOURCE_DIR "/data/sources.toml"),
                        "sources.toml"));
}

qsizetype StandIns::RequestCount() const {
    qsizetype count = 0;
    for (const LoopbackServer& server : m_servers)
        count += server.Requests().size();
    return count;
}

} // namespace tallowmere
