#include "core/market/alert_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using enum AlertKind;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(AlertStore, EachLineIsAnAlert) {
    const AlertList list =
        ReadAlerts("1795000000 above 450 MSFT\n1795000001 below 0.0125 brk-b\r\n\n"
                   "1795000002 change 5.5 ^SPC\n");
    EXPECT_THAT(list.alerts, ElementsAre(PriceAlert{1795000000, Above, 450, "MSFT"},
                                         PriceAlert{1795000001, Below, 0.0125, "brk-b"},
                                         PriceAlert{1795000002, DayChange, 5.5, "^SPC"}));
    EXPECT_THAT(list.unread, IsEmpty());
    EXPECT_EQ(WriteAlerts(list), "1795000000 above 450 MSFT\n1795000001 below 0.0125 brk-b\n"
                                 "1795000002 change 5.5 ^SPC\n");
    EXPECT_EQ(UnreadWords(list), "");
}

TEST(AlertStore, ALineThatCannotBeReadIsToldAndKept) {
    const char* lines[] = {
        "garbage",
        "1 above 450",
        "1 above 450 A B",
        "x above 450 A",
        "-1 above 450 A",
        "1 beyond 450 A",
        "1 above nan A",
        "1 above inf A",
        "1 above 0 A",
        "1 above -5 A",
        "1 above 1e300 A",
        "1 above 450,5 A",
        "1 above 450  A",
        " 1 above 450 A",
        "1 above 450 A\tB",
        "1 ABOVE 450 A",
        "99999999999999999999 above 450 A",
        "1 above 2000000000 A",
    };
    for (const std::string line : lines) {
        const AlertList list = ReadAlerts(line + "\n7 above 1 A\r\n");
        EXPECT_THAT(list.unread, ElementsAre(line));
        EXPECT_EQ(list.alerts.size(), 1U) << line;
        EXPECT_EQ(WriteAlerts(list), "7 above 1 A\n" + line + "\n");
        EXPECT_THAT(UnreadWords(list), HasSubstr("A line of alerts.txt cannot be read"));
        EXPECT_THAT(UnreadWords(list), HasSubstr("It begins: " + line));
    }
    EXPECT_THAT(UnreadWords(ReadAlerts("a\nb\n")), HasSubstr("2 lines of alerts.txt cannot"));
    EXPECT_LT(UnreadWords(ReadAlerts(std::string(100000, 'x'))).size(), 400U);
}

TEST(AlertStore, OfTwoWithTheSameNumberTheLaterOneGetsItsOwn) {
    const AlertList list = ReadAlerts("5 above 1 A\n5 above 2 B\n6 above 3 C\n");
    EXPECT_EQ(WriteAlerts(list), "5 above 1 A\n6 above 2 B\n7 above 3 C\n");
    EXPECT_EQ(WriteAlerts(ReadAlerts(WriteAlerts(list))), WriteAlerts(list));
}

FiredAlert Line(std::int64_t id, std::int64_t time) {
    return {{id, Above, 450, "MSFT"}, time, 451.2, 1.5, time - 60, "Nov 20, CNBC"};
}

TEST(AlertStore, TheLogReadsBackAsItWasWritten) {
    const std::vector<FiredAlert> log{
        Line(1, 1000),
        {{2, DayChange, 0.1, "BRK.B"}, 2000, 0.0001, std::nullopt, 0, "time not said, X"}};
    const std::string text = WriteAlertLog(log, {});
    EXPECT_EQ(text, "1000\t1\tabove\t450\tMSFT\t451.2\t1.5\t940\tNov 20, CNBC\n"
                    "2000\t2\tchange\t0.1\tBRK.B\t0.0001\t\t0\ttime not said, X\n");
    EXPECT_EQ(ReadAlertLog(text), log);
}

TEST(AlertStore, WhatASourceCallsItselfCannotBreakTheLog) {
    FiredAlert fired = Line(1, 1000);
    fired.origin = "a\tb\nc";
    EXPECT_EQ(ReadAlertLog(WriteAlertLog({fired}, {})).at(0).origin, "a b c");
}

TEST(AlertStore, LinesOfTheLogThatCannotBeReadAreLeftOut) {
    const std::string good = WriteAlertLog({Line(1, 1000)}, {});
    for (const std::string bad :
         {"x", "1000\t1\tabove\t450\tMSFT\t451.2\t1.5\t940", "x\t1\tabove\t450\tA\t1\t\t0\ts",
          "1\t1\tabove\t450\tA\tnan\t\t0\ts", "1\t1\tabove\t450\tA\t1\tx\t0\ts",
          "1\t1\tabove\t450\tA\t1\t\t-1\ts"})
        EXPECT_EQ(WriteAlertLog(ReadAlertLog(bad + "\n" + good), {}), good) << bad;
}

TEST(AlertStore, TheOldestLinesGoButForThoseOfAlertsThatAreThere) {
    std::vector<FiredAlert> log;
    for (std::int64_t n = 1; n <= static_cast<std::int64_t>(kMostLogLines) + 3; ++n)
        log.push_back(Line(n, 1000 + n));
    const auto kept = ReadAlertLog(WriteAlertLog(log, {{2, Above, 450, "MSFT"}}));
    ASSERT_EQ(kept.size(), kMostLogLines);
    EXPECT_EQ(kept[0].alert.id, 2);
    EXPECT_EQ(kept[1].alert.id, 5);
    EXPECT_EQ(kept.back().alert.id, log.back().alert.id);
}

} // namespace
} // namespace tallowmere
