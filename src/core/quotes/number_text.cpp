#include "core/quotes/number_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace tallowmere {

namespace {

std::string WithThousands(std::string digits) {
    auto end = digits.find('.');
    if (end == std::string::npos)
        end = digits.size();
    const std::size_t start = digits.starts_with('-') ? 1 : 0;
    while (end > start + 3) {
        end -= 3;
        digits.insert(end, ",");
    }
    return digits;
}

} // namespace

std::string FixedText(double value, int decimals) {
    std::array<char, 400> buffer{}; // room for the largest double written out
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                            std::chars_format::fixed, decimals);
    std::string text(buffer.data(), end);
    // What rounds to nothing has no sign.
    if (text.starts_with('-') && text.find_first_not_of("-0.") == std::string::npos)
        text.erase(0, 1);
    return text;
}

std::string PriceText(double value) {
    return WithThousands(FixedText(value, 2));
}

std::string ChangeText(double value) {
    const std::string text = PriceText(value);
    const bool isRise = value > 0 && text != "0.00";
    return isRise ? "+" + text : text;
}

std::string PercentText(double value) {
    return ChangeText(value) + "%";
}

std::string ShortText(double value) {
    constexpr double kMillion = 1e6;
    if (value >= 1e12)
        return FixedText(value / 1e12, 2) + "T";
    if (value >= 1e9)
        return FixedText(value / 1e9, 2) + "B";
    if (value >= kMillion)
        return FixedText(value / kMillion, 1) + "M";
    return WithThousands(FixedText(value, 0));
}

std::string TextOr(const std::optional<double>& value, std::string (*text)(double),
                   std::string_view unknown) {
    return value ? text(*value) : std::string(unknown);
}

} // namespace tallowmere
