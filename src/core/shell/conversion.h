#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Reading numbers and flags out of stored text. Each throws RuntimeError "Type mismatch" for text
/// that is no such value and RuntimeError "Overflow" for a number out of range.
namespace tallowmere {

/// A whole number of 16 bits. Blanks around it are ignored; a fraction is rounded half to even.
std::int16_t ToInteger(std::string_view text);

/// A whole number of 32 bits, by the same rules.
std::int32_t ToLong(std::string_view text);

/// "True" or "False" in any case, or a number, of which zero is false.
bool ToBoolean(std::string_view text);

/// A number of single precision, with a point as decimal mark whatever the locale.
float ToSingle(std::string_view text);

/// A colour 0x00BBGGRR, or a system colour with the top bit set, from its decimal text, signed or
/// unsigned.
std::uint32_t ToColor(std::string_view text);

/// "True" or "False".
std::string FromBoolean(bool value);

/// The shortest decimal text that reads back as the same number.
std::string FromSingle(float value);

/// The signed 32-bit decimal text of a colour: 0x80000008 gives "-2147483640".
std::string FromColor(std::uint32_t color);

} // namespace tallowmere
