#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Smart navigate: completes what was typed, and keeps the entries of before.
namespace tallowmere {

class SettingsStore;

/// The address for an entry: trimmed, and a name without a dot becomes "www." + name + ".com".
/// Empty for an entry of blanks.
std::string CompleteEntry(std::string_view entry);

/// The key of a remembered entry; `position` counts from 1, which is the newest.
std::string NavigateKey(std::size_t position);

/// The remembered entries from the newest on, up to the first key that is empty.
std::vector<std::string> ReadNavigateEntries(const SettingsStore& settings);

/// Remembers an address as the newest before the entries of `list`. Nothing is left out, not even
/// what is in the list already. Throws RuntimeError when the settings cannot be written.
void SaveNavigateEntries(SettingsStore& settings, std::string_view address,
                         const std::vector<std::string>& list);

} // namespace tallowmere
