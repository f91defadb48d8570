#include "core/pages/download_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tallowmere {
namespace {

using State = DownloadState;
using Problem = DownloadProblem;

struct ByteCase {
    std::int64_t bytes;
    std::string_view text;
};

// clang-format off
constexpr ByteCase kByteCases[] = {
    {-1,                 "0 bytes"},
    {0,                  "0 bytes"},
    {1,                  "1 byte"},
    {2,                  "2 bytes"},
    {999,                "999 bytes"},
    {1'000,              "1.0 kB"},
    {1'249,              "1.2 kB"},
    {9'949,              "9.9 kB"},
    {9'950,              "10 kB"},
    {40'400,             "40 kB"},
    {999'499,            "999 kB"},
    {999'500,            "1.0 MB"},
    {40'000'000,         "40 MB"},
    {1'500'000'000,      "1.5 GB"},
    {2'000'000'000'000,  "2.0 TB"},
    {std::numeric_limits<std::int64_t>::max(), "9.2 EB"},
};

struct TimeCase {
    double seconds;
    std::string_view text;
};

constexpr TimeCase kTimeCases[] = {
    {-5,       "1 s"},
    {0,        "1 s"},
    {0.2,      "1 s"},
    {1.2,      "2 s"},
    {59,       "59 s"},
    {60,       "60 s"},
    {60.5,     "2 min"},
    {120,      "2 min"},
    {121,      "3 min"},
    {3540,     "59 min"},
    {3541,     "1 h"},
    {3600,     "1 h"},
    {3900,     "1 h 5 min"},
    {86'399,   "24 h"},
    {86'400,   "more than a day"},
    {1e300,    "more than a day"},
    {INFINITY, "more than a day"},
    {NAN,      "more than a day"},
};

struct RowCase {
    DownloadFacts facts;
    std::string_view text;
    int percent; ///< -1: not known
};

const RowCase kRowCases[] = {
    {{State::Running, 0, -1},                                        "Starting", -1},
    {{State::Running, 0, 40'000'000},                                "Starting", 0},
    {{State::Running, 1'200'000, 40'000'000},                        "1.2 MB of 40 MB", 3},
    {{State::Running, 1'200'000, -1},                                "1.2 MB", -1},
    {{State::Running, 1'200'000, 41'200'000, 2e6},                   "1.2 MB of 41 MB, 2.0 MB/s, 20 s left", 2},
    {{State::Running, 1'200'000, -1, 2e6},                           "1.2 MB, 2.0 MB/s", -1},
    {{State::Running, 500, 500, 100.0},                              "500 bytes of 500 bytes, 100 bytes/s", 100},
    {{State::Running, 500, 1000, 1.0},                               "500 bytes of 1.0 kB, 1 byte/s, 9 min left", 50},
    {{State::Running, 500, 1000, 0.9},                               "500 bytes of 1.0 kB, waiting for the site", 50},
    {{State::Running, 0, -1, 0.0},                                   "0 bytes, waiting for the site", -1},
    {{State::Running, 0, 0},                                         "Starting", -1},
    // A site that sends more than it said.
    {{State::Running, 1200, 1000, 500.0},                            "1.2 kB, 500 bytes/s", -1},
    {{State::Saved, 40'000'000, 40'000'000},                         "Saved, 40 MB", 100},
    {{State::Saved, 0, -1},                                          "Saved, 0 bytes", 100},
    {{State::Saved, 12, 12, {}, Problem::None, true},                "Saved, 12 bytes; no longer in its folder", 100},
    {{State::Cancelled, 12, 24},                                     "Cancelled", 50},
    {{State::Failed, 0, -1, {}, Problem::NotAllowed},                "Not saved: nothing may be written in this folder", -1},
    {{State::Failed, 4096, 8192, {}, Problem::DiskFull},             "Not saved: the disk is full, after 4.1 kB of 8.2 kB", 50},
    {{State::Failed, 4096, -1, {}, Problem::ConnectionLost},         "Not saved: the connection broke, after 4.1 kB", -1},
    {{State::Failed, 0, -1, {}, Problem::Unknown},                   "Not saved: the reason is not known", -1},
};
// clang-format on

TEST(DownloadText, BytesAreCountedInUnitsOfAThousand) {
    for (const ByteCase& row : kByteCases)
        EXPECT_EQ(ByteText(row.bytes), row.text) << row.bytes;
}

TEST(DownloadText, ATimeLeftIsRoundedUp) {
    for (const TimeCase& row : kTimeCases)
        EXPECT_EQ(TimeLeftText(row.seconds), row.text) << row.seconds;
}

TEST(DownloadText, ARowSaysHowFarAFileIs) {
    for (const RowCase& row : kRowCases) {
        EXPECT_EQ(DownloadText(row.facts), row.text);
        EXPECT_EQ(DownloadPercent(row.facts).value_or(-1), row.percent) << row.text;
    }
}

TEST(DownloadText, EveryProblemHasItsOwnWords) {
    std::string all;
    for (int n = 1; n <= static_cast<int>(Problem::Unknown); ++n) {
        const std::string words(DownloadProblemText(static_cast<Problem>(n)));
        EXPECT_FALSE(words.empty()) << n;
        EXPECT_EQ(all.find(words + "|"), std::string::npos) << words;
        all += words + "|";
    }
    EXPECT_TRUE(DownloadProblemText(Problem::None).empty());
}

TEST(DownloadText, WhatWouldRunIsNotOpenedAndSaysWhy) {
    EXPECT_EQ(WhyNotOpened("list.csv"), "");
    EXPECT_EQ(WhyNotOpened("list"), "");
    EXPECT_EQ(WhyNotOpened("list.SH"), "list.SH is a program: opening it would run it. It is only "
                                       "shown in its folder.");
}

TEST(DownloadText, TheClosingQuestionCounts) {
    EXPECT_EQ(ClosingQuestion(1),
              "A file is still being saved. Close all the same? What is there of it goes.");
    EXPECT_EQ(ClosingQuestion(2), "2 files are still being saved. Close all the same? What is "
                                  "there of them goes.");
}

} // namespace
} // namespace tallowmere
