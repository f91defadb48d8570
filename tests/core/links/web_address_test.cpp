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

struct SchemeCase {
    std::string_view address;
    std::string_view scheme;
    std::string_view completed;
};

// clang-format off
constexpr SchemeCase kSchemeCases[] = {
    {"",                                   "",            ""},
    {"  ",                                 "",            ""},
    {"www.example.com",                    "",            "http://www.example.com"},
    {" www.example.com/a ",                "",            "http://www.example.com/a"},
    {"http://www.example.com",             "http",        "http://www.example.com"},
    {"HTTPS://www.example.com",            "https",       "HTTPS://www.example.com"},
    {"localhost:8080/q",                   "",            "http://localhost:8080/q"},
    {"127.0.0.1:80",                       "",            "http://127.0.0.1:80"},
    {"example.com/q?u=http://other.com",   "",            "http://example.com/q?u=http://other.com"},
    {"example.com?to=mailto:me",           "",            "http://example.com?to=mailto:me"},
    {"javascript:alert(1)",                "javascript",  "javascript:alert(1)"},
    {"JavaScript:alert(1)",                "javascript",  "JavaScript:alert(1)"},
    {"file:///etc/hosts",                  "file",        "file:///etc/hosts"},
    {"file:/etc/hosts",                    "file",        "file:/etc/hosts"},
    {"view-source:http://a",               "view-source", "view-source:http://a"},
    {"data:text/html,x",                   "data",        "data:text/html,x"},
    {"about:blank",                        "about",       "about:blank"},
    {"://x",                               "",            "http://://x"},
};
// clang-format on

TEST(AddressText, TheSchemeIsReadFromTheFrontOnly) {
    for (const SchemeCase& row : kSchemeCases)
        EXPECT_EQ(SchemeOf(row.address), row.scheme) << row.address;
}

TEST(AddressText, HttpIsPutBeforeAnAddressWithoutAScheme) {
    for (const SchemeCase& row : kSchemeCases)
        EXPECT_EQ(WithScheme(row.address), row.completed) << row.address;
}

} // namespace
} // namespace tallowmere
