#include "core/shell/navigate_list.h"

#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"

namespace tallowmere {

std::string NavigateKey(std::size_t position) {
    return "NAV" + std::to_string(position);
}

std::vector<std::string> ReadNavigateEntries(const SettingsStore& settings) {
    std::vector<std::string> entries;
    for (;;) {
        std::string entry =
            settings.GetSetting(kSettingsSection, NavigateKey(entries.size() + 1), "");
        if (entry.empty())
            return entries;
        entries.push_back(std::move(entry));
    }
}

void SaveNavigateEntries(SettingsStore& settings, std::string_view address,
                         const std::vector<std::string>& list) {
    std::vector<std::pair<std::string, std::string>> values{{NavigateKey(1), std::string(address)}};
    for (std::size_t i = 0; i < list.size(); ++i)
        values.emplace_back(NavigateKey(i + 2), list[i]);
    settings.SaveSettings(kSettingsSection, values);
}

} // namespace tallowmere
