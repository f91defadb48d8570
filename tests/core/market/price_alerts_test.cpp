#include "core/market/price_alerts.h"

#include <gtest/gtest.h>

#include <limits>

namespace tallowmere {
namespace {

using enum AlertKind;

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kEndless = std::numeric_limits<double>::infinity();

ListedPrice Price(double last, std::optional<double> percent = std::nullopt) {
    ListedPrice price;
    price.last = last;
    price.percent = percent;
    price.time = 1000;
    return price;
}

TEST(PriceAlerts, APriceAtTheLimitOrBeyondItFires) {
    struct Case {
        AlertKind kind;
        double limit, last;
        std::optional<double> percent;
        bool fires;
    };
    const Case cases[] = {
        {Above, 450, 449.99, {}, false},
        {Above, 450, 450, {}, true},
        {Above, 450, 451, {}, true},
        {Below, 450, 450.01, {}, false},
        {Below, 450, 450, {}, true},
        {Below, 450, 0.01, {}, true},
        {DayChange, 5, 100, 4.99, false},
        {DayChange, 5, 100, 5, true},
        {DayChange, 5, 100, 4.9999999999, true}, // 5 but for what working it out costs
        {DayChange, 5, 100, 12, true},
        {DayChange, 5, 100, -4.99, false},
        {DayChange, 5, 100, -5, true},
        // What is not known, or cannot be.
        {DayChange, 5, 100, {}, false},
        {DayChange, 5, 100, kNone, false},
        {DayChange, 5, 100, kEndless, false},
        {DayChange, 5, 0, 6, false},
        {Above, 450, kNone, {}, false},
        {Above, 450, kEndless, {}, false},
        {Below, 450, 0, {}, false},
        {Below, 450, -1, {}, false},
        {Below, 450, -kEndless, {}, false},
        {Above, 0, 450, {}, false},
        {Above, -1, 450, {}, false},
        {Above, kNone, 450, {}, false},
        {Below, kEndless, 450, {}, false},
    };
    for (const auto& [kind, limit, last, percent, fires] : cases)
        EXPECT_EQ(Fires({1, kind, limit, "A"}, Price(last, percent)), fires)
            << static_cast<int>(kind) << ' ' << limit << ' ' << last << ' ' << percent.value_or(0);
}

TEST(PriceAlerts, AStaleOrDoubtfulPriceNeverFires) {
    for (const AlertKind kind : {Above, Below, DayChange}) {
        const PriceAlert alert{1, kind, 10, "A"};
        ListedPrice price = Price(10, 10);
        EXPECT_TRUE(Fires(alert, price));
        price.age = "3 h";
        EXPECT_FALSE(Fires(alert, price));
        price.age = "no time";
        EXPECT_FALSE(Fires(alert, price));
        price.age.clear();
        price.doubtful = true;
        EXPECT_FALSE(Fires(alert, price));
    }
}

TEST(PriceAlerts, ThePriceThatFiredOrAnOlderOneDoesNotDoItASecondTime) {
    const PriceAlert alert{1, Above, 10, "A"};
    const FiredAlert last = Fired(alert, Price(11), 2000);
    ListedPrice price = Price(11);
    EXPECT_FALSE(Fires(alert, price, &last));
    price.time = 999;
    price.last = 12;
    EXPECT_FALSE(Fires(alert, price, &last));
    price.time = 1000; // another trade of the same second
    EXPECT_TRUE(Fires(alert, price, &last));
    price.time = 1001;
    price.last = 11;
    EXPECT_TRUE(Fires(alert, price, &last));
}

TEST(PriceAlerts, WhatFiredKeepsThePriceAndWhereItIsFrom) {
    const PriceAlert alert{1, DayChange, 5, "MSFT"};
    ListedPrice price = Price(451.2, -5.12);
    price.origin = "Nov 20, 2026 4:00 PM ET, CNBC";
    const FiredAlert fired = Fired(alert, price, 2000);
    EXPECT_EQ(fired, (FiredAlert{alert, 2000, 451.2, -5.12, 1000, price.origin}));
    EXPECT_EQ(FiredWords(fired), "MSFT is at 451.20 (-5.12%): up or down by 5% or more in a day");
    EXPECT_EQ(FiredWords(Fired({1, Below, 500, "MSFT"}, Price(451.2, -5), 0)),
              "MSFT is at 451.20: at or below 500.00");
    EXPECT_EQ(FiredPriceText(Fired({1, Below, 500, "MSFT"}, Price(451.2), 0)), "451.20");
}

TEST(PriceAlerts, ALimitShowsWhatWasTyped) {
    const std::pair<double, const char*> cases[] = {
        {450, "450.00"},
        {450.5, "450.50"},
        {1234.56, "1,234.56"},
        {1234567.5, "1,234,567.50"},
        {0.0123, "0.0123"},
        {1000.125, "1,000.125"},
        {kLargestAlertLimit, "1,000,000,000.00"},
    };
    for (const auto& [limit, text] : cases)
        EXPECT_EQ(LimitText(limit), text);
    EXPECT_EQ(RuleWords({1, Above, 450, "A"}), "at or above 450.00");
    EXPECT_EQ(RuleWords({1, DayChange, 1200.5, "A"}), "up or down by 1,200.5% or more in a day");
    EXPECT_EQ(RuleWords({1, DayChange, 10, "A"}), "up or down by 10% or more in a day");
}

TEST(PriceAlerts, NumbersAreReadAsPeopleTypeThem) {
    const std::pair<const char*, std::optional<double>> cases[] = {
        {"450", 450},
        {" 450.5 ", 450.5},
        {"450,5", 450.5},
        {"450.", 450},
        {".5", 0.5},
        {",5", 0.5},
        {"0,125", 0.125},
        {"0.125", 0.125},
        {"1,234", 1234}, // as the program writes prices
        {"1.234", 1.234},
        {"1234,567", 1234.567},
        {"1,234.50", 1234.5},
        {"1.234,50", 1234.5},
        {"1 234,50", 1234.5},
        {"1,234,567", 1234567},
        {"1.234.567", 1234567},
        {"1.234.567,8", 1234567.8},
        {"$450", 450},
        {"5 %", 5},
        {"5,5%", 5.5},
        {"-5", -5},
        {"+5", 5},
        {"", {}},
        {" ", {}},
        {".", {}},
        {",", {}},
        {"-", {}},
        {"%", {}},
        {"abc", {}},
        {"4a", {}},
        {"1e5", {}},
        {"inf", {}},
        {"nan", {}},
        {"0x10", {}},
        {"--5", {}},
        {"1.2.3", {}},
        {"1,23,456", {}},
        {"12,34.5", {}},
        {"1.234.5", {}},
        {"1,234,5", {}},
        {"1234,567.8", {}},
        {"1 23", {}},
        {"1.5,2.5", {}},
        {"5 5.5,5", {}},
        {"1\t2", {}},
    };
    for (const auto& [text, number] : cases)
        EXPECT_EQ(ReadTypedNumber(text), number) << text;
}

TEST(PriceAlerts, AnEntryIsAnAlertOrSaysWhatIsWrong) {
    const AlertEntry good = ReadAlertEntry(" msft ", DayChange, "5%");
    EXPECT_EQ(good.problem, "");
    EXPECT_EQ(good.alert, (PriceAlert{0, DayChange, 5, "MSFT"}));
    struct Case {
        std::string ticker;
        AlertKind kind;
        const char *limit, *problem;
    };
    const Case cases[] = {
        {"", Above, "5", "Enter a ticker."},
        {"  ", Above, "5", "Enter a ticker."},
        {"A B", Above, "5", "Enter one ticker, without blanks."},
        {"A\tB", Above, "5", "Enter one ticker, without blanks."},
        {std::string(41, 'A'), Above, "5", "A ticker has no more than 40 characters."},
        {std::string(40, 'A'), Above, "5", ""},
        {"A", Above, "", "Enter a price."},
        {"A", DayChange, " ", "Enter a change in percent."},
        {"A", Below, "x", "\"x\" is not a number."},
        {"A", Below, "0", "The price has to be more than zero."},
        {"A", DayChange, "-5", "The change has to be more than zero; it counts up and down."},
        {"A", Above, "1000000001", "That is more than 1,000,000,000.00."},
        {"A", Above, "1000000000", ""},
    };
    for (const auto& [ticker, kind, limit, problem] : cases)
        EXPECT_EQ(ReadAlertEntry(ticker, kind, limit).problem, problem) << ticker << ' ' << limit;
}

} // namespace
} // namespace tallowmere
