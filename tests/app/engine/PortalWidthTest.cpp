#include "core/links/index_query.h"
#include "core/portal/live_portal.h"
#include "core/portal/portal.h"
#include "core/sites/site_table.h"
#include "core/text/files.h"
#include "support/WebTest.h"

#include <QWebEngineView>

using namespace tallowmere;
using namespace Qt::StringLiterals;

namespace {

constexpr int kWidths[] = {400, 700, 990, 1010};
constexpr std::int64_t kNow = 1795208400 + 5 * 86400; // the Wednesday after a Friday's close

std::string Shipped(const char* name) {
    return ReadExistingFile(std::string(TALLOWMERE_SOURCE_DIR "/data/") + name);
}

/// A source that knows every symbol, by long names and of days ago.
SourceResponse Answer(const SourceRequest& request) {
    std::string rows;
    std::string_view symbols = request.address;
    symbols.remove_prefix(symbols.find('?') + 1);
    while (!symbols.empty()) {
        const auto end = std::min(symbols.find(','), symbols.size());
        rows +=
            (rows.empty() ? "" : ",") + std::string(R"({"symbol":")") +
            std::string(symbols.substr(0, end)) +
            R"(","name":"The Consolidated Transcontinental Electricity and Gas Holdings Company",)"
            R"("last":"45,979.04","change":"-1,042.15","open":"46,512.12","high":"46,979.04",)"
            R"("low":"44,112.98","volume":"1,234,567,890",)"
            R"("last_time":"2026-11-20T16:00:00-0500"})";
        symbols.remove_prefix(std::min(end + 1, symbols.size()));
    }
    return {200, "application/json", "",
            R"({"FormattedQuoteResult":{"FormattedQuote":[)" + rows + "]}}"};
}

/// Every page that the program makes for people.
const QStringList& Paths() {
    static const QStringList paths = {
        u"/q"_s + QString::fromStdString(IndexQuery().substr(2)),
        u"/q"_s + QString::fromStdString(DetailedIndexQuery().substr(2)),
        u"/q?s=msft&d=1y"_s,
        u"/q?s=msft&d=t"_s,
        u"/q?s=nosuch&d=1d"_s,
        u"/quotes?symbols=msft+ibm+nosuch+^dji&d=1b"_s,
        u"/quotes?symbols=msft+ibm+nosuch+^dji&d=t"_s,
        u"/p/m/msft.html"_s,
        u"/dljd/mwactive.htm"_s,
        u"/moneynet/cgi-bin/applet.cgi"_s,
        u"/no/such/page/with/a/long/address/without/a/single/blank/in/it/and/so/on.html"_s,
    };
    return paths;
}

} // namespace

/// The program's own pages fit into a pane of any width from 400 pixels on.
class PortalWidthTest : public QObject {
    Q_OBJECT
private:
    SiteTable m_sites = SiteTable::Parse(Shipped("sites.toml"), "sites.toml");
    SamplePortal m_sample{m_sites, SampleMarket::Parse(Shipped("sample_market.txt")), {}};
    LivePortal m_live{m_sites, {}};
    SourceSchedule m_quotes{
        ReadSourceTable("[sources.a]\nname = \"Cboe (15 minutes late)\"\nformat = "
                        "\"cnbc\"\nrequest = \"https://a.example/?{symbols}\"\nbatch = 50\n",
                        "sources.toml")};
    QWebEngineView m_view;

    std::string Page(const QString& mode, const QString& address) {
        const std::string path = address.toStdString();
        if (mode == u"sample")
            return m_sample.Answer("quote.yahoo.com", path, {2026, 11, 21}).body;
        for (const WantedPrices& wanted : m_live.Needs("quote.yahoo.com", path))
            m_quotes.Want(wanted.span, wanted.symbols, kNow);
        while (const auto request = m_quotes.Next(kNow))
            m_quotes.Answer(request->id, Answer(*request), kNow);
        return m_live.Answer("quote.yahoo.com", path, m_quotes, kNow).body;
    }

    QVariant Run(const QString& script) {
        std::optional<QVariant> result;
        m_view.page()->runJavaScript(script, [&](const QVariant& value) { result = value; });
        return QTest::qWaitFor([&] { return result.has_value(); }) ? *result : QVariant();
    }

    void Show(const std::string& html) {
        bool isThere = false;
        const auto connection = connect(&m_view, &QWebEngineView::loadFinished, this,
                                        [&](bool good) { isThere = good; });
        m_view.setHtml(QString::fromStdString(html));
        QVERIFY(QTest::qWaitFor([&] { return isThere; }));
        disconnect(connection);
    }

    void Widen(int width) {
        m_view.resize(width, 600);
        m_view.show();
        QTRY_COMPARE(Run(u"window.innerWidth"_s).toInt(), width);
    }

private Q_SLOTS:
    void NoPageIsWiderThanItsPane_data() {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QString>("path");
        for (const QString& mode : {u"sample"_s, u"live"_s})
            for (const QString& path : Paths())
                QTest::newRow(qUtf8Printable(mode + u' ' + path)) << mode << path;
    }

    void NoPageIsWiderThanItsPane() {
        QFETCH(QString, mode);
        QFETCH(QString, path);
        Show(Page(mode, path));
        for (const int width : kWidths) {
            Widen(width);
            const int content = Run(u"document.documentElement.scrollWidth"_s).toInt();
            const int pane = Run(u"document.documentElement.clientWidth"_s).toInt();
            QVERIFY(pane > 0);
            QVERIFY2(content <= pane, qUtf8Printable(u"%1 in %2"_s.arg(content).arg(pane)));
        }
    }

    void APageThatIsTooWideIsSeen() {
        Show("<body><div style='width: 900px'>wide</div></body>");
        Widen(400);
        QVERIFY(Run(u"document.documentElement.scrollWidth"_s).toInt() > 400);
    }

    /// The pane of the window in its first size is some 340 pixels wide and 450 high.
    void TheStartPageShowsNamePriceAndChangeOfEveryIndexAtFirstSight() {
        Show(Page(u"live"_s, u"/q"_s + QString::fromStdString(DetailedIndexQuery().substr(2))));
        m_view.resize(340, 450);
        m_view.show();
        QTRY_COMPARE(Run(u"window.innerWidth"_s).toInt(), 340);
        const QVariant hidden = Run(
            u"[...document.querySelectorAll('table.rows tr')].slice(1).flatMap(row =>"
            "  [...row.children].slice(0, 4).filter(cell => {"
            "    const box = cell.getBoundingClientRect();"
            "    return !(box.width > 0 && box.left >= 0 &&"
            "             box.right <= document.documentElement.clientWidth &&"
            "             box.bottom <= window.innerHeight); })).map(c => c.textContent).join('|')"_s);
        QCOMPARE(Run(u"document.querySelectorAll('table.rows tr').length"_s).toInt(), 7);
        QCOMPARE(hidden.toString(), QString());
    }
};

TALLOWMERE_WEB_TEST_MAIN(PortalWidthTest)
#include "PortalWidthTest.moc"
