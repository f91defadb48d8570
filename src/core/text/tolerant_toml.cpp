#include "core/text/tolerant_toml.h"

namespace tallowmere {

namespace {

/// Each wrong line costs one more reading of the file.
constexpr int kMaximumWrongLines = 20;
constexpr std::size_t kLargestFile = 1U << 20;

/// Empties the line with this number, counted from 1; false when the text has no such line or it
/// is empty already.
bool ClearLine(std::string& text, std::size_t number) {
    std::size_t start = 0;
    for (std::size_t line = 1; line < number; ++line) {
        const auto end = text.find('\n', start);
        if (end == std::string::npos)
            return false;
        start = end + 1;
    }
    const auto length = std::min(text.find('\n', start), text.size()) - start;
    text.erase(start, length);
    return length > 0;
}

std::string At(std::string_view fileName, toml::source_index line, std::string_view what) {
    return std::string(fileName) + ":" + std::to_string(line) + ": " + std::string(what);
}

} // namespace

void TolerantToml::Complain(const toml::node& node, std::string_view what) {
    problems.push_back(At(fileName, node.source().begin.line, what));
}

TolerantToml ReadTolerantly(std::string_view text, std::string_view fileName) {
    TolerantToml result;
    result.fileName = fileName;
    if (text.size() > kLargestFile) {
        result.problems.push_back(At(fileName, 1, "the file is larger than 1 MB"));
        return result;
    }
    std::string rest = WithoutComments(text);
    for (int attempt = 0; attempt < kMaximumWrongLines; ++attempt) {
        try {
            result.root = toml::parse(rest, fileName);
            return result;
        } catch (const toml::parse_error& error) {
            const auto line = error.source().begin.line;
            result.problems.push_back(At(fileName, line, error.description()));
            // An error at the end of a line is reported on the next one.
            if (!ClearLine(rest, line) && (line < 2 || !ClearLine(rest, line - 1)))
                return result;
        }
    }
    return result;
}

} // namespace tallowmere
