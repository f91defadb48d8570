#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What was open when the program was closed, for the next start.
namespace tallowmere {

class SettingsStore;

inline constexpr std::string_view kPagesSection = "Pages";

struct KeptPage {
    std::string address;
    std::string caption;
    friend bool operator==(const KeptPage&, const KeptPage&) = default;
};

/// A watch window: its caption, what it loads, how many seconds it waits, whether it tells changes.
struct KeptWatch {
    std::string caption;
    std::string address;
    std::string seconds;
    bool tellsChanges = false;
    std::string part = {}; ///< of the page, in which changes are told; empty for all
    friend bool operator==(const KeptWatch&, const KeptWatch&) = default;
};

struct KeptPages {
    std::string first;  ///< the address in `Web`, empty for none
    std::string second; ///< the same of `WebB`
    int front = 0;      ///< which tab of the row was in front
    std::vector<KeptPage> tabs;
    std::vector<KeptWatch> watches;
    friend bool operator==(const KeptPages&, const KeptPages&) = default;
};

/// Writes them in place of those that were kept before. Throws RuntimeError when that fails.
void SaveKeptPages(SettingsStore& settings, const KeptPages& pages);

/// Those that were kept last; nothing where nothing can be read.
KeptPages ReadKeptPages(const SettingsStore& settings);

/// Whether there is anything to show again.
bool HoldsPages(const KeptPages& pages);

} // namespace tallowmere
