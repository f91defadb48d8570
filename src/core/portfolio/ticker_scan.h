#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The ticker scan: collects the tickers that a page lists behind a common prefix.
namespace tallowmere {

constexpr std::string_view kTickerInFront = "The ticker can not be in the front of the link. "
                                            "Select the ticker within the link.";
constexpr std::string_view kNoneFound = "None Found";
constexpr std::string_view kSendCaption = "Send Tickers to Portfolio #"; ///< the number follows

/// What stands before and after every ticker of a page.
struct ScanSample {
    std::string prefix;
    std::string endMark;
};

/// Takes a sample link apart around its highlighted ticker (position and length in bytes). None
/// when the ticker is at its front. The end mark is the character after the ticker, or a double
/// quote where the link ends.
std::optional<ScanSample> SplitSample(std::string_view link, std::size_t start, std::size_t length);

/// Looks for a pattern in a text piece by piece, in one walk over the text and never twice over the
/// same part of it, however often the pattern begins.
class Matcher {
public:
    explicit Matcher(std::string pattern);

    const std::string& Pattern() const { return m_pattern; }

    /// How much of the pattern has matched once `next` follows on what matched before. A pattern
    /// that has matched whole goes on with its longest border.
    std::size_t Advance(std::size_t matched, char next) const;

private:
    std::string m_pattern;
    std::vector<std::size_t> m_borders; ///< per length of a matched part, its longest border
};

/// Symbols in the order in which they were added, with a fast search: a table of their positions,
/// which takes a third of the time of a set of nodes.
class SymbolList {
public:
    bool Holds(std::string_view symbol) const { return m_slots[FindSlot(symbol)] != 0; }

    /// Adds a symbol at the end, also one that the list holds already.
    void Add(std::string symbol);

    const std::vector<std::string>& Symbols() const { return m_symbols; }

private:
    std::size_t FindSlot(std::string_view symbol) const;

    std::vector<std::string> m_symbols;
    std::vector<std::size_t> m_slots = std::vector<std::size_t>(64); ///< 1 + position, 0 when free
};

/// One scan. Call Step until it is false; between two steps the caller may handle events.
class TickerScan {
public:
    TickerScan(std::string page, ScanSample sample);

    /// Does a bounded piece of the work; false when the scan has ended.
    bool Step();

    /// Whether the prefix, shortened from its front as far as needed, occurs in the page. Valid
    /// when the scan has ended.
    bool Found() const { return m_found; }

    /// The tickers found so far, upper case, in the order of the page.
    const std::vector<std::string>& Symbols() const { return m_symbols.Symbols(); }

private:
    enum class State { Collecting, Shortening, Ended };

    void Collect();
    bool Take(std::size_t prefixEnd);
    void Shorten();
    void EndShortening();

    std::string m_page;
    std::string m_prefix;
    std::string m_endMark;
    Matcher m_matcher;
    State m_state = State::Collecting;
    bool m_found = false;
    bool m_shortened = false;
    std::size_t m_position = 0; ///< up to here (Shortening: from here on) the page has been read
    std::size_t m_matched = 0;
    std::size_t m_longest = 0; ///< the longest end of the prefix that occurs in the page
    std::optional<std::size_t> m_endMarkAt; ///< the first one behind the prefix, once it is known
    SymbolList m_symbols;
};

/// The collected tickers that a portfolio does not hold yet, each once, in their order; they are
/// added at its end.
std::vector<std::string> TickersToSend(const std::vector<std::string>& collected,
                                       const std::vector<std::string>& portfolio);

} // namespace tallowmere
