#include "core/shell/key_chord.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(KeyChord, HasOneForm) {
    struct Case {
        std::string_view text, chord; // an empty chord: none
    };
    for (const Case& c : {Case{"Ctrl+Z", "Ctrl+Z"},
                          {"ctrl+shift+z", "Ctrl+Shift+Z"},
                          {"Shift+Alt+Ctrl+Meta+f12", "Meta+Ctrl+Alt+Shift+F12"},
                          {"F5", "F5"},
                          {"f35", "F35"},
                          {"Ctrl++", "Ctrl++"},
                          {"Ctrl+Shift++", "Ctrl+Shift++"},
                          {"Ctrl+,", "Ctrl+,"},
                          {"+", "+"},
                          {"alt+left", "Alt+Left"},
                          {"Ctrl+pgup", "Ctrl+PgUp"},
                          {"Ctrl+\xC3\xA9", "Ctrl+\xC3\xA9"},
                          {"", ""},
                          {"Ctrl", ""},
                          {"Ctrl+", ""},
                          {"Ctrl+Ctrl+Z", ""},
                          {"Ctrl+Nonsense", ""},
                          {"F0", ""},
                          {"F01", ""},
                          {"F36", ""},
                          {"F100", ""},
                          {"Fx", ""},
                          {"Hyper+Z", ""},
                          {"Ctrl+ ", ""},
                          {"Ctrl+\x01", ""},
                          {"Ctrl+\xC3", ""},
                          {"Ctrl+\xC3\xA9\xC3\xA9\xC3", ""},
                          {"Ctrl+Z, Ctrl+Y", ""}})
        EXPECT_EQ(NormalChord(c.text).value_or(""), c.chord) << c.text;
}

TEST(KeyChord, KeysThatWriteOrMoveAreNoShortcutAlone) {
    constexpr auto kAlone = "needs Ctrl or Alt besides, or a function key";
    for (const char* chord :
         {"A", "Shift+A", "Tab", "Return", "Space", "Del", "Left", "Shift+Esc", "+"})
        EXPECT_EQ(WhyNoShortcut(chord), kAlone) << chord;
    for (const char* chord : {"Ctrl+B", "Alt+B", "Meta+B", "Ctrl+Shift+A", "F5", "Shift+F5",
                              "Ctrl+Tab", "Alt+Left", "Ctrl++", "Alt+Shift+P", "F11", "Esc"})
        EXPECT_EQ(WhyNoShortcut(chord), "") << chord;
}

TEST(KeyChord, WhatIsTheSystemsOrAMenusIsNoShortcut) {
    EXPECT_EQ(WhyNoShortcut("Ctrl+C"), "is the one that copies");
    EXPECT_EQ(WhyNoShortcut("Alt+F4"), "is the one that closes the window");
    EXPECT_EQ(WhyNoShortcut("F10"), "is the one that leads to the menu bar");
    EXPECT_EQ(WhyNoShortcut("Alt+P"), "opens the menu Portfolio");
    EXPECT_EQ(WhyNoShortcut("Alt+G"), "opens the menu Page");
    // The letter of a menu inside of a menu opens nothing by itself.
    EXPECT_EQ(WhyNoShortcut("Alt+S"), "");
}

} // namespace
} // namespace tallowmere
