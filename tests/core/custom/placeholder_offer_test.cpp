#include "core/custom/placeholder_offer.h"

#include "core/links/address.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(PlaceholderOffer, PutsThePlaceholderOfTheFormThatFits) {
    struct Case {
        const char *address, *offered;
    };
    const Case cases[] = {
        {"http://h.example/q?s=MSFT", "http://h.example/q?s=UCASETICK"},
        {"http://h.example/q?s=msft&d=1", "http://h.example/q?s=LCASETICK&d=1"},
        {"http://h.example/m/msft.html", "http://h.example/LEFTONE/LCASETICK.html"},
        {"http://h.example/MSFT/msft#MSFT", "http://h.example/UCASETICK/LCASETICK#UCASETICK"},
        {"http://h.example/?s=%24MSFT%20x", "http://h.example/?s=%24UCASETICK%20x"},
        {"h.example/MSFT", "h.example/UCASETICK"},
        {"http://msft.example/MSFT", "http://msft.example/UCASETICK"},
        {"http://h.example/MSFTX/MSFT_1", "http://h.example/MSFTX/UCASETICK_1"},
        {"http://h.example/m/MSFT", "http://h.example/LEFTONE/UCASETICK"},
        // None of these is about the ticker.
        {"http://h.example/q?s=Msft", ""},
        {"http://h.example/MSFTX", ""},
        {"http://h.example/XMSFT", ""},
        {"http://msft.example/", ""},
        {"http://MSFT", ""},
        {"http://h.example/m/", ""},
        {"", ""},
    };
    for (const Case& c : cases) {
        const auto offer = OfferPlaceholders(c.address, {"MSFT"});
        EXPECT_EQ(offer ? offer->address : "", c.offered) << c.address;
        if (!offer)
            continue;
        EXPECT_EQ(ExpandPlaceholders(offer->address, FormsOf("MSFT")), c.address);
    }
}

TEST(PlaceholderOffer, TakesTheFirstTickerThatStandsThere) {
    const auto offer = OfferPlaceholders("http://h/AOL/IBM", {"GE", "", "IBM", "AOL"});
    ASSERT_TRUE(offer);
    EXPECT_EQ(offer->ticker, "IBM");
    EXPECT_EQ(offer->address, "http://h/AOL/UCASETICK");
    EXPECT_FALSE(OfferPlaceholders("http://h/AOL/IBM", {}));
}

TEST(PlaceholderOffer, ATickerThatIsNoPlainWordIsFoundWhereItStandsAsItIs) {
    EXPECT_EQ(OfferPlaceholders("http://h/q?s=BRK.B", {"BRK.B"})->address,
              "http://h/q?s=UCASETICK");
    EXPECT_EQ(OfferPlaceholders("http://h/q?s=^DJI", {"^DJI"})->address, "http://h/q?s=UCASETICK");
    EXPECT_EQ(OfferPlaceholders("http://h/q?s=600519", {"600519"})->address,
              "http://h/q?s=UCASETICK");
}

} // namespace
} // namespace tallowmere
