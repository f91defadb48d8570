#include "core/shell/setting_keys.h"

#include "core/shell/settings_store.h"
#include "core/text/temporary_folder.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(SettingKeys, GiveTheDefaultsOfAFreshStore) {
    struct Case {
        std::string_view section, key, value;
    };
    for (const Case& c : {
             Case{"Settings", "Stocks1", ""},
             {"Settings", "PortName1", "Portfolio #1"},
             {"Settings", "PortName10", "Portfolio #10"},
             {"Settings", "TickerList", "1"},
             {"Settings", "PortLabels", "True"},
             {"Settings", "Tips", "True"},
             {"Settings", "AutoRefresh", "False"},
             {"Settings", "ActiveEdge", "False"},
             {"Settings", "WSCTick", "False"},
             {"Settings", "SAVersion", "False"},
             {"Settings", "PROXY", "0"},
             {"Settings", "CustomT101", "< Custom >"},
             {"Settings", "CustomT170", "< Custom >"},
             {"Settings", "CustomF101", "0"},
             {"Settings", "NAV12345", ""},
             {"frmMain", "Top", "50"},
             {"frmMain", "Left", "50"},
             {"frmMain", "Height", "8500"},
             {"frmMain", "Width", "10000"},
             {"Colors", "fTE", "-2147483640"},
             {"Colors", "bTE", "8454016"},
             {"Colors", "fTL", "16777215"},
             {"Colors", "bCUST", "12648447"},
             {"Colors", "fRTS", ""},
             {"Colors", "bRTS", "16776960"},
             {"Colors", "bBack", ""},
             {"Settings", "Unknown", ""},
         })
        EXPECT_EQ(DefaultOf(c.section, c.key), c.value) << c.key;
}

TEST(SettingKeys, AreFoundOnlyWithinTheirNumbers) {
    for (const std::string_view key : {"Stocks1", "Stocks10", "Custom101", "CustomB170", "NAV1"})
        EXPECT_NE(FindSettingKey("Settings", key), nullptr) << key;
    for (const std::string_view key : {"Stocks", "Stocks0", "Stocks11", "Stocks01", "Stocks1x",
                                       "Custom100", "Custom171", "NAV", "NAV0", "Tips1", "tips"})
        EXPECT_EQ(FindSettingKey("Settings", key), nullptr) << key;
    EXPECT_EQ(FindSettingKey("Colors", "Tips"), nullptr);
}

TEST(SettingKeys, EveryDefaultPassesItsOwnCheck) {
    for (const SettingKey& row : kSettingKeys)
        EXPECT_EQ(CheckValue(row, row.defaultText), "") << row.prefix;
}

TEST(SettingKeys, SayWhyAValueCannotBeRead) {
    EXPECT_EQ(CheckValue(SettingKind::Boolean, "maybe"), "Type mismatch");
    EXPECT_EQ(CheckValue(SettingKind::Integer, "99999"), "Overflow");
    EXPECT_EQ(CheckValue(SettingKind::Portfolio, "0"), "Not a portfolio from 1 to 10");
    EXPECT_EQ(CheckValue(SettingKind::Portfolio, "11"), "Not a portfolio from 1 to 10");
    EXPECT_EQ(CheckValue(SettingKind::Color, "red"), "Type mismatch");
    EXPECT_EQ(CheckValue(SettingKind::Single, ""), "Type mismatch");
    EXPECT_EQ(CheckValue(SettingKind::Text, "\x01"), "");
}

TEST(SettingKeys, DamagedValuesAreReportedByNameAndReadAsDefaults) {
    TemporaryFolder folder;
    SettingsStore store(folder.Path() / "settings.ini");
    EXPECT_TRUE(CheckSettings(store).empty());
    EXPECT_EQ(DamagedSettingsText(store), "");
    store.SaveSetting("Settings", "Tips", "maybe");
    store.SaveSetting("Settings", "PROXY", "2");
    store.SaveSetting("Settings", "CustomB150", "blue");
    store.SaveSetting("Colors", "bBack", "x");
    store.SaveSetting("Colors", "fTE", "255");
    store.SaveSetting("frmMain", "Width", "");
    store.SaveSetting("Settings", "NotOurs", "x");
    std::string keys;
    for (const SettingProblem& problem : CheckSettings(store))
        keys += problem.section + "/" + problem.key + "=" + problem.value + " ";
    EXPECT_EQ(keys, "Settings/Tips=maybe Settings/CustomB150=blue frmMain/Width= Colors/bBack=x ");
    EXPECT_EQ(DamagedSettingsText(store),
              "These settings hold no usable value; their defaults are used:\n"
              "Tips = maybe (Type mismatch)\nCustomB150 = blue (Type mismatch)\n"
              "Width =  (Type mismatch)\nbBack = x (Type mismatch)");
    EXPECT_EQ(UsableSetting(store, "Settings", "Tips"), "True");
    EXPECT_EQ(UsableSetting(store, "Settings", "PROXY"), "2");
    EXPECT_EQ(UsableSetting(store, "Colors", "bBack"), "");
    EXPECT_EQ(UsableSetting(store, "Colors", "fTE"), "255");
    EXPECT_EQ(UsableSetting(store, "frmMain", "Width"), "10000");
    EXPECT_EQ(UsableSetting(store, "Settings", "PortName3"), "Portfolio #3");
}

TEST(SettingKeys, DamagedShortcutsAreReportedByTheirCommand) {
    TemporaryFolder folder;
    SettingsStore store(folder.Path() / "settings.ini");
    store.SaveSetting("Shortcuts", "findInPage", "Ctrl+G F3");
    store.SaveSetting("Shortcuts", "zoomIn", "");
    store.SaveSetting("Shortcuts", "notACommand", "?");
    EXPECT_EQ(DamagedSettingsText(store), "");
    store.SaveSetting("Shortcuts", "exit", "Ctrl+Nonsense");
    store.SaveSetting("Shortcuts", "undo", "u");
    EXPECT_EQ(DamagedSettingsText(store),
              "These settings hold no usable value; their defaults are used:\n"
              "undo = u (Not a shortcut)\nexit = Ctrl+Nonsense (Not a shortcut)");
}

} // namespace
} // namespace tallowmere
