#include "core/pages/transfer_speed.h"

#include <algorithm>
#include <iterator>

namespace tallowmere {

namespace {

constexpr std::int64_t kWindow = 5000;
constexpr std::int64_t kSoonest = 500;
constexpr double kMillisecondsInSecond = 1000;

} // namespace

void TransferSpeed::Note(std::int64_t now, std::int64_t bytes) {
    // Fewer bytes than before: it begins anew.
    if (!m_samples.empty() && bytes < m_samples.back().bytes)
        m_samples.clear();
    m_samples.push_back({now, bytes});
    // One sample from before the window stays: it says what was there when the window opened.
    while (m_samples.size() > 2 && m_samples[1].time <= now - kWindow)
        m_samples.pop_front();
}

std::optional<double> TransferSpeed::PerSecond(std::int64_t now) const {
    if (m_samples.empty())
        return std::nullopt;
    auto first = m_samples.begin();
    while (std::next(first) != m_samples.end() && std::next(first)->time <= now - kWindow)
        ++first;
    // Nothing has come for as long as the window is.
    if (first->time <= now - kWindow && std::next(first) == m_samples.end())
        return 0.0;
    const std::int64_t elapsed = now - first->time;
    if (elapsed < kSoonest)
        return std::nullopt;
    return kMillisecondsInSecond * static_cast<double>(m_samples.back().bytes - first->bytes) /
           static_cast<double>(elapsed);
}

} // namespace tallowmere
