#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// The menus `mnuPort` and `mnuQAll` that show the quotes of one or of all portfolios.
namespace tallowmere {

/// What an item does with its argument.
enum class PortfolioCommand : std::uint8_t {
    AllPortfolios, ///< opens the submenu mnuQAll
    PendingView,   ///< sets the pending view to the argument, a view code or the empty text
    SendAll,       ///< sends all tickers to the site that the argument names
    Condensed      ///< writes the condensed page with the argument as view code
};

struct PortfolioItem {
    int index;
    std::string_view caption;
    PortfolioCommand command;
    std::string_view argument;
};

// clang-format off
inline constexpr std::array<PortfolioItem, 18> kPortfolioMenu{{
    { 1, "ALL Portfolios",         PortfolioCommand::AllPortfolios, ""},
    { 2, "Basic",                  PortfolioCommand::PendingView,   ""},
    { 3, "1-Day Charts",           PortfolioCommand::PendingView,   "1b"},
    { 4, "5-Day Charts",           PortfolioCommand::PendingView,   "2b"},
    { 5, "1-Year Charts",          PortfolioCommand::PendingView,   "0b"},
    { 6, "Lycos",                  PortfolioCommand::SendAll,       "lycos"},
    { 7, "MSN Combined Chart",     PortfolioCommand::SendAll,       "MSN"},
    { 8, "Quicken Combined Chart", PortfolioCommand::SendAll,       "charts"},
    { 9, "News",                   PortfolioCommand::SendAll,       "news"},
    {10, "Fundamentals",           PortfolioCommand::SendAll,       "stats"},
    {11, "Comparison",             PortfolioCommand::SendAll,       "quotes"},
    {12, "Company Info",           PortfolioCommand::SendAll,       "snapshot"},
    {13, "Analyst Estimates",      PortfolioCommand::SendAll,       "estimates"},
    {14, "Analyst Research",       PortfolioCommand::SendAll,       "multex"},
    {15, "Evaluator",              PortfolioCommand::SendAll,       "stkeval"},
    {16, "Condensed (1-day)",      PortfolioCommand::Condensed,     "1b"},
    {17, "Condensed (5-day)",      PortfolioCommand::Condensed,     "2b"},
    {18, "Condensed (1-year)",     PortfolioCommand::Condensed,     "0b"},
}};

inline constexpr std::array<PortfolioItem, 7> kAllPortfoliosMenu{{
    {1, "Basic",              PortfolioCommand::PendingView, ""},
    {2, "1-Day Charts",       PortfolioCommand::PendingView, "1b"},
    {3, "5-Day Charts",       PortfolioCommand::PendingView, "2b"},
    {4, "1-Year Charts",      PortfolioCommand::PendingView, "0b"},
    {5, "Condensed (1-day)",  PortfolioCommand::Condensed,   "1b"},
    {6, "Condensed (5-day)",  PortfolioCommand::Condensed,   "2b"},
    {7, "Condensed (1-year)", PortfolioCommand::Condensed,   "0b"},
}};
// clang-format on

/// The pending view that asks for none.
constexpr std::string_view kSkippedView = "Skip";

/// What a choice in the two menus leaves behind.
struct PortfolioView {
    std::int16_t lastItem = 0; ///< of mnuPort
    std::string pendingView{kSkippedView};
    bool allPortfolios = false; ///< the condensed page takes all ten portfolios
};

/// Chooses an item of `mnuPort`; the caller then does what its command says.
void ChooseInPortfolioMenu(PortfolioView& view, const PortfolioItem& item);

/// Chooses an item of `mnuQAll`; the caller then does what its command says.
void ChooseInAllPortfoliosMenu(PortfolioView& view, const PortfolioItem& item);

} // namespace tallowmere
