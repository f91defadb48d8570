#include "core/text/rare_byte_search.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace tallowmere {
namespace {

TEST(RareByteSearch, FindsTheFirstPlaceFromAPositionOn) {
    const std::string_view page = "<td><b>a</b></td><td>b</td>";
    const Pattern cellEnd("</td>", ByteSample(page));
    EXPECT_EQ(cellEnd.FindIn(page), 12u);
    EXPECT_EQ(cellEnd.FindIn(page, 12), 12u);
    EXPECT_EQ(cellEnd.FindIn(page, 13), 22u);
    EXPECT_EQ(cellEnd.FindIn(page, 23), std::string_view::npos);
    EXPECT_EQ(cellEnd.FindIn(page, 1000), std::string_view::npos);
    EXPECT_EQ(cellEnd.FindIn("</td"), std::string_view::npos);
    EXPECT_EQ(cellEnd.FindIn(""), std::string_view::npos);
}

TEST(RareByteSearch, FindsWhatAPlainSearchFindsWhateverTheSample) {
    std::mt19937 random(7);
    const auto anyText = [&](std::size_t longest) {
        std::string text(random() % (longest + 1), ' ');
        for (char& byte : text)
            byte = "ab<\xFF"[random() % 4];
        return text;
    };
    for (int round = 0; round < 20000; ++round) {
        const std::string page = anyText(40);
        const std::string text = anyText(3) + 'a';
        const Pattern pattern(text, ByteSample(anyText(40)));
        for (std::size_t from = 0; from < page.size() + 2; ++from)
            ASSERT_EQ(pattern.FindIn(page, from), page.find(text, from)) << page << " / " << text;
    }
}

} // namespace
} // namespace tallowmere
