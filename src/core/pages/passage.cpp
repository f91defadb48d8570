#include "core/pages/passage.h"

namespace tallowmere {

Passage PassageOf(std::string_view scheme, const Traveller& traveller) {
    if (scheme == "http" || scheme == "https" || scheme == "portal" || scheme == "about")
        return Passage::Shown;
    // They hold no more than the page could write into the frame itself.
    if (!traveller.isMainFrame && (scheme == "data" || scheme == "blob"))
        return Passage::Shown;
    return scheme == "mailto" && traveller.isLinkOfTheUser ? Passage::Mail : Passage::Refused;
}

} // namespace tallowmere
