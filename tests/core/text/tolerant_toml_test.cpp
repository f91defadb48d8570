#include "core/text/tolerant_toml.h"

#include <gmock/gmock.h>

namespace tallowmere {
namespace {

std::string WithWrongLines(int count) {
    std::string text = "a = 1\n";
    for (int n = 0; n < count; ++n)
        text += "this is no line\n";
    return text + "b = 2\n";
}

TEST(TolerantToml, LeavesOutWrongLinesAndNamesEach) {
    const TolerantToml file = ReadTolerantly(WithWrongLines(19), "mine.toml");
    EXPECT_EQ(file.root["a"].value<int>(), 1);
    EXPECT_EQ(file.root["b"].value<int>(), 2);
    ASSERT_EQ(file.problems.size(), 19u);
    EXPECT_THAT(file.problems.front(), testing::StartsWith("mine.toml:2: "));
    EXPECT_THAT(file.problems.back(), testing::StartsWith("mine.toml:20: "));
}

TEST(TolerantToml, GivesUpOnATextThatIsMostlyWrong) {
    const TolerantToml file = ReadTolerantly(WithWrongLines(20), "mine.toml");
    EXPECT_TRUE(file.root.empty());
    EXPECT_EQ(file.problems.size(), 20u);
}

TEST(TolerantToml, RefusesALargeText) {
    const TolerantToml file = ReadTolerantly(std::string((1 << 20) + 1, '\n'), "mine.toml");
    EXPECT_TRUE(file.root.empty());
    EXPECT_THAT(file.problems, testing::ElementsAre("mine.toml:1: the file is larger than 1 MB"));
}

} // namespace
} // namespace tallowmere
