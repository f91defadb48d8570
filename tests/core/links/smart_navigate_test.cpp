#include "core/links/smart_navigate.h"

#include "core/shell/settings_store.h"
#include "core/text/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct EntryCase {
    std::string_view entry;
    std::string_view address;
};

class NavigateEntry : public testing::TestWithParam<EntryCase> {};

TEST_P(NavigateEntry, IsCompletedIntoAnAddress) {
    EXPECT_EQ(CompleteEntry(GetParam().entry), GetParam().address) << GetParam().entry;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, NavigateEntry, testing::Values(
    EntryCase{"quotes",                 "www.quotes.com"},
    EntryCase{"  Quotes ",              "www.Quotes.com"},
    EntryCase{"two words",              "www.two words.com"},
    EntryCase{"localhost:8080/x",       "www.localhost:8080/x.com"},
    EntryCase{"www.quotes.test",        "www.quotes.test"},
    EntryCase{"http://quotes.test/a b", "http://quotes.test/a b"},
    EntryCase{"127.0.0.1",              "127.0.0.1"},
    EntryCase{" quotes.test ",          "quotes.test"},
    EntryCase{".",                      "."},
    EntryCase{"",                       ""},
    EntryCase{"   ",                    ""}));
// clang-format on

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
