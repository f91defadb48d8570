#include "core/tools/reminders.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace tallowmere {

namespace {

constexpr std::string_view kBar = "||";
constexpr std::string_view kEnd = "|||||";

/// The decimal text of a number, filled up with zeros.
std::string Padded(int number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), '0') + digits;
}

std::string Formatted(Date day, const std::string& separator) {
    return Padded(day.month, 2) + separator + Padded(day.day, 2) + separator + Padded(day.year, 4);
}

int DaysIn(int month, int year) {
    constexpr std::array<int, 12> kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && leap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
}

/// The number that the digits of `text` give, -1 when it holds anything else.
int Number(std::string_view text) {
    int number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9')
            return -1;
        number = number * 10 + (c - '0');
    }
    return number;
}

bool IsBefore(Date one, Date other) {
    return std::tie(one.year, one.month, one.day) < std::tie(other.year, other.month, other.day);
}

/// Skips what is left of the bars of a text that itself ends with bars: its end was found too
/// early, and up to the line end they would be taken for the start of the next record. `inspected`
/// is the size of the rest behind the bars that were looked at last, so that a file of nothing but
/// bars is walked once.
void SkipLeftBars(Cursor& cursor, std::size_t& inspected) {
    const std::string_view rest = cursor.Rest();
    if (rest.size() > inspected)
        return;
    const std::size_t bars = std::min(rest.find_first_not_of('|'), rest.size());
    inspected = rest.size() - bars;
    if (inspected == 0 || rest[bars] == '\r' || rest[bars] == '\n')
        cursor.Skip(bars);
}

} // namespace

std::string DayKey(Date day) {
    return Formatted(day, "-");
}

std::string ReminderWords(Date day) {
    return "Reminder of " + Formatted(day, "/");
}

std::optional<Date> DayOfKey(std::string_view key) {
    if (key.size() != 10 || key[2] != '-' || key[5] != '-')
        return std::nullopt;
    const Date day{Number(key.substr(6)), Number(key.substr(0, 2)), Number(key.substr(3, 2))};
    if (day.year < 1 || day.month < 1 || day.month > 12 || day.day < 1 ||
        day.day > DaysIn(day.month, day.year))
        return std::nullopt;
    return day;
}

bool HasReminder(std::string_view content, Date day) {
    return Contains(content, std::string(kBar) + DayKey(day) + std::string(kBar));
}

std::vector<Reminder> ReadReminders(std::string_view content) {
    std::vector<Reminder> reminders;
    Cursor cursor(content);
    Reminder reminder;
    std::size_t inspected = content.size();
    while (cursor.SkipPast(kBar) && cursor.ReadUpTo(kBar, reminder.key) &&
           cursor.ReadUpTo(kEnd, reminder.text)) {
        reminders.push_back(reminder);
        SkipLeftBars(cursor, inspected);
    }
    return reminders;
}

std::vector<Reminder> RemindersSince(std::string_view content, Date after, Date today) {
    std::vector<std::pair<Date, Reminder>> due;
    for (const Reminder& reminder : ReadReminders(content))
        if (const auto day = DayOfKey(reminder.key);
            day && !reminder.text.empty() && IsBefore(after, *day) && !IsBefore(today, *day))
            due.emplace_back(*day, reminder);
    std::stable_sort(due.begin(), due.end(), [](const auto& one, const auto& other) {
        return IsBefore(one.first, other.first);
    });
    std::vector<Reminder> reminders;
    for (const auto& [day, reminder] : due)
        reminders.push_back(reminder);
    return reminders;
}

std::string DueWords(const std::vector<Reminder>& due) {
    if (due.empty())
        return {};
    const std::string_view text = due.front().text;
    const std::string first(text.substr(0, text.find_first_of("\r\n")));
    return due.size() == 1
               ? "Reminder: " + first
               : "Reminders: " + first + " (and " + std::to_string(due.size() - 1) + " more)";
}

std::string SummaryLine(const Reminder& reminder) {
    const std::optional<Date> day = DayOfKey(reminder.key);
    return (day ? Formatted(*day, "/") : std::string(reminder.key)) + " - " +
           ReplaceAll(reminder.text, "\r\n", " ");
}

std::string SummaryCount(std::size_t count) {
    return "( " + std::to_string(count) + " )";
}

ReminderSummary Summarize(std::string_view content) {
    ReminderSummary summary;
    for (const Reminder& reminder : ReadReminders(content)) {
        if (reminder.text.empty())
            continue;
        summary.lines.push_back(SummaryLine(reminder));
        summary.days.push_back(DayOfKey(reminder.key));
    }
    summary.count = SummaryCount(summary.lines.size());
    if (summary.lines.empty()) {
        summary.lines.emplace_back(kNoReminders);
        summary.days.emplace_back();
    }
    return summary;
}

} // namespace tallowmere
