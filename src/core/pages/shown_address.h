#pragma once

#include <string>
#include <string_view>

/// How a pane says where it is.
namespace tallowmere {

/// How what a page sends and gets travels.
enum class Safety {
    Encrypted, ///< https
    Open,      ///< http: everybody on the way can read and change it
    Own        ///< it did not come over the network
};

/// An address in the parts in which it is shown. Joined, they are what is shown of it.
struct ShownAddress {
    Safety safety = Safety::Own;
    std::string scheme; ///< "https://"; for an address without a host its scheme and colon
    std::string host;   ///< with the port, where it is not the usual one
    std::string rest;   ///< path, query and fragment; empty for the bare root
};

/// Takes the address that the engine names apart. The name and password in it are left out: they
/// are there to be mistaken for the host. Hosts stay in their ASCII form ("xn--..."), for many
/// letters look alike. Hidden characters are left out, and what is longer than anybody reads.
ShownAddress ShowAddress(std::string_view address);

/// Whether a built address is worth showing beside where the pane really is: not where it differs
/// in nothing but an "http://" or a bare slash.
bool StandsForAnother(std::string_view built, std::string_view real);

} // namespace tallowmere
