#include "core/links/type_ahead.h"

#include <gtest/gtest.h>
#include <vector>

namespace tallowmere {
namespace {

const std::vector<std::string> kEntries{"Bloomberg",      "CBOE",    "CBOT",    "Market Guide",
                                        "Morgan Stanley", "S&P 500", "3 Months"};

TEST(TypeAhead, ALetterLeadsToTheNextEntryThatBeginsWithIt) {
    TypeAhead typed;
    EXPECT_EQ(typed.Type("c", 100, kEntries, std::nullopt), 1u);
    EXPECT_EQ(typed.Type("c", 100.5, kEntries, 1), 2u);
    EXPECT_EQ(typed.Type("c", 101, kEntries, 2), 1u) << "from the last one back to the first";
}

TEST(TypeAhead, FurtherLettersWithinASecondNarrowTheSearch) {
    TypeAhead typed;
    EXPECT_EQ(typed.Type("m", 100, kEntries, std::nullopt), 3u);
    EXPECT_EQ(typed.Type("a", 100.5, kEntries, 3), 3u) << "it may stay where it is";
    TypeAhead other;
    EXPECT_EQ(other.Type("M", 100, kEntries, std::nullopt), 3u);
    EXPECT_EQ(other.Type("O", 101, kEntries, 3), 4u);
}

TEST(TypeAhead, AfterALongerPauseAWordBegins) {
    TypeAhead typed;
    EXPECT_EQ(typed.Type("m", 100, kEntries, std::nullopt), 3u);
    EXPECT_EQ(typed.Type("c", 101.5, kEntries, 3), 1u);
}

TEST(TypeAhead, AClockThatWasSetBackBeginsAWordToo) {
    TypeAhead typed;
    EXPECT_EQ(typed.Type("m", 86399.9, kEntries, std::nullopt), 3u);
    EXPECT_EQ(typed.Type("b", 0.2, kEntries, 3), 0u);
}

TEST(TypeAhead, BlanksDigitsAndSignsAreSearchedForToo) {
    TypeAhead typed;
    std::optional<std::size_t> at;
    for (const std::string_view key : {"s", "&", "p", " ", "5"})
        at = typed.Type(key, 100, kEntries, at);
    EXPECT_EQ(at, 5u);
    EXPECT_EQ(typed.Type("3", 200, kEntries, at), 6u);
}

TEST(TypeAhead, WhatNoEntryBeginsWithLeadsNowhere) {
    TypeAhead typed;
    EXPECT_EQ(typed.Type("z", 100, kEntries, 2), std::nullopt);
    EXPECT_EQ(typed.Type("c", 100, {}, std::nullopt), std::nullopt);
}

} // namespace
} // namespace tallowmere
