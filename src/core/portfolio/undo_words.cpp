#include "core/portfolio/undo_words.h"

#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

std::string Counted(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " ticker" : " tickers");
}

std::string Quoted(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

} // namespace

std::string AddCaption(const std::vector<std::string>& tickers) {
    if (tickers.empty())
        return "Change Tickers";
    return tickers.size() == 1 ? "Add " + tickers.front()
                               : "Add " + std::to_string(tickers.size()) + " Tickers";
}

std::string ListChangeCaption(const std::vector<std::string>& stored,
                              const std::vector<std::string>& listed) {
    const bool isLonger = listed.size() > stored.size() &&
                          std::equal(stored.begin(), stored.end(), listed.begin(),
                                     [](const std::string& one, const std::string& other) {
                                         return Trim(one) == Trim(other);
                                     });
    if (!isLonger)
        return AddCaption({});
    return AddCaption({listed.begin() + static_cast<std::ptrdiff_t>(stored.size()), listed.end()});
}

std::string TickerRemoved(std::string_view ticker, bool hadNote) {
    return std::string(ticker) + (hadNote ? " and its note removed." : " removed.");
}

std::string TickersRemoved(std::size_t count, std::string_view portfolio) {
    return Counted(count) + " of " + Quoted(portfolio) + " removed.";
}

std::string ClearQuestion(std::size_t count, int number, std::string_view portfolio) {
    return "Clear Stock List?\n" + Counted(count) + " in portfolio #" + std::to_string(number) +
           ", " + Quoted(portfolio) + ".";
}

} // namespace tallowmere
