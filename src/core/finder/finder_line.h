#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What is typed into the box that finds everything, taken apart.
namespace tallowmere {

/// A line in its parts. Its text is folded: Latin letters are small.
struct FinderLine {
    std::vector<std::string> words; ///< all words of the line
    /// Tickers at the front of the line ("msft", "aapl,nvda"), upper case, each once; none when the
    /// line does not begin with what may be one.
    std::vector<std::string> tickers;
    std::vector<std::string> rest; ///< the words behind the tickers
    bool hasSeveral = false;       ///< a comma or semicolon says that they are tickers
    bool wantsPortfolio = false;   ///< the line begins with "/p"; that is none of its words
};

inline constexpr std::size_t kLongestFinderLine = 512; ///< in bytes; what follows is left out
inline constexpr std::size_t kMostFinderWords = 16;
inline constexpr std::size_t kMostFinderTickers = 40;

/// Takes a line apart. Any bytes will do: hidden characters are left out, blanks of any kind part
/// words.
FinderLine ReadFinderLine(std::string_view line);

/// Whether a word may be a ticker: at most 15 letters, digits and the signs that symbols hold.
bool MayBeTicker(std::string_view word);

/// The line as an address to go to: without the blanks around it, when it is an address of the web
/// ("http://a.example/b") or the start of one ("a.example/b", "localhost:8080"); empty for what is
/// none. Any bytes will do.
std::string AddressIn(std::string_view line);

} // namespace tallowmere
