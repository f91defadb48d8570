#include "core/links/web_address.h"

#include <gtest/gtest.h>
#include <string>

namespace tallowmere {
namespace {

struct WebAddressCase {
    std::string_view address;
    bool isWeb;
};

class WebAddress : public testing::TestWithParam<WebAddressCase> {};

TEST_P(WebAddress, IsHttpOrHttpsWithAHost) {
    EXPECT_EQ(IsWebAddress(GetParam().address), GetParam().isWeb) << GetParam().address;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, WebAddress, testing::Values(
    WebAddressCase{"http://a.test",                true},
    WebAddressCase{"https://a.test/b?c=%22d%22#e", true},
    WebAddressCase{"HTTP://A.TEST/",               true},
    WebAddressCase{"http://127.0.0.1:8080/x",      true},
    WebAddressCase{"http://[::1]/x",               true},
    WebAddressCase{"",                             false},
    WebAddressCase{"www.a.test",                   false},
    WebAddressCase{"http:/a.test",                 false},
    WebAddressCase{"http://",                      false},
    WebAddressCase{"http:///etc/passwd",           false},
    WebAddressCase{"http://?q",                    false},
    WebAddressCase{"javascript:alert(1)",          false},
    WebAddressCase{"javascript://a.test/%0aalert", false},
    WebAddressCase{" http://a.test",               false},
    WebAddressCase{"http://a.test/b c",            false},
    WebAddressCase{"http://a.test/\r\nx",          false},
    WebAddressCase{"file:///etc/passwd",           false},
    WebAddressCase{"portal://pages/report.html",   false},
    WebAddressCase{"data:text/html,x",             false}));
// clang-format on

TEST(WebAddressBytes, ANulByteIsNoPartOfAnAddress) {
    EXPECT_FALSE(IsWebAddress(std::string("http://a.test/\0b", 16)));
}

} // namespace
} // namespace tallowmere
