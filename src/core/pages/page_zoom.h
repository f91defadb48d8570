#pragma once

#include <algorithm>
#include <cmath>

namespace tallowmere {

/// How much larger than it was made a page is shown: in steps of a tenth, from a quarter of its
/// size to five times, which are the limits of the engine.
class PageZoom {
public:
    PageZoom() = default;
    /// In percent; what the engine cannot do is taken for the nearest that it can.
    explicit PageZoom(int percent) : m_factor(std::clamp(percent / 100.0, kMinimum, kMaximum)) {}

    double Factor() const { return m_factor; }
    /// The nearest whole percent.
    int Percent() const { return static_cast<int>(std::lround(m_factor * 100)); }
    void In() { Set(m_factor * kStep); }
    void Out() { Set(m_factor / kStep); }
    void Reset() { m_factor = 1; }

    /// Whether a page can be shown so.
    static bool IsPossible(int percent) {
        return percent >= kMinimum * 100 && percent <= kMaximum * 100;
    }

private:
    static constexpr double kStep = 1.1;
    static constexpr double kMinimum = 0.25;
    static constexpr double kMaximum = 5;
    static constexpr double kNearUsual = 0.02; ///< less than half a step

    // Percents are rounded where they are kept; the steps lead back to the usual size all the same.
    void Set(double factor) {
        m_factor = std::abs(factor - 1) < kNearUsual ? 1 : std::clamp(factor, kMinimum, kMaximum);
    }

    double m_factor = 1;
};

} // namespace tallowmere
