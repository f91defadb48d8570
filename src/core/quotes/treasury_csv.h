#pragma once

#include "core/quotes/quote.h"

#include <string_view>

namespace tallowmere {

/// Reads the Treasury's yields of a year: a head that names the maturities, then a line a day,
/// newest first. Gives every maturity that the program has a symbol for; columns are found by
/// name, since new ones are put between the old.
SourceAnswer ParseTreasuryCsv(std::string_view body);

} // namespace tallowmere
