#include "core/pages/page_talk.h"

#include <gtest/gtest.h>
#include <vector>

namespace tallowmere {
namespace {

using enum Hearing;

struct TalkCase {
    const char* name;
    std::vector<std::int64_t> times; ///< in milliseconds
    std::vector<Hearing> heard;
};

// clang-format off
const TalkCase kTalkCases[] = {
    {"one",            {0},                                {Shown}},
    {"slowly",         {0, 5000, 9000, 14000, 19000},      {Shown, ShownWithOffer, ShownWithOffer, ShownWithOffer, ShownWithOffer}},
    {"fifth at once",  {0, 0, 0, 0, 0, 0},                 {Shown, ShownWithOffer, ShownWithOffer, ShownWithOffer, Stopped, Refused}},
    {"fifth in ten seconds",      {0, 1, 2, 3, 10'000},    {Shown, ShownWithOffer, ShownWithOffer, ShownWithOffer, Stopped}},
    {"fifth after ten seconds",   {0, 1, 2, 3, 10'001},    {Shown, ShownWithOffer, ShownWithOffer, ShownWithOffer, ShownWithOffer}},
    {"five later in ten seconds", {0, 10'001, 11'000, 12'000, 13'000, 14'000, 90'000},
                                  {Shown, ShownWithOffer, ShownWithOffer, ShownWithOffer, ShownWithOffer, Stopped, Refused}},
};
// clang-format on

TEST(TheTalkOfAPage, IsHeardOfferedSilenceAndStopped) {
    for (const TalkCase& row : kTalkCases) {
        PageTalk talk;
        for (std::size_t i = 0; i < row.times.size(); ++i)
            EXPECT_EQ(talk.Hear(row.times[i]), row.heard[i]) << row.name << ", " << i;
    }
}

TEST(TheTalkOfAPage, EndsWhereTheUserWantsNoMoreAndBeginsAnewOnAnotherPage) {
    PageTalk talk;
    EXPECT_EQ(talk.Hear(0), Shown);
    talk.Silence();
    EXPECT_EQ(talk.Hear(60'000), Refused);
    talk.Forget();
    EXPECT_EQ(talk.Hear(60'001), Shown);
}

TEST(TheDownloadsOfAPage, AreAskedAboutOnceUnlessTheUserDidSomething) {
    PageDownloads downloads;
    EXPECT_TRUE(downloads.MayAsk());
    EXPECT_FALSE(downloads.MayAsk());
    EXPECT_FALSE(downloads.MayAsk());
    downloads.NoteUser();
    EXPECT_TRUE(downloads.MayAsk()); // what the click asked for
    EXPECT_FALSE(downloads.MayAsk());
    downloads.Forget();
    downloads.NoteUser();
    EXPECT_TRUE(downloads.MayAsk());
    EXPECT_TRUE(downloads.MayAsk()); // the one that every page has
    EXPECT_FALSE(downloads.MayAsk());
}

} // namespace
} // namespace tallowmere
