#include "core/links/catalogue.h"

#include "core/sites/site_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tallowmere {
namespace {

const LinkRow& Row(int index) {
    return Catalogue()[static_cast<std::size_t>(index)];
}

template <typename Predicate>
std::vector<int> IndexesWhere(Predicate predicate) {
    std::vector<int> indexes;
    for (const LinkRow& row : Catalogue()) {
        if (predicate(row))
            indexes.push_back(row.index);
    }
    return indexes;
}

TEST(Catalogue, HoldsEveryIndexOnce) {
    ASSERT_EQ(Catalogue().size(), 218u);
    for (int i = 0; i < kLinkCount; ++i)
        EXPECT_EQ(Row(i).index, i);
}

TEST(Catalogue, TellsLinksWithTheSameCaptionApartByIndex) {
    for (const auto& [one, other] : {std::pair{68, 34}, {41, 91}, {21, 71}, {1, 206}, {85, 172}}) {
        EXPECT_EQ(Row(one).caption, Row(other).caption);
        EXPECT_NE(std::string(Row(one).site) + std::string(Row(one).target),
                  std::string(Row(other).site) + std::string(Row(other).target));
    }
}

TEST(Catalogue, KeepsOddSpellings) {
    EXPECT_EQ(Row(192).caption, "  IT");
    EXPECT_EQ(Row(192).tooltip, "InvesterTech");
    EXPECT_EQ(Row(31).tooltip, "Today's Earnings Suprises");
    EXPECT_EQ(Row(209).tooltip, "Widly Held");
    EXPECT_EQ(Row(69).tooltip, "Portfolio #6");
    EXPECT_EQ(Row(186).tooltip, "Great New Sites !");
    EXPECT_EQ(Row(25).tooltip, "Today's Upgrades & DownGrades");
    EXPECT_EQ(Row(66).caption, "Setup--Help");
}

TEST(Catalogue, WritesASingleAmpersandAsOne) {
    EXPECT_EQ(Row(36).caption, "S&P");
    EXPECT_EQ(Row(171).caption, "Bond & Fund");
    EXPECT_EQ(Row(194).caption, "QR&D");
    EXPECT_THAT(IndexesWhere([](const LinkRow& row) {
                    return row.caption.find("&&") != std::string_view::npos;
                }),
                testing::IsEmpty());
}

TEST(Catalogue, HasSeventyEmptyCustomSlots) {
    const auto slots =
        IndexesWhere([](const LinkRow& row) { return row.action == LinkAction::Custom; });
    ASSERT_EQ(slots.size(), 70u);
    EXPECT_EQ(slots.front(), 101);
    EXPECT_EQ(slots.back(), 170);
    for (const int i : slots) {
        EXPECT_TRUE(IsCustomSlot(i));
        EXPECT_EQ(Row(i).caption, "< Custom >");
        EXPECT_EQ(AreaCode(Row(i).area), "");
    }
    EXPECT_FALSE(IsCustomSlot(100));
    EXPECT_FALSE(IsCustomSlot(171));
}

TEST(Catalogue, TagsEveryLinkWithItsColourArea) {
    const std::map<std::string_view, std::vector<int>> expected{
        {"RN", {0, 19, 20, 43, 100}},
        {"WSR", {27, 28, 30, 61, 187, 190, 211}},
        {"MB", {1, 2, 21, 68, 71, 79, 91, 183, 194}},
        {"NR", {13, 14, 15, 16,  29,  33,  35,  37,  38,  57, 74,
                75, 76, 77, 191, 195, 196, 207, 212, 214, 215}},
        {"NT", {80, 81, 93, 189}},
        {"BRK", {8, 9, 10, 11, 12, 52, 87, 88, 89, 90}},
        {"RTS", {7,   23,  41,  44,  46,  48,  53,  72,  83,  84,  85,  184,
                 199, 200, 201, 202, 203, 204, 205, 206, 208, 209, 213, 217}},
        {"TLB", {5,  17, 18, 22, 24, 25, 31, 36, 40, 49,  50,  51, 54,
                 58, 59, 60, 63, 65, 69, 73, 78, 97, 171, 180, 193}},
        {"CQ", {3,   4,   6,   26,  32,  34,  39,  42,  47,  55,  56,  62,  64,
                67,  70,  82,  86,  94,  95,  96,  98,  99,  172, 173, 174, 175,
                176, 177, 178, 179, 181, 182, 185, 188, 192, 197, 198, 210, 216}},
    };
    std::size_t tagged = 0;
    for (const auto& [code, indexes] : expected) {
        const std::string_view wanted = code;
        EXPECT_EQ(IndexesWhere([&](const LinkRow& row) { return AreaCode(row.area) == wanted; }),
                  indexes)
            << code;
        tagged += indexes.size();
    }
    // 45, 66, 92, 186 and the seventy custom slots bear no tag.
    EXPECT_EQ(tagged + 4 + 70, 218u);
}

TEST(Catalogue, OpensTheNineBrokersInTheSecondPaneOnly) {
    EXPECT_EQ(IndexesWhere(OpensInSecondPane), (std::vector{8, 9, 10, 11, 12, 52, 87, 88, 90}));
}

TEST(Catalogue, PopsUpTwentyFourMenus) {
    const std::map<int, std::string_view> expected{
        {4, "mnuBigchart"},   {5, "mnuScreeners"},  {14, "mnuWSCity"},    {17, "mnuIPOs"},
        {22, "mnuTipz"},      {24, "mnuReference"}, {25, "mnuUpDn"},      {31, "mnuEarn"},
        {36, "mnuSPPW"},      {39, "mnuHisty"},     {40, "mnuDayTrade"},  {49, "mnuIndices"},
        {54, "mnuHot"},       {62, "mnuIQC"},       {65, "mnuMegaLinks"}, {69, "mnuComment"},
        {78, "mnuCalendars"}, {81, "mnuSrchWeb"},   {89, "mnuOLBrokers"}, {97, "mnuGlobalMkt"},
        {171, "mnuBF"},       {180, "mnuPF"},       {186, "mnuNewSites"}, {193, "mnuAVLinks"},
    };
    std::map<int, std::string_view> menus;
    for (const LinkRow& row : Catalogue()) {
        if (row.action == LinkAction::Menu)
            menus.emplace(row.index, row.target);
    }
    EXPECT_EQ(menus, expected);
}

TEST(Catalogue, GivesEveryToolItsAction) {
    const std::map<int, LinkAction> tools{
        {0, LinkAction::Refresh},
        {19, LinkAction::Back},
        {20, LinkAction::Forward},
        {27, LinkAction::QueryPortfolio},
        {28, LinkAction::HomePage},
        {30, LinkAction::AccountGated},
        {43, LinkAction::CopyAddress},
        {45, LinkAction::Reminders},
        {51, LinkAction::Alerts},
        {61, LinkAction::Wizard},
        {66, LinkAction::Setup},
        {79, LinkAction::AccountGated},
        {80, LinkAction::Navigate},
        {92, LinkAction::Calculator},
        {93, LinkAction::Fixed},
        {100, LinkAction::Stop},
        {6, LinkAction::SmallCharts},
        {175, LinkAction::LargeCharts},
        {187, LinkAction::StreamingPortfolio},
        {211, LinkAction::MultiLink},
    };
    for (const auto& [index, action] : tools)
        EXPECT_EQ(Row(index).action, action) << index;
}

TEST(Catalogue, NeedsATickerWhereTheAddressUsesOne) {
    for (const LinkRow& row : Catalogue()) {
        const bool used = row.target.find("{upper}") != std::string_view::npos ||
                          row.target.find("{lower}") != std::string_view::npos || row.index == 6 ||
                          row.index == 175;
        EXPECT_EQ(NeedsTicker(row), used) << row.index;
    }
}

TEST(Catalogue, HasAnAddressWhereThereIsASite) {
    for (const LinkRow& row : Catalogue()) {
        EXPECT_EQ(HasAddress(row), row.target.substr(0, 1) == "/") << row.index;
    }
}

TEST(SiteKeys, AreBareKeysOfTheTableEachOnce) {
    const auto keys = SiteKeys();
    EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
    EXPECT_EQ(std::set(keys.begin(), keys.end()).size(), keys.size());
    for (const std::string_view key : keys) {
        EXPECT_FALSE(key.empty());
        EXPECT_TRUE(std::all_of(key.begin(), key.end(), [](unsigned char c) {
            return std::isalnum(c) || c == '_';
        })) << key;
    }
}

TEST(SiteKeys, HoldTheSitesOfTheCatalogueAndOfTheOtherAddresses) {
    const auto keys = SiteKeys();
    for (const LinkRow& row : Catalogue()) {
        if (HasAddress(row)) {
            EXPECT_THAT(keys, testing::Contains(row.site));
        }
    }
    EXPECT_THAT(keys, testing::IsSupersetOf({"quote_server", "portfolio_quotes", "chart_server_1",
                                             "chart_server_2", "profile_page", "stream_lookup",
                                             "stream_redirect", "freert_home", "sendall_msn",
                                             "menu_mnuWSC"}));
}

TEST(Catalogue, KnowsWhichLinksLeadToAPage) {
    for (const int link : {185, 3, 101, 46, 47, 63})
        EXPECT_TRUE(LeadsToPage(Catalogue()[static_cast<std::size_t>(link)])) << link;
    for (const LinkRow& row : Catalogue())
        EXPECT_FALSE(row.action == LinkAction::Menu && LeadsToPage(row)) << row.index;
    // Back, stop, reload, copy, setup, reminders, calculator, navigate, multi-link, watch wizard.
    for (const int link : {19, 20, 100, 0, 43, 66, 45, 92, 80, 211, 61})
        EXPECT_FALSE(LeadsToPage(Catalogue()[static_cast<std::size_t>(link)])) << link;
}

} // namespace
} // namespace tallowmere
