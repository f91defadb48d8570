#include "core/tools/text_size.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(TextSize, IsFoundByItsStoredName) {
    for (const auto& [stored, name] :
         {std::pair{"Small", "Small"}, {"Normal", "Normal"}, {"Large", "Large"}})
        EXPECT_EQ(kTextSizes.at(TextSizeIndex(stored)).name, name);
}

TEST(TextSize, IsNormalForWhatIsNoSize) {
    for (const char* stored : {"", "large", "Huge", "2"})
        EXPECT_EQ(kTextSizes.at(TextSizeIndex(stored)).name, "Normal") << stored;
}

TEST(TextSize, NormalIsTheSystemsOwnAndTheOthersLieAroundIt) {
    EXPECT_EQ(kTextSizes.at(TextSizeIndex("Normal")).scale, 1.0);
    EXPECT_LT(kTextSizes.at(TextSizeIndex("Small")).scale, 1.0);
    EXPECT_GT(kTextSizes.at(TextSizeIndex("Large")).scale, 1.0);
}

} // namespace
} // namespace tallowmere
