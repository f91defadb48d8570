#include "core/quotes/source_schedule.h"

#include "core/quotes/scheduled_web.h"

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SourceSchedule, AsksTheFirstSourceInBatchesOfItsSize) {
    ScheduledWeb web;
    web.Get({"a", "B", "C", "D", "A", "b", "E"});
    EXPECT_THAT(web.asked, ElementsAre("first.example/q?s=A|B|C", "first.example/q?s=D|E"));
    EXPECT_EQ(web.Price("a"), 10);
    EXPECT_EQ(web.Price("E"), 10);
    EXPECT_FALSE(web.IsStale("E"));
    EXPECT_EQ(web.Schedule().FindQuote("E").value->source, "First");
    EXPECT_EQ(web.Schedule().FindQuote("E").receivedAt, kFridayClose);
}

TEST(SourceSchedule, AsksNothingAgainBeforeItsInterval) {
    ScheduledWeb web;
    web.Get({"A"});
    web.now += 14;
    web.Get({"A"});
    EXPECT_EQ(web.TakeAsked().size(), 1u);
    EXPECT_FALSE(web.IsStale("A"));
    web.now += 1;
    web.Get({"A"});
    EXPECT_EQ(web.TakeAsked().size(), 1u);
}

TEST(SourceSchedule, QuotesOfAnEarlierRunAreShownAndFetchedAnew) {
    ScheduledWeb before;
    before.Get({"A", "B"});
    const auto kept = before.Schedule().KeptQuotes();
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept[0].receivedAt, kFridayClose);

    ScheduledWeb web;
    web.Set("first.example", SourceResponse());
    web.Set("second.example", SourceResponse());
    web.Schedule().Restore(kept);
    EXPECT_EQ(web.Price("A"), 10);
    EXPECT_TRUE(web.IsStale("A"));
    EXPECT_EQ(web.Schedule().FindQuote("B").receivedAt, kFridayClose);
    // Who is not answered keeps what was restored.
    web.Ask({"A"});
    EXPECT_FALSE(web.TakeAsked().empty());
    EXPECT_EQ(web.Price("A"), 10);
    EXPECT_TRUE(web.IsStale("A"));
    ScheduledWeb answered;
    answered.Set("first.example",
                 [](const auto& address) { return Good(address, 12, "2026-11-20T16:00:30-0500"); });
    answered.Schedule().Restore(kept);
    answered.now += 60;
    answered.Get({"A"});
    EXPECT_EQ(answered.Price("A"), 12);
    EXPECT_FALSE(answered.IsStale("A"));
    EXPECT_EQ(answered.Price("B"), 10);
}

TEST(SourceSchedule, TellsHowEachSourceHasBeenDoing) {
    ScheduledWeb web;
    web.Set("first.example", {503, "text/plain", "", "down"});
    web.Ask({"A"});
    const auto reports = web.Schedule().Reports(web.now);
    ASSERT_EQ(reports.size(), 4u);
    EXPECT_EQ(reports[0].name, "First");
    EXPECT_TRUE(reports[0].enabled);
    EXPECT_EQ(reports[0].requestsToday, 1);
    EXPECT_GT(reports[0].pausedUntil, web.now);
    EXPECT_EQ(reports[0].lastGood, 0);
    EXPECT_TRUE(reports[0].lastFailure);
    EXPECT_EQ(reports[1].name, "Second");
    EXPECT_EQ(reports[1].requestsToday, 1);
    EXPECT_EQ(reports[1].lastGood, web.now);
    EXPECT_EQ(reports[1].lastFailure, std::nullopt);
    EXPECT_EQ(reports[2].requestsToday, 0);
    // The count is that of the day, and a rest has its end.
    const std::int64_t later = std::max(web.now + 86400, reports[0].pausedUntil);
    EXPECT_EQ(web.Schedule().Reports(later)[0].requestsToday, 0);
    EXPECT_EQ(web.Schedule().Reports(later)[0].pausedUntil, 0);
}

TEST(SourceSchedule, SendsOneRequestAtATimeToAHost) {
    ScheduledWeb web;
    auto& schedule = web.Schedule();
    schedule.Want(PriceSpan::Quote, {"A", "B", "C", "D"}, web.now);
    const auto first = schedule.Next(web.now);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->userAgent, "test");
    EXPECT_EQ(first->timeout, 10);
    EXPECT_FALSE(schedule.Next(web.now)) << "the host has not answered yet";
    EXPECT_TRUE(schedule.IsBusy());
    EXPECT_TRUE(schedule.IsPending(PriceSpan::Quote, "d"));
    schedule.Answer(first->id, Good(first->address), web.now);
    EXPECT_FALSE(schedule.IsPending(PriceSpan::Quote, "A"));
    EXPECT_TRUE(schedule.Next(web.now));
}

TEST(SourceSchedule, DoesNotPutOnTheListWhatIsOnIt) {
    ScheduledWeb web;
    auto& schedule = web.Schedule();
    schedule.Want(PriceSpan::Quote, {"A"}, web.now);
    const auto request = schedule.Next(web.now);
    schedule.Want(PriceSpan::Quote, {"A"}, web.now);
    EXPECT_FALSE(schedule.Next(web.now));
    schedule.Answer(request->id, Good(request->address), web.now);
    EXPECT_FALSE(schedule.Next(web.now));
    EXPECT_FALSE(schedule.IsBusy());
}

TEST(SourceSchedule, GoesToTheNextSourceWhenTheFirstIsDown) {
    ScheduledWeb web;
    web.Set("first.example", SourceResponse());
    web.Get({"A", "B", "C"});
    EXPECT_THAT(web.TakeAsked(), ElementsAre("first.example/q?s=A|B|C", "second.example/q?s=A|B",
                                             "second.example/q?s=C"));
    EXPECT_EQ(web.Price("A"), 20);
    EXPECT_EQ(web.Schedule().FindQuote("A").value->source, "Second");
    EXPECT_FALSE(web.IsStale("A"));
}

TEST(SourceSchedule, RestsLongerEachTimeASourceIsDownAndComesBack) {
    ScheduledWeb web;
    web.Set("first.example", SourceResponse());
    web.Get({"A"}); // rests 15 seconds
    web.now += 15;
    web.Get({"A"}); // rests 30 seconds
    web.TakeAsked();
    web.now += 29;
    web.Get({"A"});
    EXPECT_THAT(web.TakeAsked(), ElementsAre("second.example/q?s=A"));
    web.Set("first.example", [](const auto& address) { return Good(address, 30); });
    web.now += 15;
    web.Get({"A"});
    EXPECT_THAT(web.TakeAsked(), ElementsAre("first.example/q?s=A"));
    EXPECT_EQ(web.Price("A"), 30);
}

TEST(SourceSchedule, KeepsTheLastGoodValueWhenAllAreDown) {
    ScheduledWeb web;
    web.Get({"A", "B"});
    web.Set("first.example", SourceResponse());
    web.Set("second.example", SourceResponse{500, "text/html", "", "<html>"});
    web.now += 600;
    web.Get({"A", "NEW"});
    EXPECT_EQ(web.Price("A"), 10);
    EXPECT_TRUE(web.IsStale("A"));
    EXPECT_EQ(web.Schedule().FindQuote("A").receivedAt, kFridayClose);
    EXPECT_FALSE(web.IsStale("B")) << "nobody asked for it since";
    EXPECT_EQ(web.Schedule().FindQuote("NEW").value, nullptr);

    web.Set("first.example", [](const auto& address) { return Good(address, 40); });
    web.now += 600;
    web.Get({"A", "NEW"});
    EXPECT_EQ(web.Price("A"), 40);
    EXPECT_EQ(web.Price("NEW"), 40);
    EXPECT_FALSE(web.IsStale("A"));
}

TEST(SourceSchedule, GivesUpOnASlowAnswerAndPassesOverItWhenItComes) {
    ScheduledWeb web;
    auto& schedule = web.Schedule();
    schedule.Want(PriceSpan::Quote, {"A"}, web.now);
    const auto slow = schedule.Next(web.now);
    EXPECT_FALSE(schedule.Next(web.now + 14));
    const auto second = schedule.Next(web.now + 15);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->address, "https://second.example/q?s=A");
    schedule.Answer(slow->id, Good(slow->address, 99), web.now + 16);
    EXPECT_EQ(schedule.FindQuote("A").value, nullptr);
    schedule.Answer(second->id, Good(second->address, 20), web.now + 17);
    EXPECT_EQ(web.Price("A"), 20);
}

TEST(SourceSchedule, LeavesASourceOfGarbageAlone) {
    ScheduledWeb web;
    web.Set("first.example", SourceResponse{200, "application/json", "", "{\"oops\":"});
    web.Get({"A"});
    EXPECT_EQ(web.Price("A"), 20);
    web.TakeAsked();
    web.now += 59;
    web.Get({"A"});
    EXPECT_THAT(web.TakeAsked(), ElementsAre("second.example/q?s=A"));
    web.now += 15;
    web.Get({"A"});
    EXPECT_EQ(web.TakeAsked().front(), "first.example/q?s=A");
    EXPECT_EQ(web.Schedule().Reports(web.now)[0].lastFailure, SourceFailure::Garbage);
}

TEST(SourceSchedule, WaitsAsLongAsARefusalSays) {
    for (const char* header : {"120", "Fri, 20 Nov 2026 21:02:00 GMT"}) {
        ScheduledWeb web;
        web.Set("first.example", SourceResponse{429, "text/plain", header, "slow down"});
        web.Get({"A"});
        EXPECT_EQ(web.Schedule().Reports(web.now)[0].pausedUntil, kFridayClose + 120) << header;
        web.TakeAsked();
        web.now = kFridayClose + 119;
        web.Get({"A"});
        EXPECT_THAT(web.TakeAsked(), ElementsAre("second.example/q?s=A"));
        web.now = kFridayClose + 134;
        web.Get({"A"});
        EXPECT_EQ(web.TakeAsked().front(), "first.example/q?s=A");
    }
}

TEST(SourceSchedule, WaitsADayAtMost) {
    ScheduledWeb web;
    web.Set("first.example", SourceResponse{429, "", "99999999", ""});
    web.Get({"A"});
    EXPECT_EQ(web.Schedule().Reports(web.now)[0].pausedUntil, kFridayClose + 86400);
}

TEST(SourceSchedule, TakesAPageForARefusal) {
    ScheduledWeb web;
    web.Set("first.example",
            SourceResponse{200, "text/html", "", ResponseFile("blocked/robot.html")});
    web.Get({"A"});
    EXPECT_EQ(web.Price("A"), 20);
    EXPECT_EQ(web.Schedule().Reports(web.now)[0].lastFailure, SourceFailure::Blocked);
    EXPECT_EQ(web.Schedule().Reports(web.now)[0].pausedUntil, kFridayClose + 60);
}

TEST(SourceSchedule, RefusalOfOneSourceRestsAllOnItsHost) {
    ScheduledWeb web;
    web.Set("first.example", SourceResponse());
    web.Set("second.example", SourceResponse{429, "", "300", ""});
    web.Get({"A"});
    web.TakeAsked();
    web.Get({"A"}, PriceSpan::Year);
    EXPECT_THAT(web.asked, IsEmpty()) << "the chart source shares the host";
}

TEST(SourceSchedule, DoesNotBelieveAnswersAboutOtherSymbols) {
    ScheduledWeb web;
    web.Set("first.example", [](const auto&) { return Good("s=WRONG|OTHER"); });
    web.Get({"A"});
    EXPECT_EQ(web.Price("A"), 20);
    EXPECT_EQ(web.Price("WRONG"), 0);
}

TEST(SourceSchedule, AsksTheNextSourceForTheSymbolsThatWereLeftOut) {
    ScheduledWeb web;
    web.Set("first.example", [](const auto&) { return Good("s=A|C"); });
    web.Get({"A", "B", "C"});
    EXPECT_THAT(web.TakeAsked(), ElementsAre("first.example/q?s=A|B|C", "second.example/q?s=B"));
    EXPECT_EQ(web.Price("A"), 10);
    EXPECT_EQ(web.Price("B"), 20);
    web.now += 599;
    web.Get({"B"});
    EXPECT_THAT(web.TakeAsked(), ElementsAre("second.example/q?s=B"))
        << "the first source did not know it ten minutes ago";
    web.now += 1;
    web.Get({"B"});
    EXPECT_EQ(web.TakeAsked().front(), "first.example/q?s=B");
}

TEST(SourceSchedule, StopsAtTheDailyCapUntilTheNextDay) {
    ScheduledWeb web;
    for (int i = 0; i < 21; ++i) {
        web.now += 20;
        web.Get({"A"});
    }
    EXPECT_EQ(web.TakeAsked().back(), "second.example/q?s=A");
    EXPECT_EQ(web.Schedule().Reports(web.now)[0].requestsToday, 20);
    web.now += 86400;
    EXPECT_EQ(web.Schedule().Reports(web.now)[0].requestsToday, 0);
    web.Get({"A"});
    EXPECT_THAT(web.TakeAsked(), ElementsAre("first.example/q?s=A"));
}

TEST(SourceSchedule, AsksOnlySourcesThatHaveTheSymbolAndTheSpan) {
    ScheduledWeb web;
    web.Set("first.example", SourceResponse());
    web.Set("second.example", SourceResponse());
    web.Set("floor.example", SourceResponse{200, "text/csv", "", ResponseFile("fred/dgs30.csv")});
    web.Get({"A", "^TYX"});
    EXPECT_THAT(web.TakeAsked(),
                ElementsAre("first.example/q?s=A|US30Y", "second.example/q?s=A|US30Y",
                            "floor.example/csv?id=DGS30"));
    EXPECT_EQ(web.Price("^tyx"), 4.53);
    EXPECT_EQ(web.Price("A"), 0);
}

TEST(SourceSchedule, DoesNotReplaceAQuoteByAMuchOlderOne) {
    ScheduledWeb web;
    web.Get({"^TYX"});
    web.Set("first.example", SourceResponse());
    web.Set("second.example", SourceResponse());
    web.Set("floor.example", SourceResponse{200, "text/csv", "", ResponseFile("fred/dgs30.csv")});
    web.now += 60;
    web.Get({"^TYX"});
    EXPECT_EQ(web.asked.back(), "floor.example/csv?id=DGS30");
    EXPECT_EQ(web.Price("^TYX"), 10);
    EXPECT_TRUE(web.IsStale("^TYX"));
}

TEST(SourceSchedule, FetchesThePricesOfAChart) {
    ScheduledWeb web;
    web.Set("second.example",
            SourceResponse{200, "application/json", "", ResponseFile("yahoo/chart_year.json")});
    web.now += 60;
    web.Get({"BRK.B"}, PriceSpan::Year);
    EXPECT_THAT(web.asked, ElementsAre("second.example/chart/BRK-B?r=1y"));
    const auto kept = web.Schedule().FindSeries(PriceSpan::Year, "brk-b");
    ASSERT_NE(kept.value, nullptr);
    EXPECT_EQ(kept.value->closes.size(), 3u);
    EXPECT_EQ(kept.value->source, "Chart");
    EXPECT_EQ(web.Schedule().FindSeries(PriceSpan::Day, "BRK.B").value, nullptr);
    EXPECT_EQ(web.Price("BRK.B"), 0) << "a quote was not asked for";
}

TEST(SourceSchedule, GoesOnWhenTheClockIsSetBack) {
    ScheduledWeb web;
    web.Set("first.example", SourceResponse{429, "", "3600", ""});
    web.Get({"A"});
    web.Set("first.example", [](const auto& address) { return Good(address, 5, "2026-11-19"); });
    web.TakeAsked();
    web.now -= 40000;
    web.Get({"A"});
    EXPECT_EQ(web.TakeAsked().front(), "first.example/q?s=A");
}

TEST(SourceSchedule, GivesUpAtOnceWithoutASource) {
    ScheduledWeb web(
        "[sources.a]\nformat = \"cnbc\"\nrequest = \"https://x.example/\"\nenabled = false\n");
    web.Get({"A", "", " "});
    EXPECT_THAT(web.asked, IsEmpty());
    EXPECT_FALSE(web.Schedule().IsBusy());
    EXPECT_FALSE(web.Schedule().Reports(web.now)[0].enabled);
}

TEST(SourceSchedule, AsksForAThousandSymbolsOnceEach) {
    ScheduledWeb web("[sources.a]\nformat = \"cnbc\"\nbatch = 40\nseparator = \"|\"\n"
                     "request = \"https://first.example/q?s={symbols}\"\n");
    std::vector<std::string> symbols;
    for (int i = 0; i < 1000; ++i)
        symbols.push_back("T" + std::to_string(i));
    web.Get(symbols);
    ASSERT_EQ(web.asked.size(), 25u);
    std::size_t count = 0;
    for (const std::string& address : web.asked)
        count += CountOccurrences(address, "|") + 1;
    EXPECT_EQ(count, 1000u);
    EXPECT_EQ(web.Price("T999"), 10);
}

constexpr const char* kDayBefore = "2026-11-19T16:00:00-0500";

TEST(SourceSchedule, GoesOnPastAnAnswerOfAnEarlierDay) {
    ScheduledWeb web;
    web.Set("first.example", [](const auto& address) { return Good(address, 9, kDayBefore); });
    web.Get({"A", "B"});
    EXPECT_THAT(web.TakeAsked(), ElementsAre("first.example/q?s=A|B", "second.example/q?s=A|B"));
    EXPECT_EQ(web.Price("A"), 20);
    EXPECT_FALSE(web.IsStale("A"));
    // The frozen source is left alone for a while.
    web.now += 60;
    web.Get({"A"});
    EXPECT_THAT(web.TakeAsked(), ElementsAre("second.example/q?s=A"));
}

TEST(SourceSchedule, GoesOnPastAnAnswerWithoutATime) {
    ScheduledWeb web;
    web.Set("first.example", [](const auto& address) { return Good(address, 9, ""); });
    web.Get({"A"});
    EXPECT_THAT(web.TakeAsked(), ElementsAre("first.example/q?s=A", "second.example/q?s=A"));
    EXPECT_EQ(web.Price("A"), 20);
}

TEST(SourceSchedule, TakesTheNewestWhenNoneIsCurrent) {
    struct Case {
        const char* first;
        const char* second;
        double price;
    };
    for (const Case& c : {Case{"2026-11-18T16:00:00-0500", kDayBefore, 20},
                          {kDayBefore, "2026-11-18T16:00:00-0500", 10},
                          {kDayBefore, kDayBefore, 10}, // the first in the order
                          {"", kDayBefore, 10},
                          {kDayBefore, "", 20},
                          {"", "", 10}}) {
        ScheduledWeb web;
        web.Set("first.example", [&](const auto& address) { return Good(address, 10, c.first); });
        web.Set("second.example", [&](const auto& address) { return Good(address, 20, c.second); });
        web.Get({"A"});
        EXPECT_EQ(web.Price("A"), c.price) << c.first << " and " << c.second;
        EXPECT_FALSE(web.IsStale("A")) << "it was answered, if by an old price";
    }
}

TEST(SourceSchedule, TakesAnOldPriceWhereTheOtherSourcesHaveNone) {
    ScheduledWeb web;
    web.Set("first.example", [](const auto& address) { return Good(address, 9, kDayBefore); });
    web.Set("second.example", SourceResponse());
    web.Get({"A"});
    EXPECT_EQ(web.Price("A"), 9);
    web.Set("first.example", [](const auto& address) { return Good(address, 11); });
    web.now += 60;
    web.Ask({"A"});
    EXPECT_EQ(web.Price("A"), 11);
}

TEST(SourceSchedule, AsksNobodyTwiceForAPriceThatIsDelayedButCurrent) {
    ScheduledWeb web;
    web.Get({"A"});
    web.Set("first.example", SourceResponse());
    web.Set("second.example",
            [](const auto& address) { return Good(address, 20, "2026-11-20T15:45:00-0500"); });
    web.now += 60;
    web.Get({"A"});
    EXPECT_EQ(web.Price("A"), 10) << "what is kept is newer";
    EXPECT_FALSE(web.IsStale("A"));
    web.TakeAsked();
    web.now += 5;
    web.Get({"A"});
    EXPECT_THAT(web.asked, IsEmpty());
}

} // namespace
} // namespace tallowmere
