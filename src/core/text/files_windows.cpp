#ifdef _WIN32

#include "core/text/files.h"

#include "core/text/runtime_error.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <system_error>
#include <thread>
#include <utility>
#include <windows.h>

namespace tallowmere {

namespace {

using Path = std::filesystem::path;

/// Another program holds the file for longer than is waited.
struct LockHeld : RuntimeError {
    using RuntimeError::RuntimeError;
};

[[noreturn]] void Fail(const char* action, const Path& path, DWORD error) {
    const auto name = path.u8string();
    const std::string head =
        std::string("Cannot ") + action + " " + std::string(name.begin(), name.end()) + ": ";
    if (error == ERROR_LOCK_VIOLATION)
        throw LockHeld(head + "another program holds it");
    throw RuntimeError(head + std::system_category().message(static_cast<int>(error)));
}

class Handle {
public:
    explicit Handle(HANDLE handle) : m_handle(handle) {}
    ~Handle() {
        if (IsOpen())
            ::CloseHandle(m_handle);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    HANDLE Get() const { return m_handle; }
    HANDLE Release() { return std::exchange(m_handle, INVALID_HANDLE_VALUE); }
    bool IsOpen() const { return m_handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_handle;
};

HANDLE Open(const Path& path, DWORD access, DWORD share, DWORD disposition) {
    return ::CreateFileW(path.c_str(), access, share, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                         nullptr);
}

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

DWORD Step(std::size_t size) {
    constexpr std::size_t kLargest = 1 << 30;
    return static_cast<DWORD>(std::min(size, kLargest));
}

bool WriteAll(HANDLE file, std::string_view content) {
    while (!content.empty()) {
        DWORD count = 0;
        if (!::WriteFile(file, content.data(), Step(content.size()), &count, nullptr))
            return false;
        content.remove_prefix(count);
    }
    return ::FlushFileBuffers(file) != 0;
}

bool ReadAll(HANDLE file, std::string& content) {
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(file, &size))
        return false;
    content.resize(static_cast<std::size_t>(size.QuadPart));
    std::size_t used = 0;
    while (used < content.size()) {
        DWORD count = 0;
        if (!::ReadFile(file, content.data() + used, Step(content.size() - used), &count, nullptr))
            return false;
        if (count == 0)
            break;
        used += count;
    }
    content.resize(used);
    return true;
}

Path Beside(const Path& path, const char* suffix) {
    if (!path.has_filename())
        Fail("write", path, ERROR_FILE_NOT_FOUND);
    Path sibling = path;
    sibling += suffix;
    return sibling;
}

/// The folders of a user are his alone already.
void MakeFolder(const Path& folder) {
    std::error_code error;
    if (!folder.empty() && !std::filesystem::create_directories(folder, error) && error)
        Fail("make", folder, static_cast<DWORD>(error.value()));
}

bool IsMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

} // namespace

std::string ReadWholeFile(const Path& path) {
    const Handle file(Open(path, GENERIC_READ, kShareAll, OPEN_ALWAYS));
    std::string content;
    try {
        if (file.IsOpen() && ReadAll(file.Get(), content))
            return content;
    } catch (const std::bad_alloc&) {
        // Too large for this machine: it cannot be read.
    }
    return {};
}

bool ScanFile(const Path& path,
              const std::function<std::optional<std::size_t>(std::string_view)>& look) {
    constexpr std::size_t kPiece = 256 * 1024;
    const Handle file(Open(path, GENERIC_READ, kShareAll, OPEN_ALWAYS));
    if (!file.IsOpen())
        return false;
    std::string buffer(kPiece, '\0');
    std::size_t held = 0;
    for (;;) {
        DWORD count = 0;
        if (!::ReadFile(file.Get(), buffer.data() + held, Step(buffer.size() - held), &count,
                        nullptr))
            return false;
        if (count == 0)
            return true;
        held += count;
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
    const Handle file(Open(path, GENERIC_READ, kShareAll, OPEN_EXISTING));
    if (!file.IsOpen() && IsMissing(::GetLastError()))
        return {};
    LARGE_INTEGER size{};
    if (file.IsOpen() && ::GetFileSizeEx(file.Get(), &size) &&
        static_cast<std::uint64_t>(size.QuadPart) > limit)
        throw RuntimeError("Cannot read " + path.string() + ": it is larger than " +
                           std::to_string(limit / kMegabyte) + " MB");
    std::string content;
    if (!file.IsOpen() || !ReadAll(file.Get(), content))
        Fail("read", path, ::GetLastError());
    return content;
}

void WriteWholeFile(const Path& path, std::string_view content) {
    MakeFolder(path.parent_path());
    const Path temporary = Beside(path, ".tmp");
    DWORD error = ERROR_SUCCESS;
    {
        const Handle file(Open(temporary, GENERIC_WRITE, 0, CREATE_ALWAYS));
        if (!file.IsOpen() || !WriteAll(file.Get(), content))
            error = ::GetLastError();
    }
    if (error == ERROR_SUCCESS &&
        !::MoveFileExW(temporary.c_str(), path.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        error = ::GetLastError();
    if (error != ERROR_SUCCESS) {
        ::DeleteFileW(temporary.c_str());
        Fail("write", path, error);
    }
}

void AppendToFile(const Path& path, std::string_view content) {
    if (content.empty())
        return;
    MakeFolder(path.parent_path());
    const Handle file(Open(path, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS));
    LARGE_INTEGER size{};
    if (!file.IsOpen() || !::GetFileSizeEx(file.Get(), &size) ||
        !::SetFilePointerEx(file.Get(), size, nullptr, FILE_BEGIN))
        Fail("write", path, ::GetLastError());
    if (!WriteAll(file.Get(), content)) {
        const DWORD error = ::GetLastError();
        if (!::SetFilePointerEx(file.Get(), size, nullptr, FILE_BEGIN) ||
            !::SetEndOfFile(file.Get()))
            Fail("restore", path, ::GetLastError());
        Fail("write", path, error);
    }
}

void MoveToBackup(const Path& path) {
    WIN32_FILE_ATTRIBUTE_DATA status{};
    bool done = ::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &status) != 0;
    if (!done && IsMissing(::GetLastError()))
        return;
    if (status.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        Fail("delete", path, ERROR_ACCESS_DENIED);
    const bool worthKeeping = status.nFileSizeLow > 0 || status.nFileSizeHigh > 0;
    if (done)
        done = (worthKeeping ? ::MoveFileExW(path.c_str(), BackupPath(path).c_str(),
                                             MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)
                             : ::DeleteFileW(path.c_str())) != 0;
    if (!done)
        Fail("delete", path, ::GetLastError());
}

Path BackupPath(const Path& path) {
    Path backup = path;
    backup += ".bak";
    return backup;
}

std::optional<FileStamp> StampOf(const Path& path) {
    const Handle file(Open(path, FILE_READ_ATTRIBUTES, kShareAll, OPEN_EXISTING));
    BY_HANDLE_FILE_INFORMATION status{};
    if (!file.IsOpen() || !::GetFileInformationByHandle(file.Get(), &status))
        return std::nullopt;
    const auto join = [](DWORD high, DWORD low) {
        return static_cast<std::uint64_t>(high) << 32 | low;
    };
    return FileStamp{status.dwVolumeSerialNumber, join(status.nFileIndexHigh, status.nFileIndexLow),
                     join(status.nFileSizeHigh, status.nFileSizeLow),
                     static_cast<std::int64_t>(join(status.ftLastWriteTime.dwHighDateTime,
                                                    status.ftLastWriteTime.dwLowDateTime))};
}

FileLock::FileLock(const Path& path) : FileLock(path, std::chrono::seconds(10)) {}

FileLock::FileLock(const Path& path, std::chrono::milliseconds patience) : m_handle(-1) {
    constexpr DWORD kFlags = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
    constexpr auto kPause = std::chrono::milliseconds(2);
    MakeFolder(path.parent_path());
    const Path name = Beside(path, ".lock");
    Handle file(Open(name, GENERIC_READ | GENERIC_WRITE, kShareAll, OPEN_ALWAYS));
    if (!file.IsOpen())
        Fail("lock", name, ::GetLastError());
    const auto deadline = std::chrono::steady_clock::now() + patience;
    OVERLAPPED start{};
    while (!::LockFileEx(file.Get(), kFlags, 0, 1, 0, &start)) {
        if (std::chrono::steady_clock::now() >= deadline)
            Fail("lock", name, ::GetLastError());
        std::this_thread::sleep_for(kPause);
    }
    m_handle = reinterpret_cast<std::intptr_t>(file.Release());
}

std::unique_ptr<FileLock> FileLock::Try(const Path& path) {
    try {
        return std::unique_ptr<FileLock>(new FileLock(path, std::chrono::milliseconds(0)));
    } catch (const LockHeld&) {
        return nullptr;
    }
}

FileLock::~FileLock() {
    ::CloseHandle(reinterpret_cast<HANDLE>(m_handle));
}

} // namespace tallowmere

#endif
