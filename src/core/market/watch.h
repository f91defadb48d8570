#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The rules of a watch window, which reloads one page over and over.
namespace tallowmere {

/// A window is never smaller than this, in twips.
constexpr int kWatchMinimumWidth = 4400;
constexpr int kWatchMinimumHeight = 1600;

constexpr std::string_view kDefaultWatchSeconds = "60";

/// What is watched: the caption of a window without its ending, and the address.
struct WatchTarget {
    std::string caption;
    std::string address;
};

/// Splits "caption|address" at its first bar; a text without one is an address.
WatchTarget SplitWatchTarget(std::string_view target);

/// The text that splits into these two; a bar in the caption becomes a blank.
std::string JoinWatchTarget(std::string_view caption, std::string_view address);

/// The caption of the window.
std::string WatchCaption(const WatchTarget& target);

/// Whether the seconds box takes a key of this character code: digits, backspace and tab.
bool IsSecondsKey(int code);

/// The whole number at the start of the seconds box, 0 when there is none. It is at most half a
/// day, so that a wait over midnight can be told from one that has not begun.
int WatchSeconds(std::string_view text);

/// What the seconds box shows once it has lost the focus: a value below 30 becomes "30".
std::string SettledSeconds(std::string_view text);

/// How long a wait of `seconds` that began at the clock `noted` still lasts at `now`, in seconds,
/// 0 when it is over. Clocks are in seconds since midnight; one behind the noted time is the next
/// day's, so that the wait ends.
double RemainingWait(double noted, int seconds, double now);

/// Whether a clock that shows `secondsSince` since a wait began, negative before it, was set back:
/// it is more than an hour behind. Up to an hour is what the change to winter time brings along.
bool IsSetBack(double secondsSince);

/// The least step of a cascade that no open window stands on.
int FreeStep(const std::vector<int>& taken);

} // namespace tallowmere
