#include "core/market/index_strip.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

// Every panel begins with its label and holds no more than the page does.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view page(reinterpret_cast<const char*>(data), size);
    const auto panels = tallowmere::ReadIndexPage(page);
    const auto& table = tallowmere::IndexTable();
    if (panels.size() > table.size())
        std::abort();
    for (std::size_t i = 0; i < panels.size(); ++i) {
        const std::string_view label = table[i].label;
        if (panels[i].substr(0, label.size()) != label ||
            panels[i].size() > label.size() + 1 + page.size())
            std::abort();
    }
    for (const auto& row : table)
        if (tallowmere::ReadIndexNote(page, row).size() > page.size() ||
            tallowmere::ReadIndexAge(page, row).size() > page.size())
            std::abort();
    return 0;
}
