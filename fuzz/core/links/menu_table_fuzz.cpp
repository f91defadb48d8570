#include "core/links/menu_table.h"

#include "core/links/web_address.h"
#include "core/text/runtime_error.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// A file is read or refused with its name; what is read holds web addresses only.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tallowmere;
    try {
        const MenuTable menus =
            MenuTable::Parse({reinterpret_cast<const char*>(data), size}, "menus.toml");
        for (const auto& [item, address] : menus.All()) {
            if (item.second < 0 || !IsWebAddress(address) ||
                menus.Address(item.first, item.second) != address)
                std::abort();
        }
    } catch (const RuntimeError& error) {
        if (!std::string_view(error.what()).starts_with("menus.toml:"))
            std::abort();
    }
    return 0;
}
