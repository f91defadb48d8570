#include "core/text/toml.h"

#include "core/text/runtime_error.h"

#include <gmock/gmock.h>

#include <string>

namespace tallowmere {
namespace {

std::string ErrorOf(std::string_view text) {
    try {
        ParseToml(text, "my.toml");
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return {};
}

// Each of these meets an assertion of some version of the parser, or its table of blanks.
TEST(Toml, NamesFileAndLineOfWhatItCannotRead) {
    for (const char* line : {"[?]",
                             "[",
                             "[[?]]",
                             "=",
                             "a",
                             "a =",
                             "a = ?",
                             "a = 1_",
                             "a = 0x",
                             "a = \"\\q\"",
                             "a = 'open",
                             "a = {",
                             "a = {b",
                             "a = [1",
                             "a.b. = 1",
                             "a = 2020-13-01",
                             "a = +",
                             "a = \x01",
                             "\xEF\xBB\x86 = 1",
                             "a = \xEF\xBB\xBE",
                             "a = \xFF"})
        EXPECT_THAT(ErrorOf("first = 1\n" + std::string(line)), testing::StartsWith("my.toml:2: "))
            << line;
}

TEST(Toml, ReadsLettersBeyondTheTableOfBlanks) {
    const auto table = ParseToml("'\xEF\xBB\x86' = '\xEF\xBB\xBE' # \xEF\xBB\xB0", "my.toml");
    EXPECT_EQ(table["\xEF\xBB\x86"].value_or(""), std::string("\xEF\xBB\xBE"));
}

TEST(Toml, LeavesOutCommentsAndKeepsLines) {
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"# all of it", ""},
        {"# one\n\n  # two\na = 1", "\n\n\na = 1"},
        {"a = 1 # one\nb = 2\t#two\n", "a = 1\nb = 2\n"},
        {"a = 1 # one\r\nb = 2\r\n", "a = 1\nb = 2\r\n"},
        {"a = \"#1\" # \"one\"", "a = \"#1\""},
        {"a = '#1\\' # 'one'", "a = '#1\\'"},
        {"a = \"\\\"#\" #", "a = \"\\\"#\""},
        {"a = \"it's\" # isn't", "a = \"it's\""},
        {"\"#\" = 1", "\"#\" = 1"},
        // What is no TOML is to be found.
        {"a = \"open # 1", "a = \"open # 1"},
        {"a = 1 # \x01", "a = 1 # \x01"},
        {"a = 1 # \xC3\xA4", "a = 1 # \xC3\xA4"},
        {"a = 1 # \xFF", "a = 1 # \xFF"},
        {"a = 1 # x\r", "a = 1 # x\r"},
        {"a = 1\r# x\n", "a = 1\r# x\n"},
        // Here a line does not say by itself whether it is in a string.
        {"a = \"\"\"\n# no comment\n\"\"\"", "a = \"\"\"\n# no comment\n\"\"\""},
        {"a = '''\n# no comment\n''' # one", "a = '''\n# no comment\n''' # one"},
    };
    for (const auto& [text, bare] : cases)
        EXPECT_EQ(WithoutComments(text), bare) << text;
}

TEST(Toml, NamesTheLineBehindComments) {
    EXPECT_THAT(ErrorOf("# one\n\na = 1 # two\nb = ?"), testing::StartsWith("my.toml:4: "));
    EXPECT_THAT(ErrorOf("a = 1 # \xFF"), testing::StartsWith("my.toml:1: "));
}

TEST(Toml, RefusesAHugeText) {
    const std::string huge(4U * 1024 * 1024 + 1, '#');
    EXPECT_EQ(ErrorOf(huge), "my.toml:1: the file is larger than 4 MB");
    EXPECT_EQ(ErrorOf(huge.substr(1)), "");
}

} // namespace
} // namespace tallowmere
