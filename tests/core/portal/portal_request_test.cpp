#include "core/portal/portal_request.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PortalRequest, SplitsAnAddress) {
    const PortalRequest request("Quote.Example", "/a%20b?S=x%26y&d=2b&s=z&empty");
    EXPECT_EQ(request.host, "quote.example");
    EXPECT_EQ(request.path, "/a b");
    EXPECT_EQ(request.address, "Quote.Example/a%20b?S=x%26y&d=2b&s=z&empty");
    EXPECT_EQ(request.Parameter("s"), "x&y") << "the first of a name, in any case";
    EXPECT_EQ(request.Parameter("d"), "2b");
    EXPECT_EQ(request.Parameter("empty"), "");
    EXPECT_EQ(request.Parameter("none"), "");
}

TEST(PortalRequest, HasAPathAlways) {
    EXPECT_EQ(PortalRequest("h", "").path, "/");
    EXPECT_EQ(PortalRequest("h", "?s=x").path, "/");
    EXPECT_EQ(PortalRequest("h", "?s=x").Parameter("s"), "x");
}

TEST(PortalRequest, ReadsListsOfSymbols) {
    EXPECT_THAT(SymbolsOf("msft+brk.b,^dji  t+"), ElementsAre("MSFT", "BRK.B", "^DJI", "T"));
    EXPECT_THAT(SymbolsOf("a+a"), ElementsAre("A", "A"));
    EXPECT_THAT(SymbolsOf(""), IsEmpty());
    EXPECT_THAT(SymbolsOf("++, "), IsEmpty());
}

TEST(PortalRequest, LeavesSymbolsOutThatNobodyHas) {
    std::string list;
    for (int count = 0; count < 20'001; ++count)
        list += "a+";
    EXPECT_EQ(SymbolsOf(list).size(), 20'000U);
    EXPECT_THAT(SymbolsOf(std::string(41, 'a') + " b"), ElementsAre(std::string(40, 'A'), "B"));
}

} // namespace
} // namespace tallowmere
