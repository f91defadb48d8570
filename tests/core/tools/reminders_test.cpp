#include "core/tools/reminders.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;

std::string Record(std::string_view key, std::string_view text) {
    return "||" + std::string(key) + "||" + std::string(text) + "|||||\r\n";
}

TEST(Reminders, TheKeyOfADayHasTwoDigitsOfMonthAndDay) {
    EXPECT_EQ(DayKey({1999, 12, 31}), "12-31-1999");
    EXPECT_EQ(DayKey({2026, 1, 5}), "01-05-2026");
    EXPECT_EQ(DayKey({987, 6, 5}), "06-05-0987");
}

TEST(Reminders, AKeyThatIsADayReadsBack) {
    EXPECT_EQ(DayOfKey("12-31-1999"), (Date{1999, 12, 31}));
    EXPECT_EQ(DayOfKey("02-29-2000"), (Date{2000, 2, 29}));
    EXPECT_EQ(DayOfKey("02-29-2024"), (Date{2024, 2, 29}));
}

TEST(Reminders, AKeyThatIsNoDayGivesNone) {
    for (const std::string_view key :
         {"", "13-01-2000", "00-01-2000", "01-00-2000", "01-32-2000", "04-31-2000", "02-29-1900",
          "02-29-2023", "1-1-2000", "01/01/2000", "01-01-20000", "01-01-0000", "ab-cd-efgh",
          "-1-01-2000", "MSFT", "01-01-200x", "01-01-2000 "})
        EXPECT_EQ(DayOfKey(key), std::nullopt) << key;
}

TEST(Reminders, OneForTodayIsFoundAndOneForTomorrowIsNot) {
    const std::string content = Record("07-04-2026", "sell") + Record("07-06-2026", "buy");
    EXPECT_TRUE(HasReminder(content, {2026, 7, 4}));
    EXPECT_FALSE(HasReminder(content, {2026, 7, 5}));
    EXPECT_TRUE(HasReminder(content, {2026, 7, 6}));
    EXPECT_FALSE(HasReminder("", {2026, 7, 4}));
}

TEST(Reminders, TheSearchForADayTakesWholeKeysOnly) {
    EXPECT_FALSE(HasReminder("||07-04-2026", {2026, 7, 4}));
    EXPECT_FALSE(HasReminder("|| 07-04-2026||x|||||", {2026, 7, 4}));
    EXPECT_TRUE(HasReminder("||07-04-2026||", {2026, 7, 4}));
}

TEST(Reminders, AreListedInTheOrderOfTheFile) {
    const ReminderSummary summary =
        Summarize(Record("12-31-1999", "party") + Record("01-02-1999", "earnings"));
    EXPECT_THAT(summary.lines, ElementsAre("12/31/1999 - party", "01/02/1999 - earnings"));
    EXPECT_EQ(summary.count, "( 2 )");
    EXPECT_THAT(summary.days, ElementsAre(Date{1999, 12, 31}, Date{1999, 1, 2}));
}

TEST(Reminders, AnEmptyStoreSaysThatThereAreNone) {
    for (const std::string_view content : {"", "\r\n", "no records here"}) {
        const ReminderSummary summary = Summarize(content);
        EXPECT_THAT(summary.lines, ElementsAre("No reminders have been set..."));
        EXPECT_THAT(summary.days, ElementsAre(std::nullopt));
        EXPECT_EQ(summary.count, "( 0 )");
    }
}

TEST(Reminders, ATextOfTwoLinesIsListedAsOneWithABlank) {
    EXPECT_THAT(Summarize(Record("12-31-1999", "first\r\nsecond")).lines,
                ElementsAre("12/31/1999 - first second"));
    EXPECT_THAT(Summarize(Record("12-31-1999", "a\r\n\r\nb\nc\rd")).lines,
                ElementsAre("12/31/1999 - a  b\nc\rd"));
}

TEST(Reminders, ARecordWithoutATextIsNotListed) {
    const ReminderSummary summary = Summarize("||12-31-1999|||||||\r\n||01-02-2000||x|||||\r\n");
    EXPECT_THAT(summary.lines, testing::ElementsAre("01/02/2000 - x"));
    EXPECT_EQ(summary.count, "( 1 )");
    EXPECT_THAT(Summarize("||12-31-1999|||||||\r\n").lines, testing::ElementsAre(kNoReminders));
}

TEST(Reminders, AKeyThatIsNoDateIsListedAsItStands) {
    const ReminderSummary summary = Summarize(Record("13-45-1999", "odd") + Record("MSFT", "note"));
    EXPECT_THAT(summary.lines, ElementsAre("13-45-1999 - odd", "MSFT - note"));
    EXPECT_THAT(summary.days, ElementsAre(std::nullopt, std::nullopt));
    EXPECT_EQ(summary.count, "( 2 )");
}

TEST(Reminders, ARecordWithoutItsEndEndsTheWalk) {
    EXPECT_THAT(Summarize(Record("12-31-1999", "whole") + "||01-01-2000||cut in the mid").lines,
                ElementsAre("12/31/1999 - whole"));
    EXPECT_THAT(Summarize(Record("12-31-1999", "whole") + "||01-01-2000||cut||||").lines,
                ElementsAre("12/31/1999 - whole"));
    EXPECT_THAT(Summarize(Record("12-31-1999", "whole") + "||01-0").lines,
                ElementsAre("12/31/1999 - whole"));
}

TEST(Reminders, ATextMayHoldBars) {
    EXPECT_THAT(
        Summarize(Record("12-31-1999", "a|b||c|||d||||e") + Record("01-01-2000", "x")).lines,
        ElementsAre("12/31/1999 - a|b||c|||d||||e", "01/01/2000 - x"));
}

TEST(Reminders, ATextThatEndsWithBarsDoesNotSwallowTheNextOne) {
    for (const std::string_view bars : {"|", "||", "|||", "||||", "|||||", "|||||||"}) {
        EXPECT_THAT(
            Summarize(Record("12-31-1999", "a" + std::string(bars)) + Record("01-01-2000", "x"))
                .lines,
            ElementsAre("12/31/1999 - a", "01/01/2000 - x"))
            << bars;
    }
}

TEST(Reminders, RecordsOnOneLineAreReadToo) {
    EXPECT_THAT(Summarize("||12-31-1999||a|||||||01-01-2000||x|||||").lines,
                ElementsAre("12/31/1999 - a", "01/01/2000 - x"));
}

TEST(Reminders, ThoseOfTheDaysSinceAreDue) {
    const std::string content = "||11-23-2026||c|||||\r\n||11-21-2026||a|||||\r\n"
                                "||11-22-2026||b|||||\r\n||11-24-2026|||||||\r\n"
                                "||never||x|||||\r\n||12-01-2025||old|||||\r\n";
    struct Case {
        Date after, today;
        std::vector<std::string> texts;
    };
    const Case cases[] = {
        {{2026, 11, 21}, {2026, 11, 22}, {"b"}}, {{2026, 11, 20}, {2026, 11, 23}, {"a", "b", "c"}},
        {{2026, 11, 21}, {2026, 11, 21}, {}},    {{2026, 11, 22}, {2026, 11, 21}, {}},
        {{2026, 11, 23}, {2026, 11, 24}, {}},    {{2025, 11, 30}, {2026, 1, 1}, {"old"}},
    };
    for (const auto& [after, today, texts] : cases) {
        std::vector<std::string> due;
        for (const Reminder& reminder : RemindersSince(content, after, today))
            due.emplace_back(reminder.text);
        EXPECT_EQ(due, texts);
    }
}

TEST(Reminders, WhatIsDueIsSaidInALine) {
    EXPECT_EQ(DueWords({}), "");
    EXPECT_EQ(DueWords({{"k", "one\r\ntwo"}}), "Reminder: one");
    EXPECT_EQ(DueWords({{"k", "one"}, {"k", "two"}, {"k", "three"}}),
              "Reminders: one (and 2 more)");
}

} // namespace
} // namespace tallowmere
