#include "core/shell/settings_text.h"

#include "core/text/bytes.h"

#include <algorithm>
#include <charconv>

namespace tallowmere {

namespace {

constexpr std::string_view kFirstSection = "Settings";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr char kHexDigits[] = "0123456789abcdef";

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

bool IsDamaged(std::string_view line) {
    return std::any_of(line.begin(), line.end(),
                       [](char c) { return IsControl(c) && c != '\t' && c != '\r' && c != '\n'; });
}

std::string_view SkipBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

std::string_view TrimBlanks(std::string_view text) {
    text = SkipBlanks(text);
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::string Quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            result += {'\\', c};
        else if (c == '\n')
            result += "\\n";
        else if (c == '\r')
            result += "\\r";
        else if (c == '\t')
            result += "\\t";
        else if (IsControl(c))
            result += {'\\', 'x', kHexDigits[byte >> 4], kHexDigits[byte & 15]};
        else
            result += c;
    }
    return result += '"';
}

/// The text as it may stand in a line: quoted when it would not be read back the same, or when it
/// starts or contains what means something else there.
std::string AsWritten(std::string_view text, std::string_view notAtStart = "\"",
                      std::string_view nowhere = "") {
    const bool plain = TrimBlanks(text) == text &&
                       std::none_of(text.begin(), text.end(), IsControl) &&
                       (text.empty() || !Contains(notAtStart, text.substr(0, 1))) &&
                       text.find_first_of(nowhere) == std::string_view::npos;
    return plain ? std::string(text) : Quoted(text);
}

std::string KeyAsWritten(std::string_view key) {
    return AsWritten(key, "\"[;#\xEF", "=");
}

/// Reads a quoted text from the front of `line`, which then holds what follows. False when the line
/// does not start with one that is well formed.
bool ReadQuoted(std::string_view& line, std::string& text) {
    if (!line.starts_with('"'))
        return false;
    text.clear();
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (line[i] == '"') {
            line.remove_prefix(i + 1);
            return true;
        }
        if (line[i] != '\\') {
            text += line[i];
            continue;
        }
        if (++i == line.size())
            return false;
        constexpr std::string_view kLetters = "\"\\nrt";
        constexpr std::string_view kMeanings = "\"\\\n\r\t";
        if (const auto at = kLetters.find(line[i]); at != std::string_view::npos) {
            text += kMeanings[at];
        } else if (line[i] == 'x' && i + 2 < line.size()) {
            unsigned char byte = 0;
            const char* digits = line.data() + i + 1;
            if (std::from_chars(digits, digits + 2, byte, 16).ptr != digits + 2)
                return false;
            text += static_cast<char>(byte);
            i += 2;
        } else {
            return false;
        }
    }
    return false;
}

struct Line {
    std::string_view whole;      ///< with its line end
    std::string_view end;        ///< the line end alone
    std::string name;            ///< of a section or a key
    std::string value;           ///< of a key
    std::size_t beforeValue = 0; ///< of a key: how many bytes stand before its value
    enum { Other, Damaged, Section, Key } kind = Other;
};

bool ReadSection(std::string_view text, std::string& name) {
    if (!text.starts_with('['))
        return false;
    text = TrimBlanks(text.substr(1));
    if (ReadQuoted(text, name))
        return TrimBlanks(text).starts_with(']');
    const auto end = text.find(']');
    name = TrimBlanks(text.substr(0, end));
    return end != std::string_view::npos;
}

bool ReadKey(std::string_view text, Line& line) {
    const std::string_view start = SkipBlanks(text);
    if (start.empty() || Contains("[;#", start.substr(0, 1)))
        return false;
    std::string_view rest = start;
    if (!ReadQuoted(rest, line.name) || !SkipBlanks(rest).starts_with('=')) {
        line.name = TrimBlanks(start.substr(0, start.find('=')));
        rest = start;
    }
    const auto equals = rest.find('=');
    if (equals == std::string_view::npos)
        return false;
    rest = SkipBlanks(rest.substr(equals + 1));
    line.beforeValue = static_cast<std::size_t>(rest.data() - line.whole.data());
    rest = TrimBlanks(rest);
    std::string_view quoted = rest;
    if (!ReadQuoted(quoted, line.value) || !quoted.empty())
        line.value = rest;
    return true;
}

/// Walks over the lines of a settings text.
class Lines {
public:
    explicit Lines(std::string_view text) : m_rest(text) {}

    bool Next(Line& line) {
        if (m_rest.empty())
            return false;
        const auto lineFeed = m_rest.find('\n');
        line = {};
        line.whole = m_rest.substr(0, lineFeed == std::string_view::npos ? lineFeed : lineFeed + 1);
        m_rest.remove_prefix(line.whole.size());

        const auto size = line.whole.find_last_not_of("\r\n") + 1;
        line.end = line.whole.substr(size);
        Classify(line.whole.substr(0, size), line);
        return true;
    }

private:
    static void Classify(std::string_view text, Line& line) {
        // Editors put one at the start of a file; a lost head can bring it anywhere.
        if (text.starts_with(kByteOrderMark))
            text.remove_prefix(kByteOrderMark.size());
        if (IsDamaged(text)) {
            // A section that stands right after a zeroed stretch is whole.
            line.kind = Line::Damaged;
            text.remove_prefix(text.rfind('\0') + 1);
            if (!IsDamaged(text) && ReadSection(TrimBlanks(text), line.name))
                line.kind = Line::Section;
        } else if (ReadSection(TrimBlanks(text), line.name)) {
            line.kind = Line::Section;
        } else if (ReadKey(text, line)) {
            line.kind = Line::Key;
        }
    }

    std::string_view m_rest;
};

} // namespace

SettingsValues::SettingsValues(std::string_view text) {
    std::string section = ToLower(kFirstSection);
    Lines lines(text);
    for (Line line; lines.Next(line);) {
        if (line.kind == Line::Section)
            section = ToLower(line.name);
        else if (line.kind == Line::Key)
            m_values[{section, ToLower(line.name)}] = std::move(line.value);
    }
}

const std::string* SettingsValues::Find(std::string_view section, std::string_view key) const {
    const auto found = m_values.find({ToLower(section), ToLower(key)});
    return found == m_values.end() ? nullptr : &found->second;
}

std::string ChangeSettingsText(std::string_view text, std::string_view section,
                               std::string_view key, std::string_view value,
                               const std::optional<std::string>& behind) {
    const std::string wantedSection = ToLower(section);
    const std::string wantedKey = ToLower(key);
    const auto isBefore = [name = ToLower(behind.value_or("")), &behind](const Line& line) {
        return behind && (name.empty() ? line.kind == Line::Section
                                       : line.kind == Line::Key && ToLower(line.name) == name);
    };

    // Positions in the result, which is the text without its damaged lines.
    std::string result;
    std::optional<std::size_t> sectionEnd;
    std::optional<std::size_t> place;
    std::size_t valueStart = 0;
    std::size_t valueEnd = 0;
    std::string_view lineEnd = "\n";
    std::string current = ToLower(kFirstSection);
    Lines lines(text);
    for (Line line; lines.Next(line);) {
        if (line.kind == Line::Damaged)
            continue;
        const bool damagedStart = line.kind == Line::Section && IsDamaged(line.whole);
        const auto start = result.size();
        result += damagedStart ? line.whole.substr(line.whole.rfind('\0') + 1) : line.whole;
        if (line.kind == Line::Section)
            current = ToLower(line.name);
        if (current != wantedSection || line.kind == Line::Other)
            continue;
        sectionEnd = result.size();
        if (isBefore(line))
            place = sectionEnd;
        if (line.end.ends_with('\n'))
            lineEnd = line.end;
        if (line.kind == Line::Key && ToLower(line.name) == wantedKey) {
            valueStart = start + line.beforeValue;
            valueEnd = result.size() - line.end.size();
        }
    }
    if (valueStart > 0)
        return result.replace(valueStart, valueEnd - valueStart, AsWritten(value));

    const std::string entry = KeyAsWritten(key) + '=' + AsWritten(value);
    if (sectionEnd) {
        const std::size_t at = place.value_or(*sectionEnd);
        const bool closed = result[at - 1] == '\n';
        const std::string end(lineEnd);
        return result.insert(at, closed ? entry + end : end + entry);
    }
    if (!result.empty() && result.back() != '\n')
        result += '\n';
    if (!result.empty())
        result += '\n';
    return result.append("[").append(AsWritten(section, "\"", "]")).append("]\n") + entry + '\n';
}

std::optional<std::string> KeyBefore(std::string_view text, std::string_view section,
                                     std::string_view key) {
    const std::string wantedSection = ToLower(section);
    const std::string wantedKey = ToLower(key);
    std::optional<std::string> before;
    std::string last;
    std::string current = ToLower(kFirstSection);
    Lines lines(text);
    for (Line line; lines.Next(line);) {
        if (line.kind == Line::Section) {
            current = ToLower(line.name);
            last.clear();
        } else if (line.kind == Line::Key && current == wantedSection) {
            if (ToLower(line.name) == wantedKey)
                before = last;
            last = std::move(line.name);
        }
    }
    return before;
}

std::string RemoveSettingText(std::string_view text, std::string_view section,
                              std::string_view key) {
    const std::string wantedSection = ToLower(section);
    const std::string wantedKey = ToLower(key);
    std::string result;
    bool removes = false;
    // Where the last section starts, and whether it is the wanted one and holds no line.
    std::size_t sectionStart = 0;
    bool isBare = false;
    std::string current = ToLower(kFirstSection);
    Lines lines(text);
    for (Line line; lines.Next(line);) {
        if (line.kind == Line::Section) {
            current = ToLower(line.name);
            sectionStart = result.size();
            isBare = current == wantedSection;
        } else if (line.kind == Line::Key && current == wantedSection &&
                   ToLower(line.name) == wantedKey) {
            removes = true;
            continue;
        } else {
            isBare = false;
        }
        result += line.whole;
    }
    if (!removes || !isBare)
        return result;
    result.resize(sectionStart);
    if (result.ends_with("\n\n"))
        result.pop_back();
    return result;
}

bool IsDamagedSettingsText(std::string_view text) {
    return IsDamaged(text);
}

} // namespace tallowmere
