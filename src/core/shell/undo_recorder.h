#pragma once

#include "core/shell/settings_store.h"
#include "core/shell/undo_history.h"
#include "core/text/files.h"

#include <filesystem>
#include <functional>
#include <map>

namespace tallowmere {

/// Which files a command may change beside the settings, by their names in the program folder.
using UndoFiles = std::vector<std::string>;

/// Notes what the user's commands change in the stores, takes it back and does it again. A command
/// runs inside Run; what it writes, by whatever way, is found by comparing the values that it wrote
/// and the files with what they held before.
class UndoRecorder {
public:
    /// `files` are those that every command may change. The history lies in `historyFile`, which is
    /// read now; an empty path keeps none.
    UndoRecorder(SettingsStore& settings, std::filesystem::path folder, UndoFiles files,
                 std::filesystem::path historyFile,
                 std::size_t mostSteps = UndoHistory::kMostSteps);
    ~UndoRecorder();
    UndoRecorder(const UndoRecorder&) = delete;
    UndoRecorder& operator=(const UndoRecorder&) = delete;

    /// Runs a command, and records what it changed as a step of that caption; nothing when that is
    /// nothing. A command that another one runs is part of it. What is thrown goes on to the
    /// caller.
    void Run(const std::string& caption, const std::function<void()>& command,
             const UndoFiles& moreFiles = {});

    /// Called by a command while it runs: what it removed, for the user to read.
    void TellRemoved(std::string words) { m_removed = std::move(words); }

    /// Why the command that ran last cannot be undone, or not after a restart; after the
    /// construction why the history of earlier runs is lost. Empty when neither is so.
    const std::string& Problem() const { return m_problem; }

    /// The step that is next; null when there is none.
    const UndoStep* Next(UndoDirection direction) const { return m_history.Next(direction); }

    /// What became of taking a step back, or of doing it again.
    struct Outcome {
        UndoStep step;
        std::string refusal; ///< why it was not done; the step is then forgotten
    };

    /// Takes the last step back, or does the next one again; all of it or nothing. Nothing is done
    /// to what was changed by something else since. Throws RuntimeError when a store cannot be
    /// written; there has to be a next step.
    Outcome Go(UndoDirection direction);

    /// Is called after a step was recorded, taken back, done again or forgotten; the step if it was
    /// recorded, else null. Also after a command that could not be recorded.
    using Listener = std::function<void(const UndoStep* recorded)>;
    void SetListener(Listener listener) { m_listener = std::move(listener); }

private:
    /// What a change makes of a text.
    struct Target {
        const UndoChange* change;
        std::optional<std::string> now, wanted;
    };
    void Note(const SettingChange& before);
    void Begin(const UndoFiles& moreFiles);
    void End(const std::string& caption);
    /// Reads a file, unless it is as it was when it was read last.
    const std::optional<std::string>& Look(const std::string& file);
    void ReadHistory(std::size_t mostSteps);
    std::optional<std::string> Read(const UndoChange& change) const;
    void Write(const std::vector<Target>& targets);
    void WriteFile(const std::string& file, const std::optional<std::string>& text) const;
    void WriteSettings(const std::vector<Target>& targets, bool isBack);
    void Save();
    void Announce(const UndoStep* recorded) const;

    SettingsStore& m_settings;
    std::filesystem::path m_folder;
    UndoFiles m_files;
    std::filesystem::path m_historyFile;
    UndoHistory m_history;
    std::string m_problem;
    Listener m_listener;

    /// A file as it was when it was last looked at.
    struct SeenFile {
        std::optional<FileStamp> stamp;
        std::optional<std::string> text;
    };
    std::map<std::string, SeenFile> m_seen;

    /// A file that could not be read before a command, and why.
    struct UnreadFile {
        std::string name;
        std::optional<FileStamp> stamp;
        std::string reason;
    };

    // Of the command that runs.
    bool m_isRunning = false;
    std::string m_removed;
    std::vector<std::pair<std::string, std::optional<std::string>>> m_filesBefore;
    std::vector<UnreadFile> m_unread;
    std::vector<SettingChange> m_settingsBefore;
};

} // namespace tallowmere
