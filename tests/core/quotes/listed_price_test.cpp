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

} // namespace
} // namespace tallowmere
