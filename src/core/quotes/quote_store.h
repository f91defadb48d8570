#pragma once

#include "core/quotes/quote.h"

#include <string>
#include <string_view>
#include <vector>

/// The last good quotes as a text, so that they outlive a restart without a network.
namespace tallowmere {

/// A quote and when it was received, in epoch seconds.
struct KeptQuote {
    Quote quote;
    std::int64_t receivedAt = 0;
};

/// The text of quotes.
std::string WriteQuotes(const std::vector<KeptQuote>& quotes);

/// The quotes of such a text, as far as they can be believed at `now`: those of the last 30 days,
/// with a price above zero, a source and a time that has been. None of a text that is damaged.
std::vector<KeptQuote> ReadQuotes(std::string_view text, std::int64_t now);

} // namespace tallowmere
