#include "core/links/link_areas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>

namespace tallowmere {
namespace {

const LinkRow& Row(int index) {
    return Catalogue()[static_cast<std::size_t>(index)];
}

TEST(LinkAreas, PutEveryLinkIntoExactlyOneGroup) {
    std::map<int, int> counts;
    for (const LinkGroup& group : LinkGroups()) {
        for (const int index : group.indexes)
            ++counts[index];
    }
    ASSERT_EQ(counts.size(), 218u);
    for (const auto& [index, count] : counts) {
        EXPECT_EQ(count, 1) << index;
        EXPECT_TRUE(index >= 0 && index < kLinkCount) << index;
    }
}

TEST(LinkAreas, KeepTheLinksOfAColourAreaTogether) {
    std::set<Area> seen;
    for (const LinkGroup& group : LinkGroups()) {
        ASSERT_FALSE(group.indexes.empty());
        const Area area = Row(group.indexes.front()).area;
        for (const int index : group.indexes)
            EXPECT_EQ(Row(index).area, area) << group.heading << " " << index;
        if (area != Area::None) {
            EXPECT_TRUE(seen.insert(area).second) << group.heading;
        }
    }
    EXPECT_EQ(seen.size(), 9u);
}

TEST(LinkAreas, StandInThePanelOfTheirArea) {
    using enum Area;
    const std::map<PanelSide, std::set<Area>> expected{
        {PanelSide::Top, {TLB}},
        {PanelSide::Left, {RN, WSR, CQ, MB, NR, NT}},
        {PanelSide::Right, {RTS, BRK, None}},
    };
    std::map<PanelSide, std::set<Area>> found;
    for (const LinkGroup& group : LinkGroups())
        found[group.panel].insert(Row(group.indexes.front()).area);
    EXPECT_EQ(found, expected);
}

TEST(LinkAreas, ShowTheUsersOwnLinksInTheOrderOfTheirSlots) {
    const LinkGroup& own = LinkGroups().back();
    EXPECT_EQ(own.heading, "My Links");
    ASSERT_EQ(own.indexes.size(), 70u);
    for (std::size_t i = 0; i < own.indexes.size(); ++i)
        EXPECT_EQ(own.indexes[i], 101 + static_cast<int>(i));
}

TEST(LinkAreas, BearAHeadingEach) {
    std::set<std::string_view> headings;
    for (const LinkGroup& group : LinkGroups()) {
        EXPECT_FALSE(group.heading.empty());
        EXPECT_TRUE(headings.insert(group.heading).second) << group.heading;
    }
}

TEST(LinkAreas, KnowTheNeighbourOfALink) {
    const auto any = [](int) { return true; };
    // The boards stand as 1, 71, 2, 21, 68, 91, 183, 194, 79.
    EXPECT_EQ(NeighbourOf(1, 1, any), 71);
    EXPECT_EQ(NeighbourOf(71, 1, any), 2);
    EXPECT_EQ(NeighbourOf(2, -1, any), 71);
    EXPECT_EQ(NeighbourOf(194, 1, any), 79);
    // A group ends: what stands beside it belongs to another one.
    EXPECT_EQ(NeighbourOf(79, 1, any), std::nullopt);
    EXPECT_EQ(NeighbourOf(1, -1, any), std::nullopt);
    EXPECT_EQ(NeighbourOf(101, 1, any), 102);
    EXPECT_EQ(NeighbourOf(170, 1, any), std::nullopt);
    EXPECT_EQ(NeighbourOf(-1, 1, any), std::nullopt);
    EXPECT_EQ(NeighbourOf(kLinkCount, -1, any), std::nullopt);

    const auto few = [](int link) { return link == 1 || link == 68; };
    EXPECT_EQ(NeighbourOf(71, 1, few), 68);
    EXPECT_EQ(NeighbourOf(68, -1, few), 1);
    EXPECT_EQ(NeighbourOf(68, 1, few), std::nullopt);
    EXPECT_EQ(NeighbourOf(21, 1, [](int) { return false; }), std::nullopt);
}

TEST(LinkAreas, WalkFromAnyLinkToTheEndsOfItsGroup) {
    const auto any = [](int) { return true; };
    for (const LinkGroup& group : LinkGroups())
        for (const int by : {1, -1}) {
            std::size_t seen = 1;
            int at = by > 0 ? group.indexes.front() : group.indexes.back();
            while (const auto next = NeighbourOf(at, by, any)) {
                at = *next;
                ASSERT_LE(++seen, group.indexes.size());
            }
            EXPECT_EQ(seen, group.indexes.size()) << group.heading;
        }
}

} // namespace
} // namespace tallowmere
