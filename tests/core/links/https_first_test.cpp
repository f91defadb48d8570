#include "core/links/https_first.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

struct SecureCase {
    std::string_view address;
    std::string_view secure; ///< empty: none
};

// clang-format off
constexpr SecureCase kSecureCases[] = {
    {"http://www.example.com/a?b#c",   "https://www.example.com/a?b#c"},
    {"HTTP://www.example.com",         "https://www.example.com"},
    {"http://WWW.Example.com./A",      "https://WWW.Example.com./A"},
    {"http://example.com?q=a.b:80",    "https://example.com?q=a.b:80"},
    {"http://example.com/a@b:80",      "https://example.com/a@b:80"},
    {"http://example.com:80/a",        "https://example.com/a"},
    {"http://example.com:80",          "https://example.com"},
    {"http://me:pw@example.com/",      "https://me:pw@example.com/"},
    {"http://me:80@example.com/",      "https://me:80@example.com/"},
    {"http://3com.com/",               "https://3com.com/"},
    {"http://1.2.3.4.example.com/",    "https://1.2.3.4.example.com/"},
    {"http://notlocal/a.com",          ""},
    {"http://example.com:8080/",       ""},
    {"http://example.com:443/",        ""},
    {"https://example.com/",           ""},
    {"http://127.0.0.1/",              ""},
    {"http://127.1/",                  ""},
    {"http://0x7f.0x1/",               ""},
    {"http://192.168.1.1/",            ""},
    {"http://192.168.1.1:80/",         ""},
    {"http://me@192.168.1.1./",        ""},
    {"http://[::1]/",                  ""},
    {"http://[::ffff:1.2.3.4]/",       ""},
    {"http://localhost/",              ""},
    {"http://intranet/quotes",         ""},
    {"http://intranet./quotes",        ""},
    {"http://app.localhost/",          ""},
    {"http://printer.local/",          ""},
    {"http://PRINTER.LOCAL./",         ""},
    {"http://nas.lan/",                ""},
    {"http:///a.b",                    ""},
    {"http://",                        ""},
    {"http:example.com",               ""},
    {"ftp://example.com/",             ""},
    {"portal://example.com/",          ""},
    {"",                               ""},
};
// clang-format on

TEST(ASiteOfTheWeb, IsAskedByHttps) {
    for (const SecureCase& row : kSecureCases)
        EXPECT_EQ(HttpsInstead(row.address).value_or(""), row.secure) << row.address;
}

TEST(ASiteOfTheWeb, IsAskedByHttpAfterAllWhenItsHttpsFails) {
    for (const std::string_view error :
         {"net::ERR_CONNECTION_REFUSED", "net::ERR_CONNECTION_RESET", "net::ERR_TIMED_OUT",
          "net::ERR_SSL_PROTOCOL_ERROR", "net::ERR_CERT_COMMON_NAME_INVALID",
          "net::ERR_TOO_MANY_REDIRECTS", "net::ERR_FAILED", "net::ERR_TUNNEL_CONNECTION_FAILED"})
        EXPECT_TRUE(MayLackHttps(error)) << error;
}

TEST(ASiteOfTheWeb, IsNotAskedByHttpWhereThatWouldFailToo) {
    for (const std::string_view error :
         {"net::ERR_NAME_NOT_RESOLVED", "net::ERR_INTERNET_DISCONNECTED",
          "net::ERR_PROXY_CONNECTION_FAILED", "net::ERR_ABORTED", "net::ERR_UNSAFE_PORT", ""})
        EXPECT_FALSE(MayLackHttps(error)) << error;
}

} // namespace
} // namespace tallowmere
