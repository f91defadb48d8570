#include "core/market/timers.h"

namespace tallowmere {

namespace {

constexpr int kTicksPerRefresh = 5;
constexpr int kRightEdge = 300;
constexpr int kLeftEdge = 90;

constexpr std::array<ClubPage, kClubPageCount> kClubPages{{
    {"/members/quickbites.shtml", 58},
    {"/members/alacarte.shtml", 59},
    {"/members/maincourse.shtml", 60},
}};

} // namespace

bool RefreshCounter::Tick() {
    m_ticks = (m_ticks + 1) % kTicksPerRefresh;
    return m_ticks == 0;
}

const std::array<ClubPage, kClubPageCount>& ClubPages() {
    return kClubPages;
}

bool ClubWatch::Take(std::size_t page, std::string body) {
    std::optional<std::string>& before = m_bodies[page];
    const bool changed = before && *before != body;
    before = std::move(body);
    return changed;
}

Edge EdgeAt(int x, int width) {
    if (x > width - kRightEdge)
        return Edge::Right;
    return x < kLeftEdge ? Edge::Left : Edge::None;
}

EdgeTick OnEdgeTick(bool held, bool activeEdges) {
    if (held)
        return EdgeTick::KeepRunning;
    return activeEdges ? EdgeTick::HideAndStop : EdgeTick::Stop;
}

} // namespace tallowmere
