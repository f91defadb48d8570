#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The ways in which sources write a time. All results are epoch seconds in UTC.
namespace tallowmere {

/// The moment of a wall-clock time in New York, where the exchanges are; none for a date or time
/// that does not exist.
std::optional<std::int64_t> NewYorkTime(int year, int month, int day, int hour, int minute,
                                        int second);

/// "2026-08-21T16:00:00.000-0400", "2026-08-21T20:00:00Z" or, without a zone, a New York time;
/// a blank may stand for the T. A bare date is the close of that day's trading, 4 PM New York.
std::optional<std::int64_t> ReadIsoTime(std::string_view text);

/// "Aug 21, 2026 4:08 PM ET", with or without words before it; a bare date is 4 PM New York.
std::optional<std::int64_t> ReadUsTime(std::string_view text);

/// "08/21/2026" at `hour`:`minute` New York.
std::optional<std::int64_t> ReadUsDate(std::string_view text, int hour, int minute);

/// Seconds to wait by a Retry-After header at `now`: a number of seconds or a date of HTTP. None
/// for an empty or unreadable header; a date in the past is 0.
std::optional<std::int64_t> ReadRetryAfter(std::string_view header, std::int64_t now);

/// What clocks and calendars in New York show.
struct NewYorkClock {
    int year;
    int month; ///< from 1
    int day;
    int weekday; ///< 0 is Sunday
    int hour;
    int minute;
};

/// The clock of New York at a moment.
NewYorkClock AtNewYork(std::int64_t time);

/// The short English names of a month, from 1, and of a weekday, from 0 for Sunday.
std::string_view MonthName(int month);
std::string_view WeekdayName(int weekday);

/// A moment for people: "Nov 20, 2026 4:00 PM ET".
std::string ShowTime(std::int64_t time);

} // namespace tallowmere
