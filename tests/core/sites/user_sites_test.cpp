#include "core/sites/site_table.h"
#include "core/sites/user_sites.h"

#include "core/sites/site_resolver.h"
#include "shipped_files.h"

#include <gmock/gmock.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Base {
    SiteTable sites = SiteTable::Parse("[hosts]\n"
                                       "default = \"all.example\"\n"
                                       "zacks = \"zacks.example\"\n"
                                       "[programs]\n"
                                       "browser = \"one\"\n"
                                       "mail = \"post\"\n",
                                       "base.toml");
    TodayTable today = ReadTodayTable("[links]\n"
                                      "3 = \"https://three.example/{lower}\"\n"
                                      "15 = \"https://fifteen.example/{upper}\"\n"
                                      "[menus.mnuHisto]\n"
                                      "1 = \"https://days.example/{lower}\"\n",
                                      "base.toml");

    OverriddenSites With(std::string_view text) const {
        return OverrideSites(sites, today, text, "mine.toml");
    }
};

std::string Today(const OverriddenSites& tables, std::string_view key) {
    const auto found = tables.today.addresses.find(key);
    return found == tables.today.addresses.end() ? "none" : found->second;
}

TEST(UserSites, OverrideSingleRowsAndLeaveTheOthers) {
    const auto tables = Base().With("# mine\n"
                                    "[hosts]\n"
                                    "zacks = \"https://localhost:8443/z\" # moved\n"
                                    "[programs]\n"
                                    "browser = \"two --new\"\n"
                                    "[links]\n"
                                    "3 = \"http://new.example/{first}/{yahoo}\"\n"
                                    "187 = \"portal:\"\n"
                                    "[menus]\n"
                                    "mnuHisto.2 = \"https://sixty.example/\"\n"
                                    "mnuAVLink.3 = \"https://tv.example/\"\n");
    EXPECT_TRUE(tables.isReadable);
    EXPECT_THAT(tables.problems, IsEmpty());
    EXPECT_EQ(tables.sites.Host("zacks"), "https://localhost:8443/z");
    EXPECT_EQ(tables.sites.Host("quote"), "all.example");
    EXPECT_EQ(tables.sites.Program("browser"), "two --new");
    EXPECT_EQ(tables.sites.Program("mail"), "post");
    EXPECT_EQ(Today(tables, "3"), "http://new.example/{first}/{yahoo}");
    EXPECT_EQ(Today(tables, "15"), "https://fifteen.example/{upper}");
    EXPECT_EQ(Today(tables, "187"), "portal:");
    EXPECT_EQ(Today(tables, "mnuHisto.1"), "https://days.example/{lower}");
    EXPECT_EQ(Today(tables, "mnuHisto.2"), "https://sixty.example/");
    EXPECT_EQ(Today(tables, "mnuAVLink.3"), "https://tv.example/");
}

TEST(UserSites, ChangeNothingWithoutRows) {
    for (const std::string_view text :
         {"", "\n", "# nothing yet\r\n", "[hosts]\n[links]\n", "\xEF\xBB\xBF[menus]\n"}) {
        const auto tables = Base().With(text);
        EXPECT_TRUE(tables.isReadable) << text;
        EXPECT_THAT(tables.problems, IsEmpty()) << text;
        EXPECT_EQ(tables.sites.Hosts(), Base().sites.Hosts());
        EXPECT_EQ(tables.today.addresses, Base().today.addresses);
    }
}

TEST(UserSites, TakeAnAddressOfTodayAwayWithAnEmptyRow) {
    const auto tables = Base().With("[links]\n3 = \"\"\n");
    EXPECT_THAT(tables.problems, IsEmpty());
    const SiteResolver resolver(tables.sites, {}, tables.today);
    EXPECT_EQ(resolver.Resolve("all.example/q?s=msft&d=2b", AddressUse::Page), std::nullopt);
}

TEST(UserSites, NameTheLineOfAWrongRowAndLeaveOutThatRowAlone) {
    struct Case {
        std::string_view row, problem;
    };
    for (const Case& c : {
             Case{"[hosts]\nzaks = \"z.example\"", "3: \"zaks\" in [hosts] is not known"},
             {"[hosts]\nquote = 7", "3: \"quote\" in [hosts] is not a text in quotes"},
             {"[hosts]\nquote = \"a b\"", "3: \"quote\" in [hosts] holds no host"},
             {"[hosts]\nquote = \"\"", "3: \"quote\" in [hosts] holds no host"},
             {"[programs]\npager = \"less\"", "3: \"pager\" in [programs] is not known"},
             {"[programs]\nmail = [1]", "3: \"mail\" in [programs] is not a text in quotes"},
             {"[programs]\nmail = \"a\\tb\"",
              "3: \"mail\" in [programs] holds a control character"},
             {"[links]\n16 = \"ftp://x.example/\"", "3: \"16\" is no http or https address"},
             {"[links]\n16 = \"x.example/{upper}\"", "3: \"16\" is no http or https address"},
             {"[links]\n16 = \"javascript:alert(1)\"", "3: \"16\" is no http or https address"},
             {"[links]\n16 = \"https://x.example/{tick}\"",
              "3: \"16\" has a field that is not known"},
             {"[links]\n16 = true", "3: \"16\" is not an address in quotes"},
             {"[links]\n016 = \"https://x.example/\"", "3: there is no page \"016\""},
             {"[links]\n218 = \"https://x.example/\"", "3: there is no page \"218\""},
             {"[links]\n0 = \"https://x.example/\"", "3: there is no page \"0\""},
             {"[links]\n101 = \"https://x.example/\"", "3: there is no page \"101\""},
             {"[menus.mnuHisto]\n6 = \"https://x.example/\"", "3: there is no page \"mnuHisto.6\""},
             {"[menus]\nmnuHisto = \"https://x.example/\"", "3: \"mnuHisto\" is not a table"},
             {"\nlinks = 3", "3: \"links\" is not a table"},
             {"\n[link]\n16 = \"https://x.example/\"", "3: there is no table \"link\""},
         }) {
        const std::string text =
            "\n" + std::string(c.row) + "\n[menus.mnuCals]\n1 = \"https://good.example/\"\n";
        const auto tables = Base().With(text);
        EXPECT_TRUE(tables.isReadable) << text;
        EXPECT_THAT(tables.problems, ElementsAre("mine.toml:" + std::string(c.problem))) << text;
        EXPECT_EQ(Today(tables, "mnuCals.1"), "https://good.example/") << text;
        EXPECT_EQ(tables.sites.Hosts(), Base().sites.Hosts()) << text;
        EXPECT_EQ(tables.sites.Program("mail"), "post") << text;
        EXPECT_EQ(Today(tables, "16"), "none") << text;
    }
}

TEST(UserSites, TellSeveralProblemsInTheOrderOfTheirLines) {
    const auto tables = Base().With("[links]\n"
                                    "3 = 1\n"
                                    "this is no row\n"
                                    "15 = \"https://good.example/\"\n"
                                    "[hosts]\n"
                                    "nobody = \"x.example\"\n"
                                    "zacks = \"unclosed\n"
                                    "zacks = \"mine.example\"\n");
    std::vector<std::string> places;
    for (const std::string& problem : tables.problems)
        places.push_back(problem.substr(0, problem.find(": ")));
    EXPECT_THAT(places, ElementsAre("mine.toml:2", "mine.toml:3", "mine.toml:6", "mine.toml:7"));
    EXPECT_EQ(Today(tables, "15"), "https://good.example/");
    EXPECT_EQ(tables.sites.Host("zacks"), "mine.example");
}

TEST(UserSites, AreUnreadableWhenNothingInTheFileIsATable) {
    for (const std::string& text :
         {std::string("<html><body>Not found</body></html>\n"), std::string("\0\1\2", 3),
          std::string("one\ntwo\nthree\n"), std::string("\xFF\xFE[\0l\0", 6)}) {
        const auto tables = Base().With(text);
        EXPECT_FALSE(tables.isReadable) << text;
        ASSERT_FALSE(tables.problems.empty()) << text;
        EXPECT_TRUE(tables.problems.front().starts_with("mine.toml:1: ")) << text;
    }
    EXPECT_FALSE(Base().With(std::string(2U << 20, '#')).isReadable);
}

TEST(UserSites, LeadAddressesThatWereStoredWithTheOldHost) {
    const Base base;
    const auto tables = base.With("[hosts]\nzacks = \"new.example\"\n");
    const std::vector<SiteTable> earlier{base.sites};
    const SiteResolver resolver(tables.sites, {}, tables.today, earlier);
    for (const char* host : {"new.example", "zacks.example"})
        EXPECT_EQ(
            resolver.Resolve(std::string(host) + "/cgi-bin/AW/DoInquiry.zcom?ticker=MSFT&type=100",
                             AddressUse::Page),
            "https://fifteen.example/MSFT")
            << host;
}

TEST(UserSites, MayBeTheShippedFileItself) {
    const SiteTable sites = ShippedSites();
    const TodayTable today = ReadTodayTable(ShippedFile("sites.toml"), "sites.toml");
    const auto tables = OverrideSites(sites, today, ShippedFile("sites.toml"), "mine.toml");
    EXPECT_THAT(tables.problems, IsEmpty());
    EXPECT_EQ(tables.sites.Hosts(), sites.Hosts());
    EXPECT_EQ(tables.today.addresses, today.addresses);
}

} // namespace
} // namespace tallowmere
