#include "core/shell/command_guide.h"

#include "core/text/bytes.h"

namespace tallowmere {

namespace {

constexpr std::string_view kKey = "<kbd data-command=\"";
constexpr std::string_view kKeyEnd = "\"></kbd>";
constexpr std::string_view kTable = "<tbody data-commands></tbody>";

const std::vector<std::string>* ChordsIn(const CommandChords& chords, std::string_view name) {
    const auto found = chords.find(name);
    return found == chords.end() ? nullptr : &found->second;
}

// Commands of the same words, one after the other, are one row.
std::string TableOf(const CommandChords& chords) {
    std::string table = "<tbody>\n";
    std::string keys;
    std::string_view words;
    const auto endRow = [&] {
        if (!keys.empty())
            table += "<tr><td>" + keys + "</td><td>" + EscapeHtml(words) + "</td></tr>\n";
        keys.clear();
    };
    for (const CommandRow& row : Commands()) {
        if (row.words != words)
            endRow();
        words = row.words;
        if (const auto* own = ChordsIn(chords, row.name))
            for (const std::string& chord : *own)
                keys += (keys.empty() ? "" : ", ") + EscapeHtml(chord);
    }
    endRow();
    return table + "</tbody>";
}

} // namespace

std::string WithShortcuts(std::string_view page, const CommandChords& chords) {
    std::string result;
    Cursor cursor(page);
    std::string_view piece;
    while (cursor.ReadUpTo(kKey, piece)) {
        result += piece;
        Cursor ahead = cursor;
        std::string_view name;
        const bool isWhole = ahead.ReadUpTo(kKeyEnd, name);
        const auto* own = isWhole ? ChordsIn(chords, name) : nullptr;
        if (!own) {
            result += kKey;
            continue;
        }
        result += "<kbd>" + (own->empty() ? "no key" : EscapeHtml(own->front())) + "</kbd>";
        cursor = ahead;
    }
    result += cursor.Rest();
    return ReplaceAll(result, kTable, TableOf(chords));
}

} // namespace tallowmere
