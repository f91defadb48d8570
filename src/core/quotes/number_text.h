#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Numbers as the pages of the built-in portal write them.
namespace tallowmere {

/// A number with a fixed count of decimals, such as "-3.50" for two.
std::string FixedText(double value, int decimals);

/// A price with two decimals and its thousands set apart, such as "43,900.12".
std::string PriceText(double value);

/// A change with its sign, such as "+1.25", "-0.50" or "0.00".
std::string ChangeText(double value);

/// A percentage with its sign, such as "+1.25%".
std::string PercentText(double value);

/// A large number in short, such as "3.12B", "845.0M" or "9,500".
std::string ShortText(double value);

/// The text of a value that may not be known, `unknown` where it is not.
std::string TextOr(const std::optional<double>& value, std::string (*text)(double),
                   std::string_view unknown);

} // namespace tallowmere
