#include "app/base/CommandKeys.h"

#include "app/base/QtText.h"

namespace tallowmere {

CommandKeys::CommandKeys(SettingsStore& settings)
    : m_settings(settings), m_chords(ChordsOf(settings)) {}

QList<QKeySequence> CommandKeys::Of(std::string_view command) const {
    QList<QKeySequence> keys;
    if (const auto found = m_chords.find(command); found != m_chords.end())
        for (const std::string& chord : found->second)
            keys << QKeySequence::fromString(ToQt(chord), QKeySequence::PortableText);
    return keys;
}

void CommandKeys::Change(const std::vector<SettingChange>& changes) {
    m_settings.ChangeSettings(changes);
    Read();
}

void CommandKeys::Read() {
    m_chords = ChordsOf(m_settings);
    Q_EMIT Changed();
}

} // namespace tallowmere
