#include "core/links/smart_navigate.h"

#include "core/text/bytes.h"

namespace tallowmere {

std::string CompleteEntry(std::string_view entry) {
    const std::string text(Trim(entry));
    return text.empty() || Contains(text, ".") ? text : "www." + text + ".com";
}

} // namespace tallowmere
