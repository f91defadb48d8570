#include "core/shell/area_colors.h"

#include "core/shell/settings_store.h"
#include "core/text/temporary_folder.h"

#include <gtest/gtest.h>

namespace tallowmere {
namespace {

class StoredAreaColors : public testing::Test {
protected:
    TemporaryFolder folder;
    SettingsStore settings{folder.Path() / "settings.ini"};
};

TEST_F(StoredAreaColors, AreTheDefaultsAsLongAsNoneWasSaved) {
    const AreaColors colors = ReadAreaColors(settings);
    EXPECT_EQ(colors.Of("PN"), (ColorPair{0xFFFFFF, 0x000080}));
    EXPECT_EQ(colors.Of("TE"), (ColorPair{kSystemWindowText, 0x80FF80}));
}

TEST_F(StoredAreaColors, ASavedColourTakesThePlaceOfItsDefaultAlone) {
    settings.SaveSetting("Colors", "bPN", "255");
    EXPECT_EQ(ReadAreaColors(settings).Of("PN"), (ColorPair{0xFFFFFF, 255}));
    settings.SaveSetting("Colors", "fPN", "0");
    EXPECT_EQ(ReadAreaColors(settings).Of("PN"), (ColorPair{0, 255}));
}

TEST_F(StoredAreaColors, AValueThatIsNoColourCountsAsNeverSaved) {
    settings.SaveSetting("Colors", "fPN", "blue");
    settings.SaveSetting("Colors", "bPN", "");
    EXPECT_EQ(ReadAreaColors(settings).Of("PN"), (ColorPair{0xFFFFFF, 0x000080}));
}

} // namespace
} // namespace tallowmere
