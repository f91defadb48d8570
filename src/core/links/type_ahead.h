#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tallowmere {

/// Finds the entries of a list by what is typed: the next entry that begins with it. Letters typed
/// within a second of each other belong together.
class TypeAhead {
public:
    /// Takes what a key typed at `time` (in seconds) and gives the entry that it leads to, case
    /// apart; none when no entry begins so. `current`
    /// is the entry in use, if any. The same letter again leads to the next entry with it.
    std::optional<std::size_t> Type(std::string_view typed, double time,
                                    std::span<const std::string> entries,
                                    std::optional<std::size_t> current);

    /// Whether what is typed at `time` goes on with a search.
    bool IsUnderWay(double time) const;

private:
    std::string m_typed;
    double m_time = 0;
};

} // namespace tallowmere
