#include "core/sites/https_first.h"

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
    {"http://example.com?q=a.b:80",    "https://example.com?q=a.b:80"},
    {"http://example.com:80/a",        "https://example.com/a"},
    {"http://example.com:80",          "https://example.com"},
    {"http://me:pw@example.com/",      "https://me:pw@example.com/"},
    {"http://example.com:8080/",       ""},
    {"https://example.com/",           ""},
    {"http://127.0.0.1/",              ""},
    {"http://192.168.1.1/",            ""},
    {"http://[::1]/",                  ""},
    {"http://localhost/",              ""},
    {"http://intranet/quotes",         ""},
    {"http://app.localhost/",          ""},
    {"http://printer.local/",          ""},
    {"http://nas.lan/",                ""},
    {"http:///a.b",                    ""},
    {"http://",                        ""},
    {"ftp://example.com/",             ""},
    {"portal://example.com/",          ""},
    {"",                               ""},
};
// clang-format on

TEST(ASiteOfTheWeb, IsAskedByHttps) {
    for (const SecureCase& row : kSecureCases)
        EXPECT_EQ(HttpsInstead(row.address).value_or(""), row.secure) << row.address;
}

} // namespace
} // namespace tallowmere
