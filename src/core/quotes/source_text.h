#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reading the pieces of an answer: numbers as people write them, lines of CSV, JSON within bounds.
namespace tallowmere {

/// The most bytes that any answer of a source may have.
constexpr std::size_t kMaximumAnswer = 8u << 20;

/// A number with blanks, a dollar sign, thousands separators, a percent sign or a plus ("$1,234.5",
/// "+1.2%"); "UNCH" is 0. None for "N/A", "--" and anything else.
std::optional<double> ReadNumber(std::string_view text);

/// The fields of one line of CSV, quotes taken off.
std::vector<std::string> ReadCsvLine(std::string_view line);

/// The value of a JSON text; none when it is no JSON, too large or nested too deeply.
std::optional<nlohmann::json> ReadJson(std::string_view text);

/// A member of an object, null when there is none or `value` is no object.
const nlohmann::json* Member(const nlohmann::json& value, const char* key);

/// A member that is a number, or a text that ReadNumber can read.
std::optional<double> NumberAt(const nlohmann::json& value, const char* key);

/// A member that is a text, else the empty text.
std::string TextAt(const nlohmann::json& value, const char* key);

/// A member that is a whole number of seconds, else 0.
std::int64_t SecondsAt(const nlohmann::json& value, const char* key);

} // namespace tallowmere
