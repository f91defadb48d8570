#include "core/portfolio/keyed_store.h"
#include "core/text/runtime_error.h"
#include "support/FullDisk.h"

#include "core/text/bytes.h"
#include "core/text/files.h"
#include "core/text/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <random>

namespace tallowmere {
namespace {

using std::filesystem::exists;

constexpr std::string_view kFile = "\\TickNotes.txt";

class KeyedStore : public testing::Test {
protected:
    std::string Run(std::string_view operation, std::string_view ticker = "",
                    std::string_view note = "", std::string_view file = kFile) {
        std::string result = "left from before";
        TickerNotes(m_folder.Path(), result, operation, ticker, note, file);
        return result;
    }
    void Write(std::string_view content) { std::ofstream(Path(), std::ios::binary) << content; }
    std::string Content() const { return ReadExistingFile(Path()); }
    std::filesystem::path Path() const { return m_folder.Path() / "TickNotes.txt"; }

    TemporaryFolder m_folder;
};

TEST_F(KeyedStore, SetAppendsOneLinePerRecord) {
    EXPECT_EQ(Run("SET", "MSFT", "watch the earnings date"), "");
    EXPECT_EQ(Content(), "||MSFT||watch the earnings date|||||\r\n");
    Run("SET", "AOL", "two\r\nlines");
    EXPECT_EQ(Content(), "||MSFT||watch the earnings date|||||\r\n||AOL||two\r\nlines|||||\r\n");
    EXPECT_EQ(Run("GET", "AOL"), "two\r\nlines");
}

TEST_F(KeyedStore, SetNeedsATickerAndANote) {
    Run("SET", "", "note");
    Run("SET", "MSFT", "");
    EXPECT_FALSE(exists(Path()));
}

TEST_F(KeyedStore, GetFollowsItsTableOfCases) {
    struct Case {
        std::string_view content, ticker, note;
    };
    for (const Case& c : {
             Case{"", "MSFT", ""},
             {"||MSFT||a|||||\r\n", "MSFT", "a"},
             {"||MSFT||a|||||\r\n", "MS", ""},
             {"||MSFT||a|||||\r\n", "msft", ""},
             {"||A||first|||||\r\n||A||second|||||\r\n", "A", "first"},
             {"||A||one|||||two|||||\r\n", "A", "one"},
             {"||A||one", "A", ""},
             {"||A||one|||||\r\n||B||two", "B", ""},
             {"||A||x||B||y|||||\r\n", "A", "x||B||y"},
             {"||A||x||B||y|||||\r\n", "B", "y"},
             {"||A|||||", "A", ""},
             {"||A|||||||", "A", ""},
             {"||A||||||||", "A", ""},
             {"||A||x|||||\r\n||B||y|||||\r\n", "", ""},
             {"||A|B||x|||||", "A|B", "x"},
         }) {
        EXPECT_EQ(FindNote(c.content, c.ticker), c.note) << c.content << " / " << c.ticker;
        EXPECT_EQ(NoteIndex(std::string(c.content)).Find(c.ticker), c.note)
            << c.content << " / " << c.ticker;
    }
}

TEST_F(KeyedStore, ANoteThatHoldsFiveBarsIsCutThere) {
    Run("SET", "MSFT", "before|||||after");
    EXPECT_EQ(Run("GET", "MSFT"), "before");
}

TEST_F(KeyedStore, GetMovesAnUnusableFileAway) {
    for (const std::string_view content : {"||", "||MSFT||note", "a || b", "||MSFT||note||||"}) {
        Write(content);
        EXPECT_EQ(Run("GET", "MSFT"), "");
        EXPECT_FALSE(exists(Path())) << content;
        EXPECT_EQ(ReadExistingFile(BackupPath(Path())), content);
    }
    Write("no double bar | anywhere");
    EXPECT_EQ(Run("GET", "MSFT"), "");
    EXPECT_EQ(Content(), "no double bar | anywhere");
}

TEST_F(KeyedStore, GetOfAMissingFileLeavesAnEmptyOne) {
    EXPECT_EQ(Run("GET", "MSFT"), "");
    ASSERT_TRUE(exists(Path()));
    EXPECT_EQ(Content(), "");
}

TEST_F(KeyedStore, RemoveFollowsItsTableOfCases) {
    struct Case {
        std::string_view content, ticker, rest;
    };
    for (const Case& c : {
             // The only record: nothing but the line end of the rewrite is left.
             Case{"||A||x|||||\r\n", "A", "\r\n"},
             {"||A||x|||||\r\n||B||y|||||\r\n", "A", "||B||y|||||\r\n\r\n"},
             {"||A||x|||||\r\n||B||y|||||\r\n", "B", "||A||x|||||\r\n\r\n"},
             {"||A||x|||||\r\n||A||y|||||\r\n", "A", "||A||y|||||\r\n\r\n"},
             // Without its line break a record takes two bytes of the next one along.
             {"||A||x|||||||B||y|||||\r\n", "A", "B||y|||||\r\n\r\n"},
             {"||A||x|||||", "A", "\r\n"},
             {"||A||x|||||\n", "A", "\r\n"},
             // Doubled line ends collapse everywhere, inside a note as well.
             {"||A||x|||||\r\n\r\n\r\n||B||1\r\n\r\n2|||||\r\n", "A",
              "\r\n||B||1\r\n2|||||\r\n\r\n"},
             {"||MSFT||x|||||\r\n||MS||y|||||\r\n", "MS", "||MSFT||x|||||\r\n\r\n"},
             {"||A||x||B||y|||||\r\n", "B", "||A||x\r\n"},
         })
        EXPECT_EQ(RemoveNote(c.content, c.ticker), c.rest) << c.content << " / " << c.ticker;
    for (const std::string_view content : {"", "||A||x", "||B||x|||||\r\n", "||B||x|||||\r\n||A||"})
        EXPECT_EQ(RemoveNote(content, "A"), std::nullopt) << content;
}

TEST_F(KeyedStore, OneRemoveDeletesOnlyTheFirstOfTwoRecords) {
    Run("SET", "A", "first");
    Run("SET", "A", "second");
    EXPECT_EQ(Run("GET", "A"), "first");
    EXPECT_EQ(Run("REMOVE", "A"), "");
    EXPECT_EQ(Run("GET", "A"), "second");
}

TEST_F(KeyedStore, RemoveOfAMissingRecordLeavesTheFileAlone) {
    Write("||A||x|||||\r\n\r\n\r\n");
    const auto stamp = StampOf(Path());
    Run("REMOVE", "B");
    Run("REMOVE", "");
    EXPECT_EQ(StampOf(Path()), stamp);
}

TEST_F(KeyedStore, RemoveMakesNoFile) {
    Run("REMOVE", "A");
    RemoveNotes(m_folder.Path(), {"A", "B"}, kFile);
    RemoveNotes(m_folder.Path(), {}, kFile);
    EXPECT_FALSE(exists(Path()));
}

TEST_F(KeyedStore, WithoutKeysNothingIsRemoved) {
    Write("||A||x|||||\r\n\r\n\r\n");
    const auto stamp = StampOf(Path());
    RemoveNotes(m_folder.Path(), {}, kFile);
    EXPECT_EQ(StampOf(Path()), stamp);
}

TEST_F(KeyedStore, KillKeepsOneBackup) {
    Run("KILL");
    EXPECT_FALSE(exists(BackupPath(Path())));
    Run("SET", "A", "old");
    Run("KILL");
    EXPECT_FALSE(exists(Path()));
    Run("SET", "A", "new");
    Run("KILL");
    EXPECT_FALSE(exists(Path()));
    EXPECT_EQ(ReadExistingFile(BackupPath(Path())), "||A||new|||||\r\n");
}

TEST_F(KeyedStore, KillOfAnEmptyFileKeepsTheOlderBackup) {
    Run("SET", "A", "old");
    Run("KILL");
    Run("GET", "A");
    Run("KILL");
    EXPECT_FALSE(exists(Path()));
    EXPECT_EQ(ReadExistingFile(BackupPath(Path())), "||A||old|||||\r\n");
}

TEST_F(KeyedStore, AnyOtherOperationDoesNothing) {
    for (const std::string_view operation : {"", "get", "DELETE", "GET "})
        EXPECT_EQ(Run(operation, "A", "x"), "");
    EXPECT_FALSE(exists(Path()));
}

TEST_F(KeyedStore, IgnoresErrorsOfTheFileSystem) {
    std::filesystem::create_directory(Path());
    for (const std::string_view operation : {"GET", "SET", "REMOVE", "KILL"})
        EXPECT_EQ(Run(operation, "A", "x"), "") << operation;
    EXPECT_TRUE(std::filesystem::is_directory(Path()));
    RemoveNotes(m_folder.Path(), {"A"}, kFile);
    std::string result;
    TickerNotes(m_folder.Path() / "file" / "below", result, "GET", "A", "", kFile);
    EXPECT_EQ(result, "");
}

TEST_F(KeyedStore, NamesNeverLeaveTheFolder) {
    EXPECT_EQ(PathInFolder("f", "\\TickNotes.txt"), std::filesystem::path("f") / "TickNotes.txt");
    EXPECT_EQ(PathInFolder("f", "remind.txt"), std::filesystem::path("f") / "remind.txt");
    EXPECT_EQ(PathInFolder("f", "\\a..b"), std::filesystem::path("f") / "a..b");
    using namespace std::string_view_literals;
    for (const std::string_view name : {""sv, "\\"sv, "."sv, "\\.."sv, "../x"sv, "\\..\\x"sv,
                                        "\\\\x"sv, "/etc/passwd"sv, "a/b"sv, "C:x"sv, "a\0b"sv}) {
        EXPECT_EQ(PathInFolder("f", name), std::filesystem::path()) << name;
        EXPECT_EQ(Run("SET", "A", "x", name), "");
        EXPECT_EQ(Run("GET", "A", "", name), "");
        EXPECT_EQ(Run("KILL", "", "", name), "");
    }
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
}

TEST_F(KeyedStore, RemoveNotesWritesOnceWhatSingleRemovesLeave) {
    std::string content;
    for (const char* key : {"A", "B", "C", "A", "D"})
        content += NoteRecord(key, std::string("note on ") + key);
    Write(content);
    for (const char* key : {"A", "C", "X", "A"})
        Run("REMOVE", key);
    const std::string expected = Content();
    EXPECT_EQ(expected, "||B||note on B|||||\r\n||D||note on D|||||\r\n\r\n");
    Write(content);
    RemoveNotes(m_folder.Path(), {"A", "C", "X", "A"}, kFile);
    EXPECT_EQ(Content(), expected);
}

/// Bars, a line end and few other bytes: most texts of these are weird stores.
class WeirdTexts {
public:
    std::string Next(std::size_t most) {
        constexpr std::string_view kPieces[] = {"|",  "|",     "||", "|||||",          "|||||\r\n",
                                                "A",  "B",     "AB", "\r\n",           "\r",
                                                "\n", "||A||", "x",  "||B||x|||||\r\n"};
        std::string text;
        for (auto pieces = m_random() % (most + 1); pieces > 0; --pieces)
            text += kPieces[m_random() % std::size(kPieces)];
        return text;
    }

private:
    std::mt19937 m_random{11};
};

TEST_F(KeyedStore, TheIndexAgreesWithSingleSearches) {
    WeirdTexts texts;
    for (int round = 0; round < 3000; ++round) {
        const std::string content = texts.Next(12);
        const NoteIndex index(content);
        for (std::size_t from = 0; from <= content.size(); ++from)
            for (std::size_t size = 0; size <= std::min<std::size_t>(4, content.size() - from);
                 ++size) {
                const std::string key = content.substr(from, size);
                ASSERT_EQ(index.Find(key), FindNote(content, key)) << content << " / " << key;
            }
    }
}

TEST_F(KeyedStore, GetFindsInAFileWhatASearchFindsInItsContent) {
    WeirdTexts texts;
    constexpr std::size_t kPiece = 256 * 1024;
    for (int round = 0; round < 200; ++round) {
        // The weird part lies across the place where a large file is cut into pieces.
        const std::string weird = texts.Next(12);
        std::string content(kPiece - weird.size() * static_cast<std::size_t>(round % 7) / 6, '.');
        content += weird;
        if (round % 10 == 0)
            content += std::string(2 * kPiece, '-') + "|||||";
        for (const char* key : {"A", "B", "AB", "x", "\r\n", ""}) {
            Write(content);
            ASSERT_EQ(Run("GET", key), FindNote(content, key)) << weird << " / " << key;
            ASSERT_EQ(exists(Path()), !IsUnusable(content)) << weird;
        }
    }
    const std::string longKey(3 * kPiece, 'K');
    Write(NoteRecord("A", "x") + NoteRecord(longKey, "found"));
    EXPECT_EQ(Run("GET", longKey), "found");
}

TEST_F(KeyedStore, LineEndsCollapseAsByRepeatedReplacement) {
    std::mt19937 random(3);
    for (int round = 0; round < 3000; ++round) {
        std::string text;
        for (auto count = random() % 20; count > 0; --count)
            text += "\r\nx"[random() % 5 % 3];
        std::string expected = text;
        while (Contains(expected, "\r\n\r\n"))
            expected = ReplaceAll(expected, "\r\n\r\n", "\r\n");
        EXPECT_EQ(RemoveNote(text + "||A|||||||\r\n", "A"), expected + "\r\n");
    }
}

TEST_F(KeyedStore, RemovingManyIsRemovingOneAfterAnother) {
    WeirdTexts texts;
    for (int round = 0; round < 5000; ++round) {
        const std::string content = texts.Next(8);
        std::vector<std::string> keys;
        for (int i = 0; i < 4; ++i)
            keys.push_back(texts.Next(1));
        std::optional<std::string> expected;
        for (const std::string& key : keys)
            if (auto rest = RemoveNote(expected ? *expected : content, key))
                expected = rest;
        ASSERT_EQ(RemoveNotes(content, keys), expected) << content;
    }
}

TEST_F(KeyedStore, WorksThroughHundredThousandRecordsAtOnce) {
    std::string content;
    std::vector<std::string> keys;
    for (int i = 0; i < 100'000; ++i) {
        keys.push_back("T" + std::to_string(i));
        content += NoteRecord(keys.back(), "note " + std::to_string(i));
    }
    const NoteIndex index(content);
    EXPECT_EQ(index.Find("T99999"), "note 99999");
    EXPECT_EQ(RemoveNotes(content, keys), "\r\n\r\n");
}

TEST(NoteIndex, ListsTheKeysThatHaveANoteInTheOrderOfTheFile) {
    const NoteIndex index("||MSFT||two|||||\r\n||AOL|||||||\r\n\r\n||IBM||one|||||\r\n||X||no end");
    EXPECT_EQ(index.Keys(), (std::vector<std::string_view>{"MSFT", "IBM"}));
    EXPECT_EQ(index.Find("IBM"), "one");
    EXPECT_TRUE(NoteIndex("").Keys().empty());
}

// What one write has to leave is what the two operations leave one after the other.
TEST(ReplacingANote, LeavesWhatRemoveAndSetLeave) {
    const std::vector<std::string> contents = {
        "",
        "\r\n",
        "||AOL||one|||||\r\n",
        "||AOL||one|||||\r\n||MSFT||two|||||\r\n",
        "||MSFT||two|||||\r\n||AOL||one|||||\r\n||MSFT||again|||||\r\n",
        "||MSFT||no end",
        "||MSFT||typed by hand|||||||AOL||one|||||",
        "||MSFT||a||AOL||b|||||\r\n\r\n\r\n",
    };
    for (const std::string& content : contents)
        for (const std::string_view note : {"", "new", "two\r\nlines", "a | b"}) {
            const TemporaryFolder one;
            const TemporaryFolder other;
            for (const TemporaryFolder* folder : {&one, &other})
                if (!content.empty())
                    WriteWholeFile(folder->Path() / "TickNotes.txt", content);
            std::string ignored;
            TickerNotes(one.Path(), ignored, "REMOVE", "MSFT", "", kTickerNotesFile);
            TickerNotes(one.Path(), ignored, "SET", "MSFT", note, kTickerNotesFile);
            ReplaceNote(other.Path(), "MSFT", note, kTickerNotesFile);
            EXPECT_EQ(ReadExistingFile(other.Path() / "TickNotes.txt"),
                      ReadExistingFile(one.Path() / "TickNotes.txt"))
                << content << " / " << note;
        }
}

TEST(ReplacingANote, ThatIsNotThereByNothingTouchesNoFile) {
    const TemporaryFolder folder;
    ReplaceNote(folder.Path(), "MSFT", "", kTickerNotesFile);
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "TickNotes.txt"));
}

TEST(ReplacingANote, KeepsTheOldOneWhenTheDiskIsFull) {
    const TemporaryFolder folder;
    const auto path = folder.Path() / "TickNotes.txt";
    const std::string before = NoteRecord("MSFT", "old") + NoteRecord("AOL", "other");
    WriteWholeFile(path, before);
    {
        const FullDisk disk(before.size());
        EXPECT_THROW(ReplaceNote(folder.Path(), "MSFT", std::string(4096, 'n'), kTickerNotesFile),
                     RuntimeError);
    }
    EXPECT_EQ(ReadExistingFile(path), before);
}

TEST(ReplacingANote, IsRefusedForAStoreThatIsTooLarge) {
    const TemporaryFolder folder;
    const auto path = folder.Path() / "TickNotes.txt";
    WriteWholeFile(path, NoteRecord("MSFT", "old"));
    std::filesystem::resize_file(path, kLargestStore);
    EXPECT_NO_THROW(ReadStore(folder.Path(), kTickerNotesFile));
    std::filesystem::resize_file(path, kLargestStore + 1);
    try {
        ReplaceNote(folder.Path(), "MSFT", "new", kTickerNotesFile);
        FAIL() << "it was read";
    } catch (const RuntimeError& error) {
        EXPECT_THAT(error.what(), testing::HasSubstr("TickNotes.txt: it is larger than 64 MB"));
    }
    EXPECT_EQ(std::filesystem::file_size(path), kLargestStore + 1);
}

TEST(StorableNotes, ReadBackWholeWhateverBarsTheyHold) {
    for (const std::string_view note :
         {"plain", "a|b", "a||||b", "a|||||b", "|||||", "||||||||||||", "ends |", "ends ||||",
          "ends |||||", "|begins", "||||| x |||||", "two\r\nlines |||||\r\n"}) {
        const std::string storable = StorableNote(note);
        EXPECT_EQ(FindNote(NoteRecord("MSFT", storable), "MSFT"), storable) << note;
        EXPECT_EQ(NoteIndex(NoteRecord("MSFT", storable)).Find("MSFT"), storable) << note;
    }
}

TEST(StorableNotes, OnlyBarsThatWouldEndARecordAreParted) {
    EXPECT_EQ(StorableNote(""), "");
    EXPECT_EQ(StorableNote("a | b || c ||| d |||| e"), "a | b || c ||| d |||| e");
    EXPECT_EQ(StorableNote("a|||||b"), "a|||| |b");
    EXPECT_EQ(StorableNote("|||||||||"), "|||| |||| | ");
    EXPECT_EQ(StorableNote("end|"), "end| ");
}

TEST(NoteLines, AreStoredSoThatNoRemovalTakesThemAway) {
    struct Case {
        std::string typed, stored, shown;
    };
    const Case cases[] = {
        {"one", "one", "one"},
        {"one\ntwo", "one\r\ntwo", "one\ntwo"},
        {"one\r\ntwo\rthree", "one\r\ntwo\r\nthree", "one\ntwo\nthree"},
        {"one\n\ntwo", "one\r\n \r\ntwo", "one\n\ntwo"},
        {"one\n\n\n\ntwo", "one\r\n \r\n \r\n \r\ntwo", "one\n\n\n\ntwo"},
        {"\n\none\n\n", "one", "one"},
        {" \none", " \r\none", " \none"},
        {"one\n  \ntwo", "one\r\n  \r\ntwo", "one\n  \ntwo"},
        {"\n", "", ""},
        {"", "", ""},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(StoredLines(c.typed), c.stored) << c.typed;
        EXPECT_EQ(ShownLines(c.stored), c.shown) << c.stored;
        EXPECT_EQ(StoredLines(c.shown), c.stored) << c.shown;
        // What another record's removal does to the rest of a store.
        const std::string content = NoteRecord("A", "x") + NoteRecord("B", c.stored);
        EXPECT_EQ(FindNote(*RemoveNote(content, "A"), "B"), c.stored) << c.typed;
    }
}

TEST(NoteLines, TheFirstOneStandsInTheMenu) {
    struct Case {
        std::string note, line;
    };
    const Case cases[] = {
        {"watch R&D", "watch R&D"},
        {"one\r\ntwo", "one\xE2\x80\xA6"},
        {" \r\n \r\none", "one"},
        {std::string(40, 'a'), std::string(40, 'a')},
        {std::string(41, 'a'), std::string(40, 'a') + "\xE2\x80\xA6"},
        {"\xC3\xA4\xC3\xA4", "\xC3\xA4\xC3\xA4"},
        {"", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FirstLine(c.note), c.line) << c.note;
    EXPECT_EQ(FirstLine("\xC3\xA4\xC3\xA4\xC3\xA4", 2), "\xC3\xA4\xC3\xA4\xE2\x80\xA6");
}

TEST(ReplaceNotes, SeveralAreReplacedInOneWrite) {
    const TemporaryFolder folder;
    ReplaceNotes(folder.Path(), {}, kTickerNotesFile);
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "TickNotes.txt"));
    WriteWholeFile(folder.Path() / "TickNotes.txt",
                   NoteRecord("A", "old") + NoteRecord("B", "stays") + NoteRecord("C", "goes"));
    ReplaceNotes(folder.Path(), {{"A", "young"}, {"C", ""}, {"D", "new"}, {"", "none"}},
                 kTickerNotesFile);
    const std::string content = ReadExistingFile(folder.Path() / "TickNotes.txt");
    EXPECT_EQ(FindNote(content, "A"), "young");
    EXPECT_EQ(FindNote(content, "B"), "stays");
    EXPECT_EQ(FindNote(content, "C"), "");
    EXPECT_EQ(FindNote(content, "D"), "new");
    EXPECT_EQ(content.find("none"), std::string::npos);
}

} // namespace
} // namespace tallowmere
