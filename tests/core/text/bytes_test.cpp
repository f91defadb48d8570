#include "core/text/bytes.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(Bytes, CountsOverlappingOccurrences) {
    struct Case {
        std::string_view text, pattern;
        std::size_t count;
    };
    for (const Case& c :
         {Case{"abab", "ab", 2}, {"ABAB", "ab", 0}, {"aaa", "aa", 2}, {"", "a", 0}, {"a", "", 0}})
        EXPECT_EQ(CountOccurrences(c.text, c.pattern), c.count) << c.text << " / " << c.pattern;
}

TEST(Bytes, ChangesTheCaseOfAsciiLettersOnly) {
    EXPECT_EQ(ToLower("AZ[\xC3\x84"), "az[\xC3\x84");
    EXPECT_EQ(ToUpper("az{\xC3\xA4"), "AZ{\xC3\xA4");
}

TEST(Bytes, TrimsBlanksButNoTabs) {
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("\ta "), "\ta");
    EXPECT_EQ(Trim("   "), "");
}

TEST(Bytes, ReplacesEveryOccurrenceOnce) {
    EXPECT_EQ(ReplaceAll("a|b|", "|", ", "), "a, b, ");
    EXPECT_EQ(ReplaceAll("aaa", "aa", "a"), "aa");
    EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(ReplaceAll("", "a", "x"), "");
}

TEST(Bytes, SplitsAtEverySeparator) {
    EXPECT_EQ(Split("a||b", '|'), (std::vector<std::string_view>{"a", "", "b"}));
    EXPECT_EQ(Split("", '|'), (std::vector<std::string_view>{""}));
}

TEST(Bytes, EscapesWhatHtmlWouldRead) {
    EXPECT_EQ(EscapeHtml("<a href=\"x\">R&D's</a>"),
              "&lt;a href=&quot;x&quot;&gt;R&amp;D&#39;s&lt;/a&gt;");
}

TEST(Bytes, UnescapesWhatItEscapes) {
    const std::string text = "<a href=\"x\">R&D's &amp; &lt;</a>";
    EXPECT_EQ(UnescapeHtml(EscapeHtml(text)), text);
    EXPECT_EQ(UnescapeHtml("&amp;lt; &nbsp;&copy &;&"), "&lt; &nbsp;&copy &;&");
    EXPECT_EQ(UnescapeHtml(""), "");
}

TEST(Bytes, PercentEncodesAndDecodes) {
    EXPECT_EQ(PercentEncode("BRK.B ^A/\xC3"), "BRK.B%20%5EA%2F%C3");
    EXPECT_EQ(PercentDecode("BRK.B%20%5ea%2F%C3"), "BRK.B ^a/\xC3");
    EXPECT_EQ(PercentDecode("100%"), "100%");
    EXPECT_EQ(PercentDecode("%4"), "%4");
    EXPECT_EQ(PercentDecode("%zz"), "%zz");
}

TEST(Bytes, ACursorStaysWhereItIsWithoutAMark) {
    Cursor cursor("key=value;rest");
    std::string_view piece;
    ASSERT_TRUE(cursor.ReadUpTo("=", piece));
    EXPECT_EQ(piece, "key");
    EXPECT_FALSE(cursor.SkipPast("#"));
    ASSERT_TRUE(cursor.SkipPast(";"));
    EXPECT_EQ(cursor.Rest(), "rest");
    cursor.Skip(99);
    EXPECT_TRUE(cursor.AtEnd());
}

} // namespace
} // namespace tallowmere
