#include "core/links/link_areas.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

// What is used most stands first; links to the same site or of the same kind stand together.
// clang-format off
constexpr std::int16_t kSites[]     = { 69,  49,  97,  54,  25,  31,  78,  73,  36,  17,   5,  40,  22,
                                       171, 180, 193,  24,  65,  50,  18,  63,  58,  59,  60,  51};
constexpr std::int16_t kBrowser[]   = { 19,  20, 100,   0,  43};
constexpr std::int16_t kSearch[]    = { 80,  81,  93, 189};
constexpr std::int16_t kWizard[]    = { 61,  28,  27, 211,  30, 187, 190};
constexpr std::int16_t kCharts[]    = {  3,  47, 177,  95,   6, 175,   4,  62,  39, 210, 172,  94,  99,
                                        56,  98,  32, 197, 185,  86, 188,  96,  34,  26, 181, 182,  42,
                                        70,  67,  64, 192, 173, 174, 176, 178,  55, 179,  82, 198, 216};
constexpr std::int16_t kBoards[]    = {  1,  71,   2,  21,  68,  91, 183, 194,  79};
constexpr std::int16_t kNews[]      = { 38,  33,  13,  14,  15,  16,  29,  35,  75,  77,  74,  37,  76,
                                       191,  57, 195, 196, 214, 212, 215, 207};
constexpr std::int16_t kMarket[]    = {217,  48, 213, 209, 200, 199, 205, 204, 203, 201, 206, 202, 208,
                                         7,  23,  46,  44,  84,  83,  53,  85, 184,  41,  72};
constexpr std::int16_t kBrokers[]   = {  8,   9,  10,  11,  12,  52,  87,  88,  90,  89};
constexpr std::int16_t kTools[]     = { 66,  45,  92, 186};
// clang-format on

constexpr auto kOwn = [] {
    std::array<std::int16_t, kLastCustom - kFirstCustom + 1> slots{};
    for (std::size_t i = 0; i < slots.size(); ++i)
        slots[i] = static_cast<std::int16_t>(kFirstCustom + static_cast<int>(i));
    return slots;
}();

// clang-format off
constexpr LinkGroup kGroups[] = {
    {PanelSide::Top,   "Sites",                  kSites},
    {PanelSide::Left,  "Navigate",               kBrowser},
    {PanelSide::Left,  "Search",                 kSearch},
    {PanelSide::Left,  "Wizard, Site, Realtime", kWizard},
    {PanelSide::Left,  "Charts & Quotes",        kCharts},
    {PanelSide::Left,  "Message Boards",         kBoards},
    {PanelSide::Left,  "News & Research",        kNews},
    {PanelSide::Right, "Market",                 kMarket},
    {PanelSide::Right, "Brokers",                kBrokers},
    {PanelSide::Right, "Tools",                  kTools},
    {PanelSide::Right, "My Links",               kOwn},
};
// clang-format on

} // namespace

std::span<const LinkGroup> LinkGroups() {
    return kGroups;
}

std::optional<int> NeighbourOf(int link, int by, const std::function<bool(int)>& canOpen) {
    for (const LinkGroup& group : LinkGroups()) {
        const auto at = std::ranges::find(group.indexes, link);
        if (at == group.indexes.end())
            continue;
        const auto count = static_cast<std::ptrdiff_t>(group.indexes.size());
        for (auto next = at - group.indexes.begin() + by; next >= 0 && next < count; next += by)
            if (canOpen(group.indexes[static_cast<std::size_t>(next)]))
                return group.indexes[static_cast<std::size_t>(next)];
    }
    return std::nullopt;
}

} // namespace tallowmere
