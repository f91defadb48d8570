#include "core/market/alert_store.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <set>

namespace tallowmere {

namespace {

/// So far ahead that ids that are given here stay readable.
constexpr std::int64_t kLargestId = 1'000'000'000'000'000;

constexpr std::array<std::string_view, 3> kKinds = {"above", "below", "change"}; // by AlertKind

template <typename Number>
std::optional<Number> ReadNumber(std::string_view text) {
    Number number{};
    // "inf" and "nan" are numbers to std::from_chars, but no price is one of them.
    const bool isPlain = text.find_first_not_of("+-.0123456789e") == std::string_view::npos;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (!isPlain || error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

/// The shortest text that reads back as the same number.
std::string NumberText(double number) {
    std::array<char, 400> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                            std::chars_format::fixed);
    return {buffer.data(), end};
}

std::optional<std::int64_t> ReadTime(std::string_view text) {
    const auto time = ReadNumber<std::int64_t>(text);
    return time && *time >= 0 && *time <= kLargestId ? time : std::nullopt;
}

std::optional<double> ReadPositive(std::string_view text) {
    const auto number = ReadNumber<double>(text);
    return number && std::isfinite(*number) && *number > 0 && *number <= kLargestAlertLimit
               ? number
               : std::nullopt;
}

/// An alert of four words, none when they are something else.
std::optional<PriceAlert> ReadAlert(std::string_view id, std::string_view kind,
                                    std::string_view limit, std::string_view ticker) {
    const auto readId = ReadTime(id);
    const auto readKind = std::ranges::find(kKinds, kind);
    const auto readLimit = ReadPositive(limit);
    if (!readId || readKind == kKinds.end() || !readLimit || !IsAlertTicker(ticker))
        return std::nullopt;
    return PriceAlert{*readId, static_cast<AlertKind>(readKind - kKinds.begin()), *readLimit,
                      std::string(ticker)};
}

std::optional<PriceAlert> ReadAlertLine(std::string_view line) {
    const std::vector<std::string_view> words = Split(line, ' ');
    return words.size() == 4 ? ReadAlert(words[0], words[1], words[2], words[3]) : std::nullopt;
}

std::string AlertText(const PriceAlert& alert, char separator) {
    std::string text = std::to_string(alert.id);
    text.append(1, separator).append(kKinds.at(static_cast<std::size_t>(alert.kind)));
    text.append(1, separator).append(NumberText(alert.limit));
    return text.append(1, separator).append(alert.ticker);
}

std::optional<FiredAlert> ReadLogLine(std::string_view line) {
    const std::vector<std::string_view> cells = Split(line, '\t');
    if (cells.size() != 9)
        return std::nullopt;
    const auto firedAt = ReadTime(cells[0]);
    const auto alert = ReadAlert(cells[1], cells[2], cells[3], cells[4]);
    const auto price = ReadNumber<double>(cells[5]);
    const auto percent = ReadNumber<double>(cells[6]);
    const auto priceTime = ReadTime(cells[7]);
    if (!firedAt || !alert || !price || !std::isfinite(*price) || !priceTime ||
        (percent ? !std::isfinite(*percent) : !cells[6].empty()))
        return std::nullopt;
    return FiredAlert{*alert, *firedAt, *price, percent, *priceTime, std::string(cells[8])};
}

std::string LogLine(const FiredAlert& fired) {
    std::string origin = fired.origin;
    std::ranges::replace_if(
        origin, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return std::to_string(fired.firedAt) + '\t' + AlertText(fired.alert, '\t') + '\t' +
           NumberText(fired.price) + '\t' + (fired.percent ? NumberText(*fired.percent) : "") +
           '\t' + std::to_string(fired.priceTime) + '\t' + origin + '\n';
}

std::string_view WithoutReturn(std::string_view line) {
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

} // namespace

AlertList ReadAlerts(std::string_view text) {
    AlertList list;
    std::set<std::int64_t> ids;
    for (const std::string_view line : Split(text, '\n')) {
        if (Trim(WithoutReturn(line)).empty())
            continue;
        auto alert = ReadAlertLine(WithoutReturn(line));
        if (alert && ids.contains(alert->id))
            alert->id = *ids.rbegin() + 1;
        if (!alert || alert->id > kLargestId) {
            list.unread.emplace_back(line);
            continue;
        }
        ids.insert(alert->id);
        list.alerts.push_back(std::move(*alert));
    }
    return list;
}

std::string WriteAlerts(const AlertList& list) {
    std::string text;
    for (const PriceAlert& alert : list.alerts)
        text += AlertText(alert, ' ') + '\n';
    for (const std::string& line : list.unread)
        text += line + '\n';
    return text;
}

std::string UnreadWords(const AlertList& list) {
    constexpr std::size_t kMostShown = 80; // bytes
    if (list.unread.empty())
        return {};
    const std::string_view first = WithoutReturn(list.unread.front());
    std::string words =
        list.unread.size() == 1 ? "A line" : std::to_string(list.unread.size()) + " lines";
    return words + " of " + std::string(kAlertsFile) +
           " cannot be read as an alert; what stands there is kept, but nothing is told of it. " +
           (list.unread.size() == 1 ? "It begins: " : "The first begins: ") +
           std::string(first.substr(0, kMostShown));
}

std::vector<FiredAlert> ReadAlertLog(std::string_view text) {
    std::vector<FiredAlert> log;
    for (const std::string_view line : Split(text, '\n'))
        if (auto fired = ReadLogLine(line))
            log.push_back(std::move(*fired));
    return log;
}

std::string WriteAlertLog(const std::vector<FiredAlert>& log, const std::vector<PriceAlert>& list) {
    std::set<std::int64_t> kept;
    for (const PriceAlert& alert : list)
        kept.insert(alert.id);
    std::size_t surplus = log.size() - std::min(log.size(), kMostLogLines);
    std::string text;
    for (const FiredAlert& fired : log) {
        if (surplus > 0 && !kept.contains(fired.alert.id)) {
            --surplus;
            continue;
        }
        text += LogLine(fired);
    }
    return text;
}

} // namespace tallowmere
