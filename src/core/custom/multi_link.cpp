#include "core/custom/multi_link.h"

#include "core/text/bytes.h"
#include "core/text/rare_byte_search.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

constexpr std::string_view kFrameStart =
    R"(<IFRAME height="100%" width="100%" SCROLLING=Yes SRC=")";
constexpr std::string_view kFrameEnd = R"("></IFRAME>)";

// Names that Windows gives to devices, in any folder and with any ending. They are refused
// everywhere, so that a profile can be carried from one system to another.
constexpr std::array<std::string_view, 6> kDevices{"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
constexpr std::array<std::string_view, 2> kNumberedDevices{"COM", "LPT"};
constexpr std::array<std::string_view, 13> kDeviceNumbers{
    "0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};

bool IsDevice(std::string_view name) {
    const std::string stem = ToUpper(Trim(name.substr(0, name.find('.'))));
    if (std::ranges::find(kDevices, stem) != kDevices.end())
        return true;
    return std::ranges::any_of(kNumberedDevices, [&](std::string_view device) {
        return stem.starts_with(device) &&
               std::ranges::find(kDeviceNumbers, stem.substr(device.size())) !=
                   kDeviceNumbers.end();
    });
}

/// Whether a file of this name lies in the folder that it is put behind, on every system.
bool StaysInFolder(std::string_view name) {
    const bool hasDrive = name.size() > 1 && name[1] == ':';
    return !name.empty() && name != "." && name != ".." && !hasDrive && !IsDevice(name) &&
           name.find_first_of(std::string_view("/\\\0", 3)) == std::string_view::npos;
}

constexpr std::string_view kCased = "CASETICK"; // behind "L" or "U"
constexpr std::string_view kFirst = "LEFTONE";

} // namespace

std::string MultiLinkExists(std::string_view title) {
    return "A custom Multi-Link with the title '" + std::string(title) +
           " ' already exists, please enter another title.";
}

bool IsMultiLink(std::string_view customAddress) {
    return Contains(customAddress, kMultiLinkPrefix);
}

std::optional<std::string> MultiLinkPageName(std::string_view title) {
    if (!StaysInFolder(title))
        return std::nullopt;
    return std::string(title).append(kMultiLinkSuffix);
}

std::optional<std::string> StoredPageName(std::string_view customAddress) {
    if (!IsMultiLink(customAddress))
        return std::nullopt;
    const std::string_view name = customAddress.substr(kMultiLinkPrefix.size());
    if (!name.ends_with(kMultiLinkSuffix))
        return std::nullopt;
    return MultiLinkPageName(name.substr(0, name.size() - kMultiLinkSuffix.size()));
}

bool IsRecordable(int index, Area tag, std::string_view customAddress, bool enabledBefore) {
    constexpr std::array<int, 5> kNever{0, 19, 20, 27, 28};
    constexpr std::array<int, 3> kAlways{30, 190, 211};
    if (std::ranges::find(kNever, index) != kNever.end())
        return false;
    if (std::ranges::find(kAlways, index) != kAlways.end())
        return true;
    if (IsCustomSlot(index) && HoldsPlaceholder(customAddress))
        return true;
    return enabledBefore && (tag == Area::MB || tag == Area::CQ || tag == Area::NR);
}

std::string ExpandMultiLink(std::string_view page, const TickerForms& forms) {
    const ByteSample sample(page);
    const Pattern cased(kCased, sample);
    const Pattern first(kFirst, sample);
    std::string expanded;
    expanded.reserve(page.size());
    std::size_t from = 0;
    const auto put = [&](std::size_t start, std::size_t end, std::string_view form) {
        expanded.append(page, from, start - from).append(form);
        from = end;
    };
    auto nextCased = cased.FindIn(page);
    auto nextFirst = first.FindIn(page);
    while (nextCased != nextFirst) { // both are npos at the end
        if (nextFirst < nextCased) {
            put(nextFirst, nextFirst + kFirst.size(), forms.first);
            nextFirst = first.FindIn(page, from);
            continue;
        }
        const std::size_t end = nextCased + kCased.size();
        const char before = nextCased > from ? page[nextCased - 1] : '\0';
        if (before == 'L' || before == 'U')
            put(nextCased - 1, end, before == 'L' ? forms.lower : forms.upper);
        nextCased = cased.FindIn(page, end);
    }
    expanded.append(page, from);
    return expanded;
}

std::vector<std::string> RecordedAddresses(std::string_view page) {
    std::vector<std::string> addresses;
    Cursor cursor(page);
    std::string_view address;
    while (cursor.SkipPast(kFrameStart) && cursor.ReadUpTo(kFrameEnd, address))
        addresses.emplace_back(address);
    return addresses;
}

std::string WithoutLastFrame(std::string_view page) {
    // No address of a frame holds the start of another: it would end the address.
    const std::size_t last = page.rfind(kFrameStart);
    return std::string(page.substr(0, last));
}

std::string RecordingLine(std::size_t pages) {
    if (pages == 0)
        return "Recording: no page yet. Links that are about a ticker are recorded; ML ends.";
    const std::string count = pages == 1 ? "1 page" : std::to_string(pages) + " pages";
    return "Recording: " + count + ". ML ends, Esc discards the last.";
}

std::set<std::size_t> LiveCells(std::set<std::size_t> live, std::size_t first, std::size_t last,
                                std::size_t most) {
    for (std::size_t cell = first; cell <= last; ++cell)
        live.insert(cell);
    while (live.size() > most) {
        const std::size_t lowest = *live.begin();
        const std::size_t highest = *live.rbegin();
        const std::size_t above = first > lowest ? first - lowest : 0;
        const std::size_t below = highest > last ? highest - last : 0;
        if (above == 0 && below == 0)
            break;
        live.erase(above >= below ? lowest : highest);
    }
    return live;
}

} // namespace tallowmere
