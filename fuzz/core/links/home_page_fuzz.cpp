#include "core/links/portfolio_address.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// An address is only ever found on a page with the caption, and never holds a quote mark.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view page(reinterpret_cast<const char*>(data), size);
    const std::string address = tallowmere::FindHomePage(page);
    const bool named = page.find(">Home Page</a>") != std::string_view::npos;
    if ((!address.empty() && !named) || address.find_first_of("\">") != std::string::npos)
        std::abort();
    return 0;
}
