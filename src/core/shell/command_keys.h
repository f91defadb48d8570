#pragma once

#include "core/shell/commands.h"
#include "core/shell/settings_store.h"

#include <map>

/// Which shortcuts the commands have: those of the table, and those that the user gave instead.
namespace tallowmere {

inline constexpr std::string_view kShortcutsSection = "Shortcuts";

/// The chords of each command that may have any, by its name; commands without a shortcut too.
using CommandChords = std::map<std::string, std::vector<std::string>, std::less<>>;

/// Those of the table.
CommandChords ShippedChords();

/// The chords of a stored text, which are parted by blanks; none when one of them is no shortcut.
std::optional<std::vector<std::string>> ReadChords(std::string_view text);

/// The text that is stored for chords.
std::string StoredChords(const std::vector<std::string>& chords);

/// Those that hold: what the user changed, else what the table says. What cannot be read counts as
/// not changed. No chord leads to two commands in one place: a changed command has it before one
/// that was not, and the upper row before the lower.
CommandChords ChordsOf(const SettingsStore& settings);

/// The command that a chord leads to where `row` has its shortcuts, other than the row itself; null
/// when there is none.
const CommandRow* HolderOf(std::string_view chord, const CommandRow& row,
                           const CommandChords& chords);

/// What has to be written so that a command has just these chords: its own key, gone when they are
/// those of the table, and the keys of the commands that have one of them until then.
std::vector<SettingChange> GiveChords(const CommandRow& row, const std::vector<std::string>& wanted,
                                      const CommandChords& chords);

} // namespace tallowmere
