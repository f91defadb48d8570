#include "core/links/menu_table.h"

#include "core/text/runtime_error.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

std::string ErrorOf(std::string_view text) {
    try {
        MenuTable::Parse(text, "menus.toml");
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return "no error";
}

TEST(MenuTable, GivesTheAddressOfAnItem) {
    const MenuTable menus = MenuTable::Parse("[mnuTips]\n"
                                             "1 = \"https://one.test/\" # a note\n"
                                             "12 = \"http://twelve.test/a?b=c\"\n"
                                             "[mnuUTF]\n"
                                             "0 = \"HTTPS://taxes.test/\"\n",
                                             "menus.toml");
    EXPECT_EQ(menus.Address("mnuTips", 1), "https://one.test/");
    EXPECT_EQ(menus.Address("mnuTips", 12), "http://twelve.test/a?b=c");
    EXPECT_EQ(menus.Address("mnuUTF", 0), "HTTPS://taxes.test/");
    EXPECT_EQ(menus.Address("mnuTips", 2), "");
    EXPECT_EQ(menus.Address("mnuNone", 1), "");
    EXPECT_EQ(menus.All().size(), 3U);
}

TEST(MenuTable, AnEmptyFileHasNoAddresses) {
    EXPECT_TRUE(MenuTable::Parse("", "menus.toml").All().empty());
}

TEST(MenuTable, ErrorsNameFileAndLine) {
    EXPECT_TRUE(ErrorOf("[mnuTips]\n1 = \n").starts_with("menus.toml:2: "));
    EXPECT_TRUE(ErrorOf("[mnuTips]\n1 = \"http://a.test/\"\n1 = \"http://b.test/\"\n")
                    .starts_with("menus.toml:3: "));
    EXPECT_EQ(ErrorOf("\nmnuTips = 1\n"), "menus.toml:2: 'mnuTips' is no table");
    EXPECT_EQ(ErrorOf("[mnuTips]\nfirst = \"http://a.test/\"\n"),
              "menus.toml:2: 'first' is no index of an item");
    EXPECT_EQ(ErrorOf("[mnuTips]\n-1 = \"http://a.test/\"\n"),
              "menus.toml:2: '-1' is no index of an item");
    EXPECT_EQ(ErrorOf("[mnuTips]\n99999999999 = \"http://a.test/\"\n"),
              "menus.toml:2: '99999999999' is no index of an item");
    EXPECT_EQ(ErrorOf("[mnuTips]\n1 = 2\n"),
              "menus.toml:2: the address is no http or https address");
    EXPECT_EQ(ErrorOf("[mnuTips]\n\n1 = \"javascript:alert(1)\"\n"),
              "menus.toml:3: the address is no http or https address");
}

} // namespace
} // namespace tallowmere
