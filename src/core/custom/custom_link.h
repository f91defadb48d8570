#pragma once

#include "core/links/catalogue.h"
#include "core/shell/settings_store.h"
#include "core/tools/color_config.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// The seventy links of the user's own: what the store holds of each, and the rules of the editor.
namespace tallowmere {

struct CustomLinkRecord {
    std::string address; ///< as typed, or "MULTILINK:" and the name of a page file
    std::string title{kEmptyCustomCaption};
    ColorPair colors; ///< 0: not set, the label keeps what it shows
};

constexpr std::size_t kLongestTitle = 12; ///< in characters
constexpr std::uint32_t kNearBlack = 0x010101;

/// Items of the menu `mnuCustom`, from index 1 on; "-" is a separator.
inline constexpr std::array<std::string_view, 7> kCustomMenu{
    "Open", "Open in New Window", "Properties", "Reset", "-", "Copy Colors", "Paste Colors"};

constexpr std::string_view kEditorCaption = "Custom Link Properties";
constexpr std::string_view kCustomLinkCaption = "Custom Link";
constexpr std::string_view kTitleMissing = "Enter a title before saving.";
constexpr std::string_view kMoveLinkCaption = "Move Custom Link";

// clang-format off
constexpr std::string_view kCustomLinkHelp =
    "Enter a Title for the link (up to 12 char in length).  Enter the full URL for the link.  "
    "If the link should contain the current stock symbol selected in your portfolio, replace the "
    "symbol(s) in the URL with UCASETICK for an upper case symbol and LCASETICK for a lower case "
    "symbol.  When you click your custom link, the UCASETICK and/or LCASETICK will be replaced "
    "with the symbol you have selected in your portfolio.";
constexpr std::string_view kMultiLinkHelp =
    "To create a 'Multi Link',  enter a title for the link and then click the Multi Link button "
    "to begin selecting the links you wish to include in your Multi Link.  Once you have selected "
    "the links, click the blinking ML button to to finish.  See the Help page for further detail "
    "on MultiLinks.";
// clang-format on

/// The question before a link is dropped on a slot that is in use.
std::string OverwriteQuestion(std::string_view caption);

/// What the user is told of a link that a command removed.
std::string LinkRemoved(std::string_view caption);

/// Whether a slot with this caption is unused.
constexpr bool IsUnusedSlot(std::string_view caption) {
    return caption == kEmptyCustomCaption;
}

/// A title cut to the longest that the editor takes, counted in characters of UTF-8.
std::string_view CutTitle(std::string_view title);

/// Whether the editor saves: there is a title, and an unused slot has no address.
bool MaySaveCustomLink(std::string_view title, std::string_view address);

/// The colours with black made the darkest colour that can be stored.
ColorPair StorableColors(ColorPair colors);

/// What a label shows in `shown` after a record's colours were put on it: those that are set.
ColorPair ColorsOver(ColorPair shown, ColorPair record);

/// The colours of unused slots and of links without colours of their own.
ColorPair CustomAreaColors(const SettingsStore& settings);

/// The record of a slot (101 to 170). A colour that cannot be read counts as not set.
CustomLinkRecord LoadCustomLink(const SettingsStore& settings, int slot);

/// Writes the record of a slot with storable colours.
void SaveCustomLink(SettingsStore& settings, int slot, const CustomLinkRecord& record);

/// Writes only the colours of a slot, as they are.
void SaveLinkColors(SettingsStore& settings, int slot, ColorPair colors);

/// In how many columns the pages of a slot's multi-link are laid out, 1 to kMostTileColumns; 0 when
/// all are on one page, as also when the stored number is none of these.
int LoadColumns(const SettingsStore& settings, int slot);

/// Writes that number; 0 takes it out of the store.
void SaveColumns(SettingsStore& settings, int slot, int columns);

/// Empties a slot: no address, the caption of an unused slot and the area's colours written out.
void ResetCustomLink(SettingsStore& settings, int slot);

/// Moves a record as it lies in the store to another slot and empties its own. Nothing happens when
/// both are the same or one is no slot of the user's.
void MoveCustomLink(SettingsStore& settings, int from, int to);

} // namespace tallowmere
