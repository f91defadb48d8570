#pragma once

#include "core/shell/command_keys.h"

/// What the user guide says about the keys of commands.
namespace tallowmere {

/// A page of the guide with the shortcuts put in: `<kbd data-command="NAME"></kbd>` gets the first
/// chord of that command, `<tbody data-commands></tbody>` a row for every shortcut that works. A
/// name that no command has is left as it is.
std::string WithShortcuts(std::string_view page, const CommandChords& chords);

} // namespace tallowmere
