#include "core/pages/history_list.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using Side = HistorySide;
using Places = std::vector<int>;

struct StepCase {
    int current;
    int count;
    Side side;
    bool isCovered;
    Places places;
};

// clang-format off
const StepCase kStepCases[] = {
    {-1, 0,  Side::Back,    false, {}},
    {-1, 0,  Side::Forward, false, {}},
    {0,  1,  Side::Back,    false, {}},
    {0,  1,  Side::Forward, false, {}},
    {3,  5,  Side::Back,    false, {2, 1, 0}},
    {3,  5,  Side::Forward, false, {4}},
    {0,  3,  Side::Forward, false, {1, 2}},
    {29, 30, Side::Back,    false, {28, 27, 26, 25, 24, 23, 22, 21, 20, 19, 18, 17, 16, 15, 14}},
    {0,  30, Side::Forward, false, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
    // What could not be loaded stands before the page.
    {2,  4,  Side::Back,    true,  {2, 1, 0}},
    {2,  4,  Side::Forward, true,  {3}},
    {0,  1,  Side::Back,    true,  {0}},
    {-1, 0,  Side::Back,    true,  {}},
};

struct CaptionCase {
    std::string_view title;
    std::string_view address;
    std::string_view caption;
};

constexpr CaptionCase kCaptionCases[] = {
    {"Quote of MSFT",              "http://h/q",  "Quote of MSFT"},
    {"",                           "http://h/q",  "http://h/q"},
    {" \t\r\n ",                   "http://h/q",  "http://h/q"},
    {"",                           "",            ""},
    {"<b>bold</b> & more",         "http://h/q",  "<b>bold</b> & more"},
    {"two\nlines",                 "http://h/q",  "two lines"},
    {"turned \xE2\x80\xAE" "fdp",  "http://h/q",  "turned fdp"},
    {"\xFF",                       "http://h/q",  "?"},
};
// clang-format on

TEST(HistoryList, TheNearestPagesComeFirst) {
    for (const StepCase& row : kStepCases)
        EXPECT_EQ(HistorySteps(row.current, row.count, row.side, row.isCovered), row.places)
            << row.current << " of " << row.count;
}

TEST(HistoryList, ATitleIsOneLineOfPlainText) {
    for (const CaptionCase& row : kCaptionCases)
        EXPECT_EQ(HistoryCaption(row.title, row.address), row.caption) << row.title;
}

TEST(HistoryList, ALongTitleIsCutBetweenCharacters) {
    EXPECT_EQ(HistoryCaption(std::string(80, 'a'), ""), std::string(80, 'a'));
    EXPECT_EQ(HistoryCaption(std::string(81, 'a'), ""), std::string(80, 'a') + "\xE2\x80\xA6");
    const std::string euro = "\xE2\x82\xAC";
    std::string title;
    for (int n = 0; n < 40; ++n)
        title += euro;
    EXPECT_EQ(HistoryCaption(title, ""), title.substr(0, 78) + "\xE2\x80\xA6");
}

} // namespace
} // namespace tallowmere
