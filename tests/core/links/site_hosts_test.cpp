#include "core/links/site_hosts.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using Rows = std::map<std::string, std::string, std::less<>>;

class SomeHosts : public SiteHosts {
public:
    explicit SomeHosts(Rows hosts) { m_hosts = std::move(hosts); }
};

TEST(SiteHosts, ASiteHasItsOwnHostElseTheDefaultElseNone) {
    const SomeHosts hosts(Rows{{"default", "d.test"}, {"quote", "https://q.test:8080/base"}});
    EXPECT_EQ(hosts.Host("quote"), "https://q.test:8080/base");
    EXPECT_EQ(hosts.Host("chart"), "d.test");
    EXPECT_EQ(hosts.Host(""), "d.test");
    EXPECT_EQ(SomeHosts(Rows{{"quote", "q.test"}}).Host("chart"), "");
}

TEST(SiteHosts, AnAddressIsHostAndPathAsTheyStand) {
    const SomeHosts hosts(Rows{{"quote", "q.test"}});
    EXPECT_EQ(hosts.Address("quote", "/q?s=a b"), "q.test/q?s=a b");
    EXPECT_EQ(hosts.Address("chart", "/c"), "/c");
    EXPECT_EQ(hosts.Address("quote", ""), "q.test");
}

} // namespace
} // namespace tallowmere
