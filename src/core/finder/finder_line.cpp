#include "core/finder/finder_line.h"

#include "core/text/bytes.h"
#include "core/text/latin_fold.h"
#include "core/text/plain_text.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::size_t kLongestTicker = 15;
constexpr std::string_view kTickerSigns = ".-^=$&+*:/";
constexpr std::string_view kPortfolioMark = "/p";
constexpr std::string_view kBetweenTickers = ",;";

bool IsLetterOrDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

std::vector<std::string> WordsOf(std::string_view line) {
    // Line ends and tabs part words: they come with what is pasted out of a table.
    std::string text(FrontOf(line, kLongestFinderLine));
    for (char& c : text)
        if (c == '\t' || c == '\n' || c == '\r')
            c = ' ';
    const std::string plain = FoldLatin(WithoutHiddenCharacters(text, '?'));
    std::vector<std::string> words;
    for (const std::string_view word : Split(plain, ' '))
        if (!word.empty() && words.size() < kMostFinderWords)
            words.emplace_back(word);
    return words;
}

/// Adds the tickers of a word; false when one of them cannot be one.
bool AddTickers(std::string_view word, std::vector<std::string>& tickers) {
    while (!word.empty()) {
        const std::size_t end = std::min(word.find_first_of(kBetweenTickers), word.size());
        const std::string_view ticker = word.substr(0, end);
        word.remove_prefix(std::min(end + 1, word.size()));
        if (ticker.empty())
            continue;
        if (!MayBeTicker(ticker))
            return false;
        std::string upper = ToUpper(ticker);
        if (std::ranges::find(tickers, upper) == tickers.end() &&
            tickers.size() < kMostFinderTickers)
            tickers.push_back(std::move(upper));
    }
    return true;
}

/// Reads the tickers at the front of the words: the first word, and as long as a comma stands at
/// the end of one or at the start of the next, that one too.
void ReadTickers(FinderLine& line) {
    std::size_t taken = 0;
    bool goesOn = true;
    while (goesOn && taken < line.words.size()) {
        const std::string& word = line.words[taken];
        if (!AddTickers(word, line.tickers)) {
            line.tickers.clear();
            line.hasSeveral = false;
            return;
        }
        ++taken;
        line.hasSeveral = line.hasSeveral || Contains(word, ",") || Contains(word, ";");
        goesOn = Contains(kBetweenTickers, std::string_view(word).substr(word.size() - 1)) ||
                 (taken < line.words.size() &&
                  Contains(kBetweenTickers, std::string_view(line.words[taken]).substr(0, 1)));
    }
    if (!line.tickers.empty())
        line.rest.assign(line.words.begin() + static_cast<std::ptrdiff_t>(taken), line.words.end());
}

} // namespace

bool MayBeTicker(std::string_view word) {
    return !word.empty() && word.size() <= kLongestTicker && word.front() != '/' &&
           std::ranges::any_of(word, IsLetterOrDigit) && std::ranges::all_of(word, [](char c) {
               return IsLetterOrDigit(c) || Contains(kTickerSigns, std::string_view(&c, 1));
           });
}

FinderLine ReadFinderLine(std::string_view line) {
    FinderLine read;
    read.words = WordsOf(line);
    if (!read.words.empty() && read.words.front() == kPortfolioMark) {
        read.wantsPortfolio = true;
        read.words.erase(read.words.begin());
        return read;
    }
    ReadTickers(read);
    return read;
}

} // namespace tallowmere
