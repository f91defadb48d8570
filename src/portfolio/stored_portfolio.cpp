#include "portfolio/stored_portfolio.h"

namespace tallowmere {

std::vector<StoredPortfolio> LoadPortfolios(const SettingsStore& settings) {
    std::vector<StoredPortfolio> portfolios;
    for (int n = 1; n <= kPortfolioCount; ++n) {
        const std::string number = std::to_string(n);
        portfolios.push_back(
            {n, settings.GetSetting("Settings", "PortName" + number, "Portfolio #" + number),
             settings.GetSetting("Settings", "Stocks" + number, "")});
    }
    return portfolios;
}

} // namespace tallowmere
