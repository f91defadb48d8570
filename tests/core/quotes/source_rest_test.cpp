#include "core/quotes/scheduled_web.h"

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Lets every source refuse for an hour, asked once a minute.
void RefuseForAnHour(ScheduledWeb& web, const SourceResponse& refusal) {
    for (const char* host : {"first.example", "second.example", "floor.example"})
        web.Set(host, refusal);
    for (int minute = 0; minute < 60; ++minute) {
        web.Get({"A"});
        web.now += 60;
    }
    for (const char* host : {"first.example", "second.example"})
        web.Set(host, [](const auto& address) { return Good(address, 30); });
    web.TakeAsked();
}

TEST(SourceRest, TriesRestingSourcesAgainForWhoeverAsks) {
    for (const SourceResponse& refusal :
         {SourceResponse{403, "text/html", "", "<html>"}, SourceResponse(),
          SourceResponse{200, "application/json", "", "{\"oops\":"}}) {
        ScheduledWeb web;
        RefuseForAnHour(web, refusal);
        web.Ask({"A"});
        EXPECT_EQ(web.Price("A"), 30) << refusal.status;
    }
}

TEST(SourceRest, APersonDoesNotWaitForWhatTheProgramTriedJustBefore) {
    ScheduledWeb web;
    RefuseForAnHour(web, {403, "text/html", "", "<html>"});
    for (const char* host : {"first.example", "second.example"})
        web.Set(host, SourceResponse{403, "text/html", "", "<html>"});
    web.Get({"A"}, PriceSpan::Quote, Urgency::Regular);
    EXPECT_EQ(web.TakeAsked().size(), 2u);
    web.Set("first.example", [](const auto& address) { return Good(address, 30); });
    web.now += 15;
    web.Get({"A"}, PriceSpan::Quote, Urgency::Regular);
    EXPECT_EQ(web.Price("A"), 0);
    web.Ask({"A"});
    EXPECT_EQ(web.Price("A"), 30);
}

TEST(SourceRest, RoutineDoesNotTryRestingSourcesAgain) {
    ScheduledWeb web;
    RefuseForAnHour(web, {403, "text/html", "", "<html>"});
    web.Get({"A"});
    EXPECT_THAT(web.asked, IsEmpty());
}

TEST(SourceRest, KeepsTheRestThatASourceAskedFor) {
    ScheduledWeb web;
    RefuseForAnHour(web, {429, "text/html", "7200", ""});
    web.Ask({"A"});
    EXPECT_THAT(web.asked, IsEmpty());
    web.now += 3601;
    web.Ask({"A"});
    EXPECT_EQ(web.Price("A"), 30);
}

TEST(SourceRest, TriesRestingSourcesAgainOnceAMinute) {
    ScheduledWeb web;
    for (const char* host : {"first.example", "second.example"})
        web.Set(host, SourceResponse{403, "text/html", "", "<html>"});
    // Refused at once, and once more as soon as the interval of the symbol is over.
    for (int i = 0; i < 12; ++i) {
        web.Ask({"A"});
        web.now += 5;
    }
    EXPECT_EQ(web.TakeAsked().size(), 4u);
    for (int i = 0; i < 120; ++i) {
        web.Ask({"A"});
        web.now += 5;
    }
    EXPECT_EQ(web.TakeAsked().size(), 20u) << "two sources, ten minutes";
}

TEST(SourceRest, ATrialStaysWithinTheCap) {
    ScheduledWeb web;
    web.Set("first.example", SourceResponse{403, "text/html", "", "<html>"});
    web.Set("second.example", SourceResponse{403, "text/html", "", "<html>"});
    for (int i = 0; i < 40; ++i) {
        web.Ask({"A"});
        web.now += 60;
    }
    EXPECT_EQ(web.Schedule().Reports(web.now)[0].requestsToday, 20);
}

TEST(SourceRest, SendsNothingAgainToAHostThatHungUp) {
    ScheduledWeb web;
    web.Set("first.example", SourceResponse());
    web.Set("second.example", SourceResponse());
    for (int i = 0; i < 14; ++i) {
        web.Ask({"A"});
        web.now += 1;
    }
    EXPECT_THAT(web.asked, ElementsAre("first.example/q?s=A", "second.example/q?s=A"));
}

TEST(SourceRest, ASymbolIsUnknownOnceEverySourceThatCouldBeAskedHasSaidSo) {
    ScheduledWeb web;
    const auto none = [](const auto&) { return Good("s=OTHER"); };
    EXPECT_FALSE(web.Schedule().IsUnknown("A")) << "nobody was asked";
    web.Set("first.example", none);
    web.Ask({"A", "B"});
    EXPECT_FALSE(web.Schedule().IsUnknown("A")) << "the second source knows it";
    web.Set("second.example", none);
    web.Ask({"C"});
    EXPECT_TRUE(web.Schedule().IsUnknown("C"));
    EXPECT_TRUE(web.Schedule().IsUnknown("c"));
    EXPECT_FALSE(web.Schedule().IsUnknown("A")) << "its last price is still there";
    web.Set("second.example", SourceResponse());
    web.Ask({"D"});
    EXPECT_FALSE(web.Schedule().IsUnknown("D")) << "the second source did not answer";
    web.Ask({"E"});
    EXPECT_FALSE(web.Schedule().IsUnknown("E")) << "the second source rests";
    web.Set("second.example", [](const auto& address) { return Good(address, 20); });
    web.now += 3600;
    web.Ask({"C"});
    EXPECT_FALSE(web.Schedule().IsUnknown("C")) << "by now it is known";
}

TEST(SourceRest, NoSymbolIsUnknownWhenNobodyAnswers) {
    ScheduledWeb web;
    web.Set("first.example", SourceResponse());
    web.Set("second.example", SourceResponse{403, "text/html", "", "<html>"});
    web.Ask({"A"});
    EXPECT_FALSE(web.Schedule().IsUnknown("A"));
}

} // namespace
} // namespace tallowmere
