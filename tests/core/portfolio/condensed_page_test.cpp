#include "core/portfolio/condensed_page.h"
#include "core/sites/site_table.h"

#include "core/portfolio/naive_condensed_page.h"
#include "core/text/bytes.h"

#include <gtest/gtest.h>

#include <random>

namespace tallowmere {
namespace {

constexpr std::string_view kTable = "<table border=1 width=\"100%\" cellpadding=0 cellspacing=0>";
constexpr std::string_view kHead =
    "<body topmargin=\"0\" leftmargin=\"0\"><a href=\"http://portal.test/\">"
    "<img src=\"http://portal.test/logo.gif\" border=\"0\"></a><br>";
constexpr std::string_view kGridRow = "</td></tr><tr height=15><tr></table><table><tr><td>";
constexpr std::string_view kGridCell = "</td><td witdh=5></td><td>";

const SiteTable& Sites() {
    static const SiteTable sites = SiteTable::Parse("[hosts]\n"
                                                    "portal = \"portal.test\"\n"
                                                    "portfolio_quotes = \"quotes.test\"\n"
                                                    "quote_server = \"https://server.test\"\n",
                                                    "sites.toml");
    return sites;
}

/// The page of an answer whose table holds `content`, between the first table and the closing tags
/// that end every page.
std::string Inside(std::string_view content) {
    const auto page =
        CondensedPage(std::string(kTable) + std::string(content) + "Quotes delayed 15", Sites());
    if (!page)
        return "no page";
    const std::string front = std::string(kHead) +
                              "<table><tr><td><table border=0 width=\"1%\" cellpadding=0 "
                              "cellspacing=0>";
    const std::string back = "</td></tr><tr height=15><tr></table></body>";
    if (!page->starts_with(front) || !page->ends_with(back))
        return "unexpected frame: " + *page;
    return page->substr(front.size(), page->size() - front.size() - back.size());
}

TEST(CondensedPage, AsksForTheTickersOfTheCurrentListInLowerCase) {
    EXPECT_EQ(CondensedQuery(std::vector<std::string>{"IBM", "Msft"}), "ibm+msft");
    EXPECT_EQ(CondensedQuery(std::vector<std::string>{"IBM"}), "ibm");
    EXPECT_EQ(CondensedQuery(std::vector<std::string>{}), "");
}

TEST(CondensedPage, AsksForTheTickersOfAllPortfoliosAsTheyAreStored) {
    const std::vector<StoredPortfolio> portfolios{
        {1, "a", "IBM|msft|"}, {2, "b", ""}, {3, "c", "AOL|"}};
    EXPECT_EQ(CondensedQuery(portfolios), "IBM+msft+AOL");
    EXPECT_EQ(CondensedQuery(std::vector<StoredPortfolio>{}), "");
}

TEST(CondensedPage, PutsQueryAndViewCodeIntoTheAddress) {
    EXPECT_EQ(CondensedAddress("ibm+msft", "1b", Sites()),
              "quotes.test/quotes?symbols=ibm+msft&d=1b");
}

TEST(CondensedPage, CutsTheTableOutOfTheAnswer) {
    const auto page = CondensedPage("Quotes delayed 15 <p>" + std::string(kTable) +
                                        "aQuotes delayed 15 minutes Quotes delayed 15",
                                    Sites());
    ASSERT_TRUE(page);
    EXPECT_EQ(*page, std::string(kHead) +
                         "<table><tr><td><table border=0 width=\"1%\" cellpadding=0 cellspacing=0>"
                         "a</td></tr><tr height=15><tr></table></body>");
}

TEST(CondensedPage, GivesNoneForAnAnswerOfAnotherForm) {
    const std::string table(kTable);
    for (const std::string& body :
         {std::string(), std::string("<html>Not found</html>"), std::string("Quotes delayed 15"),
          table, table + "<td>cut in the mid", "Quotes delayed 15" + table,
          table + "<td>IBM - More Info: x Quotes delayed 15</td>",
          table + "<td><small>Small x</tdQuotes delayed 15",
          table + "<td nowrap>Yield 2%Quotes delayed 15", table.substr(0, 40)})
        EXPECT_FALSE(CondensedPage(body, Sites())) << body;
}

TEST(CondensedPage, RemovesWhatTheGridHasNoRoomFor) {
    struct Case {
        std::string_view content, page;
    };
    // clang-format off
    for (const Case& c : {
        Case{"a- More Info: x</td>b",                  "a</font></td>b"},
        {"a<small>Small chart</small></td>b",          "a</font></td>b"},
        {"a<td nowrap>Div Date<br>Jan 1</td>b",        "ab"},
        {"a<td nowrap>Ex-Div<br>Jan 1</td>b",          "ab"},
        {"a<td nowrap>Yield<br>1.5</td>b",             "ab"},
        {"<td nowrap>Yield1</td><td nowrap>Yield2</td><td nowrap>Yield3</td>", ""},
        {"- More Info:<small>Small</td>",              "</font></td>"},
        // What a removal joins is found again by the same removal, though not by an earlier one.
        {"a<td now<td nowrap>Yield1</td>rap>Yield2</td>b", "ab"},
        {"<td n<td now<td nowrap>Yield1</td>rap>Yield2</td>owrap>Yield3</td>b", "b"},
        {"<td nowrap>Div D<td nowrap>Yield</td>ate</td>",
            "<td nowrap><font face=\"Times New Roman\" size=\"1\">Div Date</font></td>"},
        {"- more info:</td>",                          "- more info:</font></td>"}})
        EXPECT_EQ(Inside(c.content), c.page) << c.content;
    // clang-format on
}

TEST(CondensedPage, ReplacesInTheOrderOfTheTable) {
    struct Case {
        std::string_view content, page;
    };
    // clang-format off
    for (const Case& c : {
        Case{"valign=bottom",         "valign=top"},
        {"width=100%",                "width=1%"},
        {"a<p>b",                     "ab"},
        {"<<p>p>",                    "<p>"},
        {"border=1",                  "border=0"},
        {"border=100%",               "border=0%"}, // 100% became 1% before
        {"<td nowrap>x",              "<td nowrap><font face=\"Times New Roman\" size=\"1\">x"},
        {"<td nowrap colspan=2>x",    "<td nowrap colspan=2><font face=\"Times New Roman\" size=\"1\">x"},
        {"<td nowrap colspan=7>x",    "<td nowrap colspan=6><font face=\"Times New Roman\" size=\"1\">x"},
        {"<td nowrap rowspan=3>x",    "</tr><tr><td nowrap colspan=6 align=\"center\">x"},
        {"x</td>",                    "x</font></td>"},
        {"<b>/</b>",                  "<b></b>"},
        {"</td>/<td>",                "</font></td><td>"},
        {"1,234,567",                 "1234567"},
        {"Avg Vol",                   "AvgVol"},
        {"Avg, Vol",                  "AvgVol"}, // the comma went before
        {"52-week Range",             "52-week"},
        {"Earn/Shr",                  "E/Sh"},
        {"Mkt Cap",                   "MktCap"},
        {"Div/Shr",                   "Div"},
        {"Day's Range",               "Day Range"},
        {"Prev Cls",                  "PrevCls"},
        {"<a href=\"/q?s=IBM&d=t\">", "<a href=\"https://server.test/q?s=IBM&d=t\">"},
        {"<a href=\"/x?s=IBM\">",     "<a href=\"/x?s=IBM\">"}})
        EXPECT_EQ(Inside(c.content), c.page) << c.content;
    // clang-format on
}

TEST(CondensedPage, RemovesTheTextBetweenDotAndLineBreakWhereverItOccurs) {
    struct Case {
        std::string_view content, page;
    };
    // clang-format off
    for (const Case& c : {
        // From the byte behind "&#183" to the second one behind "<br>".
        Case{"a&#183;dot<br>\nXb",                       "a&#183b"},
        {"a&#183;dot<br>\nXb;dot<br>\nXc;dot<br>\nYd",   "a&#183bc;dot<br>\nYd"},
        {"&#183;dot<br>\n",                              "&#183"},
        {"&#183;dot<br>\n-;dot<br>\n",                   "&#183;dot<br>\n"},
        {"&#183<br>\nXa<br>\nX<br>\nY",                  "&#183a<br>\nY"},
        // The removed text begins inside the line break before it.
        {"&#183\na<br>\nX<br>\na<br>\nX",                "&#183<br>"},
        // Places that overlap: the first one goes.
        {"&#183;a<br>\n;-;a<br>\n;a<br>\n;",             "&#183-a<br>\n;"},
        // Skipped: a mark is missing or they stand in the wrong order.
        {"a;dot<br>\nXb",                                "a;dot<br>\nXb"},
        {"a&#183;dot<br>Xb",                             "a&#183;dot<br>Xb"},
        {"a<br>\nb&#183;dot<br>\nc",                     "a<br>\nb&#183;dot<br>\nc"}})
        EXPECT_EQ(Inside(c.content), c.page) << c.content;
    // clang-format on
}

TEST(CondensedPage, PutsThreeTablesIntoARow) {
    // The table that the answer begins with is the first cell of the first row.
    const std::string row(kGridRow);
    const std::string cell(kGridCell);
    EXPECT_EQ(Inside("1<table border=0>2<table border=0>3"),
              "1" + cell + "<table border=0>2" + cell + "<table border=0>3");

    std::string content = "1";
    for (char n = '2'; n <= '7'; ++n)
        content += std::string("<table bor>") + n;
    EXPECT_EQ(Inside(content), "1" + cell + "<table bor>2" + cell + "<table bor>3" + row +
                                   "<table bor>4" + cell + "<table bor>5" + cell + "<table bor>6" +
                                   row + "<table bor>7");
}

TEST(CondensedPage, SevenTickersGiveThreeRows) {
    std::string content;
    for (int i = 1; i < 7; ++i)
        content += "</table>\n" + std::string(kTable);
    const std::string page = Inside(content + "</table>");
    // The first row is opened in front of what Inside gives.
    EXPECT_EQ(1 + CountOccurrences(page, kGridRow), 3u);
    EXPECT_EQ(CountOccurrences(page, kGridCell), 4u);
}

TEST(CondensedPage, AgreesWithTheNaiveOneOnAnyAnswer) {
    // clang-format off
    const std::vector<std::string> pieces{
        "- More Info:", "- More", " Info:", "<small>Small", "<small>S", "mall",
        "<td nowrap>Div Date", "<td nowrap>Ex-Div", "<td nowrap>Yield", "<td now", "rap>Yield",
        "rap>Div Date", "Yield", "</td>", "</td>", "</td>", "</", "td>", "valign=bottom", "100%",
        "<p>", "<", "p>", "border=1", "border=", "1", "<td nowrap>", "<td nowrap colspan=2>",
        "<td nowrap colspan=7>", "<td nowrap rowspan=3", ">/<", ",", "Avg Vol", "Avg", " Vol",
        "week Range", "Earn/Shr", "Mkt Cap", "Div/Shr", "Day's", "Prev Cls", "\"/q?s=", "<br>\n",
        "<br>", "\n", "&#183", ";", "&#183;a<br>\nb", ";a<br>\nb", "<table bor",
        "<table border=1>", "<table b", "or", "a", "b", std::string("\0\xFF", 2)};
    // clang-format on
    std::mt19937 random(20260);
    std::uniform_int_distribution<std::size_t> anyPiece(0, pieces.size() - 1);
    std::uniform_int_distribution<int> anyLength(0, 60);
    int pages = 0;
    for (int round = 0; round < 4000; ++round) {
        std::string body(kTable);
        for (int i = anyLength(random); i > 0; --i)
            body += pieces[anyPiece(random)];
        body += round % 2 == 0 ? "</td>Quotes delayed 15" : "Quotes delayed 15";
        const auto page = CondensedPage(body, Sites());
        ASSERT_EQ(page, naive::CondensedPage(body, std::string(kHead), "https://server.test"))
            << body;
        pages += page.has_value();
    }
    EXPECT_GT(pages, 2000);
}

} // namespace
} // namespace tallowmere
