#include "core/portfolio/ticker_reminders.h"

#include "core/text/bytes.h"
#include "core/tools/reminders.h"

#include <algorithm>
#include <set>
#include <tuple>

namespace tallowmere {

namespace {

bool IsBefore(Date one, Date other) {
    return std::tie(one.year, one.month, one.day) < std::tie(other.year, other.month, other.day);
}

/// What tickers are written with; dots and the like also end sentences.
bool IsOfTicker(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
           static_cast<unsigned char>(c) >= 0x80 ||
           std::string_view(".-^/=&").find(c) != std::string_view::npos;
}

bool IsEndOfSentence(char c) {
    return c == '.' || c == '-' || c == '/' || c == '=' || c == '&';
}

/// The words of a text that are in capitals.
std::set<std::string, std::less<>> CapitalWords(std::string_view text) {
    std::set<std::string, std::less<>> words;
    while (!text.empty()) {
        const auto first = std::ranges::find_if(text, IsOfTicker);
        text.remove_prefix(static_cast<std::size_t>(first - text.begin()));
        const auto end = std::ranges::find_if_not(text, IsOfTicker);
        std::string_view word = text.substr(0, static_cast<std::size_t>(end - text.begin()));
        text.remove_prefix(word.size());
        while (!word.empty() && IsEndOfSentence(word.back()))
            word.remove_suffix(1);
        if (!word.empty() && ToUpper(word) == word)
            words.emplace(word);
    }
    return words;
}

} // namespace

ReminderIndex::ReminderIndex(std::string_view content, Date today) {
    for (const Reminder& reminder : ReadReminders(content)) {
        const auto day = DayOfKey(reminder.key);
        if (!day || IsBefore(*day, today))
            continue;
        for (const std::string& word : CapitalWords(reminder.text)) {
            TickerReminders& found = m_byWord[word];
            ++found.count;
            if (!found.next || IsBefore(*day, *found.next))
                found.next = day;
        }
    }
}

TickerReminders ReminderIndex::Find(std::string_view ticker) const {
    const auto found = m_byWord.find(ToUpper(Trim(ticker)));
    return found == m_byWord.end() ? TickerReminders() : found->second;
}

} // namespace tallowmere
