#include "core/shell/commands.h"

#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

using enum CommandMenu;
using enum CommandKind;

constexpr int kNoLink = kNotALink;
constexpr CommandPlaces kMain = kMainWindow;
constexpr CommandPlaces kPages = kMainWindow | kWatchWindow;

// clang-format off
constexpr MenuRow kMenus[] = {
    {Portfolio, "&Portfolio", None},
    {Select,    "&Select",    Portfolio},
    {Ticker,    "&Ticker",    None},
    {Link,      "&Link",      None},
    {Page,      "Pa&ge",      None},
    {View,      "&View",      None},
    {TextSize,  "&Text Size", View},
    {ListQuotes, "&Quotes in the List", View},
    {Tools,     "T&ools",     None},
    {Help,      "&Help",      None},
};

constexpr CommandRow kCommands[] = {
    {"undo",              "&Undo",                     Portfolio, 1, Plain,     kMain,    kNoLink, "Ctrl+Z",               "undo"},
    {"redo",              "&Redo",                     Portfolio, 1, Plain,     kMain,    kNoLink, "Ctrl+Shift+Z Ctrl+Y",  "do again what was undone"},
    {"selectPortfolio",   "&Select",                   Portfolio, 2, Submenu,   kMain,    kNoLink, "",                     ""},
    {"mnuPortOpt1",       "Rename Portfolio",          Portfolio, 2, Plain,     kMain,    kNoLink, "F2",                   "rename the portfolio"},
    {"mnuPortOpt3",       "View Portfolio Labels",     Portfolio, 2, Checkable, kMain,    kNoLink, "",                     "show the name of the portfolio, or not"},
    {"clearList",         "Clear Ticker List...",      Portfolio, 2, Plain,     kMain,    kNoLink, "Ctrl+Shift+Del",       "clear the ticker list"},
    {"sortBySymbol",      "Sort by S&ymbol",           Portfolio, 2, Plain,     kMain,    kNoLink, "",                     "sort the ticker list by symbol, once"},
    {"sortByChange",      "Sort by Chan&ge",           Portfolio, 2, Plain,     kMain,    kNoLink, "",                     "sort the ticker list by the change of the day, once"},
    {"mnuViewPort",       "View Portfolio Report",     Portfolio, 3, Plain,     kMain,    kNoLink, "Ctrl+Shift+R",         "view the report"},
    {"mnuPrintPort",      "Print Portfolio Report",    Portfolio, 3, Plain,     kMain,    kNoLink, "Ctrl+Shift+P",         "print the report"},
    {"mnuImptTick",       "Ticker Scan...",            Portfolio, 3, Plain,     kMain,    kNoLink, "Ctrl+I",               "ticker scan"},
    {"mnuCopyIt",         "Copy Portfolio",            Portfolio, 4, MenuOnly,  kMain,    kNoLink, "",                     ""},
    {"mnuCopyAll",        "Copy All Portfolios",       Portfolio, 4, Plain,     kMain,    kNoLink, "",                     "copy all portfolios"},
    {"mnuMoveAll",        "Move Portfolio to :",       Portfolio, 4, Submenu,   kMain,    kNoLink, "",                     ""},
    {"mnuCopyAllPorts",   "Copy Portfolio to :",       Portfolio, 4, Submenu,   kMain,    kNoLink, "",                     ""},
    {"importCsv",         "I&mport CSV...",            Portfolio, 5, Plain,     kMain,    kNoLink, "",                     "bring portfolios in from a table"},
    {"exportCsv",         "Export CS&V...",            Portfolio, 5, Plain,     kMain,    kNoLink, "",                     "write portfolios to a table"},
    {"exit",              "E&xit",                     Portfolio, 6, Plain,     kMain,    kNoLink, "Ctrl+Q",               "end the program"},
    {"selectPortfolio1",  "Portfolio 1",               Select,    1, Plain,     kMain,    kNoLink, "Alt+1",                "choose a portfolio"},
    {"selectPortfolio2",  "Portfolio 2",               Select,    1, Plain,     kMain,    kNoLink, "Alt+2",                "choose a portfolio"},
    {"selectPortfolio3",  "Portfolio 3",               Select,    1, Plain,     kMain,    kNoLink, "Alt+3",                "choose a portfolio"},
    {"selectPortfolio4",  "Portfolio 4",               Select,    1, Plain,     kMain,    kNoLink, "Alt+4",                "choose a portfolio"},
    {"selectPortfolio5",  "Portfolio 5",               Select,    1, Plain,     kMain,    kNoLink, "Alt+5",                "choose a portfolio"},
    {"selectPortfolio6",  "Portfolio 6",               Select,    1, Plain,     kMain,    kNoLink, "Alt+6",                "choose a portfolio"},
    {"selectPortfolio7",  "Portfolio 7",               Select,    1, Plain,     kMain,    kNoLink, "Alt+7",                "choose a portfolio"},
    {"selectPortfolio8",  "Portfolio 8",               Select,    1, Plain,     kMain,    kNoLink, "Alt+8",                "choose a portfolio"},
    {"selectPortfolio9",  "Portfolio 9",               Select,    1, Plain,     kMain,    kNoLink, "Alt+9",                "choose a portfolio"},
    {"selectPortfolio10", "Portfolio 10",              Select,    1, Plain,     kMain,    kNoLink, "Alt+0",                "choose a portfolio"},
    {"goToTicker",        "&Enter Tickers",            Ticker,    1, Plain,     kMain,    kNoLink, "Ctrl+T",               "enter tickers"},
    {"openLast",          "&Open Last Link",           Ticker,    1, Plain,     kMain,    kNoLink, "Ctrl+Return",          "open the last link for the selected ticker"},
    {"nextTicker",        "Ne&xt Ticker",              Ticker,    1, Plain,     kMain,    kNoLink, "Ctrl+Down",            "select the next ticker and open the last link for it"},
    {"previousTicker",    "&Previous Ticker",          Ticker,    1, Plain,     kMain,    kNoLink, "Ctrl+Up",              "the same with the ticker before"},
    {"sweep",             "Open Last Link for &All",   Ticker,    1, Plain,     kMain,    kNoLink, "Ctrl+Shift+Return",    "open the last link for all tickers of the list, a tab each, or end that"},
    {"mnuDeleteTick",     "Delete",                    Ticker,    2, MenuOnly,  kMain,    kNoLink, "",                     ""},
    {"mnuMoveit",         "Move to :",                 Ticker,    2, Submenu,   kMain,    kNoLink, "",                     ""},
    {"mnuCopyTo",         "Copy to :",                 Ticker,    2, Submenu,   kMain,    kNoLink, "",                     ""},
    {"mnuTickNote",       "Note",                      Ticker,    2, Submenu,   kMain,    kNoLink, "",                     ""},
    {"addAlert",          "Aler&t...",                 Ticker,    2, Plain,     kMain,    kNoLink, "Ctrl+Shift+N",         "set an alert on the selected ticker"},
    {"moveUp",            "Move &Up in the List",      Ticker,    3, Plain,     kMain,    kNoLink, "Alt+Up",               "move the selected ticker up"},
    {"moveDown",          "Move &Down in the List",    Ticker,    3, Plain,     kMain,    kNoLink, "Alt+Down",             "move the selected ticker down"},
    {"openOutside",       "Open in Separate &Browser", Link,      1, MenuOnly,  kMain,    kNoLink, "",                     ""},
    {"openInTab",         "Open in New &Tab",          Link,      1, MenuOnly,  kMain,    kNoLink, "",                     ""},
    {"nextLink",          "Ne&xt Link",                Link,      2, Plain,     kMain,    kNoLink, "Ctrl+Right",           "open the next link of the area of the last one"},
    {"previousLink",      "&Previous Link",            Link,      2, Plain,     kMain,    kNoLink, "Ctrl+Left",            "the same with the link before"},
    {"link19",            "&Back",                     Page,      1, Plain,     kMain,    19,      "Alt+Left",             "back"},
    {"link20",            "&Forward",                  Page,      1, Plain,     kMain,    20,      "Alt+Right",            "forward"},
    {"link100",           "&Stop",                     Page,      1, Plain,     kMain,    100,     "Ctrl+.",               "stop loading"},
    {"link0",             "&Refresh",                  Page,      1, Plain,     kPages,   0,       "F5 Ctrl+R",            "load the page again"},
    {"link43",            "&Copy Address",             Page,      1, Plain,     kMain,    43,      "Ctrl+Shift+C",         "copy the address of the page"},
    {"backMenu",          "Back &To",                  Page,      1, Submenu,   kMain,    kNoLink, "",                     ""},
    {"forwardMenu",       "For&ward To",               Page,      1, Submenu,   kMain,    kNoLink, "",                     ""},
    {"copyBuilt",         "Copy Built &Address",       Page,      1, Plain,     kMain,    kNoLink, "",                     "copy the address that the program built"},
    {"mnuRefresh",        "AutoRefresh",               Page,      1, Checkable, kMain,    kNoLink, "",                     "reload the page by itself, or not"},
    {"closeTab",          "C&lose",                    Page,      1, Awaited,   kPages | kDialogs, kNoLink, "Ctrl+W",      "close the tab, watch window or dialog in front"},
    {"nextTab",           "Ne&xt Tab",                 Page,      1, Plain,     kMain,    kNoLink, "Ctrl+Tab",             "next tab"},
    {"previousTab",       "Pre&vious Tab",             Page,      1, Plain,     kMain,    kNoLink, "Ctrl+Shift+Tab",       "previous tab"},
    {"savePage",          "Sav&e Page As...",          Page,      2, Plain,     kMain,    kNoLink, "Ctrl+S",               "save the page"},
    {"savePdf",           "Save as PDF...",            Page,      2, Plain,     kMain,    kNoLink, "",                     "save the page as a PDF document"},
    {"printPreview",      "Print Preview...",          Page,      2, Plain,     kMain,    kNoLink, "",                     "show the page as it will be printed"},
    {"print",             "&Print...",                 Page,      2, Plain,     kMain,    kNoLink, "Ctrl+P",               "print the page"},
    {"findInPage",        "Fi&nd in Page...",          Page,      3, Plain,     kPages,   kNoLink, "Ctrl+F",               "find in the page"},
    {"findNext",          "Find A&gain",               Page,      3, Plain,     kPages,   kNoLink, "F3",                   "find the same text further down the page"},
    {"findPrevious",      "Find Bac&kwards",           Page,      3, Plain,     kPages,   kNoLink, "Shift+F3",             "find the same text further up the page"},
    {"zoomIn",            "Zoom &In",                  Page,      3, Plain,     kPages,   kNoLink, "Ctrl++ Ctrl+=",        "make the page larger"},
    {"zoomOut",           "Zoom &Out",                 Page,      3, Plain,     kPages,   kNoLink, "Ctrl+-",               "make the page smaller"},
    {"zoomReset",         "Nor&mal Size",              Page,      3, Plain,     kPages,   kNoLink, "Ctrl+0",               "show the page in its normal size"},
    {"viewSource",        "View So&urce",              Page,      3, Plain,     kMain,    kNoLink, "Ctrl+U",               "show the source of the page in a tab"},
    {"downloads",         "&Downloads...",             Page,      4, Plain,     kMain,    kNoLink, "Ctrl+J",               "files that were saved from pages"},
    {"foldLeft",          "&Left Panel",               View,      1, Checkable, kMain,    kNoLink, "F7",                   "fold the left panel"},
    {"foldRight",         "&Right Panel",              View,      1, Checkable, kMain,    kNoLink, "F8",                   "fold the right panel"},
    {"fullScreen",        "&Full Screen",              View,      1, Plain,     kMain,    kNoLink, "F11",                  "show the page alone on the whole screen, or all again"},
    {"portfolioTable",    "T&able...",                 View,      1, Plain,     kMain,    kNoLink, "F9",                   "show the portfolio as a table"},
    {"textSize",          "&Text Size",                View,      2, Submenu,   kMain,    kNoLink, "",                     ""},
    {"quotesInList",      "&Quotes in the List",       View,      2, Submenu,   kMain,    kNoLink, "",                     ""},
    {"textSizeSmall",     "&Small",                    TextSize,  1, Checkable, kMain,    kNoLink, "",                     "smaller texts"},
    {"textSizeNormal",    "&Normal",                   TextSize,  1, Checkable, kMain,    kNoLink, "",                     "texts as the system has them"},
    {"textSizeLarge",     "&Large",                    TextSize,  1, Checkable, kMain,    kNoLink, "",                     "larger texts"},
    {"listLast",          "&Last Price",               ListQuotes, 1, Checkable, kMain,   kNoLink, "",                     "show the last price in the ticker list, or not"},
    {"listChange",        "&Change",                   ListQuotes, 1, Checkable, kMain,   kNoLink, "",                     "show the change of the price in the ticker list, or not"},
    {"listPercent",       "Change in &Percent",        ListQuotes, 1, Checkable, kMain,   kNoLink, "",                     "show the change in percent in the ticker list, or not"},
    {"listDay",           "Line of the &Day",          ListQuotes, 1, Checkable, kMain,   kNoLink, "",                     "show a line of the day in the ticker list, or not"},
    {"findAnything",      "&Find Anything...",         Tools,     1, Plain,     kMain,    kNoLink, "Ctrl+K",               "find anything by typing"},
    {"openAddress",       "&Open Address...",          Tools,     1, Plain,     kMain,    kNoLink, "Ctrl+L",               "see or change the address of the page"},
    {"link80",            "Smart &Navigate...",        Tools,     1, Plain,     kMain,    80,      "Ctrl+Shift+L",         "go to an address or a site by its name"},
    {"link61",            "&Watch Wizard",             Tools,     1, Plain,     kMain,    61,      "Ctrl+Shift+W",         "watch the page"},
    {"link211",           "&Multi Link",               Tools,     1, Plain,     kMain,    211,     "Ctrl+M",               "begin or end a multi-link"},
    {"discardRecorded",   "Discard Recorded Pa&ge",    Tools,     1, Awaited,   kMain,    kNoLink, "Esc",                  "while a multi-link is recorded: discard the last page"},
    {"link45",            "&Reminders...",             Tools,     1, Plain,     kMain,    45,      "Ctrl+Shift+E",         "reminders"},
    {"alerts",            "&Alerts...",                Tools,     1, Plain,     kMain,    kNoLink, "Ctrl+Shift+A",         "alerts on prices, and what fired"},
    {"link92",            "&Calculator",               Tools,     1, Plain,     kMain,    92,      "",                     "calculator"},
    {"link66",            "&Setup && Help...",         Tools,     1, Plain,     kMain,    66,      "Ctrl+,",               "setup"},
    {"sites",             "S&ites...",                 Tools,     2, Plain,     kMain,    kNoLink, "",                     "sites, and where their links lead"},
    {"siteData",          "Site &Data...",             Tools,     2, Plain,     kMain,    kNoLink, "",                     "what sites keep"},
    {"backUp",            "Back &Up...",               Tools,     3, Plain,     kMain,    kNoLink, "",                     "back all that you entered up to a file"},
    {"restore",           "R&estore...",               Tools,     3, Plain,     kMain,    kNoLink, "",                     "restore a backup"},
    {"importProfile",     "Import &Profile...",        Tools,     3, Plain,     kMain,    kNoLink, "",                     "import the folder of a profile"},
    {"help",              "&Help",                     Help,      1, Plain,     kMain,    kNoLink, "F1",                   "this guide"},
    {"shortcuts",         "&Keyboard Shortcuts...",    Help,      1, Plain,     kMain,    kNoLink, "",                     "list and change the shortcuts"},
    {"about",             "&About Tallowmere",         Help,      1, Plain,     kMain,    kNoLink, "",                     "versions and licences"},
    {"mnuExport",         "Export to File",            None,      1, Plain,     kWatchWindow, kNoLink, "Ctrl+S",           "save the watched page"},
    {"tellChanges",       "Tell of &Changes",          None,      1, Checkable, kWatchWindow, kNoLink, "Ctrl+T",           "tell when the watched page changed, or not"},
    {"markedPart",        "Only the &Marked Part",     None,      1, Checkable, kWatchWindow, kNoLink, "Ctrl+M",           "watch only what is marked in the page, or all"},
    {"showChange",        "&Show What Changed...",     None,      1, Plain,     kWatchWindow, kNoLink, "Ctrl+D",           "show what changed in the watched page"},
    {"filterTable",       "&Filter",                   None,      2, Plain,     kTableWindow, kNoLink, "Ctrl+F",           "filter the portfolio table"},
    {"sortTable",         "Sort &Again",               None,      2, Plain,     kTableWindow, kNoLink, "F5",               "sort the portfolio table again, by the prices of now"},
    {"copyTable",         "Copy CS&V",                 None,      2, Plain,     kTableWindow, kNoLink, "Ctrl+Shift+C",     "copy rows of the portfolio table as CSV"},
    {"printTable",        "&Print...",                 None,      2, Plain,     kTableWindow, kNoLink, "Ctrl+P",           "print the portfolio table"},
};
// clang-format on

} // namespace

std::span<const CommandRow> Commands() {
    return kCommands;
}

std::span<const MenuRow> Menus() {
    return kMenus;
}

const CommandRow* FindCommand(std::string_view name) {
    const auto* row = std::ranges::find(kCommands, name, &CommandRow::name);
    return row == std::end(kCommands) ? nullptr : row;
}

std::string SpokenCaption(std::string_view caption) {
    while (caption.ends_with('.') || caption.ends_with(':') || caption.ends_with(' '))
        caption.remove_suffix(1);
    std::string spoken;
    for (std::size_t n = 0; n < caption.size(); ++n) {
        if (caption[n] == '&')
            ++n; // what follows is kept, another "&" too
        if (n < caption.size())
            spoken += caption[n];
    }
    return spoken;
}

char AccessLetter(std::string_view caption) {
    for (std::size_t n = 0; n + 1 < caption.size(); ++n) {
        if (caption[n] != '&')
            continue;
        ++n;
        if (caption[n] != '&')
            return ToUpper(caption.substr(n, 1)).front();
    }
    return 0;
}

std::string SpokenMenu(CommandMenu menu) {
    const auto* row = std::ranges::find(kMenus, menu, &MenuRow::menu);
    if (row == std::end(kMenus))
        return "";
    const std::string above = SpokenMenu(row->in);
    return (above.empty() ? above : above + " > ") + SpokenCaption(row->caption);
}

bool TakesShortcut(const CommandRow& row) {
    return row.kind != MenuOnly && row.kind != Submenu;
}

} // namespace tallowmere
