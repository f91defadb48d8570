#include "core/portfolio/ticker_list.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <map>
#include <unordered_set>

namespace tallowmere {

namespace {

using TextSet = std::unordered_set<std::string_view>;

/// The entry with one kind of separator and without quote marks, in which spreadsheets and articles
/// put symbols.
std::string Plain(std::string text) {
    for (const std::string_view quote :
         {"\"", "\xE2\x80\x9C", "\xE2\x80\x9D", "\xE2\x80\x9E", "\xC2\xAB", "\xC2\xBB",
          "\xE2\x80\x98", "\xE2\x80\x99", "\xE2\x80\x9A", "'", "`"})
        text = ReplaceAll(text, quote, "");
    for (char& c : text)
        if (c == ',' || c == ';')
            c = ' ';
    return text;
}

/// Tickers in words; of many only how many there are.
std::string Listed(const std::vector<std::string>& tickers) {
    constexpr std::size_t kMostNamed = 5;
    if (tickers.size() > kMostNamed)
        return std::to_string(tickers.size()) + " tickers";
    std::string words;
    for (std::size_t i = 0; i < tickers.size(); ++i) {
        if (i > 0)
            words += i + 1 == tickers.size() ? " and " : ", ";
        words += tickers[i];
    }
    return words;
}

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
    const std::string text = Plain(ToUpper(entry));
    TextSet known(tickers.begin(), tickers.end());

    // Runs of blanks count as one, and the entry is trimmed: empty pieces do not exist. What is
    // left of an entry without any symbol is one empty symbol, the last one.
    auto symbols = Split(text, ' ');
    std::erase(symbols, "");
    const std::string_view last = symbols.empty() ? "" : symbols.back();
    if (!symbols.empty())
        symbols.pop_back();

    TickerEntry result{};
    result.last = last;
    TextSet told;
    const auto tell = [&](std::string_view symbol) {
        const bool isInList = std::find(tickers.begin(), tickers.end(), symbol) != tickers.end();
        if (isInList && !symbol.empty() && told.insert(symbol).second)
            result.known.emplace_back(symbol);
    };
    for (const std::string_view symbol : symbols)
        if (known.insert(symbol).second)
            result.added.emplace_back(symbol);
        else
            tell(symbol);
    result.accepted = known.insert(last).second;
    if (!result.accepted)
        tell(last);
    else if (!last.empty())
        result.added.emplace_back(last);
    return result;
}

std::string EntryWords(const TickerEntry& entry) {
    std::string words;
    if (!entry.added.empty())
        words = Listed(entry.added) + " added";
    if (!entry.known.empty())
        words.append(words.empty() ? "" : "; ")
            .append(Listed(entry.known))
            .append(entry.known.size() == 1 ? " is" : " are")
            .append(" in the list already");
    return words.empty() ? words : words + ".";
}

int RowAfterReload(const std::vector<std::string>& shown, const std::vector<std::string>& tickers,
                   int row) {
    if (tickers.size() > shown.size())
        return static_cast<int>(std::mismatch(shown.begin(), shown.end(), tickers.begin()).second -
                                tickers.begin());
    if (row < 0 || static_cast<std::size_t>(row) >= shown.size())
        return -1;
    const std::string& selected = shown[static_cast<std::size_t>(row)];
    if (static_cast<std::size_t>(row) < tickers.size() &&
        tickers[static_cast<std::size_t>(row)] == selected)
        return row;
    const auto found = std::find(tickers.begin(), tickers.end(), selected);
    return found == tickers.end() ? -1 : static_cast<int>(found - tickers.begin());
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
