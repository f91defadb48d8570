#include "core/links/catalogue.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

constexpr LinkRow Slot(int index) {
    return {index, kEmptyCustomCaption, "", Area::None, LinkAction::Custom, "", ""};
}

// Captions and tooltips are known to the users as they stand here, odd spellings included.
// Addresses that led through counting services lead through neutral paths of the same form.
// clang-format off
constexpr std::array<LinkRow, kLinkCount> kRows{{
    {  0, "REFRESH",          "Refresh Browser Window",                                 Area::RN,   LinkAction::Refresh,            "",                   ""},
    {  1, "YH",               "Yahoo! Message Board",                                   Area::MB,   LinkAction::Ticker,             "messages",           "/?action=q&board={lower}"},
    {  2, "SI",               "Silicon Investor Message Board",                         Area::MB,   LinkAction::Ticker,             "siliconinvestor",    "/stocktalk/searchresults.gsp?s={lower}&domain=Titles"},
    {  3, "Y!",               "Full Yahoo! Quote",                                      Area::CQ,   LinkAction::Ticker,             "quote",              "/q?s={lower}&d=2b"},
    {  4, "BIG",              "Various charts from BigCharts",                          Area::CQ,   LinkAction::Menu,               "",                   "mnuBigchart"},
    {  5, "Screen",           "Various Stock Screening web sites",                      Area::TLB,  LinkAction::Menu,               "",                   "mnuScreeners"},
    {  6, "3S",               "3 small Yahoo! charts",                                  Area::CQ,   LinkAction::SmallCharts,        "",                   ""},
    {  7, "SEC",              "Today's SEC filings from EDGAR Online",                  Area::RTS,  LinkAction::Fixed,              "edgar",              "/bin/esearch/?qt=1&query"},
    {  8, "Datek",            "Datek",                                                  Area::BRK,  LinkAction::Fixed,              "datek",              "/"},
    {  9, "DLJ",              "DLJ Direct",                                             Area::BRK,  LinkAction::Fixed,              "dlj",                "/"},
    { 10, "Suretrade",        "Suretrade",                                              Area::BRK,  LinkAction::Fixed,              "suretrade",          "/"},
    { 11, "Ameritrade",       "Ameritrade",                                             Area::BRK,  LinkAction::Fixed,              "ameritrade",         "/"},
    { 12, "ETrade",           "ETrade",                                                 Area::BRK,  LinkAction::Fixed,              "etrade",             "/"},
    { 13, "WSRN",             "Wall Street Research Net",                               Area::NR,   LinkAction::Ticker,             "wsrn",               "/links/l.cgi?symbol={lower}&zip=&submit.x=59&submit.y=10"},
    { 14, "WSC",              "Wall Street City",                                       Area::NR,   LinkAction::Menu,               "",                   "mnuWSCity"},
    { 15, "Zacks",            "ZACKS Research",                                         Area::NR,   LinkAction::Ticker,             "zacks",              "/cgi-bin/AW/DoInquiry.zcom?ticker={upper}&type=100"},
    { 16, "JQ",               "JustQuotes research page",                               Area::NR,   LinkAction::Ticker,             "justquotes",         "/look.cgi?symbol={lower}&search=default&by=symbol"},
    { 17, "IPO",              "Various IPO research sites",                             Area::TLB,  LinkAction::Menu,               "",                   "mnuIPOs"},
    { 18, "StockGroup",       "",                                                       Area::TLB,  LinkAction::Fixed,              "stockgroup",         "/"},
    { 19, "<<<",              "Navigate Back",                                          Area::RN,   LinkAction::Back,               "",                   ""},
    { 20, ">>>",              "Navigate Forward",                                       Area::RN,   LinkAction::Forward,            "",                   ""},
    { 21, "All",              "Search All Silicon Investor Messages",                   Area::MB,   LinkAction::Ticker,             "siliconinvestor",    "/stocktalk/searchresults.gsp?s={lower}&domain=full"},
    { 22, "Tips",             "",                                                       Area::TLB,  LinkAction::Menu,               "",                   "mnuTipz"},
    { 23, "Rumor",            "StockRumors",                                            Area::RTS,  LinkAction::Fixed,              "stockrumors",        "/"},
    { 24, "Reference",        "Alphabetical Listings of All Publicly Traded Stocks",    Area::TLB,  LinkAction::Menu,               "",                   "mnuReference"},
    { 25, "Up/Down",          "Today's Upgrades & DownGrades",                          Area::TLB,  LinkAction::Menu,               "",                   "mnuUpDn"},
    { 26, "TIN",              "Thomson Investors Network",                              Area::CQ,   LinkAction::Ticker,             "thomson",            "/cgi-bin/tipsheet?ticker={upper}"},
    { 27, "Query Portfolio",  "Various sites displaying data for your full portfolio",  Area::WSR,  LinkAction::QueryPortfolio,     "",                   ""},
    { 28, "Web Site",         "Find and link to the company web site",                  Area::WSR,  LinkAction::HomePage,           "profile_page",       "/p/{first}/{lower}.html"},
    { 29, "Ask",              "ASK Research",                                           Area::NR,   LinkAction::Ticker,             "askresearch",        "/cgi-bin/chart?symbol={lower}&exchange=USA"},
    { 30, "FreeRT",           "FreeRealtime Realtime Quotes",                           Area::WSR,  LinkAction::AccountGated,       "freert_quotes",      "/rt/frt/quotes?symbol={upper}&type=Quote"},
    { 31, "Earnings",         "Today's Earnings Suprises",                              Area::TLB,  LinkAction::Menu,               "",                   "mnuEarn"},
    { 32, "Quicken",          "Quicken",                                                Area::CQ,   LinkAction::Ticker,             "quicken_click",      "/click?page=quote&symbol={lower}&button=Go"},
    { 33, "Edgar",            "EDGAR Online SEC Filings",                               Area::NR,   LinkAction::Ticker,             "edgar",              "/bin/esearch/default.asp?query={lower}&qt=1&date={year}"},
    { 34, "Fool",             "Motley Fool Quote",                                      Area::CQ,   LinkAction::Ticker,             "fool",               "/detailed.asp?symbols={upper}"},
    { 35, "Rapid",            "Financial Web's Rapid Research",                         Area::NR,   LinkAction::Ticker,             "financialweb",       "/rapidresearch/datasht.asp?ticker={lower}"},
    { 36, "S&P",              "S&P Personal Wealth Sites",                              Area::TLB,  LinkAction::Menu,               "",                   "mnuSPPW"},
    { 37, "Insider",          "Insider Trades",                                         Area::NR,   LinkAction::Ticker,             "insider",            "/freestuff/search.asp?search=1&criteria={lower}"},
    { 38, "Y! News",          "Yahoo! News Page",                                       Area::NR,   LinkAction::Ticker,             "biz",                "/n/{first}/{lower}.html"},
    { 39, "Hist",             "360 Day History",                                        Area::CQ,   LinkAction::Menu,               "",                   "mnuHisty"},
    { 40, "DayTrading",       "",                                                       Area::TLB,  LinkAction::Menu,               "",                   "mnuDayTrade"},
    { 41, "R Bull",           "",                                                       Area::RTS,  LinkAction::Fixed,              "ragingbull",         "/"},
    { 42, "Sheet",            "StockSheet",                                             Area::CQ,   LinkAction::Ticker,             "stocksheet",         "/cgi-bin/getbigreport?Ticker={upper}&comp_id=main&search=5"},
    { 43, "C",                "Copy URL of the current page to Clipboard",              Area::RN,   LinkAction::CopyAddress,        "",                   ""},
    { 44, "CNNfn",            "",                                                       Area::RTS,  LinkAction::Fixed,              "cnnfn",              "/"},
    { 45, "Reminders",        "Daily Reminders",                                        Area::None, LinkAction::Reminders,          "",                   ""},
    { 46, "CBS",              "",                                                       Area::RTS,  LinkAction::Fixed,              "marketwatch",        "/data/marketdata.htx"},
    { 47, "P",                "Yahoo! Profile Sheet",                                   Area::CQ,   LinkAction::Ticker,             "biz",                "/p/{first}/{lower}.html"},
    { 48, "Active",           "Most Active Stocks",                                     Area::RTS,  LinkAction::Fixed,              "movers",             "/dljd/mwactive.htm"},
    { 49, "Indices",          "",                                                       Area::TLB,  LinkAction::Menu,               "",                   "mnuIndices"},
    { 50, "Bloomberg",        "",                                                       Area::TLB,  LinkAction::Fixed,              "bloomberg",          "/"},
    { 51, "TJ's Alerts",      "",                                                       Area::TLB,  LinkAction::Alerts,             "club_alerts",        "/alerts.htm"},
    { 52, "WebSt",            "Web Street",                                             Area::BRK,  LinkAction::Fixed,              "webstreet",          "/"},
    { 53, "CNET",             "",                                                       Area::RTS,  LinkAction::Fixed,              "cnet",               "/Investor/Frontdoor/0,207,,00.html?st.ne.nav..invidx "},
    { 54, "Movers",           "Moving Stocks",                                          Area::TLB,  LinkAction::Menu,               "",                   "mnuHot"},
    { 55, "Option",           "Options Quotes",                                         Area::CQ,   LinkAction::Ticker,             "options",            "/d/option.cgi?symbol={upper}"},
    { 56, "Live",             "Live Delayed Charting",                                  Area::CQ,   LinkAction::Ticker,             "livecharts",         "/livechartscom/livechart?symbols={upper}"},
    { 57, "Transium",         "Journal Search",                                         Area::NR,   LinkAction::Ticker,             "transium",           "/backgrounder/profile2.html?perflog=&profile=company&ticker={lower}"},
    { 58, "Q",                "",                                                       Area::TLB,  LinkAction::Fixed,              "club_pages",         "/members/quickbites.shtml"},
    { 59, "A",                "",                                                       Area::TLB,  LinkAction::Fixed,              "club_pages",         "/members/alacarte.shtml"},
    { 60, "M",                "",                                                       Area::TLB,  LinkAction::Fixed,              "club_pages",         "/members/maincourse.shtml"},
    { 61, "Wiz",              "Launch a Watch Wizard",                                  Area::WSR,  LinkAction::Wizard,             "",                   ""},
    { 62, "IQC",              "Various charts from IQC",                                Area::CQ,   LinkAction::Menu,               "",                   "mnuIQC"},
    { 63, "Decision Point",   "",                                                       Area::TLB,  LinkAction::Fixed,              "decisionpoint",      "/DailyCharts/DailyMenu.html"},
    { 64, "Consult",          "Stock Consultant",                                       Area::CQ,   LinkAction::Ticker,             "stockconsultant",    "/consultnow/basic.cgi?symbol={upper}"},
    { 65, "Mega Links",       "Lists of Categorized Research Links",                    Area::TLB,  LinkAction::Menu,               "",                   "mnuMegaLinks"},
    { 66, "Setup--Help",      "Setup & Help",                                           Area::None, LinkAction::Setup,              "",                   ""},
    { 67, "Sleuth",           "Company Sleuth",                                         Area::CQ,   LinkAction::Ticker,             "companysleuth",      "/company.cfm?module=ALL&INFO={upper}"},
    { 68, "Fool",             "Motley Fool Message Board",                              Area::MB,   LinkAction::Ticker,             "fool_boards",        "/find.asp?ticker={upper}"},
    { 69, "Mkt News",         "Portfolio #6",                                           Area::TLB,  LinkAction::Menu,               "",                   "mnuComment"},
    { 70, "Clear",            "ClearStation",                                           Area::CQ,   LinkAction::Ticker,             "clearstation",       "/cgi-bin/details?Event=peek&Symbol={lower}"},
    { 71, "All",              "Search All Yahoo! Messages",                             Area::MB,   LinkAction::Ticker,             "messages_search",    "/search/bbs?p={upper}&r=Business+and+Finance%02Stocks%02Technology%02Software+and+Programming%02{upper}&r=y&M=g"},
    { 72, "Tools",            "",                                                       Area::RTS,  LinkAction::Fixed,              "tools",              "/"},
    { 73, "By Industry",      "Stocks by Industry",                                     Area::TLB,  LinkAction::Fixed,              "biz",                "/research/indgrp"},
    { 74, "Comp",             "Competitors List",                                       Area::NR,   LinkAction::Ticker,             "competitors",        "/sec_key.asp?ticker={upper}"},
    { 75, "Compare",          "Compare to Industry, Sector and S&P 500",                Area::NR,   LinkAction::Ticker,             "industry_reports",   "/cgi-bin/search.cgi?SEARCHFIELD=Ticker+Symbol&REPORT=Ratio&QUERY={upper}"},
    { 76, "Alert",            "NewsALERT",                                              Area::NR,   LinkAction::Ticker,             "newsalert",          "/bin/digest?Symbol={lower}"},
    { 77, "Institut Owners",  "Vickers Institutional Ownership report",                 Area::NR,   LinkAction::Ticker,             "industry_reports",   "/cgi-bin/search.cgi?SEARCHFIELD=Ticker+Symbol&REPORT=instit_owner&QUERY={upper}"},
    { 78, "Calendar",         "Various Financial Calendars",                            Area::TLB,  LinkAction::Menu,               "",                   "mnuCalendars"},
    { 79, "FRT",              "FreeRealTime Message Board",                             Area::MB,   LinkAction::AccountGated,       "freert_talk",        "/rt/frt/stocktalk?symbol={upper}"},
    { 80, "Navigate",         "Navigate to any website you specify",                    Area::NT,   LinkAction::Navigate,           "",                   ""},
    { 81, "Search",           "Search the Web",                                         Area::NT,   LinkAction::Menu,               "",                   "mnuSrchWeb"},
    { 82, "Short",            "Short Interest",                                         Area::CQ,   LinkAction::Ticker,             "shorts",             "/Invest/shorts/query.cgi?q={upper}"},
    { 83, "ABC",              "",                                                       Area::RTS,  LinkAction::Fixed,              "abcnews",            "/sections/business"},
    { 84, "CNBC",             "",                                                       Area::RTS,  LinkAction::Fixed,              "cnbc",               "/"},
    { 85, "Smart",            "SmartMoney",                                             Area::RTS,  LinkAction::Fixed,              "smartmoney",         "/"},
    { 86, "AOL",              "AOL Chart & Quote",                                      Area::CQ,   LinkAction::Ticker,             "aol",                "/investments/discuss/?symbol={upper}"},
    { 87, "Fidelity",         "Fidelity",                                               Area::BRK,  LinkAction::Fixed,              "fidelity",           "/"},
    { 88, "Accutrade",        "Accutrade",                                              Area::BRK,  LinkAction::Fixed,              "accutrade",          "/"},
    { 89, "More Brokers",     "Additional OnLine Broker Sites",                         Area::BRK,  LinkAction::Menu,               "",                   "mnuOLBrokers"},
    { 90, "NDB",              "National Discount Brokers",                              Area::BRK,  LinkAction::Fixed,              "ndb",                "/"},
    { 91, "R Bull",           "Raging Bull Message Board",                              Area::MB,   LinkAction::Ticker,             "ragingbull",         "/mboard/boards.pl?board={upper}"},
    { 92, "Calculator",       "Windows Calculator",                                     Area::None, LinkAction::Calculator,         "",                   ""},
    { 93, "Search",           "Pre-Built Searches",                                     Area::NT,   LinkAction::Fixed,              "prebuilt_search",    "/search/search_backtestedprebuilt.asp"},
    { 94, "I-Chrt",           "Stock Point Interactive Chart",                          Area::CQ,   LinkAction::Ticker,             "stockpoint",         "/quote.asp?Mode=JAVACHART&Symbol={upper}&time=8&freq=1"},
    { 95, "UD",               "Upgrade & Downgrade History",                            Area::CQ,   LinkAction::Ticker,             "biz",                "/c/{first}/{lower}.html"},
    { 96, "PC",               "PCQuote",                                                Area::CQ,   LinkAction::Ticker,             "pcquote",            "/cgi-bin/getquote.exe?ticker={lower}"},
    { 97, "Global",           "Global Markets",                                         Area::TLB,  LinkAction::Menu,               "",                   "mnuGlobalMkt"},
    { 98, "MSN",              "Microsoft's Money Central",                              Area::CQ,   LinkAction::Ticker,             "moneycentral",       "/investor/research/wizards/srwfund.asp?Symbol={lower}&iPage=qd"},
    { 99, "BChart",           "BarChart Opinion Sheet",                                 Area::CQ,   LinkAction::Ticker,             "barchart",           "/cgi-bin/stocks/expert.exe?sym={lower}"},
    {100, "X",                "Stop",                                                   Area::RN,   LinkAction::Stop,               "",                   ""},
    Slot(101),
    Slot(102),
    Slot(103),
    Slot(104),
    Slot(105),
    Slot(106),
    Slot(107),
    Slot(108),
    Slot(109),
    Slot(110),
    Slot(111),
    Slot(112),
    Slot(113),
    Slot(114),
    Slot(115),
    Slot(116),
    Slot(117),
    Slot(118),
    Slot(119),
    Slot(120),
    Slot(121),
    Slot(122),
    Slot(123),
    Slot(124),
    Slot(125),
    Slot(126),
    Slot(127),
    Slot(128),
    Slot(129),
    Slot(130),
    Slot(131),
    Slot(132),
    Slot(133),
    Slot(134),
    Slot(135),
    Slot(136),
    Slot(137),
    Slot(138),
    Slot(139),
    Slot(140),
    Slot(141),
    Slot(142),
    Slot(143),
    Slot(144),
    Slot(145),
    Slot(146),
    Slot(147),
    Slot(148),
    Slot(149),
    Slot(150),
    Slot(151),
    Slot(152),
    Slot(153),
    Slot(154),
    Slot(155),
    Slot(156),
    Slot(157),
    Slot(158),
    Slot(159),
    Slot(160),
    Slot(161),
    Slot(162),
    Slot(163),
    Slot(164),
    Slot(165),
    Slot(166),
    Slot(167),
    Slot(168),
    Slot(169),
    Slot(170),
    {171, "Bond & Fund",      "",                                                       Area::TLB,  LinkAction::Menu,               "",                   "mnuBF"},
    {172, "Smart",            "SmartMoney Java Chart",                                  Area::CQ,   LinkAction::Ticker,             "smartmoney",         "/si/tools/eqsnaps/index.cfm?story=charting&symbol={upper}"},
    {173, "411",              "411 Stocks",                                             Area::CQ,   LinkAction::Ticker,             "stocks411",          "/stocks.asp?symbol={lower}"},
    {174, "EPS",              "Bloomberg Earnings Center",                              Area::CQ,   LinkAction::Ticker,             "bloomberg",          "/markets/earnings/{lower}.html"},
    {175, "4L",               "4 large Yahoo! charts",                                  Area::CQ,   LinkAction::LargeCharts,        "",                   ""},
    {176, "Whisper",          "EarningsWhispers",                                       Area::CQ,   LinkAction::Ticker,             "earningswhispers",   "/stocks.asp?symbol={upper}"},
    {177, "R",                "Yahoo! Research Sheet",                                  Area::CQ,   LinkAction::Ticker,             "biz",                "/z/a/{first}/{lower}.html"},
    {178, "Analysts",         "EarningsWhispers",                                       Area::CQ,   LinkAction::Ticker,             "earningswhispers",   "/analysts.asp?symbol={lower}"},
    {179, "Chain",            "Bloomberg Earnings Center",                              Area::CQ,   LinkAction::Ticker,             "option_chain",       "/cgi-bin/option?symbol={lower}&update=1"},
    {180, "Personal Finance", "",                                                       Area::TLB,  LinkAction::Menu,               "",                   "mnuPF"},
    {181, "IW",               "Thomson Investors Network's I-Watch",                    Area::CQ,   LinkAction::Ticker,             "thomson",            "/iwatch/cgi-bin/iw_page?ticker={upper}"},
    {182, "TPM",              "Thomson Investors Network's Pricing Momentum",           Area::CQ,   LinkAction::Ticker,             "thomson",            "/iwatch/cgi-bin/iw_momentum?i=3&order=1&ticker={upper}&sec=851&group=8&user_input=0"},
    {183, "CLR",              "ClearStation Message Board",                             Area::MB,   LinkAction::Ticker,             "clearstation",       "/cgi-bin/bbs/Individual_Stocks/{upper}/Discuss/?Cmd=list&"},
    {184, "Quick",            "Quicken",                                                Area::RTS,  LinkAction::Fixed,              "quicken_click",      "/click?page=home"},
    {185, "LYCOS",            "Lycos Quote",                                            Area::CQ,   LinkAction::Ticker,             "lycos_click",        "/click?page=quote&company={upper}&x=58&y=9"},
    {186, "New Sites",        "Great New Sites !",                                      Area::None, LinkAction::Menu,               "",                   "mnuNewSites"},
    {187, "MNP",              "the streaming-quote service's free real-time portfolio", Area::WSR,  LinkAction::StreamingPortfolio, "",                   ""},
    {188, "MN",               "the streaming-quote service's quote page",               Area::CQ,   LinkAction::Ticker,             "stream_lookup",      "/scripts/stocklookup?symbol={lower}"},
    {189, "Y",                "Search the Web",                                         Area::NT,   LinkAction::Fixed,              "club_message_board", "/clubs/board"},
    {190, "Island",           "Island ECN Book Viewer",                                 Area::WSR,  LinkAction::Ticker,             "island",             "/SERVICE/QUOTE?STOCK={lower}"},
    {191, "Comtex",           "Comtex Company News",                                    Area::NR,   LinkAction::Ticker,             "wallstreetcity",     "/wsc/Comtex_Company_News?Button=Get+Report&CRSelect=&nocache=44297&PH=2&Symbol={upper}"},
    {192, "  IT",             "InvesterTech",                                           Area::CQ,   LinkAction::Ticker,             "investertech",       "/stock/DB.cgi?t=Q&c=ITech&sym={lower}"},
    {193, "A/V",              "Audio & Video Multimedia Links",                         Area::TLB,  LinkAction::Menu,               "",                   "mnuAVLinks"},
    {194, "QR&D",             "Quicken Rate & Discuss",                                 Area::MB,   LinkAction::Ticker,             "quicken",            "/investments/discuss/?symbol={upper}"},
    {195, "Reese",            "ReeseGroup GuruAnalysis",                                Area::NR,   LinkAction::Ticker,             "reese",              "/GuruAnalysis.asp?TickerSymbol={lower}"},
    {196, "sXer",             "siXer",                                                  Area::NR,   LinkAction::Ticker,             "sixer",              "/y/s/todaystechnicals.cfm?tick={lower}&sy="},
    {197, "Eval",             "Quicken Evaluator",                                      Area::CQ,   LinkAction::Ticker,             "quicken",            "/investments/stkeval/?symbol={upper}"},
    {198, "NMSV",             "NASDAQ Monthly Share Volume",                            Area::CQ,   LinkAction::Ticker,             "nasdaqtrader",       "/asp/TDResp.asp?TradeType=1&TotalType=m&SymbolType=1&Issue={lower}&SortBy=1&Month={month}"},
    {199, "%L",               "Percentage Losers",                                      Area::RTS,  LinkAction::Fixed,              "movers",             "/dljd/mwlosers.htm"},
    {200, "%W",               "Percentage Winners",                                     Area::RTS,  LinkAction::Fixed,              "movers",             "/dljd/mwwinners.htm"},
    {201, "Lo",               "Low Alerts",                                             Area::RTS,  LinkAction::Fixed,              "market_alerts",      "/fq/fq_market.asp?symbols=&symtype=st&view=LoAlerts"},
    {202, "YL",               "52 Week Lows",                                           Area::RTS,  LinkAction::Fixed,              "market_alerts",      "/fq/fq_market.asp?symbols=&symtype=st&view=Lows"},
    {203, "Hi",               "High Alerts",                                            Area::RTS,  LinkAction::Fixed,              "market_alerts",      "/fq/fq_market.asp?symbols=&symtype=st&view=HiAlerts"},
    {204, "$L",               "Dollar Losers",                                          Area::RTS,  LinkAction::Fixed,              "movers",             "/dljd/mwlosers_abs.htm"},
    {205, "$W",               "Dollar Winners",                                         Area::RTS,  LinkAction::Fixed,              "movers",             "/dljd/mwwinners_abs.htm"},
    {206, "YH",               "52 Week Highs",                                          Area::RTS,  LinkAction::Fixed,              "market_alerts",      "/fq/fq_market.asp?symbols=&symtype=st&view=Highs"},
    {207, ".com",             "Company Domain Name Registrations",                      Area::NR,   LinkAction::Ticker,             "companysleuth",      "/company.cfm?module=DOMAINS&INFO={upper}"},
    {208, "Vol",              "Volume Alerts",                                          Area::RTS,  LinkAction::Fixed,              "market_alerts",      "/fq/fq_market.asp?symbols=&symtype=st&view=VolAlerts"},
    {209, "Wide",             "Widly Held",                                             Area::RTS,  LinkAction::Fixed,              "market_lists",       "/markets/widelyheld.html"},
    {210, "SC",               "Stock Charts Interactive Charting",                      Area::CQ,   LinkAction::Ticker,             "stockcharts",        "/webcgi/webbatch.exe?Prophet.web+{lower}"},
    {211, "ML",               "Multi Links",                                            Area::WSR,  LinkAction::MultiLink,          "",                   ""},
    {212, "VC",               "Investor Broadcast Network's VCall Listings",            Area::NR,   LinkAction::Ticker,             "vcall",              "/click?page=calls&ticker={upper}"},
    {213, "Optns",            "Most Active Options",                                    Area::RTS,  LinkAction::Fixed,              "market_lists",       "/markets/mostactiveopt.html"},
    {214, "IEx",              "iExchange",                                              Area::NR,   LinkAction::Ticker,             "iexchange",          "/track?page=analysts&tsym={upper}"},
    {215, "Powerize",         "Powerize",                                               Area::NR,   LinkAction::Ticker,             "powerize",           "/track?to=%2fsearch%3fpage%3dnews%26q%3d{lower}"},
    {216, "Pred",             "Chart Prediction",                                       Area::CQ,   LinkAction::Ticker,             "streetq",            "/cgi-bin/streetq/predict.pl?ticker={lower}"},
    {217, "Mkt Breadth",      "Mkt Breadth",                                            Area::RTS,  LinkAction::Fixed,              "quote",              "/m0?u"},
}};
// clang-format on

// A row left out would stand as an empty row at the end, with the index 0.
static_assert([] {
    int position = 0;
    return std::all_of(kRows.begin(), kRows.end(),
                       [&](const LinkRow& row) { return row.index == position++; });
}());

} // namespace

std::string_view AreaCode(Area area) {
    // clang-format off
    constexpr std::array<std::string_view, 10> kCodes{
        "", "RN", "WSR", "MB", "CQ", "NR", "TLB", "NT", "BRK", "RTS"};
    // clang-format on
    return kCodes[static_cast<std::size_t>(area)];
}

std::span<const LinkRow, kLinkCount> Catalogue() {
    return kRows;
}

bool OpensInSecondPane(const LinkRow& row) {
    return row.area == Area::BRK && row.action == LinkAction::Fixed;
}

bool NeedsTicker(const LinkRow& row) {
    switch (row.action) {
    case LinkAction::Ticker:
    case LinkAction::HomePage:
    case LinkAction::SmallCharts:
    case LinkAction::LargeCharts:
    case LinkAction::AccountGated:
        return true;
    default:
        return false;
    }
}

bool LeadsToPage(const LinkRow& row) {
    return NeedsTicker(row) || row.action == LinkAction::Fixed || row.action == LinkAction::Custom;
}

bool HasAddress(const LinkRow& row) {
    return !row.site.empty();
}

} // namespace tallowmere
