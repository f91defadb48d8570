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

TEST(Toml, RefusesAHugeText) {
    const std::string huge(4U * 1024 * 1024 + 1, '#');
    EXPECT_EQ(ErrorOf(huge), "my.toml:1: the file is larger than 4 MB");
    EXPECT_EQ(ErrorOf(huge.substr(1)), "");
}

} // namespace
} // namespace tallowmere
