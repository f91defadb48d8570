#include "core/quotes/list_pace.h"

#include "core/quotes/scheduled_web.h"

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Noon in New York, on the day of kFridayClose.
constexpr std::int64_t kNoon = kFridayClose - 4 * 3600;

constexpr const char* kTwoSpans = R"(
user_agent = "test"
[sources.a]
name = "First"
format = "cnbc"
request = "https://first.example/q?s={symbols}"
separator = "|"
batch = 3
[sources.b]
name = "Second"
format = "yahoo-spark"
request = "https://second.example/q?s={symbols}"
batch = 2
gives = ["day"]
)";

class ListPaceTest : public testing::Test {
protected:
    ListPaceTest() : web(kTwoSpans) { web.now = kNoon; }

    std::vector<std::string> Quotes(const ListInView& list) {
        return pace.Next(web.Schedule(), list, web.now).quotes;
    }
    std::vector<std::string> Days(const ListInView& list) {
        return pace.Next(web.Schedule(), list, web.now).days;
    }

    ScheduledWeb web;
    ListPace pace;
};

TEST_F(ListPaceTest, TheRowsInSightComeFirstAndTheOthersFillUp) {
    const ListInView list{{"E", "brk-b"}, {"A", "B", "C"}};
    EXPECT_THAT(Quotes(list), ElementsAre("E", "BRK.B", "A"));
    web.now += 60;
    EXPECT_THAT(Quotes(list), ElementsAre("E", "BRK.B", "B"));
    web.now += 60;
    EXPECT_THAT(Quotes(list), ElementsAre("E", "BRK.B", "C"));
    web.now += 60;
    EXPECT_THAT(Quotes(list), ElementsAre("E", "BRK.B", "A"));
}

TEST_F(ListPaceTest, WatchedTickersGoWithThoseInSightButHaveNoDay) {
    ListInView list{{"A", "B"}, {"C", "D"}, true};
    list.watched = {"W", "a"};
    list.seen = {"A"};
    const ListWish wish = pace.Next(web.Schedule(), list, web.now);
    EXPECT_THAT(wish.quotes, ElementsAre("A", "W", "C"));
    EXPECT_THAT(wish.days, ElementsAre("A"));
    list.seen = {"A", "B", "E"};
    web.now += 60;
    EXPECT_THAT(Quotes(list), ElementsAre("B", "E", "A"));
    web.now += 60;
    EXPECT_THAT(Quotes(list), ElementsAre("W", "A", "B"));
}

TEST_F(ListPaceTest, WithoutAListInSightTheWatchedAreAskedForAlone) {
    ListInView list;
    EXPECT_THAT(Quotes(list), IsEmpty());
    list.watched = {"W"};
    EXPECT_THAT(Quotes(list), ElementsAre("W"));
}

TEST_F(ListPaceTest, MoreRowsThanARequestTakesHaveTheirTurn) {
    const ListInView list{{"A", "B", "C", "D", "E"}, {"F"}};
    EXPECT_THAT(Quotes(list), ElementsAre("A", "B", "C"));
    web.now += 60;
    EXPECT_THAT(Quotes(list), ElementsAre("D", "E", "A"));
    web.now += 60;
    EXPECT_THAT(Quotes(list), ElementsAre("B", "C", "A"));
}

TEST_F(ListPaceTest, TheTableSharesTheRequestWithTheList) {
    const ListInView both{{"A", "B"}, {"F"}, false, {"b", "C", "D"}};
    EXPECT_THAT(Quotes(both), ElementsAre("A", "B", "C"));
    web.now += 60;
    EXPECT_THAT(Quotes(both), ElementsAre("D", "A", "B")) << "who has waited longest comes first";
    web.now += 60;
    EXPECT_THAT(Quotes({{}, {}, false, {"C"}}), ElementsAre("C")) << "the list is out of sight";
    EXPECT_THAT(Days(both), IsEmpty());
}

TEST_F(ListPaceTest, NoMoreIsWantedThanOneRequestTakes) {
    web.Schedule().Want(PriceSpan::Quote, {"X"}, web.now, Urgency::Listed);
    ASSERT_TRUE(web.Schedule().Next(web.now)) << "the request of this minute";
    const auto want = [&](const ListInView& list) {
        const auto wanted = Quotes(list);
        web.Schedule().Want(PriceSpan::Quote, wanted, web.now, Urgency::Listed);
        return wanted;
    };
    EXPECT_THAT(want({{"A", "B"}, {}}), ElementsAre("A", "B"));
    EXPECT_THAT(want({{"C", "D"}, {"E"}}), ElementsAre("C")) << "two wait to be sent";
    EXPECT_THAT(want({{"F"}, {}}), IsEmpty());
    EXPECT_EQ(web.Schedule().ListedWaiting(PriceSpan::Quote), 3u);
    web.Schedule().Want(PriceSpan::Quote, {"A"}, web.now, Urgency::Asked);
    EXPECT_EQ(web.Schedule().ListedWaiting(PriceSpan::Quote), 2u) << "somebody waits for it";
    web.Schedule().WithdrawListed();
    EXPECT_THAT(want({{"F"}, {}}), ElementsAre("F"));
}

TEST_F(ListPaceTest, NothingIsWantedAgainBeforeItsMinuteNorTwiceNorWithoutASymbol) {
    const ListInView list{{"A", "a", "", "A"}, {"A"}};
    EXPECT_THAT(Quotes(list), ElementsAre("A"));
    web.now += 30;
    EXPECT_THAT(Quotes(list), IsEmpty());
    web.now += 26; // by a timer of a minute that is a little early
    EXPECT_THAT(Quotes(list), ElementsAre("A"));
}

TEST_F(ListPaceTest, WhatIsUnderWayIsNotWantedAgain) {
    web.Schedule().Want(PriceSpan::Quote, {"A"}, web.now, Urgency::Listed);
    EXPECT_THAT(Quotes({{"A", "B"}, {}}), ElementsAre("B"));
}

TEST_F(ListPaceTest, AfterTheCloseOnlyWhatIsNotKnownIsWantedAndSeldom) {
    web.now = kFridayClose + 60;
    web.Get({"A"});
    EXPECT_THAT(Quotes({{"A", "B"}, {}}), ElementsAre("B"));
    web.now += 300;
    EXPECT_THAT(Quotes({{"A", "B"}, {}}), IsEmpty());
    web.now += 300;
    EXPECT_THAT(Quotes({{"A", "B"}, {}}), ElementsAre("B"));
}

TEST_F(ListPaceTest, TheDayIsWantedForTheRowsInSightEveryHalfHour) {
    ListInView list{{"A", "B", "C"}, {"D"}};
    EXPECT_THAT(Days(list), IsEmpty());
    list.showsDay = true;
    EXPECT_THAT(Days(list), ElementsAre("A", "B"));
    EXPECT_THAT(Days(list), ElementsAre("C"));
    web.now += 1790;
    EXPECT_THAT(Days(list), IsEmpty());
    web.now += 10;
    EXPECT_THAT(Days(list), ElementsAre("A", "B"));
}

TEST_F(ListPaceTest, AnUnknownTickerIsWantedSeldom) {
    web.Set("first.example", SourceResponse{200, "application/json", "",
                                            R"({"FormattedQuoteResult":{"FormattedQuote":[]}})"});
    web.Get({"NOSUCH"});
    ASSERT_TRUE(web.Schedule().IsUnknown("NOSUCH"));
    EXPECT_THAT(Quotes({{"NOSUCH"}, {}}), ElementsAre("NOSUCH"));
    web.now += 60;
    EXPECT_THAT(Quotes({{"NOSUCH"}, {}}), IsEmpty());
    web.now += 540;
    EXPECT_THAT(Quotes({{"NOSUCH"}, {}}), ElementsAre("NOSUCH"));
}

} // namespace
} // namespace tallowmere
