#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace tallowmere {

/// The content of a response file of tests/data; a missing file fails the test.
inline std::string ResponseFile(const std::string& name) {
    std::ifstream file(std::string(TALLOWMERE_SOURCE_DIR "/tests/data/") + name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// 4 PM in New York on Friday, November 20, 2026.
constexpr std::int64_t kFridayClose = 1795208400;

} // namespace tallowmere
