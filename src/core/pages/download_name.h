#pragma once

#include <string>
#include <string_view>

/// The names under which files of strangers are saved.
namespace tallowmere {

/// A site's name for a file made a plain one: no folder, no hidden characters, none that a file
/// system keeps for itself, no dot or dash in front, no dot or blank at the end, no device, at most
/// 200 bytes with its extension kept. What leaves nothing is called "download".
std::string PlainDownloadName(std::string_view suggested);

/// Whether a file of this name may run when it is double-clicked.
bool RunsWhenOpened(std::string_view name);

} // namespace tallowmere
