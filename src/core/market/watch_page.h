#pragma once

#include <string>
#include <string_view>

namespace tallowmere {

/// What is known of a watched page when it is saved to a file.
struct WatchedPage {
    std::string_view caption;
    std::string_view address;
    std::string_view time; ///< when it was loaded, as it is to be shown
    std::string_view text;
};

/// A watched page as an HTML document of its own: its text with time and address.
std::string WatchDocument(const WatchedPage& page);

} // namespace tallowmere
