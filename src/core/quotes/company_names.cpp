#include "core/quotes/company_names.h"

#include "core/quotes/symbol_dialect.h"
#include "core/text/bytes.h"
#include "core/text/latin_fold.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

constexpr std::size_t kLeastCharacters = 2;
constexpr std::size_t kMostWords = 6;
constexpr std::string_view kBlanks = " \t";

std::vector<std::string_view> WordsOf(std::string_view text) {
    std::vector<std::string_view> words;
    for (const std::string_view word : Split(text, ' '))
        if (!word.empty())
            words.push_back(word);
    return words;
}

bool IsWordByte(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || static_cast<signed char>(c) < 0;
}

/// Whether a word of the text begins so.
bool HasWord(std::string_view text, std::string_view start) {
    for (std::size_t at = text.find(start); at != std::string_view::npos;
         at = text.find(start, at + 1))
        if (at == 0 || !IsWordByte(text[at - 1]))
            return true;
    return false;
}

enum Rank { Ticker, TickerStart, NameStart, Words, None };

} // namespace

void CompanyNames::Add(const NamedTicker& row) {
    Row made{row, FoldLatin(row.ticker), FoldLatin(row.name)};
    const auto [place, isNew] = m_byTicker.try_emplace(row.ticker, m_rows.size());
    if (isNew)
        m_rows.push_back(std::move(made));
    else
        m_rows[place->second] = std::move(made);
}

const std::string& CompanyNames::NameOf(std::string_view ticker) const {
    static const std::string kUnknown;
    const auto place = m_byTicker.find(OwnSymbol(ticker));
    return place == m_byTicker.end() ? kUnknown : m_rows[place->second].named.name;
}

std::vector<NamedTicker> CompanyNames::Find(std::string_view text, std::size_t most) const {
    const std::string wanted = FoldLatin(Trim(text));
    if (wanted.size() < kLeastCharacters)
        return {};
    const std::vector<std::string_view> words = WordsOf(wanted);
    const auto rankOf = [&](const Row& row) {
        if (row.ticker == wanted)
            return Ticker;
        if (row.ticker.starts_with(wanted))
            return TickerStart;
        if (row.name.starts_with(wanted))
            return NameStart;
        const bool hasAll = std::ranges::all_of(
            words, [&](std::string_view word) { return HasWord(row.name, word); });
        return hasAll ? Words : None;
    };
    std::array<std::vector<const Row*>, None> found;
    for (const Row& row : m_rows)
        if (const Rank rank = rankOf(row); rank != None && found[rank].size() < most)
            found[rank].push_back(&row);
    std::vector<NamedTicker> best;
    for (const auto& rows : found)
        for (const Row* row : rows)
            if (best.size() < most)
                best.push_back(row->named);
    return best;
}

NameOffer OfferNames(const CompanyNames& names, std::string_view entry, std::size_t most) {
    NameOffer offer;
    const std::size_t comma = entry.find_last_of(",;");
    std::size_t start = comma == std::string_view::npos ? 0 : comma + 1;
    // A whole table that was pasted is no name.
    const auto wordCount = WordsOf(entry.substr(start)).size();
    for (std::size_t word = 0; word < wordCount; ++word) {
        start = std::min(entry.find_first_not_of(kBlanks, start), entry.size());
        if (wordCount - word <= kMostWords) {
            offer.start = start;
            offer.rows = names.Find(entry.substr(start), most);
            if (!offer.rows.empty())
                return offer;
        }
        start = std::min(entry.find_first_of(kBlanks, start), entry.size());
    }
    return offer;
}

} // namespace tallowmere
