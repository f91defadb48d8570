#include "core/sites/site_table.h"

#include "core/text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

std::string ErrorOf(std::string_view text) {
    try {
        SiteTable::Parse(text, "my sites.toml");
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return "no error";
}

TEST(SiteTable, GivesTheHostOfASiteElseTheDefault) {
    const auto sites = SiteTable::Parse("[hosts]\n"
                                        "default = \"portal.example\"\n"
                                        "quote = \"quote.example:8080/x\"\n"
                                        "silent = \"\"\n",
                                        "sites.toml");
    EXPECT_EQ(sites.Host("quote"), "quote.example:8080/x");
    EXPECT_EQ(sites.Host("other"), "portal.example");
    EXPECT_EQ(sites.Host("silent"), "");
    EXPECT_EQ(sites.Host("Quote"), "portal.example") << "keys are told apart by case";
    EXPECT_EQ(sites.Address("quote", "/q?s=msft"), "quote.example:8080/x/q?s=msft");
    EXPECT_EQ(sites.Hosts().size(), 3U);
}

TEST(SiteTable, IsEmptyWithoutTables) {
    const auto sites = SiteTable::Parse("# nothing yet\n", "sites.toml");
    EXPECT_EQ(sites.Host("quote"), "");
    EXPECT_EQ(sites.Address("quote", "/q"), "/q");
    EXPECT_EQ(sites.Program("mail"), "");
    EXPECT_TRUE(sites.Hosts().empty());
}

TEST(SiteTable, GivesTheCommandsOfPrograms) {
    const auto sites =
        SiteTable::Parse("[programs]\ncalculator = \"qalc --gui\"\nmail = \"\"\n", "sites.toml");
    EXPECT_EQ(sites.Program("calculator"), "qalc --gui");
    EXPECT_EQ(sites.Program("mail"), "");
    EXPECT_EQ(sites.Program("browser"), "");
}

TEST(SiteTable, LeavesTheTablesOfOthersAlone) {
    const auto sites = SiteTable::Parse(
        "[links]\n3 = \"https://x.example/{upper}\"\n[menus.a]\nb = [1]\n[sources]\n", "f");
    EXPECT_TRUE(sites.Hosts().empty());
}

TEST(SiteTable, NamesFileAndLineOfASyntaxError) {
    EXPECT_THAT(ErrorOf("[hosts]\nquote = \"a\"\nbiz = \n"),
                testing::StartsWith("my sites.toml:3: "));
    EXPECT_THAT(ErrorOf("[hosts]\nquote = \"a\"\nquote = \"b\"\n"),
                testing::StartsWith("my sites.toml:3: "));
    EXPECT_THAT(ErrorOf("\n[?]\n"), testing::StartsWith("my sites.toml:2: "));
    EXPECT_THAT(ErrorOf("\xEF\xBB\xB5[hosts]\n"), testing::StartsWith("my sites.toml:1: "));
    EXPECT_THAT(ErrorOf("[hosts\n"), testing::StartsWith("my sites.toml:1: "));
    EXPECT_THAT(ErrorOf(std::string_view("\0\0", 2)), testing::StartsWith("my sites.toml:1: "));
    EXPECT_THAT(ErrorOf("[hosts]\nq = \"\xFF\xFE\"\n"), testing::StartsWith("my sites.toml:2: "));
}

TEST(SiteTable, NamesFileAndLineOfAWrongEntry) {
    struct Case {
        std::string_view text, error;
    };
    for (const Case& c : {
             Case{"hosts = 3\n", "my sites.toml:1: \"hosts\" is not a table"},
             {"\n\nprograms = \"x\"\n", "my sites.toml:3: \"programs\" is not a table"},
             {"[hosts]\n[links]\n[sites]\n", "my sites.toml:3: unknown entry \"sites\""},
             {"color = 1\n", "my sites.toml:1: unknown entry \"color\""},
             {"[hosts]\n\nquote = 1\n",
              "my sites.toml:3: \"quote\" in [hosts] is not a text in quotes"},
             {"[programs]\nmail = [\"a\"]\n",
              "my sites.toml:2: \"mail\" in [programs] is not a text in quotes"},
             {"[hosts]\nbiz = \"a\"\nquote = \"a b\"\n",
              "my sites.toml:3: \"quote\" in [hosts] holds a blank or a control character"},
             {"[hosts]\nquote = \"a\\u0000b\"\n",
              "my sites.toml:2: \"quote\" in [hosts] holds a blank or a control character"},
             {"[programs]\n\nmail = \"a\\nb\"\n",
              "my sites.toml:3: \"mail\" in [programs] holds a control character"},
         })
        EXPECT_EQ(ErrorOf(c.text), c.error);
}

TEST(SiteTable, RefusesWhatIsTooLargeToBeATable) {
    EXPECT_THAT(ErrorOf(std::string(5U * 1024 * 1024, '#')),
                testing::StartsWith("my sites.toml:1: "));
}

TEST(SiteTable, RefusesDeepNestingWithoutFallingOver) {
    EXPECT_THAT(ErrorOf("a = " + std::string(100'000, '[')),
                testing::StartsWith("my sites.toml:1: "));
}

} // namespace
} // namespace tallowmere
