#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace tallowmere {

/// Where the fixed items of the site menus lead. Read from a TOML file with a table per array of
/// items and in it an address per index.
class MenuTable {
public:
    using Addresses = std::map<std::pair<std::string, int>, std::string>;

    /// Reads the text of a table. Throws RuntimeError "<fileName>:<line>: <what is wrong>", also
    /// for an address that is neither http nor https.
    static MenuTable Parse(std::string_view text, std::string_view fileName);

    /// The address of an item, empty when the table has none.
    std::string_view Address(std::string_view array, int index) const;

    /// All addresses by array and index.
    const Addresses& All() const { return m_addresses; }

private:
    Addresses m_addresses;
};

} // namespace tallowmere
