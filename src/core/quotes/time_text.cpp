#include "core/quotes/time_text.h"

#include "core/text/bytes.h"

#include <array>
#include <charconv>
#include <chrono>

namespace tallowmere {

namespace {

using namespace std::chrono;

constexpr std::array<std::string_view, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// Reads pieces off the front of a text; the first piece that is missing makes all fail.
class Reader {
public:
    explicit Reader(std::string_view text) : m_rest(text) {}

    int Number(std::size_t maximumDigits) {
        int value = 0;
        std::size_t digits = 0;
        while (digits < maximumDigits && digits < m_rest.size() && m_rest[digits] >= '0' &&
               m_rest[digits] <= '9')
            value = value * 10 + (m_rest[digits++] - '0');
        m_ok = m_ok && digits > 0;
        m_rest.remove_prefix(digits);
        return value;
    }

    bool Accept(std::string_view text) {
        if (!m_rest.starts_with(text))
            return false;
        m_rest.remove_prefix(text.size());
        return true;
    }

    void Expect(std::string_view text) { m_ok = Accept(text) && m_ok; }

    /// The number of the month whose short name comes next.
    int Month() {
        for (std::size_t i = 0; i < kMonths.size(); ++i)
            if (Accept(kMonths[i]))
                return static_cast<int>(i) + 1;
        m_ok = false;
        return 0;
    }

    std::string_view Rest() const { return m_rest; }
    bool Ok() const { return m_ok; }

private:
    std::string_view m_rest;
    bool m_ok = true;
};

std::optional<std::int64_t> UtcTime(int y, int m, int d, int hour, int minute, int second) {
    const year_month_day date{year(y), month(static_cast<unsigned>(m)),
                              day(static_cast<unsigned>(d))};
    if (y < 1900 || y > 9999 || !date.ok() || hour > 23 || minute > 59 || second > 60)
        return std::nullopt;
    return duration_cast<seconds>(sys_days(date).time_since_epoch()).count() + hour * 3600 +
           minute * 60 + second;
}

/// How far New York is behind UTC at a moment: summer time runs from the second Sunday of March to
/// the first of November, each at two o'clock in the morning.
std::int64_t SecondsBehindUtc(std::int64_t utc) {
    const auto days = floor<std::chrono::days>(sys_seconds(seconds(utc)));
    const year y = year_month_day(days).year();
    const auto start = sys_seconds(sys_days(y / March / Sunday[2])) + hours(7);
    const auto end = sys_seconds(sys_days(y / November / Sunday[1])) + hours(6);
    const auto moment = sys_seconds(seconds(utc));
    return moment >= start && moment < end ? 4 * 3600 : 5 * 3600;
}

std::optional<std::int64_t> FromNewYork(std::optional<std::int64_t> wallClock) {
    if (!wallClock)
        return std::nullopt;
    return *wallClock + SecondsBehindUtc(*wallClock + 5 * 3600 - 1800);
}

} // namespace

std::optional<std::int64_t> NewYorkTime(int y, int m, int d, int hour, int minute, int second) {
    return FromNewYork(UtcTime(y, m, d, hour, minute, second));
}

std::optional<std::int64_t> ReadIsoTime(std::string_view text) {
    Reader reader(Trim(text));
    const int y = reader.Number(4);
    reader.Expect("-");
    const int m = reader.Number(2);
    reader.Expect("-");
    const int d = reader.Number(2);
    if (!reader.Ok())
        return std::nullopt;
    if (reader.Rest().empty())
        return NewYorkTime(y, m, d, 16, 0, 0);
    if (!reader.Accept("T"))
        reader.Expect(" ");
    const int hour = reader.Number(2);
    reader.Expect(":");
    const int minute = reader.Number(2);
    const int second = reader.Accept(":") ? reader.Number(2) : 0;
    if (reader.Accept("."))
        reader.Number(9);
    const auto wallClock = UtcTime(y, m, d, hour, minute, second);
    if (!reader.Ok() || !wallClock)
        return std::nullopt;
    if (reader.Accept("Z"))
        return wallClock;
    const bool ahead = reader.Accept("+");
    if (!ahead && !reader.Accept("-"))
        return FromNewYork(wallClock);
    const int zoneHours = reader.Number(2);
    reader.Accept(":");
    const int zoneMinutes = reader.Number(2);
    if (!reader.Ok())
        return std::nullopt;
    const std::int64_t offset = zoneHours * 3600 + zoneMinutes * 60;
    return ahead ? *wallClock - offset : *wallClock + offset;
}

std::optional<std::int64_t> ReadUsTime(std::string_view text) {
    auto start = std::string_view::npos;
    for (const auto name : kMonths)
        start = std::min(start, text.find(std::string(name) + " "));
    if (start == std::string_view::npos)
        return std::nullopt;
    Reader reader(text.substr(start));
    const int m = reader.Month();
    reader.Expect(" ");
    const int d = reader.Number(2);
    reader.Expect(", ");
    const int y = reader.Number(4);
    if (!reader.Ok())
        return std::nullopt;
    if (!reader.Accept(" ") || reader.Rest().empty())
        return NewYorkTime(y, m, d, 16, 0, 0);
    const int hour = reader.Number(2);
    reader.Expect(":");
    const int minute = reader.Number(2);
    if (reader.Accept(":"))
        reader.Number(2);
    reader.Accept(" ");
    const bool afternoon = reader.Accept("PM");
    if (!afternoon)
        reader.Expect("AM");
    if (!reader.Ok() || hour < 1 || hour > 12)
        return std::nullopt;
    return NewYorkTime(y, m, d, hour % 12 + (afternoon ? 12 : 0), minute, 0);
}

std::optional<std::int64_t> ReadUsDate(std::string_view text, int hour, int minute) {
    Reader reader(Trim(text));
    const int m = reader.Number(2);
    reader.Expect("/");
    const int d = reader.Number(2);
    reader.Expect("/");
    const int y = reader.Number(4);
    if (!reader.Ok() || !reader.Rest().empty())
        return std::nullopt;
    return NewYorkTime(y, m, d, hour, minute, 0);
}

std::optional<std::int64_t> ReadRetryAfter(std::string_view header, std::int64_t now) {
    const std::string_view text = Trim(header);
    std::int64_t count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error == std::errc() && end == text.data() + text.size() && count >= 0)
        return count;
    const auto comma = text.find(", ");
    if (comma == std::string_view::npos)
        return std::nullopt;
    Reader reader(text.substr(comma + 2));
    const int d = reader.Number(2);
    reader.Expect(" ");
    const int m = reader.Month();
    reader.Expect(" ");
    const int y = reader.Number(4);
    reader.Expect(" ");
    const int hour = reader.Number(2);
    reader.Expect(":");
    const int minute = reader.Number(2);
    reader.Expect(":");
    const int second = reader.Number(2);
    reader.Expect(" GMT");
    const auto moment = UtcTime(y, m, d, hour, minute, second);
    if (!reader.Ok() || !moment)
        return std::nullopt;
    return std::max<std::int64_t>(0, *moment - now);
}

NewYorkClock AtNewYork(std::int64_t time) {
    const sys_seconds local(seconds(time - SecondsBehindUtc(time)));
    const auto date = floor<days>(local);
    const year_month_day ymd(date);
    const auto minutes =
        static_cast<int>(duration_cast<std::chrono::minutes>(local - date).count());
    return {static_cast<int>(ymd.year()),
            static_cast<int>(static_cast<unsigned>(ymd.month())),
            static_cast<int>(static_cast<unsigned>(ymd.day())),
            static_cast<int>(std::chrono::weekday(date).c_encoding()),
            minutes / 60,
            minutes % 60};
}

std::string_view MonthName(int m) {
    return kMonths[static_cast<std::size_t>(m - 1)];
}

std::string_view WeekdayName(int weekday) {
    constexpr std::array<std::string_view, 7> kWeekdays = {"Sun", "Mon", "Tue", "Wed",
                                                           "Thu", "Fri", "Sat"};
    return kWeekdays[static_cast<std::size_t>(weekday)];
}

std::string ShowTime(std::int64_t time) {
    const NewYorkClock clock = AtNewYork(time);
    const int hour = clock.hour % 12 == 0 ? 12 : clock.hour % 12;
    return std::string(MonthName(clock.month)) + " " + std::to_string(clock.day) + ", " +
           std::to_string(clock.year) + " " + std::to_string(hour) +
           (clock.minute < 10 ? ":0" : ":") + std::to_string(clock.minute) +
           (clock.hour < 12 ? " AM ET" : " PM ET");
}

} // namespace tallowmere
