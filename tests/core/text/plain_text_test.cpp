#include "core/text/plain_text.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using namespace std::string_view_literals;

struct HiddenCase {
    std::string_view text;
    std::string_view plain;
    std::string_view lines;
};

// clang-format off
constexpr HiddenCase kHiddenCases[] = {
    {"",                                       "",             ""},
    {"plain caf\xC3\xA9 \xF0\x9F\x98\x80",     "plain caf\xC3\xA9 \xF0\x9F\x98\x80", "plain caf\xC3\xA9 \xF0\x9F\x98\x80"},
    {"a\0b\x07" "c\x7F" "d"sv,                 "abcd",         "abcd"},
    {"a\r\nb\nc\rd\te",                        "abcde",        "a\nb\nc\nde"},
    {"a\xC2\x85" "b",                          "ab",           "ab"},         // a control above ASCII
    {"fdp\xE2\x80\xAE" "exe",                  "fdpexe",       "fdpexe"},     // right-to-left override
    {"a\xE2\x81\xA6" "b\xE2\x81\xA9" "c",      "abc",          "abc"},        // isolates
    {"a\xE2\x80\x8B" "b\xEF\xBB\xBF" "c",      "abc",          "abc"},        // no width
    {"a\xD8\x9C" "b",                          "ab",           "ab"},         // Arabic letter mark
    {"a\xF3\xA0\x81\x81" "b",                  "ab",           "ab"},         // a tag
    {"a\xF3\xA0\x84\x80" "b",                  "ab",           "ab"},         // a selector
    {"a\xE3\x85\xA4" "b\xE1\x85\x9F" "c",      "abc",          "abc"},        // fillers
    {"a\xCD\x8F" "b\xEF\xBF\xB0" "c",          "abc",          "abc"},        // no width either
    {"\xE9t\xE9",                              "?t?",          "?t?"},        // no UTF-8
    {"\xC0\xAF" "x\xE2\x80",                   "??x??",        "??x??"},      // overlong; cut short
    {"\xED\xA0\x80" "x",                       "???x",         "???x"},       // a surrogate
    {"\xF4\x90\x80\x80",                       "????",         "????"},       // beyond the last character
};
// clang-format on

TEST(PlainText, HoldsNothingThatIsNotSeen) {
    for (const HiddenCase& row : kHiddenCases) {
        EXPECT_EQ(WithoutHiddenCharacters(row.text, '?'), row.plain);
        EXPECT_EQ(WithoutHiddenCharacters(row.text, '?', true), row.lines);
    }
}

TEST(PlainText, IsNeverCutInsideACharacter) {
    EXPECT_EQ(FrontOf("abc", 3), "abc");
    EXPECT_EQ(FrontOf("abc", 2), "ab");
    EXPECT_EQ(FrontOf("a\xC3\xA9", 2), "a");
    EXPECT_EQ(FrontOf("a\xC3\xA9"
                      "b",
                      3),
              "a\xC3\xA9");
    EXPECT_EQ(FrontOf("\xF0\x9F\x98\x80", 3), "");
}

} // namespace
} // namespace tallowmere
