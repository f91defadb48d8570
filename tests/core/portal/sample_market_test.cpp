#include "core/portal/sample_market.h"

#include "core/text/runtime_error.h"
#include "shipped_files.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tallowmere {
namespace {

std::string ErrorOf(std::string_view text) {
    try {
        SampleMarket::Parse(text);
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return "no error";
}

TEST(SampleMarket, ReadsSymbolNameSharesAndCloses) {
    const auto market =
        SampleMarket::Parse("# invented\n\nbrk.b|Berkshire|1325|459.5 460 461.25\n");
    ASSERT_EQ(market.Quotes().size(), 1U);
    const SampleQuote* quote = market.Find("BRK.b");
    ASSERT_NE(quote, nullptr);
    EXPECT_EQ(quote->symbol, "BRK.B");
    EXPECT_EQ(quote->name, "Berkshire");
    EXPECT_EQ(quote->shares, 1325);
    EXPECT_EQ(quote->closes, (std::vector<double>{459.5, 460, 461.25}));
    EXPECT_EQ(market.Find("BRK"), nullptr);
    EXPECT_EQ(market.Find(""), nullptr);
}

TEST(SampleMarket, NamesTheLineThatIsWrong) {
    struct Case {
        std::string_view text, error;
    };
    for (const Case& c : {
             Case{"A|B|1\n", "sample market, line 1: symbol, name, shares and closes are expected"},
             {"\n|B|1|1 2\n", "sample market, line 2: the symbol is empty"},
             {"A|B|x|1 2", "sample market, line 1: \"x\" is no number"},
             {"A|B|1|1 -2", "sample market, line 1: \"-2\" is no number"},
             {"A|B|1|1 nan", "sample market, line 1: \"nan\" is no number"},
             {"A|B|1|1e999 1", "sample market, line 1: \"1e999\" is no number"},
             {"A|B|1|1  2", "sample market, line 1: \"\" is no number"},
             {"A|B|1|1", "sample market, line 1: two closes or more are expected"},
             {"A|B|1|1 2\na|B|1|1 2", "sample market, line 2: A occurs twice"},
         })
        EXPECT_EQ(ErrorOf(c.text), c.error);
}

TEST(SampleMarket, IsShippedWithAYearOfManyTickers) {
    const auto market = SampleMarket::Parse(ShippedFile("sample_market.txt"));
    EXPECT_GE(market.Quotes().size(), 200U);
    for (const SampleQuote& quote : market.Quotes()) {
        EXPECT_EQ(quote.closes.size(), 253U) << quote.symbol;
        EXPECT_GT(*std::min_element(quote.closes.begin(), quote.closes.end()), 0) << quote.symbol;
        EXPECT_EQ(quote.shares == 0, quote.symbol.front() == '^') << quote.symbol;
    }
    for (const std::string_view symbol : {"^NYA", "^SPC", "^OEX", "^TYX", "^DJI", "^IXIC", "^GSPC",
                                          "AOL", "YHOO", "MSFT", "BRK.B", "SPY"})
        EXPECT_NE(market.Find(symbol), nullptr) << symbol;
}

TEST(SampleMarket, SaysInItsFileThatItIsInvented) {
    EXPECT_TRUE(ShippedFile("sample_market.txt").starts_with("# INVENTED PRICES."));
    EXPECT_LT(ShippedFile("sample_market.txt").size(), 700'000U);
}

} // namespace
} // namespace tallowmere
