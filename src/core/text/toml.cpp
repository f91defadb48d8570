#include "core/text/toml.h"

#include "core/text/runtime_error.h"

#include <string>

namespace tallowmere {

namespace {

/// Larger texts are no tables that people wrote.
constexpr std::size_t kLargestText = 4U * 1024 * 1024;

} // namespace

toml::table ParseToml(std::string_view text, std::string_view fileName) {
    if (text.size() > kLargestText)
        FailInToml(fileName, {{1, 1}, {1, 1}, {}}, "the file is larger than 4 MB");
    try {
        return toml::parse(text);
    } catch (const toml::parse_error& error) {
        FailInToml(fileName, error.source(), error.description());
    }
}

void FailInToml(std::string_view fileName, const toml::source_region& where,
                std::string_view what) {
    throw RuntimeError(std::string(fileName) + ":" + std::to_string(where.begin.line) + ": " +
                       std::string(what));
}

} // namespace tallowmere
