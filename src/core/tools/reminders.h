#pragma once

#include "core/text/date.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The daily reminders: a keyed store whose keys are days.
namespace tallowmere {

/// The store of the reminders, as its routine takes it.
constexpr std::string_view kRemindersFile = "\\remind.txt";

constexpr std::string_view kNoReminders = "No reminders have been set...";

/// The key of a day, "MM-DD-YYYY".
std::string DayKey(Date day);

/// What a reminder is called: "Reminder of MM/DD/YYYY".
std::string ReminderWords(Date day);

/// The day of a key; none for a text that is not of the form "MM-DD-YYYY" or no day of a calendar.
std::optional<Date> DayOfKey(std::string_view key);

/// Whether the content of the store has a reminder for the day.
bool HasReminder(std::string_view content, Date day);

/// One record of the store; views into its content.
struct Reminder {
    std::string_view key;
    std::string_view text;
};

/// The records of the store in their order. A record without an end, and what follows, is left out.
std::vector<Reminder> ReadReminders(std::string_view content);

/// The line of the summary for a record: "MM/DD/YYYY - text" on one line; a key that is no day
/// stands as it is.
std::string SummaryLine(const Reminder& reminder);

/// The count beside the summary, "( 3 )".
std::string SummaryCount(std::size_t count);

/// The reminders of the days after `after` up to `today`, the oldest first.
std::vector<Reminder> RemindersSince(std::string_view content, Date after, Date today);

/// What is said of reminders that came due: "Reminder: MSFT goes ex dividend", and with others
/// "Reminders: MSFT goes ex dividend (and 2 more)". Empty without any.
std::string DueWords(const std::vector<Reminder>& due);

/// What the summary shows.
struct ReminderSummary {
    std::vector<std::string> lines;        ///< one per reminder, or the line that there are none
    std::vector<std::optional<Date>> days; ///< the day that a click on each line chooses
    std::string count;
};

/// The summary of a store. A record without a text is no reminder.
ReminderSummary Summarize(std::string_view content);

} // namespace tallowmere
