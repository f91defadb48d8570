#include "core/portfolio/undo_words.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using Tickers = std::vector<std::string>;

TEST(UndoWords, ACommandIsCalledByItsTickerOrByTheirNumber) {
    EXPECT_EQ(AddCaption({"AMD"}), "Add AMD");
    EXPECT_EQ(AddCaption({"AMD", "IBM"}), "Add 2 Tickers");
    EXPECT_EQ(AddCaption({}), "Change Tickers");
}

TEST(UndoWords, AListThatIsWrittenLateIsCalledByWhatWasAdded) {
    struct Case {
        Tickers stored, listed;
        const char* caption;
    };
    const Case cases[] = {
        {{"AOL"}, {"AOL", "AMD"}, "Add AMD"},
        {{" AOL"}, {"AOL", "AMD", "IBM"}, "Add 2 Tickers"},
        {{}, {"AMD"}, "Add AMD"},
        {{"AOL"}, {"AMD"}, "Change Tickers"},
        {{"AOL", "AMD"}, {"AOL"}, "Change Tickers"},
        {{"AOL", "AMD"}, {"AMD", "AOL", "IBM"}, "Change Tickers"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ListChangeCaption(c.stored, c.listed), c.caption);
}

TEST(UndoWords, WhatWasRemovedIsNamed) {
    EXPECT_EQ(TickerRemoved("AMD", false), "AMD removed.");
    EXPECT_EQ(TickerRemoved("AMD", true), "AMD and its note removed.");
    EXPECT_EQ(TickersRemoved(12, "Tech"), "12 tickers of \"Tech\" removed.");
    EXPECT_EQ(TickersRemoved(1, "Portfolio #1"), "1 ticker of \"Portfolio #1\" removed.");
}

TEST(UndoWords, TheQuestionNamesThePortfolioAndHowManyTickersGo) {
    EXPECT_EQ(ClearQuestion(12, 3, "Tech"),
              "Clear Stock List?\n12 tickers in portfolio #3, \"Tech\".");
    EXPECT_EQ(ClearQuestion(1, 1, "R&D"), "Clear Stock List?\n1 ticker in portfolio #1, \"R&D\".");
    EXPECT_EQ(ClearQuestion(0, 2, "Portfolio #2"),
              "Clear Stock List?\n0 tickers in portfolio #2, \"Portfolio #2\".");
}

} // namespace
} // namespace tallowmere
