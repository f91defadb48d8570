#pragma once

#include "core/text/date.h"

#include <string>
#include <string_view>

namespace tallowmere {

/// Whether a web engine with security patches of a Chromium version ("108.0.5359.124") lags behind
/// the web by half a year or more. A version appears about every month, so that the number tells
/// the age; a text that is no version counts as old.
bool IsOldEngine(std::string_view patchVersion, Date today);

/// The line that an old engine is worth at the start, empty for a current one and for one whose
/// version the user has waved away (`dismissedVersion`).
std::string OldEngineLine(std::string_view patchVersion, std::string_view dismissedVersion,
                          Date today);

} // namespace tallowmere
