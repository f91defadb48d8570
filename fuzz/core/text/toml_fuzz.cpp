#include "core/text/toml.h"

#include "check.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <sstream>

using namespace tallowmere;

namespace {

/// A table as text, with the line of each of its values: numbers that are none are equal so.
void Print(const toml::node& node, std::ostringstream& out) {
    out << node.source().begin.line << ' ';
    if (const toml::table* table = node.as_table()) {
        for (const auto& [key, value] : *table) {
            out << key.str().size() << ':' << key.str();
            Print(value, out);
        }
    } else if (const toml::array* array = node.as_array()) {
        for (const toml::node& value : *array)
            Print(value, out);
    } else {
        node.visit([&](const auto& value) {
            if constexpr (toml::is_value<decltype(value)>)
                out << value.get() << '\n';
        });
    }
}

std::optional<std::string> Parsed(std::string_view text) {
    try {
        const toml::table table = toml::parse(text);
        std::ostringstream out;
        Print(table, out);
        return out.str();
    } catch (const toml::parse_error&) {
        return std::nullopt;
    }
}

} // namespace

// A text says the same without its comments, in the same lines.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::string bare = WithoutComments(text);
    Check(bare.size() <= text.size());
    Check(std::count(bare.begin(), bare.end(), '\n') == std::count(text.begin(), text.end(), '\n'));
    Check(Parsed(bare) == Parsed(text));
    return 0;
}
