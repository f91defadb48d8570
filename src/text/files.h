#pragma once

#include <filesystem>
#include <string>
#include <string_view>

/// Whole files. What is written is the old content or the new after a crash, a kill or a full
/// disk, never a torn one; files made here are readable by their owner alone.
namespace tallowmere {

/// The whole content of a file. A missing file is created empty; one that cannot be read yields
/// the empty text. Never throws.
std::string ReadWholeFile(const std::filesystem::path& path);

/// Replaces a file whole: temporary file beside it, flush, rename. Folders on the way are made.
/// Throws RuntimeError when it cannot be done; the old content then stays.
void WriteWholeFile(const std::filesystem::path& path, std::string_view content);

/// Appends in one write; a short write is cut back. Throws RuntimeError when it cannot be done.
void AppendToFile(const std::filesystem::path& path, std::string_view content);

/// Moves a file that is deleted on purpose to `<name>.bak`, replacing an older one. A missing file
/// is no error. Throws RuntimeError when the move fails.
void MoveToBackup(const std::filesystem::path& path);

} // namespace tallowmere
