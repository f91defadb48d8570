#include "core/quotes/listed_price.h"

#include "core/quotes/scheduled_web.h"
#include "core/quotes/time_text.h"

namespace tallowmere {
namespace {

constexpr const char* kOneSource = R"(
user_agent = "test"
[sources.a]
name = "First"
format = "yahoo-spark"
request = "https://first.example/q?s={symbols}&r={range}&i={interval}"
batch = 20
gives = ["quote", "day"]
)";

/// An answer about MSFT: what it closed at the day before was 9.
SourceResponse Spark(const std::vector<std::int64_t>& times, const std::vector<double>& closes) {
    const auto list = [](const auto& values) {
        std::string text;
        for (const auto value : values)
            text += (text.empty() ? "" : ",") + std::to_string(value);
        return text;
    };
    return {200, "application/json", "",
            "{\"MSFT\":{\"symbol\":\"MSFT\",\"timestamp\":[" + list(times) + "],\"close\":[" +
                list(closes) + "],\"chartPreviousClose\":9,\"previousClose\":9}}"};
}

TEST(ListedPrice, SaysWhatIsKnownOfAPriceAndOfItsDay) {
    ScheduledWeb web(kOneSource);
    EXPECT_FALSE(FindListedPrice(web.Schedule(), "MSFT", web.now));
    web.Set("first.example", Spark({kFridayClose}, {10}));
    web.Get({"MSFT"});
    auto price = FindListedPrice(web.Schedule(), "msft", web.now);
    ASSERT_TRUE(price);
    EXPECT_EQ(price->last, 10);
    EXPECT_EQ(price->change, 1);
    EXPECT_NEAR(price->percent.value_or(0), 11.11, 0.01);
    EXPECT_EQ(price->origin, "Nov 20, 2026 4:00 PM ET, First");
    EXPECT_EQ(price->age, "");
    EXPECT_TRUE(price->day.empty());

    web.Set("first.example", Spark({kFridayClose - 600, kFridayClose - 300}, {9.5, 9.75}));
    web.Get({"MSFT"}, PriceSpan::Day);
    price = FindListedPrice(web.Schedule(), "MSFT", web.now);
    EXPECT_EQ(price->day, (std::vector<double>{9.5, 9.75, 10})) << "and the last price behind it";
}

TEST(ListedPrice, SaysTheAgeOfAStalePriceAndNothingOfAnotherDay) {
    ScheduledWeb web(kOneSource);
    web.Set("first.example", Spark({kFridayClose - 600, kFridayClose - 300}, {9.5, 9.75}));
    web.Get({"MSFT"}, PriceSpan::Day);
    constexpr std::int64_t kMondayNoon = kFridayClose + 3 * 86400 - 4 * 3600;
    web.now = kMondayNoon;
    web.Set("first.example", Spark({kMondayNoon - 60}, {11}));
    web.Get({"MSFT"});
    EXPECT_TRUE(FindListedPrice(web.Schedule(), "MSFT", web.now)->day.empty());
    EXPECT_EQ(FindListedPrice(web.Schedule(), "MSFT", web.now)->age, "");
    EXPECT_EQ(FindListedPrice(web.Schedule(), "MSFT", web.now + 3 * 3600)->age, "3 h");
}

TEST(ListedPrice, SaysWhereItIsFromAndTheRangesThatAreKnown) {
    ScheduledWeb web(R"(
user_agent = "test"
[sources.a]
name = "First"
format = "cnbc"
request = "https://first.example/q?s={symbols}"
batch = 20
[sources.b]
name = "Second"
format = "yahoo-spark"
request = "https://second.example/q?s={symbols}&r={range}&i={interval}"
batch = 20
gives = ["year"]
)");
    const auto answer = [](const std::string& more) {
        return SourceResponse{200, "application/json", "",
                              R"({"FormattedQuoteResult":{"FormattedQuote":[{"symbol":"MSFT",)"
                              R"("code":0,"name":"Microsoft","last":"10","volume":"1,000",)"
                              R"("low":"9.5","high":"12","last_time":"2026-11-20")" +
                                  more + "}]}}"};
    };
    web.Set("first.example", answer(R"(,"yrloprice":"5","yrhiprice":"15")"));
    web.Get({"MSFT"});
    auto price = FindListedPrice(web.Schedule(), "MSFT", web.now);
    ASSERT_TRUE(price);
    EXPECT_EQ(price->name, "Microsoft");
    EXPECT_EQ(price->source, "First");
    EXPECT_EQ(price->when, "Nov 20, 2026 4:00 PM ET");
    EXPECT_EQ(price->time, kFridayClose);
    EXPECT_EQ(price->volume, 1000);
    EXPECT_EQ(price->dayLow, 9.5);
    EXPECT_EQ(price->dayHigh, 12);
    EXPECT_EQ(price->yearLow, 5);
    EXPECT_EQ(price->yearHigh, 15);
    EXPECT_FALSE(price->marketCap || price->priceEarnings || price->yield) << "no source says them";

    ScheduledWeb silent(R"(
user_agent = "test"
[sources.a]
name = "First"
format = "cnbc"
request = "https://first.example/q?s={symbols}"
[sources.b]
name = "Second"
format = "yahoo-spark"
request = "https://second.example/q?s={symbols}&r={range}&i={interval}"
gives = ["year"]
)");
    silent.Set("first.example", answer(""));
    silent.Get({"MSFT"});
    EXPECT_FALSE(FindListedPrice(silent.Schedule(), "MSFT", silent.now)->yearLow);
    silent.Set("second.example", Spark({kFridayClose - 86400, kFridayClose}, {7, 11}));
    silent.Get({"MSFT"}, PriceSpan::Year);
    price = FindListedPrice(silent.Schedule(), "MSFT", silent.now);
    EXPECT_EQ(price->yearLow, 7);
    EXPECT_EQ(price->yearHigh, 12) << "the day counts too";
}

} // namespace
} // namespace tallowmere
