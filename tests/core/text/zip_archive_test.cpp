#include "core/text/zip_archive.h"

#include "core/text/runtime_error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tallowmere {
namespace {

using Files = std::vector<ArchivedFile>;

constexpr std::uint64_t kPlenty = 1'000'000;
constexpr std::time_t kNoon = 1'795'176'000;

std::optional<std::uint64_t> Anything(std::string_view) {
    return kPlenty;
}

/// What a reading says that is refused; empty when it is not.
std::string Refusal(std::string_view bytes, const ArchiveLimit& limit = Anything,
                    std::uint64_t most = kPlenty) {
    try {
        ReadZip(bytes, limit, most);
    } catch (const RuntimeError& error) {
        return error.what();
    }
    return {};
}

/// The archive with a name in all places replaced by another of the same length.
std::string Renamed(std::string bytes, std::string_view from, std::string_view to) {
    for (auto at = bytes.find(from); at != std::string::npos; at = bytes.find(from, at + 1))
        bytes.replace(at, to.size(), to);
    return bytes;
}

TEST(ZipArchive, WhatIsPackedComesOutTheSame) {
    const Files files{{"a.txt", "one"},
                      {"\xC3\xA9t\xC3\xA9.mlnk", std::string(100'000, 'x')},
                      {"empty", ""},
                      {"bytes", std::string("\0\r\n\xFF", 4)}};
    EXPECT_EQ(ReadZip(WriteZip(files, kNoon), Anything, kPlenty), files);
}

TEST(ZipArchive, TheSameFilesOfTheSameTimeAreTheSameBytes) {
    const Files files{{"a.txt", "one"}, {"b.txt", "two"}};
    EXPECT_EQ(WriteZip(files, kNoon), WriteZip(files, kNoon));
}

TEST(ZipArchive, WhatIsNotWantedAnyMoreIsNotMade) {
    const Files files{{"a.txt", std::string(1'000'000, 'x')}};
    EXPECT_THROW(WriteZip(files, kNoon, [] { return false; }), RuntimeError);
    EXPECT_EQ(WriteZip(files, kNoon, [] { return true; }), WriteZip(files, kNoon));
}

TEST(ZipArchive, OfNothingNoneIsMade) {
    EXPECT_THROW(WriteZip({}, kNoon), RuntimeError);
}

TEST(ZipArchive, AnEmptyOneHasNoFiles) {
    const std::string bytes("PK\x05\x06" + std::string(18, '\0'));
    EXPECT_EQ(ReadZip(bytes, Anything, kPlenty), Files());
}

TEST(ZipArchive, OnlyWantedFilesAreRead) {
    const auto limit = [](std::string_view name) {
        return name == "b.txt" ? std::optional<std::uint64_t>(3) : std::nullopt;
    };
    const std::string bytes = WriteZip({{"../b.txt", "out"}, {"b.txt", "two"}, {"c", "3"}}, kNoon);
    EXPECT_EQ(ReadZip(bytes, limit, kPlenty), (Files{{"b.txt", "two"}}));
}

TEST(ZipArchive, AFileBeyondItsLimitIsRefused) {
    const auto three = [](std::string_view) { return std::optional<std::uint64_t>(3); };
    EXPECT_EQ(Refusal(WriteZip({{"a", "123"}}, kNoon), three), "");
    EXPECT_EQ(Refusal(WriteZip({{"a", "1234"}}, kNoon), three),
              "The archive cannot be read: a is larger than such a file can be");
}

TEST(ZipArchive, AllFilesTogetherHaveALimit) {
    const std::string bytes = WriteZip({{"a", "123"}, {"b", "456"}}, kNoon);
    EXPECT_EQ(Refusal(bytes, Anything, 6), "");
    EXPECT_EQ(Refusal(bytes, Anything, 5),
              "The archive cannot be read: b is larger than such a file can be");
}

TEST(ZipArchive, ABombIsNotUnpackedBeyondItsLimit) {
    const std::string bytes = WriteZip({{"a", std::string(50'000'000, '0')}}, kNoon);
    ASSERT_LT(bytes.size(), 100'000u);
    EXPECT_EQ(Refusal(bytes), "The archive cannot be read: a is larger than such a file can be");
}

TEST(ZipArchive, AFileThatIsThereTwiceIsRefused) {
    const std::string bytes =
        Renamed(WriteZip({{"aa.txt", "one"}, {"bb.txt", "two"}}, kNoon), "bb.txt", "aa.txt");
    EXPECT_EQ(Refusal(bytes), "The archive cannot be read: it holds aa.txt twice");
}

TEST(ZipArchive, WhatIsNoArchiveIsRefused) {
    for (const std::string_view bytes : {"", "PK", "no archive at all", "PK\x03\x04 and no more"})
        EXPECT_THAT(Refusal(bytes), testing::StartsWith("The archive cannot be read: ")) << bytes;
}

TEST(ZipArchive, AnArchiveThatWasCutOffIsRefusedWhereverThatWas) {
    const std::string bytes = WriteZip({{"a.txt", "one and two"}, {"b.txt", "three"}}, kNoon);
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_NE(Refusal(bytes.substr(0, size)), "") << size;
}

TEST(ZipArchive, ContentThatWasDamagedIsRefused) {
    const std::string bytes = WriteZip({{"a.txt", "0123456789"}}, kNoon);
    const auto at = bytes.find("0123456789");
    ASSERT_NE(at, std::string::npos);
    std::string damaged = bytes;
    damaged[at] = 'x';
    EXPECT_THAT(Refusal(damaged), testing::StartsWith("The archive cannot be read: a.txt: "));
}

} // namespace
} // namespace tallowmere
