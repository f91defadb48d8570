#include "core/portfolio/keyed_store.h"

#include "check.h"
#include "core/text/bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

using namespace tallowmere;

namespace {

// The rules as they are told, a step at a time, without a thought for speed.

std::string NaiveFind(const std::string& content, const std::string& key) {
    const auto match = content.find("||" + key + "||");
    if (key.empty() || match == std::string::npos)
        return "";
    const auto note = match + key.size() + 4;
    const auto end = content.find("|||||", note);
    return end == std::string::npos ? "" : content.substr(note, end - note);
}

std::optional<std::string> NaiveRemove(const std::string& content, const std::string& key) {
    const auto match = content.find("||" + key + "||");
    if (key.empty() || match == std::string::npos)
        return std::nullopt;
    const auto end = content.find("|||||", match + key.size() + 4);
    if (end == std::string::npos)
        return std::nullopt;
    std::string rest = content.substr(0, match);
    if (end + 7 < content.size())
        rest += content.substr(end + 7);
    while (Contains(rest, "\r\n\r\n"))
        rest = ReplaceAll(rest, "\r\n\r\n", "\r\n");
    return rest + "\r\n";
}

} // namespace

// The input is a list of keys and a store, apart by zero bytes; the keys that the store itself
// holds are tried as well.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const auto pieces = Split(input, '\0');
    const std::string content(pieces.back());
    std::vector<std::string> keys(pieces.begin(), pieces.end() - 1);
    const auto given = static_cast<std::ptrdiff_t>(keys.size());
    for (const std::string_view piece : Split(content, '|'))
        keys.emplace_back(piece);

    const NoteIndex index(content);
    for (const std::string& key : keys) {
        const std::string note = NaiveFind(content, key);
        Check(FindNote(content, key) == note);
        Check(index.Find(key) == note);
        Check(RemoveNote(content, key) == NaiveRemove(content, key));
    }

    keys.resize(static_cast<std::size_t>(given) +
                std::min<std::size_t>(keys.size() - static_cast<std::size_t>(given), 6));
    std::optional<std::string> rest;
    for (const std::string& key : keys)
        if (auto next = NaiveRemove(rest ? *rest : content, key))
            rest = next;
    Check(RemoveNotes(content, keys) == rest);
    return 0;
}
