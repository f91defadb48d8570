#include "core/pages/download_text.h"

#include "core/pages/download_name.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace tallowmere {

namespace {

constexpr double kThousand = 1000;
constexpr double kWholeFrom = 9.95; ///< from here on a number needs no decimal
constexpr double kMinute = 60;
constexpr double kHour = 60 * kMinute;
constexpr double kDay = 24 * kHour;
constexpr double kStalledBelow = 1; ///< bytes in a second

std::string Number(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), value < kWholeFrom ? "%.1f" : "%.0f", value);
    return text.data();
}

std::string HowMuch(const DownloadFacts& facts) {
    const bool isKnown = facts.total >= 0 && facts.received <= facts.total;
    return ByteText(facts.received) + (isKnown ? " of " + ByteText(facts.total) : "");
}

std::string RunningText(const DownloadFacts& facts) {
    if (!facts.bytesPerSecond)
        return facts.received > 0 ? HowMuch(facts) : "Starting";
    const double speed = *facts.bytesPerSecond;
    if (!(speed >= kStalledBelow))
        return HowMuch(facts) + ", waiting for the site";
    std::string text = HowMuch(facts) + ", " + ByteText(std::llround(speed)) + "/s";
    if (facts.total > facts.received)
        text += ", " + TimeLeftText(static_cast<double>(facts.total - facts.received) / speed) +
                " left";
    return text;
}

} // namespace

std::string ByteText(std::int64_t bytes) {
    constexpr std::array<const char*, 6> units = {" kB", " MB", " GB", " TB", " PB", " EB"};
    if (bytes == 1)
        return "1 byte";
    if (bytes < static_cast<std::int64_t>(kThousand))
        return std::to_string(std::max<std::int64_t>(bytes, 0)) + " bytes";
    double value = static_cast<double>(bytes) / kThousand;
    std::size_t unit = 0;
    // What would be shown as a thousand is one of the next unit.
    while (value >= kThousand - 0.5 && unit + 1 < units.size()) {
        value /= kThousand;
        ++unit;
    }
    return Number(value) + units[unit];
}

std::string TimeLeftText(double seconds) {
    if (!(seconds < kDay))
        return "more than a day";
    const auto whole = static_cast<int>(std::ceil(std::max(seconds, 1.0)));
    if (whole <= kMinute)
        return std::to_string(whole) + " s";
    const auto minutes = static_cast<int>(std::ceil(whole / kMinute));
    if (minutes < kMinute)
        return std::to_string(minutes) + " min";
    const std::string hours = std::to_string(minutes / 60) + " h";
    return minutes % 60 == 0 ? hours : hours + " " + std::to_string(minutes % 60) + " min";
}

std::string_view DownloadProblemText(DownloadProblem problem) {
    switch (problem) {
    case DownloadProblem::None:
        return {};
    case DownloadProblem::DiskFull:
        return "the disk is full";
    case DownloadProblem::NotAllowed:
        return "nothing may be written in this folder";
    case DownloadProblem::NameTooLong:
        return "the name of the file is too long";
    case DownloadProblem::FileTooLarge:
        return "the file is too large for this disk";
    case DownloadProblem::FileFailed:
        return "the file could not be written";
    case DownloadProblem::ConnectionLost:
        return "the connection broke";
    case DownloadProblem::NoAnswer:
        return "the site does not answer";
    case DownloadProblem::ServerRefused:
        return "the site does not give the file";
    case DownloadProblem::ServerFailed:
        return "the site failed";
    case DownloadProblem::Blocked:
        return "the web engine does not let this file pass";
    case DownloadProblem::Unknown:
        break;
    }
    return "the reason is not known";
}

std::string DownloadText(const DownloadFacts& facts) {
    switch (facts.state) {
    case DownloadState::Running:
        return RunningText(facts);
    case DownloadState::Saved:
        return "Saved, " + ByteText(facts.received) +
               (facts.isGone ? "; no longer in its folder" : "");
    case DownloadState::Cancelled:
        return "Cancelled";
    case DownloadState::Failed:
        break;
    }
    return "Not saved: " + std::string(DownloadProblemText(facts.problem)) +
           (facts.received > 0 ? ", after " + HowMuch(facts) : "");
}

std::optional<int> DownloadPercent(const DownloadFacts& facts) {
    if (facts.state == DownloadState::Saved)
        return 100;
    if (facts.total <= 0 || facts.received > facts.total || facts.received < 0)
        return std::nullopt;
    return static_cast<int>(
        100 * (static_cast<double>(facts.received) / static_cast<double>(facts.total)));
}

std::string WhyNotOpened(std::string_view name) {
    if (!RunsWhenOpened(name))
        return {};
    return std::string(name) + " is a program: opening it would run it. It is only shown in its "
                               "folder.";
}

std::string ClosingQuestion(int count) {
    return count == 1 ? "A file is still being saved. Close all the same? What is there of it goes."
                      : std::to_string(count) + " files are still being saved. Close all the same? "
                                                "What is there of them goes.";
}

} // namespace tallowmere
