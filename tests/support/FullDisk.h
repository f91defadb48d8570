#pragma once

#include <csignal>
#include <cstddef>
#include <sys/resource.h>

namespace tallowmere {

/// While it lives no file of this process grows beyond a size in bytes, as if the disk were full.
class FullDisk {
public:
    explicit FullDisk(std::size_t size) {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{size, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
};

} // namespace tallowmere
