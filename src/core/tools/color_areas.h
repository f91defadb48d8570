#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The areas of the main window whose colours the user may change. Colours are 0x00BBGGRR, or a
/// system colour with the top bit set.
namespace tallowmere {

/// The colour of text in a window, whatever the system makes it.
inline constexpr std::uint32_t kSystemWindowText = 0x80000008;

/// The background of an unused custom link as long as none was saved: where the colours are
/// applied, and in the custom links' own code. They differ, and stay so.
inline constexpr std::uint32_t kUnusedCustomBackground = 0xC0FFFF;
inline constexpr std::uint32_t kEditedCustomBackground = 0xC0E0FF;

struct ColorArea {
    std::string_view entry;                  ///< in the list of the colour dialog
    std::string_view code;                   ///< of the settings keys, and the tag of a link
    bool hasText;                            ///< false: the area has a background only
    std::optional<std::uint32_t> text;       ///< defaults; without one, a control keeps its
    std::optional<std::uint32_t> background; ///< designed colour while none was saved
};

/// In the order of the dialog's list.
// clang-format off
inline constexpr std::array<ColorArea, 15> kColorAreas = {{
    {"Ticker Entry Box",     "TE",   true,  kSystemWindowText, 0x80FF80},
    {"Ticker List",          "TL",   true,  0xFFFFFF,          0x800000},
    {"Portfolio Number",     "PN",   true,  0xFFFFFF,          0x000080},
    {"Refresh/Navigate",     "RN",   true,  0xC0FFFF,          0xA00000},
    {"Wizard/Site/Realtime", "WSR",  true,  kSystemWindowText, 0x80FF80},
    {"Message Boards",       "MB",   true,  kSystemWindowText, 0xFFFF80},
    {"Charting/Quotes",      "CQ",   true,  0xFFFFFF,          0x808000},
    {"News/Research",        "NR",   true,  0xFFFFFF,          0x000080},
    {"Top Link Bar",         "TLB",  true,  0x800000,          0xC0FFFF},
    {"Navigate/Search",      "NT",   true,  kSystemWindowText, 0x80FF80},
    {"Brokers",              "BRK",  true,  kSystemWindowText, 0x80FF80},
    {"Right Side Research",  "RTS",  true,  std::nullopt,      0xFFFF00},
    {"Unused <Custom>",      "CUST", true,  kSystemWindowText, kUnusedCustomBackground},
    {"Navigate Status Bar",  "WS",   true,  0xFFFFFF,          0xC00000},
    {"Window BackGround",    "Back", false, std::nullopt,      std::nullopt},
}};
// clang-format on

/// The area of a code, none for any other text.
const ColorArea* FindColorArea(std::string_view code);

/// The settings keys of an area, in section "Colors".
std::string TextColorKey(std::string_view code);
std::string BackgroundColorKey(std::string_view code);

} // namespace tallowmere
