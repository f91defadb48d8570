#include "app/engine/SiteQuota.h"

#include <QFile>

#if defined(__GLIBC__)

#include <algorithm>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

// The engine gives four fifths of a disk to all sites, and three quarters of that to each.
constexpr unsigned long long kDisk = 1250'000'000ULL / 4 * 5;

struct BoundFolders {
    std::mutex mutex;
    std::vector<std::string> paths;

    bool Hold(std::string_view path) {
        const std::scoped_lock lock(mutex);
        return std::ranges::any_of(paths, [&](const std::string& folder) {
            return path.starts_with(folder) &&
                   (path.size() == folder.size() || path[folder.size()] == '/');
        });
    }
};

// It is never destroyed: the engine's threads may ask until the process ends.
BoundFolders& Folders() {
    static auto* folders = new BoundFolders;
    return *folders;
}

} // namespace

// In place of the C library's, for everybody in this process.
extern "C" __attribute__((visibility("default"))) int statvfs64(const char* path,
                                                                struct statvfs64* disk) noexcept {
    const int file = open(path, O_PATH | O_CLOEXEC);
    if (file < 0)
        return -1;
    const int result = fstatvfs64(file, disk);
    close(file);
    if (result == 0 && disk->f_frsize > 0 && Folders().Hold(path))
        disk->f_blocks = std::min<unsigned long long>(disk->f_blocks, kDisk / disk->f_frsize);
    return result;
}

namespace tallowmere {

void BoundSiteStorage(const QString& folder) {
    const std::scoped_lock lock(Folders().mutex);
    Folders().paths.push_back(QFile::encodeName(folder).toStdString());
}

} // namespace tallowmere

#else

namespace tallowmere {

void BoundSiteStorage(const QString&) {}

} // namespace tallowmere

#endif
