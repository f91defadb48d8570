#pragma once

#include <cstdint>
#include <deque>
#include <optional>

namespace tallowmere {

/// How fast something grows, as of the last few seconds. Times are milliseconds of a clock that
/// never goes back.
class TransferSpeed {
public:
    /// So many bytes were there at `now`.
    void Note(std::int64_t now, std::int64_t bytes);
    /// Bytes in a second as of `now`, also when nothing has come since; none in the first half of a
    /// second.
    std::optional<double> PerSecond(std::int64_t now) const;
    /// It begins anew.
    void Forget() { m_samples.clear(); }

private:
    struct Sample {
        std::int64_t time;
        std::int64_t bytes;
    };
    std::deque<Sample> m_samples;
};

} // namespace tallowmere
