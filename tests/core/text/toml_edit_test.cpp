#include "core/text/toml_edit.h"

#include "core/text/runtime_error.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(TomlEdit, WritesARowAndKeepsAllElse) {
    struct Case {
        std::string_view before, table, key, after;
    };
    for (const Case& c : {
             Case{"", "links", "3", "[links]\n3 = \"new\"\n"},
             {"# mine", "links", "3", "# mine\n\n[links]\n3 = \"new\"\n"},
             {"[links]\n3 = \"old\" # kept\n4='x'\n", "links", "3",
              "[links]\n3 = \"new\" # kept\n4='x'\n"},
             {"[links]\n  \"3\"='old'", "links", "3", "[links]\n  \"3\"=\"new\""},
             {"[links]\n3 = \"\"\"o\nld\"\"\" # k\n", "links", "3", "[links]\n3 = \"new\" # k\n"},
             {"[links]\n3 = 7\n", "links", "3", "[links]\n3 = \"new\"\n"},
             {"[links]\n15 = \"a\" # one\n\n# about the next\n[hosts]\nz = \"h\"\n", "links", "3",
              "[links]\n15 = \"a\" # one\n3 = \"new\"\n\n# about the next\n[hosts]\nz = \"h\"\n"},
             {"[links]\n[hosts]\n", "links", "3", "[links]\n3 = \"new\"\n[hosts]\n"},
             {"[links]", "links", "3", "[links]\n3 = \"new\"\n"},
             {"[links]\r\n15 = \"a\"\r\n", "links", "3",
              "[links]\r\n15 = \"a\"\r\n3 = \"new\"\r\n"},
             {"[links]\n15 = \"\xC3\xA9\"; x\n3 = \"\xC3\xA9\xC3\xA9\" # \xC3\xA9\n", "links", "3",
              "[links]\n15 = \"\xC3\xA9\"; x\n3 = \"new\" # \xC3\xA9\n"},
             {"links.3 = \"old\"\n", "links", "3", "links.3 = \"new\"\n"},
             {"[links]\nwhat is this\n3 = \"old\"\n", "links", "3",
              "[links]\nwhat is this\n3 = \"new\"\n"},
             {"[menus.mnuB]\n1 = \"a\"\n", "menus.mnuB", "2",
              "[menus.mnuB]\n1 = \"a\"\n2 = \"new\"\n"},
             {"[menus.mnuB]\n1 = \"a\"\n", "menus.mnuC", "2",
              "[menus.mnuB]\n1 = \"a\"\n\n[menus.mnuC]\n2 = \"new\"\n"},
             {"[menus]\nmnuB.1 = \"a\"\n", "menus.mnuB", "1", "[menus]\nmnuB.1 = \"new\"\n"},
             {"\xEF\xBB\xBF[links]\n3 = \"old\"\n", "links", "3",
              "\xEF\xBB\xBF[links]\n3 = \"new\"\n"},
         })
        EXPECT_EQ(SetTomlRow(c.before, c.table, c.key, "new"), c.after) << c.before;
}

TEST(TomlEdit, EscapesWhatWouldEndTheText) {
    EXPECT_EQ(SetTomlRow("", "links", "3", "a\"b\\c"), "[links]\n3 = \"a\\\"b\\\\c\"\n");
    EXPECT_THROW(SetTomlRow("", "links", "3", "a\nb"), RuntimeError);
}

TEST(TomlEdit, TakesARowOutWithItsComment) {
    struct Case {
        std::string_view before, after;
    };
    for (const Case& c : {
             Case{"[links]\n3 = \"a\" # mine\n4 = \"b\"\n", "[links]\n4 = \"b\"\n"},
             {"# top\n[links]\n3 = \"a\"", "# top\n[links]\n"},
             {"[links]\n3 = '''a\nb'''\n4 = \"b\"\n", "[links]\n4 = \"b\"\n"},
             {"[links]\n4 = \"b\"\n", "[links]\n4 = \"b\"\n"},
             {"", ""},
         })
        EXPECT_EQ(RemoveTomlRow(c.before, "links", "3"), c.after) << c.before;
}

TEST(TomlEdit, RefusesWhatItCannotChangeWithoutDamage) {
    for (const std::string_view text : {
             "<html>\n",
             "no table\n",
             "links = 3\n",
             "links = { 15 = \"a\" }\n",
             "[[links]]\n15 = \"a\"\n",
             "[links.3]\nx = \"a\"\n[links.4]\n",
         })
        EXPECT_THROW(SetTomlRow(text, "links", "3", "new"), RuntimeError) << text;
    EXPECT_THROW(SetTomlRow("[menus]\nmnuB.1 = \"a\"\n", "menus.mnuB", "2", "new"), RuntimeError);
    EXPECT_THROW(RemoveTomlRow("links = { 3 = \"a\", 4 = \"b\" }\n", "links", "3"), RuntimeError);
}

} // namespace
} // namespace tallowmere
