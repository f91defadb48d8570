#include "core/portfolio/ticker_list.h"

#include "core/text/bytes.h"

#include <map>
#include <unordered_set>

namespace tallowmere {

namespace {

using TextSet = std::unordered_set<std::string_view>;

} // namespace

std::vector<std::string> SplitTickerList(std::string_view stored) {
    auto pieces = Split(stored, '|');
    if (pieces.back().empty())
        pieces.pop_back();
    return {pieces.begin(), pieces.end()};
}

std::string JoinTickerList(const std::vector<std::string>& tickers) {
    std::string stored;
    for (const std::string& ticker : tickers)
        stored.append(Trim(ticker)) += '|';
    return stored;
}

TickerEntry EnterTickers(std::string_view entry, const std::vector<std::string>& tickers) {
    const std::string text = ReplaceAll(ToUpper(entry), ",", " ");
    TextSet known(tickers.begin(), tickers.end());

    // Runs of blanks count as one, and the entry is trimmed: empty pieces do not exist. What is
    // left of an entry without any symbol is one empty symbol, the last one.
    auto symbols = Split(text, ' ');
    std::erase(symbols, "");
    const std::string_view last = symbols.empty() ? "" : symbols.back();
    if (!symbols.empty())
        symbols.pop_back();

    TickerEntry result{};
    for (const std::string_view symbol : symbols)
        if (known.insert(symbol).second)
            result.added.emplace_back(symbol);
    result.accepted = known.insert(last).second;
    if (result.accepted && !last.empty())
        result.added.emplace_back(last);
    return result;
}

std::vector<std::string> TickersFoundNowhere(const std::vector<std::string>& tickers,
                                             std::string_view lists) {
    // A window of each length that occurs slides once over the lists. Symbols have a handful of
    // lengths, so this is linear where a search per ticker would be quadratic.
    std::map<std::size_t, TextSet> missing;
    for (const std::string& ticker : tickers)
        missing[ticker.size()].insert(ticker);
    for (auto& [length, texts] : missing)
        for (std::size_t at = 0; at + length <= lists.size() && !texts.empty(); ++at)
            texts.erase(lists.substr(at, length));

    std::vector<std::string> result;
    for (const std::string& ticker : tickers)
        if (missing[ticker.size()].contains(ticker))
            result.push_back(ticker);
    return result;
}

} // namespace tallowmere
