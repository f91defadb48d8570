#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallowmere {

/// What the built-in portal is asked for.
struct PortalRequest {
    std::string host;    ///< lower case
    std::string path;    ///< decoded, begins with "/"
    std::string query;   ///< as asked, without its "?"
    std::string address; ///< host, path and query as asked

    PortalRequest(std::string_view askedHost, std::string_view pathAndQuery);

    /// The decoded value of a parameter, whose name is compared without case; empty without it.
    std::string Parameter(std::string_view name) const;
};

/// The symbols of a list, upper case, in their order. They are parted by blanks, plus signs or
/// commas; a symbol that occurs twice is given twice. Symbols past the first 20,000 and the
/// rest of one behind 40 bytes are left out, so that no request makes a page without end.
std::vector<std::string> SymbolsOf(std::string_view list);

} // namespace tallowmere
