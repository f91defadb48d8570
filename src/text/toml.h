#pragma once

#include <string_view>

// Tables are only read; the parts of the parser that write TOML would cost compile time.
#define TOML_ENABLE_FORMATTERS 0
// The parser asserts what its text should be before it checks it: "[?]" would end the program or,
// in a release build, be undefined. Its own checks behind the assertions report such text.
#include <toml++/impl/preprocessor.h>
#undef TOML_ASSERT_ASSUME
#define TOML_ASSERT_ASSUME(condition) static_assert(true)
#include <toml++/toml.h>

namespace tallowmere {

/// Reads a TOML text of at most 4 MB. Throws RuntimeError "<fileName>:<line>: <what is wrong>".
toml::table ParseToml(std::string_view text, std::string_view fileName);

/// Throws RuntimeError "<fileName>:<line of where>: <what>".
[[noreturn]] void FailInToml(std::string_view fileName, const toml::source_region& where,
                             std::string_view what);

} // namespace tallowmere
