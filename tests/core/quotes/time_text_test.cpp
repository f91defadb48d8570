#include "core/quotes/time_text.h"

#include "core/quotes/source_files.h"

namespace tallowmere {
namespace {

TEST(TimeText, ReadsTimesWithAndWithoutAZone) {
    struct Case {
        std::string_view text;
        std::optional<std::int64_t> time;
    };
    for (const Case& c : {Case{"2026-11-20T16:00:00.000-0500", kFridayClose},
                          {"2026-11-20T21:00:00Z", kFridayClose},
                          {"2026-11-20T22:00:00+01:00", kFridayClose},
                          {"2026-11-20T16:00:00", kFridayClose},
                          {"2026-11-20 16:00", kFridayClose},
                          {"2026-11-20", kFridayClose},
                          {"2026-02-30", std::nullopt},
                          {"2026-11-20T25:00:00Z", std::nullopt},
                          {"2026-11-20X16:00", std::nullopt},
                          {"", std::nullopt}})
        EXPECT_EQ(ReadIsoTime(c.text), c.time) << c.text;
}

TEST(TimeText, KnowsTheSummerTimeOfNewYork) {
    // Noon in New York is 17:00 in UTC in winter and 16:00 in summer.
    EXPECT_EQ(ReadIsoTime("2026-03-07T12:00:00"), ReadIsoTime("2026-03-07T17:00:00Z"));
    EXPECT_EQ(ReadIsoTime("2026-03-08T12:00:00"), ReadIsoTime("2026-03-08T16:00:00Z"));
    EXPECT_EQ(ReadIsoTime("2026-03-08T01:59:00"), ReadIsoTime("2026-03-08T06:59:00Z"));
    EXPECT_EQ(ReadIsoTime("2026-03-08T03:00:00"), ReadIsoTime("2026-03-08T07:00:00Z"));
    EXPECT_EQ(ReadIsoTime("2026-10-31T12:00:00"), ReadIsoTime("2026-10-31T16:00:00Z"));
    EXPECT_EQ(ReadIsoTime("2026-11-01T12:00:00"), ReadIsoTime("2026-11-01T17:00:00Z"));
    EXPECT_EQ(ReadIsoTime("2026-11-01T00:59:00"), ReadIsoTime("2026-11-01T04:59:00Z"));
    EXPECT_EQ(ReadIsoTime("2026-11-01T02:00:00"), ReadIsoTime("2026-11-01T07:00:00Z"));
}

TEST(TimeText, ReadsTimesInWords) {
    EXPECT_EQ(ReadUsTime("Nov 20, 2026 4:00 PM ET"), kFridayClose);
    EXPECT_EQ(ReadUsTime("Closed at Nov 20, 2026 4:00 PM ET"), kFridayClose);
    EXPECT_EQ(ReadUsTime("Market closed at Nov 20, 2026 4:00 PM ET"), kFridayClose);
    EXPECT_EQ(ReadUsTime("Nov 20, 2026"), kFridayClose);
    EXPECT_EQ(ReadUsTime("Nov 20, 2026 12:00 AM ET"), kFridayClose - 16 * 3600);
    EXPECT_EQ(ReadUsTime("Nov 20, 2026 12:30 PM ET"), kFridayClose - 3 * 3600 - 1800);
    EXPECT_EQ(ReadUsTime("Nov 20, 2026 13:00 PM ET"), std::nullopt);
    EXPECT_EQ(ReadUsTime("Nov 2026"), std::nullopt);
    EXPECT_EQ(ReadUsTime("N/A"), std::nullopt);
}

TEST(TimeText, ReadsDatesByMonthFirst) {
    EXPECT_EQ(ReadUsDate("11/20/2026", 16, 0), kFridayClose);
    EXPECT_EQ(ReadUsDate("20/11/2026", 16, 0), std::nullopt);
    EXPECT_EQ(ReadUsDate("11/20/2026x", 16, 0), std::nullopt);
    EXPECT_EQ(ReadUsDate("", 16, 0), std::nullopt);
}

TEST(TimeText, ReadsHowLongToWait) {
    EXPECT_EQ(ReadRetryAfter("120", kFridayClose), 120);
    EXPECT_EQ(ReadRetryAfter(" 0 ", kFridayClose), 0);
    EXPECT_EQ(ReadRetryAfter("Fri, 20 Nov 2026 21:01:30 GMT", kFridayClose), 90);
    EXPECT_EQ(ReadRetryAfter("Fri, 20 Nov 2026 20:00:00 GMT", kFridayClose), 0);
    EXPECT_EQ(ReadRetryAfter("-5", kFridayClose), std::nullopt);
    EXPECT_EQ(ReadRetryAfter("soon", kFridayClose), std::nullopt);
    EXPECT_EQ(ReadRetryAfter("", kFridayClose), std::nullopt);
    EXPECT_EQ(ReadRetryAfter("99999999999999999999", kFridayClose), std::nullopt);
}

TEST(TimeText, ShowsTimesOfNewYork) {
    EXPECT_EQ(ShowTime(kFridayClose), "Nov 20, 2026 4:00 PM ET");
    EXPECT_EQ(ShowTime(kFridayClose - 16 * 3600 + 300), "Nov 20, 2026 12:05 AM ET");
    EXPECT_EQ(AtNewYork(1798779600 - 1).year, 2026); // midnight in New York
    EXPECT_EQ(AtNewYork(1798779600).year, 2027);
    EXPECT_EQ(WeekdayName(AtNewYork(kFridayClose).weekday), "Fri");
    EXPECT_EQ(AtNewYork(kFridayClose).hour, 16);
}

} // namespace
} // namespace tallowmere
