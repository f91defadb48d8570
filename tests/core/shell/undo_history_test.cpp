#include "core/shell/undo_history.h"

#include <gtest/gtest.h>

#include <random>

namespace tallowmere {
namespace {

using Text = std::optional<std::string>;
constexpr auto kBack = UndoDirection::Back;
constexpr auto kForth = UndoDirection::Forth;

UndoStep Step(const std::string& caption, const Text& before, const Text& after) {
    UndoStep step{caption, "", {}};
    if (auto change = MakeUndoChange("Settings", "Stocks1", before, after))
        step.changes.push_back(*change);
    return step;
}

TEST(UndoHistory, AChangeLeadsThereAndBackAndHoldsOnlyWhatDiffers) {
    struct Case {
        Text before, after;
        std::string gone, come;
    };
    const Case cases[] = {
        {"AOL|MSFT|", "AOL|AMD|MSFT|", "", "AMD|"},
        {"AOL|AMD|MSFT|", "AOL|MSFT|", "AMD|", ""},
        {"AOL|", "AOL|AOL|", "", "AOL|"},
        {"aaa", "aa", "a", ""},
        {"abc", "xyz", "abc", "xyz"},
        {"", "AOL|", "", "AOL|"},
        {std::nullopt, "AOL|", "", "AOL|"},
        {"AOL|", std::nullopt, "AOL|", ""},
        {std::nullopt, "", "", ""},
        {std::string("a\0b", 3), std::string("a\0\xFF", 3), "b", "\xFF"},
    };
    for (const Case& c : cases) {
        const auto change = MakeUndoChange("Settings", "Stocks1", c.before, c.after);
        ASSERT_TRUE(change) << c.before.value_or("(none)");
        EXPECT_EQ(change->before.size() + change->after.size(), c.gone.size() + c.come.size())
            << c.before.value_or("(none)");
        EXPECT_TRUE(Fits(*change, kBack, c.after));
        EXPECT_EQ(Changed(*change, kBack, c.after), c.before);
        EXPECT_TRUE(Fits(*change, kForth, c.before));
        EXPECT_EQ(Changed(*change, kForth, c.before), c.after);
        EXPECT_FALSE(Fits(*change, kBack, c.before));
        EXPECT_FALSE(Fits(*change, kForth, c.after));
    }
    EXPECT_FALSE(MakeUndoChange("Settings", "Stocks1", "AOL|", "AOL|"));
    EXPECT_FALSE(MakeUndoChange("Settings", "Stocks1", std::nullopt, std::nullopt));
}

TEST(UndoHistory, AnEmptyFileIsAsGoodAsNoneButAnEmptySettingIsNot) {
    const auto file = MakeUndoChange("", "TickNotes.txt", std::nullopt, "note");
    EXPECT_TRUE(Fits(*file, kForth, ""));
    EXPECT_EQ(Changed(*file, kForth, ""), "note");
    EXPECT_EQ(Changed(*file, kBack, "note"), std::nullopt);
    const auto setting = MakeUndoChange("Settings", "PortName1", std::nullopt, "Tech");
    EXPECT_FALSE(Fits(*setting, kForth, ""));
}

TEST(UndoHistory, AChangeDoesNotFitWhatChangedOtherwise) {
    const auto change = MakeUndoChange("Settings", "Stocks1", "AOL|MSFT|", "AOL|AMD|MSFT|");
    for (const Text& other : {Text("AOL|AMD|IBM|"), Text("AOL|AMD|MSFT|IBM|"), Text(), Text("")})
        EXPECT_FALSE(Fits(*change, kBack, other)) << other.value_or("(none)");
}

TEST(UndoHistory, GoesBackAndForthAndForgetsWhatWasUndoneWithANewStep) {
    UndoHistory history;
    EXPECT_EQ(history.Next(kBack), nullptr);
    EXPECT_EQ(history.Next(kForth), nullptr);
    history.Record(Step("one", "", "1"));
    history.Record(Step("two", "1", "2"));
    EXPECT_EQ(history.Next(kBack)->caption, "two");
    history.Pass(kBack);
    EXPECT_EQ(history.Next(kBack)->caption, "one");
    EXPECT_EQ(history.Next(kForth)->caption, "two");
    history.Pass(kForth);
    EXPECT_EQ(history.Next(kBack)->caption, "two");
    history.Pass(kBack);
    history.Record(Step("three", "1", "3"));
    EXPECT_EQ(history.Next(kForth), nullptr);
    EXPECT_EQ(history.Next(kBack)->caption, "three");
    history.Drop(kBack);
    EXPECT_EQ(history.Next(kBack)->caption, "one");
    EXPECT_EQ(history.Next(kForth), nullptr);
}

TEST(UndoHistory, AForgottenStepTakesNoOtherAlong) {
    UndoHistory history;
    for (const char* caption : {"one", "two", "three"})
        history.Record(Step(caption, "", caption));
    history.Pass(kBack);
    history.Pass(kBack);
    history.Drop(kForth);
    EXPECT_EQ(history.Next(kForth)->caption, "three");
    EXPECT_EQ(history.Next(kBack)->caption, "one");
}

TEST(UndoHistory, HoldsAHundredStepsAndSixteenMegabytes) {
    UndoHistory history;
    for (int n = 1; n <= 101; ++n)
        history.Record(Step(std::to_string(n), std::to_string(n), std::to_string(n + 1)));
    int steps = 0;
    std::string oldest;
    for (; history.Next(kBack); history.Pass(kBack), ++steps)
        oldest = history.Next(kBack)->caption;
    EXPECT_EQ(steps, 100);
    EXPECT_EQ(oldest, "2");

    UndoHistory large;
    const std::string half(UndoHistory::kMostBytes / 2, 'x');
    large.Record(Step("small", "", "1"));
    large.Record(Step("one half", "", half));
    large.Record(Step("other half", half, ""));
    EXPECT_EQ(large.Next(kBack)->caption, "other half");
    large.Pass(kBack);
    EXPECT_EQ(large.Next(kBack), nullptr);
}

TEST(UndoHistory, IsReadBackAsItWasWritten) {
    UndoHistory history;
    EXPECT_EQ(ReadUndoHistory(history.Text()), history);
    history.Record(Step("a\nb", std::string("\0\n12\n", 5), "\xFF|"));
    history.Record({"empty", "X removed.", {}});
    UndoStep both = Step("both", "A", "B");
    both.changes.push_back(*MakeUndoChange("", "TickNotes.txt", std::nullopt, "||A||b|||||\r\n"));
    history.Record(both);
    history.Pass(kBack);
    EXPECT_EQ(ReadUndoHistory(history.Text()), history);
}

TEST(UndoHistory, OfADamagedTextNothingIsLeft) {
    UndoHistory history;
    history.Record(Step("one", "A", "B"));
    history.Record(Step("two", "B", "C"));
    const std::string text = history.Text();
    for (std::size_t size = 0; size < text.size(); ++size)
        EXPECT_EQ(ReadUndoHistory(text.substr(0, size)).has_value(), size == 0) << size;
    EXPECT_EQ(ReadUndoHistory(""), UndoHistory());
    EXPECT_FALSE(ReadUndoHistory(text + "x"));
    for (const char* wrong : {"x", "Tallowmere undo 3\n0\n0\n", "Tallowmere undo 1\n1\n0\n",
                              "Tallowmere undo 1\n0\n18446744073709551615\n",
                              "Tallowmere undo 1\n0\n1\n18446744073709551615\nx\n"})
        EXPECT_FALSE(ReadUndoHistory(wrong)) << wrong;
    std::mt19937 random(1);
    for (int n = 0; n < 2000; ++n) {
        std::string damaged = text;
        damaged[random() % damaged.size()] = static_cast<char>(random());
        UndoHistory read = ReadUndoHistory(damaged).value_or(UndoHistory());
        for (int step = 0; step < 3 && read.Next(kBack); ++step, read.Pass(kBack))
            for (const UndoChange& change : read.Next(kBack)->changes)
                for (const Text& now : {Text("A"), Text("B"), Text("C"), Text()})
                    EXPECT_TRUE(!Fits(change, kBack, now) ||
                                Changed(change, kBack, now).value_or("").size() <= text.size());
    }
}

TEST(UndoHistory, SaysWhatAChangeIsAbout) {
    struct Case {
        const char *section, *key, *words;
    };
    const Case cases[] = {
        {"Settings", "Stocks3", "portfolio 3"},
        {"Settings", "PortName10", "the name of portfolio 10"},
        {"Settings", "Custom101", "custom link 101"},
        {"Settings", "CustomT102", "custom link 102"},
        {"Settings", "CustomF103", "custom link 103"},
        {"Settings", "CustomB104", "custom link 104"},
        {"Settings", "Tips", "Tips"},
        {"Colors", "fTE", "the colours"},
        {"", "TickNotes.txt", "the notes"},
        {"", "remind.txt", "the reminders"},
        {"", "My page.mlnk", "My page.mlnk"},
    };
    for (const Case& c : cases) {
        UndoChange change;
        change.section = c.section;
        change.key = c.key;
        EXPECT_EQ(UndoSubject(change), c.words);
    }
}

TEST(UndoHistory, KeepsWhereAKeyStoodAndReadsHistoriesWithoutThat) {
    UndoHistory history;
    for (const Text& behind : {Text(), Text(""), Text("Stocks1")}) {
        UndoStep step = Step("one", "1", "2");
        step.changes[0].behind = behind;
        history.Record(step);
    }
    EXPECT_EQ(ReadUndoHistory(history.Text(), UndoHistory::kMostSteps), history);

    const auto old = ReadUndoHistory("Tallowmere undo 1\n1\n1\n1\na\n0\n\n1\n"
                                     "6\nColors\n2\nfX\n0\n1\n7\n0\n\n1\n1\n5\n0\n0\n6\n",
                                     UndoHistory::kMostSteps);
    ASSERT_TRUE(old);
    EXPECT_EQ(old->Next(kBack)->changes[0].before, "7");
    EXPECT_EQ(old->Next(kBack)->changes[0].behind, std::nullopt);
}

} // namespace
} // namespace tallowmere
