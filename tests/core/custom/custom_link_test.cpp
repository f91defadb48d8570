#include "core/custom/custom_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace tallowmere {
namespace {

/// A store in a folder of its own that goes with the test.
class CustomLink : public testing::Test {
protected:
    CustomLink()
        : m_folder(std::filesystem::path(testing::TempDir()) /
                   (std::string("custom_link_") +
                    testing::UnitTest::GetInstance()->current_test_info()->name())) {
        std::filesystem::remove_all(m_folder);
    }
    ~CustomLink() override { std::filesystem::remove_all(m_folder); }

    std::string Stored(std::string_view key) const {
        return settings.GetSetting("Settings", key, "(absent)");
    }

private:
    std::filesystem::path m_folder;

protected:
    SettingsStore settings{m_folder / "settings.ini"};
};

TEST_F(CustomLink, AnAbsentRecordIsAnUnusedSlot) {
    const CustomLinkRecord record = LoadCustomLink(settings, 101);
    EXPECT_EQ(record.address, "");
    EXPECT_EQ(record.title, "< Custom >");
    EXPECT_EQ(record.colors, (ColorPair{0, 0}));
    EXPECT_TRUE(IsUnusedSlot(record.title));
}

TEST_F(CustomLink, ARecordIsKeptUnderFourKeys) {
    SaveCustomLink(settings, 135, {"http://x.test/?s=LCASETICK ", "Abc", {255, 0x80000005}});
    EXPECT_EQ(Stored("Custom135"), "http://x.test/?s=LCASETICK ");
    EXPECT_EQ(Stored("CustomT135"), "Abc");
    EXPECT_EQ(Stored("CustomF135"), "255");
    EXPECT_EQ(Stored("CustomB135"), "-2147483643");

    const CustomLinkRecord record = LoadCustomLink(settings, 135);
    EXPECT_EQ(record.address, "http://x.test/?s=LCASETICK ");
    EXPECT_EQ(record.title, "Abc");
    EXPECT_EQ(record.colors, (ColorPair{255, 0x80000005}));
}

TEST_F(CustomLink, BlackIsStoredAsTheDarkestColourThatCounts) {
    SaveCustomLink(settings, 101, {"", "Abc", {0, 0}});
    EXPECT_EQ(Stored("CustomF101"), "65793");
    EXPECT_EQ(Stored("CustomB101"), "65793");
    EXPECT_EQ(StorableColors({1, 0}), (ColorPair{1, 65793}));
}

TEST_F(CustomLink, OnlyColoursThatAreSetCoverWhatALabelShows) {
    EXPECT_EQ(ColorsOver({1, 2}, {3, 4}), (ColorPair{3, 4}));
    EXPECT_EQ(ColorsOver({1, 2}, {0, 4}), (ColorPair{1, 4}));
    EXPECT_EQ(ColorsOver({1, 2}, {3, 0}), (ColorPair{3, 2}));
}

TEST_F(CustomLink, PastedColoursAreStoredAsTheyAre) {
    SaveLinkColors(settings, 101, {7, 0});
    EXPECT_EQ(Stored("CustomF101"), "7");
    EXPECT_EQ(Stored("CustomB101"), "0");
    EXPECT_EQ(Stored("CustomT101"), "(absent)");
}

TEST_F(CustomLink, AColourThatIsNoNumberCountsAsNotSet) {
    SaveCustomLink(settings, 102, {"http://x.test/", "Abc", {1, 2}});
    settings.SaveSetting("Settings", "CustomF102", "red");
    settings.SaveSetting("Settings", "CustomB102", "");
    const CustomLinkRecord record = LoadCustomLink(settings, 102);
    EXPECT_EQ(record.address, "http://x.test/");
    EXPECT_EQ(record.title, "Abc");
    EXPECT_EQ(record.colors, (ColorPair{0, 0}));
    EXPECT_EQ(Stored("CustomF102"), "red");
}

TEST_F(CustomLink, ALongAddressComesBackWhole) {
    const std::string address = "http://x.test/?" + std::string(100000, 'a') + "=\"%02;# \\n";
    SaveCustomLink(settings, 103, {address, "Long", {1, 2}});
    EXPECT_EQ(LoadCustomLink(settings, 103).address, address);
}

TEST_F(CustomLink, ResetWritesTheColoursOfTheAreaOut) {
    SaveCustomLink(settings, 101, {"http://x.test/", "Abc", {1, 2}});
    ResetCustomLink(settings, 101);
    EXPECT_EQ(Stored("Custom101"), "");
    EXPECT_EQ(Stored("CustomT101"), "< Custom >");
    EXPECT_EQ(Stored("CustomF101"), "-2147483640"); // 0x80000008
    EXPECT_EQ(Stored("CustomB101"), "12640511");    // 0xC0E0FF

    settings.SaveSetting("Colors", "fCUST", "16711680");
    settings.SaveSetting("Colors", "bCUST", "0");
    ResetCustomLink(settings, 102);
    EXPECT_EQ(Stored("CustomF102"), "16711680");
    EXPECT_EQ(Stored("CustomB102"), "0");
}

TEST_F(CustomLink, ADamagedColourOfTheAreaIsItsDefault) {
    settings.SaveSetting("Colors", "fCUST", "blue");
    settings.SaveSetting("Colors", "bCUST", "3");
    EXPECT_EQ(CustomAreaColors(settings), (ColorPair{0x80000008, 3}));
}

TEST_F(CustomLink, AMovedRecordLeavesAnUnusedSlot) {
    SaveCustomLink(settings, 110, {"http://x.test/", "Abc", {1, 2}});
    SaveCustomLink(settings, 120, {"http://y.test/", "Old", {3, 4}});
    MoveCustomLink(settings, 110, 120);
    EXPECT_EQ(Stored("Custom120"), "http://x.test/");
    EXPECT_EQ(Stored("CustomT120"), "Abc");
    EXPECT_EQ(Stored("CustomF120"), "1");
    EXPECT_EQ(Stored("CustomB120"), "2");
    EXPECT_EQ(Stored("Custom110"), "");
    EXPECT_EQ(Stored("CustomT110"), "< Custom >");
    EXPECT_EQ(Stored("CustomF110"), "-2147483640");
    EXPECT_EQ(Stored("CustomB110"), "12640511");
}

TEST_F(CustomLink, ADropOnItselfOrOnAnotherLinkMovesNothing) {
    SaveCustomLink(settings, 110, {"http://x.test/", "Abc", {1, 2}});
    MoveCustomLink(settings, 110, 110);
    MoveCustomLink(settings, 110, 171);
    MoveCustomLink(settings, 100, 110);
    EXPECT_EQ(LoadCustomLink(settings, 110).title, "Abc");
    EXPECT_EQ(LoadCustomLink(settings, 110).address, "http://x.test/");
    EXPECT_EQ(Stored("CustomT171"), "(absent)");
}

TEST(CustomLinkRules, SaveNeedsATitle) {
    struct Case {
        std::string_view title, address;
        bool saved;
    };
    for (const Case& c : {Case{"Abc", "http://x.test/", true},
                          {"Abc", "", true},
                          {"", "http://x.test/", false},
                          {"", "", false},
                          {"< Custom >", "http://x.test/", false},
                          {"< Custom >", "", true},
                          {"< Custom >", "   ", true}})
        EXPECT_EQ(MaySaveCustomLink(c.title, c.address), c.saved) << c.title << c.address;
}

TEST(CustomLinkRules, ATitleIsCutAtTwelveCharacters) {
    EXPECT_EQ(CutTitle("Thirteen char"), "Thirteen cha");
    EXPECT_EQ(CutTitle("Twelve chars"), "Twelve chars");
    EXPECT_EQ(CutTitle(""), "");
    std::string umlauts;
    for (int i = 0; i < 12; ++i)
        umlauts += "\xC3\xA4";
    EXPECT_EQ(CutTitle(umlauts), umlauts);
    EXPECT_EQ(CutTitle(umlauts + "\xE2\x82\xAC"), umlauts);
}

TEST(CustomLinkRules, TheTextsOfTheEditorStandToTheLetter) {
    EXPECT_THAT(kCustomLinkHelp, testing::HasSubstr("12 char in length).  Enter the full URL"));
    EXPECT_THAT(kMultiLinkHelp, testing::HasSubstr("'Multi Link',  enter"));
    EXPECT_THAT(kMultiLinkHelp, testing::HasSubstr("ML button to to finish.  See"));
    EXPECT_EQ(OverwriteQuestion("Abc"), "Do you want to overwrite the 'Abc' link?");
}

TEST_F(CustomLink, KeepsTheColumnsOfItsMultiLinkUntilItIsReset) {
    EXPECT_EQ(LoadColumns(settings, 101), 0);
    SaveColumns(settings, 101, 3);
    EXPECT_EQ(Stored("CustomC101"), "3");
    EXPECT_EQ(LoadColumns(settings, 101), 3);
    MoveCustomLink(settings, 101, 102);
    EXPECT_EQ(Stored("CustomC101"), "(absent)");
    EXPECT_EQ(LoadColumns(settings, 102), 3);
    MoveCustomLink(settings, 110, 102); // an unused one takes its place
    EXPECT_EQ(Stored("CustomC102"), "(absent)");
    SaveColumns(settings, 101, 2);
    ResetCustomLink(settings, 101);
    EXPECT_EQ(Stored("CustomC101"), "(absent)");
    SaveColumns(settings, 101, 2);
    SaveColumns(settings, 101, 0);
    EXPECT_EQ(Stored("CustomC101"), "(absent)");
}

TEST_F(CustomLink, ColumnsThatAreNoneCountAsOnePage) {
    for (const std::string_view stored : {"", "x", "-1", "5", "99999999999", "2 3"}) {
        settings.SaveSetting("Settings", "CustomC101", stored);
        EXPECT_EQ(LoadColumns(settings, 101), 0) << stored;
    }
}

} // namespace
} // namespace tallowmere
