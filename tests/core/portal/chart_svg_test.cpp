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
    // The plot of a small chart reaches from 6 to 140 and, downwards, from 20 to 80.
    const std::string svg = ChartSvg({"T", "", {10, 30, 20}, {}}, ChartSize::Small);
    EXPECT_THAT(svg, HasSubstr("points=\"6.0,80.0 73.0,20.0 140.0,50.0 \""));
}

TEST(ChartSvg, DrawsAFlatCurveThroughTheMiddle) {
    const std::string svg = ChartSvg({"T", "", {5, 5}, {}}, ChartSize::Small);
    EXPECT_THAT(svg, HasSubstr("points=\"6.0,50.0 140.0,50.0 \""));
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

TEST(ChartSvg, BreaksANoteThatIsWiderThanTheChart) {
    // A character is taken to be 0.6 of the size wide: 33 of size 9 fit into the 180 pixels of the
    // small chart, 67 of size 12 into the 488 of the large one, and 45 of the larger letters there.
    const std::string note =
        "Nov 20, 2026 4:00 PM ET, Charts Inc, stale since Nov 20, 2026 4:00 PM";
    const Chart chart{"T", note, {1, 2}, {}};
    const std::string small = ChartSvg(chart, ChartSize::Small);
    for (const char* line :
         {">Nov 20, 2026 4:00 PM ET, Charts<", ">Inc, stale since Nov 20, 2026<", ">4:00 PM<"})
        EXPECT_THAT(small, HasSubstr(line));
    const std::string large = ChartSvg(chart, ChartSize::Large);
    EXPECT_THAT(large,
                HasSubstr(">Nov 20, 2026 4:00 PM ET, Charts Inc, stale since Nov 20, 2026 4:00<"));
    EXPECT_THAT(large, HasSubstr(">PM<"));
    EXPECT_THAT(ChartSvg({"T", std::string(45, 'x'), {1, 2}, {}}, ChartSize::Large),
                HasSubstr("font-size=\"18\""));
    EXPECT_THAT(ChartSvg({"T", std::string(46, 'x'), {1, 2}, {}}, ChartSize::Large),
                Not(HasSubstr("font-size=\"18\"")));
}

TEST(ChartSvg, KeepsTheNoteOffTheCurve) {
    for (const ChartSize size : {ChartSize::Small, ChartSize::Large})
        for (const char* note : {"SAMPLE DATA", "Nov 20, 2026 4:00 PM ET, Charts Inc",
                                 "Nov 20, 2026 4:00 PM ET, Charts Inc, stale since Nov 20, 2026"}) {
            const std::string svg = ChartSvg({"T", note, {1, 3, 2}, {{0.5, "Nov"}}}, size);
            // The curve's lowest price lies on the lower edge of the plot.
            const auto first = svg.find("stroke-width=\"1.5\" points=\"");
            const double bottom = std::stod(svg.substr(svg.find(',', first) + 1, 8));
            const std::string word = std::string(note).substr(0, 3);
            const auto text = svg.find(">" + word, svg.find("<polyline"));
            ASSERT_NE(text, svg.npos) << note;
            const auto element = svg.rfind("<text", text);
            const double baseline = std::stod(svg.substr(svg.find("y=\"", element) + 3, 8));
            const double height = std::stod(svg.substr(svg.find("font-size=\"", element) + 11, 4));
            EXPECT_GT(baseline - height, bottom) << note;
            EXPECT_GT(bottom, size == ChartSize::Small ? 40 : 200) << "room for the curve";
        }
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
