#include "core/shell/navigate_list.h"

#include "core/shell/settings_store.h"
#include "core/text/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NavigateEntries : public testing::Test {
protected:
    std::string Stored(std::string_view key) const {
        return settings.GetSetting("Settings", key, "(none)");
    }

    TemporaryFolder folder;
    SettingsStore settings{folder.Path() / "settings.ini"};
};

TEST_F(NavigateEntries, AreNoneAtFirst) {
    EXPECT_THAT(ReadNavigateEntries(settings), IsEmpty());
}

TEST_F(NavigateEntries, TheNewestStandsBeforeTheOlderOnes) {
    SaveNavigateEntries(settings, "www.one.com", {});
    SaveNavigateEntries(settings, "www.two.com", ReadNavigateEntries(settings));
    SaveNavigateEntries(settings, "www.three.com", ReadNavigateEntries(settings));
    EXPECT_EQ(Stored("NAV1"), "www.three.com");
    EXPECT_EQ(Stored("NAV2"), "www.two.com");
    EXPECT_EQ(Stored("NAV3"), "www.one.com");
    EXPECT_EQ(Stored("NAV4"), "(none)");
    EXPECT_THAT(ReadNavigateEntries(settings),
                ElementsAre("www.three.com", "www.two.com", "www.one.com"));
}

TEST_F(NavigateEntries, AnAddressThatIsInTheListAlreadyIsStoredTwice) {
    SaveNavigateEntries(settings, "www.b.com", {"www.a.com", "www.b.com"});
    EXPECT_THAT(ReadNavigateEntries(settings), ElementsAre("www.b.com", "www.a.com", "www.b.com"));
}

TEST_F(NavigateEntries, ReadingStopsAtTheFirstEmptyKey) {
    settings.SaveSetting("Settings", "NAV1", "www.one.com");
    settings.SaveSetting("Settings", "NAV2", "");
    settings.SaveSetting("Settings", "NAV3", "www.three.com");
    EXPECT_THAT(ReadNavigateEntries(settings), ElementsAre("www.one.com"));
}

} // namespace
} // namespace tallowmere
