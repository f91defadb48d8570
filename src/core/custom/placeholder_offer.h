#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tallowmere {

/// An address that was found to be about one ticker, made one about whatever ticker is selected.
struct PlaceholderOffer {
    std::string ticker;
    std::string address; ///< with the placeholder words of the forms that fit
};

/// Looks behind the site of an address for the first of `tickers` that stands there as a word, in
/// upper or in lower case. A part of the path that is its first letter, in lower case, goes with
/// it. None when no ticker stands there.
std::optional<PlaceholderOffer> OfferPlaceholders(std::string_view address,
                                                  const std::vector<std::string>& tickers);

} // namespace tallowmere
