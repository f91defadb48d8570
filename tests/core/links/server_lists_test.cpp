#include "core/links/server_lists.h"
#include "core/sites/site_table.h"

#include "core/links/menu_table.h"
#include "core/links/site_menus.h"
#include "core/links/web_address.h"
#include "shipped_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(BookList, EachLineIsABookBehindTheTwoItemsThatAreAlwaysThere) {
    EXPECT_THAT(ReadBookList("0070380465-One Up<br>\r\n0471295639-Common Sense<br>\r\n"),
                ElementsAre(ServerEntry{3, "0070380465", "One Up"},
                            ServerEntry{4, "0471295639", "Common Sense"}));
}

TEST(BookList, ATitleKeepsItsHyphens) {
    EXPECT_THAT(
        ReadBookList("1-Buy-and-Hold - A Guide<br>\r\n2-Next<br>\r\n"),
        ElementsAre(ServerEntry{3, "1", "Buy-and-Hold - A Guide"}, ServerEntry{4, "2", "Next"}));
}

TEST(BookList, WithoutAHyphenThereAreNoBooks) {
    EXPECT_THAT(ReadBookList(""), IsEmpty());
    EXPECT_THAT(ReadBookList("<html>Not found</html>"), IsEmpty());
}

TEST(BookList, ALineWithoutItsEndAddsNothing) {
    EXPECT_THAT(ReadBookList("1-Whole<br>\r\n2-Cut"), ElementsAre(ServerEntry{3, "1", "Whole"}));
    EXPECT_THAT(ReadBookList("1-Cut"), IsEmpty());
}

TEST(BookList, TheLineEndIsSixCharactersWhateverTheyAre) {
    EXPECT_THAT(
        ReadBookList("1-A<12345"
                     "2-B<p>\r\n\n"
                     "3-C<br>\r\n"),
        ElementsAre(ServerEntry{3, "1", "A"}, ServerEntry{4, "2", "B"}, ServerEntry{5, "3", "C"}));
    EXPECT_THAT(ReadBookList("1-A<"), ElementsAre(ServerEntry{3, "1", "A"}));
}

TEST(BookList, ControlCharactersInATitleBecomeBlanks) {
    EXPECT_THAT(ReadBookList(std::string("1-A\tB\r\nC\x7F\0D<br>\r\n", 18)),
                ElementsAre(ServerEntry{3, "1", "A B  C  D"}));
}

TEST(NewSites, EachAnchorIsAnEntry) {
    EXPECT_THAT(ReadNewSites("<a href=\"http://one.test/\">One</a><br>\r\n"
                             "<a href=\"https://two.test/a?b=c\">Two & More</a>\r\n"),
                ElementsAre(ServerEntry{1, "http://one.test/", "One"},
                            ServerEntry{2, "https://two.test/a?b=c", "Two & More"}));
}

TEST(NewSites, APageWithoutAnchorsHasNone) {
    EXPECT_THAT(ReadNewSites(""), IsEmpty());
    EXPECT_THAT(ReadNewSites("<html><p>none</p></html>"), IsEmpty());
    EXPECT_THAT(ReadNewSites("<A HREF=\"http://one.test/\">One</A>"), IsEmpty());
}

TEST(NewSites, AClosingMarkBeforeTheAnchorEndsTheList) {
    EXPECT_THAT(ReadNewSites("<p class=\"x\"><a href=\"http://one.test/\">One</a>"), IsEmpty());
    EXPECT_THAT(ReadNewSites("<a href=\"http://one.test/\">One</a><p class=\"x\">"
                             "<a href=\"http://two.test/\">Two</a>"),
                ElementsAre(ServerEntry{1, "http://one.test/", "One"}));
    EXPECT_THAT(ReadNewSites("<a href\">x</a>"), IsEmpty());
}

TEST(NewSites, AnAnchorWithoutItsMarksEndsTheList) {
    EXPECT_THAT(ReadNewSites("<a href=\"http://one.test/"), IsEmpty());
    EXPECT_THAT(ReadNewSites("<a href=\"http://one.test/\">One"), IsEmpty());
    EXPECT_THAT(ReadNewSites("<a href=\"http://one.test/\">One</a><a href=\"http://two.test/"),
                ElementsAre(ServerEntry{1, "http://one.test/", "One"}));
    EXPECT_THAT(ReadNewSites("<a href"), IsEmpty());
}

TEST(NewSites, TheAddressRunsToTheFirstQuoteThatIsFollowedByABracket) {
    EXPECT_THAT(ReadNewSites("<a href=\"http://one.test/\" target=\"_blank\">One</a>"),
                ElementsAre(ServerEntry{1, "http://one.test/\" target=\"_blank", "One"}));
    EXPECT_THAT(ReadNewSites("<a href=\"\">Empty</a>"), ElementsAre(ServerEntry{1, "", "Empty"}));
}

TEST(NewSites, ANestedAnchorIsPartOfTheCaption) {
    EXPECT_THAT(
        ReadNewSites("<a href=\"http://one.test/\">One <a href=\"http://in.test/\">in</a>"
                     "</a><a href=\"http://two.test/\">Two</a>"),
        ElementsAre(ServerEntry{1, "http://one.test/", "One <a href=\"http://in.test/\">in"},
                    ServerEntry{2, "http://two.test/", "Two"}));
}

TEST(NewSites, ControlCharactersInACaptionBecomeBlanks) {
    EXPECT_THAT(ReadNewSites("<a href=\"http://one.test/\">O\r\nn\x1B[0me</a>"),
                ElementsAre(ServerEntry{1, "http://one.test/", "O  n [0me"}));
}

TEST(NewSites, WhatIsNoWebAddressIsListedButCanBeToldApart) {
    const auto entries = ReadNewSites("<a href=\"javascript:alert(1)\">Bad</a>"
                                      "<a href=\"http://one.test/\">Good</a>");
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_FALSE(IsWebAddress(entries[0].target));
    EXPECT_TRUE(IsWebAddress(entries[1].target));
}

TEST(NewSites, AMillionAnchorsAreReadInOneWalk) {
    std::string page;
    for (int i = 0; i < 1000000; ++i)
        page += "<a href=\"http://a.test/\">A</a>";
    const auto entries = ReadNewSites(page);
    ASSERT_EQ(entries.size(), 1000000U);
    EXPECT_EQ(entries.back(), (ServerEntry{1000000, "http://a.test/", "A"}));
}

TEST(BookAddress, IsTheProductPageOfTheBookstore) {
    const SiteTable sites = SiteTable::Parse("[hosts]\nbookstore = \"http://books.test\"\n", "s");
    EXPECT_EQ(BookAddress("0070380465", sites), "http://books.test/exec/obidos/ASIN/0070380465/");
}

TEST(BookSearch, AsksTheStoreForTheQuotedPhrase) {
    const std::string address =
        SiteMenuAddress("mnuBook", 1, "", ShippedSites(),
                        MenuTable::Parse(ShippedFile("menus.toml"), "menus.toml"));
    EXPECT_TRUE(IsWebAddress(address)) << address;
    EXPECT_NE(address.find("%22Stock+Market%22"), std::string::npos) << address;
}

TEST(BookAddress, ACodeCannotLeadToAnotherPage) {
    const SiteTable sites = SiteTable::Parse("[hosts]\nbookstore = \"http://books.test\"\n", "s");
    EXPECT_EQ(BookAddress("../x?y#z\r\n", sites),
              "http://books.test/exec/obidos/ASIN/..%2Fx%3Fy%23z%0D%0A/");
}

} // namespace
} // namespace tallowmere
