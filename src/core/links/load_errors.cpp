#include "core/links/load_errors.h"

namespace tallowmere {

namespace {

struct ErrorRow {
    std::string_view name; ///< the beginning of the engine's name
    std::string_view text;
};

// clang-format off
constexpr ErrorRow kErrors[] = {
    {"net::ERR_NAME_NOT_RESOLVED",     "There is no host of this name."},
    {"net::ERR_INTERNET_DISCONNECTED", "This machine is not connected to the network."},
    {"net::ERR_NETWORK_CHANGED",       "The network changed while the page was loading."},
    {"net::ERR_UNSAFE_PORT",           "This port belongs to another service than the web."},
    {"net::ERR_CONNECTION_REFUSED",    "The server refuses connections."},
    {"net::ERR_CONNECTION_RESET",      "The server broke the connection off."},
    {"net::ERR_CONNECTION_CLOSED",     "The server closed the connection."},
    {"net::ERR_CONNECTION_TIMED_OUT",  "The server does not answer."},
    {"net::ERR_TIMED_OUT",             "The server does not answer."},
    {"net::ERR_ADDRESS_UNREACHABLE",   "The server cannot be reached."},
    {"net::ERR_EMPTY_RESPONSE",        "The server answered with nothing."},
    {"net::ERR_TOO_MANY_REDIRECTS",    "The site sends the browser round in circles."},
    {"net::ERR_PROXY_",                "The proxy server does not work."},
    {"net::ERR_CERT_",                 "The certificate of this site cannot be trusted, so the "
                                       "page is not loaded."},
    {"net::ERR_SSL_",                  "No secure connection to this site can be made."},
};
// clang-format on

} // namespace

std::string LoadErrorText(std::string_view errorName) {
    for (const ErrorRow& row : kErrors)
        if (errorName.starts_with(row.name))
            return std::string(row.text);
    return std::string(errorName);
}

} // namespace tallowmere
