#include "core/tools/reminders.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Every record lies in the content, in its order, and gives one line unless its text is empty; a
// day that a line chooses is written as a key that reads back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tallowmere;
    const std::string_view content(reinterpret_cast<const char*>(data), size);
    const auto reminders = ReadReminders(content);
    const char* from = content.data();
    std::size_t listed = 0;
    for (const Reminder& reminder : reminders) {
        const char* textEnd = reminder.text.data() + reminder.text.size();
        if (reminder.key.data() < from || textEnd > content.data() + content.size() ||
            reminder.text.find("|||||") != std::string_view::npos)
            std::abort();
        from = textEnd;
        listed += reminder.text.empty() ? 0 : 1;
    }
    const ReminderSummary summary = Summarize(content);
    if (summary.lines.size() != std::max<std::size_t>(listed, 1) ||
        summary.days.size() != summary.lines.size())
        std::abort();
    for (const auto& day : summary.days) {
        if (day && (DayOfKey(DayKey(*day)) != day || !HasReminder(content, *day)))
            std::abort();
    }
    return 0;
}
