// Lets one single write of a process fail, as a full or a broken disk would. To be preloaded. What
// counts as a write: open for writing or creating, write, fsync, ftruncate and rename of files in
// one folder.
//
//   FAILING_WRITES_UNDER   the folder; without it nothing is counted
//   FAILING_WRITES_NOT     a folder in it that does not count
//   FAILING_WRITES_AT      the number of the write that fails, counted from 1; 0 for none
//   FAILING_WRITES_ERROR   the number of the error; 0 lets half of a write through first
//   FAILING_WRITES_LOG     a file elsewhere that is told of every write, a line each

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

template <typename Call>
Call* Next(const char* name) {
    return reinterpret_cast<Call*>(::dlsym(RTLD_NEXT, name));
}

using Open = int(const char*, int, ...);
using OpenAt = int(int, const char*, int, ...);
using Write = ssize_t(int, const void*, size_t);

struct Orders {
    const char* under = std::getenv("FAILING_WRITES_UNDER");
    const char* except = std::getenv("FAILING_WRITES_NOT");
    long at = NumberOf("FAILING_WRITES_AT");
    int error = static_cast<int>(NumberOf("FAILING_WRITES_ERROR"));
    int log = OpenLog();

    static long NumberOf(const char* name) {
        const char* text = std::getenv(name);
        return text ? std::strtol(text, nullptr, 10) : 0;
    }
    static int OpenLog() {
        const char* path = std::getenv("FAILING_WRITES_LOG");
        return path ? Next<Open>("open")(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600)
                    : -1;
    }
};

const Orders& TheOrders() {
    static const Orders orders;
    return orders;
}

std::atomic<long> count{0};
/// Of a write that was cut short: what follows on this file fails.
std::atomic<int> fullFile{-1};

bool Concerns(const char* path) {
    const Orders& orders = TheOrders();
    const auto isIn = [path](const char* folder) {
        return folder && std::strncmp(path, folder, std::strlen(folder)) == 0;
    };
    return path && isIn(orders.under) && !isIn(orders.except);
}

bool Concerns(int file, char (&path)[4096]) {
    if (!TheOrders().under)
        return false;
    char link[64];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", file);
    const ssize_t length = ::readlink(link, path, sizeof path - 1);
    path[length < 0 ? 0 : length] = 0;
    return length > 0 && Concerns(path);
}

/// Counts a write; whether it is the one that fails.
bool Fails(const char* what, const char* path) {
    const Orders& orders = TheOrders();
    const long number = ++count;
    const bool fails = number == orders.at;
    if (orders.log >= 0) {
        char line[4400];
        const int size = std::snprintf(line, sizeof line, "%ld %s %s%s\n", number, what, path,
                                       fails ? " FAILS" : "");
        if (size > 0 && Next<Write>("write")(orders.log, line, static_cast<std::size_t>(size)) < 0)
            std::abort();
    }
    if (fails)
        errno = orders.error ? orders.error : ENOSPC;
    return fails;
}

bool IsForWriting(int flags) {
    return (flags & O_ACCMODE) != O_RDONLY || (flags & O_CREAT) != 0;
}

mode_t ModeOf(int flags, va_list& arguments) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

int OpenOr(const char* name, const char* path, int flags, mode_t mode) {
    if (IsForWriting(flags) && Concerns(path) && Fails("open", path))
        return -1;
    return Next<Open>(name)(path, flags, mode);
}

int OpenAtOr(const char* name, int folder, const char* path, int flags, mode_t mode) {
    if (IsForWriting(flags) && Concerns(path) && Fails("open", path))
        return -1;
    return Next<OpenAt>(name)(folder, path, flags, mode);
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return OpenOr("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return OpenOr("open64", path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return OpenAtOr("openat", folder, path, flags, mode);
}

int openat64(int folder, const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = ModeOf(flags, arguments);
    va_end(arguments);
    return OpenAtOr("openat64", folder, path, flags, mode);
}

ssize_t write(int file, const void* bytes, size_t size) {
    char path[4096];
    if (!Concerns(file, path))
        return Next<Write>("write")(file, bytes, size);
    if (fullFile == file) {
        fullFile = -1;
        errno = ENOSPC;
        return -1;
    }
    if (Fails("write", path)) {
        if (TheOrders().error != 0)
            return -1;
        fullFile = file;
        return Next<Write>("write")(file, bytes, (size + 1) / 2);
    }
    return Next<Write>("write")(file, bytes, size);
}

ssize_t writev(int file, const iovec* pieces, int number) {
    char path[4096];
    if (Concerns(file, path) && Fails("write", path))
        return -1;
    return Next<ssize_t(int, const iovec*, int)>("writev")(file, pieces, number);
}

int fsync(int file) {
    char path[4096];
    if (Concerns(file, path) && Fails("fsync", path))
        return -1;
    return Next<int(int)>("fsync")(file);
}

int fdatasync(int file) {
    char path[4096];
    if (Concerns(file, path) && Fails("fsync", path))
        return -1;
    return Next<int(int)>("fdatasync")(file);
}

int ftruncate(int file, off_t size) noexcept {
    char path[4096];
    if (Concerns(file, path) && Fails("truncate", path))
        return -1;
    return Next<int(int, off_t)>("ftruncate")(file, size);
}

int ftruncate64(int file, off64_t size) noexcept {
    char path[4096];
    if (Concerns(file, path) && Fails("truncate", path))
        return -1;
    return Next<int(int, off64_t)>("ftruncate64")(file, size);
}

int rename(const char* from, const char* to) noexcept {
    if (Concerns(to) && Fails("rename", to))
        return -1;
    return Next<int(const char*, const char*)>("rename")(from, to);
}

} // extern "C"
