#include "core/links/chart_page.h"
#include "core/sites/site_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

SiteTable Sites() {
    return SiteTable::Parse("[hosts]\n"
                            "quote = \"quote.example\"\n"
                            "portal = \"portal.example\"\n"
                            "chart_server_1 = \"one.example\"\n"
                            "chart_server_2 = \"https://two.example\"\n",
                            "sites");
}

// clang-format off
TEST(ChartPage, HoldsThreeSmallCharts) {
    EXPECT_EQ(SmallChartsPage(FormsOf("Msft"), Sites()),
        "<html><head><title>Yahoo Charts</title></head><body>"
        R"html(<span  width="100%" >)html"
        R"html(<a href="http://portal.example/"><img src="http://portal.example/logo.gif" border="0"> </a>)html"
        R"html(<p><a href="http://quote.example/q?s=MSFT&amp;d=1y"><img src="http://one.example/c/0b/m/msft.gif" alt="Yahoo 1-Year Chart (Small)" border="0"></a></p>)html"
        R"html(<p><a href="http://quote.example/q?s=MSFT&amp;d=5d"><img src="https://two.example/v?s=msft" alt="Yahoo 5-Day Chart (Small)" border="0"></a></p>)html"
        R"html(<p><a href="http://quote.example/q?s=MSFT&amp;d=1d"><img src="https://two.example/t?s=msft" alt="Yahoo 1-Day Chart (Small)" border="0"></a></p>)html"
        R"html(\r\n</span></body></html>)html"
        "\r\n");
}

TEST(ChartPage, HoldsFourLargeChartsWithHeadings) {
    EXPECT_EQ(LargeChartsPage(FormsOf("IBM"), Sites()),
        "<html><head><title>Yahoo Charts</title></head><body>"
        R"html(<span  width="100%" >)html"
        R"html(<a href="http://portal.example/"><img src="http://portal.example/logo.gif" border="0"> </a>)html"
        R"html(<h3>1 Year</h3><p><a href="http://quote.example/q?s=IBM&amp;d=1y"><img src="http://one.example/c/1y/i/ibm.gif" alt="Yahoo 1-Year Chart (Large)" border="0"></a></p>)html"
        R"html(<h3>3 Month</h3><p><a href="http://quote.example/q?s=IBM&amp;d=3m"><img src="http://one.example/c/3m/i/ibm.gif" alt="Yahoo 3-Month Chart (Large)" border="0"></a></p>)html"
        R"html(<h3>5 Days</h3><p><a href="http://quote.example/q?s=IBM&amp;d=5d"><img src="https://two.example/w?s=ibm" alt="Yahoo 5-Day Chart (Large)" border="0"></a></p>)html"
        R"html(<h3>1 Day</h3><p><a href="http://quote.example/q?s=IBM&amp;d=1d"><img src="https://two.example/b?s=ibm" alt="Yahoo 1-Day Chart (Large)" border="0"></a></p>)html"
        R"html(\r\n</span></body></html>)html"
        "\r\n");
}
// clang-format on

TEST(ChartPage, IsOneLine) {
    for (const std::string& page :
         {SmallChartsPage(FormsOf("A"), Sites()), LargeChartsPage(FormsOf("A"), Sites())}) {
        EXPECT_EQ(page.find_first_of("\r\n"), page.size() - 2);
        EXPECT_THAT(page, testing::EndsWith("\r\n"));
    }
}

TEST(ChartPage, KeepsAHostileTickerInsideItsAttributes) {
    const std::string page = LargeChartsPage(FormsOf("\"><script>"), Sites());
    EXPECT_THAT(page, testing::Not(testing::HasSubstr("<script>")));
    EXPECT_THAT(page, testing::HasSubstr("q?s=&quot;&gt;&lt;SCRIPT&gt;&amp;d=1y"));
    EXPECT_THAT(page, testing::HasSubstr("/c/1y/&quot;/&quot;&gt;&lt;script&gt;.gif"));
}

} // namespace
} // namespace tallowmere
