#include "core/shell/undo_recorder.h"

#include "core/text/folder_path.h"
#include "core/text/runtime_error.h"

#include <algorithm>

namespace tallowmere {

namespace {

constexpr std::uint64_t kLargestFile = 64 * kMegabyte;
constexpr std::string_view kNotUndone = "This cannot be undone: ";
constexpr std::uint64_t kLargestHistory = 2 * UndoHistory::kMostBytes;

} // namespace

UndoRecorder::UndoRecorder(SettingsStore& settings, std::filesystem::path folder, UndoFiles files,
                           std::filesystem::path historyFile, std::size_t mostSteps)
    : m_settings(settings), m_folder(std::move(folder)), m_files(std::move(files)),
      m_historyFile(std::move(historyFile)), m_history(mostSteps) {
    ReadHistory(mostSteps);
    m_settings.Observe([this](const SettingChange& before) {
        if (m_isRunning)
            Note(before);
    });
}

// What a key held at first is brought back, and to where it stood at last: keys that were taken out
// come back in the opposite order, each behind one that is there again.
void UndoRecorder::Note(const SettingChange& before) {
    const auto known = std::find_if(
        m_settingsBefore.begin(), m_settingsBefore.end(), [&](const SettingChange& other) {
            return other.section == before.section && other.key == before.key;
        });
    if (known == m_settingsBefore.end()) {
        m_settingsBefore.push_back(before);
    } else if (before.behind) {
        known->behind = before.behind;
        std::rotate(known, known + 1, m_settingsBefore.end());
    }
}

// What cannot be read cannot be taken back either; the stores are as they are.
void UndoRecorder::ReadHistory(std::size_t mostSteps) {
    constexpr std::string_view kLost = "What was done before cannot be undone any more: ";
    if (m_historyFile.empty())
        return;
    try {
        auto history = ReadUndoHistory(ReadExistingFile(m_historyFile, kLargestHistory), mostSteps);
        if (history)
            m_history = std::move(*history);
        else
            m_problem = std::string(kLost) + m_historyFile.string() + " is damaged.";
    } catch (const RuntimeError& error) {
        m_problem = std::string(kLost) + error.what();
    }
}

UndoRecorder::~UndoRecorder() {
    m_settings.Observe({});
}

void UndoRecorder::Run(const std::string& caption, const std::function<void()>& command,
                       const UndoFiles& moreFiles) {
    if (m_isRunning) {
        command();
        return;
    }
    Begin(moreFiles);
    try {
        command();
    } catch (...) {
        // What it did before it failed is done.
        End(caption);
        throw;
    }
    End(caption);
}

const std::optional<std::string>& UndoRecorder::Look(const std::string& file) {
    SeenFile& seen = m_seen[file];
    const auto path = PathInFolder(m_folder, file);
    const auto stamp = StampOf(path);
    if (!stamp) {
        seen = {};
    } else if (stamp != seen.stamp) {
        seen.text = ReadExistingFile(path, kLargestFile);
        seen.stamp = stamp;
    }
    return seen.text;
}

void UndoRecorder::Begin(const UndoFiles& moreFiles) {
    m_isRunning = true;
    m_problem.clear();
    m_removed.clear();
    m_settingsBefore.clear();
    m_filesBefore.clear();
    m_unread.clear();
    UndoFiles files = m_files;
    files.insert(files.end(), moreFiles.begin(), moreFiles.end());
    for (const std::string& file : files) {
        try {
            m_filesBefore.emplace_back(file, Look(file));
        } catch (const RuntimeError& error) {
            // The command may do something to it none the less.
            m_unread.push_back({file, StampOf(PathInFolder(m_folder, file)), error.what()});
        }
    }
}

void UndoRecorder::End(const std::string& caption) {
    m_isRunning = false;
    UndoStep step{caption, m_removed, {}};
    const auto add = [&](std::optional<UndoChange> change,
                         const std::optional<std::string>& behind = std::nullopt) {
        if (!change)
            return;
        step.changes.push_back(std::move(*change));
        step.changes.back().behind = behind;
    };
    for (const auto& [section, key, before, behind] : m_settingsBefore)
        add(MakeUndoChange(section, key, before, m_settings.FindSetting(section, key)), behind);
    for (const auto& [file, before] : m_filesBefore) {
        try {
            add(MakeUndoChange({}, file, before, Look(file)));
        } catch (const RuntimeError& error) {
            m_problem = std::string(kNotUndone) + error.what();
        }
    }
    for (const auto& [file, stamp, reason] : m_unread)
        if (StampOf(PathInFolder(m_folder, file)) != stamp)
            m_problem = std::string(kNotUndone) + reason;
    if (!step.changes.empty()) {
        m_history.Record(step);
        Save();
        Announce(&step);
    } else if (!m_problem.empty()) {
        Announce(nullptr);
    }
}

std::optional<std::string> UndoRecorder::Read(const UndoChange& change) const {
    if (!change.section.empty())
        return m_settings.FindSetting(change.section, change.key);
    const auto path = PathInFolder(m_folder, change.key);
    return StampOf(path) ? std::optional(ReadExistingFile(path, kLargestFile)) : std::nullopt;
}

void UndoRecorder::WriteFile(const std::string& file,
                             const std::optional<std::string>& text) const {
    const auto path = PathInFolder(m_folder, file);
    if (text) {
        WriteWholeFile(path, *text);
        return;
    }
    std::error_code error;
    std::filesystem::remove(path, error);
    if (error)
        throw RuntimeError("Cannot delete " + path.string() + ": " + error.message());
}

void UndoRecorder::WriteSettings(const std::vector<Target>& targets, bool isBack) {
    std::vector<SettingChange> changes;
    for (const auto& [change, now, wanted] : targets)
        if (!change->section.empty())
            changes.push_back(
                {change->section, change->key, isBack ? now : wanted, change->behind});
    if (isBack)
        std::reverse(changes.begin(), changes.end());
    if (!changes.empty())
        m_settings.ChangeSettings(changes);
}

// The settings are one write; a file that cannot be written after them brings back what they and
// the files before it held.
void UndoRecorder::Write(const std::vector<Target>& targets) {
    WriteSettings(targets, false);
    std::vector<const Target*> written;
    try {
        for (const Target& target : targets) {
            if (!target.change->section.empty())
                continue;
            WriteFile(target.change->key, target.wanted);
            written.push_back(&target);
        }
    } catch (const RuntimeError&) {
        for (const Target* target : written)
            WriteFile(target->change->key, target->now);
        WriteSettings(targets, true);
        throw;
    }
}

UndoRecorder::Outcome UndoRecorder::Go(UndoDirection direction) {
    m_problem.clear();
    Outcome outcome{*m_history.Next(direction), {}};
    std::vector<Target> targets;
    for (const UndoChange& change : outcome.step.changes) {
        const auto now = Read(change);
        if (!Fits(change, direction, now)) {
            outcome.refusal = "\"" + outcome.step.caption + "\" cannot be " +
                              (direction == UndoDirection::Back ? "undone" : "done again") + ": " +
                              UndoSubject(change) + " changed in another way since.";
            m_history.Drop(direction);
            Save();
            Announce(nullptr);
            return outcome;
        }
        targets.push_back({&change, now, Changed(change, direction, now)});
    }
    // Keys that the command made went to the end of their section one by one.
    if (direction == UndoDirection::Back)
        std::reverse(targets.begin(), targets.end());
    Write(targets);
    m_history.Pass(direction);
    Save();
    Announce(nullptr);
    return outcome;
}

// The command is done whether its step is kept for a later run or not. What such a run finds in the
// file then is older, and does not fit where it matters.
void UndoRecorder::Save() {
    try {
        if (!m_historyFile.empty())
            WriteWholeFile(m_historyFile, m_history.Text());
    } catch (const RuntimeError& error) {
        m_problem = std::string("After a restart nothing can be undone: ") + error.what();
    }
}

void UndoRecorder::Announce(const UndoStep* recorded) const {
    if (m_listener)
        m_listener(recorded);
}

} // namespace tallowmere
