#pragma once

#include "core/market/price_alerts.h"

#include <vector>

/// The two files of the alerts: what the user set, and what fired.
namespace tallowmere {

/// The user's alerts, by their name in the program folder.
inline constexpr std::string_view kAlertsFile = "alerts.txt";
inline constexpr std::uint64_t kLargestAlertsFile = 1024 * 1024;
/// How many alerts can be set; a file that holds more is read all the same.
inline constexpr std::size_t kMostAlerts = 1000;

/// What the program itself writes about those that fired.
inline constexpr std::string_view kAlertLogFile = "alert-log.txt";
inline constexpr std::uint64_t kLargestAlertLog = 4 * 1024 * 1024;
inline constexpr std::size_t kMostLogLines = 1000;

struct AlertList {
    std::vector<PriceAlert> alerts;
    std::vector<std::string> unread; ///< lines that cannot be read; they stay in the file
};

/// The alerts of a file. Of two with the same id the later one gets an id of its own.
AlertList ReadAlerts(std::string_view text);

/// The file of a list, its unread lines last.
std::string WriteAlerts(const AlertList& list);

/// What is said of the lines that cannot be read; empty without any.
std::string UnreadWords(const AlertList& list);

/// What fired, oldest first; lines that cannot be read are left out.
std::vector<FiredAlert> ReadAlertLog(std::string_view text);

/// The file of a log. Of more than kMostLogLines lines the oldest go; those of the alerts in `list`
/// stay, since they say that these rest.
std::string WriteAlertLog(const std::vector<FiredAlert>& log, const std::vector<PriceAlert>& list);

} // namespace tallowmere
