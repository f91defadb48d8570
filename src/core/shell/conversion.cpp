#include "core/shell/conversion.h"

#include "core/text/bytes.h"
#include "core/text/runtime_error.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace tallowmere {

namespace {

template <typename Number>
Number Parse(std::string_view text) {
    text = Trim(text);
    // A sign of plus is a number's right, but std::from_chars does not know it.
    const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    text.remove_prefix(plus ? 1 : 0);
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range)
        throw RuntimeError("Overflow");
    // "inf" and "nan" are numbers to std::from_chars, but to nobody who edits settings.
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(value))
        throw RuntimeError("Type mismatch");
    return value;
}

std::int64_t ParseWhole(std::string_view text, std::int64_t lowest, std::int64_t highest) {
    const double value = Parse<double>(text);
    double rounded = std::floor(value + 0.5);
    if (rounded - value == 0.5 && std::fmod(rounded, 2.0) != 0.0)
        rounded -= 1.0;
    if (rounded < static_cast<double>(lowest) || rounded > static_cast<double>(highest))
        throw RuntimeError("Overflow");
    return static_cast<std::int64_t>(rounded);
}

template <typename Whole>
Whole ParseWhole(std::string_view text) {
    using Limits = std::numeric_limits<Whole>;
    return static_cast<Whole>(ParseWhole(text, Limits::min(), Limits::max()));
}

} // namespace

std::int16_t ToInteger(std::string_view text) {
    return ParseWhole<std::int16_t>(text);
}

std::int32_t ToLong(std::string_view text) {
    return ParseWhole<std::int32_t>(text);
}

bool ToBoolean(std::string_view text) {
    const std::string word = ToLower(Trim(text));
    if (word == "true" || word == "false")
        return word == "true";
    return Parse<double>(word) != 0.0;
}

float ToSingle(std::string_view text) {
    return Parse<float>(text);
}

std::uint32_t ToColor(std::string_view text) {
    return static_cast<std::uint32_t>(ParseWhole(text, std::numeric_limits<std::int32_t>::min(),
                                                 std::numeric_limits<std::uint32_t>::max()));
}

std::string FromBoolean(bool value) {
    return value ? "True" : "False";
}

std::string FromSingle(float value) {
    // Left to itself std::to_chars writes 100000 as "1e+05", which is shorter but no decimal text.
    constexpr float kLongestPlain = 1e7F;
    const auto format =
        std::fabs(value) < kLongestPlain ? std::chars_format::fixed : std::chars_format::general;
    std::array<char, 64> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, format).ptr;
    return {digits.data(), end};
}

std::string FromColor(std::uint32_t color) {
    return std::to_string(static_cast<std::int32_t>(color));
}

} // namespace tallowmere
