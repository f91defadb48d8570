#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallowmere {

/// A section of the user guide.
struct GuideSection {
    std::string id;    ///< the place that an address of the guide ends with
    std::string title; ///< plain text
    friend bool operator==(const GuideSection&, const GuideSection&) = default;
};

/// The sections of a page of the guide: its headings `<h2 id="ID">TITLE</h2>`, in their order. What
/// is not of that form is passed over.
std::vector<GuideSection> GuideSections(std::string_view page);

} // namespace tallowmere
