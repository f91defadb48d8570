#include "core/pages/site_data.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using List = std::vector<std::string>;

TEST(ASite, HasTheHostsBelowIt) {
    EXPECT_TRUE(IsOfSite("example.com", "example.com"));
    EXPECT_TRUE(IsOfSite("www.example.com", "example.com"));
    EXPECT_TRUE(IsOfSite("a.b.example.com", "example.com"));
    EXPECT_FALSE(IsOfSite("example.com", "www.example.com"));
    EXPECT_FALSE(IsOfSite("notexample.com", "example.com"));
    EXPECT_FALSE(IsOfSite("example.com.evil.net", "example.com"));
    EXPECT_FALSE(IsOfSite("example.com", ""));
    EXPECT_FALSE(IsOfSite("", "example.com"));
}

TEST(ASite, IsListedOnceForAllOfItsHosts) {
    EXPECT_EQ(SitesOf({"www.example.com", "b.org", "example.com", "www.example.com"}),
              (List{"b.org", "example.com"}));
    EXPECT_EQ(SitesOf({"www.b.org", "app.b.org"}), (List{"app.b.org", "www.b.org"}));
    // No site lies below a name of one part or a number.
    EXPECT_EQ(SitesOf({"localhost", "app.localhost", "0.1", "10.0.0.1", ""}),
              (List{"0.1", "10.0.0.1", "app.localhost", "localhost"}));
    EXPECT_EQ(SitesOf({}), List{});
}

TEST(ASite, HasItsFramesBesideIt) {
    EXPECT_TRUE(MayBeOneSite("a.example.com", "b.example.com"));
    EXPECT_TRUE(MayBeOneSite("example.com", "x.y.example.com"));
    EXPECT_TRUE(MayBeOneSite("localhost", "localhost"));
    EXPECT_FALSE(MayBeOneSite("a.example.com", "example.org"));
    EXPECT_FALSE(MayBeOneSite("127.0.0.1", "10.0.0.1"));
    EXPECT_FALSE(MayBeOneSite("a.localhost", "localhost"));
    EXPECT_FALSE(MayBeOneSite("example.com", ""));
}

TEST(TheDomainOfACookie, NamesAHost) {
    EXPECT_EQ(HostOfDomain(".Example.com"), "example.com");
    EXPECT_EQ(HostOfDomain("www.example.com"), "www.example.com");
    EXPECT_EQ(HostOfDomain(""), "");
}

struct FolderCase {
    std::string_view name;
    std::string_view origin;
};

// clang-format off
constexpr FolderCase kFolderCases[] = {
    {"https_www.example.com_0.indexeddb.leveldb", "https://www.example.com"},
    {"https_www.example.com_0.indexeddb.blob",    "https://www.example.com"},
    {"http_127.0.0.1_8080.indexeddb.leveldb",     "http://127.0.0.1:8080"},
    {"https_www.example.com_0",                   "https://www.example.com"},
    {"https_a_b.example.com_0",                   "https://a_b.example.com"},
    {"portal_pages_0.indexeddb.leveldb",          ""},
    {"file__0.indexeddb.leveldb",                 ""},
    {"https__0",                                  ""},
    {"https_.._0",                                ""},
    {"https_a.com_x",                             ""},
    {"https_a.com",                               ""},
    {"Databases.db",                              ""},
    {"",                                          ""},
};
// clang-format on

TEST(AFolderOfTheEngine, NamesTheOriginOfItsData) {
    for (const FolderCase& row : kFolderCases)
        EXPECT_EQ(OriginOfFolder(row.name), row.origin) << row.name;
}

TEST(TheListOfSites, ReadsBackWhole) {
    EXPECT_EQ(ReadSiteList("a.com|b.org|"), (List{"a.com", "b.org"}));
    EXPECT_EQ(WriteSiteList({"a.com", "b.org"}), "a.com|b.org|");
    EXPECT_EQ(ReadSiteList(" A.com |a.com||https://b.org/|*|.|c d|e.net"),
              (List{"a.com", "e.net"}));
    EXPECT_EQ(ReadSiteList(""), List{});
    EXPECT_EQ(WriteSiteList({}), "");
}

TEST(CookiesAcrossSites, GoWithASiteThatMayHaveThemAndItsPages) {
    const List sites = {"bank.com"};
    EXPECT_TRUE(MayCrossSites("other.org", "login.bank.com", sites));
    EXPECT_TRUE(MayCrossSites("www.bank.com", "sign-in.net", sites));
    EXPECT_FALSE(MayCrossSites("other.org", "sign-in.net", sites));
    EXPECT_FALSE(MayCrossSites("other.org", "notbank.com", sites));
    EXPECT_FALSE(MayCrossSites("bank.com", "other.org", {}));
}

} // namespace
} // namespace tallowmere
