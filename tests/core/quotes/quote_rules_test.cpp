#include "core/quotes/quote_rules.h"

#include "core/quotes/source_files.h"
#include "core/quotes/source_text.h"

#include <gmock/gmock.h>

namespace tallowmere {
namespace {

Quote MakeQuote(std::string symbol, double last, std::int64_t time = kFridayClose) {
    Quote quote;
    quote.symbol = std::move(symbol);
    quote.last = last;
    quote.time = time;
    return quote;
}

TEST(QuoteRules, RefusesByTheOutsideOfAnAnswer) {
    struct Case {
        const char* what;
        SourceResponse response;
        std::optional<SourceFailure> failure;
    };
    const std::string page = ResponseFile("blocked/consent.html");
    const std::string robot = ResponseFile("blocked/robot.html");
    for (const Case& c :
         {Case{"data", {200, "application/json", "", "{}"}, std::nullopt},
          {"data without a type", {200, "", "", " {}"}, std::nullopt},
          {"data as plain text", {200, "text/plain", "", "a,b"}, std::nullopt},
          {"an unknown symbol", {404, "application/json", "", "{}"}, std::nullopt},
          {"no answer", {0, "", "", ""}, SourceFailure::Unreachable},
          {"server error", {503, "text/html", "", "<html>"}, SourceFailure::Unreachable},
          {"forbidden", {403, "text/html", "", page}, SourceFailure::Blocked},
          {"login", {401, "application/json", "", "{}"}, SourceFailure::Blocked},
          {"limit",
           {429, "text/plain", "30", ResponseFile("blocked/limited.txt")},
           SourceFailure::Blocked},
          {"consent page", {200, "text/html; charset=utf-8", "", page}, SourceFailure::Blocked},
          {"page that says it is data",
           {200, "application/json", "", robot},
           SourceFailure::Blocked},
          {"empty page", {200, "TEXT/HTML", "", ""}, SourceFailure::Blocked},
          {"not found page", {404, "text/html", "", page}, SourceFailure::Garbage},
          {"unknown file",
           {403, "application/xml", "", ResponseFile("cboe/denied.xml")},
           SourceFailure::Empty},
          {"image", {200, "image/gif", "", "GIF89a"}, SourceFailure::Garbage},
          {"nothing", {200, "application/json", "", ""}, SourceFailure::Garbage},
          {"too much",
           {200, "text/csv", "", std::string(kMaximumAnswer + 1, 'x')},
           SourceFailure::Garbage}})
        EXPECT_EQ(Refusal(c.response), c.failure) << c.what;
}

TEST(QuoteRules, BelievesOnlyWhatWasAskedAndCanBe) {
    SourceAnswer answer;
    answer.quotes = {MakeQuote("AAPL", 231.5),
                     MakeQuote("AAPL", 1.0),
                     MakeQuote("EVIL", 5.0),
                     MakeQuote("ZERO", 0.0),
                     MakeQuote("NEG", -1.0),
                     MakeQuote("SOON", 5.0, kFridayClose + 301),
                     MakeQuote("NEAR", 5.0, kFridayClose + 300),
                     MakeQuote("OLD", 5.0, -1)};
    KeepBelievable(answer, {"AAPL", "ZERO", "NEG", "SOON", "NEAR", "OLD"}, kFridayClose);
    ASSERT_EQ(answer.quotes.size(), 2u);
    EXPECT_EQ(answer.quotes[0].symbol, "AAPL");
    EXPECT_EQ(answer.quotes[0].last, 231.5);
    EXPECT_EQ(answer.quotes[1].symbol, "NEAR");
}

TEST(QuoteRules, CallsAnAnswerAboutOtherSymbolsEmpty) {
    SourceAnswer answer;
    answer.quotes = {MakeQuote("EVIL", 5.0)};
    KeepBelievable(answer, {"AAPL"}, kFridayClose);
    EXPECT_EQ(answer.failure, SourceFailure::Empty);
}

TEST(QuoteRules, RefusesSeriesThatRunBackwardsOrAhead) {
    SourceAnswer answer;
    answer.series = {{"A", PriceSpan::Year, {2, 1}, {1, 1}, "", ""},
                     {"B", PriceSpan::Year, {1, kFridayClose + 1000}, {1, 1}, "", ""},
                     {"C", PriceSpan::Year, {1, 2}, {1, 1}, "", ""}};
    KeepBelievable(answer, {"A", "B", "C"}, kFridayClose);
    ASSERT_EQ(answer.series.size(), 1u);
    EXPECT_EQ(answer.series[0].symbol, "C");
}

TEST(QuoteRules, MarksAJumpByHalf) {
    SourceAnswer answer;
    answer.quotes = {MakeQuote("UP", 150), MakeQuote("CALM", 149)};
    for (Quote& quote : answer.quotes) {
        quote.previousClose = 100;
        CompleteChange(quote);
    }
    KeepBelievable(answer, {"UP", "CALM"}, kFridayClose);
    EXPECT_TRUE(answer.quotes[0].doubtful);
    EXPECT_FALSE(answer.quotes[1].doubtful);
}

TEST(QuoteRules, KeepsTheLastDayOfAChartOfOneDay) {
    const auto kept = [](PriceSpan span, const std::vector<std::int64_t>& before) {
        SourceAnswer answer;
        PriceSeries series{"A", span, {}, {}, "", ""};
        for (const std::int64_t seconds : before) {
            series.times.push_back(kFridayClose - seconds);
            series.closes.push_back(static_cast<double>(1 + seconds));
        }
        answer.series.push_back(series);
        KeepBelievable(answer, {"A"}, kFridayClose);
        return answer.series.empty() ? std::vector<double>() : answer.series.front().closes;
    };
    using testing::ElementsAre;
    using testing::IsEmpty;
    EXPECT_THAT(kept(PriceSpan::Day, {600, 300, 0}), ElementsAre(601, 301, 1));
    EXPECT_THAT(kept(PriceSpan::Day, {86400, 300, 0}), ElementsAre(301, 1));
    EXPECT_THAT(kept(PriceSpan::Day, {2 * 86400, 86400, 0}), IsEmpty()) << "prices of days";
    EXPECT_THAT(kept(PriceSpan::Day, {0}), IsEmpty());
    EXPECT_THAT(kept(PriceSpan::FiveDays, {86400, 0}), ElementsAre(86401, 1));
    EXPECT_THAT(kept(PriceSpan::Year, {86400, 0}), ElementsAre(86401, 1));
}

} // namespace
} // namespace tallowmere
