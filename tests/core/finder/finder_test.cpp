#include "core/finder/finder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

FinderItem Item(FinderKind kind, std::string text, std::string words = "",
                FinderTickers takes = FinderTickers::None) {
    std::string key = text;
    return {kind, std::move(text), std::move(words), std::move(key), takes, 0};
}

std::vector<FinderItem> Things() {
    using enum FinderKind;
    return {
        Item(Link, "Zacks - ZACKS Research", "www.zacks.com", FinderTickers::Several),
        Item(Link, "Y! News - Yahoo! News Page", "biz.example", FinderTickers::Several),
        Item(Link, "Y! - Full Yahoo! Quote", "quote.example", FinderTickers::Several),
        Item(Link, "Datek", "datek.example"),
        Item(MenuItem, "Zacks Investment Research - Mega Links"),
        Item(OwnLink, "My chart", "", FinderTickers::Several),
        Item(MultiLink, "Weekend", "", FinderTickers::One),
        Item(Command, "Undo Delete MSFT"),
        Item(Command, "Reminders"),
        Item(Portfolio, PortfolioItemText(1, "Tech")),
        Item(Portfolio, PortfolioItemText(3, "Oil")),
        Item(Portfolio, PortfolioItemText(5, "3M and others")),
        Item(Portfolio, PortfolioItemText(10, "Portfolio #10")),
        Item(Ticker, "MSFT", "Tech"),
        Item(Ticker, "AAPL", "Tech"),
        Item(Note, "MSFT: Cloud growth slows?", "Cloud growth slows?\nWait for January."),
        Item(Guide, "Notes about a ticker"),
    };
}

std::vector<std::string> Found(std::string_view line, std::vector<FinderItem> items = Things(),
                               std::size_t most = 50) {
    const FinderCatalogue catalogue(std::move(items));
    std::vector<std::string> texts;
    for (const FinderMatch& match : catalogue.Find(line, most).matches)
        texts.push_back((match.isForTickers ? "for: " : "") + catalogue.Items()[match.item].text);
    return texts;
}

TEST(Finder, PutsTheBestFirst) {
    struct Case {
        std::string_view line;
        std::vector<std::string> found;
    };
    const std::string zacks = "Zacks - ZACKS Research";
    const std::string mega = "Zacks Investment Research - Mega Links";
    const std::string note = "MSFT: Cloud growth slows?";
    for (const Case& c : {
             // The start of the text, then the start of words.
             Case{"zacks", {zacks, mega}},
             {"ZACKS inv", {mega}},
             {"re", {"Reminders", zacks, mega}},
             // All words in any order, in the further text too.
             {"research zacks", {zacks, mega}},
             {"search zac", {zacks, mega}},
             {"zacks.com", {zacks}},
             {"january", {note}},
             {"wait cloud", {note}},
             {"cloud wait nothing", {}},
             // Letters in order.
             {"mychrt", {"My chart"}},
             {"dtk", {"Datek"}},
             {"ktd", {}},
             // Other things of the same text.
             {"msft", {"MSFT", note, "Undo Delete MSFT"}},
             {"y! news", {"Y! News - Yahoo! News Page"}},
             {"datek", {"Datek"}},
         })
        EXPECT_THAT(Found(c.line), ElementsAreArray(c.found)) << c.line;
}

TEST(Finder, ATickerInFrontOpensWhatTheRestSays) {
    const std::string zacks = "for: Zacks - ZACKS Research";
    EXPECT_THAT(Found("msft zacks"), ElementsAre(zacks));
    EXPECT_THAT(Found("MSFT, aapl  zacks"), ElementsAre(zacks));
    EXPECT_THAT(Found("nvda,qqqq my chart"), ElementsAre("for: My chart"));
    // What is written into one file is opened for one ticker only.
    EXPECT_THAT(Found("msft weekend"), ElementsAre("for: Weekend"));
    EXPECT_THAT(Found("msft,aapl weekend"), IsEmpty());
    // What takes no ticker is not opened for one.
    EXPECT_THAT(Found("msft datek"), IsEmpty());
    // A known ticker is one first of all, an unknown one behind what holds all words.
    EXPECT_THAT(Found("msft cloud"), ElementsAre("MSFT: Cloud growth slows?"));
    EXPECT_THAT(Found("qqqq zacks"), ElementsAre(zacks));
    EXPECT_THAT(Found("yahoo news"), ElementsAre("Y! News - Yahoo! News Page"));
    EXPECT_THAT(Found("full y"), ElementsAre("Y! - Full Yahoo! Quote",
                                             "for: Y! News - Yahoo! News Page", "for: My chart"));
}

TEST(Finder, SaysWhichTickersTheLineNames) {
    const FinderCatalogue catalogue(Things());
    struct Case {
        std::string_view line;
        std::vector<std::string> tickers, unknown;
        bool offers;
    };
    for (const Case& c : {
             Case{"msft", {"MSFT"}, {}, false},
             {"nvda", {"NVDA"}, {"NVDA"}, true},
             {"nvda zacks", {"NVDA"}, {"NVDA"}, false},
             {"msft,aapl", {"MSFT", "AAPL"}, {}, true},
             {"msft,nvda", {"MSFT", "NVDA"}, {"NVDA"}, true},
             {"", {}, {}, false},
             {"y! news", {}, {}, false},
             {"/p nvda", {}, {}, false},
         }) {
        const FinderResult result = catalogue.Find(c.line);
        EXPECT_EQ(result.tickers, c.tickers) << c.line;
        EXPECT_EQ(result.unknown, c.unknown) << c.line;
        EXPECT_EQ(result.offersTickers, c.offers) << c.line;
    }
    // The offer stands in front of what is found by letters alone.
    EXPECT_EQ(catalogue.Find("zacks").offerAt, 2U);
    EXPECT_EQ(catalogue.Find("dtk").offerAt, 0U);
    EXPECT_THAT(catalogue.Find("dtk").matches, SizeIs(1));
    EXPECT_TRUE(catalogue.HasTicker("MSFT"));
    EXPECT_FALSE(catalogue.HasTicker("Zacks"));
}

TEST(Finder, PortfoliosAreFoundByNumberAndByName) {
    EXPECT_THAT(Found("/p 3"), ElementsAre("#3: Oil", "#5: 3M and others"));
    EXPECT_THAT(Found("/p 1"), ElementsAre("#1: Tech", "#10: Portfolio #10"));
    EXPECT_THAT(Found("/p 10"), ElementsAre("#10: Portfolio #10"));
    EXPECT_THAT(Found("/p tech"), ElementsAre("#1: Tech"));
    EXPECT_THAT(Found("/p"), SizeIs(4));
    EXPECT_THAT(Found("/p zacks"), IsEmpty());
    auto used = Things();
    used[11].use = 5;
    EXPECT_THAT(Found("/p 3", used), ElementsAre("#3: Oil", "#5: 3M and others"));
}

TEST(Finder, UseDecidesAmongEqualsAndOrderLast) {
    auto things = Things();
    EXPECT_THAT(Found("zacks", things).front(), "Zacks - ZACKS Research");
    things[4].use = 0.5;
    EXPECT_THAT(Found("zacks", things).front(), "Zacks Investment Research - Mega Links");
    things[0].use = 0.75;
    EXPECT_THAT(Found("zacks", things).front(), "Zacks - ZACKS Research");
    // However often it was used, a worse match stays behind a better one.
    things[7].use = 100;
    EXPECT_THAT(Found("msft", things).back(), "Undo Delete MSFT");
    // Without a line all is found.
    EXPECT_THAT(Found("", things).front(), "Undo Delete MSFT");
    EXPECT_THAT(Found("", things), SizeIs(things.size()));
    EXPECT_THAT(Found("", Things())[1], "Y! News - Yahoo! News Page");
    EXPECT_THAT(Found("", Things(), 3), SizeIs(3));
}

TEST(Finder, TellsWhatOfTheTextWasFound) {
    struct Case {
        std::string_view text, words, line;
        std::vector<FinderSpan> spans;
    };
    for (const Case& c : {
             Case{"Zacks", "", "za", {{0, 2}}},
             {"Yahoo! News", "", "news", {{7, 4}}},
             {"Yahoo! News", "", "news ya", {{0, 2}, {7, 4}}},
             {"Yahoo News", "", "oo ew", {{3, 2}, {7, 2}}},
             {"Yahoo News", "far", "far ews", {{7, 3}}},
             {"Yahoo", "", "yhoo", {{0, 1}, {2, 3}}},
             {"anana", "", "nan", {{1, 3}}},
             {"abab", "", "ab bab", {{0, 4}}},
             {"K\u00FCrzel", "", "k\u00DCR", {{0, 4}}},
             {"a\u00FCb", "", "\u00FC", {{1, 2}}},
             {"x\u00FCb\u00FC", "", "x\u00FC\u00FC", {{0, 3}, {4, 2}}},
             {"Zacks", "", "", {}},
         }) {
        const FinderCatalogue catalogue(
            {{FinderKind::Link, std::string(c.text), std::string(c.words), "", {}, 0}});
        const auto matches = catalogue.Find(c.line).matches;
        ASSERT_THAT(matches, SizeIs(1)) << c.line;
        EXPECT_THAT(matches[0].spans, ElementsAreArray(c.spans)) << c.line;
    }
}

TEST(Finder, TextsOfStrangersAreMadePlainAndBounded) {
    const FinderCatalogue catalogue({
        {FinderKind::History, "a\u202Eb\nc\xFF", "", "1", {}, 0},
        {FinderKind::History, std::string(1'000'000, 'y'), std::string(1'000'000, 'z'), "2", {}, 0},
        {FinderKind::History, "", "", "3", {}, 0},
    });
    EXPECT_EQ(catalogue.Items()[0].text, "abc?");
    EXPECT_EQ(catalogue.Items()[1].text.size(), 300U);
    EXPECT_THAT(catalogue.Find("zzz").matches, SizeIs(1));
    EXPECT_THAT(catalogue.Find("").matches, SizeIs(3));
    EXPECT_THAT(catalogue.Find(std::string(1'000'000, 'y')).matches, IsEmpty());
    EXPECT_THAT(catalogue.Find(std::string(1'000'000, '\xFF')).matches, IsEmpty());
    EXPECT_THAT(FinderCatalogue({}).Find("a").matches, IsEmpty());
}

TEST(Finder, EveryKindHasAWordOfItsOwn) {
    std::set<std::string_view> words;
    for (int kind = 0; kind <= static_cast<int>(FinderKind::Guide); ++kind)
        words.insert(KindName(static_cast<FinderKind>(kind)));
    EXPECT_THAT(words, SizeIs(11));
    EXPECT_FALSE(words.contains(""));
}

} // namespace
} // namespace tallowmere
