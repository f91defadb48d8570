#include "core/portfolio/ticker_scan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ScanResult {
    bool found;
    std::vector<std::string> symbols;
};

ScanResult Scan(std::string page, std::string_view prefix, std::string_view endMark = "\"") {
    TickerScan scan(std::move(page), {std::string(prefix), std::string(endMark)});
    while (scan.Step()) {
    }
    EXPECT_FALSE(scan.Step()) << "an ended scan stays ended";
    return {scan.Found(), scan.Symbols()};
}

std::string Link(std::string_view ticker) {
    return "<a href=\"/q?s=" + std::string(ticker) + "\">" + std::string(ticker) + "</a>\r\n";
}

TEST(ScanSampleText, IsTakenApartAroundTheTicker) {
    const auto sample = SplitSample("http://a.test/q?s=IBM&d=t", 18, 3);
    ASSERT_TRUE(sample);
    EXPECT_EQ(sample->prefix, "http://a.test/q?s=");
    EXPECT_EQ(sample->endMark, "&");
}

TEST(ScanSampleText, ATickerAtTheFrontGivesNone) {
    EXPECT_FALSE(SplitSample("IBM", 0, 3));
    EXPECT_FALSE(SplitSample("", 0, 0));
}

TEST(ScanSampleText, AtTheEndOfTheLinkTheEndMarkIsADoubleQuote) {
    EXPECT_EQ(SplitSample("/q?s=IBM", 5, 3)->endMark, "\"");
    EXPECT_EQ(SplitSample("/q?s=IBM", 5, 99)->endMark, "\"");
    EXPECT_EQ(SplitSample("/q?s=IBM", 99, 1)->prefix, "/q?s=IBM");
}

TEST(ScanSampleText, TheEndMarkIsOneWholeCharacter) {
    EXPECT_EQ(SplitSample("/q?s=IBM\u00e9x", 5, 3)->endMark, "\u00e9");
}

TEST(TickerScan, AddsEachTickerOnceAndSkipsNumbers) {
    const ScanResult result =
        Scan(Link("IBM") + Link("IBM") + Link("BRK.B") + Link("123"), "/q?s=");
    EXPECT_TRUE(result.found);
    EXPECT_THAT(result.symbols, ElementsAre("IBM", "BRK.B"));
}

TEST(TickerScan, KeepsSevenCharactersAndSkipsEight) {
    EXPECT_THAT(Scan(Link("ABCDEFGH") + Link("ABCDEFG"), "/q?s=").symbols, ElementsAre("ABCDEFG"));
    EXPECT_THAT(Scan(Link("\u00c4BCDEFG"), "/q?s=").symbols, ElementsAre("\u00c4BCDEFG"));
}

TEST(TickerScan, ADigitAnywhereSkipsACandidate) {
    EXPECT_THAT(Scan(Link("A1") + Link("1A") + Link("A1A") + Link("A"), "/q?s=").symbols,
                ElementsAre("A"));
}

TEST(TickerScan, ListsInUpperCaseInTheOrderOfThePage) {
    EXPECT_THAT(Scan(Link("msft") + Link("aol"), "/q?s=").symbols, ElementsAre("MSFT", "AOL"));
}

TEST(TickerScan, ComparesACandidateAsFoundWithTheListInUpperCase) {
    EXPECT_THAT(Scan(Link("ibm") + Link("ibm"), "/q?s=").symbols, ElementsAre("IBM", "IBM"));
    EXPECT_THAT(Scan(Link("ibm") + Link("IBM"), "/q?s=").symbols, ElementsAre("IBM"));
}

TEST(TickerScan, AnAbsoluteSampleMatchesAPageOfRelativeLinks) {
    const ScanResult result = Scan(Link("IBM") + Link("AOL"), "http://www.a.test/q?s=");
    EXPECT_TRUE(result.found);
    EXPECT_THAT(result.symbols, ElementsAre("IBM", "AOL"));
}

TEST(TickerScan, TheWholePrefixIsTakenWhereItOccurs) {
    EXPECT_THAT(Scan("s=NO\" /q?s=YES\"", "/q?s=").symbols, ElementsAre("YES"));
}

TEST(TickerScan, OnlyTheLongestEndOfThePrefixCounts) {
    EXPECT_THAT(Scan("=A\" s=B\" ?s=C\" =D\" ?s=E\"", "/q?s=").symbols, ElementsAre("C", "E"));
}

TEST(TickerScan, APrefixIsShortenedDownToOneCharacter) {
    EXPECT_THAT(Scan("x=A\"", "/q?s=").symbols, ElementsAre("A"));
    const ScanResult result = Scan("nothing here", "/q?s=");
    EXPECT_FALSE(result.found);
    EXPECT_THAT(result.symbols, IsEmpty());
}

TEST(TickerScan, APrefixOfOneCharacterIsNotShortened) {
    EXPECT_FALSE(Scan("abc", "=").found);
    EXPECT_THAT(Scan("=A\"=B\"", "=").symbols, ElementsAre("A", "B"));
}

TEST(TickerScan, APrefixIsShortenedByWholeCharacters) {
    // The sign before the first ticker ends with the same byte as the letter in the prefix.
    EXPECT_THAT(Scan("\u00a9=A\" =B\"", "\u00e9=").symbols, ElementsAre("A", "B"));
    EXPECT_FALSE(Scan("\u00a9", "x\u00e9").found);
}

TEST(TickerScan, AnEmptyPageHasNone) {
    EXPECT_FALSE(Scan("", "/q?s=").found);
}

TEST(TickerScan, AnEmptyPrefixOrEndMarkEndsAtOnce) {
    EXPECT_FALSE(Scan("abc", "").found);
    EXPECT_THAT(Scan("abc", "a", "").symbols, IsEmpty());
}

TEST(TickerScan, NoEndMarkEndsTheScan) {
    const ScanResult result = Scan("/q?s=IBM\" /q?s=AOL", "/q?s=");
    EXPECT_TRUE(result.found);
    EXPECT_THAT(result.symbols, ElementsAre("IBM"));
}

TEST(TickerScan, TheEndMarkIsSearchedFromTheStartOfThePrefix) {
    const ScanResult result = Scan("/q?s=IBM= /q?s=AOL=", "/q?s=", "=");
    EXPECT_TRUE(result.found);
    EXPECT_THAT(result.symbols, IsEmpty());
}

TEST(TickerScan, OccurrencesBeforeOneEndMarkShareIt) {
    EXPECT_THAT(Scan("s=s=s=IBM\"", "s=").symbols, ElementsAre("S=S=IBM", "S=IBM", "IBM"));
    EXPECT_THAT(Scan("s=far away from it s=IBM\"", "s=").symbols, ElementsAre("IBM"));
}

TEST(TickerScan, AnEmptyCandidateIsListedOnce) {
    EXPECT_THAT(Scan("s=\" s=\" s=A\"", "s=").symbols, ElementsAre("", "A"));
}

TEST(TickerScan, OccurrencesOfThePrefixDoNotOverlap) {
    EXPECT_THAT(Scan("aaaab.", "aa", ".").symbols, ElementsAre("AAB", "B"));
    EXPECT_THAT(Scan("ababac.", "abac", ".").symbols, ElementsAre(""));
}

TEST(TickerScan, APrefixIsFoundAcrossTheBordersOfTheSteps) {
    for (const std::size_t before : {262141U, 262143U, 262144U, 262145U, 524287U}) {
        EXPECT_THAT(Scan(std::string(before, '.') + "/q?s=IBM\"", "/q?s=").symbols,
                    ElementsAre("IBM"))
            << before;
        EXPECT_THAT(Scan("?s=IBM\"" + std::string(before, '.'), "/q?s=").symbols,
                    ElementsAre("IBM"))
            << before;
    }
}

TEST(TickerScan, ReadsALargePageInManySteps) {
    TickerScan scan(std::string(4U << 20U, '.'), {"/q?s=", "\""});
    int steps = 1;
    while (scan.Step())
        ++steps;
    EXPECT_GE(steps, 16);
    EXPECT_FALSE(scan.Found());
}

TEST(TickerScan, RepetitivePagesAndLongPrefixesTakeOneWalk) {
    // Each of these would take hours by trying every start of the prefix at every place.
    const std::string page(8U << 20U, 'a');
    EXPECT_FALSE(Scan(page, std::string(100000, 'a') + "b").found);
    EXPECT_TRUE(Scan(page, "b" + std::string(100000, 'a')).found);
    EXPECT_THAT(Scan(page + "b", "aa", "b").symbols, ElementsAre("AAAAAA", "AAAA", "AA", ""));
}

TEST(TickersToSend, AreThoseThatThePortfolioDoesNotHold) {
    EXPECT_THAT(TickersToSend({"IBM", "AOL", "YHOO"}, {"AOL", "MSFT"}), ElementsAre("IBM", "YHOO"));
}

TEST(TickersToSend, AListThatIsThereAlreadyChangesNothing) {
    EXPECT_THAT(TickersToSend({"IBM", "AOL"}, {"AOL", "MSFT", "IBM"}), IsEmpty());
    EXPECT_THAT(TickersToSend({}, {"AOL"}), IsEmpty());
}

TEST(TickersToSend, EachIsAddedOnce) {
    EXPECT_THAT(TickersToSend({"IBM", "IBM"}, {}), ElementsAre("IBM"));
}

TEST(TickersToSend, AnEmptyOneIsNeverAdded) {
    EXPECT_THAT(TickersToSend({"", "IBM"}, {}), ElementsAre("IBM"));
}

TEST(TickersToSend, TheComparisonIsExact) {
    EXPECT_THAT(TickersToSend({"IBM"}, {"ibm", "IBM "}), ElementsAre("IBM"));
}

} // namespace
} // namespace tallowmere
