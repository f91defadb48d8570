#include "core/links/type_ahead.h"

#include "core/text/bytes.h"

namespace tallowmere {

namespace {

constexpr double kPause = 1;

} // namespace

bool TypeAhead::IsUnderWay(double time) const {
    // A clock that was set back ends a search too.
    return !m_typed.empty() && time >= m_time && time - m_time <= kPause;
}

std::optional<std::size_t> TypeAhead::Type(std::string_view typed, double time,
                                           std::span<const std::string> entries,
                                           std::optional<std::size_t> current) {
    const std::string key = ToLower(typed);
    const bool isUnderWay = IsUnderWay(time);
    m_time = time;
    // A letter alone, or the same one again, leads on from the entry in use; further letters may
    // leave it where it is.
    const bool leadsOn = !isUnderWay || m_typed == key;
    if (leadsOn)
        m_typed = key;
    else
        m_typed += key;
    const std::size_t first = current ? *current + (leadsOn ? 1 : 0) : 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::size_t at = (first + i) % entries.size();
        if (ToLower(std::string_view(entries[at]).substr(0, m_typed.size())) == m_typed)
            return at;
    }
    return std::nullopt;
}

} // namespace tallowmere
