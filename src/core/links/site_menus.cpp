#include "core/links/site_menus.h"

#include "core/links/menu_table.h"
#include "core/links/site_hosts.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

// clang-format off
constexpr std::array<SiteMenu, 38> kMenus{{
    {"mnuUpDn",      "UpDowns",                                            25,      ""},
    {"mnuAVLinks",   "AVLinks",                                            193,     ""},
    {"mnuNewSites",  "NewSites",                                           186,     ""},
    {"mnuPF",        "PFin",                                               180,     ""},
    {"mnuEarn",      "Earn",                                               31,      ""},
    {"mnuBF",        "BondFund",                                           171,     ""},
    {"mnuBonds",     "Bonds",                                              kNoLink, "mnuBF"},
    {"mnuMutualF",   "Mutual Funds",                                       kNoLink, "mnuBF"},
    {"mnuDayTrade",  "Daytrade",                                           40,      ""},
    {"mnuWSCity",    "WSCITY",                                             14,      ""},
    {"mnuWSCInfo",   "Data",                                               kNoLink, "mnuWSCity"},
    {"mnuWSCChart",  "Charts",                                             kNoLink, "mnuWSCity"},
    {"mnuGlobalMkt", "GlobalMkt",                                          97,      ""},
    {"mnuHisty",     "Histy",                                              39,      ""},
    {"mnuComment",   "News",                                               69,      ""},
    {"mnuReference", "Ref",                                                24,      ""},
    {"mnuOLBrokers", "Online Brokers",                                     89,      ""},
    {"mnuSrchWeb",   "Searches",                                           81,      ""},
    {"mnuSPPW",      "SPPW",                                               36,      ""},
    {"mnuIPOs",      "ipos",                                               17,      ""},
    {"mnuIndices",   "Indices",                                            49,      ""},
    {"mnuHot",       "Hot",                                                54,      ""},
    {"mnuScreeners", "Screeners",                                          5,       ""},
    {"mnuBigchart",  "BigChart",                                           4,       ""},
    {"mnuIQC",       "IQC",                                                62,      ""},
    {"mnuMegaLinks", "Mega",                                               65,      ""},
    {"mnuBooks",     "Top Rated Investment Books (Updated Frequently)",    kNoLink, "mnuMegaLinks"},
    {"mnuResearch",  "Research",                                           kNoLink, "mnuMegaLinks"},
    {"mnuMktData",   "Market Data",                                        kNoLink, "mnuMegaLinks"},
    {"mnuHighTech",  "High Tech",                                          kNoLink, "mnuMegaLinks"},
    {"mnuBrokers",   "Broker Ratings",                                     kNoLink, "mnuMegaLinks"},
    {"mnuGovt",      "Government Docs",                                    kNoLink, "mnuMegaLinks"},
    {"mnuLaws",      "The Law",                                            kNoLink, "mnuMegaLinks"},
    {"mnuMag",       "Publications",                                       kNoLink, "mnuMegaLinks"},
    {"mnuMega",      "Mega Sites",                                         kNoLink, "mnuMegaLinks"},
    {"mnuCBrds",     "Chats & Boards",                                     kNoLink, "mnuMegaLinks"},
    {"mnuCalendars", "Calendars",                                          78,      ""},
    {"mnuTipz",      "Tipz",                                               22,      ""},
}};

constexpr std::array<SiteMenuArray, 46> kArrays{{
    {"mnuUpDown",     "mnuUpDn",       ""},
    {"mnuAVLink",     "mnuAVLinks",    ""},
    {"mnuNewSite",    "mnuNewSites",   ""},
    {"mnuPfin",       "mnuPF",         ""},
    {"mnuBankin",     "",              ""},
    {"mnuInsur",      "",              ""},
    {"mnuRetire",     "",              ""},
    {"mnuSvgSpend",   "",              ""},
    {"mnuTax",        "",              ""},
    {"mnuEarnins",    "mnuEarn",       ""},
    {"mnuBond",       "mnuBonds",      ""},
    {"mnuMFund",      "mnuMutualF",    ""},
    {"mnuDayTrd",     "mnuDayTrade",   ""},
    {"mnuWSCI",       "mnuWSCInfo",    "menu_mnuWSC"},
    {"mnuWSCC",       "mnuWSCChart",   "menu_mnuWSC"},
    {"mnuGlblMkts",   "mnuGlobalMkt",  ""},
    {"mnuCAMkt",      "",              ""},
    {"mnuHisto",      "mnuHisty",      "menu_mnuHisto"},
    {"mnuMNews",      "mnuComment",    ""},
    {"mnuNEWSBI",     "",              ""},
    {"mnuReferences", "mnuReference",  ""},
    {"mnuOLBs",       "mnuOLBrokers",  ""},
    {"mnuSearches",   "mnuSrchWeb",    ""},
    {"mnuECom",       "",              ""},
    {"mnuSp",         "mnuSPPW",       ""},
    {"mnuIPO",        "mnuIPOs",       ""},
    {"mnuInd",        "mnuIndices",    ""},
    {"mnuHots",       "mnuHot",        ""},
    {"mnuSS",         "mnuScreeners",  ""},
    {"mnuBChart",     "mnuBigchart",   "menu_mnuBChart"},
    {"mnuIQCChrt",    "mnuIQC",        "menu_mnuIQCChrt"},
    {"mnuBook",       "mnuBooks",      ""},
    {"mnuMegRsh",     "mnuResearch",   ""},
    {"mnuMKData",     "mnuMktData",    ""},
    {"mnuHiTek",      "mnuHighTech",   ""},
    {"mnuBrokRat",    "mnuBrokers",    ""},
    {"mnu10kw",       "mnuGovt",       ""},
    {"mnuFFO",        "mnuGovt",       ""},
    {"mnuPRARS",      "mnuGovt",       ""},
    {"mnuUTF",        "mnuGovt",       ""},
    {"mnuLaw",        "mnuLaws",       ""},
    {"mnuPub",        "mnuMag",        ""},
    {"mnuMegSite",    "mnuMega",       ""},
    {"mnuChatMsg",    "mnuCBrds",      ""},
    {"mnuCals",       "mnuCalendars",  ""},
    {"mnuTips",       "mnuTipz",       ""},
}};
// clang-format on

const SiteMenuArray* FindArray(std::string_view name) {
    const auto* array =
        std::find_if(kArrays.begin(), kArrays.end(),
                     [&](const SiteMenuArray& entry) { return entry.name == name; });
    return array == kArrays.end() ? nullptr : array;
}

} // namespace

std::span<const SiteMenu> SiteMenus() {
    return kMenus;
}

std::span<const SiteMenuArray> SiteMenuArrays() {
    return kArrays;
}

std::span<const SiteMenuItem> SiteMenuItems(std::string_view array) {
    const auto all = SiteMenuItems();
    const auto isOurs = [&](const SiteMenuItem& item) { return item.array == array; };
    const auto first = std::find_if(all.begin(), all.end(), isOurs);
    return {first, std::find_if_not(first, all.end(), isOurs)};
}

const SiteMenuItem* FindSiteMenuItem(std::string_view array, int index) {
    for (const SiteMenuItem& item : SiteMenuItems(array)) {
        if (item.index == index)
            return &item;
    }
    return nullptr;
}

int LinkOfArray(std::string_view array) {
    const SiteMenuArray* row = FindArray(array);
    if (row == nullptr)
        return kNoLink;
    if (row->menu.empty()) {
        const auto all = SiteMenuItems();
        const auto heading = std::find_if(all.begin(), all.end(), [&](const SiteMenuItem& item) {
            return item.kind == MenuItemKind::Heading && item.target == array;
        });
        return heading == all.end() ? kNoLink : LinkOfArray(heading->array);
    }
    std::string_view name = row->menu;
    for (;;) {
        const auto menu = std::find_if(kMenus.begin(), kMenus.end(),
                                       [&](const SiteMenu& entry) { return entry.name == name; });
        if (menu == kMenus.end() || menu->parent.empty())
            return menu == kMenus.end() ? kNoLink : menu->link;
        name = menu->parent;
    }
}

std::string SiteMenuAddress(std::string_view array, int index, std::string_view lowerTicker,
                            const SiteHosts& sites, const MenuTable& menus) {
    const SiteMenuItem* item = FindSiteMenuItem(array, index);
    if (item != nullptr && item->kind == MenuItemKind::Fixed)
        return std::string(menus.Address(array, index));
    if (item != nullptr && item->kind == MenuItemKind::Ticker)
        return sites.Address(FindArray(array)->site,
                             ReplaceAll(item->target, "{lower}", lowerTicker));
    return {};
}

} // namespace tallowmere
