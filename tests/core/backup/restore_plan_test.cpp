#include "core/backup/restore_plan.h"

#include "core/text/files.h"
#include "core/text/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {

void PrintTo(const SettingChange& change, std::ostream* out) {
    *out << change.section << '/' << change.key << '=' << change.value.value_or("(gone)");
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::set<BackupPart> kAll{
    BackupPart::Portfolios, BackupPart::Notes,      BackupPart::Reminders, BackupPart::Alerts,
    BackupPart::Links,      BackupPart::MultiLinks, BackupPart::Colors,    BackupPart::Settings,
    BackupPart::Sites,      BackupPart::Sources};

PartChanges Of(BackupPart part, const BackupFiles& now, const BackupFiles& backup) {
    for (PartChanges& changes : CompareStores(now, backup))
        if (changes.part == part)
            return changes;
    ADD_FAILURE() << "the part is missing";
    return {};
}

BackupFiles Settings(const std::string& lines) {
    return {{"settings.ini", "[Settings]\n" + lines}};
}

TEST(RestorePlan, EachSettingBelongsToAPartOrToThisMachine) {
    struct Case {
        const char *section, *key;
        std::optional<BackupPart> part;
    };
    const Case cases[] = {
        {"Settings", "Stocks10", BackupPart::Portfolios},
        {"Settings", "Stocks11", {}},
        {"Settings", "PortName1", BackupPart::Portfolios},
        {"Settings", "PortLabels", BackupPart::Settings},
        {"Settings", "Custom101", BackupPart::Links},
        {"Settings", "CustomT170", BackupPart::Links},
        {"Settings", "NAV3", BackupPart::Settings},
        {"Settings", "PROXY", BackupPart::Settings},
        {"Settings", "TickerList", {}},
        {"Settings", "First", {}},
        {"Settings", "FRT", {}},
        {"Settings", "OldEngine", {}},
        {"Settings", "Unknown", {}},
        {"frmMain", "Width", {}},
        {"frmWiz", "Top", {}},
        {"Shortcuts", "undo", BackupPart::Settings},
        {"Shortcuts", "nothing", {}},
        {"Colors", "fTE", BackupPart::Colors},
        {"Colors", "fXX", {}},
        {"Colors", "", {}},
    };
    for (const auto& [section, key, part] : cases)
        EXPECT_EQ(PartOfSetting(section, key), part) << section << ' ' << key;
}

TEST(RestorePlan, EveryPartIsListedInItsOrder) {
    const auto parts = CompareStores({}, {});
    ASSERT_EQ(parts.size(), kAll.size());
    for (const PartChanges& changes : parts) {
        EXPECT_FALSE(changes.IsAny());
        EXPECT_FALSE(changes.isInBackup);
        EXPECT_FALSE(NameOf(changes.part).empty());
    }
}

TEST(RestorePlan, NotesAreNewChangedOrGoneByTicker) {
    const BackupFiles now{
        {"TickNotes.txt", "||A||same|||||\r\n||B||old|||||\r\n||C||gone|||||\r\n"}};
    const BackupFiles backup{
        {"TickNotes.txt", "||D||new|||||\r\n||B||young|||||\r\n||A||same|||||\r\n"}};
    const PartChanges notes = Of(BackupPart::Notes, now, backup);
    EXPECT_TRUE(notes.isInBackup);
    EXPECT_THAT(notes.fresh, ElementsAre("D"));
    EXPECT_THAT(notes.changed, ElementsAre("B"));
    EXPECT_THAT(notes.gone, ElementsAre("C"));
}

TEST(RestorePlan, AlertsAreNamedByWhatTheyTell) {
    const BackupFiles now{{"alerts.txt", "1 above 450 MSFT\n2 below 5 AOL\n"}};
    const BackupFiles backup{{"alerts.txt", "1 above 450 MSFT\n3 change 5 IBM\n"}};
    const PartChanges alerts = Of(BackupPart::Alerts, now, backup);
    EXPECT_THAT(alerts.fresh, ElementsAre("IBM up or down by 5% or more in a day"));
    EXPECT_THAT(alerts.changed, IsEmpty());
    EXPECT_THAT(alerts.gone, ElementsAre("AOL at or below 5.00"));
    EXPECT_EQ(PlanRestore(now, backup, {BackupPart::Alerts}).files, backup);
    EXPECT_TRUE(PlanRestore(now, backup, {BackupPart::Notes}).files.empty());
}

TEST(RestorePlan, APortfolioIsOneThingWithItsName) {
    const BackupFiles now = Settings("Stocks1=A|\nPortName1=Tech\nStocks2=B|\nStocks3=\n");
    const BackupFiles backup = Settings("Stocks1=A|B|\nPortName1=Best\nStocks3=C|\n");
    const PartChanges portfolios = Of(BackupPart::Portfolios, now, backup);
    EXPECT_THAT(portfolios.fresh, ElementsAre("Portfolio 3"));
    EXPECT_THAT(portfolios.changed, ElementsAre("Portfolio 1"));
    EXPECT_THAT(portfolios.gone, ElementsAre("Portfolio 2"));
}

TEST(RestorePlan, LinksColoursAndSettingsAreNamed) {
    const BackupFiles now = Settings("Custom101=http://a\nTips=True\n");
    const BackupFiles backup = Settings(
        "Custom101=http://b\nCustomT101=B\nTips=False\nNAV1=x\nNAV2=y\n\n[Colors]\nbTE=1\nfTE=2\n");
    EXPECT_THAT(Of(BackupPart::Links, now, backup).changed, ElementsAre("Link 101"));
    EXPECT_THAT(Of(BackupPart::Colors, now, backup).fresh, ElementsAre("Ticker Entry Box"));
    const PartChanges settings = Of(BackupPart::Settings, now, backup);
    EXPECT_THAT(settings.changed, ElementsAre("tool tips are shown"));
    EXPECT_THAT(settings.fresh, ElementsAre("smart-navigate list"));
}

TEST(RestorePlan, ShortcutsAreSettings) {
    const BackupFiles now{{"settings.ini", "[Shortcuts]\nundo=F4\n"}};
    const BackupFiles backup{{"settings.ini", "[Shortcuts]\nundo=F3\nredo=no key at all\n"}};
    EXPECT_THAT(Of(BackupPart::Settings, now, backup).changed, ElementsAre("shortcuts"));
    EXPECT_EQ(PlanRestore(now, backup, kAll).files,
              (BackupFiles{{"settings.ini", "[Shortcuts]\nundo=F3\n"}}));
    EXPECT_THAT(Of(BackupPart::Settings, {}, {{"settings.ini", "[Shortcuts]\nundo=\n"}}).fresh,
                ElementsAre("shortcuts"));
}

TEST(RestorePlan, WhatIsAboutThisMachineIsNoChange) {
    const BackupFiles now = Settings("First=OK\nTickerList=2\n\n[frmMain]\nWidth=1\n");
    const BackupFiles backup = Settings("TickerList=3\n\n[frmMain]\nWidth=2\n");
    for (const PartChanges& changes : CompareStores(now, backup))
        EXPECT_FALSE(changes.IsAny()) << NameOf(changes.part);
    EXPECT_TRUE(PlanRestore(now, backup, kAll).files.empty());
}

TEST(RestorePlan, AValueThatCannotBeReadLeavesThePresentOne) {
    const BackupFiles now = Settings("Tips=False\n");
    const BackupFiles backup = Settings("Tips=maybe\n\n[Colors]\nbTE=green\n");
    EXPECT_FALSE(Of(BackupPart::Settings, now, backup).IsAny());
    EXPECT_FALSE(Of(BackupPart::Colors, now, backup).IsAny());
    EXPECT_TRUE(PlanRestore(now, backup, kAll).files.empty());
}

TEST(RestorePlan, MultiLinksAndTablesAreWholeFiles) {
    const BackupFiles now{{"Old.mlnk", "1"}, {"sources.toml", "a"}};
    const BackupFiles backup{{"New.mlnk", "1"}, {"sources.toml", "b"}, {"sites.toml", ""}};
    const PartChanges pages = Of(BackupPart::MultiLinks, now, backup);
    EXPECT_THAT(pages.fresh, ElementsAre("New"));
    EXPECT_THAT(pages.gone, ElementsAre("Old"));
    EXPECT_THAT(Of(BackupPart::Sources, now, backup).changed, ElementsAre("sources.toml"));
    EXPECT_EQ(PlanRestore(now, backup, kAll).files,
              (BackupFiles{{"New.mlnk", "1"}, {"Old.mlnk", ""}, {"sources.toml", "b"}}));
}

TEST(RestorePlan, ATableThatStartsAnotherProgramSaysSo) {
    const BackupFiles backup{{"sites.toml", "[programs]\nbrowser = \"rm -r x\"\nmail = \"m\"\n"}};
    EXPECT_EQ(Of(BackupPart::Sites, {}, backup).warning,
              "It starts a program of this machine: rm -r x, m");
    EXPECT_EQ(Of(BackupPart::Sites, backup, backup).warning, "");
    EXPECT_EQ(Of(BackupPart::Sites, backup, {}).warning, "");
    EXPECT_EQ(Of(BackupPart::Sites, {}, {{"sites.toml", "no table ["}}).warning, "");
}

TEST(RestorePlan, OnlyChosenPartsAreWritten) {
    const BackupFiles now = Settings("Stocks1=A|\nTips=True\n");
    BackupFiles backup = Settings("Stocks1=B|\nTips=False\n");
    backup["remind.txt"] = "||01-02-2027||x|||||\r\n";
    const RestorePlan plan = PlanRestore(now, backup, {BackupPart::Portfolios});
    EXPECT_EQ(plan.files, Settings("Stocks1=B|\nTips=True\n"));
    ASSERT_EQ(plan.settings.size(), 1u);
    EXPECT_EQ(plan.settings[0].key, "Stocks1");
    EXPECT_EQ(plan.settings[0].value, "B|");
}

TEST(RestorePlan, WhatTheBackupDoesNotHaveGoes) {
    const BackupFiles now{{"settings.ini", "[Settings]\n; mine\nStocks1=A|\nOther=1\n"},
                          {"TickNotes.txt", "||A||x|||||\r\n"}};
    const RestorePlan plan = PlanRestore(now, {}, kAll);
    EXPECT_EQ(plan.files, (BackupFiles{{"settings.ini", "[Settings]\n; mine\nOther=1\n"},
                                       {"TickNotes.txt", ""}}));
}

TEST(RestorePlan, AStoreOfSettingsIsLedToAText) {
    const TemporaryFolder folder;
    const auto file = folder.Path() / "settings.ini";
    WriteWholeFile(file, "[Settings]\nStocks1=A|\nTips=False\nFirst=OK\n");
    SettingsStore store(file);
    store.ChangeSettings(SettingsTowards(store, "[Settings]\nStocks1=B|\nFirst=no\nNAV1=x\n"));
    EXPECT_EQ(ReadExistingFile(file), "[Settings]\nStocks1=B|\nFirst=OK\nNAV1=x\n");
}

} // namespace
} // namespace tallowmere
