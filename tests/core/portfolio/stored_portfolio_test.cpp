#include "core/portfolio/stored_portfolio.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tallowmere {
namespace {

TEST(StoredPortfolios, AreTenWithTheirNamesAndLists) {
    const auto folder = std::filesystem::path(testing::TempDir()) / "stored_portfolios";
    std::filesystem::remove_all(folder);
    SettingsStore settings(folder / "settings.ini");
    settings.SaveSetting("Settings", "Stocks3", "AOL|YHOO|");
    settings.SaveSetting("Settings", "PortName3", "Tech");

    const auto portfolios = LoadPortfolios(settings);
    ASSERT_EQ(portfolios.size(), 10u);
    for (int n = 1; n <= 10; ++n) {
        const StoredPortfolio& portfolio = portfolios[static_cast<std::size_t>(n - 1)];
        EXPECT_EQ(portfolio.number, n);
        EXPECT_EQ(portfolio.name, n == 3 ? "Tech" : "Portfolio #" + std::to_string(n));
        EXPECT_EQ(portfolio.tickers, n == 3 ? "AOL|YHOO|" : "");
    }
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace tallowmere
