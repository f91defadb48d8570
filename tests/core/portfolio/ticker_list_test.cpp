#include "core/portfolio/ticker_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tickers = std::vector<std::string>;

TEST(TickerList, SplitsTheStoredForm) {
    EXPECT_THAT(SplitTickerList(""), IsEmpty());
    EXPECT_THAT(SplitTickerList("|"), ElementsAre(""));
    EXPECT_THAT(SplitTickerList("AOL|YHOO|MSFT|"), ElementsAre("AOL", "YHOO", "MSFT"));
    EXPECT_THAT(SplitTickerList("A||B|"), ElementsAre("A", "", "B"));
}

TEST(TickerList, ALastPieceWithoutItsBarIsATickerToo) {
    EXPECT_THAT(SplitTickerList("AAA|BBB"), ElementsAre("AAA", "BBB"));
    EXPECT_THAT(SplitTickerList("AAA"), ElementsAre("AAA"));
}

TEST(TickerList, JoinsTrimmedTickersEachWithItsBar) {
    EXPECT_EQ(JoinTickerList({}), "");
    EXPECT_EQ(JoinTickerList({"AOL", " YHOO ", "msft"}), "AOL|YHOO|msft|");
    EXPECT_EQ(JoinTickerList({""}), "|");
}

TEST(TickerEntry, AddsTheSymbolsBetweenBlanksAndCommas) {
    const TickerEntry entry = EnterTickers("ibm, msft  intc", {"AOL"});
    EXPECT_THAT(entry.added, ElementsAre("IBM", "MSFT", "INTC"));
    EXPECT_TRUE(entry.accepted);
}

TEST(TickerEntry, FollowsItsTableOfCases) {
    struct Case {
        std::string_view entry;
        Tickers list, added;
        bool accepted;
    };
    const Case cases[] = {
        {"msft", {}, {"MSFT"}, true},
        {" , msft ,, ", {}, {"MSFT"}, true},
        {"", {"A"}, {}, true},
        {" , ", {}, {}, true},
        {"", {""}, {}, false},
        {"ibm a", {"A"}, {"IBM"}, false},
        {"a ibm", {"A"}, {"IBM"}, true},
        {"ibm ibm", {}, {"IBM"}, false},
        {"ibm a ibm b", {}, {"IBM", "A", "B"}, true},
        {"msft", {"msft"}, {"MSFT"}, true},
        {"msft", {"MSFT "}, {"MSFT"}, true},
        {"a;b", {}, {"A", "B"}, true},
        {" ; a ,;b; ", {}, {"A", "B"}, true},
        {"\"msft\" 'ibm'", {}, {"MSFT", "IBM"}, true},
        {"\xE2\x80\x9Cge\xE2\x80\x9D;\xC2\xABko\xC2\xBB", {}, {"GE", "KO"}, true},
        {"\"\"", {"A"}, {}, true},
        {"brk.b ^dji", {}, {"BRK.B", "^DJI"}, true},
    };
    for (const Case& c : cases) {
        const TickerEntry entry = EnterTickers(c.entry, c.list);
        EXPECT_EQ(entry.added, c.added) << c.entry;
        EXPECT_EQ(entry.accepted, c.accepted) << c.entry;
    }
}

TEST(TickersFoundNowhere, KeepsWhatOccursInsideALongerSymbol) {
    EXPECT_THAT(TickersFoundNowhere({"IBM"}, "AOL|IBMX|"), IsEmpty());
    EXPECT_THAT(TickersFoundNowhere({"IBM", "AOL", "ibmx"}, "AOL|IBMX|"), ElementsAre("ibmx"));
    EXPECT_THAT(TickersFoundNowhere({"IBM", "AOL"}, ""), ElementsAre("IBM", "AOL"));
    EXPECT_THAT(TickersFoundNowhere({"IBM", "IBM"}, "AOL|"), ElementsAre("IBM", "IBM"));
}

TEST(TickersFoundNowhere, TheEmptyTextOccursEverywhere) {
    EXPECT_THAT(TickersFoundNowhere({""}, "AOL|"), IsEmpty());
    EXPECT_THAT(TickersFoundNowhere({""}, ""), IsEmpty());
}

TEST(TickersFoundNowhere, AgreesWithASearchPerTicker) {
    std::mt19937 random(7);
    const auto text = [&](std::size_t most) {
        std::string result(random() % (most + 1), ' ');
        for (char& c : result)
            c = "AB|"[random() % 3];
        return result;
    };
    for (int round = 0; round < 2000; ++round) {
        const std::string lists = text(30);
        Tickers tickers, expected;
        for (int i = 0; i < 8; ++i)
            tickers.push_back(text(5));
        for (const std::string& ticker : tickers)
            if (lists.find(ticker) == std::string::npos)
                expected.push_back(ticker);
        EXPECT_EQ(TickersFoundNowhere(tickers, lists), expected) << lists;
    }
}

TEST(TickerList, WhatCameBackOrWasSelectedIsSelectedAfterAnotherCommand) {
    struct Case {
        const char* title;
        Tickers shown, now;
        int row, expected;
    };
    const Case cases[] = {
        {"one came back", {"A", "C"}, {"A", "B", "C"}, 0, 1},
        {"one came back at the end", {"A"}, {"A", "B"}, -1, 1},
        {"the first came back", {}, {"A"}, -1, 0},
        {"the selected one stays", {"A", "B", "C"}, {"A", "B"}, 1, 1},
        {"it moved", {"A", "B", "C"}, {"C", "B", "A"}, 0, 2},
        {"of two of a name that at its place", {"A", "B", "A"}, {"A", "C", "A"}, 2, 2},
        {"it went", {"A", "B"}, {"A"}, 1, -1},
        {"none was selected", {"A", "B"}, {"B", "A"}, -1, -1},
        {"no such row", {"A"}, {"B"}, 4, -1},
    };
    for (const Case& c : cases)
        EXPECT_EQ(RowAfterReload(c.shown, c.now, c.row), c.expected) << c.title;
}

TEST(TickerEntry, TellsWhatWasAddedAndWhatIsThere) {
    struct Case {
        std::string_view entry;
        Tickers list;
        const char* words;
        const char* last;
    };
    const Case cases[] = {
        {"amd", {}, "AMD added.", "AMD"},
        {"amd ge", {}, "AMD and GE added.", "GE"},
        {"amd ge ko", {}, "AMD, GE and KO added.", "KO"},
        {"a b c d e f", {}, "6 tickers added.", "F"},
        {"msft", {"MSFT"}, "MSFT is in the list already.", "MSFT"},
        {"msft ibm msft", {"MSFT", "IBM"}, "MSFT and IBM are in the list already.", "MSFT"},
        {"amd msft", {"MSFT"}, "AMD added; MSFT is in the list already.", "MSFT"},
        {"msft amd", {"MSFT"}, "AMD added; MSFT is in the list already.", "AMD"},
        {"amd amd", {}, "AMD added.", "AMD"},
        {" , ", {"MSFT"}, "", ""},
    };
    for (const Case& c : cases) {
        const TickerEntry entry = EnterTickers(c.entry, c.list);
        EXPECT_EQ(EntryWords(entry), c.words) << c.entry;
        EXPECT_EQ(entry.last, c.last) << c.entry;
    }
}

} // namespace
} // namespace tallowmere
