#include "core/pages/page_talk.h"

#include <cstddef>
#include <utility>

namespace tallowmere {

namespace {

constexpr std::size_t kTooMany = 5;
constexpr std::int64_t kWithin = 10'000; // milliseconds

} // namespace

Hearing PageTalk::Hear(std::int64_t now) {
    if (m_isSilenced)
        return Hearing::Refused;
    m_latest.push_back(now);
    if (m_latest.size() > kTooMany)
        m_latest.pop_front();
    if (m_latest.size() == kTooMany && now - m_latest.front() <= kWithin) {
        Silence();
        return Hearing::Stopped;
    }
    return std::exchange(m_hasSpoken, true) ? Hearing::ShownWithOffer : Hearing::Shown;
}

bool PageDownloads::MayAsk() {
    if (std::exchange(m_isUsers, false))
        return true;
    return !std::exchange(m_hasAsked, true);
}

} // namespace tallowmere
