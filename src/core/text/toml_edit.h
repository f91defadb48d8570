#pragma once

#include <string>
#include <string_view>

/// Changes single rows of a table that a person wrote: comments, the other rows, their order and
/// the line ends stay as they are.
namespace tallowmere {

/// The text with `value` at `key` of the table `table` ("links", "menus.mnuBChart"), which is made
/// when there is none. Throws RuntimeError when the row cannot be written into this text.
std::string SetTomlRow(std::string_view text, std::string_view table, std::string_view key,
                       std::string_view value);

/// The text without the row. Throws as SetTomlRow does; a text without the row stays as it is.
std::string RemoveTomlRow(std::string_view text, std::string_view table, std::string_view key);

} // namespace tallowmere
