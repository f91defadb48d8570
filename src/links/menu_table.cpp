#include "links/menu_table.h"

#include "links/web_address.h"
#include "text/runtime_error.h"

#include <charconv>

// The table is only read; the parts of the parser that write TOML would cost compile time.
#define TOML_ENABLE_FORMATTERS 0
#include <toml++/toml.h>

namespace tallowmere {

namespace {

[[noreturn]] void Fail(std::string_view fileName, const toml::source_region& where,
                       std::string_view what) {
    throw RuntimeError(std::string(fileName) + ":" + std::to_string(where.begin.line) + ": " +
                       std::string(what));
}

toml::table ParseToml(std::string_view text, std::string_view fileName) {
    try {
        return toml::parse(text);
    } catch (const toml::parse_error& error) {
        Fail(fileName, error.source(), error.description());
    }
}

int ReadIndex(const toml::key& key, std::string_view fileName) {
    int index = 0;
    const char* end = key.data() + key.length();
    const auto [rest, error] = std::from_chars(key.data(), end, index);
    if (error != std::errc{} || rest != end || index < 0)
        Fail(fileName, key.source(), "'" + std::string(key.str()) + "' is no index of an item");
    return index;
}

} // namespace

MenuTable MenuTable::Parse(std::string_view text, std::string_view fileName) {
    MenuTable menus;
    const toml::table document = ParseToml(text, fileName);
    for (const auto& [array, node] : document) {
        const toml::table* items = node.as_table();
        if (items == nullptr)
            Fail(fileName, array.source(), "'" + std::string(array.str()) + "' is no table");
        for (const auto& [key, value] : *items) {
            const int index = ReadIndex(key, fileName);
            const auto* address = value.as_string();
            if (address == nullptr || !IsWebAddress(address->get()))
                Fail(fileName, value.source(), "the address is no http or https address");
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
