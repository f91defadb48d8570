#include "core/shell/key_chord.h"

#include "core/shell/commands.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <array>

namespace tallowmere {

namespace {

constexpr std::array<std::string_view, 4> kModifiers = {"Meta", "Ctrl", "Alt", "Shift"};

// Keys that have a name, beside F1 to F35.
constexpr std::string_view kNamedKeys[] = {
    "Left",    "Right", "Up",        "Down",  "Home",  "End",   "PgUp",
    "PgDown",  "Ins",   "Del",       "Esc",   "Tab",   "Enter", "Return",
    "Backtab", "Space", "Backspace", "Pause", "Print", "Menu",  "Help"};

struct FixedChord {
    std::string_view chord, use;
};
// clang-format off
constexpr FixedChord kFixedChords[] = {
    {"Ctrl+A",          "selects all of a text"},
    {"Ctrl+C",          "copies"},
    {"Ctrl+V",          "pastes"},
    {"Ctrl+X",          "cuts"},
    {"Ctrl+Ins",        "copies"},
    {"Ctrl+Home",       "leads to the start of a text"},
    {"Ctrl+End",        "leads to the end of a text"},
    {"Ctrl+Backspace",  "deletes a word"},
    {"Ctrl+Del",        "deletes a word"},
    {"Alt+F4",          "closes the window"},
    {"Alt+Tab",         "leads to the next window"},
    {"F10",             "leads to the menu bar"},
    {"Shift+F10",       "opens the menu of what has the focus"},
};
// clang-format on

bool IsFunctionKey(std::string_view key) {
    constexpr int kLastFunctionKey = 35;
    if (key.size() < 2 || key.size() > 3 || key[0] != 'F' || key[1] == '0')
        return false;
    int number = 0;
    for (const char digit : key.substr(1)) {
        if (digit < '0' || digit > '9')
            return false;
        number = number * 10 + (digit - '0');
    }
    return number >= 1 && number <= kLastFunctionKey;
}

// One character that is written: ASCII, or one of UTF-8.
bool IsWritten(std::string_view key) {
    if (key.size() == 1)
        return key[0] > ' ' && key[0] < 0x7F;
    const auto isFollowing = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    return key.size() >= 2 && key.size() <= 4 && static_cast<unsigned char>(key[0]) >= 0xC2 &&
           std::all_of(key.begin() + 1, key.end(), isFollowing);
}

/// Takes the modifier off the front of a text, if it begins with one.
std::optional<std::size_t> TakeModifier(std::string_view& text) {
    for (std::size_t n = 0; n < kModifiers.size(); ++n) {
        const std::size_t size = kModifiers[n].size();
        if (text.size() > size + 1 && text[size] == '+' &&
            ToLower(text.substr(0, size)) == ToLower(kModifiers[n])) {
            text.remove_prefix(size + 1);
            return n;
        }
    }
    return std::nullopt;
}

std::optional<std::string> NormalKey(std::string_view key) {
    if (IsWritten(key))
        return ToUpper(key);
    if (IsFunctionKey(ToUpper(key)))
        return ToUpper(key);
    const auto* named = std::ranges::find_if(
        kNamedKeys, [&](std::string_view name) { return ToLower(name) == ToLower(key); });
    return named == std::end(kNamedKeys) ? std::nullopt : std::optional(std::string(*named));
}

} // namespace

std::optional<std::string> NormalChord(std::string_view text) {
    std::array<bool, kModifiers.size()> has{};
    while (const auto modifier = TakeModifier(text)) {
        if (has.at(*modifier))
            return std::nullopt;
        has.at(*modifier) = true;
    }
    const auto key = NormalKey(text);
    if (!key)
        return std::nullopt;
    std::string chord;
    for (std::size_t n = 0; n < kModifiers.size(); ++n)
        if (has.at(n))
            chord += std::string(kModifiers.at(n)) + '+';
    return chord + *key;
}

std::string WhyNoShortcut(std::string_view chord) {
    for (const FixedChord& fixed : kFixedChords)
        if (fixed.chord == chord)
            return "is the one that " + std::string(fixed.use);
    if (chord.starts_with("Alt+") && chord.size() == 5)
        for (const MenuRow& menu : Menus())
            if (menu.in == CommandMenu::None && AccessLetter(menu.caption) == chord.back())
                return "opens the menu " + SpokenCaption(menu.caption);
    std::string_view key = chord;
    bool hasControl = false;
    while (const auto modifier = TakeModifier(key))
        hasControl = hasControl || kModifiers.at(*modifier) != "Shift";
    // Escape takes something back in any window, and writes nothing.
    if (!hasControl && !IsFunctionKey(key) && chord != "Esc")
        return "needs Ctrl or Alt besides, or a function key";
    return "";
}

} // namespace tallowmere
