#pragma once

#include <algorithm>

namespace tallowmere {

/// How much larger than it was made a page is shown: in steps of a tenth, from a quarter of its
/// size to five times, which are the limits of the engine.
class PageZoom {
public:
    double Factor() const { return m_factor; }
    void In() { m_factor = std::min(m_factor * kStep, kMaximum); }
    void Out() { m_factor = std::max(m_factor / kStep, kMinimum); }
    void Reset() { m_factor = 1; }

private:
    static constexpr double kStep = 1.1;
    static constexpr double kMinimum = 0.25;
    static constexpr double kMaximum = 5;

    double m_factor = 1;
};

} // namespace tallowmere
