#include "core/text/latin_fold.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(LatinFold, MakesLatinLettersSmallAndMovesNothing) {
    struct Case {
        std::string_view text, folded;
    };
    for (const Case& c : {Case{"", ""},
                          {"MSFT z", "msft z"},
                          {"@[`{AZ", "@[`{az"},
                          {"K\u00DCRZEL \u00C0\u00DE", "k\u00FCrzel \u00E0\u00FE"},
                          {"\u00D7\u00F7\u00DF", "\u00D7\u00F7\u00DF"},
                          {"\u0104\u0139\u014A\u0178\u0179", "\u0105\u013A\u014B\u00FF\u017A"},
                          {"\u0105\u013A\u014B\u017A\u017F", "\u0105\u013A\u014B\u017A\u017F"},
                          {"\u0130\u0131\u0138", "\u0130\u0131\u0138"},
                          {"\u0391\u0410\u4E2D", "\u0391\u0410\u4E2D"},
                          {"\xC3", "\xC3"},
                          {"\xC3Z\xFF\x80", "\xC3z\xFF\x80"}})
        EXPECT_EQ(FoldLatin(c.text), c.folded) << c.text;
}

} // namespace
} // namespace tallowmere
