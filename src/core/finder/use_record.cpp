#include "core/finder/use_record.h"

#include "core/text/bytes.h"
#include "core/text/date.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>

namespace tallowmere {

namespace {

constexpr double kHalfLife = 14; // days
constexpr std::int64_t kOnce = 1000;
constexpr std::int64_t kLargest = 1'000'000'000; // of any number in the text
constexpr std::size_t kLongestName = 200;        // bytes

std::int64_t DayOf(Date date) {
    const std::chrono::year_month_day day{std::chrono::year(date.year),
                                          std::chrono::month(static_cast<unsigned>(date.month)),
                                          std::chrono::day(static_cast<unsigned>(date.day))};
    return std::chrono::sys_days(day).time_since_epoch().count();
}

bool ReadNumber(std::string_view text, std::int64_t& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size() && number >= 0 &&
           number <= kLargest;
}

} // namespace

UseRecord::UseRecord(std::string_view text) {
    Cursor cursor(text);
    std::string_view line;
    while (m_uses.size() < kMostThings && cursor.ReadUpTo("\n", line)) {
        const auto parts = Split(line, ' ');
        Use use{};
        if (parts.size() != 3 || !ReadNumber(parts[0], use.day) ||
            !ReadNumber(parts[1], use.thousandths) || parts[2].size() > 3 * kLongestName)
            continue;
        const std::string name = PercentDecode(parts[2]);
        if (!name.empty() && name.size() <= kLongestName)
            m_uses.emplace(name, use);
    }
}

std::string UseRecord::Text() const {
    std::string text;
    for (const auto& [name, use] : m_uses)
        text += std::to_string(use.day) + ' ' + std::to_string(use.thousandths) + ' ' +
                PercentEncode(name) + '\n';
    return text;
}

// A clock that was set back makes no use worth more than it was.
double UseRecord::Worth(const Use& use, std::int64_t day) {
    const auto later = static_cast<double>(std::max<std::int64_t>(0, day - use.day));
    return static_cast<double>(use.thousandths) * std::exp2(-later / kHalfLife);
}

void UseRecord::Note(std::string_view name, Date today) {
    if (name.empty() || name.size() > kLongestName)
        return;
    const std::int64_t day = DayOf(today);
    if (m_uses.size() >= kMostThings && !m_uses.contains(name)) {
        const auto least = std::ranges::min_element(
            m_uses, {}, [day](const auto& entry) { return Worth(entry.second, day); });
        m_uses.erase(least);
    }
    Use& use = m_uses[std::string(name)];
    const double worth = Worth(use, day) + kOnce;
    use = {day, std::min(kLargest, static_cast<std::int64_t>(std::llround(worth)))};
}

double UseRecord::Of(std::string_view name, Date today) const {
    const auto found = m_uses.find(name);
    return found == m_uses.end() ? 0 : Worth(found->second, DayOf(today)) / kOnce;
}

} // namespace tallowmere
