#pragma once

#include "core/links/address.h"
#include "core/links/catalogue.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// Multi-links: several recorded pages on one page, one frame below another.
namespace tallowmere {

constexpr std::string_view kMultiLinkHead =
    R"(<html><head><title></title></head><body topmargin="0" leftmargin="0">)";
constexpr std::string_view kMultiLinkTail = "</body></html>";

/// In front of the name of a page file where a custom link has its address.
constexpr std::string_view kMultiLinkPrefix = "MULTILINK:";
constexpr std::string_view kMultiLinkSuffix = ".mlnk";

/// The page in the program folder in which a multi-link is shown.
constexpr std::string_view kDisplayPage = "multiweb.html";

constexpr std::string_view kMultiLinkTitleMissing =
    "Enter a title before using the Multi-Link feature.";
constexpr std::string_view kMultiLinkTitleInvalid =
    "You have entered an invald Title for a Multi-Link.  Please enter a new title using only "
    "alphanumeric characters.";

/// The message for a title that has a page file already.
std::string MultiLinkExists(std::string_view title);

/// Whether the address of a custom link stands for a multi-link.
bool IsMultiLink(std::string_view customAddress);

/// The name of the page file of a title; none when a file of that name could lie elsewhere than in
/// the program folder or be a device of some system.
std::optional<std::string> MultiLinkPageName(std::string_view title);

/// The name of the page file in the address of a custom link; none when the address is no
/// multi-link or the name is none that MultiLinkPageName gives.
std::optional<std::string> StoredPageName(std::string_view customAddress);

/// Whether a link can be clicked while a multi-link is recorded. `customAddress` is the address of
/// one of the user's own links, `enabledBefore` how the link stood until then.
bool IsRecordable(int index, Area tag, std::string_view customAddress, bool enabledBefore);

/// A page with its placeholders filled in, in one walk: what is put in is not searched again.
std::string ExpandMultiLink(std::string_view page, const TickerForms& forms);

/// The addresses of a page in the order of its frames.
std::vector<std::string> RecordedAddresses(std::string_view page);

/// A page that is being recorded without its last frame; the same page when it has none.
std::string WithoutLastFrame(std::string_view page);

/// What is said while a multi-link is recorded, of so many pages.
std::string RecordingLine(std::size_t pages);

/// Which cells of a multi-link are live once those from `first` to `last` are in view: these and
/// those that were, but of the latter those farthest from view go while there are more than `most`.
std::set<std::size_t> LiveCells(std::set<std::size_t> live, std::size_t first, std::size_t last,
                                std::size_t most);

} // namespace tallowmere
