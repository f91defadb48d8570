#pragma once

#include <filesystem>
#include <random>
#include <string>

namespace tallowmere {

/// A fresh folder that is deleted with everything in it.
class TemporaryFolder {
public:
    explicit TemporaryFolder(
        const std::filesystem::path& where = std::filesystem::temp_directory_path())
        : m_path(where / ("tallowmere-test-" + std::to_string(std::random_device{}()))) {
        std::filesystem::create_directory(m_path);
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(m_path, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

} // namespace tallowmere
