#include "core/text/toml.h"

#include "core/text/runtime_error.h"

#include <algorithm>
#include <string>

namespace tallowmere {

namespace {

/// Larger texts are no tables that people wrote.
constexpr std::size_t kLargestText = 4U * 1024 * 1024;

/// Where the comment of a line begins, or its length. Wrong lines may hold anything: a quote that
/// is never closed keeps the rest of its line.
std::size_t CommentStart(std::string_view line) {
    char quote = 0;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const char c = line[at];
        if (quote == 0 && c == '#')
            return at;
        if (quote == 0 && (c == '"' || c == '\''))
            quote = c;
        else if (quote == '"' && c == '\\')
            ++at;
        else if (c == quote)
            quote = 0;
    }
    return line.size();
}

bool IsPlain(std::string_view comment) {
    return std::all_of(comment.begin(), comment.end(),
                       [](char c) { return c == '\t' || (c >= 0x20 && c < 0x7F); });
}

} // namespace

std::string WithoutComments(std::string_view text) {
    if (text.find("\"\"\"") != std::string_view::npos || text.find("'''") != std::string_view::npos)
        return std::string(text);
    std::string bare;
    bare.reserve(text.size());
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string_view line = text.substr(start, end - start);
        const std::string_view rest = line.substr(CommentStart(line));
        const bool endsInTwo = end < text.size() && rest.ends_with('\r');
        const std::string_view front = line.substr(0, line.size() - rest.size());
        const std::string_view kept = front.substr(0, front.find_last_not_of(" \t") + 1);
        // What is left must not become a line end that was none.
        if (!rest.empty() && !kept.ends_with('\r') &&
            IsPlain(rest.substr(0, rest.size() - (endsInTwo ? 1 : 0))))
            line = kept;
        bare.append(line);
        if (end < text.size())
            bare.push_back('\n');
        start = end + 1;
    }
    return bare;
}

toml::table ParseToml(std::string_view text, std::string_view fileName) {
    if (text.size() > kLargestText)
        FailInToml(fileName, {{1, 1}, {1, 1}, {}}, "the file is larger than 4 MB");
    try {
        return toml::parse(WithoutComments(text));
    } catch (const toml::parse_error& error) {
        FailInToml(fileName, error.source(), error.description());
    }
}

void FailInToml(std::string_view fileName, const toml::source_region& where,
                std::string_view what) {
    throw RuntimeError(std::string(fileName) + ":" + std::to_string(where.begin.line) + ": " +
                       std::string(what));
}

} // namespace tallowmere
