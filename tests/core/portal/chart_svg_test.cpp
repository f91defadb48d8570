#include "core/portal/chart_svg.h"

#include "core/text/bytes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(ChartSvg, HasTheSizeAskedFor) {
    const Chart chart{"MSFT", "SAMPLE DATA", {1, 2}, {}};
    EXPECT_THAT(ChartSvg(chart, ChartSize::Small), HasSubstr("width=\"192\" height=\"96\""));
    EXPECT_THAT(ChartSvg(chart, ChartSize::Large), HasSubstr("width=\"512\" height=\"288\""));
}

TEST(ChartSvg, SaysTitleNoteLowestHighestAndLastPrice) {
    const Chart chart{"MSFT 1 year", "SAMPLE DATA", {400, 380.5, 425.25, 410}, {}};
    for (const ChartSize size : {ChartSize::Small, ChartSize::Large}) {
        const std::string svg = ChartSvg(chart, size);
        for (const char* text :
             {">MSFT 1 year<", ">SAMPLE DATA<", ">380.50<", ">425.25<", ">410.00<"})
            EXPECT_THAT(svg, HasSubstr(text));
    }
}

TEST(ChartSvg, DrawsFromLeftToRightAndHigherPricesHigher) {
    // The plot of a small chart reaches from 6 to 140 and, downwards, from 20 to 78.
    const std::string svg = ChartSvg({"T", "", {10, 30, 20}, {}}, ChartSize::Small);
    EXPECT_THAT(svg, HasSubstr("points=\"6.0,78.0 73.0,20.0 140.0,49.0 \""));
}

TEST(ChartSvg, DrawsAFlatCurveThroughTheMiddle) {
    const std::string svg = ChartSvg({"T", "", {5, 5}, {}}, ChartSize::Small);
    EXPECT_THAT(svg, HasSubstr("points=\"6.0,49.0 140.0,49.0 \""));
    EXPECT_THAT(ChartSvg({"T", "", {0, 0}, {}}, ChartSize::Small), Not(HasSubstr("nan")));
}

TEST(ChartSvg, DrawsASinglePrice) {
    EXPECT_THAT(ChartSvg({"T", "", {5}, {}}, ChartSize::Large), HasSubstr(">5.00<"));
}

TEST(ChartSvg, SaysThatThereAreNoPrices) {
    const std::string svg = ChartSvg({"XYZ", "SAMPLE DATA", {}, {}}, ChartSize::Small);
    EXPECT_THAT(svg, HasSubstr(">no prices<"));
    EXPECT_THAT(svg, HasSubstr("SAMPLE DATA"));
}

TEST(ChartSvg, SaysWhyThereAreNone) {
    const std::string svg = ChartSvg({"XYZ", "No source answers.", {}, {}}, ChartSize::Small);
    EXPECT_THAT(svg, HasSubstr(">no prices<"));
    EXPECT_THAT(svg, HasSubstr(">No source answers.<"));
}

TEST(ChartSvg, BreaksANoteThatIsWiderThanThePlot) {
    // A character is taken to be 0.6 of the size wide: 24 of size 9 fit into the 134 pixels of the
    // small plot, 59 of size 12 into the 428 of the large one, and a banner of 29 there.
    const std::string note = "Nov 20, 2026 4:00 PM ET, Charts Inc, stale since Nov 20, 2026";
    const Chart chart{"T", note, {1, 2}, {}};
    const std::string small = ChartSvg(chart, ChartSize::Small);
    for (const char* line :
         {">Nov 20, 2026 4:00 PM ET,<", ">Charts Inc, stale since<", ">Nov 20, 2026<"})
        EXPECT_THAT(small, HasSubstr(line));
    const std::string large = ChartSvg(chart, ChartSize::Large);
    EXPECT_THAT(large, HasSubstr(">Nov 20, 2026 4:00 PM ET, Charts Inc, stale since Nov 20,<"));
    EXPECT_THAT(large, HasSubstr(">2026<"));
    EXPECT_THAT(ChartSvg({"T", std::string(29, 'x'), {1, 2}, {}}, ChartSize::Large),
                HasSubstr("font-size=\"24\""));
    EXPECT_THAT(ChartSvg({"T", std::string(30, 'x'), {1, 2}, {}}, ChartSize::Large),
                Not(HasSubstr("font-size=\"24\"")));
}

TEST(ChartSvg, LeavesLabelsOutThatWouldTouch) {
    const Chart chart{"T", "", {1, 2}, {{0.5, "one"}, {0.52, "two"}, {0.9, "three"}}};
    const std::string svg = ChartSvg(chart, ChartSize::Large);
    EXPECT_THAT(svg, HasSubstr(">one<"));
    EXPECT_THAT(svg, Not(HasSubstr(">two<")));
    EXPECT_THAT(svg, HasSubstr(">three<"));
}

TEST(ChartSvg, EscapesItsTexts) {
    const std::string svg = ChartSvg({"<a>&\"", "<b>", {1, 2}, {{0.5, "<c>"}}}, ChartSize::Large);
    for (const char* raw : {"<a>", "<b>", "<c>", "&\""})
        EXPECT_THAT(svg, Not(HasSubstr(raw)));
}

} // namespace
} // namespace tallowmere
