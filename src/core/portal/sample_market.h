#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tallowmere {

/// One invented share or index of the sample market.
struct SampleQuote {
    std::string symbol;
    std::string name;
    std::vector<double> closes; ///< a year of daily prices, oldest first
    double shares = 0;          ///< number of shares outstanding, for capitalisation
};

/// The bundled sample market: invented prices for well-known tickers.
class SampleMarket {
public:
    /// Reads the bundled file. Throws RuntimeError naming the line that is wrong.
    static SampleMarket Parse(std::string_view text);

    /// The quote of a symbol in any case; none for an unknown one.
    const SampleQuote* Find(std::string_view symbol) const;

    const std::vector<SampleQuote>& Quotes() const { return m_quotes; }

private:
    std::vector<SampleQuote> m_quotes;
    std::unordered_map<std::string, std::size_t> m_bySymbol;
};

} // namespace tallowmere
