#include "core/market/watch.h"

#include "core/text/bytes.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr double kSecondsPerDay = 86400;
constexpr double kSecondsPerHour = 3600;
constexpr int kLongestWait = 43200;
constexpr int kShortestWait = 30;

} // namespace

WatchTarget SplitWatchTarget(std::string_view target) {
    Cursor cursor(target);
    std::string_view caption;
    cursor.ReadUpTo("|", caption);
    return {std::string(caption), std::string(cursor.Rest())};
}

std::string JoinWatchTarget(std::string_view caption, std::string_view address) {
    return ReplaceAll(caption, "|", " ") + "|" + std::string(address);
}

std::string WatchCaption(const WatchTarget& target) {
    return target.caption + " - Watch Wizard";
}

bool IsSecondsKey(int code) {
    return (code >= '0' && code <= '9') || code == 8 || code == 9;
}

int WatchSeconds(std::string_view text) {
    int seconds = 0;
    for (const char c : Trim(text)) {
        if (c < '0' || c > '9')
            break;
        seconds = std::min(seconds * 10 + (c - '0'), kLongestWait);
    }
    return seconds;
}

std::string SettledSeconds(std::string_view text) {
    return WatchSeconds(text) < kShortestWait ? std::to_string(kShortestWait) : std::string(text);
}

double RemainingWait(double noted, int seconds, double now) {
    const double elapsed = now < noted ? now - noted + kSecondsPerDay : now - noted;
    return std::max(0.0, seconds + 1 - elapsed);
}

bool IsSetBack(double secondsSince) {
    return secondsSince < -kSecondsPerHour;
}

int FreeStep(const std::vector<int>& taken) {
    int step = 0;
    while (std::ranges::find(taken, step) != taken.end())
        ++step;
    return step;
}

} // namespace tallowmere
