#include "core/shell/kept_pages.h"

#include "core/shell/settings_store.h"
#include "core/text/temporary_folder.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

TEST(KeptPages, NothingWasKeptAtFirst) {
    const TemporaryFolder folder;
    const SettingsStore settings(folder.Path() / "settings.ini");
    EXPECT_EQ(ReadKeptPages(settings), KeptPages{});
    EXPECT_FALSE(HoldsPages(ReadKeptPages(settings)));
}

TEST(KeptPages, WhatWasOpenComesBack) {
    const TemporaryFolder folder;
    const KeptPages pages{
        "http://h/one?a=1&b=2",
        "http://broker/",
        3,
        {{"http://h/two", "Two; \"quoted\" = 2"}, {"http://h/three", ""}},
        {{"MSFT", "h/q?s=msft", "90", true, "#a > td:nth-of-type(2)"}, {"", "h/x|y", "60"}}};
    {
        SettingsStore settings(folder.Path() / "settings.ini");
        SaveKeptPages(settings, pages);
    }
    const SettingsStore settings(folder.Path() / "settings.ini");
    EXPECT_EQ(ReadKeptPages(settings), pages);
    EXPECT_TRUE(HoldsPages(pages));
}

TEST(KeptPages, AShorterListTakesThePlaceOfALongerOne) {
    const TemporaryFolder folder;
    SettingsStore settings(folder.Path() / "settings.ini");
    SaveKeptPages(settings, {"a", "b", 2, {{"1", ""}, {"2", ""}, {"3", ""}}, {{"w", "x", "60"}}});
    const KeptPages fewer{"", "", 0, {{"9", "nine"}}, {}};
    SaveKeptPages(settings, fewer);
    EXPECT_EQ(ReadKeptPages(settings), fewer);
    EXPECT_TRUE(HoldsPages(fewer));
    SaveKeptPages(settings, {});
    EXPECT_FALSE(HoldsPages(ReadKeptPages(settings)));
}

TEST(KeptPages, ADamagedPlaceIsTheFirstOne) {
    const TemporaryFolder folder;
    SettingsStore settings(folder.Path() / "settings.ini");
    SaveKeptPages(settings, {"a", "", 2, {{"1", ""}}, {{"w", "x", "60", true, "p"}}});
    settings.SaveSetting(kPagesSection, "Front", "second");
    settings.SaveSetting(kPagesSection, "WatchTells1", "perhaps");
    EXPECT_FALSE(ReadKeptPages(settings).watches.at(0).tellsChanges);
    EXPECT_EQ(ReadKeptPages(settings).front, 0);
    EXPECT_EQ(ReadKeptPages(settings).first, "a");
}

} // namespace
} // namespace tallowmere
