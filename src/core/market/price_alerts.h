#pragma once

#include "core/quotes/listed_price.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Alerts: what the user wants to be told of a price.
namespace tallowmere {

enum class AlertKind : std::uint8_t {
    Above,    ///< the price is at the limit or above it
    Below,    ///< the price is at the limit or below it
    DayChange ///< the price moved by the limit, in percent, or more in a day, up or down
};

inline constexpr double kLargestAlertLimit = 1'000'000'000;
inline constexpr std::size_t kLongestAlertTicker = 40; // bytes

struct PriceAlert {
    std::int64_t id = 0; ///< when it was set or reset, epoch seconds; no two have the same
    AlertKind kind = AlertKind::Above;
    double limit = 0;   ///< a price, or percent
    std::string ticker; ///< as the user writes it

    bool operator==(const PriceAlert&) const = default;
};

/// An alert that fired, and the price that did it.
struct FiredAlert {
    PriceAlert alert;
    std::int64_t firedAt = 0; ///< epoch seconds
    double price = 0;
    std::optional<double> percent; ///< of the day
    std::int64_t priceTime = 0;    ///< of the trade, epoch seconds; 0 when not said
    std::string origin;            ///< time and source of the price, for people

    bool operator==(const FiredAlert&) const = default;
};

/// Whether a price fires an armed alert. A stale or doubtful one never does, nor does one that
/// cannot be. `last` is what fired the same rule before, null for nothing: that price, and any
/// older one, does not do it a second time when the alert was reset.
bool Fires(const PriceAlert& alert, const ListedPrice& price, const FiredAlert* last = nullptr);

/// What remains of an alert that a price fired at `now` (epoch seconds).
FiredAlert Fired(const PriceAlert& alert, const ListedPrice& price, std::int64_t now);

/// Whether a ticker can have an alert: a symbol without blanks and not too long.
bool IsAlertTicker(std::string_view ticker);

/// A limit as people read it, with at least two decimals: "1,234.50".
std::string LimitText(double limit);

/// What an alert waits for: "at or above 450.00".
std::string RuleWords(const PriceAlert& alert);

/// The price that fired, as people read it: "451.20 (+5.12%)".
std::string FiredPriceText(const FiredAlert& fired);

/// What is told of an alert that fired: "MSFT is at 451.20: at or above 450.00".
std::string FiredWords(const FiredAlert& fired);

/// A number as people type it, with a point or a comma before its decimals and with or without
/// thousands set apart: "1,234.50", "1.234,5", "430,5", "5%". A single comma before three digits
/// parts thousands, as in the prices that the program shows. None for anything else.
std::optional<double> ReadTypedNumber(std::string_view text);

/// What the user typed, as an alert, or what is wrong with it.
struct AlertEntry {
    PriceAlert alert;
    std::string problem; ///< in words; empty when there is none
};

AlertEntry ReadAlertEntry(std::string_view ticker, AlertKind kind, std::string_view limit);

} // namespace tallowmere
