#include "core/shell/closing_tag.h"

#include <gtest/gtest.h>

#include <string>

namespace tallowmere {
namespace {

struct TagCase {
    std::string_view text;
    bool isFound;
    bool isAtEnd;
};

// clang-format off
constexpr TagCase kCases[] = {
    {"",                            false, false},
    {"<html><body>x</body>",        false, false},
    {"<html>x</html>",              true,  true},
    {"<HTML>x</HTML>",              true,  true},
    {"x</hTmL> \r\n\t ",            true,  true},
    {"x</html><!-- more -->",       true,  false},
    {"x</html>y</html>",            true,  true},
    {"x</html >",                   false, false},
    {"x</htm",                      false, false},
    {"x//html>",                    true,  true},
    {"/ht/html>",                   true,  true},
    {"/html/",                      false, false},
};
// clang-format on

TEST(ClosingTagWatch, FindsTheTagInAnyCaseAndKnowsWhetherItIsTheEnd) {
    for (const TagCase& row : kCases) {
        ClosingTagWatch watch;
        watch.Add(row.text);
        EXPECT_EQ(watch.IsFound(), row.isFound) << row.text;
        EXPECT_EQ(watch.IsAtEnd(), row.isAtEnd) << row.text;
    }
}

TEST(ClosingTagWatch, SeesTheSameHoweverThePageIsCutIntoPieces) {
    for (const TagCase& row : kCases)
        for (std::size_t size = 1; size <= row.text.size(); ++size) {
            ClosingTagWatch watch;
            for (std::size_t at = 0; at < row.text.size(); at += size)
                watch.Add(row.text.substr(at, size));
            EXPECT_EQ(watch.IsFound(), row.isFound) << row.text << " by " << size;
            EXPECT_EQ(watch.IsAtEnd(), row.isAtEnd) << row.text << " by " << size;
        }
}

} // namespace
} // namespace tallowmere
