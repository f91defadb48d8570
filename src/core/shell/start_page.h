#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tallowmere {

/// The page that the user wants to start with.
struct StartPage {
    bool inSecondPane; ///< in `WebB`, else in `Web`
    std::string address;
};

/// Reads the value of "DefaultWeb": a letter for the pane, of which "B" means the second, and the
/// address. None when the value is empty.
std::optional<StartPage> ReadStartPage(std::string_view value);

/// The value of "DefaultWeb" for a page.
std::string StartPageValue(const StartPage& page);

} // namespace tallowmere
