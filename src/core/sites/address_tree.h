#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tallowmere {

/// What an address was built from.
struct AddressHit {
    std::size_t id;    ///< of the template
    std::string value; ///< the ticker, upper case, or the list that was filled in; else empty
};

/// Finds the template that an address was built from. A template is host and path with the fields
/// {upper}, {lower} and {first} of a ticker, {year} and {month} of a date, {list} for several
/// tickers, and {any}. The time of a lookup depends on the length of the address alone, not on the
/// number of templates.
class AddressTree {
public:
    /// Adds a template. One without a host ("/path") is found by addresses without a host.
    void Add(std::string_view addressTemplate, std::size_t id);

    /// Looks up an address, with or without a scheme. Percent escapes, the case of host and ticker
    /// and blanks at the end make no difference; among templates that fit, the one with the longest
    /// fixed prefix wins, then the one with the longest fixed end, then the one added first.
    std::optional<AddressHit> Find(std::string_view address) const;

    /// Whether `host`, with its port where it has one, is that of a template.
    bool KnowsHost(std::string_view host) const;

private:
    using NodeIndex = std::uint32_t;

    struct Entry {
        std::size_t id;
        std::string path; ///< path and query with fields, decoded
        std::size_t endLength;
    };

    /// A byte of a fixed prefix; the prefixes of a host make a tree.
    struct Node {
        char byte;
        NodeIndex firstChild;
        NodeIndex nextSibling;
        std::vector<Entry> entries; ///< whose prefix ends here, longest fixed end first
    };

    NodeIndex AddNode(char byte);
    NodeIndex FindChild(NodeIndex node, char byte) const;

    std::vector<Node> m_nodes;
    std::unordered_map<std::string, NodeIndex> m_rootByHost;
};

/// Host, lower case and without a scheme, and path with query, decoded, of an address.
std::pair<std::string, std::string> SplitAddress(std::string_view address);

} // namespace tallowmere
