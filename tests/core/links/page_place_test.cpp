#include "core/links/page_place.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

struct PlaceCase {
    bool isMiddle, isCtrl, isShift;
    PagePlace place;
};

// clang-format off
constexpr PlaceCase kPlaceCases[] = {
    {false, false, false, PagePlace::Pane},
    {false, false, true,  PagePlace::Pane},
    {false, true,  false, PagePlace::BackTab},
    {false, true,  true,  PagePlace::FrontTab},
    {true,  false, false, PagePlace::BackTab},
    {true,  false, true,  PagePlace::FrontTab},
    {true,  true,  false, PagePlace::BackTab},
    {true,  true,  true,  PagePlace::FrontTab},
};
// clang-format on

TEST(PagePlace, CtrlOrTheMiddleButtonOpensAFurtherPane) {
    for (const PlaceCase& row : kPlaceCases)
        EXPECT_EQ(PlaceOfClick(row.isMiddle, row.isCtrl, row.isShift), row.place)
            << row.isMiddle << row.isCtrl << row.isShift;
}

TEST(PagePlace, OnlyFurtherPanesAreTabs) {
    EXPECT_FALSE(IsTab(PagePlace::Pane));
    EXPECT_TRUE(IsTab(PagePlace::BackTab));
    EXPECT_TRUE(IsTab(PagePlace::FrontTab));
    EXPECT_FALSE(IsTab(PagePlace::Outside));
}

} // namespace
} // namespace tallowmere
