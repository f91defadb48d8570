#pragma once

#include "core/quotes/listed_price.h"

#include <cstdint>

/// What a row of the list of tickers says about a price, in characters.
namespace tallowmere {

enum class PriceMove : std::uint8_t { None, Up, Down };

struct QuoteCells {
    std::string last;    ///< "1,234.50"
    std::string change;  ///< with its sign: "+1.25"; empty when not known
    std::string percent; ///< with its sign: "+0.10%"; empty when not known
    std::string age;     ///< of a stale price: "3 h"; else empty
    PriceMove move = PriceMove::None;
    std::optional<double> percentValue;
    std::vector<double> day; ///< the prices of the day, oldest first; empty when not known
    std::string words;       ///< all of it, for those who listen
    std::string remark;      ///< what is to be known of a price that is stale or doubtful

    bool operator==(const QuoteCells&) const = default;
};

/// The cells of a price.
QuoteCells CellsOf(const ListedPrice& price);

} // namespace tallowmere
