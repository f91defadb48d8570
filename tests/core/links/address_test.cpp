#include "core/links/address.h"
#include "core/sites/site_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace tallowmere {
namespace {

constexpr Date kToday{2026, 11, 21};

const LinkRow& Row(int index) {
    return Catalogue()[static_cast<std::size_t>(index)];
}

SiteTable OneHost() {
    return SiteTable::Parse("[hosts]\ndefault = \"h.example\"\n", "sites");
}

std::string Address(int index, std::string_view ticker, Date today = kToday) {
    return BuildAddress(Row(index), FormsOf(ticker), OneHost(), today);
}

TEST(Address, FollowsTheRuleOfEachLink) {
    struct Case {
        int index;
        std::string_view address;
    };
    // clang-format off
    const Case cases[] = {
        {  1, "h.example/?action=q&board=msft"},
        {  2, "h.example/stocktalk/searchresults.gsp?s=msft&domain=Titles"},
        {  3, "h.example/q?s=msft&d=2b"},
        {  7, "h.example/bin/esearch/?qt=1&query"},
        {  8, "h.example/"},
        { 13, "h.example/links/l.cgi?symbol=msft&zip=&submit.x=59&submit.y=10"},
        { 15, "h.example/cgi-bin/AW/DoInquiry.zcom?ticker=MSFT&type=100"},
        { 16, "h.example/look.cgi?symbol=msft&search=default&by=symbol"},
        { 18, "h.example/"},
        { 21, "h.example/stocktalk/searchresults.gsp?s=msft&domain=full"},
        { 26, "h.example/cgi-bin/tipsheet?ticker=MSFT"},
        { 29, "h.example/cgi-bin/chart?symbol=msft&exchange=USA"},
        { 30, "h.example/rt/frt/quotes?symbol=MSFT&type=Quote"},
        { 33, "h.example/bin/esearch/default.asp?query=msft&qt=1&date=2026"},
        { 34, "h.example/detailed.asp?symbols=MSFT"},
        { 35, "h.example/rapidresearch/datasht.asp?ticker=msft"},
        { 37, "h.example/freestuff/search.asp?search=1&criteria=msft"},
        { 38, "h.example/n/m/msft.html"},
        { 42, "h.example/cgi-bin/getbigreport?Ticker=MSFT&comp_id=main&search=5"},
        { 46, "h.example/data/marketdata.htx"},
        { 47, "h.example/p/m/msft.html"},
        { 48, "h.example/dljd/mwactive.htm"},
        { 51, "h.example/alerts.htm"},
        { 53, "h.example/Investor/Frontdoor/0,207,,00.html?st.ne.nav..invidx "},
        { 55, "h.example/d/option.cgi?symbol=MSFT"},
        { 56, "h.example/livechartscom/livechart?symbols=MSFT"},
        { 57, "h.example/backgrounder/profile2.html?perflog=&profile=company&ticker=msft"},
        { 58, "h.example/members/quickbites.shtml"},
        { 59, "h.example/members/alacarte.shtml"},
        { 60, "h.example/members/maincourse.shtml"},
        { 63, "h.example/DailyCharts/DailyMenu.html"},
        { 64, "h.example/consultnow/basic.cgi?symbol=MSFT"},
        { 67, "h.example/company.cfm?module=ALL&INFO=MSFT"},
        { 68, "h.example/find.asp?ticker=MSFT"},
        { 70, "h.example/cgi-bin/details?Event=peek&Symbol=msft"},
        { 71, "h.example/search/bbs?p=MSFT&r=Business+and+Finance%02Stocks%02Technology%02"
              "Software+and+Programming%02MSFT&r=y&M=g"},
        { 73, "h.example/research/indgrp"},
        { 74, "h.example/sec_key.asp?ticker=MSFT"},
        { 75, "h.example/cgi-bin/search.cgi?SEARCHFIELD=Ticker+Symbol&REPORT=Ratio&QUERY=MSFT"},
        { 76, "h.example/bin/digest?Symbol=msft"},
        { 77, "h.example/cgi-bin/search.cgi?SEARCHFIELD=Ticker+Symbol&REPORT=instit_owner"
              "&QUERY=MSFT"},
        { 79, "h.example/rt/frt/stocktalk?symbol=MSFT"},
        { 82, "h.example/Invest/shorts/query.cgi?q=MSFT"},
        { 83, "h.example/sections/business"},
        { 86, "h.example/investments/discuss/?symbol=MSFT"},
        { 91, "h.example/mboard/boards.pl?board=MSFT"},
        { 93, "h.example/search/search_backtestedprebuilt.asp"},
        { 94, "h.example/quote.asp?Mode=JAVACHART&Symbol=MSFT&time=8&freq=1"},
        { 95, "h.example/c/m/msft.html"},
        { 96, "h.example/cgi-bin/getquote.exe?ticker=msft"},
        { 98, "h.example/investor/research/wizards/srwfund.asp?Symbol=msft&iPage=qd"},
        { 99, "h.example/cgi-bin/stocks/expert.exe?sym=msft"},
        {172, "h.example/si/tools/eqsnaps/index.cfm?story=charting&symbol=MSFT"},
        {173, "h.example/stocks.asp?symbol=msft"},
        {174, "h.example/markets/earnings/msft.html"},
        {176, "h.example/stocks.asp?symbol=MSFT"},
        {177, "h.example/z/a/m/msft.html"},
        {178, "h.example/analysts.asp?symbol=msft"},
        {179, "h.example/cgi-bin/option?symbol=msft&update=1"},
        {181, "h.example/iwatch/cgi-bin/iw_page?ticker=MSFT"},
        {182, "h.example/iwatch/cgi-bin/iw_momentum?i=3&order=1&ticker=MSFT&sec=851&group=8"
              "&user_input=0"},
        {183, "h.example/cgi-bin/bbs/Individual_Stocks/MSFT/Discuss/?Cmd=list&"},
        {188, "h.example/scripts/stocklookup?symbol=msft"},
        {190, "h.example/SERVICE/QUOTE?STOCK=msft"},
        {191, "h.example/wsc/Comtex_Company_News?Button=Get+Report&CRSelect=&nocache=44297&PH=2"
              "&Symbol=MSFT"},
        {192, "h.example/stock/DB.cgi?t=Q&c=ITech&sym=msft"},
        {194, "h.example/investments/discuss/?symbol=MSFT"},
        {195, "h.example/GuruAnalysis.asp?TickerSymbol=msft"},
        {196, "h.example/y/s/todaystechnicals.cfm?tick=msft&sy="},
        {197, "h.example/investments/stkeval/?symbol=MSFT"},
        {198, "h.example/asp/TDResp.asp?TradeType=1&TotalType=m&SymbolType=1&Issue=msft&SortBy=1"
              "&Month=11-1-2026"},
        {199, "h.example/dljd/mwlosers.htm"},
        {200, "h.example/dljd/mwwinners.htm"},
        {201, "h.example/fq/fq_market.asp?symbols=&symtype=st&view=LoAlerts"},
        {202, "h.example/fq/fq_market.asp?symbols=&symtype=st&view=Lows"},
        {203, "h.example/fq/fq_market.asp?symbols=&symtype=st&view=HiAlerts"},
        {204, "h.example/dljd/mwlosers_abs.htm"},
        {205, "h.example/dljd/mwwinners_abs.htm"},
        {206, "h.example/fq/fq_market.asp?symbols=&symtype=st&view=Highs"},
        {207, "h.example/company.cfm?module=DOMAINS&INFO=MSFT"},
        {208, "h.example/fq/fq_market.asp?symbols=&symtype=st&view=VolAlerts"},
        {209, "h.example/markets/widelyheld.html"},
        {210, "h.example/webcgi/webbatch.exe?Prophet.web+msft"},
        {213, "h.example/markets/mostactiveopt.html"},
        {216, "h.example/cgi-bin/streetq/predict.pl?ticker=msft"},
        {217, "h.example/m0?u"},
    };
    // clang-format on
    for (const Case& c : cases)
        EXPECT_EQ(Address(c.index, "mSfT"), c.address) << c.index;
}

TEST(Address, EndsClickThroughAddressesAsTheirSitesExpect) {
    struct Case {
        int index;
        std::string_view ending;
    };
    for (const Case& c : {Case{32, "&symbol=msft&button=Go"},
                          {185, "&company=MSFT&x=58&y=9"},
                          {212, "&ticker=MSFT"},
                          {214, "&tsym=MSFT"},
                          {215, "%26q%3dmsft"}})
        EXPECT_THAT(Address(c.index, "MSFT"), testing::EndsWith(std::string(c.ending)));
}

TEST(Address, IsTheRootOfTheSiteForHomePages) {
    for (const int index : {8, 9, 10, 11, 12, 18, 23, 41, 44, 50, 52, 72, 84, 85, 87, 88, 90})
        EXPECT_EQ(Address(index, ""), "h.example/") << index;
}

TEST(Address, StandsAsATemplateWithPlaceholderWords) {
    const SiteTable sites = OneHost();
    const TickerForms words = PlaceholderForms();
    EXPECT_EQ(BuildAddress(Row(3), words, sites, kToday), "h.example/q?s=LCASETICK&d=2b");
    EXPECT_EQ(BuildAddress(Row(34), words, sites, kToday),
              "h.example/detailed.asp?symbols=UCASETICK");
    EXPECT_EQ(BuildAddress(Row(47), words, sites, kToday), "h.example/p/LEFTONE/LCASETICK.html");
}

TEST(Address, FillsInATemplateToWhatTheLinkItselfLoads) {
    const SiteTable sites = OneHost();
    for (const LinkRow& row : Catalogue()) {
        if (!HasAddress(row))
            continue;
        const std::string recorded = BuildAddress(row, PlaceholderForms(), sites, kToday);
        EXPECT_EQ(ExpandPlaceholders(recorded, FormsOf("Ibm")),
                  BuildAddress(row, FormsOf("Ibm"), sites, kToday))
            << row.index;
        EXPECT_EQ(HoldsPlaceholder(recorded), NeedsTicker(row)) << row.index;
    }
}

TEST(Address, FilesAOneLetterTickerUnderItself) {
    EXPECT_EQ(Address(38, "F"), "h.example/n/f/f.html");
    EXPECT_EQ(FormsOf("F").first, FormsOf("F").lower);
}

TEST(Address, TakesMonthAndYearFromTheDay) {
    EXPECT_THAT(Address(198, "a", {2027, 1, 31}), testing::EndsWith("&Month=1-1-2027"));
    EXPECT_THAT(Address(33, "a", {2027, 1, 31}), testing::EndsWith("&date=2027"));
    EXPECT_THAT(Address(33, "a", {987, 1, 31}), testing::EndsWith("&date=0987"));
}

TEST(Address, PutsTheHostOfTheSiteBeforeThePath) {
    const SiteTable sites = SiteTable::Parse(
        "[hosts]\nquote = \"http://127.0.0.1:8080/folder\"\ndefault = \"other.example\"\n",
        "sites");
    EXPECT_EQ(BuildAddress(Row(3), FormsOf("ibm"), sites, kToday),
              "http://127.0.0.1:8080/folder/q?s=ibm&d=2b");
    EXPECT_EQ(BuildAddress(Row(34), FormsOf("ibm"), sites, kToday),
              "other.example/detailed.asp?symbols=IBM");
}

TEST(TickerForms, AreUpperLowerAndTheFirstCharacter) {
    struct Case {
        std::string_view ticker, upper, lower, first;
    };
    for (const Case& c : {Case{"Msft", "MSFT", "msft", "m"},
                          {"BRK.b", "BRK.B", "brk.b", "b"},
                          {"^dji", "^DJI", "^dji", "^"},
                          {"", "", "", ""},
                          {"\xC3\xA4x", "\xC3\xA4X", "\xC3\xA4x", "\xC3\xA4"},
                          {"\xE2\x82\xAC"
                           "A",
                           "\xE2\x82\xAC"
                           "A",
                           "\xE2\x82\xAC"
                           "a",
                           "\xE2\x82\xAC"},
                          {"\xC3", "\xC3", "\xC3", "\xC3"},
                          {"\x80\x80", "\x80\x80", "\x80\x80", "\x80"}}) {
        const TickerForms forms = FormsOf(c.ticker);
        EXPECT_EQ(forms.upper, c.upper);
        EXPECT_EQ(forms.lower, c.lower);
        EXPECT_EQ(forms.first, c.first);
    }
}

TEST(FillPath, FillsInWhatATickerLooksLikeOnlyOnce) {
    EXPECT_EQ(FillPath("/{upper}/{lower}", {"{lower}", "b", "b"}, kToday), "/{lower}/b");
}

TEST(FillPath, LeavesBracesThatNameNothing) {
    const TickerForms forms = FormsOf("a");
    EXPECT_EQ(FillPath("/{x}/{", forms, kToday), "/{x}/{");
    EXPECT_EQ(FillPath("{upper", forms, kToday), "{upper");
    EXPECT_EQ(FillPath("{{upper}}", forms, kToday), "{A}");
    EXPECT_EQ(FillPath("", forms, kToday), "");
}

TEST(Placeholders, TellWhetherAnAddressNeedsATicker) {
    EXPECT_TRUE(HoldsPlaceholder("h.example/q?s=LCASETICK"));
    EXPECT_TRUE(HoldsPlaceholder("h.example/UCASETICK"));
    EXPECT_FALSE(HoldsPlaceholder("h.example/LEFTONE"));
    EXPECT_FALSE(HoldsPlaceholder("h.example/lcasetick"));
    EXPECT_FALSE(HoldsPlaceholder("http://h.example/page.html"));
}

TEST(Placeholders, AreAllReplaced) {
    const TickerForms forms = FormsOf("Msft");
    EXPECT_EQ(ExpandPlaceholders("/LEFTONE/LCASETICK/UCASETICK?LCASETICK&UCASETICK&LEFTONE", forms),
              "/m/msft/MSFT?msft&MSFT&m");
    EXPECT_EQ(ExpandPlaceholders("/page.html", forms), "/page.html");
    EXPECT_EQ(ExpandPlaceholders("", forms), "");
}

/// One line a link: index, caption, tooltip, tag, pane, site and address for MSFT, or the menu.
std::string Dump() {
    const SiteTable sites = OneHost();
    const auto quoted = [](std::string_view text) { return "\"" + std::string(text) + "\""; };
    std::ostringstream dump;
    for (const LinkRow& row : Catalogue()) {
        const std::string tag(AreaCode(row.area));
        const std::string site(row.site);
        std::string pane = "-";
        std::string address = quoted(row.target);
        if (HasAddress(row)) {
            pane = OpensInSecondPane(row) ? "WebB" : "Web";
            address = quoted(BuildAddress(row, FormsOf("MSFT"), sites, kToday));
        }
        dump << row.index << ' ' << quoted(row.caption) << ' ' << quoted(row.tooltip) << ' '
             << (tag.empty() ? "-" : tag) << ' ' << pane << ' ' << (site.empty() ? "-" : site)
             << ' ' << address << '\n';
    }
    return dump.str();
}

std::vector<std::string> Lines(std::istream&& text) {
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    return lines;
}

TEST(Address, MatchesTheRecordedListOfAllLinks) {
    const auto expected = Lines(std::ifstream(
        TALLOWMERE_SOURCE_DIR "/tests/expected/link_addresses.txt", std::ios::binary));
    const auto found = Lines(std::istringstream(Dump()));
    ASSERT_EQ(expected.size(), 218u);
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(found[i], expected[i]);
}

} // namespace
} // namespace tallowmere
