#include "core/quotes/quote_store.h"

#include "core/quotes/source_files.h"

#include <gmock/gmock.h>

namespace tallowmere {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr std::int64_t kDay = 86400;

KeptQuote Kept(const std::string& symbol) {
    KeptQuote kept;
    kept.quote.symbol = symbol;
    kept.quote.name = "Berkshire \"Hathaway\"\n\xC3\xA9 \xFF";
    kept.quote.last = 510.25;
    kept.quote.change = -0.5;
    kept.quote.changePercent = -0.1;
    kept.quote.volume = 12345678;
    kept.quote.yearHigh = 542.07;
    kept.quote.yearLow = 440.1;
    kept.quote.time = kFridayClose;
    kept.quote.currency = "USD";
    kept.quote.source = "CNBC";
    kept.quote.delayed = false;
    kept.receivedAt = kFridayClose + 60;
    return kept;
}

std::vector<KeptQuote> Again(const std::vector<KeptQuote>& quotes,
                             std::int64_t now = kFridayClose + kDay) {
    return ReadQuotes(WriteQuotes(quotes), now);
}

TEST(QuoteStore, GivesBackWhatWasKept) {
    const auto quotes = Again({Kept("BRK.B"), Kept("^SPC")});
    ASSERT_THAT(quotes, SizeIs(2));
    const Quote& quote = quotes[0].quote;
    EXPECT_EQ(quote.symbol, "BRK.B");
    EXPECT_THAT(quote.name, testing::StartsWith("Berkshire \"Hathaway\"\n\xC3\xA9"));
    EXPECT_EQ(quote.last, 510.25);
    EXPECT_EQ(quote.change, -0.5);
    EXPECT_EQ(quote.changePercent, -0.1);
    EXPECT_EQ(quote.volume, 12345678);
    EXPECT_EQ(quote.yearHigh, 542.07);
    EXPECT_EQ(quote.yearLow, 440.1);
    EXPECT_EQ(quote.open, std::nullopt);
    EXPECT_EQ(quote.time, kFridayClose);
    EXPECT_EQ(quote.currency, "USD");
    EXPECT_EQ(quote.source, "CNBC");
    EXPECT_FALSE(quote.delayed);
    EXPECT_FALSE(quote.doubtful);
    EXPECT_EQ(quotes[0].receivedAt, kFridayClose + 60);
    EXPECT_EQ(quotes[1].quote.symbol, "^SPC");
    EXPECT_THAT(Again({}), IsEmpty());
}

TEST(QuoteStore, ForgetsWhatIsOlderThanThirtyDays) {
    EXPECT_THAT(Again({Kept("A")}, kFridayClose + 60 + 30 * kDay), SizeIs(1));
    EXPECT_THAT(Again({Kept("A")}, kFridayClose + 61 + 30 * kDay), IsEmpty());
}

TEST(QuoteStore, BelievesNothingThatItWouldNotBelieveOfASource) {
    EXPECT_THAT(Again({Kept("A")}, kFridayClose - kDay), IsEmpty()) << "received in the future";
    KeptQuote kept = Kept("A");
    kept.quote.last = 0;
    EXPECT_THAT(Again({kept}), IsEmpty());
    kept = Kept("A");
    kept.quote.time = kFridayClose + 3 * kDay;
    EXPECT_THAT(Again({kept}), IsEmpty());
    kept = Kept("A");
    kept.quote.source.clear();
    EXPECT_THAT(Again({kept, Kept("B")}), SizeIs(1));
    kept = Kept("A");
    kept.quote.changePercent = -50;
    EXPECT_TRUE(Again({kept}).at(0).quote.doubtful);
}

TEST(QuoteStore, ReadsNothingOfADamagedText) {
    const std::string text = WriteQuotes({Kept("A")});
    EXPECT_THAT(ReadQuotes(text.substr(0, text.size() / 2), kFridayClose + kDay), IsEmpty());
    for (const char* damaged : {"", "[]", "{}", "[1, null, {}, [], \"a\"]", "\x00\xFF", "null"})
        EXPECT_THAT(ReadQuotes(damaged, kFridayClose + kDay), IsEmpty()) << damaged;
}

} // namespace
} // namespace tallowmere
