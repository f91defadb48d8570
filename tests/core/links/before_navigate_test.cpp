#include "core/links/before_navigate.h"
#include "core/sites/site_table.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

SiteTable Sites(std::string_view lookup = "lookup.example",
                std::string_view redirect = "go.example") {
    return SiteTable::Parse("[hosts]\nstream_lookup = \"" + std::string(lookup) +
                                "\"\nstream_redirect = \"" + std::string(redirect) + "\"\n",
                            "sites");
}

TEST(RewriteStockLookup, SendsAnIndexInThePortalsForm) {
    struct Case {
        std::string_view symbol, sent;
    };
    for (const Case& c : {Case{"$COMPQ", "?.IXIC"},
                          {"$RUT", "?.RUT"},
                          {"$PSE", "?.PSE"},
                          {"$SPX", "?.SPX"},
                          {"$TRAN", "?.DJT"},
                          {"$INDU", "?.DJI"}}) {
        EXPECT_EQ(RewriteStockLookup("http://lookup.example/scripts/stocklookup?symbol=" +
                                         std::string(c.symbol),
                                     Sites()),
                  "go.example/moneynet/jtickredir.asp?symbol=" + std::string(c.sent));
    }
}

TEST(RewriteStockLookup, KnowsAnIndexInTheLowerCaseOfTheLink) {
    EXPECT_EQ(RewriteStockLookup("lookup.example/scripts/stocklookup?symbol=$indu", Sites()),
              "go.example/moneynet/jtickredir.asp?symbol=?.DJI");
}

TEST(RewriteStockLookup, TakesAnyHostAndSymbolsInAnyCase) {
    for (const std::string_view address :
         {"http://elsewhere.example/scripts/stocklookup?symbol=$RuT",
          "elsewhere.example/scripts/stocklookup?symbol=$rut",
          "https://lookup.example:8443/scripts/stocklookup?a=b&symbol=$RUT#top"})
        EXPECT_EQ(RewriteStockLookup(address, Sites()),
                  "go.example/moneynet/jtickredir.asp?symbol=?.RUT")
            << address;
}

TEST(RewriteStockLookup, LetsTheEarlierRowWin) {
    EXPECT_EQ(RewriteStockLookup("lookup.example/scripts/stocklookup?symbol=$INDU,$SPX", Sites()),
              "go.example/moneynet/jtickredir.asp?symbol=?.SPX");
}

TEST(RewriteStockLookup, ChangesOnlyHostAndPathForATicker) {
    struct Case {
        std::string_view address, rewritten;
    };
    for (const Case& c : {
             Case{"lookup.example/scripts/stocklookup?symbol=msft",
                  "go.example/moneynet/jtickredir.asp?symbol=msft"},
             {"http://lookup.example/scripts/stocklookup?symbol=msft&x=1#top",
              "http://go.example/moneynet/jtickredir.asp?symbol=msft&x=1#top"},
             {"https://LOOKUP.example:443/scripts/stocklookup",
              "https://go.example/moneynet/jtickredir.asp"},
             {"http://lookup.example/scripts/stocklookup?symbol=spx",
              "http://go.example/moneynet/jtickredir.asp?symbol=spx"},
         })
        EXPECT_EQ(RewriteStockLookup(c.address, Sites()), c.rewritten);
}

TEST(RewriteStockLookup, KeepsTheSchemeThatTheTableOfSitesNames) {
    const SiteTable sites = Sites("http://127.0.0.1:8080", "http://127.0.0.1:9090");
    EXPECT_EQ(RewriteStockLookup("http://127.0.0.1:8080/scripts/stocklookup?symbol=ibm", sites),
              "http://127.0.0.1:9090/moneynet/jtickredir.asp?symbol=ibm");
    EXPECT_EQ(RewriteStockLookup("http://127.0.0.1:8080/scripts/stocklookup?symbol=$RUT", sites),
              "http://127.0.0.1:9090/moneynet/jtickredir.asp?symbol=?.RUT");
}

TEST(RewriteStockLookup, LeavesEverythingElseAlone) {
    for (const std::string_view address :
         {"", "http://lookup.example/q?s=$INDU", "http://lookup.example/scripts/stock",
          "http://go.example/moneynet/jtickredir.asp?symbol=?.DJI"})
        EXPECT_EQ(RewriteStockLookup(address, Sites()), std::nullopt) << address;
}

TEST(RewriteStockLookup, LeadsToAnAddressThatIsNotRewrittenAgain) {
    for (const std::string_view address : {"lookup.example/scripts/stocklookup?symbol=msft",
                                           "http://elsewhere.example/scripts/stocklookup"}) {
        const auto rewritten = RewriteStockLookup(address, Sites());
        ASSERT_TRUE(rewritten);
        EXPECT_EQ(RewriteStockLookup(*rewritten, Sites()), std::nullopt);
    }
}

TEST(MultiLinkFrame, IsOneLineWithItsLineEnd) {
    EXPECT_EQ(MultiLinkFrame("http://h.example/q?s=LCASETICK&d=2b"),
              "<IFRAME height=\"100%\" width=\"100%\" SCROLLING=Yes "
              "SRC=\"http://h.example/q?s=LCASETICK&d=2b\"></IFRAME>\r\n");
}

TEST(MultiLinkFrame, KeepsAQuoteMarkInsideTheAddress) {
    EXPECT_EQ(MultiLinkFrame("h.example/?a=\"b"),
              "<IFRAME height=\"100%\" width=\"100%\" SCROLLING=Yes "
              "SRC=\"h.example/?a=%22b\"></IFRAME>\r\n");
}

} // namespace
} // namespace tallowmere
