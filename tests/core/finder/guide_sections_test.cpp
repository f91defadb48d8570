#include "core/finder/guide_sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(GuideSections, AreTheHeadingsThatHaveAnId) {
    EXPECT_THAT(
        GuideSections("<h1>Guide</h1><h2 id=\"start\">First steps</h2><p>x</p>\n"
                      "<h2>None</h2><h2 id=\"find\">Find <b>R&amp;D</b> &lt;all&gt;</h2>"),
        ElementsAre(GuideSection{"start", "First steps"}, GuideSection{"find", "Find R&D <all>"}));
}

TEST(GuideSections, AreNoneWhereAPageEndsTooEarly) {
    for (const char* page : {"", "<h2 id=\"", "<h2 id=\"a\">", "<h2 id=\"a\">b", "<h2 id=a>b</h2>"})
        EXPECT_THAT(GuideSections(page), IsEmpty()) << page;
}

} // namespace
} // namespace tallowmere
