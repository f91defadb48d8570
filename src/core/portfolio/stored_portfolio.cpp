#include "core/portfolio/stored_portfolio.h"

#include "core/shell/setting_keys.h"

namespace tallowmere {

std::vector<StoredPortfolio> LoadPortfolios(const SettingsStore& settings) {
    std::vector<StoredPortfolio> portfolios;
    const auto load = [&](const std::string& key) {
        return settings.GetSetting(kSettingsSection, key, DefaultOf(kSettingsSection, key));
    };
    for (int n = 1; n <= kPortfolioCount; ++n) {
        const std::string number = std::to_string(n);
        portfolios.push_back({n, load("PortName" + number), load("Stocks" + number)});
    }
    return portfolios;
}

} // namespace tallowmere
