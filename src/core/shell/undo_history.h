#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the user's commands changed, step by step, so that it can be taken back and done again. A
/// step holds no more than the bytes that differ, and enough to tell whether what it changed is
/// still as it left it.
namespace tallowmere {

/// A text by its size and a hash, or none. Two texts that differ have different prints but for a
/// chance of one in 2^64.
struct TextPrint {
    bool isThere = false;
    std::uint64_t size = 0, hash = 0;
    friend bool operator==(const TextPrint&, const TextPrint&) = default;
};

TextPrint PrintOf(const std::optional<std::string>& text);

/// What a command did to one value of the settings, or to one file.
struct UndoChange {
    std::string section; ///< of the settings; empty for a file
    std::string key;     ///< of the settings, or the name of the file
    std::uint64_t at = 0;
    std::string before,
        after; ///< the bytes that stood from `at` on, and those that stand there now
    TextPrint beforePrint, afterPrint;
    /// Of a key that was taken out: the key behind which it stood, empty when it was the first of
    /// its section. None when that is not known.
    std::optional<std::string> behind = std::nullopt;
    friend bool operator==(const UndoChange&, const UndoChange&) = default;
};

/// The change from one text to another; none is a key or a file that is not there. Gives none when
/// both are the same.
std::optional<UndoChange> MakeUndoChange(std::string_view section, std::string_view key,
                                         const std::optional<std::string>& before,
                                         const std::optional<std::string>& after);

enum class UndoDirection { Back, Forth };

/// Whether the text is as the change left it (`Back`), or found it (`Forth`). A file that is not
/// there is as good as an empty one.
bool Fits(const UndoChange& change, UndoDirection direction, const std::optional<std::string>& now);

/// What the text becomes when the change is taken back, or done again; it has to fit.
std::optional<std::string> Changed(const UndoChange& change, UndoDirection direction,
                                   const std::optional<std::string>& now);

/// What a change is about, in words: "portfolio 3", "the notes", "custom link 104".
std::string UndoSubject(const UndoChange& change);

/// One command.
struct UndoStep {
    std::string caption; ///< "Delete AMD"
    std::string removed; ///< "AMD removed.", empty for a command that removed nothing
    std::vector<UndoChange> changes;
    friend bool operator==(const UndoStep&, const UndoStep&) = default;
};

/// The steps that can be taken back, and those that were and can be done again.
class UndoHistory {
public:
    static constexpr std::size_t kMostSteps = 100;
    /// Bytes that the changes hold together; the oldest steps go when it is more.
    static constexpr std::size_t kMostBytes = 16 * 1024 * 1024;

    explicit UndoHistory(std::size_t mostSteps = kMostSteps) : m_mostSteps(mostSteps) {}

    /// Adds a step that was just done. What was taken back before cannot be done again any more.
    void Record(UndoStep step);

    /// The step that is next, null when there is none.
    const UndoStep* Next(UndoDirection direction) const;
    /// It was taken back, or done again.
    void Pass(UndoDirection direction);
    /// It can never be, because it does not fit any more.
    void Drop(UndoDirection direction);

    /// The history as text, to be read by ReadUndoHistory.
    std::string Text() const;

    friend bool operator==(const UndoHistory&, const UndoHistory&) = default;

private:
    friend std::optional<UndoHistory> ReadUndoHistory(std::string_view text, std::size_t mostSteps);
    void Cap();

    std::deque<UndoStep> m_steps;
    std::size_t m_done = 0; ///< steps from the front that are done
    std::size_t m_mostSteps;
};

/// The history of a text that Text gave, that of the empty text without steps; none for a text that
/// is anything else, or was cut off.
std::optional<UndoHistory> ReadUndoHistory(std::string_view text,
                                           std::size_t mostSteps = UndoHistory::kMostSteps);

} // namespace tallowmere
