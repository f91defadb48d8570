#include "core/shell/command_keys.h"

#include "core/shell/key_chord.h"
#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

bool Has(const std::vector<std::string>& chords, std::string_view chord) {
    return std::ranges::find(chords, chord) != chords.end();
}

std::vector<std::string> ShippedOf(const CommandRow& row) {
    return ReadChords(row.keys).value_or(std::vector<std::string>());
}

std::optional<std::vector<std::string>> ChangedOf(const CommandRow& row,
                                                  const SettingsStore& settings) {
    const auto stored = settings.FindSetting(kShortcutsSection, row.name);
    return stored ? ReadChords(*stored) : std::nullopt;
}

SettingChange Change(const CommandRow& row, const std::vector<std::string>& chords) {
    SettingChange change{std::string(kShortcutsSection), std::string(row.name), {}};
    if (chords != ShippedOf(row))
        change.value = StoredChords(chords);
    return change;
}

} // namespace

CommandChords ShippedChords() {
    CommandChords chords;
    for (const CommandRow& row : Commands())
        if (TakesShortcut(row))
            chords.emplace(row.name, ShippedOf(row));
    return chords;
}

std::optional<std::vector<std::string>> ReadChords(std::string_view text) {
    std::vector<std::string> chords;
    for (const std::string_view part : Split(text, ' ')) {
        if (part.empty())
            continue;
        auto chord = NormalChord(part);
        if (!chord || !WhyNoShortcut(*chord).empty())
            return std::nullopt;
        if (!Has(chords, *chord))
            chords.push_back(std::move(*chord));
    }
    return chords;
}

std::string StoredChords(const std::vector<std::string>& chords) {
    std::string text;
    for (const std::string& chord : chords)
        text += (text.empty() ? "" : " ") + chord;
    return text;
}

CommandChords ChordsOf(const SettingsStore& settings) {
    CommandChords chords;
    const auto give = [&](const CommandRow& row, const std::vector<std::string>& wanted) {
        std::vector<std::string>& own = chords[std::string(row.name)];
        for (const std::string& chord : wanted)
            if (!HolderOf(chord, row, chords))
                own.push_back(chord);
    };
    for (const CommandRow& row : Commands())
        if (TakesShortcut(row))
            if (const auto changed = ChangedOf(row, settings))
                give(row, *changed);
    for (const CommandRow& row : Commands())
        if (TakesShortcut(row) && !ChangedOf(row, settings))
            give(row, ShippedOf(row));
    return chords;
}

const CommandRow* HolderOf(std::string_view chord, const CommandRow& row,
                           const CommandChords& chords) {
    for (const auto& [name, own] : chords) {
        const CommandRow* other = FindCommand(name);
        if (other && other->name != row.name && (other->places & row.places) != 0 &&
            Has(own, chord))
            return other;
    }
    return nullptr;
}

std::vector<SettingChange> GiveChords(const CommandRow& row, const std::vector<std::string>& wanted,
                                      const CommandChords& chords) {
    std::vector<SettingChange> changes;
    CommandChords left = chords;
    for (const std::string& chord : wanted)
        while (const CommandRow* holder = HolderOf(chord, row, left)) {
            std::vector<std::string>& own = left.find(holder->name)->second;
            std::erase(own, chord);
            changes.push_back(Change(*holder, own));
        }
    changes.push_back(Change(row, wanted));
    return changes;
}

} // namespace tallowmere
