#include "core/links/index_query.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(IndexStrip, AsksForTheSixSymbols) {
    EXPECT_EQ(IndexQuery(), "/q?s=^nya+^spc+^oex+^tyx+^dji+^ixic");
    EXPECT_EQ(DetailedIndexQuery(), "/q?s=^nya+^spc+^oex+^tyx+^dji+^ixic&d=t");
}

TEST(IndexStrip, HasSixRowsInTheOrderOfThePanels) {
    const auto& table = IndexTable();
    EXPECT_EQ(table[0].anchor, "<a href=\"/q?s=^NYA&d=t\">");
    EXPECT_EQ(table[1].anchor, "<a href=\"/q?s=^SPC&d=t\">");
    EXPECT_EQ(table[2].anchor, "<a href=\"/q?s=^OEX&d=t\">");
    EXPECT_EQ(table[3].anchor, "<a href=\"/q?s=^TYX&d=t\">");
    EXPECT_EQ(table[4].anchor, "<a href=\"/q?s=^DJI&d=t\">");
    EXPECT_EQ(table[5].anchor, "<a href=\"/q?s=^IXIC&d=t\">");
}

} // namespace
} // namespace tallowmere
