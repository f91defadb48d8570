#include "core/quotes/quote_age.h"

#include "core/quotes/source_files.h"
#include "core/quotes/time_text.h"

namespace tallowmere {
namespace {

/// "2026-11-20 16:00" in New York.
std::int64_t At(std::string_view text) {
    const auto time = ReadIsoTime(text);
    EXPECT_TRUE(time) << text;
    return time.value_or(0);
}

TEST(QuoteAge, TellsKindsApart) {
    for (const auto& [symbol, kind] :
         std::initializer_list<std::pair<const char*, PriceKind>>{{"MSFT", PriceKind::Share},
                                                                  {"BRK.B", PriceKind::Share},
                                                                  {"SIX", PriceKind::Share},
                                                                  {"GOOGL", PriceKind::Share},
                                                                  {"7203X", PriceKind::Share},
                                                                  {"VFINX", PriceKind::Fund},
                                                                  {"^DJI", PriceKind::Index},
                                                                  {"^TYX", PriceKind::Yield},
                                                                  {"^TNX", PriceKind::Yield},
                                                                  {"^FVX", PriceKind::Yield}})
        EXPECT_EQ(KindOf(symbol), kind) << symbol;
}

TEST(QuoteAge, KnowsTheDaysOfTheExchange) {
    struct Case {
        const char* day;
        int minutes;
    };
    for (const Case& c : {Case{"2026-11-20", 390}, // a Friday
                          {"2026-11-21", 0},       {"2026-11-22", 0},   {"2026-01-01", 0},
                          {"2026-01-02", 390},     {"2023-01-02", 0}, // New Year's Day was a Sunday
                          {"2021-12-31", 390}, // New Year's Day was a Saturday
                          {"2026-01-19", 0},       {"2026-01-12", 390}, {"2026-02-16", 0},
                          {"2026-04-03", 0}, // Good Friday
                          {"2025-04-18", 0},       {"2024-03-29", 0},   {"2026-04-10", 390},
                          {"2026-05-25", 0},       {"2026-05-18", 390}, {"2026-06-19", 0},
                          {"2021-06-18", 390},     {"2026-07-03", 0}, // the 4th is a Saturday
                          {"2025-07-04", 0},       {"2025-07-03", 210}, {"2026-09-07", 0},
                          {"2026-11-26", 0},       {"2026-11-27", 210}, {"2026-12-24", 210},
                          {"2026-12-25", 0},       {"2022-12-26", 0}, // the 25th was a Sunday
                          {"2022-12-23", 390}})
        EXPECT_EQ(TradingMinutes(At(c.day)), c.minutes) << c.day;
}

TEST(QuoteAge, CountsTheMinutesInWhichTheMarketWasOpen) {
    struct Case {
        const char* from;
        const char* to;
        int minutes;
    };
    for (const Case& c : {Case{"2026-11-20 10:00", "2026-11-20 11:30", 90},
                          {"2026-11-20 08:00", "2026-11-20 09:30", 0},
                          {"2026-11-20 08:00", "2026-11-20 09:31", 1},
                          {"2026-11-20 16:00", "2026-11-20 23:59", 0},
                          {"2026-11-20 15:00", "2026-11-22 12:00", 60},
                          {"2026-11-20 16:00", "2026-11-23 09:30", 0},
                          {"2026-11-20 15:50", "2026-11-23 10:00", 40},
                          {"2026-11-18 16:00", "2026-11-20 16:00", 780},
                          {"2026-11-25 16:00", "2026-11-26 15:00", 0}, // Thanksgiving
                          {"2026-11-25 16:00", "2026-11-28 15:00", 210},
                          {"2026-03-06 16:00", "2026-03-09 10:00", 30}, // summer time began
                          {"2026-10-30 16:00", "2026-11-02 10:00", 30}, // and ended
                          {"2026-11-20 15:00", "2026-11-20 15:00", 0},
                          {"2026-11-20 15:00", "2026-11-20 14:00", 0}})
        EXPECT_EQ(OpenMinutes(At(c.from), At(c.to)), c.minutes) << c.from << " to " << c.to;
    EXPECT_EQ(OpenMinutes(0, At("2026-11-20")), OpenMinutes(1, At("2026-11-20")))
        << "further back than a month is a month";
}

TEST(QuoteAge, LimitsTheAgeOfAPriceByItsKindAndTheHoursOfTheMarket) {
    constexpr auto kOld = Freshness::Old;
    constexpr auto kCurrent = Freshness::Current;
    struct Case {
        const char* symbol;
        const char* time;
        const char* now;
        Freshness worth;
    };
    for (const Case& c : {
             // A share: of today half an hour after the opening, and of the last two hours.
             Case{"MSFT", "2026-11-19 16:00", "2026-11-20 09:00", kCurrent},
             {"MSFT", "2026-11-19 16:00", "2026-11-20 10:00", kCurrent},
             {"MSFT", "2026-11-19 16:00", "2026-11-20 10:01", kOld},
             {"MSFT", "2026-11-20 09:31", "2026-11-20 10:01", kCurrent},
             {"MSFT", "2026-11-20 10:00", "2026-11-20 12:00", kCurrent},
             {"MSFT", "2026-11-20 10:00", "2026-11-20 12:01", kOld},
             {"MSFT", "2026-11-20 16:00", "2026-11-20 22:00", kCurrent},
             {"MSFT", "2026-11-20 12:00", "2026-11-20 22:00", kOld},
             {"MSFT", "2026-11-19 16:00", "2026-11-20 22:00", kOld},
             // Over the weekend Friday's price is the newest, Thursday's is not.
             {"MSFT", "2026-11-20 16:00", "2026-11-22 12:00", kCurrent},
             {"MSFT", "2026-11-20 16:00", "2026-11-23 09:00", kCurrent},
             {"MSFT", "2026-11-20 15:00", "2026-11-23 09:00", kCurrent},
             {"MSFT", "2026-11-20 16:00", "2026-11-23 10:01", kOld},
             {"MSFT", "2026-11-19 16:00", "2026-11-21 12:00", kOld},
             {"MSFT", "2026-11-27 13:00", "2026-11-29 12:00", kCurrent}, // an early end
             {"MSFT", "2026-11-25 16:00", "2026-11-26 12:00", kCurrent}, // a holiday
             // An index is worked out all the time.
             {"^DJI", "2026-11-20 10:00", "2026-11-20 11:30", kCurrent},
             {"^DJI", "2026-11-20 10:00", "2026-11-20 11:31", kOld},
             {"^DJI", "2026-11-19 16:00", "2026-11-20 10:01", kOld},
             // A yield rests in the afternoon.
             {"^TYX", "2026-11-19 15:00", "2026-11-20 10:30", kCurrent},
             {"^TYX", "2026-11-19 15:00", "2026-11-20 10:31", kOld},
             {"^TYX", "2026-11-20 12:00", "2026-11-20 16:00", kCurrent},
             {"^TYX", "2026-11-20 11:59", "2026-11-20 16:00", kOld},
             // A fund has one price a day, which comes in the evening.
             {"VFINX", "2026-11-19 18:00", "2026-11-20 16:30", kCurrent},
             {"VFINX", "2026-11-20 18:00", "2026-11-23 16:30", kCurrent},
             {"VFINX", "2026-11-19 18:00", "2026-11-23 10:01", kOld},
             // Clocks of people's machines run behind.
             {"MSFT", "2026-11-20 10:04", "2026-11-20 10:00", kCurrent},
         })
        EXPECT_EQ(FreshnessOf(c.symbol, At(c.time), At(c.now)), c.worth)
            << c.symbol << " of " << c.time << " at " << c.now;
    EXPECT_EQ(FreshnessOf("MSFT", 0, At("2026-11-20")), Freshness::Unknown);
}

TEST(QuoteAge, LimitsTheAgeOfAChartByTheDistanceOfItsPoints) {
    const auto ends = [](PriceSpan span, const char* time) {
        return PriceSeries{"MSFT", span, {At(time)}, {1.0}, "", ""};
    };
    const std::int64_t now = At("2026-11-20 15:00");
    // A point of a day bears the time of its opening.
    EXPECT_EQ(FreshnessOf(ends(PriceSpan::Year, "2026-11-19 09:30"), now), Freshness::Current);
    EXPECT_EQ(FreshnessOf(ends(PriceSpan::Year, "2026-11-17 09:30"), now), Freshness::Old);
    EXPECT_EQ(FreshnessOf(ends(PriceSpan::FiveDays, "2026-11-20 13:00"), now), Freshness::Current);
    EXPECT_EQ(FreshnessOf(ends(PriceSpan::FiveDays, "2026-11-19 16:00"), now), Freshness::Old);
    EXPECT_EQ(FreshnessOf(ends(PriceSpan::Day, "2026-11-20 12:59"), now), Freshness::Old);
    EXPECT_EQ(FreshnessOf(PriceSeries{}, now), Freshness::Unknown);
}

TEST(QuoteAge, SaysAnAgeInAFewCharacters) {
    struct Case {
        std::int64_t age;
        const char* text;
    };
    for (const Case& c : {Case{-5, "1 min"},
                          {0, "1 min"},
                          {59, "1 min"},
                          {60, "1 min"},
                          {3599, "59 min"},
                          {3600, "1 h"},
                          {172799, "47 h"},
                          {172800, "2 d"},
                          {30 * 86400, "30 d"}})
        EXPECT_EQ(AgeText(kFridayClose - c.age, kFridayClose), c.text);
    EXPECT_EQ(AgeText(0, kFridayClose), "");
}

TEST(QuoteAge, KnowsWhetherTheMarketIsOpen) {
    struct Case {
        const char* time;
        bool isOpen;
    };
    for (const Case& c : {Case{"2026-11-20 09:29:59", false}, // a Friday
                          {"2026-11-20 09:30:00", true},
                          {"2026-11-20 12:00:00", true},
                          {"2026-11-20 15:59:59", true},
                          {"2026-11-20 16:00:00", false},
                          {"2026-11-21 12:00:00", false},
                          {"2026-11-27 12:59:00", true}, // the day after Thanksgiving
                          {"2026-11-27 13:00:00", false}})
        EXPECT_EQ(IsOpen(At(c.time)), c.isOpen) << c.time;
}

TEST(QuoteAge, AfterTheCloseNothingFollowsThePriceOfTheClose) {
    struct Case {
        const char* symbol;
        const char* time;     // that the price bears
        const char* received; // empty for never
        const char* now;
        bool mayBeFollowed;
    };
    constexpr const char* kUnsaid = "";
    for (const Case& c :
         {Case{"MSFT", "2026-11-20 11:00", "2026-11-20 11:00", "2026-11-20 11:01", true},
          {"MSFT", kUnsaid, "", "2026-11-21 11:00", true},
          // It bears the time of the close, or a later one.
          {"MSFT", "2026-11-20 16:00", "2026-11-20 16:01", "2026-11-20 16:02", false},
          {"MSFT", "2026-11-20 16:00", "2026-11-20 16:01", "2026-11-22 12:00", false},
          {"MSFT", "2026-11-20 16:00", "2026-11-20 16:01", "2026-11-23 09:29", false},
          {"MSFT", "2026-11-20 16:00", "2026-11-20 16:01", "2026-11-23 09:30", true},
          // It bears an earlier one, and the source may be late.
          {"MSFT", "2026-11-20 15:45", "2026-11-20 16:01", "2026-11-20 16:11", true},
          {"MSFT", "2026-11-20 15:45", "2026-11-20 16:29", "2026-11-20 16:39", true},
          {"MSFT", "2026-11-20 15:45", "2026-11-20 16:31", "2026-11-20 16:41", false},
          {"MSFT", kUnsaid, "2026-11-20 16:31", "2026-11-20 16:41", false},
          {"MSFT", kUnsaid, "2026-11-20 15:31", "2026-11-20 16:41", true},
          // A fund is priced in the evening.
          {"VFINX", "2026-11-19 16:00", "2026-11-20 18:00", "2026-11-20 18:10", true},
          {"VFINX", "2026-11-20 16:00", "2026-11-20 18:10", "2026-11-20 18:20", false},
          {"VFINX", "2026-11-19 16:00", "2026-11-20 21:01", "2026-11-20 21:11", false}})
        EXPECT_EQ(MayBeFollowed(c.symbol, *c.time ? At(c.time) : 0,
                                *c.received ? At(c.received) : 0, At(c.now)),
                  c.mayBeFollowed)
            << c.symbol << " of " << c.time << " at " << c.now;
}

} // namespace
} // namespace tallowmere
