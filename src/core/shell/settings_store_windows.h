#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The registry branch of the user in which the settings lie on Windows, a key per section.
namespace tallowmere {

/// The stored text, none when the value is absent or no text. Bytes are UTF-8.
std::optional<std::string> ReadRegistrySetting(std::string_view section, std::string_view key);

/// Creates or overwrites one value. Throws RuntimeError when the registry refuses it.
void WriteRegistrySetting(std::string_view section, std::string_view key, std::string_view value);

/// Takes a value out of the branch; one that is absent is no error. Throws RuntimeError when the
/// registry refuses it.
void RemoveRegistrySetting(std::string_view section, std::string_view key);

} // namespace tallowmere
