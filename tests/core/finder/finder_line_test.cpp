#include "core/finder/finder_line.h"

#include "core/text/bytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string Joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

TEST(FinderLine, IsReadInItsParts) {
    struct Case {
        std::string_view line, words, tickers, rest;
        bool hasSeveral = false;
        bool wantsPortfolio = false;
    };
    for (const Case& c : {
             Case{"", "", "", ""},
             {"  \t ", "", "", ""},
             {"zacks", "zacks", "ZACKS", ""},
             {"msft zacks", "msft zacks", "MSFT", "zacks"},
             {" MSFT  Y!  News ", "msft y! news", "MSFT", "y! news"},
             {"aapl,nvda zacks", "aapl,nvda zacks", "AAPL NVDA", "zacks", true},
             {"aapl;nvda", "aapl;nvda", "AAPL NVDA", "", true},
             {"aapl, nvda zacks", "aapl, nvda zacks", "AAPL NVDA", "zacks", true},
             {"aapl ,nvda , amd zacks", "aapl ,nvda , amd zacks", "AAPL NVDA AMD", "zacks", true},
             {"aapl,aapl zacks", "aapl,aapl zacks", "AAPL", "zacks", true},
             {",", ",", "", "", true},
             {"brk.b ^dji", "brk.b ^dji", "BRK.B", "^dji"},
             {"y! news", "y! news", "", ""},
             {"msft,y! news", "msft,y! news", "", ""},
             {"k\u00DCrzel a", "k\u00FCrzel a", "", ""},
             {"/p", "", "", "", false, true},
             {"/P 3", "3", "", "", false, true},
             {"/p tech list", "tech list", "", "", false, true},
             {"/pp 3", "/pp 3", "", ""},
             {"a\nb\r\nc\td", "a b c d", "A", "b c d"},
             {"z\u200Ba\x01"
              "cks",
              "zacks", "ZACKS", ""},
             {"\xFFmsft", "?msft", "", ""},
         }) {
        const FinderLine read = ReadFinderLine(c.line);
        EXPECT_EQ(Joined(read.words), c.words) << c.line;
        EXPECT_EQ(Joined(read.tickers), c.tickers) << c.line;
        EXPECT_EQ(Joined(read.rest), c.rest) << c.line;
        EXPECT_EQ(read.hasSeveral, c.hasSeveral) << c.line;
        EXPECT_EQ(read.wantsPortfolio, c.wantsPortfolio) << c.line;
    }
}

TEST(FinderLine, OfAnyLengthHasABoundedFront) {
    EXPECT_THAT(ReadFinderLine(std::string(1'000'000, 'x')).words,
                ElementsAre(std::string(kLongestFinderLine, 'x')));
    EXPECT_THAT(ReadFinderLine(std::string(1'000'000, '\x80')).tickers, IsEmpty());
    std::string letters;
    std::string tickers;
    for (int n = 0; n < 100'000; ++n) {
        letters += "a ";
        tickers += std::to_string(n) + ",";
    }
    EXPECT_THAT(ReadFinderLine(letters).words, SizeIs(kMostFinderWords));
    EXPECT_THAT(ReadFinderLine(tickers).tickers, SizeIs(kMostFinderTickers));
}

TEST(FinderLine, NoCharacterIsTornAtItsEnd) {
    const std::string line = std::string(kLongestFinderLine - 1, 'x') + "\u00FC";
    EXPECT_THAT(ReadFinderLine(line).words, ElementsAre(std::string(kLongestFinderLine - 1, 'x')));
}

TEST(FinderLine, AWordMayBeATickerByItsSigns) {
    for (const char* word : {"MSFT", "brk-b", "^DJI", "EURUSD=X", "BRK/B", "T", "005930.KS"})
        EXPECT_TRUE(MayBeTicker(word)) << word;
    for (const char* word : {"", "/p", "y!", "a|b", "<b>", "^", "ABCDEFGHIJKLMNOP", "m\u00FC"})
        EXPECT_FALSE(MayBeTicker(word)) << word;
}

} // namespace
} // namespace tallowmere
