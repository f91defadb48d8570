#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// What the list of downloads says about a file.
namespace tallowmere {

enum class DownloadState { Running, Saved, Cancelled, Failed };

/// Why a file could not be saved.
enum class DownloadProblem {
    None,
    DiskFull,
    NotAllowed, ///< the folder may not be written
    NameTooLong,
    FileTooLarge,
    FileFailed, ///< anything else that keeps a file from being written
    ConnectionLost,
    NoAnswer,
    ServerRefused,
    ServerFailed,
    Blocked,
    Unknown
};

/// How far a file is.
struct DownloadFacts {
    DownloadState state = DownloadState::Running;
    std::int64_t received = 0;
    std::int64_t total = -1;                   ///< as the site says; below 0 when it does not
    std::optional<double> bytesPerSecond = {}; ///< none while nothing can be said yet
    DownloadProblem problem = DownloadProblem::None;
    bool isGone = false; ///< the saved file is no longer where it was put
};

/// A count of bytes for people: "1 byte", "999 bytes", "1.2 kB", "40 MB"; a kilobyte has 1000
/// bytes.
std::string ByteText(std::int64_t bytes);

/// A time that is still to go: "1 s", "2 min", "1 h 5 min", "more than a day". What has begun
/// counts as whole.
std::string TimeLeftText(double seconds);

/// Why a file could not be saved, in words for the middle of a sentence; empty for None.
std::string_view DownloadProblemText(DownloadProblem problem);

/// What a row of the list says: "1.2 MB of 40 MB, 2.0 MB/s, 20 s left".
std::string DownloadText(const DownloadFacts& facts);

/// 0 to 100; none when nobody knows how large the file will be.
std::optional<int> DownloadPercent(const DownloadFacts& facts);

/// Why a saved file is not opened from the list although it is there; empty when it is.
std::string WhyNotOpened(std::string_view name);

/// The question before the program ends while `count` files are being saved.
std::string ClosingQuestion(int count);

} // namespace tallowmere
