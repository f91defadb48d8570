#ifndef _WIN32

#include "core/text/files.h"

#include "core/text/runtime_error.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tallowmere {

namespace {

using Path = std::filesystem::path;

constexpr mode_t kOwnerOnlyFile = S_IRUSR | S_IWUSR;
constexpr mode_t kOwnerOnlyFolder = S_IRWXU;

/// Another program holds the file for longer than is waited.
struct LockHeld : RuntimeError {
    using RuntimeError::RuntimeError;
};

[[noreturn]] void Fail(const char* action, const Path& path, int error) {
    const std::string head = std::string("Cannot ") + action + " " + path.string() + ": ";
    if (error == EWOULDBLOCK)
        throw LockHeld(head + "another program holds it");
    throw RuntimeError(head + std::generic_category().message(error));
}

/// Repeats a system call that a signal interrupted.
template <typename Call>
auto Retry(Call call) {
    decltype(call()) result;
    do {
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    int Number() const { return m_number; }
    int Release() { return std::exchange(m_number, -1); }
    bool IsOpen() const { return m_number >= 0; }

private:
    int m_number;
};

Descriptor Open(const Path& path, int flags) {
    // Without O_NONBLOCK a pipe in the place of a file would hang the program.
    constexpr int kAlways = O_CLOEXEC | O_NONBLOCK;
    return Descriptor(Retry([&] { return ::open(path.c_str(), flags | kAlways, kOwnerOnlyFile); }));
}

bool SameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// How long a file may be held by another program; whoever writes is done within milliseconds.
constexpr std::chrono::milliseconds kPatience = std::chrono::seconds(10);

/// Takes a file for this process alone; false, with errno set, when that cannot be had in time.
bool LockWithin(int file, std::chrono::milliseconds patience) {
    // The system has no wait with an end, and another program may hold a lock for good.
    constexpr auto kPause = std::chrono::milliseconds(2);
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (Retry([&] { return ::flock(file, LOCK_EX | LOCK_NB); }) != 0) {
        if (errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

/// Opens a file for this process alone. Another one may have renamed it away while this one waited
/// for the lock: then it is opened anew.
Descriptor OpenLocked(const Path& path, int flags, const char* action,
                      std::chrono::milliseconds patience = kPatience) {
    for (;;) {
        Descriptor file = Open(path, flags | O_CREAT);
        struct stat opened {};
        struct stat named {};
        if (!file.IsOpen() || !LockWithin(file.Number(), patience) ||
            ::fstat(file.Number(), &opened) != 0)
            Fail(action, path, errno);
        if (!S_ISREG(opened.st_mode))
            Fail(action, path, EINVAL);
        if (::stat(path.c_str(), &named) == 0 && SameFile(opened, named))
            return file;
    }
}

/// Writes all of the content; false, with errno set, when something is missing at the end.
bool WriteAll(int file, std::string_view content) {
    while (!content.empty()) {
        const auto count = Retry([&] { return ::write(file, content.data(), content.size()); });
        if (count < 0)
            return false;
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// Makes a rename outlive a power failure.
void FlushFolderOf(const Path& path) {
    const Path folder = path.has_parent_path() ? path.parent_path() : Path(".");
    const Descriptor descriptor = Open(folder, O_RDONLY | O_DIRECTORY);
    // EINVAL: this file system has nothing to flush for a folder.
    if (!descriptor.IsOpen() || (::fsync(descriptor.Number()) != 0 && errno != EINVAL))
        Fail("secure", folder, errno);
}

void MakeFolder(const Path& folder) {
    if (folder.empty() || ::mkdir(folder.c_str(), kOwnerOnlyFolder) == 0 || errno == EEXIST)
        return;
    if (errno != ENOENT || !folder.has_parent_path() || folder.parent_path() == folder)
        Fail("make", folder, errno);
    MakeFolder(folder.parent_path());
    if (::mkdir(folder.c_str(), kOwnerOnlyFolder) != 0 && errno != EEXIST)
        Fail("make", folder, errno);
}

/// What a link leads to, so that a replaced file stays where its owner keeps it.
Path Target(const Path& path) {
    std::error_code error;
    const Path target = std::filesystem::canonical(path, error);
    return error ? path : target;
}

Path Beside(const Path& path, const char* suffix) {
    if (!path.has_filename())
        Fail("write", path, ENOENT);
    Path sibling = path;
    sibling += suffix;
    return sibling;
}

/// Whether an open descriptor is a file; errno says why not.
bool IsFile(int file, struct stat& status) {
    if (::fstat(file, &status) != 0)
        return false;
    errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
    return S_ISREG(status.st_mode);
}

/// Reads an open file to its end; false, with errno set, when it is none, holds more than `limit`
/// bytes (EFBIG) or cannot be read.
bool ReadAll(int file, std::string& content, std::uint64_t limit = kAnySize) {
    struct stat status {};
    if (!IsFile(file, status))
        return false;
    errno = EFBIG;
    if (static_cast<std::uint64_t>(status.st_size) > limit)
        return false;
    // One byte more than the file holds: its end is then seen without a second block.
    content.resize(static_cast<std::size_t>(status.st_size) + 1);
    std::size_t used = 0;
    for (;;) {
        if (used == content.size())
            content.resize(content.size() * 2);
        const auto count =
            Retry([&] { return ::read(file, content.data() + used, content.size() - used); });
        if (count <= 0) {
            content.resize(used);
            return count == 0;
        }
        used += static_cast<std::size_t>(count);
        errno = EFBIG;
        if (used > limit)
            return false;
    }
}

} // namespace

std::string ReadWholeFile(const Path& path) {
    const Descriptor file = Open(path, O_RDONLY | O_CREAT);
    std::string content;
    try {
        if (file.IsOpen() && ReadAll(file.Number(), content))
            return content;
    } catch (const std::bad_alloc&) {
        // Too large for this machine: it cannot be read.
    }
    return {};
}

bool ScanFile(const Path& path,
              const std::function<std::optional<std::size_t>(std::string_view)>& look) {
    // Small enough to stay in the processor's cache from the reading to the looking.
    constexpr std::size_t kPiece = 256 * 1024;
    const Descriptor file = Open(path, O_RDONLY | O_CREAT);
    struct stat status {};
    if (!file.IsOpen() || !IsFile(file.Number(), status))
        return false;
    std::string buffer(kPiece, '\0');
    std::size_t held = 0;
    for (;;) {
        const auto count = Retry(
            [&] { return ::read(file.Number(), buffer.data() + held, buffer.size() - held); });
        if (count <= 0)
            return count == 0;
        held += static_cast<std::size_t>(count);
        const auto used = look(std::string_view(buffer).substr(0, held));
        if (!used)
            return true;
        held -= *used;
        std::memmove(buffer.data(), buffer.data() + *used, held);
        if (held > buffer.size() / 2)
            buffer.resize(buffer.size() * 2);
    }
}

std::string ReadExistingFile(const Path& path, std::uint64_t limit) {
    const Descriptor file = Open(path, O_RDONLY);
    if (!file.IsOpen() && errno == ENOENT)
        return {};
    std::string content;
    if (file.IsOpen() && ReadAll(file.Number(), content, limit))
        return content;
    if (errno == EFBIG)
        throw RuntimeError("Cannot read " + path.string() + ": it is larger than " +
                           std::to_string(limit / kMegabyte) + " MB");
    Fail("read", path, errno);
}

void WriteWholeFile(const Path& path, std::string_view content) {
    constexpr const char* kAction = "write";
    const Path target = Target(path);
    // A rename asks the folder alone; a file that its owner has made read-only stays as it is.
    if (::access(target.c_str(), W_OK) != 0 && errno != ENOENT)
        Fail(kAction, target, errno);
    MakeFolder(target.parent_path());

    // Always the same name: what a killed process leaves behind is used up by the next one.
    const Path temporary = Beside(target, ".tmp");
    const Descriptor file = OpenLocked(temporary, O_WRONLY | O_NOFOLLOW, kAction);
    if (::fchmod(file.Number(), kOwnerOnlyFile) != 0 || ::ftruncate(file.Number(), 0) != 0 ||
        !WriteAll(file.Number(), content) || ::fsync(file.Number()) != 0 ||
        ::rename(temporary.c_str(), target.c_str()) != 0) {
        const int error = errno;
        ::unlink(temporary.c_str());
        Fail(kAction, target, error);
    }
    FlushFolderOf(target);
}

void AppendToFile(const Path& path, std::string_view content) {
    constexpr const char* kAction = "write";
    constexpr std::uint64_t kPage = 4096;
    if (content.empty())
        return;
    MakeFolder(path.parent_path());
    const Descriptor file = OpenLocked(path, O_RDWR | O_APPEND, kAction);
    struct stat status {};
    if (::fstat(file.Number(), &status) != 0)
        Fail(kAction, path, errno);

    // A kill can cut a write short between two pages of the file, never inside one. What crosses
    // into another page therefore goes the long way, so that no half record is ever left.
    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (size / kPage != (size + content.size() - 1) / kPage) {
        std::string whole;
        if (!ReadAll(file.Number(), whole))
            Fail(kAction, path, errno);
        WriteWholeFile(path, whole.append(content));
        return;
    }
    if (!WriteAll(file.Number(), content) || ::fsync(file.Number()) != 0) {
        const int error = errno;
        if (::ftruncate(file.Number(), status.st_size) != 0)
            Fail("restore", path, errno);
        Fail(kAction, path, error);
    }
    if (size == 0)
        FlushFolderOf(path);
}

void MoveToBackup(const Path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        if (errno == ENOENT)
            return;
        Fail("delete", path, errno);
    }
    if (S_ISDIR(status.st_mode))
        Fail("delete", path, EISDIR);
    const bool worthKeeping = status.st_size > 0;
    if ((worthKeeping ? ::rename(path.c_str(), BackupPath(path).c_str())
                      : ::unlink(path.c_str())) != 0)
        Fail("delete", path, errno);
    FlushFolderOf(path);
}

Path BackupPath(const Path& path) {
    Path backup = path;
    backup += ".bak";
    return backup;
}

std::optional<FileStamp> StampOf(const Path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
#ifdef __APPLE__
    const struct timespec modified = status.st_mtimespec;
#else
    const struct timespec modified = status.st_mtim;
#endif
    return FileStamp{static_cast<std::uint64_t>(status.st_dev),
                     static_cast<std::uint64_t>(status.st_ino),
                     static_cast<std::uint64_t>(status.st_size),
                     modified.tv_sec * kNanoseconds + modified.tv_nsec};
}

FileLock::FileLock(const Path& path) : FileLock(path, kPatience) {}

FileLock::FileLock(const Path& path, std::chrono::milliseconds patience) : m_handle(-1) {
    MakeFolder(path.parent_path());
    m_handle = OpenLocked(Beside(path, ".lock"), O_RDWR, "lock", patience).Release();
}

std::unique_ptr<FileLock> FileLock::Try(const Path& path) {
    try {
        return std::unique_ptr<FileLock>(new FileLock(path, std::chrono::milliseconds(0)));
    } catch (const LockHeld&) {
        return nullptr;
    }
}

FileLock::~FileLock() {
    ::close(static_cast<int>(m_handle));
}

} // namespace tallowmere

#endif
