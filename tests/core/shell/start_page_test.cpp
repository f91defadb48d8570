#include "core/shell/start_page.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(StartPageValue, TheLetterBMeansTheSecondPane) {
    const auto page = ReadStartPage("Bhttp://broker.test/");
    ASSERT_TRUE(page);
    EXPECT_TRUE(page->inSecondPane);
    EXPECT_EQ(page->address, "http://broker.test/");
}

TEST(StartPageValue, AnyOtherLetterMeansTheFirstPane) {
    for (const std::string_view letter : {"A", "b", "C", "h", " "}) {
        const auto page = ReadStartPage(std::string(letter) + "http://news.test/");
        ASSERT_TRUE(page);
        EXPECT_FALSE(page->inSecondPane) << letter;
        EXPECT_EQ(page->address, "http://news.test/") << letter;
    }
}

TEST(StartPageValue, AnEmptyValueIsNoPage) {
    EXPECT_FALSE(ReadStartPage(""));
}

TEST(StartPageValue, ALetterAloneHasNoAddress) {
    ASSERT_TRUE(ReadStartPage("B"));
    EXPECT_EQ(ReadStartPage("B")->address, "");
}

TEST(StartPageValue, WhatIsSavedReadsBack) {
    EXPECT_EQ(StartPageValue({true, "http://broker.test/"}), "Bhttp://broker.test/");
    EXPECT_EQ(StartPageValue({false, "http://news.test/"}), "Ahttp://news.test/");
}

} // namespace
} // namespace tallowmere
