#pragma once

#include <cstdint>
#include <deque>

/// How often a page may speak to the user.
namespace tallowmere {

/// What becomes of a page's wish to show something or to ask something.
enum class Hearing {
    Shown,
    ShownWithOffer, ///< and the user may say that nothing more shall come from this page
    Stopped,        ///< the page wants too much: it is stopped
    Refused         ///< answered with no, and nothing is shown
};

/// Counts what one page shows and asks: the second is shown with an offer of silence, the fifth
/// within ten seconds stops the page.
class PageTalk {
public:
    /// The page wants to show or ask something, at a time in milliseconds.
    Hearing Hear(std::int64_t now);
    /// The user wants no more from this page.
    void Silence() { m_isSilenced = true; }
    /// Whether the page is not heard any more.
    bool IsSilenced() const { return m_isSilenced; }
    /// Another page is there, or the user wants to hear this one again.
    void Forget() { *this = {}; }

private:
    std::deque<std::int64_t> m_latest;
    bool m_hasSpoken = false;
    bool m_isSilenced = false;
};

/// Counts what a page wants to save without the user having done anything on it: one is asked
/// about, the others are refused.
class PageDownloads {
public:
    /// The user clicked or pressed a key on the page: what it saves next may be the user's wish.
    void NoteUser() { m_isUsers = true; }
    /// Whether the user is to be asked about a download that the page starts now.
    bool MayAsk();
    /// Another page is there.
    void Forget() { *this = {}; }

private:
    bool m_isUsers = false;
    bool m_hasAsked = false;
};

} // namespace tallowmere
