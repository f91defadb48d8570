#include "core/market/price_alerts.h"

#include "core/quotes/number_text.h"
#include "core/quotes/symbol_dialect.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace tallowmere {

namespace {

/// A change that was worked out from two prices may miss a round number by this.
constexpr double kRounding = 1e-9;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Whether the whole part of a number is digits, or groups of three of them behind the first.
bool IsGrouped(std::string_view whole, char separator) {
    const std::vector<std::string_view> groups = Split(whole, separator);
    if (!std::ranges::all_of(groups, [](std::string_view group) {
            return !group.empty() && std::ranges::all_of(group, IsDigit);
        }))
        return false;
    return groups.size() == 1 ||
           (groups.front().size() <= 3 && groups.front() != "0" &&
            std::all_of(groups.begin() + 1, groups.end(),
                        [](std::string_view group) { return group.size() == 3; }));
}

/// The character before the decimals of a number, 0 when it has none.
char DecimalOf(std::string_view text) {
    const auto last = text.find_last_of(".,");
    if (last == std::string_view::npos)
        return 0;
    const char mark = text[last];
    const char other = mark == '.' ? ',' : '.';
    if (Contains(text, std::string(1, other)) || Contains(text, " "))
        return mark;
    if (std::ranges::count(text, mark) > 1)
        return 0;
    return mark == ',' && IsGrouped(text, ',') ? '\0' : mark;
}

/// The character that parts the thousands of a whole number; not the one before its decimals.
char ThousandsOf(std::string_view whole, char decimal) {
    for (const char mark : {',', '.', ' '})
        if (mark != decimal && whole.find(mark) != std::string_view::npos)
            return mark;
    return ' ';
}

std::string ProblemOfLimit(AlertKind kind, std::string_view typed,
                           const std::optional<double>& limit) {
    const bool isPercent = kind == AlertKind::DayChange;
    if (Trim(typed).empty())
        return isPercent ? "Enter a change in percent." : "Enter a price.";
    if (!limit)
        return "\"" + std::string(typed.substr(0, kLongestAlertTicker)) + "\" is not a number.";
    if (*limit <= 0)
        return isPercent ? "The change has to be more than zero; it counts up and down."
                         : "The price has to be more than zero.";
    if (*limit > kLargestAlertLimit)
        return "That is more than " + LimitText(kLargestAlertLimit) + ".";
    return {};
}

std::string ProblemOfTicker(std::string_view ticker) {
    if (ticker.empty())
        return "Enter a ticker.";
    if (ticker.size() > kLongestAlertTicker)
        return "A ticker has no more than " + std::to_string(kLongestAlertTicker) + " characters.";
    return IsAlertTicker(ticker) ? "" : "Enter one ticker, without blanks.";
}

} // namespace

bool Fires(const PriceAlert& alert, const ListedPrice& price, const FiredAlert* last) {
    if (!price.age.empty() || price.doubtful || !std::isfinite(price.last) || price.last <= 0 ||
        !std::isfinite(alert.limit) || alert.limit <= 0)
        return false;
    if (last && (price.time < last->priceTime ||
                 (price.time == last->priceTime && price.last == last->price)))
        return false;
    switch (alert.kind) {
    case AlertKind::Above:
        return price.last >= alert.limit;
    case AlertKind::Below:
        return price.last <= alert.limit;
    case AlertKind::DayChange:
        break;
    }
    return price.percent && std::isfinite(*price.percent) &&
           std::abs(*price.percent) + kRounding >= alert.limit;
}

FiredAlert Fired(const PriceAlert& alert, const ListedPrice& price, std::int64_t now) {
    return {alert, now, price.last, price.percent, price.time, price.origin};
}

bool IsAlertTicker(std::string_view ticker) {
    return ticker.size() <= kLongestAlertTicker && !OwnSymbol(ticker).empty() &&
           std::ranges::none_of(
               ticker, [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == '\x7F'; });
}

std::string LimitText(double limit) {
    std::array<char, 400> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), limit,
                                            std::chars_format::fixed);
    const std::string_view exact(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const auto point = exact.find('.');
    const std::string_view decimals =
        point == std::string_view::npos ? std::string_view() : exact.substr(point + 1);
    if (decimals.size() <= 2)
        return PriceText(limit);
    // Of a price below a cent every digit counts.
    const std::string whole = PriceText(std::trunc(limit));
    return whole.substr(0, whole.find('.') + 1).append(decimals);
}

std::string RuleWords(const PriceAlert& alert) {
    switch (alert.kind) {
    case AlertKind::Above:
        return "at or above " + LimitText(alert.limit);
    case AlertKind::Below:
        return "at or below " + LimitText(alert.limit);
    case AlertKind::DayChange:
        break;
    }
    std::string percent = LimitText(alert.limit);
    percent.resize(percent.find_last_not_of('0') + 1);
    if (percent.ends_with('.'))
        percent.pop_back();
    return "up or down by " + percent + "% or more in a day";
}

std::string FiredPriceText(const FiredAlert& fired) {
    return PriceText(fired.price) + (fired.percent ? " (" + PercentText(*fired.percent) + ")" : "");
}

std::string FiredWords(const FiredAlert& fired) {
    const bool tellsChange = fired.alert.kind == AlertKind::DayChange;
    return fired.alert.ticker + " is at " +
           (tellsChange ? FiredPriceText(fired) : PriceText(fired.price)) + ": " +
           RuleWords(fired.alert);
}

std::optional<double> ReadTypedNumber(std::string_view text) {
    constexpr std::size_t kMostCharacters = 60;
    text = Trim(text);
    if (text.starts_with('$'))
        text = Trim(text.substr(1));
    if (text.ends_with('%'))
        text = Trim(text.substr(0, text.size() - 1));
    if (text.empty() || text.size() > kMostCharacters)
        return std::nullopt;
    const bool isNegative = text.front() == '-';
    if (isNegative || text.front() == '+')
        text.remove_prefix(1);
    const char decimal = DecimalOf(text);
    const auto point = decimal ? text.rfind(decimal) : text.size();
    const std::string_view whole = text.substr(0, point);
    const std::string_view decimals = point < text.size() ? text.substr(point + 1) : "";
    const char thousands = ThousandsOf(whole, decimal);
    const bool isWhole = whole.empty() ? !decimals.empty() : IsGrouped(whole, thousands);
    if (!isWhole || !std::ranges::all_of(decimals, IsDigit))
        return std::nullopt;
    std::string digits;
    std::ranges::copy_if(whole, std::back_inserter(digits), IsDigit);
    digits += "." + std::string(decimals);
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return isNegative ? -value : value;
}

AlertEntry ReadAlertEntry(std::string_view ticker, AlertKind kind, std::string_view limit) {
    AlertEntry entry;
    entry.alert.ticker = ToUpper(Trim(ticker));
    entry.alert.kind = kind;
    const auto number = ReadTypedNumber(limit);
    entry.problem = ProblemOfTicker(entry.alert.ticker);
    if (entry.problem.empty())
        entry.problem = ProblemOfLimit(kind, limit, number);
    entry.alert.limit = number.value_or(0);
    return entry;
}

} // namespace tallowmere
