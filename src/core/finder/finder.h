#pragma once

#include "core/finder/finder_line.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

/// The box that finds everything: which of the things that there are a line is about, in which
/// order.
namespace tallowmere {

/// What a thing is.
enum class FinderKind : std::uint8_t {
    Link,
    MenuItem,
    OwnLink,
    MultiLink,
    Command,
    Portfolio,
    Ticker,
    Note,
    Address,
    History,
    Guide
};

/// The word for a kind, in front of its rows.
std::string_view KindName(FinderKind kind);

/// For how many tickers of a line a thing can be opened at once.
enum class FinderTickers : std::uint8_t { None, One, Several };

/// A thing that can be found. Its texts may be of strangers.
struct FinderItem {
    FinderKind kind = FinderKind::Link;
    std::string text;  ///< as shown; a ticker alone for a ticker
    std::string words; ///< further text in which it is looked for
    std::string key;   ///< what it is called by who opens it, and in the record of uses
    FinderTickers takes = FinderTickers::None;
    double use = 0; ///< how often and how lately it was opened, by UseRecord
};

/// A part of a text, in bytes.
struct FinderSpan {
    std::size_t start, length;
    friend bool operator==(const FinderSpan&, const FinderSpan&) = default;
};

struct FinderMatch {
    std::size_t item = 0;          ///< its place in the catalogue
    std::vector<FinderSpan> spans; ///< what was found of its text, in order, no character torn
    bool isForTickers = false;     ///< it is to be opened for the tickers of the line
};

struct FinderResult {
    std::vector<FinderMatch> matches; ///< the best first
    std::vector<std::string> tickers; ///< of the line, upper case
    std::vector<std::string> unknown; ///< those of them that no ticker of the catalogue is
    /// The line is nothing but tickers, of which none or several are in the catalogue: they are
    /// offered themselves.
    bool offersTickers = false;
    /// How many of the matches the offer stands behind: all but those by letters in order.
    std::size_t offerAt = 0;
};

/// The text of the item of a portfolio: "#3: Tech".
std::string PortfolioItemText(int number, std::string_view name);

/// All that can be found, made ready for many searches.
class FinderCatalogue {
public:
    /// Hidden characters of the texts are left out; of very long ones only the front counts.
    explicit FinderCatalogue(std::vector<FinderItem> items);

    const std::vector<FinderItem>& Items() const { return m_items; }
    bool HasTicker(std::string_view upper) const;

    /// The best `most` items for a line: those whose text begins with it, then those with words
    /// that begin with its words, then those that hold all its words in any order, then those that
    /// hold its letters in order; among equals those that are used most, then as they stand here.
    /// A line that begins with tickers also finds what can be opened for them by the words behind:
    /// first of all when one of them is in the catalogue, else behind what holds all words of the
    /// line. An empty line finds everything. Linear in the catalogue; any bytes will do.
    FinderResult Find(std::string_view line, std::size_t most = 50) const;

    /// An item in the form in which it is compared.
    struct Folded {
        std::string text, words;
        std::uint64_t textLetters, allLetters; ///< a bit for each byte that occurs
    };

private:
    std::vector<FinderItem> m_items;
    std::vector<Folded> m_folded;
    std::unordered_set<std::string> m_tickers; ///< folded
};

} // namespace tallowmere
