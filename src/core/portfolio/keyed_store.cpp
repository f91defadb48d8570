#include "core/portfolio/keyed_store.h"

#include "core/text/bytes.h"
#include "core/text/cut_characters.h"
#include "core/text/files.h"
#include "core/text/runtime_error.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <unordered_set>

namespace tallowmere {

namespace {

constexpr std::string_view kBars = "||";
constexpr std::string_view kEnd = "|||||";
constexpr std::string_view kLineEnd = "\r\n";
constexpr auto kNowhere = std::string_view::npos;

std::size_t Find(std::string_view content, std::string_view pattern) {
#ifdef _WIN32
    return content.find(pattern);
#else
    // A store is full of bars: looking for the first byte of a pattern, as find() does, halts at
    // every one of them.
    const void* at = ::memmem(content.data(), content.size(), pattern.data(), pattern.size());
    return at == nullptr ? kNowhere
                         : static_cast<std::size_t>(static_cast<const char*>(at) - content.data());
#endif
}

std::string Head(std::string_view key) {
    return std::string(kBars).append(key).append(kBars);
}

/// Where a record lies: its start, its text, and the start of its end mark.
struct Record {
    std::size_t start, text, end;
};

std::optional<Record> FindRecord(std::string_view content, std::string_view key) {
    if (key.empty())
        return std::nullopt;
    const std::string head = Head(key);
    const auto start = Find(content, head);
    if (start == kNowhere)
        return std::nullopt;
    const auto text = start + head.size();
    const auto end = content.find(kEnd, text);
    if (end == kNowhere)
        return std::nullopt;
    return Record{start, text, end};
}

/// What FindNote does, for a store that goes by in pieces.
class NoteSearch {
public:
    explicit NoteSearch(std::string_view key) : m_head(key.empty() ? "" : Head(key)) {}

    /// Takes a piece and gives how much of it is used up, none when the note is complete.
    std::optional<std::size_t> Take(std::string_view piece) {
        m_sawEnd = m_sawEnd || piece.find(kEnd) != kNowhere;
        const auto head = m_inNote ? 0 : m_head.empty() ? kNowhere : Find(piece, m_head);
        if (head == kNowhere)
            return AllBut(std::max(m_head.size(), kEnd.size()) - 1, piece);
        const auto start = m_inNote ? 0 : head + m_head.size();
        m_inNote = true;
        const auto text = piece.substr(start);
        const auto end = text.find(kEnd);
        const auto known = end == kNowhere ? AllBut(kEnd.size() - 1, text) : end;
        m_note.append(text, 0, known);
        if (end == kNowhere)
            return start + known;
        m_complete = true;
        return std::nullopt;
    }

    /// Whether an end mark went by; the store is then of a usable form.
    bool SawEnd() const { return m_sawEnd; }
    std::string Note() && { return m_complete ? std::move(m_note) : std::string(); }

private:
    /// What a mark that begins in this piece and ends in the next leaves to be used up.
    static std::size_t AllBut(std::size_t kept, std::string_view piece) {
        return piece.size() - std::min(piece.size(), kept);
    }

    std::string m_head;
    std::string m_note;
    bool m_inNote = false;
    bool m_complete = false;
    bool m_sawEnd = false;
};

std::string Get(const std::filesystem::path& path, std::string_view key) {
    NoteSearch search(key);
    if (!ScanFile(path, [&](std::string_view piece) { return search.Take(piece); }))
        return "";
    if (!search.SawEnd() && IsUnusable(ReadWholeFile(path)))
        MoveToBackup(path);
    return std::move(search).Note();
}

/// Every run of line ends becomes a single one.
std::string CollapseLineEnds(std::string_view text) {
    constexpr std::string_view kDoubled = "\r\n\r\n";
    std::string result;
    result.reserve(text.size() + kLineEnd.size());
    std::size_t from = 0;
    for (auto at = text.find(kDoubled); at != kNowhere; at = text.find(kDoubled, from)) {
        result.append(text, from, at - from);
        from = at + kLineEnd.size();
    }
    result.append(text, from);
    return result;
}

/// A store that holds whole records and a last line end, and no more: what the program itself
/// leaves after a REMOVE. In such a store records can be taken out without looking at each other.
class PlainStore {
public:
    /// None when the content is anything else.
    static std::optional<PlainStore> Read(std::string_view content) {
        PlainStore store;
        while (content.starts_with(kBars)) {
            const auto keyEnd = content.find(kBars, kBars.size());
            if (keyEnd == kNowhere || keyEnd == kBars.size() || content[kBars.size()] == '|')
                return std::nullopt;
            const auto text = keyEnd + kBars.size();
            const auto end = content.find(kBars, text);
            if (end == kNowhere || content[text] == '|' ||
                content.substr(end, kEnd.size()) != kEnd ||
                content.substr(end + kEnd.size(), kLineEnd.size()) != kLineEnd)
                return std::nullopt;
            const auto size = end + kEnd.size() + kLineEnd.size();
            const auto key = content.substr(kBars.size(), keyEnd - kBars.size());
            store.m_byKey[key].push_back(store.m_records.size());
            store.m_records.push_back(content.substr(0, size));
            store.m_texts.insert(content.substr(text, end - text));
            content.remove_prefix(size);
        }
        if (content != kLineEnd)
            return std::nullopt;
        return store;
    }

    /// Whether a search for the key can hit nothing but a record: a text that stands between the
    /// bars looks like a key too.
    bool FindsOnlyRecords(std::string_view key) const {
        return key.find('|') == kNowhere && key != kLineEnd && !m_texts.contains(key);
    }

    void Remove(std::string_view key) {
        const auto found = m_byKey.find(key);
        if (found == m_byKey.end() || found->second.empty())
            return;
        m_records[found->second.front()] = {};
        found->second.pop_front();
        ++m_removed;
    }

    std::string Content() const {
        std::string content;
        for (const std::string_view record : m_records)
            content.append(record);
        // The last record takes its line end along, but not the one after it.
        if (content.empty() && m_removed > 0)
            content = kLineEnd;
        content.append(kLineEnd);
        return content;
    }

private:
    std::vector<std::string_view> m_records;
    std::unordered_map<std::string_view, std::deque<std::size_t>> m_byKey;
    std::unordered_set<std::string_view> m_texts;
    std::size_t m_removed = 0;
};

} // namespace

std::string FindNote(std::string_view content, std::string_view key) {
    const auto record = FindRecord(content, key);
    return record ? std::string(content.substr(record->text, record->end - record->text)) : "";
}

std::optional<std::string> RemoveNote(std::string_view content, std::string_view key) {
    const auto record = FindRecord(content, key);
    if (!record)
        return std::nullopt;
    // The two bytes after the end mark go too, whatever they are: SET writes a line end there.
    const auto next = std::min(content.size(), record->end + kEnd.size() + kLineEnd.size());
    std::string rest(content.substr(0, record->start));
    rest.append(content.substr(next));
    rest = CollapseLineEnds(rest);
    rest.append(kLineEnd);
    return rest;
}

std::optional<std::string> RemoveNotes(std::string_view content,
                                       const std::vector<std::string>& keys) {
    std::optional<std::string> result;
    for (auto key = keys.begin(); key != keys.end(); ++key) {
        auto rest = RemoveNote(result ? *result : content, *key);
        if (!rest)
            continue;
        result = std::move(rest);
        auto plain = PlainStore::Read(*result);
        if (plain && std::all_of(key + 1, keys.end(), [&](std::string_view other) {
                return plain->FindsOnlyRecords(other);
            })) {
            while (++key != keys.end())
                plain->Remove(*key);
            return plain->Content();
        }
    }
    return result;
}

std::string NoteRecord(std::string_view key, std::string_view note) {
    std::string record(kBars);
    return record.append(key).append(kBars).append(note).append(kEnd).append(kLineEnd);
}

bool IsUnusable(std::string_view content) {
    return content.find(kBars) != kNowhere && content.find(kEnd) == kNowhere;
}

void TickerNotes(const std::filesystem::path& folder, std::string& result,
                 std::string_view operation, std::string_view ticker, std::string_view note,
                 std::string_view file) {
    result.clear();
    const auto path = PathInFolder(folder, file);
    try {
        if (operation == "GET") {
            result = Get(path, ticker);
        } else if (operation == "SET") {
            if (!ticker.empty() && !note.empty())
                AppendToFile(path, NoteRecord(ticker, note));
        } else if (operation == "REMOVE") {
            if (const auto rest = RemoveNote(ReadExistingFile(path), ticker))
                WriteWholeFile(path, *rest);
        } else if (operation == "KILL") {
            MoveToBackup(path);
        }
    } catch (const RuntimeError&) {
        // A store that cannot be written keeps what it holds; the caller is not told.
    }
}

std::string ReadStore(const std::filesystem::path& folder, std::string_view file) {
    return ReadExistingFile(PathInFolder(folder, file), kLargestStore);
}

bool HasNote(const std::filesystem::path& folder, std::string_view key, std::string_view file) {
    try {
        return !FindNote(ReadStore(folder, file), key).empty();
    } catch (const RuntimeError&) {
        return false;
    }
}

void ReplaceNote(const std::filesystem::path& folder, std::string_view key, std::string_view note,
                 std::string_view file) {
    const auto path = PathInFolder(folder, file);
    auto rest = RemoveNote(ReadStore(folder, file), key);
    const std::string record = key.empty() || note.empty() ? "" : NoteRecord(key, note);
    if (rest)
        WriteWholeFile(path, rest->append(record));
    else
        AppendToFile(path, record);
}

void ReplaceNotes(const std::filesystem::path& folder, const std::vector<ReplacedNote>& notes,
                  std::string_view file) {
    if (notes.empty())
        return;
    std::vector<std::string> keys;
    std::string records;
    for (const auto& [key, note] : notes) {
        keys.push_back(key);
        if (!key.empty() && !note.empty())
            records += NoteRecord(key, note);
    }
    const std::string content = ReadStore(folder, file);
    WriteWholeFile(PathInFolder(folder, file),
                   RemoveNotes(content, keys).value_or(content) + records);
}

std::string StorableNote(std::string_view note) {
    constexpr std::size_t kMostBars = kEnd.size() - 1;
    std::string storable;
    std::size_t bars = 0;
    for (const char c : note) {
        if (c == '|' && bars == kMostBars) {
            storable += ' ';
            bars = 0;
        }
        bars = c == '|' ? bars + 1 : 0;
        storable += c;
    }
    if (bars > 0)
        storable += ' ';
    return storable;
}

std::string StoredLines(std::string_view text) {
    const std::string plain = ReplaceAll(ReplaceAll(text, "\r\n", "\n"), "\r", "\n");
    std::string_view rest = plain;
    while (rest.starts_with('\n'))
        rest.remove_prefix(1);
    while (rest.ends_with('\n'))
        rest.remove_suffix(1);
    std::string stored;
    bool isFirst = true;
    for (const std::string_view line : Split(rest, '\n')) {
        if (!isFirst)
            stored.append(kLineEnd);
        stored.append(line.empty() && !isFirst ? " " : line);
        isFirst = false;
    }
    return stored;
}

std::string ShownLines(std::string_view note) {
    std::string shown;
    bool isFirst = true;
    const std::string plain = ReplaceAll(note, kLineEnd, "\n");
    for (const std::string_view line : Split(plain, '\n')) {
        if (!isFirst)
            shown += '\n';
        shown.append(line == " " && !isFirst ? "" : line);
        isFirst = false;
    }
    return shown;
}

std::string FirstLine(std::string_view note, std::size_t characters) {
    const std::string shown = ShownLines(note);
    std::string_view text = shown;
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n"), text.size()));
    const std::string_view line = text.substr(0, text.find('\n'));
    const std::string_view cut = CutCharacters(line, characters);
    std::string first(cut);
    if (cut.size() < text.size())
        first.append("\xE2\x80\xA6");
    return first;
}

void RemoveNotes(const std::filesystem::path& folder, const std::vector<std::string>& keys,
                 std::string_view file) {
    if (keys.empty())
        return;
    const auto path = PathInFolder(folder, file);
    try {
        // Reading alone must not leave an empty store behind.
        if (const auto rest = RemoveNotes(ReadExistingFile(path), keys))
            WriteWholeFile(path, *rest);
    } catch (const RuntimeError&) {
        // As with a single REMOVE.
    }
}

NoteIndex::NoteIndex(std::string content) : m_content(std::move(content)) {
    // A key without bars stands between two runs of at least two of them, so each such stretch is
    // looked at once. The search for the end mark never goes back either.
    const std::string_view text = m_content;
    std::size_t end = 0;
    for (auto bars = text.find(kBars); bars != kNowhere;) {
        const auto key = text.find_first_not_of('|', bars);
        const auto keyEnd = key == kNowhere ? kNowhere : text.find('|', key);
        if (keyEnd == kNowhere)
            break;
        if (text.substr(keyEnd, kBars.size()) != kBars) {
            bars = text.find(kBars, keyEnd);
            continue;
        }
        const auto note = keyEnd + kBars.size();
        if (end < note)
            end = text.find(kEnd, note);
        m_notes.try_emplace(text.substr(key, keyEnd - key),
                            end == kNowhere ? std::string_view{} : text.substr(note, end - note));
        bars = keyEnd;
    }
}

std::vector<std::string_view> NoteIndex::Keys() const {
    // What stands within a note could be a key too, were it asked for.
    std::vector<std::string_view> keys;
    Cursor cursor(m_content);
    std::string_view key;
    std::string_view note;
    while (cursor.SkipPast(kBars)) {
        while (cursor.Rest().starts_with('|'))
            cursor.Skip(1);
        if (!cursor.ReadUpTo(kBars, key) || !cursor.ReadUpTo(kEnd, note))
            break;
        if (!note.empty() && key.find_first_of("|\r\n") == kNowhere && Find(key) == note)
            keys.push_back(key);
    }
    return keys;
}

std::string_view NoteIndex::Find(std::string_view key) const {
    if (key.find('|') == kNowhere) {
        const auto found = m_notes.find(key);
        return found == m_notes.end() ? std::string_view{} : found->second;
    }
    // No ticker and no date holds a bar; such a key is searched for as a GET would.
    const auto record = FindRecord(m_content, key);
    return record ? std::string_view(m_content).substr(record->text, record->end - record->text)
                  : std::string_view{};
}

} // namespace tallowmere
