#pragma once

#include "core/backup/backup_files.h"
#include "core/text/date.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The copies of all stores that the program makes by itself: one a day at the most, in a folder
/// of their own, named after their days.
namespace tallowmere {

/// The name of the copy of a day, "2026-11-21.zip".
std::string CopyName(Date day);

/// The day of such a name, none for any other.
std::optional<Date> DayOfCopy(std::string_view name);

/// Which of the copies go: all but those of the last seven days that have one, and the last one of
/// each of the last four weeks before that of the newest. Weeks begin on Monday. Days and weeks
/// without a copy do not count, so that nobody comes back from a long absence to find them gone;
/// copies of days to come, from a clock that went wrong, are left alone and do not count either.
std::vector<Date> CopiesToRemove(std::vector<Date> copies, Date today);

/// Where the copies lie.
std::filesystem::path CopiesFolder(const StorePlaces& places);

enum class CopyOutcome {
    Made,
    Same,   ///< the newest copy holds the same
    Moving, ///< a store was written meanwhile: to be tried again
    Left    ///< `isWanted` said no
};

/// Makes the copy of the day, in the place of an earlier one of that day, when the stores hold
/// something else than the newest copy, and removes those that go. Throws RuntimeError when that
/// cannot be done. May run beside the program; asks `isWanted` between its steps.
CopyOutcome MakeDatedCopy(const StorePlaces& places, Date today, std::time_t time,
                          const std::function<bool()>& isWanted);

} // namespace tallowmere
