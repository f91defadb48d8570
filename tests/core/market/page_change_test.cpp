#include "core/market/page_change.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Lines = std::vector<std::string>;

TEST(PageChange, ComparesWhatIsSeenOfALine) {
    EXPECT_THAT(ComparedLines("a\nb"), ElementsAre("a", "b"));
    EXPECT_THAT(ComparedLines(" a \t b\u00A0 c \r\n\r\n \nd\n"), ElementsAre("a b c", "d"));
    EXPECT_THAT(ComparedLines("a\u200Bb\u202Ec"), ElementsAre("abc"));
    EXPECT_THAT(ComparedLines(""), IsEmpty());
    EXPECT_THAT(ComparedLines("\n \n\t\n"), IsEmpty());
    EXPECT_THAT(ComparedLines("\xFF"), ElementsAre("?"));
}

TEST(PageChange, OfALongTextTheFrontIsCompared) {
    const Lines lines = ComparedLines(std::string(kMostComparedText + 5, 'x'));
    ASSERT_THAT(lines, SizeIs(1));
    EXPECT_EQ(lines[0].size(), kMostComparedText);
}

TEST(PageChange, FindsTheFewestLinesThatCameAndWent) {
    struct Case {
        Lines before, now;
        std::vector<ChangedLine> changed;
    };
    const Case cases[] = {
        {{}, {}, {}},
        {{"a", "b"}, {"a", "b"}, {}},
        {{}, {"a"}, {{true, "a"}}},
        {{"a"}, {}, {{false, "a"}}},
        {{"a", "b", "c"}, {"a", "x", "c"}, {{false, "b"}, {true, "x"}}},
        {{"a", "b", "c"}, {"a", "b", "x", "c"}, {{true, "x"}}},
        {{"a", "b", "c"}, {"b", "c"}, {{false, "a"}}},
        {{"a", "b"}, {"b", "a"}, {{false, "a"}, {true, "a"}}},
        // Two changes with a line between them that stays.
        {{"1", "a", "2", "b", "3"},
         {"1", "x", "2", "y", "3"},
         {{false, "a"}, {true, "x"}, {false, "b"}, {true, "y"}}},
        {{"a", "a", "a"}, {"a", "a"}, {{false, "a"}}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ChangedLines(c.before, c.now), c.changed) << testing::PrintToString(c.before);
}

// What the changes make of the one text is the other.
TEST(PageChange, LeadsFromTheOneTextToTheOther) {
    std::mt19937 random(2027);
    for (int run = 0; run < 2000; ++run) {
        Lines texts[2];
        for (Lines& text : texts)
            for (auto n = random() % 12; n > 0; --n)
                text.push_back(std::string(1, static_cast<char>('a' + random() % 4)));
        Lines left = texts[0];
        Lines right = texts[1];
        std::size_t kept = left.size() + right.size();
        for (const ChangedLine& line : ChangedLines(texts[0], texts[1])) {
            Lines& from = line.isNew ? right : left;
            const auto at = std::ranges::find(from, line.text);
            ASSERT_NE(at, from.end());
            from.erase(at);
            --kept;
        }
        EXPECT_EQ(left.size(), right.size());
        EXPECT_EQ(left.size() + right.size(), kept);
        std::ranges::sort(left);
        std::ranges::sort(right);
        EXPECT_EQ(left, right);
    }
}

TEST(PageChange, OfTextsThatHaveLittleInCommonAllCounts) {
    Lines before{"first"};
    Lines now{"first"};
    for (int n = 0; n < 3'000; ++n) {
        before.push_back("old " + std::to_string(n));
        now.push_back("new " + std::to_string(n));
    }
    before[1'500] = now[1'500] = "same";
    before.emplace_back("last");
    now.emplace_back("last");
    const auto changed = ChangedLines(before, now);
    EXPECT_THAT(changed, SizeIs(6'000));
    EXPECT_FALSE(changed.front().isNew);
    EXPECT_TRUE(changed.back().isNew);
}

TEST(PageChange, IsSaidInAFewWords) {
    const ChangedLine came{true, "x"};
    const ChangedLine went{false, "x"};
    EXPECT_EQ(ChangeWords({came}), "1 line is new");
    EXPECT_EQ(ChangeWords({came, came}), "2 lines are new");
    EXPECT_EQ(ChangeWords({went}), "1 line is gone");
    EXPECT_EQ(ChangeWords({went, went, went}), "3 lines are gone");
    EXPECT_EQ(ChangeWords({came, went}), "1 line is new, 1 is gone");
    EXPECT_EQ(ChangeWords({went, came, came, went}), "2 lines are new, 2 are gone");
}

} // namespace
} // namespace tallowmere
