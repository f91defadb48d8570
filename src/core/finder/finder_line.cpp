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
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::size_t kLongestPort = 5;
constexpr std::string_view kThisMachine = "localhost";

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

/// Whether a host may be what stands before a path: "a.example", "10.0.0.1:8080", "localhost".
bool MayBeHost(std::string_view text) {
    const std::size_t colon = text.find(':');
    const std::string_view host = text.substr(0, colon);
    if (colon != std::string_view::npos) {
        const std::string_view port = text.substr(colon + 1);
        if (port.empty() || port.size() > kLongestPort ||
            !std::ranges::all_of(port, [](char c) { return c >= '0' && c <= '9'; }))
            return false;
    }
    if (host == kThisMachine)
        return true;
    const std::vector<std::string_view> labels = Split(host, '.');
    return labels.size() > 1 && std::ranges::all_of(labels, [](std::string_view label) {
               return !label.empty() && std::ranges::all_of(label, [](char c) {
                   // Names may be written in the letters of any language.
                   return IsLetterOrDigit(c) || c == '-' || static_cast<unsigned char>(c) >= 0x80;
               });
           });
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

std::string AddressIn(std::string_view line) {
    std::string_view text = line;
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    text.remove_suffix(text.size() - (text.find_last_not_of(kBlanks) + 1));
    if (text.find_first_of(kBlanks) != std::string_view::npos ||
        WithoutHiddenCharacters(text, '?') != text)
        return "";
    const std::string_view head = text.substr(0, text.find_first_of("/?#"));
    const std::string_view behind = text.substr(head.size());
    const std::string scheme = ToLower(head);
    const bool isWhole = (scheme == "http:" || scheme == "https:") && behind.starts_with("//") &&
                         behind.find_first_not_of('/') == 2;
    return std::string(isWhole || MayBeHost(head) ? text : "");
}

} // namespace tallowmere
