#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Whether the pages that the program writes or makes, and its guide, are light or dark.
namespace tallowmere {

enum class PageScheme : std::uint8_t {
    Desktop, ///< as the desktop is
    Light,
    Dark
};

/// The colours of such pages, as the variables of their styles. Every pair of text and background
/// has a contrast above 4.5.
inline constexpr std::string_view kLightPageColors =
    "--text: #1f2328; --quiet: #57606a; --page: #ffffff; --line: #d0d7de; --head: #f0f3f6; "
    "--link: #0a58a6; --up: #14692f; --down: #b3261e; --note-text: #5c3a00; --note: #fff1d0;";
inline constexpr std::string_view kDarkPageColors =
    "--text: #e6edf3; --quiet: #a3adb8; --page: #14181d; --line: #39424d; --head: #1f252c; "
    "--link: #78b4ff; --up: #5fd080; --down: #ff8f86; --note-text: #ffe2a8; --note: #43330f;";

/// The page with a style in its head that shows it so. Colours that the page gives itself stay,
/// but for the green of quotations, which a dark page would hide.
std::string WithScheme(std::string_view page, PageScheme scheme);

} // namespace tallowmere
