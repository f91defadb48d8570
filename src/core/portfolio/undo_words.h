#pragma once

#include <string>
#include <string_view>
#include <vector>

/// How the commands on tickers are called when they are to be undone, what is said of what they
/// removed, and what is asked before.
namespace tallowmere {

/// "Add AMD", "Add 3 Tickers", and "Change Tickers" when none was added.
std::string AddCaption(const std::vector<std::string>& tickers);

/// The caption of the step that writes a list which differs from the stored one: what was added to
/// its end, or that it changed.
std::string ListChangeCaption(const std::vector<std::string>& stored,
                              const std::vector<std::string>& listed);

/// "AMD removed.", "AMD and its note removed.".
std::string TickerRemoved(std::string_view ticker, bool hadNote);

/// `12 tickers of "Tech" removed.`
std::string TickersRemoved(std::size_t count, std::string_view portfolio);

/// The question before a list is cleared; its second line says which and how much.
std::string ClearQuestion(std::size_t count, int number, std::string_view portfolio);

} // namespace tallowmere
