#pragma once

#include "core/text/toml.h"

#include <string>
#include <string_view>
#include <vector>

/// Tables that people edit by hand, read so that one slip costs one row.
namespace tallowmere {

/// What of a file could be read, and what is wrong with the rest.
struct TolerantToml {
    toml::table root;
    std::vector<std::string> problems; ///< each "<fileName>:<line>: <what is wrong>"
    std::string fileName;

    /// Notes that the value `node` is wrong.
    void Complain(const toml::node& node, std::string_view what);
};

/// Reads a text of TOML. A line that is no TOML is noted and left out; a text with more than a few
/// such lines, or a huge one, is left out whole.
TolerantToml ReadTolerantly(std::string_view text, std::string_view fileName);

} // namespace tallowmere
