#include "core/tools/engine_age.h"

#include <charconv>
#include <chrono>

namespace tallowmere {

namespace {

// Version 140 came out on 2 September 2025. Four weeks lie between two versions, some more over
// holidays.
constexpr int kKnownVersion = 140;
constexpr std::chrono::year_month_day kKnownRelease{std::chrono::year{2025}, std::chrono::September,
                                                    std::chrono::day{2}};
constexpr std::chrono::days kBetweenVersions{30};
constexpr std::chrono::days kOldAge{182};

} // namespace

bool IsOldEngine(std::string_view patchVersion, Date today) {
    int version = 0;
    const auto [end, error] =
        std::from_chars(patchVersion.data(), patchVersion.data() + patchVersion.size(), version);
    if (error != std::errc{} || version <= 0)
        return true;
    const std::chrono::sys_days day = std::chrono::year_month_day{
        std::chrono::year{today.year}, std::chrono::month{static_cast<unsigned>(today.month)},
        std::chrono::day{static_cast<unsigned>(today.day)}};
    const auto release =
        std::chrono::sys_days{kKnownRelease} + (version - kKnownVersion) * kBetweenVersions;
    return day - release >= kOldAge;
}

std::string OldEngineLine(std::string_view patchVersion, std::string_view dismissedVersion,
                          Date today) {
    if (patchVersion == dismissedVersion || !IsOldEngine(patchVersion, today))
        return {};
    return "The web engine is old: patched up to " + std::string(patchVersion) + ".";
}

} // namespace tallowmere
