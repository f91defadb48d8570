#include "core/backup/dated_copies.h"

#include "core/text/files.h"
#include "core/text/runtime_error.h"
#include "core/text/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace tallowmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

Date DayBefore(Date day, int days) {
    const std::chrono::year_month_day before(
        std::chrono::sys_days(std::chrono::year(day.year) / day.month / day.day) -
        std::chrono::days(days));
    return {static_cast<int>(before.year()),
            static_cast<int>(static_cast<unsigned>(before.month())),
            static_cast<int>(static_cast<unsigned>(before.day()))};
}

TEST(DatedCopies, AreNamedAfterTheirDays) {
    EXPECT_EQ(CopyName({2026, 3, 9}), "2026-03-09.zip");
    EXPECT_EQ(DayOfCopy("2026-03-09.zip"), (Date{2026, 3, 9}));
    for (const char* name :
         {"", "2026-3-9.zip", "2026-02-30.zip", "2026-00-01.zip", "2026-13-01.zip",
          "2026-03-09.ZIP", "2026-03-09.zip.bak", "before-restore.zip", "1999-01-01.zip",
          "2026-+3-09.zip", "2026-03--9.zip", "-026-03-09.zip", "2026_03_09.zip"})
        EXPECT_EQ(DayOfCopy(name), std::nullopt) << name;
}

// 2026-11-22 is a Sunday.
TEST(DatedCopies, SevenDaysAndFourWeeksStay) {
    struct Case {
        const char* what;
        std::vector<int> copies, going; ///< in days before today, from the newest on
    };
    const Date today{2026, 11, 22};
    const Case cases[] = {
        {"none", {}, {}},
        {"seven days", {0, 1, 2, 3, 4, 5, 6}, {}},
        {"the last day of the week before stays beside them", {0, 1, 2, 3, 4, 5, 6, 7, 8}, {8}},
        {"days without a copy do not count", {0, 185, 186, 187, 188}, {}},
        {"of a fifth week before nothing stays", {0, 1, 2, 3, 4, 5, 6, 10, 17, 24, 31, 38}, {38}},
        {"a copy of days to come is left alone", {-1501, 0}, {}},
    };
    const auto days = [&](const std::vector<int>& before) {
        std::vector<Date> result;
        for (const int ago : before)
            result.push_back(DayBefore(today, ago));
        return result;
    };
    for (const auto& [what, copies, going] : cases)
        EXPECT_EQ(CopiesToRemove(days(copies), today), days(going)) << what;
}

TEST(DatedCopies, WhoWorksEveryDayHasAtLeastThreeWeeksAndNeverMoreThanElevenCopies) {
    std::vector<Date> copies;
    const Date start{2026, 1, 1};
    for (int day = 0; day < 200; ++day) {
        const Date today = DayBefore(start, -day);
        copies.push_back(today);
        for (const Date& gone : CopiesToRemove(copies, today))
            copies.erase(std::find(copies.begin(), copies.end(), gone));
        ASSERT_LE(copies.size(), 11u) << CopyName(today);
        if (day < 40)
            continue;
        for (int ago = 0; ago < 7; ++ago)
            ASSERT_THAT(copies, testing::Contains(DayBefore(today, ago))) << CopyName(today);
        // The front is the oldest: the last day of the fourth week before.
        ASSERT_FALSE(std::find(copies.begin(), copies.end(), copies.front()) == copies.end());
        const bool isOldEnough = CopyName(copies.front()) <= CopyName(DayBefore(today, 22));
        ASSERT_TRUE(isOldEnough) << CopyName(today) << ' ' << CopyName(copies.front());
    }
}

struct User {
    User() { Write("one"); }
    void Write(const std::string& note) {
        WriteWholeFile(folder.Path() / "TickNotes.txt", "||A||" + note + "|||||\r\n");
    }
    CopyOutcome Copy(Date today) {
        return MakeDatedCopy(places, today, 0, [] { return true; });
    }
    std::vector<std::string> Copies() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(CopiesFolder(places)))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
    TemporaryFolder folder;
    StorePlaces places{folder.Path() / "settings.ini", folder.Path(), folder.Path()};
};

TEST(DatedCopies, AreMadeWhenSomethingChanged) {
    User user;
    EXPECT_EQ(user.Copy({2026, 11, 20}), CopyOutcome::Made);
    EXPECT_EQ(user.Copy({2026, 11, 21}), CopyOutcome::Same);
    EXPECT_THAT(user.Copies(), ElementsAre("2026-11-20.zip"));
    user.Write("two");
    EXPECT_EQ(user.Copy({2026, 11, 22}), CopyOutcome::Made);
    EXPECT_THAT(user.Copies(), ElementsAre("2026-11-20.zip", "2026-11-22.zip"));
    EXPECT_EQ(ReadBackup(CopiesFolder(user.places) / "2026-11-20.zip").at("TickNotes.txt"),
              "||A||one|||||\r\n");
}

TEST(DatedCopies, ADayHasOne) {
    User user;
    user.Copy({2026, 11, 20});
    user.Write("two");
    EXPECT_EQ(user.Copy({2026, 11, 20}), CopyOutcome::Made);
    EXPECT_THAT(user.Copies(), ElementsAre("2026-11-20.zip"));
    EXPECT_EQ(ReadBackup(CopiesFolder(user.places) / "2026-11-20.zip").at("TickNotes.txt"),
              "||A||two|||||\r\n");
}

TEST(DatedCopies, ADamagedOneIsNoReasonToMakeNone) {
    User user;
    user.Copy({2026, 11, 20});
    WriteWholeFile(CopiesFolder(user.places) / "2026-11-20.zip", "damaged");
    EXPECT_EQ(user.Copy({2026, 11, 21}), CopyOutcome::Made);
}

TEST(DatedCopies, OldOnesGoAndOtherFilesStay) {
    User user;
    for (int day = 1; day <= 20; ++day) {
        user.Write(std::to_string(day));
        user.Copy({2026, 11, day});
    }
    WriteWholeFile(CopiesFolder(user.places) / "before-restore.zip", "mine");
    user.Write("last");
    EXPECT_EQ(user.Copy({2026, 11, 21}), CopyOutcome::Made);
    EXPECT_THAT(user.Copies(),
                ElementsAre("2026-11-01.zip", "2026-11-08.zip", "2026-11-15.zip", "2026-11-16.zip",
                            "2026-11-17.zip", "2026-11-18.zip", "2026-11-19.zip", "2026-11-20.zip",
                            "2026-11-21.zip", "before-restore.zip"));
}

TEST(DatedCopies, NothingIsWrittenWhenTheProgramEnds) {
    User user;
    EXPECT_EQ(MakeDatedCopy(user.places, {2026, 11, 20}, 0, [] { return false; }),
              CopyOutcome::Left);
    EXPECT_FALSE(std::filesystem::exists(CopiesFolder(user.places)));
}

TEST(DatedCopies, AStoreThatIsWrittenMeanwhileIsTriedAgain) {
    User user;
    const auto write = [&] {
        user.Write("two");
        return true;
    };
    EXPECT_EQ(MakeDatedCopy(user.places, {2026, 11, 20}, 0, write), CopyOutcome::Moving);
    EXPECT_FALSE(std::filesystem::exists(CopiesFolder(user.places)));
}

TEST(DatedCopies, AFolderThatCannotBeMadeIsTold) {
    User user;
    WriteWholeFile(CopiesFolder(user.places), "in the way");
    EXPECT_THROW(user.Copy({2026, 11, 20}), RuntimeError);
}

} // namespace
} // namespace tallowmere
