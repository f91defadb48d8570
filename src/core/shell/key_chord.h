#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Keys that are pressed together, as text: "Ctrl+Shift+Z". The settings hold them in this form, in
/// which the toolkit writes them too.
namespace tallowmere {

/// The chord in its one form: modifiers in the order Meta, Ctrl, Alt, Shift, each once, and then a
/// key, a letter of which is upper case. None when the text is no chord.
std::optional<std::string> NormalChord(std::string_view text);

/// Why a chord in its one form can be no shortcut, in words that go on after the chord; empty when
/// it can. Keys that write, move or confirm are the controls', some chords those of every program.
std::string WhyNoShortcut(std::string_view chord);

} // namespace tallowmere
