#include "core/portfolio/portfolio_text.h"

#include "core/text/runtime_error.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

std::vector<StoredPortfolio> Portfolios(const std::vector<std::string>& lists) {
    std::vector<StoredPortfolio> portfolios;
    for (const std::string& list : lists)
        portfolios.push_back({static_cast<int>(portfolios.size()) + 1, "Name", list});
    return portfolios;
}

TEST(PortfolioText, SeparatesTickersByCommas) {
    struct Case {
        std::string_view stored, text;
    };
    for (const Case& c :
         {Case{"IBM|MSFT|", "IBM, MSFT"},
          {"IBM|", "IBM"},
          {"", ""},
          {"|", ""},
          {"IBM||", "IBM, "},
          {"IBM|MSFT", "IBM, MS"}}) // the cut takes two characters, whatever they are
        EXPECT_EQ(PortfolioText(c.stored), c.text) << c.stored;
}

TEST(PortfolioText, RefusesADamagedListThatIsTooShortToBeCut) {
    EXPECT_THROW(PortfolioText("A"), RuntimeError);
    EXPECT_THROW(AllPortfoliosText(Portfolios({"IBM|", "A"})), RuntimeError);
}

TEST(PortfolioText, NamesTheFilledPortfoliosByTheirNumbers) {
    EXPECT_EQ(AllPortfoliosText(Portfolios({"", "IBM|MSFT|", "", "", "AOL|", "", "", "", "", ""})),
              "Portfolio #2\r\nIBM, MSFT\r\n\r\nPortfolio #5\r\nAOL\r\n\r\n");
    EXPECT_EQ(AllPortfoliosText(Portfolios({"", "", "", "", "", "", "", "", "", "X|"})),
              "Portfolio #10\r\nX\r\n\r\n");
    EXPECT_EQ(AllPortfoliosText(Portfolios({"", ""})), "");
}

TEST(TickerMenu, SpeaksOfTheSelectedTicker) {
    const std::string ticker = "IBM";
    const TickerMenu menu = MakeTickerMenu(&ticker, "watch the earnings date", 3, false);
    EXPECT_TRUE(menu.hasTicker);
    EXPECT_EQ(menu.deleteCaption, "Delete IBM");
    EXPECT_EQ(menu.moveCaption, "Move IBM to :");
    EXPECT_EQ(menu.copyCaption, "Copy IBM to :");
    EXPECT_EQ(menu.noteCaption, "Notes on IBM");
    EXPECT_EQ(menu.note, "watch the earnings date");
    EXPECT_TRUE(menu.hasList);
    EXPECT_EQ(menu.copyAllCaption, "Copy Portfolio #3");
}

TEST(TickerMenu, HasPlainCaptionsWithoutATicker) {
    const TickerMenu menu = MakeTickerMenu(nullptr, "left over", 10, true);
    EXPECT_FALSE(menu.hasTicker);
    EXPECT_EQ(menu.moveCaption, "Move to :");
    EXPECT_EQ(menu.copyCaption, "Copy to :");
    EXPECT_EQ(menu.noteCaption, "Note");
    EXPECT_EQ(menu.note, "");
    EXPECT_FALSE(menu.hasList);
    EXPECT_EQ(menu.copyAllCaption, "Copy Portfolio #10");
}

TEST(TickerMenu, KeepsTheCurrentPortfolioOutOfTheTargets) {
    for (int current = 1; current <= kPortfolioCount; ++current) {
        const TickerMenu menu = MakeTickerMenu(nullptr, "", current, false);
        for (int n = 1; n <= kPortfolioCount; ++n)
            EXPECT_EQ(menu.targets[static_cast<std::size_t>(n - 1)], n != current) << n;
    }
}

} // namespace
} // namespace tallowmere
