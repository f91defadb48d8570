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

} // namespace
} // namespace tallowmere
