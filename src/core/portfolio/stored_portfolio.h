#pragma once

#include "core/shell/settings_store.h"

#include <string>
#include <vector>

namespace tallowmere {

constexpr int kPortfolioCount = 10;

/// One of the ten portfolios as it lies in the store.
struct StoredPortfolio {
    int number; ///< 1 to 10
    std::string name;
    std::string tickers; ///< each followed by a bar ("AOL|YHOO|"), empty for an empty portfolio
};

/// All ten, in the order of their numbers. A portfolio without a name is called "Portfolio #n".
std::vector<StoredPortfolio> LoadPortfolios(const SettingsStore& settings);

} // namespace tallowmere
