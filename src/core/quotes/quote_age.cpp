#include "core/quotes/quote_age.h"

#include "core/quotes/symbol_dialect.h"
#include "core/quotes/time_text.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kHour = 60 * kMinute;
constexpr std::int64_t kDay = 24 * kHour;
constexpr std::int64_t kLongestMeasured = 31 * kDay;
constexpr int kDayOfTrading = 390; // minutes

/// The most open minutes that a price may be behind: since it was made, and once a new day of
/// trading has begun. Sources are up to twenty minutes late.
struct Limit {
    int within;
    int intoNewDay;
};

// clang-format off
constexpr Limit kLimits[] = {                     // by PriceKind
    {120,                30},                     // Share: a small one is not traded every minute
    { 90,                30},                     // Index: worked out anew all the time
    {240,                60},                     // Yield: quoted until 15:00 only
    {kDayOfTrading + 30, kDayOfTrading + 30},     // Fund: one price a day, told in the evening
};
// A point stands for the time that begins with it.
constexpr Limit kDailyPoints    {2 * kDayOfTrading + 30, 2 * kDayOfTrading + 30};
constexpr Limit kHalfHourPoints {120, 90};
// clang-format on

bool IsNthMonday(int nth, int day, int weekday) {
    return weekday == 1 && (day - 1) / 7 + 1 == nth;
}

/// Easter Sunday as the day of the year's March: April 1 is 32.
int EasterInMarch(int year) {
    // The rule of the Gregorian calendar as Butcher wrote it down.
    const int a = year % 19, b = year / 100, c = year % 100;
    const int d = (19 * a + b - b / 4 - (b - (b + 8) / 25 + 1) / 3 + 15) % 30;
    const int e = (32 + 2 * (b % 4) + 2 * (c / 4) - d - c % 4) % 7;
    const int f = (a + 11 * d + 22 * e) / 451;
    return d + e - 7 * f + 22;
}

/// A holiday of a fixed date is kept on the Friday before a Saturday and on the Monday after a
/// Sunday. On those two nobody trades anyway.
bool IsKept(int holiday, int day, int weekday) {
    return day == holiday || (day == holiday - 1 && weekday == 5) ||
           (day == holiday + 1 && weekday == 1);
}

bool IsHoliday(int year, int month, int day, int weekday) {
    switch (month) {
    case 1: // New Year, which no Friday before it stands in for, and Martin Luther King's day
        return IsKept(1, day, weekday) || IsNthMonday(3, day, weekday);
    case 2:
        return IsNthMonday(3, day, weekday);
    case 5: // the last Monday
        return weekday == 1 && day > 24;
    case 6:
        return year >= 2022 && IsKept(19, day, weekday);
    case 7:
        return IsKept(4, day, weekday);
    case 9:
        return IsNthMonday(1, day, weekday);
    case 11: // the fourth Thursday
        return weekday == 4 && (day - 1) / 7 == 3;
    case 12:
        return IsKept(25, day, weekday);
    default:
        break;
    }
    const int inMarch = month == 3 ? day : month == 4 ? day + 31 : 0;
    return inMarch != 0 && inMarch == EasterInMarch(year) - 2;
}

/// Trading ends at 13:00 on the day after Thanksgiving and before Independence Day and Christmas.
bool EndsEarly(int month, int day, int weekday) {
    const bool isBeforeHoliday = weekday >= 1 && weekday <= 4;
    return (month == 7 && day == 3 && isBeforeHoliday) ||
           (month == 12 && day == 24 && isBeforeHoliday) ||
           (month == 11 && weekday == 5 && (day - 2) / 7 == 3);
}

int MinutesOf(const NewYorkClock& clock) {
    constexpr int kShortDay = 210;
    if (clock.weekday == 0 || clock.weekday == 6 ||
        IsHoliday(clock.year, clock.month, clock.day, clock.weekday))
        return 0;
    return EndsEarly(clock.month, clock.day, clock.weekday) ? kShortDay : kDayOfTrading;
}

/// How many minutes of the day's trading have passed when a clock shows this.
int MinutesPassed(const NewYorkClock& clock) {
    constexpr int kOpening = 9 * 60 + 30;
    return std::clamp(clock.hour * 60 + clock.minute - kOpening, 0, MinutesOf(clock));
}

bool IsSameDay(const NewYorkClock& one, const NewYorkClock& other) {
    return one.day == other.day && one.month == other.month && one.year == other.year;
}

Freshness Judge(const Limit& limit, std::int64_t time, std::int64_t now) {
    if (time == 0)
        return Freshness::Unknown;
    const NewYorkClock clock = AtNewYork(now);
    const bool isOfEarlierDay = time < now && !IsSameDay(AtNewYork(time), clock);
    const bool isPastLimit = OpenMinutes(time, now) > limit.within ||
                             (isOfEarlierDay && MinutesPassed(clock) > limit.intoNewDay);
    return isPastLimit ? Freshness::Old : Freshness::Current;
}

} // namespace

PriceKind KindOf(std::string_view ownSymbol) {
    constexpr std::array<std::string_view, 4> kYields = {"^TYX", "^TNX", "^FVX", "^IRX"};
    if (std::find(kYields.begin(), kYields.end(), ownSymbol) != kYields.end())
        return PriceKind::Yield;
    if (IsIndexSymbol(ownSymbol))
        return PriceKind::Index;
    const bool isFund = ownSymbol.size() == 5 && ownSymbol.back() == 'X' &&
                        std::all_of(ownSymbol.begin(), ownSymbol.end(),
                                    [](char c) { return c >= 'A' && c <= 'Z'; });
    return isFund ? PriceKind::Fund : PriceKind::Share;
}

int TradingMinutes(std::int64_t time) {
    return MinutesOf(AtNewYork(time));
}

std::int64_t OpenMinutes(std::int64_t from, std::int64_t to) {
    from = std::max(from, to - kLongestMeasured);
    if (to <= from)
        return 0;
    const NewYorkClock start = AtNewYork(from);
    const NewYorkClock end = AtNewYork(to);
    std::int64_t minutes = MinutesPassed(end) - MinutesPassed(start);
    // Noon of every day from the first one on: no change of the clocks moves it to another day.
    NewYorkClock day = start;
    std::int64_t noon = from + (12 - start.hour) * kHour;
    while (!IsSameDay(day, end)) {
        minutes += MinutesOf(day);
        noon += kDay;
        day = AtNewYork(noon);
    }
    return minutes;
}

bool IsOpen(std::int64_t time) {
    return OpenMinutes(time, time + kMinute) > 0;
}

bool MayBeFollowed(std::string_view ownSymbol, std::int64_t time, std::int64_t receivedAt,
                   std::int64_t now) {
    if (IsOpen(now) || receivedAt == 0)
        return true;
    if (time != 0 && OpenMinutes(time, now) == 0)
        return false;
    // The price of a fund is told in the evening, any other one twenty minutes late at most.
    const std::int64_t lateness = KindOf(ownSymbol) == PriceKind::Fund ? 5 * kHour : kHour / 2;
    return OpenMinutes(receivedAt - lateness, now) > 0;
}

Freshness FreshnessOf(std::string_view ownSymbol, std::int64_t time, std::int64_t now) {
    return Judge(kLimits[static_cast<std::size_t>(KindOf(ownSymbol))], time, now);
}

Freshness FreshnessOf(const PriceSeries& series, std::int64_t now) {
    if (series.times.empty())
        return Freshness::Unknown;
    return Judge(series.span == PriceSpan::Year ? kDailyPoints : kHalfHourPoints,
                 series.times.back(), now);
}

std::string AgeText(std::int64_t time, std::int64_t now) {
    if (time == 0)
        return {};
    const std::int64_t age = std::max<std::int64_t>(0, now - time);
    if (age < kHour)
        return std::to_string(std::max<std::int64_t>(1, age / kMinute)) + " min";
    if (age < 2 * kDay)
        return std::to_string(age / kHour) + " h";
    return std::to_string(age / kDay) + " d";
}

} // namespace tallowmere
