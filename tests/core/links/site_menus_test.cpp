#include "core/links/site_menus.h"

#include "core/links/menu_table.h"
#include "core/links/web_address.h"
#include "core/sites/site_table.h"
#include "core/text/bytes.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <set>

namespace tallowmere {
namespace {

std::string ReadSource(const std::string& name) {
    std::ifstream file(std::string(TALLOWMERE_SOURCE_DIR) + "/" + name, std::ios::binary);
    EXPECT_TRUE(file.good()) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

MenuTable ShippedMenus() {
    return MenuTable::Parse(ReadSource("data/menus.toml"), "menus.toml");
}

SiteTable Sites() {
    return SiteTable::Parse("[hosts]\n"
                            "menu_mnuBChart = \"big.test\"\n"
                            "menu_mnuIQCChrt = \"iqc.test\"\n"
                            "menu_mnuHisto = \"histo.test\"\n"
                            "menu_mnuWSC = \"wsc.test\"\n",
                            "sites.toml");
}

std::string AddressOf(std::string_view array, int index, std::string_view ticker = "ibm") {
    return SiteMenuAddress(array, index, ticker, Sites(), ShippedMenus());
}

const SiteMenu* FindMenu(std::string_view name) {
    for (const SiteMenu& menu : SiteMenus()) {
        if (menu.name == name)
            return &menu;
    }
    return nullptr;
}

TEST(SiteMenus, EachPopsUpFromItsLink) {
    const std::map<std::string_view, int> links{
        {"mnuUpDn", 25},      {"mnuAVLinks", 193},  {"mnuNewSites", 186}, {"mnuPF", 180},
        {"mnuEarn", 31},      {"mnuBF", 171},       {"mnuDayTrade", 40},  {"mnuWSCity", 14},
        {"mnuGlobalMkt", 97}, {"mnuHisty", 39},     {"mnuComment", 69},   {"mnuReference", 24},
        {"mnuOLBrokers", 89}, {"mnuSrchWeb", 81},   {"mnuSPPW", 36},      {"mnuIPOs", 17},
        {"mnuIndices", 49},   {"mnuHot", 54},       {"mnuScreeners", 5},  {"mnuBigchart", 4},
        {"mnuIQC", 62},       {"mnuMegaLinks", 65}, {"mnuCalendars", 78}, {"mnuTipz", 22}};
    std::map<std::string_view, int> found;
    for (const SiteMenu& menu : SiteMenus()) {
        if (menu.link != kNoLink)
            found[menu.name] = menu.link;
        EXPECT_NE(menu.link != kNoLink, !menu.parent.empty()) << menu.name;
    }
    EXPECT_EQ(found, links);
}

TEST(SiteMenus, SubmenusStandInTheirMenusInTheGivenOrder) {
    const std::map<std::string_view, std::vector<std::string_view>> submenus{
        {"mnuBF", {"mnuBonds", "mnuMutualF"}},
        {"mnuWSCity", {"mnuWSCInfo", "mnuWSCChart"}},
        {"mnuMegaLinks",
         {"mnuBooks", "mnuResearch", "mnuMktData", "mnuHighTech", "mnuBrokers", "mnuGovt",
          "mnuLaws", "mnuMag", "mnuMega", "mnuCBrds"}}};
    std::map<std::string_view, std::vector<std::string_view>> found;
    std::set<std::string_view> seen;
    for (const SiteMenu& menu : SiteMenus()) {
        EXPECT_TRUE(seen.insert(menu.name).second) << menu.name;
        if (!menu.parent.empty()) {
            EXPECT_TRUE(seen.contains(menu.parent)) << menu.name << " stands before its parent";
            found[menu.parent].push_back(menu.name);
        }
    }
    EXPECT_EQ(found, submenus);
}

TEST(SiteMenus, SubmenusBearTheirCaptions) {
    const std::map<std::string_view, std::string_view> captions{
        {"mnuBonds", "Bonds"},
        {"mnuMutualF", "Mutual Funds"},
        {"mnuWSCInfo", "Data"},
        {"mnuWSCChart", "Charts"},
        {"mnuBooks", "Top Rated Investment Books (Updated Frequently)"},
        {"mnuResearch", "Research"},
        {"mnuMktData", "Market Data"},
        {"mnuHighTech", "High Tech"},
        {"mnuBrokers", "Broker Ratings"},
        {"mnuGovt", "Government Docs"},
        {"mnuLaws", "The Law"},
        {"mnuMag", "Publications"},
        {"mnuMega", "Mega Sites"},
        {"mnuCBrds", "Chats & Boards"}};
    for (const auto& [name, caption] : captions) {
        ASSERT_NE(FindMenu(name), nullptr) << name;
        EXPECT_EQ(FindMenu(name)->caption, caption);
    }
}

TEST(SiteMenus, GovernmentDocumentsAreFourSingleItems) {
    std::vector<std::string_view> captions;
    for (const SiteMenuArray& array : SiteMenuArrays()) {
        if (array.menu != "mnuGovt")
            continue;
        ASSERT_EQ(SiteMenuItems(array.name).size(), 1U);
        EXPECT_EQ(SiteMenuItems(array.name)[0].index, 0);
        captions.push_back(SiteMenuItems(array.name)[0].caption);
    }
    EXPECT_EQ(captions, (std::vector<std::string_view>{"10K Wizard", "Federal Filings Online",
                                                       "Public Register's Annual Report Service",
                                                       "US Tax Forms"}));
}

TEST(SiteMenus, AnArrayStandsInAMenuOrBehindOneHeading) {
    const std::map<std::string_view, std::string> headings{
        {"mnuBankin", "mnuPfin Banking"},      {"mnuInsur", "mnuPfin Insurance"},
        {"mnuRetire", "mnuPfin Retirement"},   {"mnuSvgSpend", "mnuPfin Saving & Spending"},
        {"mnuTax", "mnuPfin Taxes"},           {"mnuCAMkt", "mnuGlblMkts Canada"},
        {"mnuNEWSBI", "mnuMNews By Industry"}, {"mnuECom", "mnuSearches Go Shopping"}};
    std::map<std::string_view, std::string> found;
    for (const SiteMenuItem& item : SiteMenuItems()) {
        if (item.kind == MenuItemKind::Heading)
            found[item.target] = std::string(item.array) + " " + std::string(item.caption);
    }
    EXPECT_EQ(found, headings);
    for (const SiteMenuArray& array : SiteMenuArrays()) {
        EXPECT_FALSE(SiteMenuItems(array.name).empty()) << array.name;
        EXPECT_EQ(array.menu.empty(), headings.contains(array.name)) << array.name;
        EXPECT_TRUE(array.menu.empty() || FindMenu(array.menu) != nullptr) << array.name;
    }
}

TEST(SiteMenus, ArraysHaveTheirGivenNumberOfItems) {
    const std::map<std::string_view, std::size_t> counts{
        {"mnuUpDown", 2},      {"mnuAVLink", 8},  {"mnuNewSite", 1},   {"mnuPfin", 18},
        {"mnuBankin", 2},      {"mnuInsur", 5},   {"mnuRetire", 4},    {"mnuSvgSpend", 2},
        {"mnuTax", 5},         {"mnuEarnins", 5}, {"mnuBond", 7},      {"mnuMFund", 14},
        {"mnuDayTrd", 17},     {"mnuWSCI", 5},    {"mnuWSCC", 5},      {"mnuGlblMkts", 16},
        {"mnuCAMkt", 14},      {"mnuHisto", 5},   {"mnuMNews", 30},    {"mnuNEWSBI", 11},
        {"mnuReferences", 19}, {"mnuOLBs", 25},   {"mnuSearches", 19}, {"mnuECom", 19},
        {"mnuSp", 18},         {"mnuIPO", 9},     {"mnuInd", 6},       {"mnuHots", 5},
        {"mnuSS", 18},         {"mnuBChart", 16}, {"mnuIQCChrt", 8},   {"mnuBook", 2},
        {"mnuMegRsh", 32},     {"mnuMKData", 7},  {"mnuHiTek", 11},    {"mnuBrokRat", 6},
        {"mnuLaw", 6},         {"mnuPub", 14},    {"mnuMegSite", 25},  {"mnuChatMsg", 13},
        {"mnuCals", 5},        {"mnuTips", 6},    {"mnu10kw", 1},      {"mnuFFO", 1},
        {"mnuPRARS", 1},       {"mnuUTF", 1}};
    std::map<std::string_view, std::size_t> found;
    for (const SiteMenuItem& item : SiteMenuItems())
        ++found[item.array];
    EXPECT_EQ(found, counts);
    for (const SiteMenuArray& array : SiteMenuArrays())
        EXPECT_EQ(SiteMenuItems(array.name).size(), counts.at(array.name)) << array.name;
}

TEST(SiteMenus, EveryCaptionIsTheGivenOne) {
    std::string dump;
    for (const SiteMenuItem& item : SiteMenuItems())
        dump += std::string(item.array) + "\t" + std::to_string(item.index) + "\t" +
                std::string(item.caption) + "\n";
    EXPECT_EQ(dump, ReadSource("tests/expected/site_menu_items.txt"));
}

TEST(SiteMenus, NoTwoItemsOfAnArrayShareACaption) {
    for (const SiteMenuArray& array : SiteMenuArrays()) {
        std::set<std::string_view> captions;
        for (const SiteMenuItem& item : SiteMenuItems(array.name)) {
            EXPECT_EQ(item.caption == "-", item.kind == MenuItemKind::Separator);
            EXPECT_FALSE(item.caption.empty());
            if (item.kind != MenuItemKind::Separator) {
                EXPECT_TRUE(captions.insert(item.caption).second)
                    << array.name << ": " << item.caption;
            }
        }
    }
}

TEST(SiteMenus, EveryItemThatLoadsAPageHasAWebAddress) {
    const SiteTable sites = SiteTable::Parse("[hosts]\ndefault = \"http://host.test\"\n", "s.toml");
    const MenuTable menus = ShippedMenus();
    for (const SiteMenuItem& item : SiteMenuItems()) {
        const std::string address = SiteMenuAddress(item.array, item.index, "ibm", sites, menus);
        const bool loads = item.kind == MenuItemKind::Fixed || item.kind == MenuItemKind::Ticker;
        EXPECT_EQ(IsWebAddress(address), loads) << item.array << " " << item.index;
        EXPECT_EQ(address.empty(), !loads) << item.array << " " << item.index;
    }
}

TEST(SiteMenus, EveryRowOfTheDataBelongsToAFixedItem) {
    const MenuTable menus = ShippedMenus();
    for (const auto& [key, address] : menus.All()) {
        const SiteMenuItem* item = FindSiteMenuItem(key.first, key.second);
        ASSERT_NE(item, nullptr) << address;
        EXPECT_EQ(item->kind, MenuItemKind::Fixed) << address;
    }
}

TEST(SiteMenus, ASeparatorAHeadingAndAPlaceholderLoadNothing) {
    EXPECT_EQ(AddressOf("mnuPfin", 6), "");
    EXPECT_EQ(AddressOf("mnuPfin", 1), "");
    EXPECT_EQ(AddressOf("mnuNewSite", 1), "");
    EXPECT_EQ(AddressOf("mnuPfin", 99), "");
    EXPECT_EQ(AddressOf("mnuNowhere", 1), "");
}

TEST(SiteMenus, ChartPeriodsAreInTheirOwnOrder) {
    const std::array<std::string, 16> codes{"1",  "2", "3", "18", "4",  "5",  "6",  "7",
                                            "19", "8", "9", "10", "11", "12", "13", "20"};
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(AddressOf("mnuBChart", i + 1),
                  "big.test/quickchart/quickchart.asp?sid=&o_symb=ibm&symb=ibm&time=" +
                      codes[static_cast<std::size_t>(i)]);
    }
}

TEST(SiteMenus, AllDataSendsThePeriodCode20) {
    EXPECT_EQ(FindSiteMenuItem("mnuBChart", 16)->caption, "All Data");
    EXPECT_TRUE(AddressOf("mnuBChart", 16).ends_with("&time=20"));
}

TEST(SiteMenus, BarChartsAreOneAddressPerPeriodAndTheCandlesticksAnother) {
    const std::array<std::string, 7> codes{"5m", "15m", "30m", "60m", "day", "week", "month"};
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(AddressOf("mnuIQCChrt", i + 1),
                  "iqc.test/chart/default.asp?w=600&period=180&chart=bar&chart1=ma&i0=6&i1=8&i2=2"
                  "&i3=3&s=linear&symbol=ibm&time=" +
                      codes[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(AddressOf("mnuIQCChrt", 8),
              "iqc.test/chart/default.asp?w=600&period=60&time=day&chart=candle&chart1=lr&i0=6"
              "&i1=4&i2=1&i3=2&s=linear&symbol=ibm");
}

TEST(SiteMenus, PriceHistoryTakesTheNumberOfDays) {
    const std::array<std::string, 5> days{"30", "60", "90", "120", "360"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(AddressOf("mnuHisto", i + 1),
                  "histo.test/cgi-bin/cgipage?PGMNM=hstqte&GRP=QUOTE&ITEM=03&Symbol=ibm+++++"
                  "&Period=" +
                      days[static_cast<std::size_t>(i)] + "++++");
    }
}

TEST(SiteMenus, ChartsAndDataOfOneSiteShareItsHost) {
    const std::array<std::string, 5> charts{
        "Corporate_Snapshot.html?Button=Get+Graph&TESelect=&nocache=75205&PH=2&Symbol=",
        "Technical.html?Button=RUN&ind=s,216,d,d,d,d&TESelect=216&nocache=75236&PH=2&Symbol=",
        "Technical.html?Button=RUN&ind=s,206,d,d,d,d&TESelect=206&nocache=75382&PH=2&Symbol=",
        "Technical.html?Button=RUN&ind=s,208,d,d,d,d&TESelect=208&nocache=75310&PH=2&Symbol=",
        "Technical.html?Button=RUN&ind=s,210,d,d,d,d&TESelect=210&nocache=75317&PH=2&Symbol="};
    const std::array<std::string, 5> data{
        "Quick_Facts?Button=Get+Report&CRSelect=12&nocache=74863&PH=2&Symbol=",
        "Company_Snapshot?PH=2&Symbol=",
        "All_Market_Guide_Financial_Reports?Button=Get+Report&CRSelect=8&nocache=74747&PH=2"
        "&Symbol=",
        "Quarterly_Earnings?Button=Get+Report&CRSelect=11&nocache=74832&PH=2&Symbol=",
        "Vickers_Insider_Trading?Button=Get+Report&CRSelect=18&nocache=74955&PH=2&Symbol="};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(AddressOf("mnuWSCC", static_cast<int>(i) + 1),
                  "wsc.test/wsc/" + charts[i] + "ibm");
        EXPECT_EQ(AddressOf("mnuWSCI", static_cast<int>(i) + 1), "wsc.test/wsc/" + data[i] + "ibm");
    }
}

TEST(SiteMenus, EveryArrayHasTheLinkThatLeadsToIt) {
    for (const SiteMenuArray& array : SiteMenuArrays())
        EXPECT_GE(LinkOfArray(array.name), 0) << array.name;
    EXPECT_EQ(LinkOfArray("mnuBChart"), 4);
    EXPECT_EQ(LinkOfArray("mnuBond"), 171);   // in a submenu
    EXPECT_EQ(LinkOfArray("mnuBankin"), 180); // behind a heading
    EXPECT_EQ(LinkOfArray("none"), kNoLink);
}

TEST(SiteMenus, EveryTickerItemTakesThePlaceholderWord) {
    int count = 0;
    for (const SiteMenuItem& item : SiteMenuItems()) {
        if (item.kind != MenuItemKind::Ticker)
            continue;
        ++count;
        EXPECT_TRUE(Contains(AddressOf(item.array, item.index, "LCASETICK"), "LCASETICK"));
        EXPECT_FALSE(Contains(AddressOf(item.array, item.index, "LCASETICK"), "{"));
    }
    EXPECT_EQ(count, 39);
}

} // namespace
} // namespace tallowmere
