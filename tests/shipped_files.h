#pragma once

#include "core/sites/site_table.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace tallowmere {

/// The content of a file that ships beside the program; a missing file fails the test.
inline std::string ShippedFile(const std::string& name) {
    std::ifstream file(std::string(TALLOWMERE_SOURCE_DIR "/data/") + name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

inline SiteTable ShippedSites() {
    return SiteTable::Parse(ShippedFile("sites.toml"), "sites.toml");
}

} // namespace tallowmere
