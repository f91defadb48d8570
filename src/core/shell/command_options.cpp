#include "core/shell/command_options.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::size_t kMeaningColumn = 28;
constexpr std::size_t kLineLength = 79;

/// Appends words, broken into lines that begin at the column of meanings.
void AppendMeaning(std::string& text, std::string_view meaning) {
    std::size_t column = kMeaningColumn;
    bool isFirst = true;
    while (!meaning.empty()) {
        const std::size_t end = std::min(meaning.find(' '), meaning.size());
        if (!isFirst && column + 1 + end > kLineLength) {
            text += '\n' + std::string(kMeaningColumn, ' ');
            column = kMeaningColumn;
        } else if (!isFirst) {
            text += ' ';
            ++column;
        }
        text += meaning.substr(0, end);
        column += end;
        meaning.remove_prefix(std::min(end + 1, meaning.size()));
        isFirst = false;
    }
}

/// Text as troff prints it: a dash that may be copied, no command at the start of a line.
std::string Troff(std::string_view text) {
    std::string troff;
    for (const char byte : text) {
        if (byte == '-')
            troff += "\\-";
        else if (byte == '\\')
            troff += "\\e";
        else if (byte == '\'')
            troff += "\\(aq";
        else
            troff += byte;
    }
    return troff;
}

constexpr std::string_view kPageStart = R"(.TH TALLOWMERE 1 "" "Tallowmere )" TALLOWMERE_VERSION
                                        R"(" "User Commands"
.SH NAME
tallowmere \- research browser for private stock investors
.SH SYNOPSIS
.B tallowmere
.RI [ options ]
.SH DESCRIPTION
Pick a ticker, click once, and read any of some two hundred research pages about it, beside ten
portfolios, notes and links of your own and a strip of market indices.
The user guide is in the program: menu Help.
.SH OPTIONS
)";

constexpr std::string_view kPageEnd = R"(.SH FILES
.TP
.I ~/.config/tallowmere/settings.ini
settings and portfolios
.TP
.I ~/.config/tallowmere/sites.toml
rows of your own over the table of sites that ships with the program
.TP
.I ~/.local/share/tallowmere/
notes, reminders, generated pages, last quotes, logins of the panes
.PP
Only their owner can read them.
.SH EXIT STATUS
0 after an orderly end, 2 when an option, a table of sites or the installation is wrong.
)";

} // namespace

std::string HelpText() {
    std::string text = "Usage: tallowmere [options]\n"
                       "A desktop research browser for private stock investors.\n\n";
    for (const CommandOption& option : kCommandOptions) {
        std::string line = "  --" + std::string(option.name);
        if (!option.value.empty())
            line += ' ' + std::string(option.value);
        line.resize(std::max(line.size() + 1, kMeaningColumn), ' ');
        AppendMeaning(line, option.meaning);
        text += line + '\n';
    }
    return text;
}

std::string ManualPage() {
    std::string page(kPageStart);
    for (const CommandOption& option : kCommandOptions) {
        page += ".TP\n.B " + Troff("--" + std::string(option.name));
        if (!option.value.empty())
            page += " \\fI" + Troff(option.value) + "\\fR";
        page += '\n' + Troff(option.meaning) + '\n';
    }
    return page + std::string(kPageEnd);
}

} // namespace tallowmere
