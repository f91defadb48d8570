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

TEST(FinderLine, MayBeAnAddress) {
    for (const char* line :
         {"http://a.example", "HTTPS://A.example/b?c=d#e", "http://localhost/", "http://[::1]/x",
          "a.example", "a.example/b c", "www.a-b.example:8080/x?u=http://b.example", "10.0.0.1",
          "localhost", "localhost:8080/x", "m\u00FCller.example", "a.example?x", "a.example#x"}) {
        const bool isOneWord = std::string_view(line).find(' ') == std::string_view::npos;
        EXPECT_EQ(AddressIn(line), isOneWord ? line : "") << line;
        EXPECT_EQ(AddressIn(std::string("  ") + line + "\t"), isOneWord ? line : "") << line;
    }
    for (const char* line : {"",
                             " ",
                             "msft",
                             "msft zacks",
                             "http:",
                             "http://",
                             "http:///x",
                             "https:/a.example",
                             "ftp://a.example",
                             "javascript:alert(1)",
                             "file:///a.b",
                             "me@a.example",
                             "a..example",
                             ".example",
                             "example.",
                             "a.example:",
                             "a.example:x",
                             "a.example:123456",
                             "a.example\x01",
                             "a.ex\u202Eample",
                             "a.example\xFF",
                             "$a.example",
                             "/p",
                             "a.example\nb"})
        EXPECT_EQ(AddressIn(line), "") << line;
}

TEST(FinderLine, AnAddressMayBeLong) {
    const std::string address = "a.example/" + std::string(5'000, 'x');
    EXPECT_EQ(AddressIn(address), address);
}

} // namespace
} // namespace tallowmere
