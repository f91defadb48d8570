#include "core/finder/finder.h"

#include "core/text/bytes.h"
#include "core/text/latin_fold.h"
#include "core/text/plain_text.h"

#include <algorithm>
#include <tuple>

namespace tallowmere {

namespace {

constexpr std::size_t kLongestText = 300;        // bytes
constexpr std::size_t kLongestWords = 64 * 1024; // bytes

/// How a text answers to a query, the best first.
enum Rank { TextStart, WordStarts, AllWords, Letters, None };

bool IsLetterOrDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') ||
           (static_cast<unsigned char>(c) & 0x80) != 0;
}

bool Continues(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::uint64_t LettersIn(std::string_view text) {
    std::uint64_t letters = 0;
    for (const char c : text)
        letters |= std::uint64_t{1} << (static_cast<unsigned char>(c) % 64);
    return letters;
}

/// Where a word of the text begins with `word`; npos when none does.
std::size_t FindWordStart(std::string_view text, std::string_view word) {
    for (std::size_t at = text.find(word); at != std::string_view::npos;
         at = text.find(word, at + 1))
        if (at == 0 || !IsLetterOrDigit(text[at - 1]) || !IsLetterOrDigit(text[at]))
            return at;
    return std::string_view::npos;
}

/// Calls `found` with the place and length of each character of the query that the text holds
/// after the one before; false when the text ends first.
template <typename Found>
bool FindLetters(std::string_view text, std::string_view letters, Found found) {
    std::size_t from = 0;
    while (!letters.empty()) {
        std::size_t length = 1;
        while (length < letters.size() && Continues(letters[length]))
            ++length;
        const std::size_t at = text.find(letters.substr(0, length), from);
        if (at == std::string_view::npos)
            return false;
        found(at, length);
        from = at + length;
        letters.remove_prefix(length);
    }
    return true;
}

/// The spans in order, those that touch as one.
std::vector<FinderSpan> Joined(std::vector<FinderSpan> spans) {
    std::ranges::sort(spans, {}, &FinderSpan::start);
    std::vector<FinderSpan> joined;
    for (const FinderSpan& span : spans) {
        if (span.length == 0)
            continue;
        if (joined.empty() || joined.back().start + joined.back().length < span.start) {
            joined.push_back(span);
        } else {
            FinderSpan& last = joined.back();
            last.length = std::max(last.length, span.start + span.length - last.start);
        }
    }
    return joined;
}

/// Words to look for, in the forms in which they are compared.
struct Query {
    explicit Query(const std::vector<std::string>& wanted) : words(wanted) {
        for (const std::string& word : wanted) {
            whole += (whole.empty() ? "" : " ") + word;
            letters += word;
        }
        inUse = LettersIn(letters);
    }

    const std::vector<std::string>& words;
    std::string whole;   ///< with a blank between words
    std::string letters; ///< with none
    std::uint64_t inUse = 0;
};

bool AllBeginWords(std::string_view text, const Query& query) {
    return std::ranges::all_of(query.words, [&](std::string_view word) {
        return FindWordStart(text, word) != std::string_view::npos;
    });
}

Rank RankOf(const FinderCatalogue::Folded& folded, const Query& query) {
    if ((query.inUse & ~folded.allLetters) != 0)
        return None;
    const std::string_view text = folded.text;
    if (text.starts_with(query.whole))
        return TextStart;
    const bool isInText = (query.inUse & ~folded.textLetters) == 0;
    if (isInText && AllBeginWords(text, query))
        return WordStarts;
    if (std::ranges::all_of(query.words, [&](std::string_view word) {
            return Contains(text, word) || Contains(folded.words, word);
        }))
        return AllWords;
    if (isInText && FindLetters(text, query.letters, [](std::size_t, std::size_t) {}))
        return Letters;
    return None;
}

/// What a query finds of an item's text, by how it ranks it.
std::vector<FinderSpan> SpansOf(const FinderCatalogue::Folded& folded, const Query& query) {
    const std::string_view text = folded.text;
    const Rank rank = RankOf(folded, query);
    std::vector<FinderSpan> spans;
    if (rank == TextStart) {
        spans.push_back({0, query.whole.size()});
    } else if (rank == Letters) {
        FindLetters(text, query.letters, [&](std::size_t at, std::size_t length) {
            spans.push_back({at, length});
        });
    } else {
        for (const std::string_view word : query.words)
            if (const std::size_t at =
                    rank == WordStarts ? FindWordStart(text, word) : text.find(word);
                at != std::string_view::npos)
                spans.push_back({at, word.size()});
    }
    return Joined(std::move(spans));
}

/// A line read in both ways: as words, and as words about the tickers in front of them.
struct Reading {
    explicit Reading(std::string_view text)
        : line(ReadFinderLine(text)), whole(line.words), rest(line.rest) {}

    FinderLine line;
    Query whole, rest;
    bool isKnown = false; ///< what stands in front is surely tickers
};

constexpr int kRanks = 4; ///< of one reading of the line
constexpr int kNoPlace = 4 * kRanks;

struct Candidate {
    int place;
    double use;
    std::size_t item;
    bool isForTickers;
    bool operator<(const Candidate& other) const {
        return std::tuple(place, -use, item) < std::tuple(other.place, -other.use, other.item);
    }
};

// What a ticker that nobody knows in front makes of the rest stands behind what holds all words:
// the first word of "yahoo news" is none. Letters in order are always last.
Candidate PlaceOf(const FinderItem& item, const FinderCatalogue::Folded& folded,
                  const Reading& read) {
    const FinderTickers needed =
        read.line.tickers.size() > 1 ? FinderTickers::Several : FinderTickers::One;
    const bool mayTake = !read.line.rest.empty() && item.takes >= needed;
    const auto place = [](Rank rank, bool isFirst) {
        return rank == None ? kNoPlace
                            : (rank == Letters ? 2 * kRanks : 0) + (isFirst ? 0 : kRanks) + rank;
    };
    const int asWhole = place(RankOf(folded, read.whole), !read.isKnown || read.line.rest.empty());
    const int asRest = mayTake ? place(RankOf(folded, read.rest), read.isKnown) : kNoPlace;
    return {std::min(asWhole, asRest), item.use, 0, asRest < asWhole};
}

void MakePlain(std::string& text, std::size_t longest) {
    text = WithoutHiddenCharacters(FrontOf(text, longest), '?');
}

} // namespace

std::string_view KindName(FinderKind kind) {
    switch (kind) {
    case FinderKind::Link:
        return "Link";
    case FinderKind::MenuItem:
        return "Site menu";
    case FinderKind::OwnLink:
        return "Own link";
    case FinderKind::MultiLink:
        return "Multi-link";
    case FinderKind::Command:
        return "Command";
    case FinderKind::Portfolio:
        return "Portfolio";
    case FinderKind::Ticker:
        return "Ticker";
    case FinderKind::Note:
        return "Note";
    case FinderKind::Address:
        return "Address";
    case FinderKind::History:
        return "History";
    case FinderKind::Guide:
        return "Guide";
    }
    return "";
}

std::string PortfolioItemText(int number, std::string_view name) {
    return "#" + std::to_string(number) + ": " + std::string(name);
}

FinderCatalogue::FinderCatalogue(std::vector<FinderItem> items) : m_items(std::move(items)) {
    m_folded.reserve(m_items.size());
    for (FinderItem& item : m_items) {
        MakePlain(item.text, kLongestText);
        MakePlain(item.words, kLongestWords);
        Folded folded{FoldLatin(item.text), FoldLatin(item.words), 0, 0};
        folded.textLetters = LettersIn(folded.text);
        folded.allLetters = folded.textLetters | LettersIn(folded.words);
        if (item.kind == FinderKind::Ticker)
            m_tickers.insert(folded.text);
        m_folded.push_back(std::move(folded));
    }
}

bool FinderCatalogue::HasTicker(std::string_view upper) const {
    return m_tickers.contains(FoldLatin(upper));
}

FinderResult FinderCatalogue::Find(std::string_view text, std::size_t most) const {
    Reading read(text);
    const FinderLine& line = read.line;
    FinderResult result;
    result.tickers = line.tickers;
    for (const std::string& ticker : line.tickers)
        if (!HasTicker(ticker))
            result.unknown.push_back(ticker);
    read.isKnown = line.hasSeveral || result.unknown.size() < line.tickers.size();
    result.offersTickers = !line.tickers.empty() && line.rest.empty() &&
                           (line.tickers.size() > 1 || !result.unknown.empty());

    // "/p 3" is the portfolio of that number before any whose name begins so.
    const std::string number =
        line.wantsPortfolio && line.words.size() == 1 ? "#" + line.words[0] + ":" : "";
    std::vector<Candidate> candidates;
    for (std::size_t at = 0; at < m_items.size(); ++at) {
        if (line.wantsPortfolio && m_items[at].kind != FinderKind::Portfolio)
            continue;
        Candidate candidate = PlaceOf(m_items[at], m_folded[at], read);
        candidate.item = at;
        if (!number.empty() && m_folded[at].text.starts_with(number))
            candidate.place = -1;
        if (candidate.place < kNoPlace)
            candidates.push_back(candidate);
    }
    const auto count = static_cast<std::ptrdiff_t>(std::min(most, candidates.size()));
    std::partial_sort(candidates.begin(), candidates.begin() + count, candidates.end());
    candidates.resize(static_cast<std::size_t>(count));
    for (const Candidate& found : candidates) {
        result.offerAt += found.place < 2 * kRanks ? 1 : 0;
        result.matches.push_back(
            {found.item, SpansOf(m_folded[found.item], found.isForTickers ? read.rest : read.whole),
             found.isForTickers});
    }
    return result;
}

} // namespace tallowmere
