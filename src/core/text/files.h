#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

/// Whole files. What is written is the old content or the new after a crash, a kill or a full
/// disk, never a torn one; files made here are readable by their owner alone.
namespace tallowmere {

/// The whole content of a file. A missing file is created empty; one that cannot be read yields
/// the empty text. Never throws.
std::string ReadWholeFile(const std::filesystem::path& path);

/// Shows a file to `look` piece by piece, for searches that need not hold all of a large one. Each
/// piece is what `look` has not used up yet and what follows it; it gives how much is used up now,
/// none when it has seen enough. Files are opened as by ReadWholeFile; gives false for one that
/// cannot be read to where `look` wanted.
bool ScanFile(const std::filesystem::path& path,
              const std::function<std::optional<std::size_t>(std::string_view)>& look);

/// No limit to the size of a file.
inline constexpr std::uint64_t kAnySize = ~std::uint64_t{0};
inline constexpr std::uint64_t kMegabyte = 1024 * 1024;

/// The whole content of a file, empty when it is missing. Throws RuntimeError when it is there but
/// cannot be read, or holds more than `limit` bytes, so that a caller never takes a locked file for
/// an empty one. `limit` is a number of whole megabytes.
std::string ReadExistingFile(const std::filesystem::path& path, std::uint64_t limit = kAnySize);

/// Replaces a file whole: temporary file beside it, flush, rename. Folders on the way are made.
/// Throws RuntimeError when it cannot be done; the old content then stays.
void WriteWholeFile(const std::filesystem::path& path, std::string_view content);

/// Appends in one write; a short write is cut back. Throws RuntimeError when it cannot be done.
void AppendToFile(const std::filesystem::path& path, std::string_view content);

/// Moves a file that is deleted on purpose to `<name>.bak`, replacing an older one. An empty file
/// is only deleted: it shall not replace a backup that holds something. A missing file is no error.
/// Throws RuntimeError when the move fails.
void MoveToBackup(const std::filesystem::path& path);

/// Where the backup of a file lies.
std::filesystem::path BackupPath(const std::filesystem::path& path);

/// What changes whenever a file is written or replaced.
struct FileStamp {
    std::uint64_t volume, file, size;
    std::int64_t modified; ///< in the system's finest unit
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// The stamp of a file, none when there is no file.
std::optional<FileStamp> StampOf(const std::filesystem::path& path);

/// Keeps other processes out from construction to destruction: a lock on the file `<name>.lock`,
/// which stays behind. The system holds it as long as its process lives, so nothing that stands in
/// the file, and no crash, can leave it locked. Throws RuntimeError when that file cannot be made.
class FileLock {
public:
    /// Waits for whoever holds the lock, ten seconds at the most; then it throws RuntimeError.
    explicit FileLock(const std::filesystem::path& path);
    /// Takes the lock at once; null when another process holds it.
    static std::unique_ptr<FileLock> Try(const std::filesystem::path& path);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    FileLock(const std::filesystem::path& path, std::chrono::milliseconds patience);

    std::intptr_t m_handle;
};

} // namespace tallowmere
