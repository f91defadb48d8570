#include "core/text/toml_edit.h"

#include "core/text/bytes.h"
#include "core/text/runtime_error.h"
#include "core/text/tolerant_toml.h"

namespace tallowmere {

namespace {

TolerantToml Read(std::string_view text) {
    TolerantToml file = ReadTolerantly(text, "");
    if (file.root.empty() && !file.problems.empty())
        throw RuntimeError("it is no table; line" + file.problems.front());
    return file;
}

/// A text in quotes.
std::string Quoted(std::string_view value) {
    std::string quoted = "\"";
    for (const char byte : value) {
        if (static_cast<unsigned char>(byte) < ' ' || byte == '\x7F')
            throw RuntimeError("a control character cannot be written into it");
        if (byte == '"' || byte == '\\')
            quoted += '\\';
        quoted += byte;
    }
    return quoted + '"';
}

std::string LineEnd(std::string_view text) {
    return Contains(text, "\r\n") ? "\r\n" : "\n";
}

/// Where a line begins, counted from 1; the end of the text for one behind the last.
std::size_t StartOfLine(std::string_view text, toml::source_index line) {
    std::size_t start = 0;
    for (; line > 1 && start < text.size(); --line) {
        const auto end = text.find('\n', start);
        start = end == std::string_view::npos ? text.size() : end + 1;
    }
    return start;
}

/// Where a character of a line lies in the text; columns count characters, not bytes.
std::size_t OffsetOf(std::string_view text, toml::source_position position) {
    auto offset = StartOfLine(text, position.line);
    for (auto column = position.column; column > 1 && offset < text.size(); --column) {
        ++offset;
        while (offset < text.size() && (static_cast<unsigned char>(text[offset]) & 0xC0) == 0x80)
            ++offset;
    }
    return offset;
}

/// The line behind which a new row of the table stands: that of its last row.
toml::source_index LastLine(const toml::table& table) {
    auto last = table.source().end.line;
    for (const auto& [key, value] : table)
        if (!value.is_table())
            last = std::max(last, value.source().end.line);
    return last;
}

std::string NewRow(std::string_view text, const toml::table* table, std::string_view name,
                   std::string_view row) {
    const std::string lineEnd = LineEnd(text);
    const auto place = table ? StartOfLine(text, LastLine(*table) + 1) : text.size();
    std::string result(text.substr(0, place));
    if (!result.empty() && !result.ends_with('\n'))
        result += lineEnd;
    if (!table)
        result += (result.empty() ? "" : lineEnd) + "[" + std::string(name) + "]" + lineEnd;
    return result.append(row).append(lineEnd).append(text.substr(place));
}

/// The table of a name with dots, made where it is missing.
toml::table& Make(toml::table& root, std::string_view name) {
    toml::table* table = &root;
    for (const auto piece : Split(name, '.')) {
        table->insert(piece, toml::table{}); // what is there stays
        table = (*table)[piece].as_table();
        if (!table)
            throw RuntimeError("\"" + std::string(piece) + "\" is no table in it");
    }
    return *table;
}

/// Gives `text` if it says what is expected and its wrong lines are those of before.
std::string Checked(std::string text, const toml::table& expected, const TolerantToml& before) {
    const TolerantToml after = Read(text);
    if (after.root != expected || after.problems.size() != before.problems.size())
        throw RuntimeError("the row is written in a form that only a person can change");
    return text;
}

} // namespace

std::string SetTomlRow(std::string_view text, std::string_view table, std::string_view key,
                       std::string_view value) {
    const TolerantToml file = Read(text);
    const std::string quoted = Quoted(value);
    const toml::table* rows = file.root.at_path(table).as_table();
    const toml::node* old = rows ? rows->get(key) : nullptr;
    std::string changed;
    if (old) {
        const auto begin = OffsetOf(text, old->source().begin);
        changed = std::string(text.substr(0, begin)) + quoted;
        changed += text.substr(OffsetOf(text, old->source().end));
    } else {
        changed = NewRow(text, rows, table, std::string(key) + " = " + quoted);
    }
    toml::table expected = file.root;
    Make(expected, table).insert_or_assign(key, value);
    return Checked(std::move(changed), expected, file);
}

std::string RemoveTomlRow(std::string_view text, std::string_view table, std::string_view key) {
    const TolerantToml file = Read(text);
    const toml::table* rows = file.root.at_path(table).as_table();
    const toml::node* old = rows ? rows->get(key) : nullptr;
    if (!old)
        return std::string(text);
    std::string changed(text.substr(0, StartOfLine(text, old->source().begin.line)));
    changed += text.substr(StartOfLine(text, old->source().end.line + 1));
    toml::table expected = file.root;
    Make(expected, table).erase(key);
    return Checked(std::move(changed), expected, file);
}

} // namespace tallowmere
