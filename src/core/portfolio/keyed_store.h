#pragma once

#include "core/text/folder_path.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Texts by key in one file: records "||" + key + "||" + text + "|||||", each followed by a line
/// end (carriage return, line feed), in the order in which they were added. Ticker notes and
/// reminders are kept so.
namespace tallowmere {

/// The store of the notes on tickers.
inline constexpr std::string_view kTickerNotesFile = "\\TickNotes.txt";

/// Performs one operation on the store `file` (a name such as "\TickNotes.txt") in `folder`:
/// "GET" puts the text of `ticker` into `result`, "SET" appends a record, "REMOVE" deletes the
/// first record of `ticker` and touches no file when there is none, "KILL" deletes the file (it is
/// kept as `.bak`). `result` is empty otherwise. Errors of the file system are ignored: the
/// operation then has no effect.
void TickerNotes(const std::filesystem::path& folder, std::string& result,
                 std::string_view operation, std::string_view ticker, std::string_view note,
                 std::string_view file);

/// What a store may hold at the most to be read whole, in bytes.
inline constexpr std::uint64_t kLargestStore = 64 * 1024 * 1024;

/// The content of the store `file` in `folder`, empty when it is missing. Throws RuntimeError when
/// it cannot be read or is larger than kLargestStore.
std::string ReadStore(const std::filesystem::path& folder, std::string_view file);

/// Whether the store has a text for `key`; one that cannot be read has none.
bool HasNote(const std::filesystem::path& folder, std::string_view key, std::string_view file);

/// Makes `note` the text of `key`: what "REMOVE" and then "SET" do, in one write, so that no crash
/// comes between them. An empty note is only removed. Throws RuntimeError when the store cannot be
/// read or written; it then holds what it held.
void ReplaceNote(const std::filesystem::path& folder, std::string_view key, std::string_view note,
                 std::string_view file);

/// What the text of a key is to be.
struct ReplacedNote {
    std::string key, note;
};

/// The same for several keys, in one write.
void ReplaceNotes(const std::filesystem::path& folder, const std::vector<ReplacedNote>& notes,
                  std::string_view file);

/// The note in a form that reads back whole: blanks are put between the bars where five in a row,
/// or bars at the end, would be taken for the mark that ends a record.
std::string StorableNote(std::string_view note);

/// A note of several lines as it is stored: its lines end as on every system that reads the file,
/// and a line of its own that is empty holds a blank, since two line ends in a row are made one
/// whenever a record is removed. Line ends around the note go.
std::string StoredLines(std::string_view text);

/// A stored note as it was typed, with plain line feeds.
std::string ShownLines(std::string_view note);

/// The first line of a note that is not empty, cut to so many characters, for a menu.
std::string FirstLine(std::string_view note, std::size_t characters = 40);

/// What the user is told when StorableNote changed a note.
inline constexpr std::string_view kBarsParted =
    "Five bars in a row, or bars at the end, would end the note in its file. Blanks were put "
    "between them.";

/// Performs "REMOVE" for each key in turn, yet reads and writes the file only once.
void RemoveNotes(const std::filesystem::path& folder, const std::vector<std::string>& keys,
                 std::string_view file);

/// The text that a GET of `key` finds in the content of a store. No record has an empty key.
std::string FindNote(std::string_view content, std::string_view key);

/// The content without the first record of `key`, with doubled line ends collapsed; none when the
/// record is missing or has no end. The line end that a rewrite adds is included.
std::optional<std::string> RemoveNote(std::string_view content, std::string_view key);

/// The content after a RemoveNote for each key in turn; none when that changes nothing. Linear in
/// the content as long as it holds nothing but whole records.
std::optional<std::string> RemoveNotes(std::string_view content,
                                       const std::vector<std::string>& keys);

/// The record that SET appends, with its line end.
std::string NoteRecord(std::string_view key, std::string_view note);

/// Whether the content is of an unusable form: a double bar but no end of a record anywhere.
bool IsUnusable(std::string_view content);

/// What a GET would give for each key, from one walk over the content; for reports and lists
/// that look up many keys.
class NoteIndex {
public:
    explicit NoteIndex(std::string content);
    NoteIndex(const NoteIndex&) = delete;
    NoteIndex& operator=(const NoteIndex&) = delete;

    /// The text that GET gives for `key`, empty when there is none.
    std::string_view Find(std::string_view key) const;
    /// The keys without bars that have a note, in the order of the file.
    std::vector<std::string_view> Keys() const;

private:
    std::string m_content;
    std::unordered_map<std::string_view, std::string_view> m_notes;
};

} // namespace tallowmere
