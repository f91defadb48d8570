#include "core/text/csv_text.h"

#include "core/text/bytes.h"
#include "core/text/runtime_error.h"

#include <algorithm>
#include <csv.h>
#include <map>
#include <memory>
#include <utility>

namespace tallowmere {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kDelimiters = ",;\t|";
constexpr char kTextMark = '\'';

void AppendUtf8(std::string& text, char32_t c) {
    const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        add(c);
    } else if (c < 0x800) {
        add(0xC0 | c >> 6);
        add(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        add(0xE0 | c >> 12);
        add(0x80 | (c >> 6 & 0x3F));
        add(0x80 | (c & 0x3F));
    } else {
        add(0xF0 | c >> 18);
        add(0x80 | (c >> 12 & 0x3F));
        add(0x80 | (c >> 6 & 0x3F));
        add(0x80 | (c & 0x3F));
    }
}

/// Halves of a pair that stand alone, and an odd byte at the end, become the replacement mark.
std::string FromUtf16(std::string_view bytes, bool isBigEndian) {
    constexpr char32_t kReplacement = 0xFFFD;
    std::string text;
    const auto unit = [&](std::size_t at) {
        const auto one = static_cast<unsigned char>(bytes[at]);
        const auto two = static_cast<unsigned char>(bytes[at + 1]);
        return static_cast<char32_t>(isBigEndian ? one << 8 | two : two << 8 | one);
    };
    std::size_t at = 0;
    for (; at + 1 < bytes.size(); at += 2) {
        char32_t c = unit(at);
        if (c >= 0xD800 && c < 0xE000) {
            const char32_t low = at + 3 < bytes.size() ? unit(at + 2) : 0;
            const bool isPair = c < 0xDC00 && low >= 0xDC00 && low < 0xE000;
            c = isPair ? 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00) : kReplacement;
            at += isPair ? 2 : 0;
        }
        AppendUtf8(text, c);
    }
    if (at < bytes.size())
        AppendUtf8(text, kReplacement);
    return text;
}

std::string FromWindows1252(std::string_view bytes) {
    constexpr char16_t kUpper[] = u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021"
                                  u"\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
                                  u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014"
                                  u"\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        AppendUtf8(text, byte >= 0x80 && byte < 0xA0 ? kUpper[byte - 0x80] : byte);
    }
    return text;
}

bool IsUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[at++]);
        const int more = byte < 0x80                   ? 0
                         : byte >= 0xC2 && byte < 0xE0 ? 1
                         : byte >= 0xE0 && byte < 0xF0 ? 2
                         : byte >= 0xF0 && byte < 0xF5 ? 3
                                                       : -1;
        if (more < 0)
            return false;
        for (int n = 0; n < more; ++n, ++at)
            if (at == bytes.size() || (static_cast<unsigned char>(bytes[at]) & 0xC0) != 0x80)
                return false;
    }
    return true;
}

/// The text in UTF-8, and what it was in.
std::pair<std::string, std::string_view> Decoded(std::string_view bytes) {
    if (bytes.starts_with(kByteOrderMark))
        bytes.remove_prefix(kByteOrderMark.size());
    else if (bytes.starts_with("\xFF\xFE"))
        return {FromUtf16(bytes.substr(2), false), "UTF-16"};
    else if (bytes.starts_with("\xFE\xFF"))
        return {FromUtf16(bytes.substr(2), true), "UTF-16"};
    if (IsUtf8(bytes))
        return {std::string(bytes), "UTF-8"};
    return {FromWindows1252(bytes), "Windows-1252"};
}

struct Reading {
    CsvRows rows;
    std::vector<std::string> row;
};

/// Parses the whole text; false when a quote is not closed.
bool Parse(std::string_view text, char delimiter, char quote, CsvRows& rows) {
    constexpr std::size_t kBlock = 16 * 1024;
    csv_parser parser;
    if (csv_init(&parser, 0) != 0)
        throw RuntimeError("The table cannot be read.");
    const std::unique_ptr<csv_parser, void (*)(csv_parser*)> end(&parser, csv_free);
    csv_set_delim(&parser, static_cast<unsigned char>(delimiter));
    csv_set_quote(&parser, static_cast<unsigned char>(quote));
    csv_set_blk_size(&parser, kBlock);
    Reading reading;
    const auto cell = [](void* data, std::size_t size, void* to) {
        static_cast<Reading*>(to)->row.emplace_back(static_cast<const char*>(data), size);
    };
    const auto line = [](int, void* to) {
        auto& read = *static_cast<Reading*>(to);
        read.rows.push_back(std::exchange(read.row, {}));
    };
    // The line end closes the last cell, unless a quote keeps it open.
    for (const std::string_view piece : {text, std::string_view("\n")})
        if (csv_parse(&parser, piece.data(), piece.size(), cell, line, &reading) != piece.size())
            throw RuntimeError(
                "The table cannot be read: " + std::string(csv_strerror(csv_error(&parser))) + ".");
    const bool isWhole = !parser.quoted;
    csv_fini(&parser, cell, line, &reading);
    rows = std::move(reading.rows);
    return isWhole;
}

/// How well a reading hangs together: cells in rows that are as long as the first. A table of one
/// column says nothing for its delimiter.
std::size_t Score(const CsvRows& rows) {
    if (rows.empty() || rows.front().size() < 2)
        return 0;
    std::size_t cells = 0;
    for (const auto& row : rows)
        cells += row.size() == rows.front().size() ? row.size() : 0;
    return cells;
}

/// A program that quotes by ' has no " in the text, and cells that end as they begin.
char QuoteOf(std::string_view text) {
    if (Contains(text, "\""))
        return '"';
    for (std::size_t at = text.find(kTextMark); at != std::string_view::npos;
         at = text.find(kTextMark, at + 1)) {
        const bool begins = at == 0 || Contains(",;\t|\n", text.substr(at - 1, 1));
        const std::size_t end = begins ? text.find(kTextMark, at + 1) : std::string_view::npos;
        if (end == std::string_view::npos)
            continue;
        if (end + 1 == text.size() || Contains(",;\t|\r\n", text.substr(end + 1, 1)))
            return kTextMark;
    }
    return '"';
}

/// Takes the line "sep=;" off, by which a spreadsheet was told the delimiter; '\0' without one.
char TakeSeparatorLine(std::string_view& text) {
    constexpr std::string_view kMark = "sep=";
    if (ToLower(text.substr(0, kMark.size())) != kMark || text.size() <= kMark.size())
        return '\0';
    const std::string_view rest = text.substr(kMark.size() + 1);
    if (!rest.empty() && !rest.starts_with('\r') && !rest.starts_with('\n'))
        return '\0';
    const char delimiter = text[kMark.size()];
    if (!Contains(kDelimiters, std::string_view(&delimiter, 1)))
        return '\0';
    text = rest;
    return delimiter;
}

bool IsFormula(std::string_view cell) {
    return !cell.empty() && Contains("=+-@\t\r", cell.substr(0, 1));
}

std::string_view WithoutMarks(std::string_view cell) {
    return cell.substr(std::min(cell.find_first_not_of(kTextMark), cell.size()));
}

} // namespace

CsvTable ReadCsv(std::string_view bytes) {
    CsvTable table;
    const auto decoded = Decoded(bytes);
    table.encoding = decoded.second;
    std::string_view text = decoded.first;
    const char told = TakeSeparatorLine(text);
    table.quote = QuoteOf(text);
    bool isWhole = false;
    std::size_t best = 0;
    for (const char delimiter : told ? std::string(1, told) : std::string(kDelimiters)) {
        CsvRows rows;
        const bool closes = Parse(text, delimiter, table.quote, rows);
        const std::size_t score = Score(rows);
        if (delimiter != (told ? told : kDelimiters[0]) && score <= best)
            continue;
        best = score;
        isWhole = closes;
        table.delimiter = delimiter;
        table.rows = std::move(rows);
    }
    if (!isWhole)
        throw RuntimeError("The table cannot be read: a quote mark in it is not closed.");
    for (auto& row : table.rows)
        for (std::string& cell : row)
            cell = UnguardedCell(cell);
    return table;
}

std::string WriteCsv(const CsvRows& rows) {
    std::string text(kByteOrderMark);
    for (const auto& row : rows) {
        for (std::size_t n = 0; n < row.size(); ++n) {
            const std::string cell = GuardedCell(row[n]);
            const std::size_t before = text.size() + (n > 0 ? 1 : 0);
            const std::size_t size = csv_write(nullptr, 0, cell.data(), cell.size());
            text.resize(before + size, ',');
            csv_write(text.data() + before, size, cell.data(), cell.size());
        }
        text += "\r\n";
    }
    return text;
}

// A cell that begins with apostrophes before such a text gets one more, so that it comes back too.
std::string GuardedCell(std::string_view cell) {
    return (IsFormula(WithoutMarks(cell)) ? std::string(1, kTextMark) : std::string()) +
           std::string(cell);
}

std::string UnguardedCell(std::string_view cell) {
    const bool isGuarded = cell.starts_with(kTextMark) && IsFormula(WithoutMarks(cell));
    return std::string(cell.substr(isGuarded ? 1 : 0));
}

} // namespace tallowmere
