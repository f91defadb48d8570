#include "core/links/load_errors.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(LoadErrors, SayInWordsWhyAPageCouldNotBeLoaded) {
    struct Case {
        std::string_view name, text;
    };
    for (const Case& c : {
             Case{"net::ERR_NAME_NOT_RESOLVED", "There is no host of this name."},
             {"net::ERR_INTERNET_DISCONNECTED", "This machine is not connected to the network."},
             {"net::ERR_NETWORK_CHANGED", "The network changed while the page was loading."},
             {"net::ERR_UNSAFE_PORT", "This port belongs to another service than the web."},
             {"net::ERR_CONNECTION_REFUSED", "The server refuses connections."},
             {"net::ERR_CONNECTION_RESET", "The server broke the connection off."},
             {"net::ERR_CONNECTION_CLOSED", "The server closed the connection."},
             {"net::ERR_CONNECTION_TIMED_OUT", "The server does not answer."},
             {"net::ERR_TIMED_OUT", "The server does not answer."},
             {"net::ERR_ADDRESS_UNREACHABLE", "The server cannot be reached."},
             {"net::ERR_EMPTY_RESPONSE", "The server answered with nothing."},
             {"net::ERR_TOO_MANY_REDIRECTS", "The site sends the browser round in circles."},
         })
        EXPECT_EQ(LoadErrorText(c.name), c.text) << c.name;
}

TEST(LoadErrors, ShareOneTextWithinAFamily) {
    for (const char* name : {"net::ERR_PROXY_CONNECTION_FAILED", "net::ERR_PROXY_AUTH_REQUESTED"})
        EXPECT_EQ(LoadErrorText(name), "The proxy server does not work.");
    for (const char* name : {"net::ERR_CERT_AUTHORITY_INVALID", "net::ERR_CERT_DATE_INVALID",
                             "net::ERR_CERT_COMMON_NAME_INVALID"})
        EXPECT_EQ(LoadErrorText(name),
                  "The certificate of this site cannot be trusted, so the page is not loaded.");
    for (const char* name : {"net::ERR_SSL_PROTOCOL_ERROR", "net::ERR_SSL_VERSION_OR_CIPHER"})
        EXPECT_EQ(LoadErrorText(name), "No secure connection to this site can be made.");
}

TEST(LoadErrors, GiveTheNameOfAnErrorWithoutAText) {
    for (const char* name : {"net::ERR_FAILED", "", "ERR_TIMED_OUT", "net::ERR_CERT", "net::"})
        EXPECT_EQ(LoadErrorText(name), name);
}

} // namespace
} // namespace tallowmere
