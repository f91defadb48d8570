#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The entries of smart navigate, as the settings keep them.
namespace tallowmere {

class SettingsStore;

/// The key of a remembered entry; `position` counts from 1, which is the newest.
std::string NavigateKey(std::size_t position);

/// The remembered entries from the newest on, up to the first key that is empty.
std::vector<std::string> ReadNavigateEntries(const SettingsStore& settings);

/// Remembers an address as the newest before the entries of `list`. Nothing is left out, not even
/// what is in the list already. Throws RuntimeError when the settings cannot be written.
void SaveNavigateEntries(SettingsStore& settings, std::string_view address,
                         const std::vector<std::string>& list);

} // namespace tallowmere
