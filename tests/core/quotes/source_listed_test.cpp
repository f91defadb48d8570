#include "core/quotes/scheduled_web.h"
#include "core/quotes/source_schedule.h"

// What the list of tickers asks for goes at its own pace, a request a minute at most.
namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Listed : public testing::Test {
protected:
    void Want(const std::vector<std::string>& symbols, Urgency urgency = Urgency::Listed) {
        web.Schedule().Want(PriceSpan::Quote, symbols, web.now, urgency);
    }
    /// Sends what is to be sent now, answers it, and gives the paths.
    std::vector<std::string> Sent(double price = 10) {
        std::vector<std::string> sent;
        while (const auto request = web.Schedule().Next(web.now)) {
            sent.push_back(request->address.substr(8));
            web.Schedule().Answer(
                request->id, answers ? Good(request->address, price) : SourceResponse(), web.now);
        }
        return sent;
    }
    std::vector<std::string> SentAfter(std::int64_t seconds) {
        web.now += seconds;
        return Sent();
    }

    ScheduledWeb web;
    bool answers = true;
};

TEST_F(Listed, OneRequestAMinuteIsSentHoweverMuchIsWanted) {
    Want({"A", "B", "C", "D", "E", "F", "G"});
    EXPECT_THAT(Sent(), ElementsAre("first.example/q?s=A|B|C"));
    EXPECT_THAT(SentAfter(59), IsEmpty());
    EXPECT_TRUE(web.Schedule().IsPending(PriceSpan::Quote, "D"));
    EXPECT_THAT(SentAfter(1), ElementsAre("first.example/q?s=D|E|F"));
    Want({"A"});
    EXPECT_THAT(SentAfter(60), ElementsAre("first.example/q?s=G|A"));
    EXPECT_FALSE(web.Schedule().IsBusy());
}

TEST_F(Listed, TheNextSourceWaitsForItsMinuteToo) {
    answers = false;
    Want({"A", "B", "C"});
    EXPECT_THAT(Sent(), ElementsAre("first.example/q?s=A|B|C"));
    answers = true;
    EXPECT_THAT(SentAfter(60), ElementsAre("second.example/q?s=A|B"));
    EXPECT_THAT(SentAfter(60), ElementsAre("second.example/q?s=C"));
    EXPECT_EQ(web.Price("C"), 10);
}

TEST_F(Listed, WhatHasWaitedLongestGoesFirst) {
    answers = false;
    Want({"A", "B"});
    EXPECT_THAT(Sent(), ElementsAre("first.example/q?s=A|B"));
    answers = true;
    web.now += 60;
    Want({"C"});
    EXPECT_THAT(Sent(), ElementsAre("second.example/q?s=A|B"));
    EXPECT_THAT(SentAfter(60), ElementsAre("first.example/q?s=C"));
}

TEST_F(Listed, WhoElseAsksIsServedAtOnceAndTakesTheListAlong) {
    Want({"A", "B", "C", "D"});
    EXPECT_THAT(Sent(), ElementsAre("first.example/q?s=A|B|C"));
    Want({"E"}, Urgency::Asked);
    EXPECT_THAT(Sent(), ElementsAre("first.example/q?s=E|D"));
    // That was none of the list's own requests.
    EXPECT_THAT(SentAfter(59), IsEmpty());
    Want({"A"});
    EXPECT_THAT(SentAfter(1), ElementsAre("first.example/q?s=A"));
}

TEST_F(Listed, APageThatNeedsWhatTheListWaitsForDoesNotWait) {
    Want({"A", "B", "C", "D"});
    EXPECT_EQ(Sent().size(), 1u);
    Want({"D"}, Urgency::Routine);
    EXPECT_THAT(Sent(), ElementsAre("first.example/q?s=D"));
}

TEST_F(Listed, WhatWasNotSentIsWithdrawn) {
    Want({"A", "B", "C", "D"});
    EXPECT_EQ(Sent().size(), 1u);
    EXPECT_TRUE(web.Schedule().IsBusy());
    web.Schedule().WithdrawListed();
    EXPECT_FALSE(web.Schedule().IsBusy());
    EXPECT_THAT(SentAfter(60), IsEmpty());
    EXPECT_EQ(web.Price("A"), 10);
    EXPECT_FALSE(web.IsStale("D"));
    // What others want stays.
    Want({"E"}, Urgency::Routine);
    web.Schedule().WithdrawListed();
    EXPECT_THAT(Sent(), ElementsAre("first.example/q?s=E"));
}

TEST_F(Listed, ItRespectsEveryRest) {
    web.Set("first.example", SourceResponse{429, "text/plain", "", ""});
    answers = false;
    Want({"A"});
    EXPECT_EQ(Sent().size(), 1u);
    web.now += 5;
    web.Schedule().WithdrawListed();
    answers = true;
    Want({"B"});
    web.now += 9; // the first source rests for fifteen seconds
    EXPECT_THAT(SentAfter(46), ElementsAre("first.example/q?s=B"));
}

TEST_F(Listed, AClockThatIsSetBackStopsNothing) {
    Want({"A"});
    EXPECT_EQ(Sent().size(), 1u);
    web.now -= 86400;
    Want({"B"});
    EXPECT_EQ(Sent().size(), 1u);
}

TEST_F(Listed, TellsWhatARequestIsAboutAndHowMuchOneTakes) {
    Want({"a", "b"});
    const auto request = web.Schedule().Next(web.now);
    ASSERT_TRUE(request);
    EXPECT_THAT(request->symbols, ElementsAre("A", "B"));
    EXPECT_EQ(web.Schedule().BatchOf(PriceSpan::Quote), 3u);
    EXPECT_EQ(web.Schedule().BatchOf(PriceSpan::Year), 1u);
    EXPECT_EQ(web.Schedule().BatchOf(PriceSpan::Day), 0u);
}

} // namespace
} // namespace tallowmere
