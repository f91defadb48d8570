#include "core/shell/kept_pages.h"

#include "core/shell/conversion.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_store.h"

namespace tallowmere {

namespace {

std::string Key(std::string_view prefix, std::size_t number) {
    return std::string(prefix) + std::to_string(number);
}

} // namespace

// A list ends with the first empty address; what is behind it is of no account.
void SaveKeptPages(SettingsStore& settings, const KeptPages& pages) {
    std::vector<std::pair<std::string, std::string>> values{
        {"First", pages.first},
        {"Second", pages.second},
        {"Front", std::to_string(pages.front)},
        {Key("Tab", pages.tabs.size() + 1), ""},
        {Key("Watch", pages.watches.size() + 1), ""},
    };
    for (std::size_t n = 0; n < pages.tabs.size(); ++n) {
        values.emplace_back(Key("Tab", n + 1), pages.tabs[n].address);
        values.emplace_back(Key("TabTitle", n + 1), pages.tabs[n].caption);
    }
    for (std::size_t n = 0; n < pages.watches.size(); ++n) {
        values.emplace_back(Key("Watch", n + 1), pages.watches[n].address);
        values.emplace_back(Key("WatchTitle", n + 1), pages.watches[n].caption);
        values.emplace_back(Key("WatchSeconds", n + 1), pages.watches[n].seconds);
        values.emplace_back(Key("WatchTells", n + 1), FromBoolean(pages.watches[n].tellsChanges));
        values.emplace_back(Key("WatchPart", n + 1), pages.watches[n].part);
    }
    settings.SaveSettings(kPagesSection, values);
}

KeptPages ReadKeptPages(const SettingsStore& settings) {
    const auto text = [&](const std::string& key) {
        return UsableSetting(settings, kPagesSection, key);
    };
    KeptPages pages;
    pages.first = text("First");
    pages.second = text("Second");
    pages.front = ToInteger(text("Front"));
    for (std::size_t n = 1;; ++n) {
        const std::string address = text(Key("Tab", n));
        if (address.empty())
            break;
        pages.tabs.push_back({address, text(Key("TabTitle", n))});
    }
    for (std::size_t n = 1;; ++n) {
        const std::string address = text(Key("Watch", n));
        if (address.empty())
            break;
        pages.watches.push_back({text(Key("WatchTitle", n)), address, text(Key("WatchSeconds", n)),
                                 text(Key("WatchTells", n)) == FromBoolean(true),
                                 text(Key("WatchPart", n))});
    }
    return pages;
}

bool HoldsPages(const KeptPages& pages) {
    return !pages.first.empty() || !pages.second.empty() || !pages.tabs.empty() ||
           !pages.watches.empty();
}

} // namespace tallowmere
