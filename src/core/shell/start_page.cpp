#include "core/shell/start_page.h"

namespace tallowmere {

std::optional<StartPage> ReadStartPage(std::string_view value) {
    if (value.empty())
        return std::nullopt;
    return StartPage{value.front() == 'B', std::string(value.substr(1))};
}

std::string StartPageValue(const StartPage& page) {
    return (page.inSecondPane ? "B" : "A") + page.address;
}

} // namespace tallowmere
