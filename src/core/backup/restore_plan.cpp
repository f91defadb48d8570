#include "core/backup/restore_plan.h"

#include "core/backup/known_settings.h"
#include "core/market/alert_store.h"
#include "core/shell/command_keys.h"
#include "core/shell/setting_keys.h"
#include "core/shell/settings_text.h"
#include "core/sites/user_sites.h"
#include "core/tools/color_areas.h"
#include "core/tools/reminders.h"

#include <algorithm>
#include <array>
#include <functional>

namespace tallowmere {

namespace {

constexpr std::array kParts{BackupPart::Portfolios, BackupPart::Notes,    BackupPart::Reminders,
                            BackupPart::Alerts,     BackupPart::Links,    BackupPart::MultiLinks,
                            BackupPart::Colors,     BackupPart::Settings, BackupPart::Sites,
                            BackupPart::Sources};

/// What a part holds, by name.
using Items = std::map<std::string, std::string, std::less<>>;

std::string Content(const BackupFiles& files, std::string_view name) {
    const auto found = files.find(name);
    return found == files.end() ? std::string() : found->second;
}

/// Texts by key, as a lookup finds them: of several records the first counts.
Items RecordsOf(std::string_view content) {
    Items items;
    for (const Reminder& record : ReadReminders(content))
        if (!record.text.empty())
            items.emplace(record.key, record.text);
    return items;
}

/// Several alerts may say the same.
Items AlertsOf(std::string_view content) {
    Items items;
    for (const PriceAlert& alert : ReadAlerts(content).alerts)
        items[alert.ticker + " " + RuleWords(alert)] += std::to_string(alert.id) + '\n';
    return items;
}

Items MultiLinksOf(const BackupFiles& files) {
    Items items;
    for (const auto& [name, content] : files)
        if (name.ends_with(kMultiLinkEnding))
            items.emplace(name.substr(0, name.size() - kMultiLinkEnding.size()), content);
    return items;
}

Items FileOf(const BackupFiles& files, std::string_view name) {
    Items items;
    if (const auto found = files.find(name); found != files.end())
        items.insert(*found);
    return items;
}

std::string ItemOf(const KnownSetting& setting, BackupPart part) {
    switch (part) {
    case BackupPart::Portfolios:
        return "Portfolio " + std::to_string(setting.number);
    case BackupPart::Links:
        return "Link " + std::to_string(setting.number);
    case BackupPart::Colors:
        return std::string(FindColorArea(std::string_view(setting.key).substr(1))->entry);
    default:
        if (setting.section == kShortcutsSection)
            return "shortcuts";
        // Entries of one list are one thing to whoever looks at them.
        return std::string(setting.number == 0 ? setting.row->meaning : "smart-navigate list");
    }
}

bool IsUsable(const KnownSetting& setting, std::string_view value) {
    if (setting.section == kShortcutsSection)
        return ReadChords(value).has_value();
    return (setting.row ? CheckValue(*setting.row, value) : CheckValue(SettingKind::Color, value))
        .empty();
}

/// Visits the settings that belong to a part, with their values in both places.
void ForEachSetting(
    const SettingFinder& inNow, const SettingFinder& inBackup,
    const std::function<void(const KnownSetting&, BackupPart, const std::optional<std::string>& now,
                             const std::optional<std::string>& backup)>& visit) {
    ForEachKnownSetting(
        [&](const KnownSetting& setting) {
            return inNow(setting.section, setting.key) || inBackup(setting.section, setting.key);
        },
        [&](const KnownSetting& setting) {
            const auto part = PartOfSetting(setting.section, setting.key);
            if (!part)
                return;
            const auto before = inNow(setting.section, setting.key);
            const auto after = inBackup(setting.section, setting.key);
            visit(setting, *part, before, !after || IsUsable(setting, *after) ? after : before);
        });
}

/// The settings of each part: what they say together under the name of what they are about. Empty
/// portfolios are none.
std::map<BackupPart, Items> SettingItems(const SettingsValues& values) {
    std::map<BackupPart, Items> parts;
    ForEachSetting(
        FinderOf(values), FinderOf(values),
        [&](const KnownSetting& setting, BackupPart part, const auto& value, const auto&) {
            // A command that has lost its shortcuts has an empty value.
            if (value && (!value->empty() || setting.section == kShortcutsSection))
                parts[part][ItemOf(setting, part)] += setting.key + '=' + *value + '\n';
        });
    return parts;
}

std::map<BackupPart, Items> ItemsOf(const BackupFiles& files) {
    std::map<BackupPart, Items> parts =
        SettingItems(SettingsValues(Content(files, kSettingsEntry)));
    parts[BackupPart::Notes] = RecordsOf(Content(files, kNotesEntry));
    parts[BackupPart::Reminders] = RecordsOf(Content(files, kRemindersEntry));
    parts[BackupPart::Alerts] = AlertsOf(Content(files, kAlertsEntry));
    parts[BackupPart::MultiLinks] = MultiLinksOf(files);
    parts[BackupPart::Sites] = FileOf(files, kSitesEntry);
    parts[BackupPart::Sources] = FileOf(files, kSourcesEntry);
    return parts;
}

/// The programs that a table of sites has started which the other does not name.
std::string WarningOfSites(std::string_view now, std::string_view backup) {
    const SiteTable before = OverrideSites({}, {}, now, kSitesEntry).sites;
    const SiteTable after = OverrideSites({}, {}, backup, kSitesEntry).sites;
    std::string warning;
    for (const std::string_view program : {"browser", "calculator", "mail"})
        if (!after.Program(program).empty() && after.Program(program) != before.Program(program))
            warning += (warning.empty() ? "It starts a program of this machine: " : ", ") +
                       std::string(after.Program(program));
    return warning;
}

void Compare(const Items& now, const Items& backup, PartChanges& changes) {
    for (const auto& [name, content] : backup) {
        const auto found = now.find(name);
        if (found == now.end())
            changes.fresh.push_back(name);
        else if (found->second != content)
            changes.changed.push_back(name);
    }
    for (const auto& [name, content] : now)
        if (backup.find(name) == backup.end())
            changes.gone.push_back(name);
}

void PlanSettings(const std::string& now, const std::string& backup,
                  const std::set<BackupPart>& parts, RestorePlan& plan) {
    std::string text = now;
    const SettingsValues before(now);
    const SettingsValues after(backup);
    ForEachSetting(
        FinderOf(before), FinderOf(after),
        [&](const KnownSetting& setting, BackupPart part, const auto& old, const auto& wanted) {
            if (!parts.contains(part) || old == wanted)
                return;
            plan.settings.push_back({std::string(setting.section), setting.key, wanted});
            text = wanted ? ChangeSettingsText(text, setting.section, setting.key, *wanted)
                          : RemoveSettingText(text, setting.section, setting.key);
        });
    if (!plan.settings.empty())
        plan.files.emplace(kSettingsEntry, std::move(text));
}

} // namespace

std::string_view NameOf(BackupPart part) {
    switch (part) {
    case BackupPart::Portfolios:
        return "Portfolios";
    case BackupPart::Notes:
        return "Notes";
    case BackupPart::Reminders:
        return "Reminders";
    case BackupPart::Alerts:
        return "Alerts";
    case BackupPart::Links:
        return "Links of your own";
    case BackupPart::MultiLinks:
        return "Multi-links";
    case BackupPart::Colors:
        return "Colours";
    case BackupPart::Settings:
        return "Settings";
    case BackupPart::Sites:
        return "Table of sites";
    case BackupPart::Sources:
        return "Table of quote sources";
    }
    return {};
}

std::optional<BackupPart> PartOfSetting(std::string_view section, std::string_view key) {
    constexpr std::array<std::string_view, 4> kOfThisMachine{"TickerList", "First", "FRT",
                                                             "OldEngine"};
    if (section == kColorsSection)
        return FindColorArea(key.substr(std::min<std::size_t>(key.size(), 1)))
                   ? std::optional(BackupPart::Colors)
                   : std::nullopt;
    if (section == kShortcutsSection) {
        const CommandRow* row = FindCommand(key);
        return row && TakesShortcut(*row) ? std::optional(BackupPart::Settings) : std::nullopt;
    }
    if (section != kSettingsSection || !FindSettingKey(section, key) ||
        std::find(kOfThisMachine.begin(), kOfThisMachine.end(), key) != kOfThisMachine.end())
        return std::nullopt;
    if (key.starts_with("Stocks") || key.starts_with("PortName"))
        return BackupPart::Portfolios;
    return key.starts_with("Custom") ? BackupPart::Links : BackupPart::Settings;
}

std::vector<PartChanges> CompareStores(const BackupFiles& now, const BackupFiles& backup) {
    std::map<BackupPart, Items> before = ItemsOf(now);
    std::map<BackupPart, Items> held = ItemsOf(backup);
    // Settings that a restore would leave alone are no change.
    BackupFiles restored = backup;
    const RestorePlan plan = PlanRestore(now, backup, {kParts.begin(), kParts.end()});
    const auto settings = plan.files.find(kSettingsEntry);
    restored[std::string(kSettingsEntry)] =
        settings == plan.files.end() ? Content(now, kSettingsEntry) : settings->second;
    std::map<BackupPart, Items> after = ItemsOf(restored);
    std::vector<PartChanges> parts;
    for (const BackupPart part : kParts) {
        PartChanges changes{part, !held[part].empty(), {}, {}, {}, {}};
        Compare(before[part], after[part], changes);
        if (part == BackupPart::Sites)
            changes.warning =
                WarningOfSites(Content(now, kSitesEntry), Content(backup, kSitesEntry));
        parts.push_back(std::move(changes));
    }
    return parts;
}

std::vector<SettingChange> SettingsTowards(const SettingsStore& store, std::string_view text) {
    std::vector<SettingChange> changes;
    const SettingsValues wanted(text);
    ForEachSetting(
        FinderOf(store), FinderOf(wanted),
        [&](const KnownSetting& setting, BackupPart, const auto& before, const auto& after) {
            if (before != after)
                changes.push_back({std::string(setting.section), setting.key, after});
        });
    return changes;
}

RestorePlan PlanRestore(const BackupFiles& now, const BackupFiles& backup,
                        const std::set<BackupPart>& parts) {
    RestorePlan plan;
    PlanSettings(Content(now, kSettingsEntry), Content(backup, kSettingsEntry), parts, plan);
    const auto take = [&](std::string_view name) {
        std::string wanted = Content(backup, name);
        if (wanted != Content(now, name))
            plan.files.emplace(name, std::move(wanted));
    };
    if (parts.contains(BackupPart::Notes))
        take(kNotesEntry);
    if (parts.contains(BackupPart::Reminders))
        take(kRemindersEntry);
    if (parts.contains(BackupPart::Alerts))
        take(kAlertsEntry);
    if (parts.contains(BackupPart::Sites))
        take(kSitesEntry);
    if (parts.contains(BackupPart::Sources))
        take(kSourcesEntry);
    if (parts.contains(BackupPart::MultiLinks))
        for (const BackupFiles* files : {&now, &backup})
            for (const auto& [name, content] : *files)
                if (name.ends_with(kMultiLinkEnding))
                    take(name);
    return plan;
}

} // namespace tallowmere
