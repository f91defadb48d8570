#include "core/portfolio/ticker_reminders.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

constexpr Date kToday{2026, 11, 22};

std::string Store(const std::vector<std::pair<std::string, std::string>>& reminders) {
    std::string content;
    for (const auto& [day, text] : reminders)
        content.append("||").append(day).append("||").append(text).append("|||||\r\n");
    return content;
}

TEST(TickerReminders, ATickerHasThoseOfTodayAndLaterThatNameIt) {
    const ReminderIndex index(Store({{"11-21-2026", "MSFT reports"},
                                     {"12-15-2026", "Sell MSFT, keep IBM"},
                                     {"11-22-2026", "IBM: MSFT?"},
                                     {"01-02-2027", "msft and Ibm are no names here"},
                                     {"some day", "MSFT"}}),
                              kToday);
    EXPECT_EQ(index.Find("MSFT"), (TickerReminders{2, Date{2026, 11, 22}}));
    EXPECT_EQ(index.Find("msft "), (TickerReminders{2, Date{2026, 11, 22}}));
    EXPECT_EQ(index.Find("IBM"), (TickerReminders{2, Date{2026, 11, 22}}));
    EXPECT_EQ(index.Find("KO"), TickerReminders());
    EXPECT_EQ(index.Find(""), TickerReminders());
    EXPECT_EQ(ReminderIndex().Find("MSFT"), TickerReminders());
}

TEST(TickerReminders, AWordInCapitalsNamesATicker) {
    struct Case {
        const char* text;
        const char* ticker;
        int count;
    };
    for (const Case& c :
         {Case{"MSFT", "MSFT", 1}, Case{"(MSFT)", "MSFT", 1},
          Case{"MSFT, MSFT and MSFT.", "MSFT", 1}, Case{"Buy BRK.B.", "BRK.B", 1},
          Case{"Buy BRK.B.", "BRK", 0}, Case{"^SPC falls", "^SPC", 1}, Case{"a day", "A", 0},
          Case{"is A cheap?", "A", 1}, Case{"MSFTX", "MSFT", 0}, Case{"XMSFT", "MSFT", 0},
          Case{"line\r\nKO\r\nend", "KO", 1}, Case{"KO\xC3\xA9", "KO", 0}, Case{"...", "", 0},
          Case{"Mc KO-", "KO", 1}}) {
        const ReminderIndex index(Store({{"11-30-2026", c.text}}), kToday);
        EXPECT_EQ(index.Find(c.ticker).count, c.count) << c.text << " " << c.ticker;
    }
}

TEST(TickerReminders, TheNextIsTheEarliestOverMonthsAndYears) {
    const ReminderIndex index(
        Store({{"02-01-2027", "KO"}, {"12-31-2026", "KO"}, {"12-01-2027", "KO"}}), kToday);
    EXPECT_EQ(index.Find("KO"), (TickerReminders{3, Date{2026, 12, 31}}));
}

} // namespace
} // namespace tallowmere
