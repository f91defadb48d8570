#include "core/market/alert_book.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using enum AlertKind;
using testing::ElementsAre;
using testing::IsEmpty;

class AlertBookTest : public testing::Test {
protected:
    void Set(const std::vector<PriceAlert>& alerts) { book = AlertBook({alerts, {}}, book.Log()); }
    void Market(const std::string& symbol, double last, std::int64_t time) {
        ListedPrice price;
        price.last = last;
        price.time = time;
        market[symbol] = price;
    }
    std::vector<std::int64_t> Check(const std::vector<std::string>& symbols) {
        std::vector<std::int64_t> ids;
        for (const FiredAlert& fired : book.Check(symbols, reader, ++now))
            ids.push_back(fired.alert.id);
        return ids;
    }

    AlertBook book;
    std::map<std::string, ListedPrice> market;
    int reads = 0;
    std::int64_t now = 5000;
    AlertBook::Reader reader = [this](const std::string& ticker) -> std::optional<ListedPrice> {
        ++reads;
        const auto found = market.find(ticker);
        return found == market.end() ? std::nullopt : std::optional(found->second);
    };
};

TEST_F(AlertBookTest, AnAlertFiresOnceAndRests) {
    Set({{1, Above, 10, "MSFT"}, {2, Below, 5, "MSFT"}});
    Market("MSFT", 11, 100);
    EXPECT_THAT(Check({"MSFT"}), ElementsAre(1));
    Market("MSFT", 12, 200);
    EXPECT_THAT(Check({"MSFT"}), IsEmpty());
    ASSERT_TRUE(book.FiredBy(1));
    EXPECT_EQ(book.FiredBy(1)->price, 11);
    EXPECT_EQ(book.FiredBy(1)->firedAt, 5001);
    EXPECT_FALSE(book.FiredBy(2));
    Market("MSFT", 4, 300);
    EXPECT_THAT(Check({"MSFT"}), ElementsAre(2));
    EXPECT_EQ(book.Log().size(), 2U);
}

TEST_F(AlertBookTest, WhatRestsAfterARestartIsInTheLog) {
    Set({{1, Above, 10, "MSFT"}});
    Market("MSFT", 11, 100);
    Check({"MSFT"});
    book = AlertBook(ReadAlerts(WriteAlerts(book.List())),
                     ReadAlertLog(WriteAlertLog(book.Log(), book.List().alerts)));
    Market("MSFT", 12, 200);
    EXPECT_THAT(Check({"MSFT"}), IsEmpty());
    EXPECT_TRUE(book.FiredBy(1));
}

TEST_F(AlertBookTest, OneThatWasResetWaitsForANewPrice) {
    Set({{1, Above, 10, "MSFT"}});
    Market("MSFT", 11, 100);
    Check({"MSFT"});
    Set({{7, Above, 10, "MSFT"}});
    EXPECT_FALSE(book.FiredBy(7));
    EXPECT_THAT(Check({"MSFT"}), IsEmpty());
    Market("MSFT", 10.5, 101);
    EXPECT_THAT(Check({"MSFT"}), ElementsAre(7));
    // Undone: the one before rests as it did.
    Set({{1, Above, 10, "MSFT"}});
    Market("MSFT", 12, 300);
    EXPECT_THAT(Check({"MSFT"}), IsEmpty());
}

TEST_F(AlertBookTest, AnotherRuleIsAnotherAlert) {
    Set({{1, Above, 10, "MSFT"}});
    Market("MSFT", 11, 100);
    Check({"MSFT"});
    Set({{7, Above, 10.5, "MSFT"}});
    EXPECT_THAT(Check({"MSFT"}), ElementsAre(7));
}

TEST_F(AlertBookTest, TickersAreKnownInAnySpelling) {
    Set({{1, Above, 10, "brk-b"}});
    Market("BRK.B", 11, 100);
    EXPECT_THAT(book.ArmedTickers(), ElementsAre("BRK.B"));
    EXPECT_EQ(book.StandingOf("BRK/B").armed.size(), 1U);
    EXPECT_THAT(Check({"BRK.B"}), ElementsAre(1));
    EXPECT_THAT(book.ArmedTickers(), IsEmpty());
    EXPECT_EQ(book.StandingOf("BRK-B").fired.size(), 1U);
}

TEST_F(AlertBookTest, OnlyPricesOfTickersWithAnAlertAreRead) {
    std::vector<PriceAlert> alerts;
    for (int n = 0; n < 500; ++n)
        alerts.push_back({n, Above, 10, "T" + std::to_string(n)});
    Set(alerts);
    EXPECT_THAT(Check({"A", "T3", "B"}), IsEmpty());
    EXPECT_EQ(reads, 1);
}

TEST_F(AlertBookTest, WithoutAPriceNothingFires) {
    Set({{1, Below, 10, "MSFT"}});
    EXPECT_THAT(Check({"MSFT"}), IsEmpty());
}

TEST_F(AlertBookTest, ANumberIsNeverGivenTwice) {
    Set({{900, Above, 10, "MSFT"}});
    EXPECT_EQ(book.NewId(1000), 1000);
    EXPECT_EQ(book.NewId(900), 901);
    Market("MSFT", 11, 100);
    Check({"MSFT"});
    Set({});
    EXPECT_EQ(book.NewId(900), 901);
    EXPECT_EQ(book.Find(900), nullptr);
}

TEST_F(AlertBookTest, WordsTellHowTheAlertsStand) {
    Set({{1, Above, 10, "A"}, {2, Below, 5, "A"}});
    EXPECT_EQ(StandingWords(book.StandingOf("A")),
              "alert at or above 10.00, alert at or below 5.00");
    EXPECT_EQ(StandingWords(book.StandingOf("B")), "");
    Market("A", 11, 1);
    Check({"A"});
    EXPECT_EQ(StandingWords(book.StandingOf("A")), "alert fired at 11.00, alert at or below 5.00");
    Set({{1, Above, 10, "A"},
         {2, Below, 5, "A"},
         {3, Below, 4, "A"},
         {4, Below, 3, "A"},
         {5, Below, 2, "A"}});
    EXPECT_EQ(StandingWords(book.StandingOf("A")),
              "alert fired at 11.00, alert at or below 5.00, alert at or below 4.00 and 2 more");
}

} // namespace
} // namespace tallowmere
