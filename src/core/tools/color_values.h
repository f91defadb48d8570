#pragma once

#include <cstdint>
#include <optional>

/// What a stored colour means: 0x00BBGGRR, or a system colour 0x80000000 + n.
namespace tallowmere {

/// The system colours by their number.
enum class SystemColor : std::uint8_t {
    ScrollBar,
    Desktop,
    ActiveCaption,
    InactiveCaption,
    Menu,
    Window,
    WindowFrame,
    MenuText,
    WindowText,
    CaptionText,
    ActiveBorder,
    InactiveBorder,
    Workspace,
    Highlight,
    HighlightText,
    ButtonFace,
    ButtonShadow,
    GrayText,
    ButtonText,
    InactiveCaptionText,
    ButtonHighlight,
    DarkShadow,
    Light,
    InfoText,
    InfoBackground
};

/// Whether the colour is one of the system's.
constexpr bool IsSystemColor(std::uint32_t color) {
    return (color & 0x80000000U) != 0;
}

/// The system colour that a colour names; window text for a number that the system does not have.
/// None for a colour of red, green and blue.
std::optional<SystemColor> ToSystemColor(std::uint32_t color);

/// The contrast of two colours of red, green and blue, from 1 (none) to 21 (black and white), by
/// the formula of the web's accessibility guidelines.
double Contrast(std::uint32_t one, std::uint32_t other);

/// The least contrast at which text is easily read.
constexpr double kLegibleContrast = 4.5;

/// `text` when it is legible on `background`, else black or white, whichever is more so. For text
/// in a system colour on a background of the user's, which a dark desktop would make unreadable.
std::uint32_t LegibleText(std::uint32_t text, std::uint32_t background);

} // namespace tallowmere
