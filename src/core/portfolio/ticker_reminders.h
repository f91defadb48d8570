#pragma once

#include "core/text/date.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace tallowmere {

/// The reminders of today and later that name a ticker.
struct TickerReminders {
    int count = 0;
    std::optional<Date> next;

    bool operator==(const TickerReminders&) const = default;
};

/// Which reminders name which ticker, from one walk over the store of the reminders. A ticker is
/// named by a word in capitals: "MSFT goes ex dividend" is about MSFT, "a day" is not about A.
class ReminderIndex {
public:
    ReminderIndex() = default;
    /// `content` is that of the store; reminders of the days before `today` are passed over.
    ReminderIndex(std::string_view content, Date today);

    /// Those that name a ticker, whatever its case.
    TickerReminders Find(std::string_view ticker) const;

private:
    std::unordered_map<std::string, TickerReminders> m_byWord;
};

} // namespace tallowmere
