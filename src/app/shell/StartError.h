#pragma once

#include <QString>

namespace tallowmere {

class Prompts;

/// Tells why the program cannot start, or starts with a flaw: on standard error, and in a box when
/// nobody reads that, as after a start from a menu of the desktop.
void TellOfStart(const QString& text, Prompts& prompts);

} // namespace tallowmere
