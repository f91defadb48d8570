#pragma once

#include "core/shell/command_keys.h"

#include <QKeySequence>
#include <QList>
#include <QObject>

namespace tallowmere {

/// The shortcuts that hold now, for all windows.
class CommandKeys : public QObject {
    Q_OBJECT
public:
    explicit CommandKeys(SettingsStore& settings);

    const CommandChords& Chords() const { return m_chords; }
    QList<QKeySequence> Of(std::string_view command) const;

    /// Writes changes of the section of the shortcuts, which hold at once. Throws RuntimeError when
    /// they cannot be written; then nothing has changed.
    void Change(const std::vector<SettingChange>& changes);

    /// Reads them from the settings, after those changed in another way.
    void Read();

Q_SIGNALS:
    void Changed();

private:
    SettingsStore& m_settings;
    CommandChords m_chords;
};

} // namespace tallowmere
