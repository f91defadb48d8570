#pragma once

#include <string_view>

/// Where a page may lead.
namespace tallowmere {

/// Who wants to go somewhere.
struct Traveller {
    bool isMainFrame = true;      ///< else one of the frames of a page
    bool isLinkOfTheUser = false; ///< the user clicked this link; no script, form or redirect
};

/// What becomes of it.
enum class Passage {
    Shown,  ///< the pane shows it
    Mail,   ///< the user is asked whether to write this mail
    Refused ///< nothing is shown and nothing is started
};

/// The one rule for pages, frames, windows of their own, forms and scripts, by the scheme (lower
/// case, without its colon) of the address. No page starts a program. Frames may hold besides what
/// the engine itself makes of the page's own text.
Passage PassageOf(std::string_view scheme, const Traveller& traveller);

} // namespace tallowmere
