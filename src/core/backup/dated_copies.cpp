#include "core/backup/dated_copies.h"

#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <set>
#include <system_error>

namespace tallowmere {

namespace {

constexpr std::size_t kDays = 7;
constexpr std::size_t kWeeks = 4;
constexpr std::string_view kEnding = ".zip";

std::chrono::sys_days DayNumber(Date day) {
    return std::chrono::year(day.year) / day.month / day.day;
}

/// Weeks since some Monday.
long WeekOf(Date day) {
    const std::chrono::sys_days someMonday =
        std::chrono::year(2000) / 1 / 3; // all calendar days of a copy are later
    return (DayNumber(day) - someMonday).count() / 7;
}

bool IsLater(Date one, Date other) {
    return DayNumber(one) > DayNumber(other);
}

std::string Padded(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::vector<Date> CopiesIn(const std::filesystem::path& folder) {
    std::vector<Date> copies;
    std::error_code error;
    if (!std::filesystem::exists(folder, error) && !error)
        return copies;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        const std::u8string name = entry->path().filename().u8string();
        if (const auto day = DayOfCopy({reinterpret_cast<const char*>(name.data()), name.size()}))
            copies.push_back(*day);
    }
    if (error)
        throw RuntimeError("Cannot read the folder " + folder.string() + ": " + error.message());
    return copies;
}

/// A copy that cannot be read any more is as good as none.
std::optional<BackupFiles> Held(const std::filesystem::path& copy) {
    try {
        return ReadBackup(copy);
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

} // namespace

std::string CopyName(Date day) {
    return std::to_string(day.year) + '-' + Padded(day.month) + '-' + Padded(day.day) +
           std::string(kEnding);
}

std::optional<Date> DayOfCopy(std::string_view name) {
    Date day{};
    const auto read = [&](std::size_t at, std::size_t size, int& number) {
        const char* first = name.data() + at;
        return std::from_chars(first, first + size, number).ptr == first + size;
    };
    if (name.size() != 14 || !read(0, 4, day.year) || !read(5, 2, day.month) ||
        !read(8, 2, day.day) || day.month < 1 || day.day < 1 || day.year < 2001)
        return std::nullopt;
    const std::chrono::year_month_day date(std::chrono::year(day.year) / day.month / day.day);
    return date.ok() && CopyName(day) == name ? std::optional(day) : std::nullopt;
}

std::vector<Date> CopiesToRemove(std::vector<Date> copies, Date today) {
    copies.erase(
        std::remove_if(copies.begin(), copies.end(), [&](Date day) { return IsLater(day, today); }),
        copies.end());
    std::sort(copies.begin(), copies.end(), IsLater);
    std::vector<Date> going;
    std::set<long> weeks;
    for (std::size_t n = 0; n < copies.size(); ++n) {
        const long week = WeekOf(copies[n]);
        const bool isNewWeek = week != WeekOf(copies[0]) && !weeks.contains(week);
        const bool isKeptForWeek = isNewWeek && weeks.size() < kWeeks;
        if (isKeptForWeek)
            weeks.insert(week);
        if (n >= kDays && !isKeptForWeek)
            going.push_back(copies[n]);
    }
    return going;
}

std::filesystem::path CopiesFolder(const StorePlaces& places) {
    return places.programFolder / "backups";
}

CopyOutcome MakeDatedCopy(const StorePlaces& places, Date today, std::time_t time,
                          const std::function<bool()>& isWanted) {
    const BackupFiles files = ReadStores(places);
    if (!isWanted())
        return CopyOutcome::Left;
    // Each file is of one time; read twice the same, they are so together.
    if (ReadStores(places) != files)
        return CopyOutcome::Moving;
    const std::filesystem::path folder = CopiesFolder(places);
    std::vector<Date> copies = CopiesIn(folder);
    copies.erase(
        std::remove_if(copies.begin(), copies.end(), [&](Date day) { return IsLater(day, today); }),
        copies.end());
    const auto newest = std::max_element(copies.begin(), copies.end(),
                                         [](Date one, Date other) { return IsLater(other, one); });
    if (files.empty() || (newest != copies.end() && Held(folder / CopyName(*newest)) == files))
        return CopyOutcome::Same;
    if (!isWanted())
        return CopyOutcome::Left;
    std::string archive;
    try {
        archive = PackBackup(files, time, isWanted);
    } catch (const RuntimeError&) {
        if (!isWanted())
            return CopyOutcome::Left;
        throw;
    }
    WriteWholeFile(folder / CopyName(today), archive);
    for (const Date day : CopiesToRemove(CopiesIn(folder), today)) {
        std::error_code error;
        std::filesystem::remove(folder / CopyName(day), error);
        if (error)
            throw RuntimeError("Cannot delete " + (folder / CopyName(day)).string() + ": " +
                               error.message());
    }
    return CopyOutcome::Made;
}

} // namespace tallowmere
