#include "core/portfolio/report.h"
#include "core/sites/site_table.h"

#include "core/text/bytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr Date kToday{2026, 7, 4};

const SiteTable& Sites() {
    static const SiteTable sites =
        SiteTable::Parse("[hosts]\nquicken_click = \"click.test\"\n", "sites.toml");
    return sites;
}

NoteIndex Notes(const std::vector<std::pair<std::string, std::string>>& notes) {
    std::string content;
    for (const auto& [ticker, note] : notes)
        content += NoteRecord(ticker, note);
    return NoteIndex(content);
}

std::string Link(const std::string& ticker) {
    return "<a href=\"http://click.test/click?page=quote&symbol=" + ticker + "&button=Go\">" +
           ticker + "</a>";
}

/// The tickers A01| to An| of a list.
std::string List(int n) {
    std::string list;
    for (int i = 1; i <= n; ++i)
        list += (i < 10 ? "A0" : "A") + std::to_string(i) + "|";
    return list;
}

/// The links to the tickers A`first` to A`last`, as they stand in one line.
std::string Line(int first, int last) {
    std::string line;
    for (int i = first; i <= last; ++i)
        line += (i > first ? ", " : "") + Link((i < 10 ? "A0" : "A") + std::to_string(i));
    return line;
}

TEST(Report, WithoutTickersIsAHeadingAlone) {
    EXPECT_EQ(ReportPage({}, Notes({}), kToday, Sites()),
              "<big><big>Quorvane Portfolio Report : 7/4/2026<br></big>0 Stocks </big><br><br>");
}

TEST(Report, CountsTheTickersOfEachPortfolioAndOfAll) {
    const std::vector<StoredPortfolio> portfolios{
        {1, "Tech", "IBM|MSFT|"}, {2, "Empty", ""}, {10, "Portfolio #10", "AOL|"}};
    EXPECT_EQ(ReportPage(portfolios, Notes({}), kToday, Sites()),
              "<big><big>Quorvane Portfolio Report : 7/4/2026<br></big>3 Stocks </big><br><br>"
              "<big><big>Portfolio #1 : Tech</big> (2)</big><br>" +
                  Link("IBM") + ", " + Link("MSFT") +
                  "<br><br><br>"
                  "<big><big>Portfolio #10 : Portfolio #10</big> (1)</big><br>" +
                  Link("AOL") + "<br><br><br>");
}

TEST(Report, TwelveTickersGiveALineOfTenAndALineOfTwo) {
    const std::vector<StoredPortfolio> portfolios{{1, "P", List(12)}};
    EXPECT_THAT(ReportPage(portfolios, Notes({}), kToday, Sites()),
                testing::EndsWith(" (12)</big><br>" + Line(1, 10) + "<br>" + Line(11, 12) +
                                  "<br><br><br>"));
}

TEST(Report, TenTickersGiveOneLine) {
    const std::vector<StoredPortfolio> portfolios{{1, "P", List(10)}};
    EXPECT_THAT(ReportPage(portfolios, Notes({}), kToday, Sites()),
                testing::EndsWith(" (10)</big><br>" + Line(1, 10) + "<br><br><br>"));
}

TEST(Report, ATickerWithANoteStandsAloneAheadOfThoseStillPending) {
    const std::vector<StoredPortfolio> portfolios{{1, "P", "A01|IBM|A02|"}};
    EXPECT_THAT(ReportPage(portfolios, Notes({{"IBM", "watch"}}), kToday, Sites()),
                testing::EndsWith(" (3)</big><br>"
                                  "<br><b>" +
                                  Link("IBM") +
                                  "&nbsp;&nbsp;&nbsp;&nbsp;.......<font color=\"#008000\">"
                                  "\"watch\"</font></b><br>" +
                                  Line(1, 2) + "<br><br><br>"));
}

TEST(Report, ANotedTickerDoesNotCountForALineOfTen) {
    const std::vector<StoredPortfolio> portfolios{{1, "P", "IBM|" + List(11)}};
    const std::string page = ReportPage(portfolios, Notes({{"IBM", "n"}}), kToday, Sites());
    EXPECT_THAT(page, HasSubstr("</b><br>" + Line(1, 10) + "<br>" + Line(11, 11) + "<br><br><br>"));
}

TEST(Report, ShowsNamesTickersAndNotesAsTheyAre) {
    const std::vector<StoredPortfolio> portfolios{{1, "<R&D>", "a\"b<|^x y|"}};
    const std::string page =
        ReportPage(portfolios, Notes({{"^x y", "<b>\"buy\" & 'hold'</b>"}}), kToday, Sites());
    EXPECT_THAT(page, HasSubstr("Portfolio #1 : &lt;R&amp;D&gt;</big>"));
    EXPECT_THAT(page, HasSubstr("symbol=A%22B%3C&button=Go\">a&quot;b&lt;</a>"));
    EXPECT_THAT(page, HasSubstr("symbol=%5EX%20Y&button=Go\">^x y</a>"));
    EXPECT_THAT(
        page, HasSubstr("\"&lt;b&gt;&quot;buy&quot; &amp; &#39;hold&#39;&lt;/b&gt;\"</font></b>"));
}

TEST(Report, LooksNotesUpByTheTickerAsItIsStored) {
    const std::vector<StoredPortfolio> portfolios{{1, "P", "ibm|MSF|"}};
    EXPECT_THAT(ReportPage(portfolios, Notes({{"IBM", "n"}, {"MSFT", "n"}}), kToday, Sites()),
                testing::Not(HasSubstr("<b>")));
}

TEST(PrintedReport, OfNothingIsTheHead) {
    EXPECT_THAT(PrintedReport({}, Notes({}), {2026, 12, 31}),
                ElementsAre(PrintedLine{"Quorvane Portfolio Report", 12, false},
                            PrintedLine{"12/31/2026", 15, false}));
}

TEST(PrintedReport, PutsNotedTickersAheadOfThoseStillPending) {
    const std::vector<StoredPortfolio> portfolios{{1, "Empty", ""},
                                                  {2, "Tech", "A01|IBM|" + List(12)}};
    EXPECT_THAT(
        PrintedReport(portfolios, Notes({{"IBM", "watch"}, {"A12", "late"}}), kToday),
        ElementsAre(
            PrintedLine{"Quorvane Portfolio Report", 12, false}, PrintedLine{"7/4/2026", 15, false},
            PrintedLine{"", 11, true}, PrintedLine{"Portfolio #2 : Tech", 11, true},
            PrintedLine{"", 11, true}, PrintedLine{"IBM    .......\"watch\"", 11, false},
            PrintedLine{"A01, A01, A02, A03, A04, A05, A06, A07, A08, A09", 11, false},
            PrintedLine{"A12    .......\"late\"", 11, false}, PrintedLine{"A10, A11", 11, false}));
}

TEST(PrintedReport, LeavesNoLineBehindAFullOne) {
    const std::vector<StoredPortfolio> portfolios{{3, "P", List(10)}};
    const auto lines = PrintedReport(portfolios, Notes({}), kToday);
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines.back().text, "A01, A02, A03, A04, A05, A06, A07, A08, A09, A10");
}

TEST(PrintedReport, BreaksANoteAtItsOwnLineEnds) {
    const std::vector<StoredPortfolio> portfolios{{3, "P", "IBM|"}};
    const auto lines = PrintedReport(portfolios, Notes({{"IBM", "one\r\ntwo\nthree"}}), kToday);
    ASSERT_EQ(lines.size(), 8u);
    EXPECT_EQ(lines[5].text, "IBM    .......\"one");
    EXPECT_EQ(lines[6].text, "two");
    EXPECT_EQ(lines[7].text, "three\"");
}

} // namespace
} // namespace tallowmere
