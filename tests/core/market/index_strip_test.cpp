#include "core/market/index_strip.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

/// A row of the portal's table: the symbol's link, the time, the value and the change.
std::string Row(std::string_view symbol, std::string_view value, std::string_view change) {
    return "<tr><td nowrap align=left><a href=\"/q?s=" + std::string(symbol) + "&d=t\">" +
           std::string(symbol) + "</a></td><td nowrap align=center>4:00PM</td><td nowrap><b>" +
           std::string(value) + "</b></td><td nowrap>" + std::string(change) +
           "</td><td nowrap>N/A</td></tr>\n";
}

std::string WholePage() {
    return "<html><table>" + Row("^NYA", "651.17", "+2.08") +
           Row("^SPC", "1,469.25", "<font color=ff0020>-4.47</font>") +
           Row("^OEX", "800.00", "0.00") + Row("^TYX", "65.90", "<b>+0.01</b>") +
           Row("^DJI", "11,497.12", "<font color=ff0020>-102.35</font>") +
           Row("^IXIC", "4,069.31", "+1.50") + "</table>Quotes delayed 15 minutes</html>";
}

TEST(IndexStrip, ReadsValueAndChangeOfEveryIndex) {
    // The change of ^TYX starts behind the last ">" before its cell's end, the one of "</b>".
    EXPECT_THAT(ReadIndexPage(WholePage()),
                testing::ElementsAre("NYSE : 651.17 +2.08", "S&P 500 : 1,469.25 -4.47",
                                     "S&P 100 : 800.00 0.00", "30Y-TSY : 65.90 ",
                                     "DJIA : 11,497.12 -102.35", "NAS/NMS : 4,069.31 +1.50"));
}

TEST(IndexStrip, ReadsABareChangeAndOneInAFontTagAlike) {
    EXPECT_EQ(ReadIndexPage(Row("^NYA", "1.0", "-4.47")),
              ReadIndexPage(Row("^NYA", "1.0", "<font color=\"#ff0020\">-4.47</font>")));
    EXPECT_THAT(ReadIndexPage(Row("^NYA", "1.0", "-4.47")),
                testing::ElementsAre("NYSE : 1.0 -4.47"));
}

TEST(IndexStrip, ReadsWhatThePageSaysAboutARow) {
    const std::string titled =
        "<tr title=\"4 PM, R&amp;D&quot;s\">" + Row("^SPC", "2", "+2").substr(4);
    EXPECT_EQ(ReadIndexNote(WholePage() + titled, IndexTable()[1]), "");
    EXPECT_EQ(ReadIndexNote(Row("^NYA", "1", "+1") + titled, IndexTable()[1]), "4 PM, R&D\"s");
    EXPECT_EQ(ReadIndexNote(titled + Row("^NYA", "1", "+1"), IndexTable()[0]), "");
    EXPECT_EQ(ReadIndexNote(titled, IndexTable()[0]), "");
    EXPECT_EQ(ReadIndexNote("<tr title=\"cut off<a href=\"/q?s=^NYA&d=t\">", IndexTable()[0]),
              "cut off<a href=");
    EXPECT_EQ(ReadIndexNote("", IndexTable()[0]), "");
}

TEST(IndexStrip, FindsTheRowsWhereverTheyStand) {
    EXPECT_THAT(ReadIndexPage(Row("^SPC", "2", "+2") + Row("^NYA", "1", "+1")),
                testing::ElementsAre("NYSE : 1 +1", "S&P 500 : 2 +2"));
}

TEST(IndexStrip, EndsAtTheFirstMissingAnchor) {
    EXPECT_THAT(ReadIndexPage(Row("^NYA", "1", "+1") + Row("^OEX", "3", "+3")),
                testing::ElementsAre("NYSE : 1 +1"));
    EXPECT_THAT(ReadIndexPage(Row("^SPC", "2", "+2")), testing::IsEmpty());
    EXPECT_THAT(ReadIndexPage(Row("^nya", "1", "+1")), testing::IsEmpty());
    EXPECT_THAT(ReadIndexPage(""), testing::IsEmpty());
}

TEST(IndexStrip, ReadsHowOldAPageCallsARow) {
    struct Case {
        const char* start;
        const char* note;
        const char* age;
    };
    for (const Case& c : {Case{"<tr>", "", ""},
                          {"<tr title=\"4 PM, A &amp; B\">", "4 PM, A & B", ""},
                          {"<tr title=\"4 PM\" data-age=\"2 d\">", "4 PM", "2 d"},
                          {"<tr data-age=\"2 d\">", "", "2 d"},
                          {"<tr title=\"cut", "", ""}}) {
        const std::string page = std::string(c.start) + "<td><a href=\"/q?s=^NYA&d=t\">x";
        EXPECT_EQ(ReadIndexNote(page, IndexTable()[0]), c.note) << c.start;
        EXPECT_EQ(ReadIndexAge(page, IndexTable()[0]), c.age) << c.start;
    }
}

TEST(IndexStrip, ReadsWhyARowHasNoValues) {
    const std::string page = "<tr title=\"first\"><td>^NYA</td><td>no</td></tr>"
                             "<tr title=\"second\"><td>^SPC</td><td>no</td></tr>";
    EXPECT_EQ(ReadIndexNote(page, IndexTable()[0]), "first");
    EXPECT_EQ(ReadIndexNote(page, IndexTable()[1]), "second");
    EXPECT_EQ(ReadIndexNote(page, IndexTable()[2]), "");
    EXPECT_EQ(ReadIndexAge(page, IndexTable()[0]), "");
}

TEST(IndexStrip, EndsWhereARowIsCutShort) {
    const std::string page = Row("^NYA", "651.17", "+2.08");
    const auto end = page.find("</td>", page.find("+2.08")) + 5;
    EXPECT_THAT(ReadIndexPage(page.substr(0, end)), testing::ElementsAre("NYSE : 651.17 +2.08"));
    for (std::size_t size = 0; size < end; ++size)
        EXPECT_THAT(ReadIndexPage(page.substr(0, size)), testing::IsEmpty()) << size;
}

TEST(IndexStrip, SkipsTwelveBytesBeforeItLooksForTheEndOfTheChange) {
    const std::string head = "<a href=\"/q?s=^NYA&d=t\"><td nowrap><b>9</b>";
    // The cell end at twelve bytes behind "</b>" counts, the one at eleven does not.
    EXPECT_THAT(ReadIndexPage(head + "12345678</td>5</td>"),
                testing::ElementsAre("NYSE : 9 12345678"));
    EXPECT_THAT(ReadIndexPage(head + "1234567</td>5</td>"), testing::ElementsAre("NYSE : 9 5"));
}

TEST(IndexStrip, LeavesAnEmptyChangeEmpty) {
    EXPECT_THAT(ReadIndexPage(Row("^NYA", "9", "")), testing::ElementsAre("NYSE : 9 "));
}

TEST(IndexStrip, FetchesOnlyMoreThanTwoHundredSecondsAfterTheLastFetch) {
    EXPECT_TRUE(FetchIsDue(201, 0));
    EXPECT_FALSE(FetchIsDue(200, 0));
    EXPECT_TRUE(FetchIsDue(200.5, 0));
    EXPECT_FALSE(FetchIsDue(36060, 36000));
    EXPECT_FALSE(FetchIsDue(36200, 36000));
    EXPECT_TRUE(FetchIsDue(36201, 36000));
}

TEST(IndexStrip, WaitsAfterMidnightUntilTheClockPassesTheLastMark) {
    EXPECT_FALSE(FetchIsDue(0, 86300));
    EXPECT_FALSE(FetchIsDue(50000, 86000));
    EXPECT_FALSE(FetchIsDue(86200, 86000));
    EXPECT_TRUE(FetchIsDue(86201, 86000));
}

TEST(IndexStrip, MarksAFetchInWholeSecondsHalvesToEven) {
    EXPECT_EQ(FetchMark(36000.4), 36000);
    EXPECT_EQ(FetchMark(36000.5), 36000);
    EXPECT_EQ(FetchMark(36001.5), 36002);
    EXPECT_EQ(FetchMark(0), 0);
    EXPECT_EQ(FetchMark(86399.9), 86400);
}

TEST(IndexStrip, TellsAWholePageByItsFootnote) {
    EXPECT_TRUE(IsCompleteIndexPage(WholePage()));
    EXPECT_FALSE(IsCompleteIndexPage("quotes delayed"));
    EXPECT_FALSE(IsCompleteIndexPage(""));
}

} // namespace
} // namespace tallowmere
