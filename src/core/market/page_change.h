#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What changed in the text of a watched page between two loads.
namespace tallowmere {

inline constexpr std::size_t kMostComparedText = 1 << 20; ///< in bytes; what follows is left out
/// Of two texts that differ in more places than a table of this many cells holds, all between
/// their common start and end counts as changed.
inline constexpr std::size_t kMostComparedCells = 4'000'000;

/// The lines of a text as they are compared: one blank for several, none at the ends, nothing that
/// is not seen, and no empty lines. Any bytes will do.
std::vector<std::string> ComparedLines(std::string_view text);

/// A line that came or went.
struct ChangedLine {
    bool isNew;
    std::string text;
    friend bool operator==(const ChangedLine&, const ChangedLine&) = default;
};

/// The lines that have to come and go to make the one text of the other, the fewest possible, in
/// order; what goes stands before what comes in its place. None for texts that are the same.
std::vector<ChangedLine> ChangedLines(const std::vector<std::string>& before,
                                      const std::vector<std::string>& now);

/// How much changed: "2 lines are new, 1 is gone".
std::string ChangeWords(const std::vector<ChangedLine>& lines);

} // namespace tallowmere
