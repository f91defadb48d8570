#pragma once

#include <string>
#include <string_view>

/// What the command line takes: the one table of its options, from which the help text and the
/// manual page are made.
namespace tallowmere {

struct CommandOption {
    std::string_view name;  ///< without its dashes
    std::string_view value; ///< what it takes, in words of the help; empty: nothing
    std::string_view meaning;
};

// clang-format off
inline constexpr CommandOption kCommandOptions[] = {
    {"web",     "live|sample|direct", "where addresses lead: to today's web (default), to the built-in portal with its invented sample market, or as built"},
    {"profile", "DIR",                "keep settings and files in DIR"},
    {"sites",   "FILE",               "use FILE as the table of sites"},
    {"version", "",                   "print the version and end"},
    {"help",    "",                   "print this text and end"},
};
// clang-format on

/// What --help prints, in lines of at most 79 characters.
std::string HelpText();

/// The manual page, as troff.
std::string ManualPage();

} // namespace tallowmere
