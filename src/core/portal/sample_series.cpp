#include "core/portal/sample_series.h"

#include "core/portal/noise.h"
#include "core/quotes/time_text.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace tallowmere {

namespace {

using std::chrono::days;
using std::chrono::sys_days;

constexpr std::size_t kClosesOfThreeMonths = 64;
constexpr int kDaysOfThreeMonths = 91;
constexpr int kDaysOfYear = 365;
constexpr std::size_t kQuarterHoursOfDay = 26; // 9:30 to 16:00
constexpr std::size_t kFiveMinutesOfDay = 78;

sys_days LastTradingDay(Date today) {
    sys_days day = std::chrono::year(today.year) / today.month / today.day;
    while (std::chrono::weekday(day).iso_encoding() > 5)
        day -= days(1);
    return day;
}

/// Appends the prices of a day: a walk that starts at the close of the day before and ends at its
/// own close.
void AppendDay(const SampleQuote& quote, std::size_t day, std::size_t steps,
               std::vector<double>& prices) {
    const double from = quote.closes[day == 0 ? 0 : day - 1];
    const double to = quote.closes[day];
    const double stride = (from + to) / 2 * 0.012 / std::sqrt(static_cast<double>(steps));
    Noise noise(quote.symbol + std::to_string(day));
    std::vector<double> walk{0};
    for (std::size_t step = 1; step < steps; ++step)
        walk.push_back(walk.back() + noise.Next() * stride);
    for (std::size_t step = 0; step < steps; ++step) {
        const double part = static_cast<double>(step) / static_cast<double>(steps - 1);
        prices.push_back(from + (to - from) * part + walk[step] - walk.back() * part);
    }
}

std::vector<double> LastDays(const SampleQuote& quote, std::size_t count, std::size_t steps) {
    std::vector<double> prices;
    const std::size_t first = quote.closes.size() - std::min(count, quote.closes.size());
    for (std::size_t day = first; day < quote.closes.size(); ++day)
        AppendDay(quote, day, steps, prices);
    return prices;
}

std::vector<double> LastCloses(const SampleQuote& quote, std::size_t count) {
    const auto first = quote.closes.size() - std::min(count, quote.closes.size());
    return {quote.closes.begin() + static_cast<std::ptrdiff_t>(first), quote.closes.end()};
}

std::string_view MonthText(std::chrono::year_month_day date) {
    return MonthName(static_cast<int>(static_cast<unsigned>(date.month())));
}

std::string DayText(std::chrono::year_month_day date) {
    return std::string(MonthText(date)) + " " + std::to_string(static_cast<unsigned>(date.day()));
}

/// Labels of a span of calendar days that ends with `last`: months, or with the day in the middle
/// of each month too when the span is short.
std::vector<ChartLabel> DateLabels(sys_days last, int span) {
    std::vector<ChartLabel> labels;
    const bool withDays = span < kDaysOfYear;
    for (int day = 0; day <= span; ++day) {
        const std::chrono::year_month_day date(last - days(span - day));
        const unsigned dayOfMonth = static_cast<unsigned>(date.day());
        if (dayOfMonth != 1 && !(withDays && dayOfMonth == 15))
            continue;
        labels.push_back({static_cast<double>(day) / span,
                          withDays ? DayText(date) : std::string(MonthText(date))});
    }
    return labels;
}

std::vector<ChartLabel> WeekdayLabels(sys_days last) {
    std::vector<ChartLabel> labels(5);
    sys_days day = last;
    for (int column = 4; column >= 0; --column) {
        labels[static_cast<std::size_t>(column)] = {
            (column + 0.5) / 5,
            std::string(WeekdayName(static_cast<int>(std::chrono::weekday(day).c_encoding())))};
        do
            day -= days(1);
        while (std::chrono::weekday(day).iso_encoding() > 5);
    }
    return labels;
}

std::vector<ChartLabel> HourLabels() {
    std::vector<ChartLabel> labels;
    for (int hour = 10; hour <= 16; hour += 2)
        labels.push_back({(hour - 9.5) / 6.5, std::to_string(hour) + ":00"});
    return labels;
}

} // namespace

Chart SampleChart(const SampleQuote& quote, Period period, Date today) {
    const sys_days last = LastTradingDay(today);
    const std::string note(kSampleNote);
    switch (period) {
    case Period::Day:
        return {quote.symbol + " 1 day", note, SampleDay(quote), HourLabels()};
    case Period::FiveDays:
        return {quote.symbol + " 5 days", note, LastDays(quote, 5, kQuarterHoursOfDay),
                WeekdayLabels(last)};
    case Period::ThreeMonths:
        return {quote.symbol + " 3 months", note, LastCloses(quote, kClosesOfThreeMonths),
                DateLabels(last, kDaysOfThreeMonths)};
    case Period::Year:
        break;
    }
    return {quote.symbol + " 1 year", note, quote.closes, DateLabels(last, kDaysOfYear)};
}

std::vector<double> SampleDay(const SampleQuote& quote) {
    return LastDays(quote, 1, kFiveMinutesOfDay);
}

std::string LastTradingDayText(Date today) {
    return DayText(LastTradingDay(today));
}

} // namespace tallowmere
