#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tallowmere {

/// Leaves word of what went wrong at the end of a run, with nobody there to read it, to the next
/// start. Does nothing when that cannot be written either: standard error has it.
void LeaveClosingNote(const std::filesystem::path& folder, std::string_view problem);

/// What the last run left, in words for the user, and empty from then on.
std::string TakeClosingNote(const std::filesystem::path& folder);

} // namespace tallowmere
