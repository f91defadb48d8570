#include "core/quotes/source_text.h"

#include "core/text/bytes.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <cmath>

namespace tallowmere {

namespace {

constexpr int kMaximumDepth = 32;

/// Whether the brackets of a JSON text never stand deeper than allowed. Counted before parsing, so
/// that a hostile text costs no memory.
bool IsShallow(std::string_view text) {
    int depth = 0;
    bool inString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inString) {
            if (c == '\\')
                ++i;
            else if (c == '"')
                inString = false;
        } else if (c == '"') {
            inString = true;
        } else if (c == '{' || c == '[') {
            if (++depth > kMaximumDepth)
                return false;
        } else if (c == '}' || c == ']') {
            --depth;
        }
    }
    return true;
}

} // namespace

std::optional<double> ReadNumber(std::string_view text) {
    constexpr std::size_t kMaximumLength = 40;
    const std::string_view trimmed = Trim(text);
    if (trimmed == "UNCH")
        return 0.0;
    if (trimmed.size() > kMaximumLength)
        return std::nullopt;
    std::string digits;
    for (const char c : trimmed)
        if (c != ',' && c != '$')
            digits += c;
    if (digits.ends_with('%'))
        digits.pop_back();
    if (digits.starts_with('+'))
        digits.erase(0, 1);
    const auto first = digits.find_first_not_of('-');
    // from_chars would take "inf" and "nan" too.
    if (first == std::string::npos || first > 1 ||
        (digits[first] != '.' && (digits[first] < '0' || digits[first] > '9')))
        return std::nullopt;
    double value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value);
    if (error != std::errc() || stop != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::vector<std::string> ReadCsvLine(std::string_view line) {
    std::vector<std::string> fields(1);
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        if (c == '"') {
            if (quoted && i + 1 < line.size() && line[i + 1] == '"')
                fields.back() += line[++i];
            else
                quoted = !quoted;
        } else if (c == ',' && !quoted) {
            fields.emplace_back();
        } else if (c != '\r') {
            fields.back() += c;
        }
    }
    return fields;
}

std::optional<nlohmann::json> ReadJson(std::string_view text) {
    if (text.size() > kMaximumAnswer || !IsShallow(text))
        return std::nullopt;
    std::optional value(nlohmann::json::parse(text, nullptr, false));
    if (value->is_discarded())
        value.reset();
    return value;
}

const nlohmann::json* Member(const nlohmann::json& value, const char* key) {
    if (!value.is_object())
        return nullptr;
    const auto found = value.find(key);
    return found == value.end() ? nullptr : &*found;
}

std::optional<double> NumberAt(const nlohmann::json& value, const char* key) {
    const nlohmann::json* member = Member(value, key);
    if (!member)
        return std::nullopt;
    if (member->is_number())
        return member->get<double>();
    if (member->is_string())
        return ReadNumber(member->get_ref<const std::string&>());
    return std::nullopt;
}

std::string TextAt(const nlohmann::json& value, const char* key) {
    const nlohmann::json* member = Member(value, key);
    return member && member->is_string() ? member->get<std::string>() : std::string();
}

std::int64_t SecondsAt(const nlohmann::json& value, const char* key) {
    const nlohmann::json* member = Member(value, key);
    return member && member->is_number_integer() ? member->get<std::int64_t>() : 0;
}

} // namespace tallowmere
