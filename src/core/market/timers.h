#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// What the timers of the main window decide; intervals are in milliseconds.
namespace tallowmere {

constexpr int kFirstIndexTick = 1000;   ///< `Timer1`, from the start to its first tick
constexpr int kFirstClubInterval = 1;   ///< `Timer2`, before its first tick
constexpr int kClubInterval = 60000;    ///< `Timer2`, from then on
constexpr int kRefreshInterval = 60000; ///< `Timer3`
constexpr int kBlinkInterval = 500;     ///< `Timer4`
constexpr int kEdgeInterval = 3000;     ///< `timAE`

/// The label whose width the first tick of `Timer2` sets, and that width in twips.
constexpr int kAlertsLink = 51;
constexpr int kAlertsWidth = 795;

/// The label that `Timer4` lets blink.
constexpr int kBlinkingLink = 211;

/// The colours that mark the label of a club page that has changed.
constexpr std::uint32_t kChangedBackground = 0xC0FFC0;
constexpr std::uint32_t kChangedText = 0;

/// Counts the ticks of `Timer3`.
class RefreshCounter {
public:
    /// Counts one tick; true on every fifth, when the page is to be reloaded.
    bool Tick();

private:
    int m_ticks = 0;
};

/// A page of the club that `Timer2` watches, and the label that it marks.
struct ClubPage {
    std::string_view path;
    int link;
};

constexpr int kClubPageCount = 3;

/// The watched pages, in the order in which they are fetched.
const std::array<ClubPage, kClubPageCount>& ClubPages();

/// What `Timer2` saw of the pages before.
class ClubWatch {
public:
    /// Takes the body that was fetched for a page (0 to 2). True when it differs from the one
    /// before, so that the label is to be marked; the first body of a page never does.
    bool Take(std::size_t page, std::string body);

private:
    std::array<std::optional<std::string>, kClubPageCount> m_bodies;
};

/// The side of the window that active edges show.
enum class Edge : std::uint8_t { None, Left, Right };

/// The side that a pointer at `x` shows, with the width of the window; both in twips.
Edge EdgeAt(int x, int width);

/// What a tick of `timAE` does.
enum class EdgeTick : std::uint8_t { KeepRunning, Stop, HideAndStop };

/// The decision of a tick: nothing while the panels are held; otherwise the timer stops, and with
/// active edges the panels are hidden.
EdgeTick OnEdgeTick(bool held, bool activeEdges);

} // namespace tallowmere
