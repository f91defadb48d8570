#include "core/links/menu_table.h"

#include "core/links/web_address.h"
#include "core/text/toml.h"

#include <charconv>

namespace tallowmere {

namespace {

int ReadIndex(const toml::key& key, std::string_view fileName) {
    int index = 0;
    const char* end = key.data() + key.length();
    const auto [rest, error] = std::from_chars(key.data(), end, index);
    if (error != std::errc{} || rest != end || index < 0)
        FailInToml(fileName, key.source(),
                   "'" + std::string(key.str()) + "' is no index of an item");
    return index;
}

} // namespace

MenuTable MenuTable::Parse(std::string_view text, std::string_view fileName) {
    MenuTable menus;
    const toml::table document = ParseToml(text, fileName);
    for (const auto& [array, node] : document) {
        const toml::table* items = node.as_table();
        if (items == nullptr)
            FailInToml(fileName, array.source(), "'" + std::string(array.str()) + "' is no table");
        for (const auto& [key, value] : *items) {
            const int index = ReadIndex(key, fileName);
            const auto* address = value.as_string();
            if (address == nullptr || !IsWebAddress(address->get()))
                FailInToml(fileName, value.source(), "the address is no http or https address");
            menus.m_addresses.insert_or_assign({std::string(array.str()), index}, address->get());
        }
    }
    return menus;
}

std::string_view MenuTable::Address(std::string_view array, int index) const {
    const auto found = m_addresses.find({std::string(array), index});
    return found == m_addresses.end() ? std::string_view{} : found->second;
}

} // namespace tallowmere
